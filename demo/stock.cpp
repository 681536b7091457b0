#include "demo/stock.h"

#include <stdexcept>

namespace quillo::demo {

Cents Stock::receive(const Movement& movement, Id item, Id warehouse, Qty quantity, Cents value) {
    levels_[static_cast<std::size_t>(item)].last = unitCost(value, quantity);
    move(movement, item, warehouse, quantity, value);
    return value;
}

Cents Stock::putBack(const Movement& movement, Id item, Id warehouse, Qty quantity) {
    const Cents value = quantity * average(item);
    move(movement, item, warehouse, quantity, value);
    return value;
}

Cents Stock::issue(const Movement& movement, Id item, Id warehouse, Qty quantity) {
    if (onHand(item, warehouse) < quantity) throw std::logic_error("more goods issued than there are");
    return issueAhead(movement, item, warehouse, quantity);
}

Cents Stock::issueAhead(const Movement& movement, Id item, Id warehouse, Qty quantity) {
    const Level& before = level(item);
    const Cents value = quantity == before.total ? before.value : quantity * before.average;
    move(movement, item, warehouse, -quantity, -value);
    return value;
}

void Stock::move(const Movement& movement, Id item, Id warehouse, Qty quantity, Cents value) {
    Level& level = levels_[static_cast<std::size_t>(item)];
    Qty& here = level.byWarehouse[static_cast<std::size_t>(warehouse)];
    here += quantity;
    level.total += quantity;
    level.value += value;
    if (level.total > Qty{}) level.average = unitCost(level.value, level.total);
    rows_.add(++lastTrx_, item, movement.date, movement.source, orNull(movement.key), quantity, value, here,
              level.average, level.last, warehouse, orNull(movement.segment));
}

}  // namespace quillo::demo
