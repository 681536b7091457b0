#pragma once

#include <string>

#include "apps/quillo/run_command.h"

namespace quillo::app {

// Follows a drill tag: runs the report that it leads to, or prints the cards of its records. by: whose key a tag of the
// day end carries, "user" or "register"; empty: the company is asked, users first. Throws UsageError and CompanyError;
// gives the exit status otherwise.
int drillCommand(const std::string& tag, const std::string& by, RunRequest request, const Console& console);

}  // namespace quillo::app
