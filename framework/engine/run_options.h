#pragma once

#include <functional>

namespace quillo {

struct Progress {
    long rows = 0;  // rows walked so far, those of sub-reports included
    int pages = 0;  // pages finished so far
};

struct RunOptions {
    int maxPages = 100000;  // a run that would give more stops with an EngineError
    // Called now and then; false asks the run to stop. Empty: never asked.
    std::function<bool(const Progress&)> proceed;
};

}  // namespace quillo
