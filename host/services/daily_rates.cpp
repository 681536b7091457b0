#include "host/services/daily_rates.h"

#include "framework/values/errors.h"
#include "host/services/rate_table.h"

namespace quillo {
namespace {

std::string nameOf(int currencyId, const Currencies& currencies) {
    return currencies.Item(std::to_string(currencyId)).CurrencyCode;
}

}  // namespace

double SqliteDailyRates::Rate(int currencyId, Date day) {
    if (currencyId == currencies_.CieHomeCurrencyId()) return 1;
    sqlite::Statement row(database_,
                          "SELECT Rate FROM ExchangeRateByDay WHERE ExCurrencyId = ? AND RateDate <= ? AND Rate > 0 "
                          "ORDER BY RateDate DESC LIMIT 1");
    if (row.bind(1, currencyId).bind(2, day.isoText()).step()) return row.real(0);
    throw NameError("The currency " + nameOf(currencyId, currencies_.currencies()) + " has no rate on " +
                    day.isoText() + " or before it");
}

std::shared_ptr<ExchangeRates> SqliteDailyRates::RatesAt(Date day) {
    auto rates = std::make_shared<RateTable>(" on " + day.isoText() + " or before it");
    // Beside a MAX, SQLite takes the other columns from the row that holds it.
    sqlite::Statement rows(database_,
                           "SELECT ExCurrencyId, Rate, MAX(RateDate) FROM ExchangeRateByDay "
                           "WHERE RateDate <= ? AND Rate > 0 GROUP BY ExCurrencyId");
    rows.bind(1, day.isoText());
    while (rows.step()) rates->set(static_cast<int>(rows.integer(0)), rows.real(1));
    rates->set(currencies_.CieHomeCurrencyId(), 1);
    return rates;
}

}  // namespace quillo
