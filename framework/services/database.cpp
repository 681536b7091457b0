#include "framework/services/database.h"

#include "framework/values/errors.h"

namespace quillo {

int Recordset::find(std::string_view name) const {
    if (columns_.empty())
        for (int i = 0; i < columnCount(); ++i) columns_.try_emplace(std::string(columnName(i)), i);
    if (const auto found = columns_.find(name); found != columns_.end()) return found->second;
    const auto point = name.rfind('.');
    const auto last = point == std::string_view::npos ? columns_.end() : columns_.find(name.substr(point + 1));
    return last == columns_.end() ? -1 : last->second;
}

namespace {

int known(const Recordset& rows, std::string_view name) {
    const int column = rows.find(name);
    if (column < 0) throw NameError("The result has no column \"" + std::string(name) + "\"");
    return column;
}

}  // namespace

ValueView Recordset::view(std::string_view name) const {
    return value(known(*this, name));
}

Column::Column(std::shared_ptr<const Recordset> rows, std::string_view name) : rows_(std::move(rows)) {
    if (!rows_) failWithoutRows();
    index_ = known(*rows_, name);
}

void Column::failWithoutRows() {
    throw DatabaseError("The report has no recordset");
}

}  // namespace quillo
