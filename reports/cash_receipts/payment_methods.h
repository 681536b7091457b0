#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "reports/shared/clsPmtMeth.h"

namespace quillo {

// The amounts received by payment method, in the order in which the methods first appeared. Names compare letter by
// letter, meant: "Visa" and "VISA" are two lines, so that a method that was entered twice is seen.
class PaymentMethods {
public:
    int Count() const { return static_cast<int>(methods_.size()); }
    // index: 0 to Count() - 1.
    const std::string& Key(int index) const { return methods_.at(static_cast<std::size_t>(index)).first; }
    const clsPmtMeth& Item(int index) const { return methods_.at(static_cast<std::size_t>(index)).second; }
    // Null when there is none of that name.
    clsPmtMeth* find(std::string_view name) {
        for (auto& [key, method] : methods_)
            if (key == name) return &method;
        return nullptr;
    }
    void Add(std::string_view name, const clsPmtMeth& method) { methods_.emplace_back(name, method); }

private:
    std::vector<std::pair<std::string, clsPmtMeth>> methods_;
};

}  // namespace quillo
