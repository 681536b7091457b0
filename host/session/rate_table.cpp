#include "host/session/rate_table.h"

#include <map>

#include "framework/values/errors.h"
#include "framework/values/names.h"

namespace quillo {
namespace {

class RateTable final : public ExchangeRates {
public:
    explicit RateTable(std::map<std::string, double, std::less<>> rates) : rates_(std::move(rates)) {}
    int Count() const override { return static_cast<int>(rates_.size()); }
    double Item(std::string_view currencyId) const override {
        const auto found = rates_.find(currencyId);
        if (found == rates_.end()) throw NameError("There is no rate for the currency " + std::string(currencyId));
        return found->second;
    }

private:
    std::map<std::string, double, std::less<>> rates_;
};

}  // namespace

std::shared_ptr<ExchangeRates> readRates(const std::vector<std::pair<std::string, std::string>>& rates,
                                         const Currencies& currencies) {
    std::map<std::string, double, std::less<>> table;
    for (const auto& [code, text] : rates) {
        const CurrencyRecord* currency = currencies.findCode(code);
        if (currency == nullptr) throw InputError("the rate of " + code + ": the company has no such currency");
        double rate = 0;
        try {
            rate = Variant(text).toDouble();
        } catch (const ConversionError&) {
        }
        if (!(rate > 0)) throw InputError("the rate of " + code + " is a positive number, not \"" + text + "\"");
        table[std::to_string(currency->id)] = rate;
    }
    return std::make_shared<RateTable>(std::move(table));
}

}  // namespace quillo
