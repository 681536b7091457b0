#pragma once

#include <cstdint>
#include <initializer_list>
#include <random>

namespace quillo::test {

// Choices that a seed decides, the same on every machine.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : engine_(seed) {}
    int between(int lowest, int highest) {
        return lowest + static_cast<int>(engine_() % static_cast<std::uint64_t>(highest - lowest + 1));
    }
    bool in(int percent) { return between(1, 100) <= percent; }
    template <class T>
    T oneOf(std::initializer_list<T> values) {
        return values.begin()[between(0, static_cast<int>(values.size()) - 1)];
    }

private:
    std::mt19937_64 engine_;
};

}  // namespace quillo::test
