#include "host/database/memory_recordset.h"

#include "framework/values/errors.h"

namespace quillo {
namespace {

class MemoryRecordset final : public Recordset {
public:
    explicit MemoryRecordset(std::shared_ptr<const RowSet> rows) : rows_(std::move(rows)) {}

    bool atEnd() const override { return position_ >= rows_->rowCount(); }
    void moveNext() override {
        if (!atEnd()) ++position_;
    }
    int columnCount() const override { return rows_->columnCount(); }
    std::string_view columnName(int column) const override { return rows_->name(column); }
    int find(std::string_view name) const override { return rows_->find(name); }
    ValueView value(int column) const override {
        if (atEnd()) throw DatabaseError("There is no current row");
        if (column < 0 || column >= columnCount()) throw DatabaseError("The result has no such column");
        return rows_->at(position_, column);
    }

private:
    std::shared_ptr<const RowSet> rows_;
    std::size_t position_ = 0;
};

}  // namespace

MemoryHostRecordset::MemoryHostRecordset(RowSet rows)
    : HostRows([held = std::make_shared<const RowSet>(std::move(rows))] {
          return std::make_shared<MemoryRecordset>(held);
      }) {}

}  // namespace quillo
