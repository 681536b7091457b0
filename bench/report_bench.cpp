#include "bench/report_bench.h"

#include <cstdio>
#include <sstream>

#include "apps/quillo/program.h"
#include "bench/content_floor.h"
#include "bench/measure.h"
#include "demo/demo_company.h"
#include "framework/values/names.h"
#include "host/database/sqlite_handle.h"

namespace quillo::bench {
namespace {

constexpr int scale = 10;

// The day on which the rows that the condition selects reach a number.
std::string dayOf(const sqlite::Database& company, const std::string& rows, int number) {
    sqlite::Statement day(company, "SELECT DetDate FROM (" + rows + ") ORDER BY DetDate LIMIT 1 OFFSET ?");
    if (!day.bind(1, number - 1).step())
        throw std::runtime_error("the demo company has fewer rows than the bench asks for");
    return std::string(day.text(0));
}

std::int64_t countUpTo(const sqlite::Database& company, const std::string& rows, const std::string& day) {
    sqlite::Statement count(company, "SELECT COUNT(*) FROM (" + rows + ") WHERE DetDate <= ?");
    count.bind(1, day).step();
    return count.integer(0);
}

void run(std::vector<std::string> arguments) {
    std::ostringstream out, err;
    const app::Console console{out, err};
    arguments.insert(arguments.begin(), "run");
    if (app::runProgram(arguments, console) != 0) throw std::runtime_error(err.str());
}

const std::string journalRows = "SELECT DetDate FROM GLDet WHERE DetAmnt <> 0 AND Source IN ('INV', 'ADM')";

// The query of the report as it writes it.
constexpr const char* journalQuery =
    "SELECT GLDet.*, GLDet.DetAmnt as GLDetDetAmnt, GLDet.ExchangeRate as GLDetExchangeRate, "
    "GLDet.ExCurrencyId as GLDetExCurrencyId, GLAcct.InGLAcctId, GLAcct.GLAcctId, GLAcct.Descr as GLAcctDescr, "
    "InvoiHdr.*, "
    "Cust.*, ProjInfo.ProjId, WorldCurrency.* FROM"
    " ((((GLDet INNER JOIN GLAcct ON GLAcct.InGLAcctId = GLDet.ExAcctId)"
    " LEFT JOIN InvoiHdr ON GLDet.ExSrcKeyVal = InvoiHdr.InInvoiId) "
    " LEFT JOIN Cust ON Cust.InCustId = InvoiHdr.ExCustId)"
    " LEFT JOIN ProjInfo ON GLDet.ExProjId = ProjInfo.InProjId) "
    " LEFT JOIN WorldCurrency ON GLDet.ExCurrencyId = WorldCurrency.InCurrencyId "
    " WHERE GLDet.DetAmnt <> 0 AND (GLDet.Source='INV' OR GLDet.Source='ADM') AND"
    " GLDet.DetDate BETWEEN '1899-12-31' AND ? "
    " ORDER BY GLDet.DetDate, InvoiId, GLDet.SeqNo, GLAcct.GLAcctId";

int columnOf(const sqlite::Statement& rows, std::string_view name) {
    for (int i = 0; i < sqlite3_column_count(rows.get()); ++i)
        if (equalNames(sqlite3_column_name(rows.get(), i), name)) return i;
    throw std::runtime_error("no column " + std::string(name));
}

// The same rows in the same order, their texts and amounts as content.
std::size_t bareJournal(const std::string& path, const std::string& to) {
    sqlite::Database company(path, sqlite::Open::readOnly);
    sqlite::Statement rows(company, journalQuery);
    rows.bind(1, to);
    const int sequenceColumn = columnOf(rows, "SeqNo"), date = columnOf(rows, "DetDate"),
              number = columnOf(rows, "InvoiId"), text = columnOf(rows, "DetDesc"),
              account = columnOf(rows, "GLAcctId"), name = columnOf(rows, "GLAcctDescr"),
              amountColumn = columnOf(rows, "GLDetDetAmnt");
    ContentFloor content;
    std::int64_t sequence = 0;
    Money debits, credits;
    while (rows.step()) {
        const int top = content.nextLine();
        if (rows.integer(sequenceColumn) != sequence) {
            content.amount(400, top, debits);
            content.amount(500, top, credits);
            sequence = rows.integer(sequenceColumn);
            content.text(36, top, content.locale().shortDate(*Date::parseIso(rows.text(date))));
            content.text(100, top, rows.text(number));
            content.text(160, top, rows.text(text));
            debits = credits = Money();
        }
        content.text(56, top, std::string(rows.text(account)) + " - " + std::string(rows.text(name)));
        const Money amount = Money::fromDouble(rows.real(amountColumn));
        if (amount > Money()) {
            debits += amount;
            content.amount(400, top, amount);
        } else {
            credits -= amount;
            content.amount(500, top, -amount);
        }
    }
    return content.deflated();
}

}  // namespace

void printSalesJournal(const std::string& company) {
    run({"SalesJournalDetail", "--company", company, "-o", company + ".pdf", "--session-date", "2025-12-31"});
}

void reportBenches(int rounds) {
    const Folder folder;
    const std::string path = folder.file("demo.db"), pdf = folder.file("journal.pdf");
    writeDemoCompany(path, {scale, 1});
    std::string journalTo, receiptsTo;
    std::int64_t lines = 0, receipts = 0;
    {
        const sqlite::Database company(path, sqlite::Open::readOnly);
        journalTo = dayOf(company, journalRows, 200000);
        lines = countUpTo(company, journalRows, journalTo);
        const std::string receiptRows =
            "SELECT MIN(GLDet.DetDate) AS DetDate FROM GLDet INNER JOIN CashReceiptSequences_View ON "
            "CashReceiptSequences_View.SeqNo = GLDet.SeqNo "
            "INNER JOIN GLAcct ON GLAcct.InGLAcctId = GLDet.ExAcctId WHERE GLAcct.ChqAcct <> 0 AND GLDet.Source IN "
            "('INV', 'PMT', 'TAX') GROUP BY GLDet.SeqNo";
        receiptsTo = dayOf(company, receiptRows, 20000);
        receipts = countUpTo(company, receiptRows, receiptsTo);
    }
    std::size_t kept = 0;
    std::printf("SalesJournalDetail of the demo company, %lld ledger lines, to PDF:\n", static_cast<long long>(lines));
    printRows(
        "(4) the journal; floor: bare loop to deflated content", rounds,
        [&] {
            run({"SalesJournalDetail", "--company", path, "--to", journalTo, "--from", "1899-12-31", "--session-date",
                 "2025-12-31", "-o", pdf});
        },
        [&] { kept += bareJournal(path, journalTo); }, {1.6, 2});

    const double each = seconds([&] {
                            run({"CashReceiptsSummary", "--company", path, "--to", receiptsTo, "--set",
                                 "IsWithPayments=true", "--session-date", "2025-12-31", "-o", pdf});
                        }) *
                        1e6 / static_cast<double>(receipts);
    std::printf(
        "(5) CashReceiptsSummary with payments, %lld receipts, to PDF: %.0f microseconds a receipt (aim 150) %s\n",
        static_cast<long long>(receipts), each, each <= 150 ? "met" : "MISSED");

    const std::string small = folder.file("small.db");
    writeDemoCompany(small, {1, 1});
    const long few = peakMemory({"--sales-journal", small}), many = peakMemory({"--sales-journal", path});
    std::printf(
        "peak memory of the sales journal of all years: %ld KiB at scale 1, %ld KiB at scale %d; difference %ld KiB\n",
        few, many, scale, many - few);
    if (kept == 0) throw std::runtime_error("the bare loop gave nothing");
}

}  // namespace quillo::bench
