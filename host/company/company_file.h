#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/company/catalogue.h"
#include "host/database/sqlite_database.h"

namespace quillo {

// The version of company files that this library reads and writes (PRAGMA user_version).
inline constexpr int companyVersion = 1;

// A company file, open for reading: the database and what the file says of the company itself. One
// thread.
class CompanyFile {
public:
    // Throws InputError that names the file and what is wrong with it: missing, no database, damaged, of
    // another version, or without a table that every company has. Throws RunStopped when the stop flag ends it.
    explicit CompanyFile(const std::string& path, const std::atomic<bool>* stop = nullptr);

    const std::string& path() const { return path_; }
    // What ends its work early.
    const std::atomic<bool>* stopFlag() const { return handle().watch().stopFlag(); }
    // The folder in which the file lies, as the caller named it.
    std::string folder() const;
    SqliteDatabase& database() { return *database_; }
    const sqlite::Database& handle() const { return database_->handle(); }
    const Catalogue& catalogue() const { return catalogue_; }

    // A fact of the company by name; the fallback when the file does not tell it.
    std::string fact(std::string_view name, std::string_view fallback) const;
    // The same as an integer; throws InputError when it is none.
    int integerFact(std::string_view name, int fallback) const;
    std::optional<std::string> setting(int number) const;
    // Without a section the parameter may stand in any.
    std::optional<std::string> parameter(std::string_view section, std::string_view name) const;
    // The company's own words for texts of a language, by number. Throws InputError for a text without a number or
    // one that stands twice.
    std::vector<std::pair<int, std::string>> textOverrides(std::string_view language) const;

private:
    CompanyFile(const std::string& path, sqlite::Database database);

    std::string path_;
    Catalogue catalogue_;
    std::unique_ptr<SqliteDatabase> database_;
};

}  // namespace quillo
