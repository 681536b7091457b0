#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "framework/report_contract.h"

namespace quillo {

// Rates that a user gave as text, "USD" and "1.35", by the currencies' ids. Throws InputError for a currency that the
// company does not have, or a rate that is no positive number.
std::shared_ptr<ExchangeRates> readRates(const std::vector<std::pair<std::string, std::string>>& rates,
                                         const Currencies& currencies);

}  // namespace quillo
