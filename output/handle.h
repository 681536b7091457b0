#pragma once

#include <memory>

namespace quillo {

// The owner of an object of a C library that one function of the library gives back.
template <auto Give>
struct GiveBack {
    template <class T>
    void operator()(T* object) const {
        Give(object);
    }
};
template <class T, auto Give>
using Handle = std::unique_ptr<T, GiveBack<Give>>;

}  // namespace quillo
