#pragma once

#include <string>
#include <vector>

#include "apps/quillo/console.h"

namespace quillo::app {

// The whole program behind its command line; arguments without the program's name. Gives the exit status: 0 done,
// 1 it ran and showed failures, 2 wrong arguments, 3 the company cannot be opened.
int runProgram(const std::vector<std::string>& arguments, const Console& console);

}  // namespace quillo::app
