#pragma once

#include <cstdint>

namespace quillo {

// Adds amounts without the errors of binary fractions: 0.1 + 0.2 - 0.3 is 0. Each double counts as the
// decimal that it stands for, to the fourth decimal when it has no more and to the tenth otherwise.
// Values beyond a quadrillion are added as they are. Throws OverflowError when the sum leaves 64 bits, or for a value
// that is not finite, and keeps what it had.
class DecimalSum {
public:
    void add(double value);
    void add(std::int64_t value);

    bool onlyIntegers() const { return !fractions_; }
    std::int64_t integer() const { return ones_; }
    double real() const;

private:
    // Two halves and no 128 bits, because SQLite aligns memory to 64.
    std::int64_t ones_ = 0;
    std::int64_t parts_ = 0;  // ten-billionths of one, less than one in all
    double beyond_ = 0;
    bool fractions_ = false;
};

}  // namespace quillo
