#pragma once

#include <array>
#include <string>
#include <string_view>

#include "framework/query_builder.h"
#include "framework/services/services.h"
#include "framework/values/money.h"

// The arithmetic of receivables by age, apart from the reports that print it.
namespace quillo {

// Kinds of rows in the list of receivables.
namespace ReceivableKind {
inline constexpr int invoice = 1, creditNote = 3, interest = 4, settlement = 99, discount = 100, homeAdjustment = 101;
}

inline constexpr std::size_t ageColumns = 4;
using AgeAmounts = std::array<Money, ageColumns>;

Money sumOf(const AgeAmounts& amounts);
AgeAmounts& operator+=(AgeAmounts& amounts, const AgeAmounts& others);

// The company's bounds of the columns, in days. A bound belongs to the column that it ends. Bounds out of order hold as
// they stand: a column is then empty.
struct AgePeriods {
    int Period1 = 30, Period2 = 60, Period3 = 90;

    std::size_t columnOf(int age) const;
    // "1 - 30", "31 - 60", "61 - 90", "91+".
    std::string caption(std::size_t column) const;
};
// One of the bounds as the company has it: "CustPriod1".
int agePeriod(const Company& company, std::string_view name, std::string_view defaultValue);

// Days from the day that a row is aged from to the end date, or without one to the session's date. A row of a later day
// has a negative age.
int ageInDays(Date orderDate, Date dateTo, Date sessionDate);

// What the list is asked for: the chosen segments and the user's condition; the user's order, by currency where the
// report is, and behind it what keeps customers and documents together.
std::string ageingCondition(const FilterParts& filter, const std::string& segments);
std::string ageingOrder(const FilterParts& filter, bool byCurrency);

}  // namespace quillo
