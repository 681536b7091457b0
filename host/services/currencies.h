#pragma once

#include <vector>

#include "framework/services/services.h"
#include "host/company/company_file.h"

namespace quillo {

// The currencies of a company, read once, with their names in the user's language.
class CompanyCurrencies final : public CurrencyInfo, public Currencies {
public:
    CompanyCurrencies(const CompanyFile& company, DictionaryService& dictionary);

    bool CieIsForeignCurrencyUsed() const override { return foreign_; }
    int CieHomeCurrencyId() const override { return home_; }
    const Currencies& currencies() const override { return *this; }
    int Count() const override { return static_cast<int>(records_.size()); }
    const CurrencyRecord& Item(std::string_view id) const override;
    const CurrencyRecord* findCode(std::string_view code) const override;

private:
    bool foreign_;
    int home_;
    std::vector<CurrencyRecord> records_;
};

}  // namespace quillo
