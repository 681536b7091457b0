#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "framework/values/variant.h"

namespace quillo {

// What a field is bound to, compiled once: a plain column, or an expression that joins columns and
// texts: =[CurrencyCode] & " - " & [Descr], the brackets left out where a name is a plain word. Null
// joins as nothing.
class Expression {
public:
    Expression() = default;
    // Throws InputError with the place of a fault.
    static Expression compile(std::string_view source);

    struct Part {
        bool isColumn = false;
        std::string text;  // the column's name, or the literal
        int index = -2;    // where the row source found the column; -2: not looked up yet
    };
    bool empty() const { return parts_.empty(); }
    // A lone column, whose value keeps its type.
    bool isColumn() const { return parts_.size() == 1 && parts_.front().isColumn; }
    std::vector<Part>& parts() { return parts_; }
    const std::vector<Part>& parts() const { return parts_; }

private:
    std::vector<Part> parts_;
};

}  // namespace quillo
