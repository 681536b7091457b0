#pragma once

#include <stdexcept>

namespace quillo {

// A font cannot be found or opened, or no installed font has a character; the text names both.
struct FontError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// An output cannot be written; the text holds path and reason.
struct OutputError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace quillo
