#include "host/services/item_costs.h"

#include <algorithm>

#include "framework/values/errors.h"
#include "host/services/stock_movements.h"

namespace quillo {

void SqliteItemCosts::setCached(bool cached) {
    cached_ = cached;
    read_ = false;
    items_.clear();
    sums_.setCached(cached);
}

Money SqliteItemCosts::GetCurrentPeriodQtyConsumed(int itemId, Date start, Date end, const std::string& clause) {
    return sums_.of({"ItemConsumedUnits_View", "Qty", "TrxDate"}, itemId, {start, end}, clause);
}

Money SqliteItemCosts::GetCurrentPeriodSaleAmnt(int itemId, Date start, Date end, const std::string& clause) {
    return sums_.of({"ItemSoldAmounts_View", "TotalSales", "InvoiDate"}, itemId, {start, end}, clause);
}

Money SqliteItemCosts::GetCurrentPeriodSaleQty(int itemId, Date start, Date end, const std::string& clause) {
    return sums_.of({"ItemSoldUnits_View", "TotalUnitsSold", "InvoiDate"}, itemId, {start, end}, clause);
}

Money SqliteItemCosts::ItemCost(int itemId, Date day, int, int, bool) {
    if (!cached_ || !read_) readAll();
    std::vector<int> kits;
    return unitCost(itemId, day, kits);
}

Money SqliteItemCosts::unitCost(int itemId, Date day, std::vector<int>& kits) {
    const Item* item = find(itemId);
    if (item == nullptr) throw NameError("There is no item with the key " + std::to_string(itemId));
    if (!item->isKit) {
        const CostStep* step = stepAt(item->moved, day);
        if (step == nullptr) step = stepAt(item->standard, day);
        return step == nullptr ? Money() : step->cost;
    }
    if (std::ranges::find(kits, itemId) != kits.end()) throw InputError("The kit " + item->code + " contains itself");
    kits.push_back(itemId);
    Money sum;
    for (const Component& part : item->components) sum += unitCost(part.itemId, day, kits) * part.quantity;
    kits.pop_back();
    return sum;
}

const SqliteItemCosts::CostStep* SqliteItemCosts::stepAt(const Steps& steps, Date day) {
    const auto behind = std::ranges::upper_bound(steps, day, {}, &CostStep::from);
    return behind == steps.begin() ? nullptr : &*std::prev(behind);
}

void SqliteItemCosts::readAll() {
    read_ = false;
    items_.clear();
    readItems();
    readMovements();
    readStandardCosts();
    readComponents();
    read_ = true;
}

SqliteItemCosts::Item* SqliteItemCosts::find(std::int64_t itemId) {
    const auto found = items_.find(itemId);
    return found == items_.end() ? nullptr : &found->second;
}

void SqliteItemCosts::readItems() {
    sqlite::Statement rows(database_, "SELECT InItemId, ItemId, IsKit FROM Item");
    while (rows.step()) {
        Item& item = items_[rows.integer(0)];
        item.code = rows.text(1);
        item.isKit = rows.integer(2) != 0;
    }
}

// Most movements leave the cost as it was, so that few make a step; goods that leave before any came make none.
void SqliteItemCosts::readMovements() {
    const bool byAverage = company_.GetParameter("CostCalculMeth", "0") == "0";
    StockMovements movements(database_);
    while (movements.next()) {
        Item* const item = find(movements.itemId());
        if (item == nullptr) continue;
        const Money cost = byAverage ? movements.average() : movements.last();
        const Money before = item->moved.empty() ? Money() : item->moved.back().cost;
        if (cost != before) item->moved.push_back({movements.day(), cost});
    }
}

void SqliteItemCosts::readStandardCosts() {
    sqlite::Statement rows(database_,
                           "SELECT ExItemId, FromDate, UnitCost FROM ItemCost "
                           "WHERE FromDate IS NOT NULL AND UnitCost IS NOT NULL ORDER BY ExItemId, FromDate");
    while (rows.step())
        if (Item* const item = find(rows.integer(0)))
            item->standard.push_back({Date::parseIso(rows.text(1)).value_or(noDate), Money::fromDouble(rows.real(2))});
}

void SqliteItemCosts::readComponents() {
    sqlite::Statement rows(database_, "SELECT ExItemId, ExComponentItemId, Qty FROM ItemComponent");
    while (rows.step())
        if (Item* const item = find(rows.integer(0)))
            item->components.push_back({static_cast<int>(rows.integer(1)), rows.real(2)});
}

}  // namespace quillo
