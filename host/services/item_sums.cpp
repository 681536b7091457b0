#include "host/services/item_sums.h"

namespace quillo {

void ItemSums::setCached(bool cached) {
    cached_ = cached;
    sums_.clear();
}

Money ItemSums::of(const View& view, int itemId, const FiscalPeriod& days, const std::string& clause) {
    if (!cached_) {
        sqlite::Statement row = ask(view, "InItemId = " + std::to_string(itemId) + " AND ", days, clause);
        return row.step() && !row.isNull(1) ? Money::fromDouble(row.real(1)) : Money();
    }
    const ByItem& sums = allItems(view, days, clause);
    const auto found = sums.find(itemId);
    return found == sums.end() ? Money() : found->second;
}

sqlite::Statement ItemSums::ask(const View& view, std::string_view item, const FiscalPeriod& days,
                                const std::string& clause) const {
    std::string sql("SELECT InItemId, SUM(");
    sql.append(view.amount).append(") FROM ").append(view.name).append(" WHERE ").append(item).append(view.day);
    sql.append(" BETWEEN ? AND ?").append(clause.empty() ? "" : " AND ").append(clause).append(" GROUP BY InItemId");
    sqlite::Statement rows(database_, sql);
    rows.bind(1, days.StartDate.isoText()).bind(2, days.EndDate.isoText());
    return rows;
}

const ItemSums::ByItem& ItemSums::allItems(const View& view, const FiscalPeriod& days, const std::string& clause) {
    const std::string key = std::string(view.name) + days.StartDate.isoText() + days.EndDate.isoText() + clause;
    const auto known = sums_.find(key);
    if (known != sums_.end()) return known->second;
    ByItem sums;
    sqlite::Statement rows = ask(view, "", days, clause);
    while (rows.step())
        if (!rows.isNull(1)) sums.emplace(rows.integer(0), Money::fromDouble(rows.real(1)));
    return sums_.emplace(key, std::move(sums)).first->second;
}

}  // namespace quillo
