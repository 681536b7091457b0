#include "framework/query_builder.h"

#include "framework/values/names.h"

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

std::string orderClauseBefore(const FilterParts& filter, std::string_view own,
                              std::initializer_list<std::string_view> keeping) {
    std::string order = filter.order.empty() ? std::string(own) : filter.order;
    for (const std::string_view column : keeping)
        if (!containsName(order, column)) order.append(", ").append(column);
    return " ORDER BY " + order;
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
