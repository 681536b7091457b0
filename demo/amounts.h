#pragma once

#include <compare>
#include <cstdint>

// Exact amounts of the demo company. Everything is an integer of its smallest unit, so that the books
// balance without tolerance and no figure depends on how a machine rounds.
namespace quillo::demo {

using Id = std::int64_t;  // a key of a table; 0 is none

// Rounds half away from zero, as invoices are rounded.
constexpr std::int64_t divideRounded(std::int64_t a, std::int64_t b) {
    const std::int64_t half = b / 2;
    return a >= 0 ? (a + half) / b : -((-a + half) / b);
}

struct Cents {
    std::int64_t n = 0;

    constexpr Cents operator-() const { return {-n}; }
    constexpr Cents& operator+=(Cents other) {
        n += other.n;
        return *this;
    }
    constexpr Cents& operator-=(Cents other) {
        n -= other.n;
        return *this;
    }
    friend constexpr Cents operator+(Cents a, Cents b) { return a += b; }
    friend constexpr Cents operator-(Cents a, Cents b) { return a -= b; }
    friend constexpr auto operator<=>(Cents, Cents) = default;
};

struct Rate {
    std::int64_t n = 10000;
};            // home currency for one unit, in 1/10000
struct Qty {  // units, in 1/100
    std::int64_t n = 0;

    constexpr Qty& operator+=(Qty other) {
        n += other.n;
        return *this;
    }
    constexpr Qty& operator-=(Qty other) {
        n -= other.n;
        return *this;
    }
    friend constexpr Qty operator+(Qty a, Qty b) { return a += b; }
    friend constexpr Qty operator-(Qty a, Qty b) { return a -= b; }
    constexpr Qty operator-() const { return {-n}; }
    friend constexpr auto operator<=>(Qty, Qty) = default;
};
struct Cost {
    std::int64_t n = 0;
};  // cost of one unit, in 1/10000
struct Percent {
    std::int64_t n = 0;
};  // in 1/1000 percent: 9975 is 9.975 %

constexpr Cents operator*(Cents amount, Rate rate) {
    return {divideRounded(amount.n * rate.n, 10000)};
}
constexpr Cents operator*(Qty quantity, Cents price) {
    return {divideRounded(quantity.n * price.n, 100)};
}
constexpr Cents operator*(Qty quantity, Cost cost) {
    return {divideRounded(quantity.n * cost.n, 10000)};
}
constexpr Cents operator*(Cents amount, Percent percent) {
    return {divideRounded(amount.n * percent.n, 100000)};
}
constexpr Cents times(Cents amount, std::int64_t factor) {
    return {amount.n * factor};
}
constexpr Qty times(Qty quantity, Qty factor) {
    return {divideRounded(quantity.n * factor.n, 100)};
}
constexpr Qty units(std::int64_t count) {
    return {count * 100};
}
constexpr Cost unitCost(Cents value, Qty quantity) {
    return {divideRounded(value.n * 10000, quantity.n)};
}

}  // namespace quillo::demo
