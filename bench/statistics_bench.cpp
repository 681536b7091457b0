#include "bench/statistics_bench.h"

#include <cstdio>

#include "bench/measure.h"
#include "host/database/company_schema.h"
#include "host/database/sqlite_handle.h"
#include "host/session/report_job.h"
#include "output/font_measure.h"
#include "output/output_file.h"
#include "output/page_frame.h"
#include "output/pdf/pdf_sink.h"

namespace quillo::bench {
namespace {

// Three years; every fiftieth item is a kit of the three before it, every twentieth document a credit note.
void writeShop(const std::string& path) {
    sqlite::Database company(path, sqlite::Open::create);
    company.execute("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; BEGIN");
    company.execute(std::string(companySchema()));
    company.execute(R"(
        CREATE TEMP TABLE N AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 500000) SELECT i FROM n;
        INSERT INTO Warehouse SELECT i, 'W' || i, 'Warehouse ' || i, 0 FROM N WHERE i <= 3;
        INSERT INTO Item (InItemId, ItemId, Descr1, IsKit)
            SELECT i, printf('I%06d', i), 'Item number ' || i, i % 50 = 0 FROM N WHERE i <= 20000;
        INSERT INTO ItemComponent SELECT N.i, N.i - part.i, 2 FROM N JOIN N AS part ON part.i <= 3
            WHERE N.i <= 20000 AND N.i % 50 = 0;
        INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, ExchangeRate)
            SELECT i, 'F' || i, iif(i % 20 = 0, 3, 1), date('2023-01-01', '+' || (i * 1096 / 125001) || ' days'), 1
            FROM N WHERE i <= 125000;
        INSERT INTO InvoiDet (InInvoiDetId, ExInvoiId, ExItemId, Qty, BaseRowTotal, IsKit, ExWarehouseId)
            SELECT i, (i - 1) / 4 + 1, i * 7919 % 20000 + 1, i % 9 + 1, (i % 9 + 1) * (i % 977 + 100) / 100.0,
                   (i * 7919 % 20000 + 1) % 50 = 0, i % 7 % 3 + 1 FROM N;
        INSERT INTO InvenDet (InTrxId, ExItemId, DetDate, Source, ExSrcKeyVal, Qty, RunningQty, RunningAvgCost,
                              RunningLastCost, ExWarehouseId)
            SELECT InInvoiDetId, ExItemId, InvoiDate, 'INV', InInvoiId, -Qty, 10, 1.25 + InInvoiDetId % 400 / 100.0, 1.5,
                   ExWarehouseId FROM InvoiDet JOIN InvoiHdr ON InInvoiId = ExInvoiId WHERE IsKit = 0;
        COMMIT;)");
}

// Fiscal years whose periods are months, and ten assemblies a day of two components each.
void addConsumption(const std::string& path) {
    sqlite::Database(path, sqlite::Open::readWrite).execute(R"(
        CREATE TEMP TABLE N AS WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 10959) SELECT i FROM n;
        BEGIN;
        INSERT INTO FiscalYear SELECT i, 2022 + i, (2022 + i) || '-01-01', (2022 + i) || '-12-31' FROM N WHERE i BETWEEN 1 AND 3;
        INSERT INTO FiscalPeriod SELECT InFiscalYearId, i, date(StartDate, '+' || (i - 1) || ' months'),
            date(StartDate, '+' || i || ' months', '-1 day') FROM FiscalYear JOIN N ON i BETWEEN 1 AND 12;
        INSERT INTO AssemblyHdr SELECT 1000000 + i, 'A' || i, date('2023-01-01', '+' || (i / 10) || ' days'), 1, 1, 1 FROM N;
        INSERT INTO AssemblyDet SELECT NULL, Id, Id * 31 % 20000 + 1 + part.i, 2, 1.5, 1, NULL FROM AssemblyHdr
            JOIN N AS part ON part.i < 2;
        COMMIT;)");
}

// Tells when the first page came.
class FirstPage final : public PageSink {
public:
    explicit FirstPage(std::unique_ptr<PageSink> inner) : inner_(std::move(inner)) {}
    void page(const Page& page) override {
        note();
        inner_->page(page);
    }
    std::unique_ptr<Page> take(std::unique_ptr<Page> handed) override {
        note();
        return inner_->take(std::move(handed));
    }
    void finish() override { inner_->finish(); }
    double waited() const { return std::chrono::duration<double>(first_ - start_).count(); }
    long count() const { return count_; }

private:
    using Clock = std::chrono::steady_clock;
    void note() {
        if (count_++ == 0) first_ = Clock::now();
    }
    std::unique_ptr<PageSink> inner_;
    Clock::time_point start_ = Clock::now(), first_;
    long count_ = 0;
};

struct Loud final : Messages {
    void Show(std::string_view text) override { throw std::runtime_error(std::string(text)); }
};

// What is before the first page is the query's; behind it come the rows.
void printRun(const char* member, const char* name, const std::string& where, const Folder& folder) {
    Loud messages;
    SessionOptions options;
    options.company = folder.file("shop.db");
    HostSession session(options, messages);
    ReportWish wish;
    wish.from = Date::fromCivil(2025, 1, 1);
    wish.to = Date::fromCivil(2025, 12, 31);
    wish.where = where;
    ReportJob job(session, *clsReport::findMember(member), wish);
    const auto shaper = makeTextShaper();
    FontMeasure measure(shaper);
    auto pdf = std::make_unique<OutputFile>(folder.file("statistics.pdf"));
    FirstPage sink(std::make_unique<PageFrame>(std::make_unique<PdfSink>(std::move(pdf), PdfOptions(), shaper),
                                               job.pageTexts(), measure));
    const double all = seconds([&] { job.run(sink, measure); });
    std::printf("    %s: %.1f s, of which %.1f s to the first page; %ld pages (aim 10 s) %s\n", name, all,
                sink.waited(), sink.count(), all <= 10 ? "met" : "MISSED");
}

}  // namespace

void statisticsBenches() {
    const Folder folder;
    const std::string company = folder.file("shop.db");
    writeShop(company);
    std::printf("(7) SalesStatistic, 20,000 items, 500,000 invoice lines, to PDF on one core:\n");
    printRun("SalesStatistic", "an item a row", "", folder);
    addConsumption(company);
    std::printf("(8) ConsumedStatisticsByPeriod of the same company, to PDF on one core:\n");
    printRun("ConsumedStatisticsByPeriod", "5,000 items by 12 periods", "Item.InItemId <= 5000", folder);
    sqlite::Database(company, sqlite::Open::readWrite)
        .execute("UPDATE CompanyFact SET Value = '1' WHERE Name = 'DefaultWarehouseId'");
    std::printf("(7) with warehouses:\n");
    printRun("SalesStatistic", "an item and warehouse a row", "", folder);
}

}  // namespace quillo::bench
