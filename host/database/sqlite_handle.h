#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "host/database/watch.h"

// Thin owners of SQLite's handles. They are move-only, belong to one thread at a time, and every
// failure is an Error whose text is SQLite's own, but for a lock. What the stop flag ends throws RunStopped.
namespace quillo::sqlite {

struct Error : std::runtime_error {
    Error(int resultCode, const std::string& text) : std::runtime_error(text), code(resultCode) {}
    int code;  // SQLite's extended result code
};

// A failure in a sentence that says what is the matter with the file, where SQLite only has a term for it; else its own
// text, which then is about a statement.
std::string inWords(const Error& failure, const std::string& path);
// Whether the file is to blame: damaged, unreadable, or without a table or column that was asked for.
bool tellsOfTheFile(const Error& failure);

enum class Open { readOnly, readWrite, create };

// One connection to one file. The collation QUILLO is registered on every connection. Whatever meets a lock waits for
// it, up to Watch::patience.
//
// A reader leaves nothing behind. A file in WAL mode that no program has open is read from memory, as it was when it
// was opened, because SQLite would else make files beside it that a mere reader cannot take away, and that lock others
// out.
class Database {
public:
    // The path is a file's name, also where it begins like an address ("file:...").
    Database(const std::string& path, Open mode, const std::atomic<bool>* stop = nullptr);

    Watch& watch() const { return *watch_; }
    // Ends the statements that are under way, and so every lock.
    void rest() const;
    // What others have written meanwhile, where the file was read from memory.
    void reread();
    sqlite3* get() const { return handle_.get(); }
    // Runs one or more statements that give no rows.
    void execute(const char* sql);
    void execute(const std::string& sql) { execute(sql.c_str()); }
    // First column of the first row as an integer; 0 when there is no row or it is NULL.
    std::int64_t integer(const std::string& sql);

private:
    void enterWal();

    struct Close {
        void operator()(sqlite3* handle) const;
    };
    std::string path_;              // SQLite may be built to take a name such as "file:x" as an address with options
    bool inMemory_ = false;         // a copy of the file
    std::unique_ptr<Watch> watch_;  // SQLite's callbacks know its address
    std::unique_ptr<sqlite3, Close> handle_;
};

// A statement is compiled when made and finished when destroyed. Parameters count from 1, columns
// from 0. A text given to bind is copied.
class Statement {
public:
    Statement(const Database& database, std::string_view sql);

    sqlite3_stmt* get() const { return handle_.get(); }
    Statement& bind(int index, std::nullptr_t);
    Statement& bind(int index, std::int64_t value);
    Statement& bind(int index, int value) { return bind(index, std::int64_t{value}); }
    Statement& bind(int index, double value);
    Statement& bind(int index, std::string_view value);
    Statement& bind(int index, const char* value) { return bind(index, std::string_view(value)); }
    // True while there is a row.
    bool step();
    // Ready for the next execution; the bound values stay.
    void reset();
    // Steps a statement that gives no rows to its end and resets it.
    void run();

    bool isNull(int column) const { return sqlite3_column_type(get(), column) == SQLITE_NULL; }
    std::int64_t integer(int column) const { return sqlite3_column_int64(get(), column); }
    // Throws Error for a text or bytes, which SQLite would give as 0.
    double real(int column) const;
    std::string_view text(int column) const;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }
    };
    void check(int code) const;

    sqlite3* database_;
    const Watch* watch_;
    bool begun_ = false;  // it may have given rows
    std::unique_ptr<sqlite3_stmt, Finalize> handle_;
};

// Registers the collation QUILLO on a connection that something else opened.
void registerCollation(sqlite3* handle);

}  // namespace quillo::sqlite
