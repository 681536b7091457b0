#include "host/company/catalogue.h"

#include <algorithm>

#include "host/database/sqlite_handle.h"

namespace quillo {

Catalogue::Catalogue(const sqlite::Database& database) {
    sqlite::Statement columns(database,
                              "SELECT T.name, C.name FROM sqlite_schema AS T, pragma_table_info(T.name) AS C "
                              "WHERE T.type IN ('table', 'view') ORDER BY T.name, C.cid");
    while (columns.step()) tables_[std::string(columns.text(0))].emplace_back(columns.text(1));
}

const std::vector<std::string>& Catalogue::columns(std::string_view table) const {
    static const std::vector<std::string> none;
    const auto found = tables_.find(table);
    return found == tables_.end() ? none : found->second;
}

std::string_view Catalogue::column(std::string_view table, std::string_view name) const {
    const auto& all = columns(table);
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const std::string& one) { return equalNames(one, name); });
    return found == all.end() ? std::string_view() : std::string_view(*found);
}

}  // namespace quillo
