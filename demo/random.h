#pragma once

#include <cstddef>
#include <cstdint>

namespace quillo::demo {

// splitmix64: small, fast, and the same sequence for a seed on every platform, unlike the
// distributions of the standard library.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next() {
        std::uint64_t z = (state_ += 0x9e3779b97f4a7c15ULL);
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
        return z ^ (z >> 31);
    }
    // 0 to count - 1.
    std::int64_t below(std::int64_t count) {
        return static_cast<std::int64_t>(next() % static_cast<std::uint64_t>(count));
    }
    // first to last, both included.
    std::int64_t between(std::int64_t first, std::int64_t last) { return first + below(last - first + 1); }
    // True in so many of a thousand cases.
    bool chance(int perThousand) { return below(1000) < perThousand; }
    // A whole number whose mean is hundredths / 100.
    std::int64_t about(std::int64_t hundredths) {
        const std::int64_t base = hundredths / 100;
        const std::int64_t spread = base > 2 ? base / 2 : base;
        return between(base - spread, base + spread) + (below(100) < hundredths % 100 ? 1 : 0);
    }
    template <class Range>
    auto& pick(Range& range) {
        return range[static_cast<std::size_t>(below(static_cast<std::int64_t>(std::size(range))))];
    }

private:
    std::uint64_t state_;
};

}  // namespace quillo::demo
