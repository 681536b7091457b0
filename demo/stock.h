#pragma once

#include "demo/table.h"

#include <array>
#include <vector>

namespace quillo::demo {

inline constexpr std::size_t warehouseCount = 4;

struct Movement {
    Day date;
    const char* source;
    Id key = 0;
    Id segment = 0;
};

// The stock ledger: counts by warehouse, one running average and one last cost an item. Each call
// writes one movement and gives its value, which the caller posts to the general ledger.
class Stock {
public:
    Stock(const sqlite::Database& database, std::size_t itemCount)
        : levels_(itemCount + 1), rows_(database, "InvenDet") {}

    Qty onHand(Id item, Id warehouse) const { return level(item).byWarehouse[static_cast<std::size_t>(warehouse)]; }
    Qty onHand(Id item) const { return level(item).total; }
    Cost average(Id item) const { return level(item).average; }

    // Goods that come in at a known value; it becomes the last cost.
    Cents receive(const Movement& movement, Id item, Id warehouse, Qty quantity, Cents value);
    // Goods that come back at the running average.
    Cents putBack(const Movement& movement, Id item, Id warehouse, Qty quantity);
    // Goods that leave at the running average; the last unit takes the value that is left. Throws std::logic_error
    // when the warehouse has not as many.
    Cents issue(const Movement& movement, Id item, Id warehouse, Qty quantity);
    // The same for goods that may leave before they came.
    Cents issueAhead(const Movement& movement, Id item, Id warehouse, Qty quantity);

private:
    struct Level {
        std::array<Qty, warehouseCount + 1> byWarehouse{};
        Qty total;
        Cents value;
        Cost average, last;
    };
    const Level& level(Id item) const { return levels_[static_cast<std::size_t>(item)]; }
    void move(const Movement& movement, Id item, Id warehouse, Qty quantity, Cents value);

    std::vector<Level> levels_;
    Id lastTrx_ = 0;
    Table rows_;
};

}  // namespace quillo::demo
