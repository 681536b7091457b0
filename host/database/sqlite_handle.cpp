#include "host/database/sqlite_handle.h"

namespace quillo::sqlite {
namespace {

constexpr int busyMilliseconds = 10000;  // a writer of the file gets this long to finish

[[noreturn]] void fail(sqlite3* handle, int code) {
    throw Error(code, handle != nullptr ? sqlite3_errmsg(handle) : sqlite3_errstr(code));
}

void check(sqlite3* handle, int code) {
    if (code != SQLITE_OK) fail(handle, code);
}

int flagsOf(Open mode) {
    switch (mode) {
        case Open::readOnly:
            return SQLITE_OPEN_READONLY;
        case Open::readWrite:
            return SQLITE_OPEN_READWRITE;
        case Open::create:
            return SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    }
    return SQLITE_OPEN_READONLY;
}

}  // namespace

std::string inWords(const Error& failure, const std::string& path) {
    const std::string file = "The company file " + path + " ";
    switch (failure.code & 0xFF) {
        case SQLITE_CORRUPT:
            return file + "is damaged: what stands in it does not fit together";
        case SQLITE_NOTADB:
            return file + "is no company: it is not a database";
        case SQLITE_CANTOPEN:
            return file + "cannot be opened";
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return file + "may not be read";
        case SQLITE_IOERR:
            return file + "cannot be read: the disk or the network failed, or it is cut off";
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return file + "is being written by another program";
        case SQLITE_READONLY:
            return file +
                   "was being written when a program ended, and cannot be put in order by one that only reads: open it "
                   "once with the program that writes it";
        case SQLITE_FULL:
            return file + "cannot be written: the disk is full";
        default:
            return failure.what();
    }
}

bool tellsOfTheFile(const Error& failure) {
    const std::string_view text = failure.what();
    switch (failure.code & 0xFF) {
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
        case SQLITE_CANTOPEN:
        case SQLITE_IOERR:
        case SQLITE_READONLY:
            return true;
        default:
            return text.starts_with("no such table") || text.starts_with("no such column");
    }
}

Database::Database(const std::string& path, Open mode) {
    sqlite3* handle = nullptr;
    // SQLite may be built to take a name that begins so as an address with options of its own.
    const std::string name = path.starts_with("file:") ? "./" + path : path;
    const int code =
        sqlite3_open_v2(name.c_str(), &handle, flagsOf(mode) | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    handle_.reset(handle);
    if (code != SQLITE_OK) fail(handle, code);
    registerCollation(handle);
    sqlite3_busy_timeout(handle, busyMilliseconds);
}

void Database::execute(const char* sql) {
    check(get(), sqlite3_exec(get(), sql, nullptr, nullptr, nullptr));
}

std::int64_t Database::integer(const std::string& sql) {
    Statement statement(*this, sql);
    return statement.step() ? statement.integer(0) : 0;
}

Statement::Statement(const Database& database, std::string_view sql) : database_(database.get()) {
    sqlite3_stmt* handle = nullptr;
    check(database_, sqlite3_prepare_v2(database_, sql.data(), static_cast<int>(sql.size()), &handle, nullptr));
    handle_.reset(handle);
}

Statement& Statement::bind(int index, std::nullptr_t) {
    check(database_, sqlite3_bind_null(get(), index));
    return *this;
}

Statement& Statement::bind(int index, std::int64_t value) {
    check(database_, sqlite3_bind_int64(get(), index, value));
    return *this;
}

Statement& Statement::bind(int index, double value) {
    check(database_, sqlite3_bind_double(get(), index, value));
    return *this;
}

Statement& Statement::bind(int index, std::string_view value) {
    check(database_, sqlite3_bind_text64(get(), index, value.data(), value.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
    return *this;
}

bool Statement::step() {
    const int code = sqlite3_step(get());
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) fail(database_, code);
    return false;
}

void Statement::reset() {
    sqlite3_reset(get());
}

void Statement::run() {
    while (step()) {
    }
    reset();
}

double Statement::real(int column) const {
    const int type = sqlite3_column_type(get(), column);
    if (type == SQLITE_TEXT || type == SQLITE_BLOB)
        throw Error(SQLITE_MISMATCH, "Type mismatch: \"" + std::string(text(column)) + "\" is not a number");
    return sqlite3_column_double(get(), column);
}

std::string_view Statement::text(int column) const {
    const auto* data = reinterpret_cast<const char*>(sqlite3_column_text(get(), column));
    if (data == nullptr) return {};
    return {data, static_cast<std::size_t>(sqlite3_column_bytes(get(), column))};
}

}  // namespace quillo::sqlite
