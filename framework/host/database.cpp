#include "framework/host/database.h"

#include "framework/values/errors.h"
#include "framework/values/names.h"

namespace quillo {
namespace {

int indexOf(const std::vector<std::string>& names, std::string_view name) {
    for (std::size_t i = 0; i < names.size(); ++i)
        if (equalNames(names[i], name)) return static_cast<int>(i);
    return -1;
}

}  // namespace

int Recordset::find(std::string_view name) const {
    if (names_.empty())
        for (int i = 0; i < columnCount(); ++i) names_.emplace_back(columnName(i));
    int found = indexOf(names_, name);
    if (const auto point = name.rfind('.'); found < 0 && point != std::string_view::npos)
        found = indexOf(names_, name.substr(point + 1));
    return found;
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
