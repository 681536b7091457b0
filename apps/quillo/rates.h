#pragma once

#include <memory>

#include "apps/quillo/run_command.h"
#include "framework/report_contract.h"

namespace quillo::app {

// The rates of the command line, "USD=1.35", by the currencies' ids. Throws UsageError for a currency that the company
// does not have, or a rate that is no positive number.
std::shared_ptr<ExchangeRates> readRates(const NamedValues& rates, const Currencies& currencies);

}  // namespace quillo::app
