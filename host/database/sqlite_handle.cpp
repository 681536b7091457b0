#include "host/database/sqlite_handle.h"

#include "framework/values/errors.h"
#include "host/database/wal_reader.h"

namespace quillo::sqlite {
namespace {

constexpr int stepsBetweenLooks = 20000;
constexpr std::chrono::milliseconds patienceForRepair{500};  // another program may be at it

int primary(int code) {
    return code & 0xFF;
}

std::string textOf(sqlite3* handle, int code) {
    if (code == SQLITE_READONLY_ROLLBACK)
        return "a program broke off while it wrote to the file; a program that writes to it must open it first";
    if (primary(code) == SQLITE_BUSY || code == SQLITE_PROTOCOL)
        return "another program writes to the file and kept it locked";
    return handle != nullptr ? sqlite3_errmsg(handle) : sqlite3_errstr(code);
}

[[noreturn]] void fail(sqlite3* handle, const Watch& watch, int code) {
    const bool ended = primary(code) == SQLITE_INTERRUPT || primary(code) == SQLITE_BUSY;
    if (ended && watch.stopped()) throw RunStopped();
    throw Error(code, textOf(handle, code));
}

void check(sqlite3* handle, const Watch& watch, int code) {
    if (code != SQLITE_OK) fail(handle, watch, code);
}

// Some locks are told without SQLite's own waiting: a log that is just recovered, a journal that is just rolled back.
template <class Attempt>
int patiently(sqlite3* handle, const Watch& watch, Attempt attempt) {
    const auto since = Watch::Clock::now();
    while (true) {
        const int code = attempt();
        const bool repair = code == SQLITE_READONLY_ROLLBACK;
        if (!repair && primary(code) != SQLITE_BUSY && code != SQLITE_PROTOCOL) return code;
        if (sqlite3_get_autocommit(handle) == 0) return code;  // its own transaction stands in the way
        if (!(repair ? watch.wait(since, patienceForRepair) : watch.wait(since))) return code;
    }
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

Database::Database(const std::string& path, Open mode, const std::atomic<bool>* stop)
    : path_(path.starts_with("file:") ? "./" + path : path), watch_(std::make_unique<Watch>()) {
    watch_->setStopFlag(stop);
    sqlite3* handle = nullptr;
    const int code =
        sqlite3_open_v2(path_.c_str(), &handle, flagsOf(mode) | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    handle_.reset(handle);
    if (code != SQLITE_OK) fail(handle, *watch_, code);
    registerCollation(handle);
    sqlite3_busy_handler(
        handle, [](void* watch, int turn) { return static_cast<Watch*>(watch)->wait(turn) ? 1 : 0; }, watch_.get());
    sqlite3_progress_handler(
        handle, stepsBetweenLooks, [](void* watch) { return static_cast<Watch*>(watch)->over() ? 1 : 0; },
        watch_.get());
    if (mode == Open::readOnly) enterWal();
}

// The watch may be gone by now, where one database takes the place of another.
void Database::Close::operator()(sqlite3* handle) const {
    sqlite3_busy_handler(handle, nullptr, nullptr);
    sqlite3_progress_handler(handle, 0, nullptr, nullptr);
    sqlite3_close_v2(handle);
}

void Database::enterWal() {
    const WalReader file(path_, *watch_);
    while (file.isWal()) {
        if (file.isOpenElsewhere()) {
            // While the reader holds its lock, nobody takes the files beside away, so that none is made anew.
            Statement(*this, "SELECT 1 FROM sqlite_master").step();
            return;
        }
        auto copy = file.copy();
        if (!copy) continue;
        constexpr unsigned flags = SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_READONLY;
        const auto size = static_cast<sqlite3_int64>(copy->size);
        check(get(), *watch_, sqlite3_deserialize(get(), "main", copy->bytes.release(), size, size, flags));
        inMemory_ = true;
        return;
    }
}

void Database::rest() const {
    for (auto* one = sqlite3_next_stmt(get(), nullptr); one != nullptr; one = sqlite3_next_stmt(get(), one))
        sqlite3_reset(one);
}

void Database::reread() {
    if (!inMemory_) return;
    rest();
    inMemory_ = false;
    enterWal();
}

void Database::execute(const char* sql) {
    check(get(), *watch_, sqlite3_exec(get(), sql, nullptr, nullptr, nullptr));
}

std::int64_t Database::integer(const std::string& sql) {
    Statement statement(*this, sql);
    return statement.step() ? statement.integer(0) : 0;
}

Statement::Statement(const Database& database, std::string_view sql)
    : database_(database.get()), watch_(&database.watch()) {
    sqlite3_stmt* handle = nullptr;
    check(patiently(database_, *watch_, [&] {
        return sqlite3_prepare_v2(database_, sql.data(), static_cast<int>(sql.size()), &handle, nullptr);
    }));
    handle_.reset(handle);
}

Statement& Statement::bind(int index, std::nullptr_t) {
    check(sqlite3_bind_null(get(), index));
    return *this;
}

Statement& Statement::bind(int index, std::int64_t value) {
    check(sqlite3_bind_int64(get(), index, value));
    return *this;
}

Statement& Statement::bind(int index, double value) {
    check(sqlite3_bind_double(get(), index, value));
    return *this;
}

Statement& Statement::bind(int index, std::string_view value) {
    check(sqlite3_bind_text64(get(), index, value.data(), value.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
    return *this;
}

bool Statement::step() {
    const auto step = [this] { return sqlite3_step(get()); };
    const int code = begun_ ? step() : patiently(database_, *watch_, step);
    begun_ = code == SQLITE_ROW;
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) fail(database_, *watch_, code);
    return false;
}

void Statement::reset() {
    sqlite3_reset(get());
    begun_ = false;
}

void Statement::check(int code) const {
    sqlite::check(database_, *watch_, code);
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
