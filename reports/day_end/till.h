#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "framework/services/services.h"

// What the reports of the day end have in common: which documents count, and whose till they are about.
namespace quillo::Till {

// Kinds of documents that no till counts: quotations and orders.
inline constexpr std::string_view uncounted = "50,51";
inline constexpr int order = 51;

// The parameters of the till, loaded at the first question.
class Parameters {
public:
    CashierParameters& operator()(HostContext& context) {
        if (!loaded_) loaded_ = context.company().newCashierParameters();
        return *loaded_;
    }

private:
    std::shared_ptr<CashierParameters> loaded_;
};

// A query as it grows: conditions come with the values of their "?" marks, so that both stay in one order.
struct Query {
    std::string text;
    std::vector<Variant> values{};

    Query& add(std::string_view part, std::vector<Variant> bound = {}) {
        text += part;
        values.insert(values.end(), bound.begin(), bound.end());
        return *this;
    }
};

}  // namespace quillo::Till
