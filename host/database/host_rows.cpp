#include "host/database/host_rows.h"

#include <string>

#include "framework/values/errors.h"
#include "framework/values/text.h"

namespace quillo {
namespace {

class FilteredRecordset final : public Recordset {
public:
    FilteredRecordset(std::shared_ptr<Recordset> rows, std::shared_ptr<const RowFilter> filter)
        : rows_(std::move(rows)), filter_(std::move(filter)) {
        skip();
    }

    bool atEnd() const override { return rows_->atEnd(); }
    void moveNext() override {
        rows_->moveNext();
        skip();
    }
    int columnCount() const override { return rows_->columnCount(); }
    std::string_view columnName(int column) const override { return rows_->columnName(column); }
    ValueView value(int column) const override { return rows_->value(column); }

private:
    void skip() {
        while (!rows_->atEnd() && !filter_->matches(*rows_)) rows_->moveNext();
    }

    std::shared_ptr<Recordset> rows_;
    std::shared_ptr<const RowFilter> filter_;
};

class NoRows final : public Recordset {
public:
    bool atEnd() const override { return true; }
    void moveNext() override {}
    int columnCount() const override { return 0; }
    std::string_view columnName(int) const override { return {}; }
    ValueView value(int) const override { throw DatabaseError("There is no current row"); }
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

HostRows::HostRows(Source open) : open_(std::move(open)), rows_(open_()) {}

std::shared_ptr<Recordset> HostRows::opened() const {
    auto rows = open_();
    return filter_ ? std::make_shared<FilteredRecordset>(std::move(rows), filter_) : rows;
}

Recordset& HostRows::rows() const {
    if (!rows_) {
        rows_ = opened();
        atStart_ = true;
    }
    return *rows_;
}

Variant HostRows::Value(std::string_view name, int type) const {
    return converted(rows().view(name), type);
}

void HostRows::MoveNext() {
    rows().moveNext();
    atStart_ = false;
}

void HostRows::MoveFirst() {
    if (!atStart_) rows_.reset();
}

bool HostRows::hasRows() const {
    if (!hasRows_) hasRows_ = atStart_ ? !rows().atEnd() : !opened()->atEnd();
    return *hasRows_;
}

void HostRows::setFilter(std::string_view condition) {
    auto base = !filter_ && atStart_ && rows_ ? std::move(rows_) : open_();
    const auto filter = trimmed(condition).empty() ? nullptr : std::make_shared<const RowFilter>(condition, *base);
    rows_ = filter ? std::make_shared<FilteredRecordset>(std::move(base), filter) : std::move(base);
    filter_ = filter;
    atStart_ = true;
    hasRows_.reset();
}

std::shared_ptr<Recordset> HostRows::inner() {
    if (!atStart_) return opened();
    rows();
    return std::move(rows_);
}

void HostRows::Close() {
    open_ = [] { return std::make_shared<NoRows>(); };
    filter_.reset();
    rows_.reset();
    atStart_ = true;
    hasRows_.reset();
}

}  // namespace quillo
