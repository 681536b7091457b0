#include "host/services/rate_table.h"

#include "framework/values/errors.h"

namespace quillo {

double RateTable::Item(std::string_view currencyId) const {
    if (const auto rate = find(currencyId)) return *rate;
    throw NameError("The currency " + std::string(currencyId) + " has no rate" + when_);
}

std::optional<double> RateTable::find(std::string_view currencyId) const {
    const auto found = rates_.find(currencyId);
    return found == rates_.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace quillo
