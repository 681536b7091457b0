#include "host/database/sqlite_database.h"

#include <algorithm>

#include "framework/values/errors.h"
#include "host/database/memory_recordset.h"

namespace quillo {
namespace {

class SqliteCommand final : public Command {
public:
    SqliteCommand(std::shared_ptr<SqliteConnection> connection, std::string connectionString)
        : connection_(std::move(connection)), connectionString_(std::move(connectionString)) {}

    std::shared_ptr<Recordset> Execute() override {
        if (ActiveConnection != connectionString_)
            throw DatabaseError("The command has no connection to the company's database");
        connection_->trace(CommandText, Parameters);
        const auto query = compiled();
        query->bind(Parameters);
        return std::make_shared<SqliteRecordset>(query, CommandTimeout);
    }

private:
    struct Compiled {
        std::string text;
        std::shared_ptr<SqliteQuery> query;
    };

    // The last statements stay compiled, because a report may alternate between a few. A recordset that still walks
    // its statement keeps it to itself.
    std::shared_ptr<SqliteQuery> compiled() {
        constexpr std::size_t most = 4;
        const auto known = std::find_if(compiled_.begin(), compiled_.end(), [this](const Compiled& one) {
            return one.query.use_count() == 1 && one.text == CommandText;
        });
        if (known != compiled_.end()) return known->query;
        auto query = std::make_shared<SqliteQuery>(connection_, CommandText);
        if (compiled_.size() == most) compiled_.erase(compiled_.begin());
        compiled_.push_back({CommandText, query});
        return query;
    }

    std::shared_ptr<SqliteConnection> connection_;
    std::string connectionString_;
    std::vector<Compiled> compiled_;
};

sqlite::Database open(const std::string& path) {
    try {
        return {path, sqlite::Open::readOnly};
    } catch (const sqlite::Error& failure) {
        throw DatabaseError(sqlite::inWords(failure, path));
    }
}

}  // namespace

SqliteDatabase::SqliteDatabase(const std::string& path) : SqliteDatabase(open(path), path) {}

SqliteDatabase::SqliteDatabase(sqlite::Database database, const std::string& path)
    : connection_(std::make_shared<SqliteConnection>(std::move(database), path)), connectionString_("SQLite;" + path) {}

std::unique_ptr<Command> SqliteDatabase::newCommand() {
    return std::make_unique<SqliteCommand>(connection_, connectionString_);
}

std::shared_ptr<SqliteQuery> SqliteDatabase::lookUp(const std::string& text) {
    constexpr std::size_t most = 32;
    const auto found = lookUps_.find(text);
    if (found != lookUps_.end()) return found->second;
    auto query = std::make_shared<SqliteQuery>(connection_, text);
    if (lookUps_.size() >= most) lookUps_.clear();
    lookUps_.emplace(text, query);
    return query;
}

std::unique_ptr<HostRecordset> SqliteDatabase::OpenRecordset(std::string_view text, int, int,
                                                             const std::vector<Variant>& parameters, int) {
    const std::string written(text);
    connection_->trace(written, parameters);
    const auto query = lookUp(written);
    query->bind(parameters);
    SqliteRecordset rows(query, 0);
    return std::make_unique<MemoryHostRecordset>(RowSet(rows));
}

}  // namespace quillo
