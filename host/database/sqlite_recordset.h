#pragma once

#include <memory>
#include <string>
#include <vector>

#include "framework/services/database.h"
#include "host/database/sqlite_connection.h"

namespace quillo {

// A compiled statement with the names and kinds of its columns. It keeps its connection alive.
class SqliteQuery {
public:
    // What the declared type of a column says of its values.
    enum class Kind : unsigned char {
        plain,  // by the value: integer, double, text
        money,
        date,
        boolean,
        maybeDate,  // no declared type, and a name that ends in "Date": a text of ISO form is a date
    };

    // text: as the report wrote it. Throws DatabaseError.
    SqliteQuery(std::shared_ptr<SqliteConnection> connection, const std::string& text);

    // Binds by kind: dates as ISO text, with their time of day only when they have one. Throws
    // DatabaseError when there are not as many values as marks.
    void bind(const std::vector<Variant>& parameters);

    SqliteConnection& connection() const { return *connection_; }
    sqlite::Statement& statement() { return statement_; }
    int columnCount() const { return static_cast<int>(kinds_.size()); }
    const std::string& name(int column) const { return names_[static_cast<std::size_t>(column)]; }
    // The value in the current row.
    ValueView value(int column) const;

private:
    std::shared_ptr<SqliteConnection> connection_;
    sqlite::Statement statement_;
    std::vector<std::string> names_;
    std::vector<Kind> kinds_;
};

// The rows of a query as SQLite finds them; nothing is read ahead.
class SqliteRecordset final : public Recordset {
public:
    // Stands on the first row. seconds: time limit up to it; 0: none.
    SqliteRecordset(std::shared_ptr<SqliteQuery> query, int seconds);
    ~SqliteRecordset() override { query_->statement().reset(); }
    SqliteRecordset(const SqliteRecordset&) = delete;
    SqliteRecordset& operator=(const SqliteRecordset&) = delete;

    bool atEnd() const override { return atEnd_; }
    void moveNext() override;
    int columnCount() const override { return query_->columnCount(); }
    std::string_view columnName(int column) const override { return query_->name(column); }
    ValueView value(int column) const override;

private:
    void step(int seconds);

    std::shared_ptr<SqliteQuery> query_;
    bool atEnd_ = false;
};

}  // namespace quillo
