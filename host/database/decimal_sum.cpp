#include "host/database/decimal_sum.h"

#include <cmath>

#include "framework/values/errors.h"

namespace quillo {
namespace {

__extension__ using Wide = __int128;

constexpr std::int64_t partsOfOne = 10'000'000'000;
constexpr std::int64_t moneyUnits = 10'000;
constexpr double most = 1e15;

// The decimal that a double stands for, in ten-billionths.
Wide partsOf(double value) {
    const double scaled = value * static_cast<double>(moneyUnits);
    const double whole = std::round(scaled);
    if (std::fabs(scaled - whole) <= std::fabs(scaled) * 4.5e-16)
        return static_cast<Wide>(whole) * (partsOfOne / moneyUnits);
    return static_cast<Wide>(std::round(static_cast<long double>(value) * static_cast<long double>(partsOfOne)));
}

}  // namespace

void DecimalSum::add(std::int64_t value) {
    std::int64_t sum = 0;
    if (__builtin_add_overflow(ones_, value, &sum)) throw OverflowError("Overflow: the sum is too large");
    ones_ = sum;
}

void DecimalSum::add(double value) {
    if (std::fabs(value) < most) {
        const Wide parts = partsOf(value) + parts_;
        add(static_cast<std::int64_t>(parts / partsOfOne));
        parts_ = static_cast<std::int64_t>(parts % partsOfOne);
    } else {
        const double sum = beyond_ + value;
        if (!std::isfinite(sum)) throw OverflowError("Overflow: the sum is too large");
        beyond_ = sum;
    }
    fractions_ = true;
}

double DecimalSum::real() const {
    const Wide parts = static_cast<Wide>(ones_) * partsOfOne + parts_;
    constexpr Wide step = partsOfOne / moneyUnits;
    // A sum of amounts is divided once and by a small number, and so is the double nearest to it.
    const long double sum = parts % step == 0 ? static_cast<long double>(parts / step) / moneyUnits
                                              : static_cast<long double>(parts) / partsOfOne;
    return static_cast<double>(sum) + beyond_;
}

}  // namespace quillo
