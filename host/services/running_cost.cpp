#include "host/services/running_cost.h"

namespace quillo {

void RunningCost::move(const StockMovement& movement) {
    RunningCost next = *this;  // a movement that is too large changes nothing
    next.add(movement);
    *this = next;
}

void RunningCost::add(const StockMovement& movement) {
    const Money worth = movement.value.value_or(movement.quantity * average_);
    const bool comesIn = movement.quantity > Quantity();
    if (comesIn && movement.value && (movement.bought || !last_)) last_ = worth / movement.quantity;
    const bool wasEmpty = quantity_ <= Quantity();
    quantity_ += movement.quantity;
    value_ += worth;
    if (comesIn && wasEmpty)
        setAverage(worth / movement.quantity);
    else if (quantity_ > Quantity())
        average_ = value_ / quantity_;
}

void RunningCost::setAverage(Money average) {
    value_ = quantity_ * average;
    average_ = average;
}

}  // namespace quillo
