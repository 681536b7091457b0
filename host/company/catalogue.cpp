#include "host/company/catalogue.h"

#include <algorithm>

#include "host/database/sqlite_handle.h"

namespace quillo {

Catalogue::Catalogue(const sqlite::Database& database) {
    sqlite::Statement columns(database,
                              "SELECT T.name, C.name, C.type FROM sqlite_schema AS T, pragma_table_info(T.name) AS C "
                              "WHERE T.type IN ('table', 'view') ORDER BY T.name, C.cid");
    while (columns.step()) {
        Table& table = tables_[std::string(columns.text(0))];
        table.columns.emplace_back(columns.text(1));
        table.types.emplace_back(columns.text(2));
    }
}

const std::vector<std::string>& Catalogue::columns(std::string_view table) const {
    static const std::vector<std::string> none;
    const auto found = tables_.find(table);
    return found == tables_.end() ? none : found->second.columns;
}

std::string_view Catalogue::column(std::string_view table, std::string_view name) const {
    const auto& all = columns(table);
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const std::string& one) { return equalNames(one, name); });
    return found == all.end() ? std::string_view() : std::string_view(*found);
}

std::string_view Catalogue::type(std::string_view table, std::string_view column) const {
    const auto found = tables_.find(table);
    if (found == tables_.end()) return {};
    const auto& [columns, types] = found->second;
    const auto at = std::find(columns.begin(), columns.end(), column);
    return at == columns.end() ? std::string_view() : types[static_cast<std::size_t>(at - columns.begin())];
}

std::vector<std::string> Catalogue::tableNames() const {
    std::vector<std::string> names;
    for (const auto& entry : tables_) names.push_back(entry.first);
    return names;
}

}  // namespace quillo
