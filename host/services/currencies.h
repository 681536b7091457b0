#pragma once

#include <vector>

#include "framework/services/services.h"
#include "host/company/company_file.h"

namespace quillo {

// The currencies of a company, read once, with their names in the user's language, and its re-evaluations.
class CompanyCurrencies final : public CurrencyInfo, public Currencies {
public:
    // company and locale must outlive it.
    CompanyCurrencies(const CompanyFile& company, DictionaryService& dictionary, const LocaleFormat& locale,
                      Date sessionDate);

    bool CieIsForeignCurrencyUsed() const override { return foreign_; }
    int CieHomeCurrencyId() const override { return home_; }
    const Currencies& currencies() const override { return *this; }
    int Count() const override { return static_cast<int>(records_.size()); }
    const CurrencyRecord& Item(std::string_view id) const override;
    const CurrencyRecord* findCode(std::string_view code) const override;
    std::string GetCurrenciesLegend(std::shared_ptr<ExchangeRates>& rates) const override;
    void ConfigureExchangeRates(const Date& dateTo, IExchangeRates& report) override;
    Money EvaluateValueWithExchangeRate(const double& rate, const int& currencyId, const Money& amount,
                                        const ExchangeRates* rates) const override;

private:
    Date ratesDay(const Date& dateTo, IExchangeRates& report) const;

    const CompanyFile& company_;
    const LocaleFormat& locale_;
    Date sessionDate_;
    bool foreign_;
    int home_;
    std::vector<CurrencyRecord> records_;
};

}  // namespace quillo
