#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillo {

// An amount of money: a 64-bit integer scaled by 10000, exact to the fourth decimal. Every
// operation is checked and throws OverflowError; what throws leaves its value as it was. Products,
// quotients and doubles become money by rounding half to even at the fourth decimal, as the accounts
// themselves are kept.
//
// A double (a rate, a product) counts as exactly the binary fraction that it is, however small, and
// is rounded once. Since the decimal that a person wrote is only near to it, what comes as near to a
// tie as two units of the double's last place is that tie: 1.005 is 1.01 in cents, not 1.00. Never
// more than an eighth of a ten-thousandth is forgiven so, that a big amount keeps its last place.
class Money {
public:
    static constexpr std::int64_t scale = 10000;

    constexpr Money() = default;
    static constexpr Money fromRaw(std::int64_t tenThousandths) {
        Money money;
        money.raw_ = tenThousandths;
        return money;
    }
    static Money fromInteger(std::int64_t units);
    // Throws OverflowError also for what is no number.
    static Money fromDouble(double value);
    // Reads what toText writes, exactly. Nothing for every other text, a fifth decimal among them; throws OverflowError
    // for a number that is too large.
    static std::optional<Money> parse(std::string_view text);

    constexpr std::int64_t raw() const { return raw_; }
    double toDouble() const { return static_cast<double>(raw_) / static_cast<double>(scale); }
    constexpr bool isZero() const { return raw_ == 0; }
    // Plain decimal text, a point and no grouping: "-12.5".
    std::string toText() const;

    Money operator-() const;
    Money& operator+=(Money other);
    Money& operator-=(Money other);
    friend Money operator+(Money a, Money b) { return a += b; }
    friend Money operator-(Money a, Money b) { return a -= b; }
    friend Money operator*(Money a, Money b);
    // An amount times a rate that the database keeps as a double; the product is rounded once.
    friend Money operator*(Money amount, double rate);
    // Throws ConversionError on division by zero.
    friend Money operator/(Money a, Money b);
    friend constexpr auto operator<=>(Money, Money) = default;

private:
    std::int64_t raw_ = 0;
};

// Rounds half away from zero, as invoices are rounded. digits: 0 to 4 decimals.
Money roundAmount(Money value, int digits);
// The same for a product that is not money yet.
Money roundAmount(double value, int digits);
// An amount times a rate, rounded once, half away from zero: 0.01 is never made out of 0.00499.
Money roundProduct(Money amount, double rate, int digits);

}  // namespace quillo
