#pragma once

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

#include "framework/services/services.h"
#include "host/database/sqlite_handle.h"

namespace quillo {

// Sums of a view by item and period. Cached, they are read for all items at once, so that a report of thousands of
// items asks a query a period; else for the one item that is asked for.
class ItemSums {
public:
    // A view with the item in InItemId.
    struct View {
        std::string_view name, amount, day;
    };

    // The database must outlive it.
    explicit ItemSums(const sqlite::Database& database) : database_(database) {}

    // Forgets what it has read.
    void setCached(bool cached);
    // clause: a condition on the view; empty: none.
    Money of(const View& view, int itemId, const FiscalPeriod& days, const std::string& clause);

private:
    using ByItem = std::unordered_map<std::int64_t, Money>;
    sqlite::Statement ask(const View& view, std::string_view item, const FiscalPeriod& days,
                          const std::string& clause) const;
    const ByItem& allItems(const View& view, const FiscalPeriod& days, const std::string& clause);

    const sqlite::Database& database_;
    bool cached_ = false;
    std::map<std::string, ByItem> sums_;  // by view, days and clause
};

}  // namespace quillo
