#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>

#include "apps/quillo/console.h"
#include "bench/ageing_bench.h"
#include "bench/bench_host.h"
#include "bench/content_floor.h"
#include "bench/distribution_bench.h"
#include "bench/measure.h"
#include "bench/report_bench.h"
#include "bench/statistics_bench.h"
#include "framework/engine/engine.h"
#include "host/database/sqlite_database.h"
#include "host/database/sqlite_handle.h"
#include "host/session/host_session.h"
#include "output/font_measure.h"
#include "output/output_file.h"
#include "output/pdf/pdf_sink.h"
#include "output/queued_sink.h"

// A grouped journal of 200,000 rows, by the engine alone, from SQLite, and to PDF with a link on every row; each
// beside its floor in the same run. See docs/performance.md.
namespace quillo::bench {
namespace {

constexpr int rowsInGroup = 4;

constexpr std::string_view journalDesign = R"({
  "name": "Journal",
  "page": {"width": 12240, "height": 15840, "left": 720, "right": 720, "top": 1260, "bottom": 900},
  "sections": [
    {"name": "PageHeader", "kind": "pageHeader", "height": 400, "controls": [
      {"kind": "Label", "name": "lblAcct", "left": 400, "top": 60, "width": 4000, "height": 240, "caption": "Account"},
      {"kind": "Label", "name": "lblDebit", "left": 6400, "top": 60, "width": 2000, "height": 240, "caption": "Debit", "align": "right"},
      {"kind": "Label", "name": "lblCredit", "left": 8600, "top": 60, "width": 2000, "height": 240, "caption": "Credit", "align": "right"}]},
    {"name": "ghSeq", "kind": "groupHeader", "height": 270, "dataField": "SeqNo", "controls": [
      {"kind": "Field", "name": "fldDate", "left": 0, "top": 0, "width": 1400, "height": 240, "dataField": "DetDate"},
      {"kind": "Field", "name": "fldRef", "left": 1500, "top": 0, "width": 1400, "height": 240, "dataField": "DetRef"}]},
    {"name": "Detail", "kind": "detail", "height": 270, "controls": [
      {"kind": "DataControl", "name": "rs"},
      {"kind": "Field", "name": "fldAcct", "left": 400, "top": 0, "width": 1200, "height": 240, "dataField": "AcctId"},
      {"kind": "Field", "name": "fldDescr", "left": 1700, "top": 0, "width": 4500, "height": 240, "dataField": "Descr"},
      {"kind": "Field", "name": "fldDebit", "left": 6400, "top": 0, "width": 2000, "height": 240, "dataField": "Debit", "format": "Currency", "align": "right"},
      {"kind": "Field", "name": "fldCredit", "left": 8600, "top": 0, "width": 2000, "height": 240, "dataField": "Credit", "format": "Currency", "align": "right"}]},
    {"name": "gfSeq", "kind": "groupFooter", "height": 300, "controls": [
      {"kind": "Field", "name": "sumDebit", "left": 6400, "top": 30, "width": 2000, "height": 240, "dataField": "Debit", "sum": "ghSeq", "format": "Currency", "align": "right"},
      {"kind": "Field", "name": "sumCredit", "left": 8600, "top": 30, "width": 2000, "height": 240, "dataField": "Credit", "sum": "ghSeq", "format": "Currency", "align": "right"}]},
    {"name": "ReportFooter", "kind": "reportFooter", "height": 300, "controls": [
      {"kind": "Field", "name": "allDebit", "left": 6400, "top": 30, "width": 2000, "height": 240, "dataField": "Debit", "sum": "report", "format": "Currency", "align": "right"}]}
  ]})";

constexpr const char* query = "SELECT SeqNo, DetDate, DetRef, AcctId, Descr, Debit, Credit FROM Journal ORDER BY Id";

Money amountOf(int row) {
    return Money::fromRaw((row * 7919LL % 900000 + 100) * 100);
}

void writeJournal(const std::string& path, int rows) {
    sqlite::Database database(path, sqlite::Open::create);
    database.execute(
        "CREATE TABLE Journal (Id INTEGER PRIMARY KEY, SeqNo INTEGER, DetDate DATE TEXT, DetRef TEXT, AcctId TEXT, "
        "Descr TEXT, Debit MONEY REAL, Credit MONEY REAL); BEGIN");
    sqlite::Statement insert(database, "INSERT INTO Journal VALUES (?, ?, ?, ?, ?, ?, ?, ?)");
    const char* names[] = {"Accounts receivable", "Sales - kitchens and counters", "GST payable", "QST payable"};
    for (int row = 0; row < rows; ++row) {
        const double amount = amountOf(row).toDouble();
        insert.bind(1, row)
            .bind(2, row / rowsInGroup)
            .bind(3, Date{45000.0 + row / 1000}.isoText())
            .bind(4, "F" + std::to_string(100000 + row / rowsInGroup));
        insert.bind(5, std::to_string(1100 + row % rowsInGroup * 100)).bind(6, names[row % rowsInGroup]);
        insert.bind(7, row % rowsInGroup == 0 ? amount : 0.0).bind(8, row % rowsInGroup == 0 ? 0.0 : amount);
        insert.run();
    }
    database.execute("COMMIT");
}

// The same rows without a database.
class MadeRows final : public Recordset {
public:
    explicit MadeRows(int rows) : rows_(rows) { make(); }
    bool atEnd() const override { return row_ >= rows_; }
    void moveNext() override {
        ++row_;
        make();
    }
    int columnCount() const override { return 7; }
    std::string_view columnName(int column) const override {
        constexpr std::string_view names[] = {"SeqNo", "DetDate", "DetRef", "AcctId", "Descr", "Debit", "Credit"};
        return names[column];
    }
    ValueView value(int column) const override {
        const bool debit = row_ % rowsInGroup == 0;
        switch (column) {
            case 0:
                return ValueView::ofInt32(row_ / rowsInGroup);
            case 1:
                return ValueView::ofDate({45000.0 + row_ / 1000});
            case 2:
                return ValueView::ofText({reference_, 7});
            case 3:
                return ValueView::ofText("1100");
            case 4:
                return ValueView::ofText("Sales - kitchens and counters");
            case 5:
                return ValueView::ofMoney(debit ? amountOf(row_) : Money());
            default:
                return ValueView::ofMoney(debit ? Money() : amountOf(row_));
        }
    }

private:
    void make() {
        reference_[0] = 'F';
        std::to_chars(reference_ + 1, reference_ + 8, 100000 + row_ / rowsInGroup);
    }
    int rows_;
    int row_ = 0;
    char reference_[8] = {};
};

class Journal final : public Report {
public:
    Journal(HostContext& context, std::shared_ptr<Recordset> rows, bool links)
        : Report("Journal", context, journalDesign) {
        dataControl()->Recordset = std::move(rows);
        if (links) onFormat("Detail", &Journal::Detail_Format);
    }

private:
    void Detail_Format() { field("fldAcct").Hyperlink.assign("INV|").append(std::to_string(++key_)); }
    int key_ = 0;
};

class NoPages final : public PageSink {
public:
    void page(const Page& page) override { count += static_cast<long>(page.sections.size()); }
    long count = 0;
};

void runJournal(std::shared_ptr<Recordset> rows, PageSink& sink, bool links) {
    BenchHost host;
    FontMeasure measure;
    Journal report(host, std::move(rows), links);
    if (runReport(report, sink, measure) != RunEnd::done) throw std::runtime_error("the run was stopped");
}

std::shared_ptr<Recordset> openJournal(SqliteDatabase& database) {
    auto command = database.newCommand();
    command->ActiveConnection = database.ConnectionString();
    command->CommandText = query;
    return command->Execute();
}

std::unique_ptr<PageSink> pdfSink(const std::string& file) {
    PdfOptions options;
    options.title = "Journal";
    return std::make_unique<PdfSink>(std::make_unique<OutputFile>(file), options);
}

void journalToPdf(const std::string& database, const std::string& file) {
    SqliteDatabase source(database);
    QueuedSink sink(pdfSink(file));
    runJournal(openJournal(source), sink, true);
}

// First floor: the query's rows and the values of its columns, as they come from SQLite.
long stepQuery(const std::string& path) {
    sqlite::Database database(path, sqlite::Open::readOnly);
    sqlite::Statement rows(database, query);
    long sum = 0;
    while (rows.step()) {
        for (const int column : {1, 2, 3, 4}) sum += static_cast<long>(rows.text(column).size());
        sum += rows.integer(0) + static_cast<long>(rows.real(5) + rows.real(6));
    }
    return sum;
}

// Second floor: the query, the amounts formatted, the texts as PDF content, deflated page by page.
std::size_t bareLoop(const std::string& path) {
    sqlite::Database database(path, sqlite::Open::readOnly);
    sqlite::Statement rows(database, query);
    ContentFloor content;
    Money debits, credits;
    for (int row = 0; rows.step(); ++row) {
        const int top = content.nextLine();
        if (row % rowsInGroup == 0) {
            content.text(36, top, content.locale().shortDate(*Date::parseIso(rows.text(1))));
            content.text(100, top, rows.text(2));
            debits = credits = Money();
        }
        const Money debit = Money::fromDouble(rows.real(5)), credit = Money::fromDouble(rows.real(6));
        debits += debit, credits += credit;
        content.text(56, top, rows.text(3));
        content.text(120, top, rows.text(4));
        content.amount(400, top, debit);
        content.amount(500, top, credit);
        if (row % rowsInGroup != rowsInGroup - 1) continue;
        content.amount(400, top - 12, debits);
        content.amount(500, top - 12, credits);
    }
    return content.deflated();
}

int engineBenches(int rounds) {
    const Folder folder;
    constexpr int rows = 200000;
    const std::string database = folder.file("journal.db"), pdf = folder.file("journal.pdf");
    writeJournal(database, rows);
    long kept = 0;
    std::printf("%-58s %10s %10s %7s\n", "work, 200,000 rows; medians of rounds taken in turn", "work", "floor",
                "ratio");
    const auto floor1 = [&] { kept += stepQuery(database); };
    printRow("(1) engine alone, rows in memory; floor: stepping the query",
             measure(
                 rounds,
                 [&] {
                     NoPages sink;
                     runJournal(std::make_shared<MadeRows>(rows), sink, false);
                 },
                 floor1),
             5);
    printRow("(2) engine from SQLite; floor: stepping the query",
             measure(
                 rounds,
                 [&] {
                     SqliteDatabase source(database);
                     NoPages sink;
                     runJournal(openJournal(source), sink, false);
                 },
                 floor1),
             5);
    printRows(
        "(3) to PDF, a link a row; floor: bare loop to deflated content", rounds, [&] { journalToPdf(database, pdf); },
        [&] { kept += static_cast<long>(bareLoop(database)); }, {1.4, 2.2});

    const std::string small = folder.file("small.db");
    writeJournal(small, rows / 10);
    const long few = peakMemory({"--to-pdf", small, pdf}), many = peakMemory({"--to-pdf", database, pdf});
    std::printf("peak memory to PDF: %ld KiB at 20,000 rows, %ld KiB at 200,000; difference %ld KiB (aim 4096) %s\n",
                few, many, many - few, many - few <= 4096 ? "met" : "MISSED");
    distributionBench();
    return kept == 0;
}

}  // namespace
}  // namespace quillo::bench

int main(int count, char** values) {
    using namespace quillo::bench;
    try {
        if (count == 4 && std::strcmp(values[1], "--to-pdf") == 0) {
            journalToPdf(values[2], values[3]);
            printPeakMemory();
            return 0;
        }
        if (count == 3 && std::strcmp(values[1], "--sales-journal") == 0) {
            printSalesJournal(values[2]);
            printPeakMemory();
            return 0;
        }
        if (count == 3 && std::strcmp(values[1], "--ageing") == 0) {
            printAgeing(values[2]);
            printPeakMemory();
            return 0;
        }
        if (count == 4 && std::strcmp(values[1], "--distribution") == 0) {
            limitMemory(1024);
            printDistribution(std::atoi(values[2]), values[3]);
            printPeakMemory();
            return 0;
        }
        if (count == 2 && std::strcmp(values[1], "--statistics") == 0) {
            statisticsBenches();
            return 0;
        }
        const int rounds = count > 1 ? std::atoi(values[1]) : 5;
        engineBenches(rounds);
        reportBenches(rounds);
        ageingBench(rounds);
        statisticsBenches();
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << "bench: " << failure.what() << '\n';
        return 1;
    }
}
