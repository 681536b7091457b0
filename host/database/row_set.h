#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "framework/values/variant.h"

namespace quillo {

class Recordset;

// Rows held in memory. Names of columns compare without case; a name that stands twice is its first column.
class RowSet {
public:
    explicit RowSet(std::vector<std::string> names) : names_(std::move(names)) {}
    // All rows of a recordset from where it stands.
    explicit RowSet(Recordset& source);

    std::size_t rowCount() const { return rows_.size(); }
    int columnCount() const { return static_cast<int>(names_.size()); }
    const std::string& name(int column) const { return names_[static_cast<std::size_t>(column)]; }
    // -1 when there is none; a qualified name falls back to its last part.
    int find(std::string_view name) const;
    const Variant& at(std::size_t row, int column) const { return rows_[row][static_cast<std::size_t>(column)]; }
    // One value for each column.
    void append(std::vector<Variant> row) { rows_.push_back(std::move(row)); }

private:
    std::vector<std::string> names_;
    std::vector<std::vector<Variant>> rows_;
};

}  // namespace quillo
