#pragma once

#include <string>

#include "framework/engine/controls.h"
#include "framework/services/services.h"

// How the journals and their distributions write accounts and their sides.
namespace quillo {

// Whether the company calls its accounts by number. A parameter of the company: ask once a run, not once a row.
bool usesAccountNumbers(HostContext& context);
// Where it does not: the description takes the room of the number in front of it.
void takePlaceOf(Control& number, Control& description);
// A side of an account: blank instead of a zero amount.
std::string sideText(const LocaleFormat& locale, Money amount);

}  // namespace quillo
