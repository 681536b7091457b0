#pragma once

#include <map>
#include <string>

#include "framework/services/services.h"
#include "host/database/sqlite_handle.h"

namespace quillo {

// Section 3 of the cashier's parameters, as it stood when it was loaded. An opening amount stands under "OpeningAmount"
// for the home currency, and under "OpeningAmount.USD" for another.
class SqliteCashierParameters final : public CashierParameters {
public:
    // currencies must outlive it.
    SqliteCashierParameters(const sqlite::Database& database, const CurrencyInfo& currencies);

    // Throws InputError when the company file has no number there.
    int CashPmtMethId() const override;
    Money OpeningAmount(int currencyId) const override;

private:
    std::string valueOf(const std::string& name) const;

    std::map<std::string, std::string> values_;
    const CurrencyInfo& currencies_;
};

}  // namespace quillo
