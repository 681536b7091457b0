#pragma once

#include <memory>
#include <memory_resource>
#include <string>
#include <string_view>
#include <vector>

#include "framework/values/variant.h"

namespace quillo {

class Recordset;

// Rows held in memory, nine bytes a value and its text. Names of columns compare without case; a name that stands
// twice is its first column.
class RowSet {
public:
    explicit RowSet(std::vector<std::string> names);
    // All rows of a recordset from where it stands.
    explicit RowSet(Recordset& source);

    std::size_t rowCount() const { return rows_.size(); }
    int columnCount() const { return static_cast<int>(names_.size()); }
    const std::string& name(int column) const { return names_[static_cast<std::size_t>(column)]; }
    // -1 when there is none; a qualified name falls back to its last part.
    int find(std::string_view name) const;
    // Lives as long as the rows.
    ValueView at(std::size_t row, int column) const;
    // One value for each column, copied.
    void append(const std::vector<Variant>& row);

private:
    union Word {
        std::int64_t integer;  // also a boolean, and the ten-thousandths of an amount
        double real;           // also a date
        const char* text;      // its length and then its letters
    };
    // A row lies in one piece: a word for each value, and behind them all their kinds.
    struct Row {
        Word* words;
        ValueKind* kinds;
    };
    static Word wordOf(const ValueView& value);
    static std::string_view textOf(Word word);
    Row rowAt(Word* words) const;
    Row addRow();
    void put(const Row& row, std::size_t column, const ValueView& value);
    Word keptText(std::size_t column, std::string_view text);

    std::vector<std::string> names_;
    std::unique_ptr<std::pmr::monotonic_buffer_resource> memory_;
    std::vector<Word*> rows_;
};

}  // namespace quillo
