#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "framework/values/variant.h"
#include "host/database/sql_rewriter.h"
#include "host/database/sqlite_handle.h"

namespace quillo {

// A connection to a company file that can do nothing but read: the file is opened read-only, and an
// authorizer refuses every statement that is not a SELECT. It knows the functions and the collation of
// the report texts. Belongs to one thread; only the stop flag may be set from elsewhere.
class SqliteConnection {
public:
    // The database, which lies at the path, is open for reading. Throws DatabaseError.
    SqliteConnection(sqlite::Database database, std::string path);
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;

    const sqlite::Database& database() const { return database_; }
    // A statement found the file damaged, or without what every company has.
    bool faulty() const { return faulty_; }
    SqlRewriter& rewriter() { return rewriter_; }

    // What others have written meanwhile, where the company was read from memory.
    void reread();
    // One JSON object a line for each text executed, as it was written. nullptr: no trace.
    void setTrace(std::ostream* trace) { trace_ = trace; }
    void trace(std::string_view text, const std::vector<Variant>& parameters);

    // Runs a step that may take long. Failures become DatabaseError; seconds 0: no limit.
    template <class Step>
    auto run(int seconds, Step step) {
        const Limit limit(database_.watch(), seconds);
        try {
            return step();
        } catch (const sqlite::Error& failure) {
            fail(failure);
        }
    }

private:
    class Limit {
    public:
        Limit(sqlite::Watch& watch, int seconds);
        ~Limit() { watch_.setDeadline(sqlite::Watch::Clock::time_point::max()); }
        Limit(const Limit&) = delete;
        Limit& operator=(const Limit&) = delete;

    private:
        sqlite::Watch& watch_;
    };

    [[noreturn]] void fail(const sqlite::Error& failure) const;

    std::string path_;
    sqlite::Database database_;
    mutable bool faulty_ = false;
    SqlRewriter rewriter_;
    std::ostream* trace_ = nullptr;
};

}  // namespace quillo
