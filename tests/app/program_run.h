#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "apps/quillo/program.h"

namespace quillo::test {

// What a command gave: its exit status, and all that it printed.
struct Outcome {
    int status;
    std::string out, err;
};

// Runs the program within this process.
inline Outcome program(const std::vector<std::string>& arguments) {
    std::ostringstream out, err;
    const int status = app::runProgram(arguments, app::Console{out, err});
    return {status, out.str(), err.str()};
}

}  // namespace quillo::test
