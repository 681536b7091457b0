#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "host/database/row_set.h"

namespace quillo {

// A condition on the columns of rows in memory:
//   Name LIKE 'A%' AND (Amount >= 10.5 OR NOT Due < #2024-01-31#) AND Code IS NOT NULL
// A day is written with or without its signs: 2024-01-31.
// = Null and <> Null ask the same as IS NULL and IS NOT NULL; every other comparison with a Null is
// neither true nor false.
class RowFilter {
public:
    // Throws InputError that tells the place of the fault.
    RowFilter(std::string_view condition, const RowSet& rows);

    bool matches(const RowSet& rows, std::size_t row) const { return condition_(rows, row).value_or(false); }

    // Whether a row fulfils it; nothing when a Null leaves that open.
    using Condition = std::function<std::optional<bool>(const RowSet&, std::size_t row)>;

private:
    Condition condition_;
};

}  // namespace quillo
