#include "host/services/company_lists.h"

#include "host/database/memory_recordset.h"

namespace quillo {
namespace {

std::vector<int> integers(sqlite::Statement& rows) {
    std::vector<int> values;
    while (rows.step()) values.push_back(static_cast<int>(rows.integer(0)));
    return values;
}

}  // namespace

bool SqliteProjects::Exists(std::string_view code) {
    sqlite::Statement row(database_, "SELECT 1 FROM ProjInfo WHERE ProjId = ?");
    return row.bind(1, code).step();
}

std::vector<int> SqliteAccountGroups::Accounts(std::string_view code) {
    sqlite::Statement rows(database_,
                           "SELECT DISTINCT ExGLAcctId FROM AccountGroup WHERE Code = ? ORDER BY ExGLAcctId");
    return integers(rows.bind(1, code));
}

std::vector<int> SqliteAccountGroups::Accounts(std::string_view code, int currencyId) {
    sqlite::Statement rows(
        database_, "SELECT ExGLAcctId FROM AccountGroup WHERE Code = ? AND ExCurrencyId = ? ORDER BY ExGLAcctId");
    return integers(rows.bind(1, code).bind(2, currencyId));
}

std::vector<CustomFieldValue> SqliteCustomFields::Values(std::string_view table, int recordId) {
    sqlite::Statement rows(database_,
                           "SELECT Caption, Value FROM CustomField "
                           "LEFT JOIN CustomFieldValue ON ExFieldId = InFieldId AND RecordId = ? "
                           "WHERE ForTable = ? COLLATE NOCASE ORDER BY Position, InFieldId");
    rows.bind(1, recordId).bind(2, table);
    std::vector<CustomFieldValue> values;
    while (rows.step()) values.push_back({std::string(rows.text(0)), std::string(rows.text(1))});
    return values;
}

std::unique_ptr<HostRecordset> SqliteLedgerQueries::OpenGLAcctBalanceRange(std::string_view firstAccount,
                                                                           std::string_view lastAccount, Date from,
                                                                           Date to) {
    sqlite::Statement rows(
        database_,
        "SELECT InGLAcctId, GLAcctId, Descr, "
        "COALESCE((SELECT SUM(DetAmnt) FROM GLDet WHERE ExAcctId = InGLAcctId AND DetDate BETWEEN ? AND ?), 0) "
        "FROM GLAcct WHERE GLAcctId BETWEEN ? AND ? ORDER BY GLAcctId");
    rows.bind(1, from.isoText()).bind(2, to.isoText()).bind(3, firstAccount).bind(4, lastAccount);
    RowSet balances({"InGLAcctId", "GLAcctId", "Descr", "Balance"});
    while (rows.step())
        balances.append(
            {static_cast<std::int32_t>(rows.integer(0)), rows.text(1), rows.text(2), Money::fromDouble(rows.real(3))});
    return std::make_unique<MemoryHostRecordset>(std::move(balances));
}

}  // namespace quillo
