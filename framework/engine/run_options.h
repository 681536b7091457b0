#pragma once

#include <functional>

#include "framework/values/errors.h"

namespace quillo {

struct Progress {
    long rows = 0;  // rows walked so far, those of sub-reports included
    int pages = 0;  // pages finished so far
};

// A run gave more pages than it was allowed.
struct PageLimitError : EngineError {
    using EngineError::EngineError;
};

struct RunOptions {
    int maxPages = 100000;  // a run that would give more stops with a PageLimitError
    // Called now and then; false asks the run to stop. Empty: never asked.
    std::function<bool(const Progress&)> proceed;
};

}  // namespace quillo
