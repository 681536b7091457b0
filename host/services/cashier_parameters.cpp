#include "host/services/cashier_parameters.h"

#include <charconv>

#include "framework/values/errors.h"

namespace quillo {

SqliteCashierParameters::SqliteCashierParameters(const sqlite::Database& database, const CurrencyInfo& currencies)
    : currencies_(currencies) {
    constexpr int tills = 3;
    sqlite::Statement rows(database, "SELECT Name, Value FROM CashierParameter WHERE Section = ?");
    rows.bind(1, tills);
    while (rows.step()) values_[std::string(rows.text(0))] = rows.text(1);
}

std::string SqliteCashierParameters::valueOf(const std::string& name) const {
    const auto found = values_.find(name);
    return found == values_.end() || found->second.empty() ? "0" : found->second;
}

int SqliteCashierParameters::CashPmtMethId() const {
    const std::string text = valueOf("CashPmtMethId");
    int key = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), key);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size())
        throw InputError("The cashier's parameter CashPmtMethId is no key: \"" + text + "\"");
    return key;
}

Money SqliteCashierParameters::OpeningAmount(int currencyId) const {
    std::string name = "OpeningAmount";
    if (currencyId != currencies_.CieHomeCurrencyId())
        name += "." + currencies_.currencies().Item(std::to_string(currencyId)).CurrencyCode;
    const std::string text = valueOf(name);
    if (const auto amount = Money::parse(text)) return *amount;
    throw InputError("The cashier's parameter " + name + " is no amount: \"" + text + "\"");
}

}  // namespace quillo
