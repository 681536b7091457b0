#include "framework/values/money.h"

#include <algorithm>
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

// slack: what lies no further than that from a tie counts as the tie; in the unit of the numerator.
Wide divideRounded(Wide numerator, Wide divisor, Tie tie, Wide slack = 0) {
    if (divisor < 0) {
        numerator = -numerator;
        divisor = -divisor;
    }
    Wide quotient = numerator / divisor;
    const Wide remainder = numerator % divisor;
    const Wide beyondHalf = 2 * (remainder < 0 ? -remainder : remainder) - divisor;
    const bool isTie = (beyondHalf < 0 ? -beyondHalf : beyondHalf) <= 2 * slack;
    if (isTie ? tie == Tie::away || quotient % 2 != 0 : beyondHalf > 0) quotient += numerator < 0 ? -1 : 1;
    return quotient;
}

constexpr std::array<std::int64_t, 5> powers = {10000, 1000, 100, 10, 1};

std::int64_t stepOf(int digits) {
    if (digits < 0 || digits > 4) throw ConversionError("An amount is rounded to 0 to 4 decimals");
    return powers[static_cast<std::size_t>(digits)];
}

// The product of an amount and a double, rounded once to a multiple of step (ten-thousandths). A double is an integer
// over a power of two, and so the product is exact.
Money rounded(std::int64_t raw, double rate, std::int64_t step, Tie tie) {
    if (!(std::fabs(rate) < 0x1p63)) overflow();
    constexpr int mantissa = std::numeric_limits<double>::digits;
    constexpr int mostPlaces = 111;  // step over the power stays in 126 bits; what is cut off is below any slack
    int exponent = 0;
    std::frexp(rate, &exponent);
    const int places = std::clamp(mantissa - exponent, 0, mostPlaces);
    const Wide product = static_cast<Wide>(raw) * static_cast<std::int64_t>(std::ldexp(rate, places));
    const Wide one = Wide{1} << places;  // a ten-thousandth
    const Wide lastPlace = raw < 0 ? -static_cast<Wide>(raw) : static_cast<Wide>(raw);
    const Wide slack = std::min(2 * lastPlace, one / 8);
    return Money::fromRaw(narrow(divideRounded(product, one * step, tie, slack) * step));
}

}  // namespace

Money Money::fromInteger(std::int64_t units) {
    return fromRaw(narrow(static_cast<Wide>(units) * scale));
}

Money Money::fromDouble(double value) {
    return rounded(scale, value, 1, Tie::toEven);
}

std::optional<Money> Money::parse(std::string_view text) {
    const bool negative = text.starts_with('-');
    if (negative) text.remove_prefix(1);
    const auto point = std::min(text.find('.'), text.size());
    const auto places = text.substr(std::min(point + 1, text.size()));
    constexpr auto digits = "0123456789";
    if (point == 0 || text.substr(0, point).find_first_not_of(digits) != text.npos ||
        places.find_first_not_of(digits) != text.npos || places.size() > 4)
        return std::nullopt;
    Wide raw = 0;
    const auto append = [&raw](char digit) {
        raw = raw * 10 + (digit - '0');
        if (raw > Wide{1} << 64) overflow();
    };
    for (const char digit : text.substr(0, point)) append(digit);
    for (std::size_t i = 0; i < 4; ++i) append(i < places.size() ? places[i] : '0');
    return fromRaw(narrow(negative ? -raw : raw));
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
    std::int64_t result = 0;
    if (__builtin_add_overflow(raw_, other.raw_, &result)) overflow();
    raw_ = result;
    return *this;
}

Money& Money::operator-=(Money other) {
    std::int64_t result = 0;
    if (__builtin_sub_overflow(raw_, other.raw_, &result)) overflow();
    raw_ = result;
    return *this;
}

Money operator*(Money a, Money b) {
    return Money::fromRaw(narrow(divideRounded(static_cast<Wide>(a.raw_) * b.raw_, Money::scale, Tie::toEven)));
}

Money operator*(Money amount, double rate) {
    return rounded(amount.raw_, rate, 1, Tie::toEven);
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
    return rounded(Money::scale, value, stepOf(digits), Tie::away);
}

Money roundProduct(Money amount, double rate, int digits) {
    return rounded(amount.raw(), rate, stepOf(digits), Tie::away);
}

}  // namespace quillo
