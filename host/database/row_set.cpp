#include "host/database/row_set.h"

#include <algorithm>

#include "framework/host/database.h"
#include "framework/values/names.h"

namespace quillo {

RowSet::RowSet(Recordset& source) {
    for (int i = 0; i < source.columnCount(); ++i) names_.emplace_back(source.columnName(i));
    for (; !source.atEnd(); source.moveNext()) {
        std::vector<Variant> row;
        row.reserve(names_.size());
        for (int i = 0; i < source.columnCount(); ++i) row.emplace_back(source.value(i));
        append(std::move(row));
    }
}

int RowSet::find(std::string_view name) const {
    const auto position = [this](std::string_view wanted) {
        const auto found =
            std::find_if(names_.begin(), names_.end(), [&](const std::string& one) { return equalNames(one, wanted); });
        return found == names_.end() ? -1 : static_cast<int>(found - names_.begin());
    };
    const int found = position(name);
    const auto point = name.rfind('.');
    return found >= 0 || point == std::string_view::npos ? found : position(name.substr(point + 1));
}

}  // namespace quillo
