#pragma once

#include "framework/services/services.h"
#include "host/database/sqlite_handle.h"

// The small look-ups of a company that need no memory of their own.
namespace quillo {

class SqliteProjects final : public Projects {
public:
    explicit SqliteProjects(const sqlite::Database& database) : database_(database) {}
    bool Exists(std::string_view code) override;

private:
    const sqlite::Database& database_;
};

class SqliteAccountGroups final : public AccountGroups {
public:
    explicit SqliteAccountGroups(const sqlite::Database& database) : database_(database) {}
    std::vector<int> Accounts(std::string_view code) override;
    std::vector<int> Accounts(std::string_view code, int currencyId) override;

private:
    const sqlite::Database& database_;
};

class SqliteCustomFields final : public CustomFields {
public:
    explicit SqliteCustomFields(const sqlite::Database& database) : database_(database) {}
    std::vector<CustomFieldValue> Values(std::string_view table, int recordId) override;

private:
    const sqlite::Database& database_;
};

class SqliteLedgerQueries final : public GeneralLedgerQueries {
public:
    explicit SqliteLedgerQueries(const sqlite::Database& database) : database_(database) {}
    // Every account of the range, by number; one without postings with a balance of 0.
    std::unique_ptr<HostRecordset> OpenGLAcctBalanceRange(std::string_view firstAccount, std::string_view lastAccount,
                                                          Date from, Date to) override;

private:
    const sqlite::Database& database_;
};

}  // namespace quillo
