#include "host/database/sqlite_connection.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "host/database/sqlite_functions.h"

namespace quillo {
namespace {

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

SqliteConnection::SqliteConnection(sqlite::Database database, std::string path)
    : path_(std::move(path)), database_(std::move(database)) {
    sqlite3* handle = database_.get();
    sqlite::registerFunctions(handle, database_.watch());
    try {
        guardViews(database_);
    } catch (const sqlite::Error& failure) {
        fail(failure);
    }
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_set_authorizer(handle, authorize, nullptr);
}

void SqliteConnection::reread() {
    sqlite3_set_authorizer(database_.get(), nullptr, nullptr);
    database_.reread();
    sqlite3_set_authorizer(database_.get(), authorize, nullptr);
}

SqliteConnection::Limit::Limit(sqlite::Watch& watch, int seconds) : watch_(watch) {
    if (seconds > 0) watch_.setDeadline(sqlite::Watch::Clock::now() + std::chrono::seconds(seconds));
}

void SqliteConnection::fail(const sqlite::Error& failure) const {
    if ((failure.code & 0xFF) != SQLITE_INTERRUPT) {
        faulty_ = faulty_ || sqlite::tellsOfTheFile(failure);
        throw DatabaseError(sqlite::inWords(failure, path_));
    }
    throw DatabaseError("The query took longer than its time limit");
}

void SqliteConnection::trace(std::string_view text, const std::vector<Variant>& parameters) {
    if (trace_ == nullptr) return;
    nlohmann::ordered_json line{{"text", std::string(text)}, {"parameters", nlohmann::ordered_json::array()}};
    for (const Variant& value : parameters) line["parameters"].push_back(jsonOf(value));
    *trace_ << line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

}  // namespace quillo
