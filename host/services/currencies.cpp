#include "host/services/currencies.h"

#include <algorithm>

#include "framework/values/errors.h"
#include "framework/values/names.h"

namespace quillo {

CompanyCurrencies::CompanyCurrencies(const CompanyFile& company, DictionaryService& dictionary)
    : foreign_(company.integerFact("UsesForeignCurrency", 0) != 0), home_(company.integerFact("HomeCurrencyId", 1)) {
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

}  // namespace quillo
