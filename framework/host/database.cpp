#include "framework/host/database.h"

#include "framework/values/errors.h"

namespace quillo {
int Recordset::find(std::string_view name) const {
    if (columns_.empty())
        for (int i = 0; i < columnCount(); ++i) columns_.try_emplace(std::string(columnName(i)), i);
    auto found = columns_.find(name);
    if (const auto point = name.rfind('.'); found == columns_.end() && point != std::string_view::npos)
        found = columns_.find(name.substr(point + 1));
    return found == columns_.end() ? -1 : found->second;
}

ValueView Recordset::view(std::string_view name) const {
    const int column = find(name);
    if (column < 0) throw NameError("The result has no column \"" + std::string(name) + "\"");
    return value(column);
}

Variant Recordset::Collect(std::string_view name) const {
    return Variant(view(name));
}

}  // namespace quillo
