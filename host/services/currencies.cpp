#include "host/services/currencies.h"

#include <algorithm>

#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "host/services/daily_rates.h"
#include "host/services/rate_table.h"

namespace quillo {

CompanyCurrencies::CompanyCurrencies(const CompanyFile& company, DictionaryService& dictionary,
                                     const LocaleFormat& locale, Date sessionDate)
    : company_(company),
      locale_(locale),
      sessionDate_(sessionDate),
      foreign_(company.integerFact("UsesForeignCurrency", 0) != 0),
      home_(company.integerFact("HomeCurrencyId", 1)) {
    sqlite::Statement rows(company.handle(),
                           "SELECT InCurrencyId, CurrencyCode, Descr FROM WorldCurrency ORDER BY InCurrencyId");
    while (rows.step())
        records_.push_back(
            {static_cast<int>(rows.integer(0)), std::string(rows.text(1)), dictionary.Translate(rows.text(2))});
}

const CurrencyRecord& CompanyCurrencies::Item(std::string_view id) const {
    const auto found = std::find_if(records_.begin(), records_.end(),
                                    [&](const CurrencyRecord& record) { return std::to_string(record.id) == id; });
    if (found == records_.end()) throw NameError("There is no currency with the key " + std::string(id));
    return *found;
}

const CurrencyRecord* CompanyCurrencies::findCode(std::string_view code) const {
    const auto found = std::find_if(records_.begin(), records_.end(), [&](const CurrencyRecord& record) {
        return equalNames(record.CurrencyCode, code);
    });
    return found == records_.end() ? nullptr : &*found;
}

std::string CompanyCurrencies::GetCurrenciesLegend(std::shared_ptr<ExchangeRates>& rates) const {
    std::string legend;
    if (!rates) return legend;
    const std::string home = " " + Item(std::to_string(home_)).CurrencyCode;
    for (const CurrencyRecord& currency : records_) {
        const auto rate = rates->find(std::to_string(currency.id));
        if (!rate || currency.id == home_) continue;
        legend += (legend.empty() ? "1 " : "; 1 ") + currency.CurrencyCode + " = " +
                  locale_.plainNumber(Variant(*rate)) + home;
    }
    return legend;
}

Date CompanyCurrencies::ratesDay(const Date& dateTo, IExchangeRates& report) const {
    const std::string named = report.IExchangeRates_ExchangeRatesDate();
    if (named.empty()) return dateTo == noEndLimit ? sessionDate_ : dateTo;
    if (const auto day = Date::parseIsoDay(named)) return *day;
    throw InputError("The day of the exchange rates is a date such as 2024-12-31, not \"" + named + "\"");
}

void CompanyCurrencies::ConfigureExchangeRates(const Date& dateTo, IExchangeRates& report) {
    if (!report.IExchangeRates_Reevaluate()) return report.IExchangeRates_ExchangeRates(nullptr);
    const Date day = ratesDay(dateTo, report);
    const auto given = report.IExchangeRates_ExchangeRates();
    const auto ofTheDay = SqliteDailyRates(company_.handle(), *this).RatesAt(day);
    const auto rates = std::make_shared<RateTable>(" on " + day.isoText() + " or before it");
    for (const CurrencyRecord& currency : records_) {
        const std::string id = std::to_string(currency.id);
        auto rate = given ? given->find(id) : std::nullopt;
        if (!rate) rate = ofTheDay->find(id);
        if (rate) rates->set(currency.id, *rate);
    }
    report.IExchangeRates_ExchangeRates(rates);
    report.IExchangeRates_ExchangeRatesDate(day.isoText());
}

Money CompanyCurrencies::EvaluateValueWithExchangeRate(const double& rate, const int& currencyId, const Money& amount,
                                                       const ExchangeRates* rates) const {
    return roundProduct(amount, rates == nullptr ? rate : rates->Item(std::to_string(currencyId)), 2);
}

}  // namespace quillo
