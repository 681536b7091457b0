#include "host/services/customer_statistics.h"

namespace quillo {

void SqliteCustomerStatistics::setCached(bool cached) {
    cached_ = cached;
    read_ = false;
    lastSales_.clear();
}

void SqliteCustomerStatistics::readAll() {
    sqlite::Statement rows(
        database_, "SELECT ExCustId, MAX(InvoiDate) FROM InvoiHdr WHERE InvoiType IN (1, 2, 3, 4) GROUP BY ExCustId");
    while (rows.step())
        if (const auto date = Date::parseIso(rows.text(1))) lastSales_[static_cast<int>(rows.integer(0))] = *date;
    read_ = true;
}

Date SqliteCustomerStatistics::LastSaleDate(int customerId) {
    if (cached_) {
        if (!read_) readAll();
        const auto found = lastSales_.find(customerId);
        return found == lastSales_.end() ? noDate : found->second;
    }
    sqlite::Statement row(database_,
                          "SELECT MAX(InvoiDate) FROM InvoiHdr WHERE ExCustId = ? AND InvoiType IN (1, 2, 3, 4)");
    row.bind(1, customerId);
    return row.step() ? Date::parseIso(row.text(0)).value_or(noDate) : noDate;
}

}  // namespace quillo
