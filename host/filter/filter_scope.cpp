#include "host/filter/filter_scope.h"

#include <algorithm>
#include <optional>

#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "framework/values/nearest_name.h"
#include "framework/values/text.h"

namespace quillo {
namespace {

ColumnKind kindOf(std::string_view declared) {
    const std::string_view type = declared.substr(0, declared.find(' '));
    if (equalNames(type, "DATE")) return ColumnKind::date;
    if (equalNames(type, "MONEY")) return ColumnKind::amount;
    if (equalNames(type, "BOOLEAN")) return ColumnKind::yesOrNo;
    if (equalNames(type, "REAL") || equalNames(type, "INT") || equalNames(type, "INTEGER")) return ColumnKind::number;
    return equalNames(type, "TEXT") || equalNames(type, "TIME") ? ColumnKind::text : ColumnKind::any;
}

}  // namespace

FilterScope::FilterScope(std::string_view list, const Catalogue& catalogue) {
    while (!list.empty()) {
        const auto comma = list.find(',');
        const std::string_view entry = trimmed(list.substr(0, comma));
        if (!entry.empty()) add(entry, catalogue);
        list.remove_prefix(comma == std::string_view::npos ? list.size() : comma + 1);
    }
}

void FilterScope::add(std::string_view entry, const Catalogue& catalogue) {
    entry = entry.substr(0, entry.find(' '));  // without the name that the result gives the column
    const auto point = entry.find('.');
    const std::string table(entry.substr(0, point));
    if (!catalogue.hasTable(table)) throw DatabaseError("The company has no table " + table + " to filter by");
    const auto known =
        std::find_if(entries_.begin(), entries_.end(), [&](const Entry& one) { return equalNames(one.table, table); });
    Entry& target = known != entries_.end() ? *known : entries_.emplace_back(Entry{table, {}});
    if (point == std::string_view::npos) {
        target.columns.clear();
        for (const std::string& column : catalogue.columns(table))
            target.columns.push_back({table, column, kindOf(catalogue.type(table, column))});
        return;
    }
    const std::string_view column = catalogue.column(table, entry.substr(point + 1));
    if (column.empty()) throw DatabaseError("The company has no column " + std::string(entry) + " to filter by");
    target.columns.push_back({table, std::string(column), kindOf(catalogue.type(table, column))});
}

FilterColumn FilterScope::find(std::string_view table, std::string_view column) const {
    std::optional<FilterColumn> found;
    bool tableKnown = table.empty();
    for (const Entry& entry : entries_) {
        if (!table.empty() && !equalNames(entry.table, table)) continue;
        tableKnown = true;
        const auto hit = std::find_if(entry.columns.begin(), entry.columns.end(),
                                      [&](const FilterColumn& one) { return equalNames(one.column, column); });
        if (hit == entry.columns.end()) continue;
        if (found)
            throw InputError("both " + found->table + " and " + entry.table + " have a column " + hit->column +
                             "; write which one:");
        found = *hit;
    }
    if (!tableKnown)
        throw InputError("this report filters by " + tableNames() + ", not by a table " + std::string(table));
    if (!found)
        throw InputError("there is no column " + std::string(column) + " in " +
                         (table.empty() ? tableNames() : std::string(table)) + didYouMean(column, columnNames(table)));
    return *found;
}

std::vector<std::string> FilterScope::columnNames(std::string_view table) const {
    std::vector<std::string> names;
    for (const Entry& entry : entries_)
        if (table.empty() || equalNames(entry.table, table))
            for (const FilterColumn& column : entry.columns) names.push_back(column.column);
    return names;
}

std::string FilterScope::tableNames() const {
    std::string names;
    for (const Entry& entry : entries_) names += (names.empty() ? "" : ", ") + entry.table;
    return names;
}

}  // namespace quillo
