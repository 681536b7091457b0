#include "framework/values/money.h"

#include <array>
#include <cmath>
#include <limits>

#include "framework/values/errors.h"

namespace quillo {
namespace {

using Wide = __int128;
static_assert(sizeof(Wide) == 16);

[[noreturn]] void overflow() {
    throw OverflowError("Overflow: the amount is too large");
}

std::int64_t narrow(Wide value) {
    if (value > std::numeric_limits<std::int64_t>::max() || value < std::numeric_limits<std::int64_t>::min())
        overflow();
    return static_cast<std::int64_t>(value);
}

enum class Tie { toEven, away };

Wide divideRounded(Wide numerator, Wide divisor, Tie tie) {
    if (divisor < 0) {
        numerator = -numerator;
        divisor = -divisor;
    }
    Wide quotient = numerator / divisor;
    const Wide remainder = numerator % divisor;
    const Wide twice = 2 * (remainder < 0 ? -remainder : remainder);
    if (twice > divisor || (twice == divisor && (tie == Tie::away || quotient % 2 != 0)))
        quotient += numerator < 0 ? -1 : 1;
    return quotient;
}

constexpr std::array<std::int64_t, 5> powers = {10000, 1000, 100, 10, 1};

std::int64_t stepOf(int digits) {
    if (digits < 0 || digits > 4) throw ConversionError("An amount is rounded to 0 to 4 decimals");
    return powers[static_cast<std::size_t>(digits)];
}

// The decimal value that a double stands for, as an integer of the given power; a value within two
// units of the double's last place of a tie is that tie.
long double scaled(double value, long double power) {
    if (!std::isfinite(value)) overflow();
    const long double product = static_cast<long double>(value) * power;
    if (std::fabs(product) > 9.2e18L) overflow();
    return product;
}

}  // namespace

Money Money::fromInteger(std::int64_t units) {
    return fromRaw(narrow(static_cast<Wide>(units) * scale));
}

Money Money::fromDouble(double value) {
    const long double product = scaled(value, scale);
    const long double whole = std::floor(product);
    const long double part = product - whole;
    const long double slack = std::fabs(product) * 4.5e-16L;
    auto result = static_cast<std::int64_t>(whole);
    if (part > 0.5L + slack || (part >= 0.5L - slack && result % 2 != 0)) ++result;
    return fromRaw(result);
}

std::string Money::toText() const {
    const bool negative = raw_ < 0;
    const auto magnitude = negative ? 0 - static_cast<std::uint64_t>(raw_) : static_cast<std::uint64_t>(raw_);
    std::string text(negative ? 1 : 0, '-');
    text += std::to_string(magnitude / scale);
    if (const auto part = magnitude % scale; part != 0) {
        std::string decimals = std::to_string(part + scale).substr(1);
        decimals.erase(decimals.find_last_not_of('0') + 1);
        text += "." + decimals;
    }
    return text;
}

Money Money::operator-() const {
    if (raw_ == std::numeric_limits<std::int64_t>::min()) overflow();
    return fromRaw(-raw_);
}

Money& Money::operator+=(Money other) {
    if (__builtin_add_overflow(raw_, other.raw_, &raw_)) overflow();
    return *this;
}

Money& Money::operator-=(Money other) {
    if (__builtin_sub_overflow(raw_, other.raw_, &raw_)) overflow();
    return *this;
}

Money operator*(Money a, Money b) {
    return Money::fromRaw(narrow(divideRounded(static_cast<Wide>(a.raw_) * b.raw_, Money::scale, Tie::toEven)));
}

namespace {

// Rates carry up to ten decimals; the product of amount and rate is then exact.
constexpr std::int64_t rateScale = 10'000'000'000;

Wide exactProduct(Money amount, double rate) {
    const long double whole = std::round(scaled(rate, static_cast<long double>(rateScale)));
    return static_cast<Wide>(amount.raw()) * static_cast<Wide>(whole);
}

}  // namespace

Money operator*(Money amount, double rate) {
    return Money::fromRaw(narrow(divideRounded(exactProduct(amount, rate), rateScale, Tie::toEven)));
}

Money operator/(Money a, Money b) {
    if (b.isZero()) throw ConversionError("Division by zero");
    return Money::fromRaw(narrow(divideRounded(static_cast<Wide>(a.raw_) * Money::scale, b.raw_, Tie::toEven)));
}

Money roundAmount(Money value, int digits) {
    const std::int64_t step = stepOf(digits);
    return Money::fromRaw(narrow(divideRounded(value.raw(), step, Tie::away) * step));
}

Money roundAmount(double value, int digits) {
    const std::int64_t step = stepOf(digits);
    const long double product = scaled(value, static_cast<long double>(Money::scale / step));
    const long double nudged = std::fabs(product) * (1 + 4.5e-16L);
    const auto units = static_cast<std::int64_t>(std::floor(nudged + 0.5L));
    return Money::fromRaw(narrow(static_cast<Wide>(value < 0 ? -units : units) * step));
}

Money roundProduct(Money amount, double rate, int digits) {
    const std::int64_t step = stepOf(digits);
    return Money::fromRaw(
        narrow(divideRounded(exactProduct(amount, rate), static_cast<Wide>(rateScale) * step, Tie::away) * step));
}

}  // namespace quillo
