#include "host/filter/filter_scope.h"

#include <algorithm>
#include <optional>

#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "framework/values/text.h"

namespace quillo {
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
    if (!catalogue.hasTable(table)) throw InputError("The company has no table " + table + " to filter by");
    const auto known =
        std::find_if(entries_.begin(), entries_.end(), [&](const Entry& one) { return equalNames(one.table, table); });
    Entry& target = known != entries_.end() ? *known : entries_.emplace_back(Entry{table, {}});
    if (point == std::string_view::npos) {
        target.columns = catalogue.columns(table);
        return;
    }
    const std::string_view column = catalogue.column(table, entry.substr(point + 1));
    if (column.empty()) throw InputError("The company has no column " + std::string(entry) + " to filter by");
    target.columns.emplace_back(column);
}

FilterColumn FilterScope::find(std::string_view table, std::string_view column) const {
    std::optional<FilterColumn> found;
    bool tableKnown = table.empty();
    for (const Entry& entry : entries_) {
        if (!table.empty() && !equalNames(entry.table, table)) continue;
        tableKnown = true;
        const auto hit = std::find_if(entry.columns.begin(), entry.columns.end(),
                                      [&](const std::string& one) { return equalNames(one, column); });
        if (hit == entry.columns.end()) continue;
        if (found)
            throw InputError("both " + found->table + " and " + entry.table + " have a column " + *hit +
                             "; write which one:");
        found = FilterColumn{entry.table, *hit};
    }
    if (!tableKnown)
        throw InputError("this report filters by " + tableNames() + ", not by a table " + std::string(table));
    if (!found)
        throw InputError("there is no column " + std::string(column) + " in " +
                         (table.empty() ? tableNames() : std::string(table)));
    return *found;
}

std::string FilterScope::tableNames() const {
    std::string names;
    for (const Entry& entry : entries_) names += (names.empty() ? "" : ", ") + entry.table;
    return names;
}

}  // namespace quillo
