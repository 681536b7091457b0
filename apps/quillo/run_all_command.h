#pragma once

#include "apps/quillo/run_command.h"

namespace quillo::app {

// Prints every report of the catalogue into the folder that the request's output names, a file a member; both cores
// take part, a session of its own a report. What each one cannot do is told under its name; the exit status is that of
// the worst. Throws UsageError for what only one report can be asked.
int runAllCommand(const RunRequest& request, const Console& console);

}  // namespace quillo::app
