#pragma once

#include <memory>
#include <string>

#include "apps/quillo/console.h"
#include "host/session/host_session.h"

namespace quillo::app {

// The day that an option gives. Throws UsageError for any other text.
Date readDate(const std::string& option, const std::string& text);

// Throws CompanyError when the company cannot be opened, UsageError for what else is wrong with the options.
std::unique_ptr<HostSession> openSession(const SessionOptions& options, Messages& messages);

}  // namespace quillo::app
