#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "framework/services/database.h"
#include "host/database/row_filter.h"

namespace quillo {

// The rows of a source that can be opened again: held in memory, or read as they are walked, so that a list as long as
// the company takes no memory.
class HostRows : public HostRecordset {
public:
    // Gives the rows anew, standing on the first.
    using Source = std::function<std::shared_ptr<Recordset>()>;
    // Opens the source.
    explicit HostRows(Source open);

    // Throws NameError for a column that is not there, ConversionError for a type that is not one of
    // ValueType, DatabaseError without a current row.
    Variant Value(std::string_view name, int type) const override;
    bool atEnd() const override { return rows().atEnd(); }
    void MoveNext() override;
    void MoveFirst() override;
    bool hasRows() const override;
    void setFilter(std::string_view condition) override;
    // From the first row on. A recordset that was not walked yet hands out its own rows; the source is opened again
    // for the next question.
    std::shared_ptr<Recordset> inner() override;
    void Close() override;

private:
    std::shared_ptr<Recordset> opened() const;
    Recordset& rows() const;

    Source open_;
    std::shared_ptr<const RowFilter> filter_;
    mutable std::shared_ptr<Recordset> rows_;
    mutable bool atStart_ = true;
    mutable std::optional<bool> hasRows_;
};

}  // namespace quillo
