#include "host/services/daily_rates.h"

#include <map>

#include "framework/report_contract.h"
#include "framework/values/errors.h"

namespace quillo {
namespace {

class RatesOfADay final : public ExchangeRates {
public:
    explicit RatesOfADay(Date day) : day_(day) {}

    void set(int currencyId, double rate) { rates_[std::to_string(currencyId)] = rate; }
    int Count() const override { return static_cast<int>(rates_.size()); }
    double Item(std::string_view currencyId) const override {
        const auto found = rates_.find(currencyId);
        if (found != rates_.end()) return found->second;
        throw NameError("The currency " + std::string(currencyId) + " has no rate on " + day_.isoText() +
                        " or before it");
    }

private:
    Date day_;
    std::map<std::string, double, std::less<>> rates_;
};

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
    auto rates = std::make_shared<RatesOfADay>(day);
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
