#pragma once

#include <compare>
#include <cstdint>
#include <string>

namespace quillo {

// An amount of money: a 64-bit integer scaled by 10000, exact to the fourth decimal. Every
// operation is checked and throws OverflowError. Products, quotients and doubles become money by
// rounding half to even at the fourth decimal, as the accounts themselves are kept.
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
    // Half to even at the fourth decimal of the decimal value that the double stands for.
    static Money fromDouble(double value);

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
// The same for a product that is not money yet; a double within its own precision of a tie is a tie.
Money roundAmount(double value, int digits);
// An amount times a rate, rounded once, half away from zero: 0.01 is never made out of 0.00499.
Money roundProduct(Money amount, double rate, int digits);

}  // namespace quillo
