#pragma once

#include <atomic>
#include <iosfwd>
#include <memory>
#include <string>
#include <unordered_map>

#include "framework/services/database.h"
#include "host/database/sqlite_recordset.h"

namespace quillo {

// A company file for reading. Commands and recordsets keep the connection alive beyond it. One thread.
class SqliteDatabase final : public HostDatabase {
public:
    // Throws DatabaseError.
    explicit SqliteDatabase(const std::string& path);
    // One that is open for reading.
    SqliteDatabase(sqlite::Database database, const std::string& path);

    std::string ConnectionString() const override { return connectionString_; }
    std::unique_ptr<Command> newCommand() override;
    // The statements of look-ups stay compiled, because reports ask the same for each row.
    using HostDatabase::OpenRecordset;
    std::unique_ptr<HostRecordset> OpenRecordset(std::string_view text, int mode, int options,
                                                 const std::vector<Variant>& parameters, int flag = 0) override;

    // While the flag is true, running statements end with a failure; it must outlive the database.
    void setStopFlag(const std::atomic<bool>* stop) { connection_->database().watch().setStopFlag(stop); }
    // One JSON object a line for each text of a report that is executed:
    // {"text":...,"parameters":[...]}. The stream must outlive the database; nullptr: no trace.
    void setTrace(std::ostream* trace) { connection_->setTrace(trace); }
    // What a service wrote over a connection of its own is seen.
    void reread() { connection_->reread(); }
    // A report's text found the file damaged, or without what every company has.
    bool faulty() const { return connection_->faulty(); }
    // For the host's own questions; not traced.
    const sqlite::Database& handle() const { return connection_->database(); }

private:
    std::shared_ptr<SqliteQuery> lookUp(const std::string& text);

    std::shared_ptr<SqliteConnection> connection_;
    std::string connectionString_;
    std::unordered_map<std::string, std::shared_ptr<SqliteQuery>> lookUps_;
};

}  // namespace quillo
