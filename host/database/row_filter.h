#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "framework/services/database.h"

namespace quillo {

// A condition on the columns of rows:
//   Name LIKE 'A%' AND (Amount >= 10.5 OR NOT Due < #2024-01-31#) AND Code IS NOT NULL
// A day is written with or without its signs: 2024-01-31.
// = Null and <> Null ask the same as IS NULL and IS NOT NULL; every other comparison with a Null is
// neither true nor false.
class RowFilter {
public:
    // Throws InputError that tells the place of the fault.
    RowFilter(std::string_view condition, const Recordset& rows);

    // Whether the current row fulfils it.
    bool matches(const Recordset& row) const { return condition_(row).value_or(false); }

    // Nothing when a Null leaves it open.
    using Condition = std::function<std::optional<bool>(const Recordset& row)>;

private:
    Condition condition_;
};

}  // namespace quillo
