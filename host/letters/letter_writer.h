#pragma once

#include <string>
#include <string_view>

#include "host/letters/letter_template.h"
#include "host/letters/overdue.h"
#include "host/session/host_session.h"

namespace quillo {

// The template that comes with the library for a language; English where it has none of its own.
std::string_view builtInLetter(std::string_view language);

// What a letter to a customer says of a day, in the session's language and formats.
LetterFields letterFields(HostSession& session, const OverdueCustomer& customer, Date at);

}  // namespace quillo
