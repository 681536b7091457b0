#include "host/database/sqlite_connection.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "host/database/sqlite_functions.h"

namespace quillo {
namespace {

constexpr int stepsBetweenLooks = 20000;

int authorize(void*, int action, const char*, const char* name, const char*, const char*) {
    switch (action) {
        case SQLITE_SELECT:
        case SQLITE_READ:
        case SQLITE_RECURSIVE:
            return SQLITE_OK;
        case SQLITE_FUNCTION:
            return equalNames(name, "load_extension") ? SQLITE_DENY : SQLITE_OK;
        default:
            return SQLITE_DENY;
    }
}

sqlite::Database open(const std::string& path) {
    try {
        return {path, sqlite::Open::readOnly};
    } catch (const sqlite::Error& failure) {
        throw DatabaseError(sqlite::inWords(failure, path));
    }
}

nlohmann::ordered_json jsonOf(const Variant& value) {
    switch (value.kind()) {
        case ValueKind::null:
            return nullptr;
        case ValueKind::boolean:
            return value.toBool();
        case ValueKind::int32:
        case ValueKind::int64:
            return value.toInt64();
        case ValueKind::real:
        case ValueKind::money:
            return value.toDouble();
        case ValueKind::date:
        case ValueKind::text:
            return value.toText();
    }
    return nullptr;
}

// Temporary views go before those of the file, and fail for a text among its amounts.
void guardViews(sqlite::Database& database) {
    std::vector<std::string> texts;
    sqlite::Statement views(database, "SELECT sql FROM sqlite_schema WHERE type = 'view'");
    while (views.step()) texts.push_back(guardedView(views.text(0)));
    for (const std::string& text : texts)
        if (!text.empty()) sqlite::Statement(database, text).run();
}

}  // namespace

SqliteConnection::SqliteConnection(const std::string& path) : path_(path), database_(open(path)) {
    sqlite3* handle = database_.get();
    sqlite::registerFunctions(handle);
    try {
        guardViews(database_);
    } catch (const sqlite::Error& failure) {
        fail(failure);
    }
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_progress_handler(handle, stepsBetweenLooks, progress, this);
    sqlite3_set_authorizer(handle, authorize, nullptr);
}

int SqliteConnection::progress(void* connection) {
    const auto& self = *static_cast<const SqliteConnection*>(connection);
    const bool late = self.deadline_ != Clock::time_point::max() && Clock::now() > self.deadline_;
    return late || self.stopped() ? 1 : 0;
}

SqliteConnection::Limit::Limit(SqliteConnection& connection, int seconds) : connection_(connection) {
    if (seconds > 0) connection_.deadline_ = Clock::now() + std::chrono::seconds(seconds);
}

void SqliteConnection::fail(const sqlite::Error& failure) const {
    if ((failure.code & 0xFF) != SQLITE_INTERRUPT) {
        faulty_ = faulty_ || sqlite::tellsOfTheFile(failure);
        throw DatabaseError(sqlite::inWords(failure, path_));
    }
    if (stopped()) throw RunStopped();
    throw DatabaseError("The query took longer than its time limit");
}

void SqliteConnection::trace(std::string_view text, const std::vector<Variant>& parameters) {
    if (trace_ == nullptr) return;
    nlohmann::ordered_json line{{"text", std::string(text)}, {"parameters", nlohmann::ordered_json::array()}};
    for (const Variant& value : parameters) line["parameters"].push_back(jsonOf(value));
    *trace_ << line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

}  // namespace quillo
