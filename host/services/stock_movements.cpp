#include "host/services/stock_movements.h"

#include <optional>
#include <string>

#include "framework/values/names.h"

namespace quillo {
namespace {

namespace Column {
constexpr int day = 2, quantity = 3, value = 4, source = 5, warehouse = 6, count = 7, average = 8, last = 9;
}

std::string queryOf(StockMovements::Of items) {
    std::string query =
        "SELECT InTrxId, ExItemId, DetDate, Qty, CostAmnt, Source, ExWarehouseId, RunningQty, RunningAvgCost, "
        "RunningLastCost FROM InvenDet WHERE DetDate IS NOT NULL";
    if (items == StockMovements::Of::itemsThatLack)
        query.append(" AND ExItemId IN (SELECT ExItemId FROM InvenDet WHERE ").append(movementLacks).append(")");
    return query + " ORDER BY ExItemId, DetDate, InTrxId";
}

std::optional<Money> money(const sqlite::Statement& row, int column) {
    if (row.isNull(column)) return std::nullopt;
    return Money::fromDouble(row.real(column));
}

bool isBought(std::string_view source) {
    return equalNames(source, "PUR") || equalNames(source, "ASB");
}

}  // namespace

StockMovements::StockMovements(const sqlite::Database& database, Of items) : rows_(database, queryOf(items)) {}

bool StockMovements::next() {
    if (!rows_.step()) return false;
    if (itemId() != item_) {
        item_ = itemId();
        running_ = RunningCost();
        counts_.clear();
    }
    const Quantity moved = Money::fromDouble(rows_.real(Column::quantity));
    running_.move({moved, money(rows_, Column::value), isBought(rows_.text(Column::source))});
    if (const auto average = money(rows_, Column::average)) running_.setAverage(*average);
    if (const auto last = money(rows_, Column::last)) running_.setLast(*last);
    Quantity& count = counts_[rows_.integer(Column::warehouse)];
    count = money(rows_, Column::count).value_or(count + moved);
    count_ = &count;
    return true;
}

Date StockMovements::day() const {
    return Date::parseIso(rows_.text(Column::day)).value_or(noDate);
}

bool StockMovements::lacks() const {
    return rows_.isNull(Column::count) || rows_.isNull(Column::average) || rows_.isNull(Column::last);
}

}  // namespace quillo
