#include "host/session/rate_table.h"

#include "framework/values/errors.h"
#include "host/services/rate_table.h"

namespace quillo {
std::shared_ptr<ExchangeRates> readRates(const std::vector<std::pair<std::string, std::string>>& rates,
                                         const Currencies& currencies) {
    auto table = std::make_shared<RateTable>();
    for (const auto& [code, text] : rates) {
        const CurrencyRecord* currency = currencies.findCode(code);
        if (currency == nullptr) throw InputError("the rate of " + code + ": the company has no such currency");
        double rate = 0;
        try {
            rate = Variant(text).toDouble();
        } catch (const ConversionError&) {
        }
        constexpr double least = 1e-9, most = 1e9;
        if (!(rate >= least && rate <= most))
            throw InputError("the rate of " + code + " is a positive number up to a thousand million, not \"" + text +
                             "\"");
        table->set(currency->id, rate);
    }
    return table;
}

}  // namespace quillo
