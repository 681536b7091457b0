#pragma once

#include <exception>

// One step of a procedure: the smallest piece that may fail by itself and leave the rest meaningful. A failure shows
// its box, naming object, procedure and line, and the procedure goes on behind the step. The object has a showFailure.
#define STEP(...) QUILLO_STEP(__func__, __VA_ARGS__)

// The same in a helper of a procedure, which the box names: STEP_OF(Detail_Format, amount = ...).
#define STEP_OF(procedure, ...) QUILLO_STEP(#procedure, __VA_ARGS__)

#define QUILLO_STEP(procedure, ...)                                 \
    do {                                                            \
        try {                                                       \
            __VA_ARGS__;                                            \
        } catch (const std::exception& failure) {                   \
            this->showFailure(failure.what(), procedure, __LINE__); \
        }                                                           \
    } while (false)
