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

    bool hasTable(std::string_view table) const { return tables_.find(table) != tables_.end(); }
    // Empty when there is no such table.
    const std::vector<std::string>& columns(std::string_view table) const;
    // The column as the table spells it; empty when there is none.
    std::string_view column(std::string_view table, std::string_view name) const;
    // The type that a column is declared with, as its table spells both; empty for what a view reckons.
    std::string_view type(std::string_view table, std::string_view column) const;
    std::vector<std::string> tableNames() const;

private:
    struct Table {
        std::vector<std::string> columns, types;
    };
    struct Less {
        using is_transparent = void;
        bool operator()(std::string_view a, std::string_view b) const { return foldedName(a) < foldedName(b); }
    };
    std::map<std::string, Table, Less> tables_;
};

}  // namespace quillo
