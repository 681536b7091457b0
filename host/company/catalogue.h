#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "framework/values/names.h"

namespace quillo {

namespace sqlite {
class Database;
}

// Names of tables and views and their columns, in their order. Names compare without case.
class Catalogue {
public:
    Catalogue() = default;
    // All that the file has. Throws sqlite::Error.
    explicit Catalogue(const sqlite::Database& database);

    // Also for row lists that are no table of the file.
    void add(std::string table, std::vector<std::string> columns) { tables_[std::move(table)] = std::move(columns); }
    bool hasTable(std::string_view table) const { return tables_.find(table) != tables_.end(); }
    // Empty when there is no such table.
    const std::vector<std::string>& columns(std::string_view table) const;
    // The column as the table spells it; empty when there is none.
    std::string_view column(std::string_view table, std::string_view name) const;

private:
    struct Less {
        using is_transparent = void;
        bool operator()(std::string_view a, std::string_view b) const { return foldedName(a) < foldedName(b); }
    };
    std::map<std::string, std::vector<std::string>, Less> tables_;
};

}  // namespace quillo
