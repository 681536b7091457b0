#include "host/database/row_set.h"

#include <algorithm>
#include <cstring>

#include "framework/services/database.h"
#include "framework/values/names.h"

namespace quillo {
namespace {

using TextLength = std::uint32_t;  // a value of the database is smaller than 4 GB

}  // namespace

RowSet::RowSet(std::vector<std::string> names)
    : names_(std::move(names)), memory_(std::make_unique<std::pmr::monotonic_buffer_resource>()) {}

RowSet::RowSet(Recordset& source) : RowSet(std::vector<std::string>()) {
    for (int i = 0; i < source.columnCount(); ++i) names_.emplace_back(source.columnName(i));
    for (; !source.atEnd(); source.moveNext()) {
        const Row row = addRow();
        for (std::size_t i = 0; i < names_.size(); ++i) put(row, i, source.value(static_cast<int>(i)));
    }
}

RowSet::Word RowSet::wordOf(const ValueView& value) {
    switch (value.kind()) {
        case ValueKind::boolean:
            return {.integer = value.toBool()};
        case ValueKind::int32:
        case ValueKind::int64:
            return {.integer = value.toInt64()};
        case ValueKind::money:
            return {.integer = value.toMoney().raw()};
        case ValueKind::real:
        case ValueKind::date:
            return {.real = value.toDouble()};
        case ValueKind::null:
        case ValueKind::text:
            break;
    }
    return {};
}

std::string_view RowSet::textOf(Word word) {
    TextLength length = 0;
    std::memcpy(&length, word.text, sizeof length);
    return {word.text + sizeof length, length};
}

RowSet::Row RowSet::rowAt(Word* words) const {
    return {words, reinterpret_cast<ValueKind*>(words + names_.size())};
}

RowSet::Row RowSet::addRow() {
    const std::size_t bytes = names_.size() * (sizeof(Word) + sizeof(ValueKind));
    rows_.push_back(static_cast<Word*>(memory_->allocate(bytes, alignof(Word))));
    return rowAt(rows_.back());
}

void RowSet::put(const Row& row, std::size_t column, const ValueView& value) {
    row.kinds[column] = value.kind();
    row.words[column] = value.kind() == ValueKind::text ? keptText(column, value.textView()) : wordOf(value);
}

// A text that the row above has too is kept once: names and codes come in runs.
RowSet::Word RowSet::keptText(std::size_t column, std::string_view text) {
    if (rows_.size() > 1) {
        const Row above = rowAt(rows_[rows_.size() - 2]);
        if (above.kinds[column] == ValueKind::text && textOf(above.words[column]) == text) return above.words[column];
    }
    const auto length = static_cast<TextLength>(text.size());
    auto* place = static_cast<char*>(memory_->allocate(sizeof length + text.size(), 1));
    std::memcpy(place, &length, sizeof length);
    std::copy(text.begin(), text.end(), place + sizeof length);
    return {.text = place};
}

ValueView RowSet::at(std::size_t row, int column) const {
    const Row found = rowAt(rows_[row]);
    const Word word = found.words[column];
    switch (found.kinds[column]) {
        case ValueKind::null:
            break;
        case ValueKind::boolean:
            return ValueView::ofBool(word.integer != 0);
        case ValueKind::int32:
            return ValueView::ofInt32(static_cast<std::int32_t>(word.integer));
        case ValueKind::int64:
            return ValueView::ofInt64(word.integer);
        case ValueKind::real:
            return ValueView::ofDouble(word.real);
        case ValueKind::money:
            return ValueView::ofMoney(Money::fromRaw(word.integer));
        case ValueKind::date:
            return ValueView::ofDate({word.real});
        case ValueKind::text:
            return ValueView::ofText(textOf(word));
    }
    return {};
}

void RowSet::append(const std::vector<Variant>& row) {
    const Row added = addRow();
    for (std::size_t i = 0; i < names_.size(); ++i) put(added, i, row.at(i));
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
