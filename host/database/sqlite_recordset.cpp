#include "host/database/sqlite_recordset.h"

#include <chrono>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "framework/values/text.h"

namespace quillo {
namespace {

using Kind = SqliteQuery::Kind;

Kind kindOf(const char* declared, std::string_view name) {
    if (declared == nullptr) {
        constexpr std::string_view ending = "Date";
        const bool dateName =
            name.size() >= ending.size() && equalNames(name.substr(name.size() - ending.size()), ending);
        return dateName ? Kind::maybeDate : Kind::plain;
    }
    const std::string_view type(declared);
    const std::string_view first = type.substr(0, type.find(' '));
    if (equalNames(first, "MONEY")) return Kind::money;
    if (equalNames(first, "DATE")) return Kind::date;
    if (equalNames(first, "BOOLEAN")) return Kind::boolean;
    return Kind::plain;
}

// Amounts are kept to at most four decimals: one multiplication finds them, and only what lies
// between takes the long road.
Money moneyOf(double value) {
    constexpr double most = 9e11;
    const double scaled = value * static_cast<double>(Money::scale);
    if (std::fabs(value) < most) {
        const auto raw = static_cast<std::int64_t>(scaled + (scaled < 0 ? -0.5 : 0.5));
        if (std::fabs(scaled - static_cast<double>(raw)) <= std::fabs(scaled) * 4.5e-16) return Money::fromRaw(raw);
    }
    return Money::fromDouble(value);
}

ValueView integerView(sqlite3_int64 value) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (value >= Limits::min() && value <= Limits::max()) return ValueView::ofInt32(static_cast<std::int32_t>(value));
    return ValueView::ofInt64(value);
}

ValueView textView(sqlite3_stmt* statement, int column, Kind kind) {
    const auto* data = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    if (data == nullptr) return ValueView::ofText({});
    const std::string_view text(data, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
    if (kind == Kind::date || kind == Kind::maybeDate) {
        const auto date = kind == Kind::date ? Date::parseIso(text) : Date::parseIsoDay(text);
        if (date) return ValueView::ofDate(*date);
    }
    return ValueView::ofText(text);
}

void bindValue(sqlite::Statement& statement, int index, const Variant& value) {
    switch (value.kind()) {
        case ValueKind::null:
            statement.bind(index, nullptr);
            return;
        case ValueKind::boolean:
            statement.bind(index, value.toBool() ? 1 : 0);
            return;
        case ValueKind::int32:
        case ValueKind::int64:
            statement.bind(index, value.toInt64());
            return;
        case ValueKind::real:
        case ValueKind::money:
            statement.bind(index, value.toDouble());
            return;
        case ValueKind::text:
            statement.bind(index, value.view().textView());
            return;
        case ValueKind::date:
            break;
    }
    const Date date = value.toDate();
    std::string text = date.isoText();
    const auto seconds = std::llround((date.days - std::floor(date.days)) * 86400);
    if (seconds > 0) {
        const std::chrono::hh_mm_ss time{std::chrono::seconds(seconds < 86400 ? seconds : 86399)};
        const auto append = [&](char mark, auto count) {
            text += mark;
            appendDigits(text, static_cast<unsigned>(count), 2);
        };
        append(' ', time.hours().count());
        append(':', time.minutes().count());
        append(':', time.seconds().count());
    }
    statement.bind(index, std::string_view(text));
}

}  // namespace

SqliteQuery::SqliteQuery(std::shared_ptr<SqliteConnection> connection, const std::string& text)
    : connection_(std::move(connection)), statement_(connection_->run(0, [&] {
          return sqlite::Statement(connection_->database(), connection_->rewriter().rewrite(text));
      })) {
    sqlite3_stmt* handle = statement_.get();
    if (handle == nullptr) throw DatabaseError("The command has no text");
    for (int i = 0; i < sqlite3_column_count(handle); ++i) {
        names_.emplace_back(sqlite3_column_name(handle, i));
        kinds_.push_back(kindOf(sqlite3_column_decltype(handle, i), names_.back()));
    }
}

void SqliteQuery::bind(const std::vector<Variant>& parameters) {
    const auto marks = static_cast<std::size_t>(sqlite3_bind_parameter_count(statement_.get()));
    if (marks != parameters.size())
        throw DatabaseError("The statement has " + std::to_string(marks) + " marks for parameters, and " +
                            std::to_string(parameters.size()) + " values were given");
    connection_->run(0, [&] {
        for (std::size_t i = 0; i < marks; ++i) bindValue(statement_, static_cast<int>(i + 1), parameters[i]);
    });
}

ValueView SqliteQuery::value(int column) const {
    sqlite3_stmt* handle = statement_.get();
    const Kind kind = kinds_[static_cast<std::size_t>(column)];
    switch (sqlite3_column_type(handle, column)) {
        case SQLITE_NULL:
            return {};
        case SQLITE_INTEGER: {
            const sqlite3_int64 number = sqlite3_column_int64(handle, column);
            if (kind == Kind::boolean) return ValueView::ofBool(number != 0);
            return kind == Kind::money ? ValueView::ofMoney(Money::fromInteger(number)) : integerView(number);
        }
        case SQLITE_FLOAT: {
            const double number = sqlite3_column_double(handle, column);
            return kind == Kind::money ? ValueView::ofMoney(moneyOf(number)) : ValueView::ofDouble(number);
        }
        default:
            return textView(handle, column, kind);
    }
}

SqliteRecordset::SqliteRecordset(std::shared_ptr<SqliteQuery> query, int seconds) : query_(std::move(query)) {
    try {
        step(seconds);
    } catch (...) {
        query_->statement().reset();
        throw;
    }
}

void SqliteRecordset::step(int seconds) {
    atEnd_ = true;  // stays so when the step fails
    atEnd_ = !query_->connection().run(seconds, [&] { return query_->statement().step(); });
}

void SqliteRecordset::moveNext() {
    if (!atEnd_) step(0);
}

ValueView SqliteRecordset::value(int column) const {
    if (atEnd_) throw DatabaseError("There is no current row");
    if (column < 0 || column >= query_->columnCount()) throw DatabaseError("The result has no such column");
    return query_->value(column);
}

}  // namespace quillo
