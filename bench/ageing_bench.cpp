#include "bench/ageing_bench.h"

#include <cstdio>
#include <sstream>

#include "apps/quillo/program.h"
#include "bench/content_floor.h"
#include "bench/measure.h"
#include "demo/demo_company.h"
#include "framework/services/services.h"
#include "host/database/row_set.h"
#include "host/database/sqlite_handle.h"
#include "host/session/host_session.h"

namespace quillo::bench {
namespace {

constexpr const char* closing = "2025-12-31";

// Customers beside those of the demo company, five open documents each, one in two of them paid in part.
void addReceivables(const std::string& path, int customers) {
    sqlite::Database company(path, sqlite::Open::readWrite);
    const std::string count = std::to_string(customers);
    company.execute(
        "BEGIN; WITH RECURSIVE Made(N) AS (SELECT 1 UNION ALL SELECT N + 1 FROM Made WHERE N < " + count +
        ") INSERT INTO Cust (InCustId, CustId, Name, Contact, Tel1, ExCurrencyId) SELECT 1000000 + N, 'B' || N,"
        " 'Customer ' || N || ' and Partners', 'Al', '555-0100', 1 FROM Made;"
        "WITH RECURSIVE Made(N) AS (SELECT 0 UNION ALL SELECT N + 1 FROM Made WHERE N + 1 < 5 * " +
        count +
        ") INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, ExCustId, ExCurrencyId, ExchangeRate,"
        " TotAmnt) SELECT 10000000 + N, 'Z' || N, 1, date('2025-06-01', '+' || (N % 200) || ' days'),"
        " 1000001 + N / 5, 1, 1, 100 + N % 90000 + 0.25 FROM Made;"
        "INSERT INTO PmtHdr (InPmtId, PmtDate, ChqNo, ExCustId, ExCurrencyId, ExchangeRate, PmtTotAmnt)"
        " SELECT InInvoiId, InvoiDate, InvoiId, ExCustId, 1, 1, 50 FROM InvoiHdr"
        " WHERE InInvoiId >= 10000000 AND InInvoiId % 2 = 0;"
        "INSERT INTO PmtDet (ExPmtId, ExInvoiId, PmtAmnt) SELECT InPmtId, InPmtId, 50 FROM PmtHdr"
        " WHERE InPmtId >= 10000000; COMMIT; ANALYZE");
}

class NoMessages final : public Messages {
public:
    void Show(std::string_view text) override { throw std::runtime_error(std::string(text)); }
};

// The list as the report asks for it.
std::shared_ptr<Recordset> list(HostSession& session) {
    const auto rows = session.company().customers().GetCustAgingList(
        false, 0, *Date::parseIso(closing), "",
        "(Name + LEFT(ExCustId,1000)), CustAgingList.DocOrderDate, CustAgingList.DocOrderId, CustAgingList.InvoiType, "
        "CustAgingList.InvoiDate",
        "", "", true, 0);
    rows->setFilter("DocType <> 3 Or InvoiType <> 99 Or InInvoiId = Null");
    return rows->inner();
}

long stepList(const std::string& path) {
    NoMessages messages;
    SessionOptions options;
    options.company = path;
    HostSession session(options, messages);
    long rowsSeen = 0;
    for (const auto rows = list(session); !rows->atEnd(); rows->moveNext()) ++rowsSeen;
    return rowsSeen;
}

// What the report prints of the list as content: a line a row, a customer's fields and its totals.
class AgeingFloor {
public:
    explicit AgeingFloor(const RowSet& rows) : rows_(rows) {}

    std::size_t deflated() {
        const int customer = rows_.find("CustNameID"), number = rows_.find("InvoiId"), date = rows_.find("InvoiDate"),
                  balance = rows_.find("Balance");
        for (std::size_t row = 0; row < rows_.rowCount(); ++row) {
            if (row == 0 || rows_.at(row, customer).textView() != rows_.at(row - 1, customer).textView()) enter(row);
            const int top = content_.nextLine();
            const Money amount = rows_.at(row, balance).moneyOrZero();
            total_ += amount;
            content_.text(180, top, rows_.at(row, number).textView());
            content_.text(230, top, "Invoice");
            content_.text(280, top, content_.locale().shortDate(rows_.at(row, date).toDate()));
            content_.amount(330, top, amount);
            content_.amount(520, top, total_);
        }
        return content_.deflated();
    }

private:
    void enter(std::size_t row) {
        const int top = content_.nextLine();
        for (int column = 0; column < 5; ++column) content_.amount(330 + column * 50, top, total_);
        content_.text(100, top, "Total");
        total_ = {};
        for (const char* column : {"CustId", "Name", "Contact", "Tel1", "Descr"})
            content_.text(36, top, rows_.at(row, rows_.find(column)).textView());
    }

    const RowSet& rows_;
    ContentFloor content_;
    Money total_;
};

RowSet heldList(const std::string& path) {
    NoMessages messages;
    SessionOptions options;
    options.company = path;
    HostSession session(options, messages);
    return RowSet(*list(session));
}

void makeCompany(const std::string& path, int customers) {
    writeDemoCompany(path, {1, 1});
    addReceivables(path, customers);
}

}  // namespace

void printAgeing(const std::string& company) {
    std::ostringstream out, err;
    const app::Console console{out, err};
    if (app::runProgram({"run", "CustAgingDetail", "--company", company, "--to", closing, "--session-date", closing,
                         "-o", company + ".pdf"},
                        console) != 0)
        throw std::runtime_error(err.str());
}

void ageingBench(int rounds) {
    const Folder folder;
    const std::string path = folder.file("receivables.db"), small = folder.file("few.db");
    constexpr int customers = 20000;
    constexpr double aim = 2;
    makeCompany(path, customers);
    makeCompany(small, customers / 10);
    long listed = 0;
    const Pair whole = measure(
        rounds, [&] { printAgeing(path); }, [&] { listed = stepList(path); });
    std::size_t kept = 0;
    const RowSet rows = heldList(path);
    const Pair glyphs = measure(
        rounds, [&] { kept += AgeingFloor(rows).deflated(); }, [&] { kept += AgeingFloor(rows).deflated(); });
    const double ratio = (whole.work - whole.floor) / glyphs.work;
    std::printf(
        "(6) CustAgingDetail, %d customers more with five open documents each, %ld rows, to PDF: %.3f s; its list "
        "alone "
        "%.3f s; bare loop to deflated content %.3f s; what is above the list by the bare loop %.2f (aim %.0f) %s\n",
        customers, listed, whole.work, whole.floor, glyphs.work, ratio, aim, ratio <= aim ? "met" : "MISSED");
    const long few = peakMemory({"--ageing", small}), many = peakMemory({"--ageing", path});
    std::printf("peak memory of it: %ld KiB at a tenth, %ld KiB at the whole; difference %ld KiB\n", few, many,
                many - few);
    if (kept == 0) throw std::runtime_error("the bare loop gave nothing");
}

}  // namespace quillo::bench
