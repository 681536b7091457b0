#pragma once

#include "framework/services/services.h"
#include "host/database/sqlite_handle.h"

namespace quillo {

// A rate that is missing in its row, or not above 0, counts as none.
class SqliteDailyRates final : public DailyRates {
public:
    // Both must outlive it.
    SqliteDailyRates(const sqlite::Database& database, const CurrencyInfo& currencies)
        : database_(database), currencies_(currencies) {}

    double Rate(int currencyId, Date day) override;
    std::shared_ptr<ExchangeRates> RatesAt(Date day) override;

private:
    const sqlite::Database& database_;
    const CurrencyInfo& currencies_;
};

}  // namespace quillo
