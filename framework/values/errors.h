#pragma once

#include <stdexcept>
#include <string>

// The named failures of the library. what() is the description that the failure box shows.
namespace quillo {

// An amount left the range of Money (some 922 trillion).
struct OverflowError : std::overflow_error {
    using std::overflow_error::overflow_error;
};

// A value cannot be read as the kind that was asked for.
struct ConversionError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// A name (column, section, control, property, report) that does not exist.
struct NameError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// A design, filter, text or other input that is damaged; the text names the place.
struct InputError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The database refused a statement; the text is the provider's own.
struct DatabaseError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The engine cannot go on; the text names report and section.
struct EngineError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The run was asked to stop. No failure, and no std::exception, so that no step shows it: the engine alone catches it.
struct RunStopped {};

}  // namespace quillo
