#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/company/catalogue.h"

namespace quillo {

// What a column holds, and so how it compares. any: what a view reckons, which compares as the database does it.
enum class ColumnKind { any, text, number, amount, yesOrNo, date };

// A column as its table spells it.
struct FilterColumn {
    std::string table;
    std::string column;
    ColumnKind kind = ColumnKind::any;

    // "Table.Column": a query may join further tables that have a column of that name.
    std::string sql() const { return table + "." + column; }
    bool operator==(const FilterColumn&) const = default;
};

// The columns over which a report lets its user filter: those of a list of tables and columns such as
// "InvoiHdr, Cust, WorldCurrency.Descr".
class FilterScope {
public:
    // Throws DatabaseError for a table or a column that the catalogue does not have.
    FilterScope(std::string_view list, const Catalogue& catalogue);

    // Finds "Table.Column", or a column that stands alone when only one table has it. Throws InputError
    // that says what is wrong, without a place.
    FilterColumn find(std::string_view table, std::string_view column) const;

private:
    struct Entry {
        std::string table;
        std::vector<FilterColumn> columns;
    };
    void add(std::string_view entry, const Catalogue& catalogue);
    std::string tableNames() const;
    std::vector<std::string> columnNames(std::string_view table) const;
    std::vector<Entry> entries_;
};

}  // namespace quillo
