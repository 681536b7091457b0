#pragma once

#include <unordered_map>

#include "framework/services/services.h"
#include "host/database/sqlite_handle.h"

namespace quillo {

// A sale is an invoice, a cash sale, a credit note or an interest charge.
class SqliteCustomerStatistics final : public CustomerStatistics {
public:
    explicit SqliteCustomerStatistics(const sqlite::Database& database) : database_(database) {}

    void setCached(bool cached) override;
    Date LastSaleDate(int customerId) override;

private:
    void readAll();

    const sqlite::Database& database_;
    bool cached_ = false;
    bool read_ = false;
    std::unordered_map<int, Date> lastSales_;
};

}  // namespace quillo
