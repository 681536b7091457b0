#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "framework/values/names.h"
#include "framework/values/variant.h"

// The company database as the reports see it. Names of columns compare without case, and where a
// name stands twice in a result its first column counts.
namespace quillo {

// The rows of a query, walked once and forward. Not to be shared between threads.
class Recordset {
public:
    virtual ~Recordset() = default;

    virtual bool atEnd() const = 0;
    // Throws DatabaseError; at the end it does nothing.
    virtual void moveNext() = 0;

    virtual int columnCount() const = 0;
    virtual std::string_view columnName(int column) const = 0;
    // The value in the current row; the view lives until the next move. Throws DatabaseError at the end.
    virtual ValueView value(int column) const = 0;

    // Index of the first column of that name, or -1. A qualified name ("InvoiHdr.ExCurrencyId") that the
    // result does not have as it stands falls back to its last part.
    virtual int find(std::string_view name) const;
    // The value of a column in the current row, a copy to keep. Throws NameError when there is no such column.
    Variant Collect(std::string_view name) const { return Variant(view(name)); }
    // The same without a copy, until the next move.
    ValueView view(std::string_view name) const;

private:
    using Columns = std::unordered_map<std::string, int, NameHash, NameEqual>;
    mutable Columns columns_;  // made at first use; wide results are asked by name on every row
};

// A column of the rows of one query, looked up once and then read on every row. It keeps its rows alive, and is
// made anew for those of the next query.
class Column {
public:
    Column() = default;
    // Throws NameError when the rows have no such column, DatabaseError without rows.
    Column(std::shared_ptr<const Recordset> rows, std::string_view name);
    // The value in the row on which the rows stand, until their next move. Throws DatabaseError at the end, and of a
    // column of no rows.
    ValueView view() const {
        if (!rows_) failWithoutRows();
        return rows_->value(index_);
    }

private:
    [[noreturn]] static void failWithoutRows();
    std::shared_ptr<const Recordset> rows_;
    int index_ = -1;
};

// Types that HostRecordset::Value is asked for.
namespace ValueType {
inline constexpr int integer = 3, text = 8, boolean = 11, longText = 200, currency = 6, date = 7, real = 5;
}

// The rows of a look-up or of a list of the host, which can be filtered and walked again.
class HostRecordset {
public:
    virtual ~HostRecordset() = default;
    // The value of a column as the wanted type (ValueType); Null stays Null.
    virtual Variant Value(std::string_view name, int type) const = 0;
    virtual bool atEnd() const = 0;
    virtual void MoveNext() = 0;
    virtual void MoveFirst() = 0;
    virtual bool hasRows() const = 0;
    // Narrows the rows by a condition on its columns (comparisons joined by AND, OR); empty text shows
    // all again. Stands on the first row left. Throws InputError with the place of a fault.
    virtual void setFilter(std::string_view condition) = 0;
    // The same rows as a recordset that an engine can walk.
    virtual std::shared_ptr<Recordset> inner() = 0;
    virtual void Close() = 0;
};

// One statement with the values of its "?" marks, in their order.
class Command {
public:
    virtual ~Command() = default;
    int CommandTimeout = 30;       // seconds; 0: no limit
    std::string ActiveConnection;  // the ConnectionString of the company's database
    std::string CommandText;
    std::vector<Variant> Parameters;
    // A statement whose text did not change is not compiled again. Throws DatabaseError with the
    // provider's text; the recordset keeps the connection alive.
    virtual std::shared_ptr<Recordset> Execute() = 0;
};

class HostDatabase {
public:
    virtual ~HostDatabase() = default;
    virtual std::string ConnectionString() const = 0;
    virtual std::unique_ptr<Command> newCommand() = 0;
    // A look-up. mode 2 or 4, options 0, flag 0 as the reports pass them; the values take the "?" marks in order.
    virtual std::unique_ptr<HostRecordset> OpenRecordset(std::string_view text, int mode, int options,
                                                         const std::vector<Variant>& parameters, int flag = 0) = 0;
    // The same with one mark, and without any.
    std::unique_ptr<HostRecordset> OpenRecordset(std::string_view text, int mode, int options, const Variant& parameter,
                                                 int flag = 0) {
        return OpenRecordset(text, mode, options, std::vector<Variant>{parameter}, flag);
    }
    std::unique_ptr<HostRecordset> OpenRecordset(std::string_view text, int mode, int options) {
        return OpenRecordset(text, mode, options, std::vector<Variant>());
    }
};

}  // namespace quillo
