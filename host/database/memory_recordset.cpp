#include "host/database/memory_recordset.h"

#include <numeric>
#include <string>

#include "framework/values/errors.h"
#include "framework/values/text.h"
#include "host/database/row_filter.h"

namespace quillo {
namespace {

class MemoryRecordset final : public Recordset {
public:
    MemoryRecordset(std::shared_ptr<const RowSet> rows, std::vector<std::uint32_t> shown)
        : rows_(std::move(rows)), shown_(std::move(shown)) {}

    bool atEnd() const override { return position_ >= shown_.size(); }
    void moveNext() override {
        if (!atEnd()) ++position_;
    }
    int columnCount() const override { return rows_->columnCount(); }
    std::string_view columnName(int column) const override { return rows_->name(column); }
    ValueView value(int column) const override {
        if (atEnd()) throw DatabaseError("There is no current row");
        if (column < 0 || column >= columnCount()) throw DatabaseError("The result has no such column");
        return rows_->at(shown_[position_], column);
    }

private:
    std::shared_ptr<const RowSet> rows_;
    std::vector<std::uint32_t> shown_;
    std::size_t position_ = 0;
};

Variant converted(const ValueView& value, int type) {
    if (value.isNull()) return {};
    switch (type) {
        case ValueType::integer:
            return value.toInt32();
        case ValueType::real:
            return value.toDouble();
        case ValueType::currency:
            return value.toMoney();
        case ValueType::date:
            return value.toDate();
        case ValueType::boolean:
            return value.toBool();
        case ValueType::text:
        case ValueType::longText:
            return value.toText();
        default:
            throw ConversionError("There is no type of value " + std::to_string(type));
    }
}

}  // namespace

MemoryHostRecordset::MemoryHostRecordset(RowSet rows) : rows_(std::make_shared<const RowSet>(std::move(rows))) {
    setFilter("");
}

Variant MemoryHostRecordset::Value(std::string_view name, int type) const {
    const int column = rows_->find(name);
    if (column < 0) throw NameError("The result has no column \"" + std::string(name) + "\"");
    if (atEnd()) throw DatabaseError("There is no current row");
    return converted(rows_->at(shown_[position_], column), type);
}

void MemoryHostRecordset::MoveNext() {
    if (!atEnd()) ++position_;
}

void MemoryHostRecordset::setFilter(std::string_view condition) {
    std::vector<std::uint32_t> all(rows_->rowCount());
    std::iota(all.begin(), all.end(), 0U);
    if (!trimmed(condition).empty()) {
        const RowFilter filter(condition, *rows_);
        std::erase_if(all, [&](std::uint32_t row) { return !filter.matches(*rows_, row); });
    }
    shown_ = std::move(all);
    position_ = 0;
}

std::shared_ptr<Recordset> MemoryHostRecordset::inner() {
    return std::make_shared<MemoryRecordset>(rows_, shown_);
}

void MemoryHostRecordset::Close() {
    shown_.clear();
    position_ = 0;
}

}  // namespace quillo
