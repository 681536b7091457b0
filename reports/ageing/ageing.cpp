#include "reports/ageing/ageing.h"

#include <cmath>
#include <numeric>

#include "framework/values/names.h"

namespace quillo {

Money sumOf(const AgeAmounts& amounts) {
    return std::accumulate(amounts.begin(), amounts.end(), Money());
}

AgeAmounts& operator+=(AgeAmounts& amounts, const AgeAmounts& others) {
    for (std::size_t i = 0; i < ageColumns; ++i) amounts[i] += others[i];
    return amounts;
}

std::size_t AgePeriods::columnOf(int age) const {
    if (age <= Period1) return 0;
    if (age <= Period2) return 1;
    return age <= Period3 ? 2 : 3;
}

std::string AgePeriods::caption(std::size_t column) const {
    switch (column) {
        case 0:
            return "1 - " + std::to_string(Period1);
        case 1:
            return std::to_string(Period1 + 1) + " - " + std::to_string(Period2);
        case 2:
            return std::to_string(Period2 + 1) + " - " + std::to_string(Period3);
        default:
            return std::to_string(Period3 + 1) + "+";
    }
}

int agePeriod(const Company& company, std::string_view name, std::string_view defaultValue) {
    return Variant(company.GetParameter(name, defaultValue)).toInt32();
}

int ageInDays(Date orderDate, Date dateTo, Date sessionDate) {
    const Date end = dateTo == noEndLimit ? sessionDate : dateTo;
    return static_cast<int>(std::lround(end.days - orderDate.days));
}

std::string ageingCondition(const FilterParts& filter, const std::string& segments) {
    if (filter.where.empty() || segments.empty()) return segments + filter.where;
    return segments + " AND (" + filter.where + ")";
}

std::string ageingOrder(const FilterParts& filter, bool byCurrency) {
    constexpr std::string_view table = "Cust.", currency = "WorldCurrency.CurrencyCode";
    std::string order = filter.order;
    // The list's columns are not qualified.
    for (auto at = order.find(table); at != order.npos; at = order.find(table, at)) order.erase(at, table.size());
    // Behind the user's order, not in front of it: meant, who sorts by something else reads it in that order.
    if (byCurrency && !containsName(order, currency)) order.append(order.empty() ? "" : ",").append(currency);
    if (!order.empty()) order += ",";
    return order +
           "(Name + LEFT(ExCustId,1000)), CustAgingList.DocOrderDate, CustAgingList.DocOrderId, "
           "CustAgingList.InvoiType, CustAgingList.InvoiDate";
}

}  // namespace quillo
