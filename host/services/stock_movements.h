#pragma once

#include <string_view>
#include <unordered_map>

#include "framework/values/date.h"
#include "host/database/sqlite_handle.h"
#include "host/services/running_cost.h"

namespace quillo {

// A movement that lacks what stands behind it; one without an item or a day stands nowhere and lacks nothing.
inline constexpr std::string_view movementLacks =
    "ExItemId IS NOT NULL AND DetDate IS NOT NULL AND "
    "(RunningQty IS NULL OR RunningAvgCost IS NULL OR RunningLastCost IS NULL)";

// The movements of the stock, item by item, each item's by day and key, and what stands behind each of them: what the
// company tells beside the movement, else what its quantity and value make of the one before.
class StockMovements {
public:
    enum class Of { allItems, itemsThatLack };
    // The database must outlive it.
    explicit StockMovements(const sqlite::Database& database, Of items = Of::allItems);

    // True while there is a movement.
    bool next();
    std::int64_t key() const { return rows_.integer(0); }
    std::int64_t itemId() const { return rows_.integer(1); }
    Date day() const;
    // Whether the company itself does not tell all of what follows.
    bool lacks() const;
    // The item's unit costs, and the count of the movement's warehouse.
    Money average() const { return running_.average(); }
    Money last() const { return running_.last(); }
    Quantity count() const { return *count_; }

private:
    sqlite::Statement rows_;
    std::int64_t item_ = 0;
    RunningCost running_;
    std::unordered_map<std::int64_t, Quantity> counts_;  // of the item, by warehouse
    const Quantity* count_ = nullptr;
};

}  // namespace quillo
