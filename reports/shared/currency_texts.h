#pragma once

#include <string>

#include "framework/services/services.h"

namespace quillo {

// What heads the amounts of a currency: "CAD - Canadian dollar". Throws NameError when the company has none of that id.
inline std::string currencyHeading(const Currencies& currencies, int id) {
    const CurrencyRecord& currency = currencies.Item(std::to_string(id));
    return currency.CurrencyCode + " - " + currency.CurrencyDescr;
}

}  // namespace quillo
