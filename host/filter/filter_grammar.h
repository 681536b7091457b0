#pragma once

#include <optional>
#include <string_view>
#include <variant>
#include <vector>

#include "framework/values/locale_format.h"
#include "framework/values/variant.h"
#include "host/filter/filter_scope.h"

// The language of filters: conditions
//   Name LIKE 'A%' AND (Cust.CreditLim >= 1000 OR NOT SalesPerson IS NULL) AND CustId BETWEEN 'A' AND 'M'
// and orders
//   Name, Cust.CustId DESC
// over the columns of a scope. A value is what its column holds: a date '2024-06-01' or as the locale writes it, an
// amount 1000.50 or '1,000.50' as the locale writes it. There are no functions, sub-selects, comments, quoted names or
// "?".
namespace quillo {

using FilterOperand = std::variant<Variant, FilterColumn>;

struct FilterCondition {
    enum class Kind { comparison, between, like, in, isNull, all, any, negation };
    Kind kind = Kind::comparison;
    bool negated = false;                     // NOT BETWEEN, NOT LIKE, NOT IN, IS NOT NULL
    FilterColumn column;                      // of a test
    std::string sign;                         // of a comparison
    std::vector<FilterOperand> operands;      // what the column is tested against
    std::vector<FilterCondition> conditions;  // of all, any and negation
};

struct FilterOrder {
    FilterColumn column;
    bool descending = false;
};

// A condition as it was understood, and as a query takes it: as it was written, but each column as
// "Table.Column" and each value as its column compares it: dates in ISO form, amounts as numbers.
struct FilterWhere {
    FilterCondition condition;
    std::string sql;
};

// Nothing for blanks alone. Throw InputError with the character at which the text is refused, and what
// stands there; also for more than the database can take. A column that the order names again sorts nothing any more
// and is left out.
std::optional<FilterWhere> parseFilterCondition(std::string_view text, const FilterScope& scope,
                                                const LocaleFormat& locale);
std::vector<FilterOrder> parseFilterOrder(std::string_view text, const FilterScope& scope);

}  // namespace quillo
