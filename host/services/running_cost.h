#pragma once

#include <optional>

#include "framework/values/money.h"

namespace quillo {

// Units of an item, exact to the fourth decimal as money is.
using Quantity = Money;

// One movement of an item's stock.
struct StockMovement {
    Quantity quantity;           // units in; negative: units out
    std::optional<Money> value;  // what they are worth, signed as the quantity; none: they move at the average
    bool bought = false;         // units in were bought or made, not returned or found
};

// The unit costs of an item after each of its movements, in their order: the average of the units in stock, and
// the cost of the units that were bought or made last (until then, of the first that came in).
class RunningCost {
public:
    // Throws OverflowError, and stays as it was.
    void move(const StockMovement& movement);
    // What the company itself says that the costs are after the movement.
    void setAverage(Money average);
    void setLast(Money last) { last_ = last; }

    // An empty or overdrawn stock keeps the average that it had; units that come into it bring their own.
    Money average() const { return average_; }
    Money last() const { return last_.value_or(Money()); }

private:
    void add(const StockMovement& movement);

    Quantity quantity_;
    Money value_;
    Money average_;
    std::optional<Money> last_;
};

}  // namespace quillo
