#include "framework/query_builder.h"

#include <algorithm>

#include "framework/values/names.h"
#include "framework/values/text.h"

namespace quillo {

bool isJet(HostContext& context) {
    constexpr int jet = 1;
    return context.company().DatabaseKind() == jet;
}

FilterParts splitFilter(std::string_view filter) {
    const auto bar = filter.find('|');
    FilterParts parts{std::string(filter.substr(0, bar)), {}};
    if (bar == std::string_view::npos) return parts;
    const auto rest = filter.substr(bar + 1);
    parts.order = rest.substr(0, rest.find('|'));
    return parts;
}

std::string whereClause(const FilterParts& filter, OwnWhere own) {
    if (filter.where.empty()) return {};
    return (own == OwnWhere::yes ? " AND (" : " WHERE (") + filter.where + ") ";
}

std::string orderClause(const FilterParts& filter, std::string_view ownClause) {
    return orderClauseBehind(filter, "", ownClause);
}

std::string orderClauseBehind(const FilterParts& filter, std::string_view leading, std::string_view ownClause) {
    if (filter.order.empty()) return std::string(ownClause);
    return " ORDER BY " + std::string(leading) + filter.order;
}

std::string orderClauseKeeping(const FilterParts& filter, std::string_view column, std::string_view ownClause) {
    const bool named = containsName(filter.order, column);
    return orderClauseBehind(filter, named ? "" : std::string(column) + ", ", ownClause);
}

namespace {

std::vector<std::string_view> orderTerms(std::string_view order) {
    std::vector<std::string_view> terms;
    while (!order.empty()) {
        const auto comma = std::min(order.find(','), order.size());
        terms.push_back(trimmed(order.substr(0, comma)));
        order.remove_prefix(std::min(comma + 1, order.size()));
    }
    return terms;
}

std::string_view columnOf(std::string_view term) {
    return term.substr(0, term.find(' '));
}

// A name without its table is that column of any table.
bool sameColumn(std::string_view a, std::string_view b) {
    const auto dotA = a.find('.'), dotB = b.find('.');
    if (dotA != a.npos && dotB != b.npos) return equalNames(a, b);
    return equalNames(a.substr(dotA + 1), b.substr(dotB + 1));
}

}  // namespace

std::vector<std::string> orderColumns(std::string_view order) {
    std::vector<std::string> columns;
    for (const std::string_view term : orderTerms(order)) columns.emplace_back(columnOf(term));
    return columns;
}

std::string orderClauseBehindAll(const FilterParts& filter, const std::vector<std::string_view>& leading,
                                 std::string_view ownClause) {
    if (filter.order.empty()) return std::string(ownClause);
    std::vector<std::string_view> terms = leading;
    for (const std::string_view term : orderTerms(filter.order))
        if (std::ranges::none_of(leading, [&](auto column) { return sameColumn(columnOf(term), column); }))
            terms.push_back(term);
    std::string clause;
    for (const std::string_view term : terms) clause.append(clause.empty() ? " ORDER BY " : ", ").append(term);
    return clause;
}

std::string orderWithTies(std::string orderClause, const std::vector<std::string_view>& columns) {
    for (const std::string_view column : columns)
        if (!containsName(orderClause, column)) orderClause.append(", ").append(column);
    return orderClause;
}

std::string segmentClause(std::string_view column, std::string_view list, bool none, bool behindCondition) {
    if (list.empty() && !none) return {};
    std::string clause = behindCondition ? " AND (" : "(";
    if (!list.empty()) clause.append(column).append(" IN (").append(list).append(")");
    if (!list.empty() && none) clause += " OR ";
    if (none) clause.append(column).append(" IS NULL");
    return clause + ")";
}

std::string segmentListClause(std::string_view column, std::string_view list) {
    if (list.empty()) return {};
    return " AND " + std::string(column) + " IN (" + std::string(list) + ") ";
}

}  // namespace quillo
