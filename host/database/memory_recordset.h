#pragma once

#include <memory>
#include <vector>

#include "framework/services/database.h"
#include "host/database/row_set.h"

namespace quillo {

// A look-up whose rows are held in memory. Recordsets made from it share the rows and walk on their own.
class MemoryHostRecordset final : public HostRecordset {
public:
    explicit MemoryHostRecordset(RowSet rows);

    // Throws NameError for a column that is not there, ConversionError for a type that is not one of
    // ValueType, DatabaseError without a current row.
    Variant Value(std::string_view name, int type) const override;
    bool atEnd() const override { return position_ >= shown_.size(); }
    void MoveNext() override;
    void MoveFirst() override { position_ = 0; }
    bool hasRows() const override { return !shown_.empty(); }
    void setFilter(std::string_view condition) override;
    std::shared_ptr<Recordset> inner() override;
    void Close() override;

private:
    std::shared_ptr<const RowSet> rows_;
    std::vector<std::uint32_t> shown_;  // rows, in their order
    std::size_t position_ = 0;
};

}  // namespace quillo
