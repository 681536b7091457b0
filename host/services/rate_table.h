#pragma once

#include <map>
#include <string>

#include "framework/report_contract.h"

namespace quillo {

// Rates by currency.
class RateTable final : public ExchangeRates {
public:
    // when: what Item says behind a currency that has none: " on 2024-01-31 or before it".
    explicit RateTable(std::string when = "") : when_(std::move(when)) {}

    void set(int currencyId, double rate) { rates_[std::to_string(currencyId)] = rate; }
    int Count() const override { return static_cast<int>(rates_.size()); }
    double Item(std::string_view currencyId) const override;
    std::optional<double> find(std::string_view currencyId) const override;

private:
    std::string when_;
    std::map<std::string, double, std::less<>> rates_;
};

}  // namespace quillo
