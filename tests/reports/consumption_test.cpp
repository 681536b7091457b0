#include <gtest/gtest.h>

#include "host/drill/drill_target.h"
#include "tests/company/demo_file.h"
#include "tests/support/report_runner.h"

namespace quillo::test {
namespace {

using Texts = std::vector<std::string>;

// Bolts stand twice on F10 and leave for an assembly; nuts leave in a kit, on a document without a rate and in an
// assembly that knows no cost. Fiscal years begin in April, the third one a month late.
constexpr const char* shop = R"(
    INSERT INTO Segment VALUES (1, 'S1', 'East'), (2, 'S2', 'West');
    INSERT INTO FiscalYear VALUES (1, '2023-2024', '2023-04-01', '2024-03-31'), (2, '2024-2025', '2024-04-01', '2025-03-31'),
        (3, '2025-2026', '2025-05-01', '2026-04-30');
    INSERT INTO FiscalPeriod VALUES (1, 1, '2023-04-01', '2023-12-31'), (1, 2, '2024-01-01', '2024-03-31'),
        (2, 1, '2024-04-01', '2024-06-30'), (2, 2, '2024-07-01', '2025-03-31'), (3, 1, '2025-05-01', '2026-04-30');
    INSERT INTO Item (InItemId, ItemId, Descr1, IsKit) VALUES (1, 'BOLT', 'Bolt', 0), (2, 'KIT', 'Kit', 1), (3, 'NUT', 'Nut', NULL);
    INSERT INTO InvenDet (InTrxId, ExItemId, DetDate, Source) VALUES (1, 1, '2022-01-01', 'PUR'), (2, 1, '2024-02-10', 'INV'),
        (3, 1, '2024-08-05', 'ASB'), (4, 1, '2030-01-01', 'PUR');
    INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, ExchangeRate) VALUES (10, 'F10', 1, '2024-02-10', 1),
        (11, 'N11', 3, '2024-05-01', 1.5), (12, 'F12', 2, '2024-07-01', NULL), (13, 'O13', 51, '2024-05-01', 1);
    INSERT INTO InvoiDet (InInvoiDetId, ExInvoiId, ExItemId, Qty, QtyScrap, BaseRowTotal, ExKitInvoiDetId, ExSegmentId) VALUES
        (1, 10, 1, 5, 1, 40, NULL, 1), (2, 10, 1, 1, NULL, 9.99, NULL, 1), (3, 11, 1, 2, NULL, 8, NULL, 2),
        (4, 12, 3, 3, NULL, 6, NULL, NULL), (5, 10, 2, 1, NULL, 100, NULL, 1), (6, 10, 3, 2, NULL, 0, 5, 1), (7, 13, 1, 9, NULL, 9, NULL, 1);
    INSERT INTO AssemblyHdr VALUES (20, 'A20', '2024-08-05', 2, 1, 1);
    INSERT INTO AssemblyDet VALUES (1, 20, 1, 4, 1.25, 1, NULL), (2, 20, 3, 1, NULL, 1, 2);)";

class Consumption : public testing::Test {
protected:
    const TestCompany company{shop};

    ReportRun list() const {
        return {
            .member = "ConsumedStatisticsByItem", .company = company.path(), .from = "2024-01-01", .to = "2024-12-31"};
    }
    ReportRun periods(const char* from = "", const char* to = "") const {
        return {.member = "ConsumedStatisticsByPeriod", .company = company.path(), .from = from, .to = to};
    }
};

std::string joined(const ReportResult& result, std::size_t row, const std::vector<const char*>& names) {
    std::string text;
    for (const char* name : names) text += (text.empty() ? "" : " ") + nth(result.texts(name), row);
    return text;
}

Texts rowsOf(const ReportResult& result, const std::vector<const char*>& names) {
    Texts rows;
    for (std::size_t i = 0; i < result.texts(names.front()).size(); ++i) rows.push_back(joined(result, i, names));
    return rows;
}

Texts listRows(const ReportResult& result) {
    return rowsOf(result, {"txtTrxDate", "txtTrxType", "txtNoDoc", "txtQty", "txtSalesAmnt", "txtExtAmnt"});
}

Texts periodRows(const ReportResult& result) {
    return rowsOf(result, {"txtFromDate", "txtToDate", "txtSalesAmnt", "txtSaleQty", "txtAssQty", "txtConQty"});
}

TEST_F(Consumption, ListsWhatLeftTheStockWithItsSalesOrItsCost) {
    for (const int dialect : {0, 1}) {
        ReportRun run = list();
        run.dialect = dialect;
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        EXPECT_EQ(result.texts("txtItem"), (Texts{"BOLT - Bolt", "KIT - Kit", "NUT - Nut"}));
        EXPECT_EQ(result.links("txtItem"), (Texts{"ITM|1", "ITM|2", "ITM|3"}));
        EXPECT_EQ(listRows(result),
                  (Texts{"2024-02-10 Invoice F10 4 $40.00 $0.00", "2024-02-10 Invoice F10 4 $9.99 $0.00",
                         "2024-02-10 Invoice F10 1 $40.00 $0.00", "2024-02-10 Invoice F10 1 $9.99 $0.00",
                         "2024-05-01 Credit note N11 -2 -$12.00 $0.00", "2024-08-05 Assembly A20 4 $0.00 $5.00",
                         "2024-02-10 Invoice F10 1 $100.00 $0.00", "2024-02-10 Invoice F10 2 $0.00 $0.00",
                         "2024-07-01 Invoice F12 3 $0.00 $0.00", "2024-08-05 Assembly A20 1 $0.00 $0.00"}));
        EXPECT_EQ(rowsOf(result, {"txtQtyTotal", "txtSoldTotal", "txtExtTotal"}),
                  (Texts{"12 $87.98 $5.00", "1 $100.00 $0.00", "6 $0.00 $0.00"}));
        EXPECT_EQ(joined(result, 0, {"txtQtyGTotal", "txtSoldGTotal", "txtExtGTotal"}), "19 $187.98 $5.00");
        EXPECT_EQ(result.only("lblEnd"), "10 record(s)");
        for (const char* name : {"txtTrxType", "txtTrxDate", "txtNoDoc", "txtQty", "txtSalesAmnt", "txtExtAmnt"}) {
            EXPECT_EQ(nth(result.links(name), 4), "INV|11") << name;
            EXPECT_EQ(nth(result.links(name), 5), "ASB|20") << name;
        }
    }
}

TEST_F(Consumption, ListNarrowsToAnItemAFilterAndSegmentsWithOrWithoutKits) {
    const auto codes = [&](const std::function<void(ReportRun&)>& ask) {
        ReportRun run = list();
        ask(run);
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        return result.texts("txtItem");
    };
    const Texts all = {"BOLT - Bolt", "KIT - Kit", "NUT - Nut"};
    EXPECT_EQ(codes([](ReportRun& run) { run.properties["InItemId"] = "3"; }), Texts{"NUT - Nut"});
    EXPECT_EQ(codes([](ReportRun& run) { run.properties["InItemId"] = "-3"; }), all);
    EXPECT_EQ(codes([](ReportRun& run) { run.options = {{"chkIncludeKit", false}}; }), (Texts{all[0], all[2]}));
    EXPECT_EQ(codes([](ReportRun& run) { run.segments = "2"; }), (Texts{all[0], all[2]}));
    ReportRun run = list();
    run.noSegment = true;
    run.order = "Item.Descr1, Item.InItemId DESC";
    EXPECT_EQ(runReport(run).texts("txtNoDoc"), (Texts{"A20", "F12"}));
    run.where = "Item.ItemId = 'NUT'";
    EXPECT_EQ(runReport(run).texts("txtNoDoc"), Texts{"F12"});
}

TEST_F(Consumption, ByPeriodPrintsEachItemInEachPeriodFromTheFirstMovementOn) {
    for (const int dialect : {0, 1}) {
        ReportRun run = periods();
        run.dialect = dialect;
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        EXPECT_EQ(result.texts("txtItem"), (Texts{"BOLT - Bolt", "KIT - Kit", "NUT - Nut"}));
        const Texts rows = periodRows(result);
        ASSERT_EQ(rows.size(), 12U) << "the year behind the last movement is not asked for";
        EXPECT_EQ(Texts(rows.begin(), rows.begin() + 6),
                  (Texts{"2023-04-01 2023-12-31 $0.00 0 0 0", "2024-01-01 2024-03-31 $49.99 5 0 5",
                         "2024-04-01 2024-06-30 -$12.00 -2 0 -2", "2024-07-01 2025-03-31 $0.00 0 4 4",
                         "2023-04-01 2023-12-31 $0.00 0 0 0", "2024-01-01 2024-03-31 $100.00 1 0 1"}));
        EXPECT_EQ(rows[9] + " / " + rows[11], "2024-01-01 2024-03-31 $0.00 0 0 2 / 2024-07-01 2025-03-31 $6.00 3 1 4");
        EXPECT_EQ(rowsOf(result, {"txtSoldTotal", "txtSaleQtyTotal", "txtAssQtyTotal", "txtConQtyTotal"}),
                  (Texts{"$37.99 3 4 7", "$100.00 1 0 1", "$6.00 3 1 6"}));
        EXPECT_EQ(joined(result, 0, {"txtSoldGTotal", "txtSaleQtyGTotal", "txtAssQtyGTotal", "txtConQtyGTotal"}),
                  "$143.99 7 5 14");
        EXPECT_EQ(result.only("lblEnd"), "3 record(s)");
        EXPECT_EQ(first(result.links("txtItem")), "ITM|1");
        for (const char* name : {"txtFromDate", "txtToDate", "txtSalesAmnt", "txtSaleQty", "txtAssQty", "txtConQty"})
            EXPECT_EQ(nth(result.links(name), 11), "3|2024-07-01|2025-03-31") << name;
    }
}

TEST_F(Consumption, AFigureOfAPeriodLeadsToWhatItIsMadeOf) {
    const std::string tag = last(runReport(periods()).links("txtConQty"));
    const ReportTarget target = readDrillTag(tag, [](std::string_view) { return TillKey::user; }).report;
    ReportRun run{.member = target.member, .company = company.path(), .from = target.from, .to = target.to};
    run.properties.insert(target.properties.begin(), target.properties.end());
    const auto result = runReport(run);
    EXPECT_EQ(result.texts("txtNoDoc"), (Texts{"F12", "A20"}));
    EXPECT_EQ(result.only("txtQtyGTotal"), "4");
}

// The periods of the first item.
TEST_F(Consumption, PeriodsAreClippedToTheRange) {
    const TestCompany early(std::string(shop) + "UPDATE InvenDet SET Source = 'INV'");
    const TestCompany unmoved(std::string(shop) + "DELETE FROM InvenDet");
    const struct {
        const TestCompany& of;
        const char *from, *to;
        Texts days;
    } cases[] = {
        {company, "2024-03-15", "2024-04-01", {"2024-03-15 2024-03-31", "2024-04-01 2024-04-01"}},
        {company, "2024-05-02", "2024-05-20", {"2024-05-02 2024-05-20"}},
        {unmoved, "2024-05-02", "2024-05-20", {"2024-05-02 2024-05-20"}},
        {company, "2022-05-01", "2024-01-01", {"2023-04-01 2023-12-31", "2024-01-01 2024-01-01"}},
        {early, "2022-05-01", "2023-04-30", {"2023-04-01 2023-04-30"}},  // before the first year
        {early, "2025-03-31", "2025-05-01", {"2025-03-31 2025-03-31", "2025-05-01 2025-05-01"}},
        {early, "2025-04-10", "2025-05-02", {"2025-05-01 2025-05-02"}},  // between two years
        {early, "2025-04-10", "2025-04-12", {}},
        {early, "2026-05-01", "2026-05-31", {}},                           // behind the last one
        {company, "2025-05-02", "2025-05-31", {"2025-05-02 2025-05-31"}},  // behind the last movement
    };
    for (const auto& [of, from, to, days] : cases) {
        ReportRun run = periods(from, to);
        run.company = of.path();
        run.where = "ItemId = 'BOLT'";
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        EXPECT_EQ(rowsOf(result, {"txtFromDate", "txtToDate"}), days) << from << " to " << to;
        EXPECT_EQ(result.only("lblEnd"), days.empty() ? "0 record(s)" : "1 record(s)");
    }
}

TEST_F(Consumption, PeriodsOfOneItemAndOfSegmentsAgreeWithThoseOfAll) {
    for (const char* segments : {"", "1", "2"}) {
        ReportRun run = periods("2024-01-01", "2024-12-31");
        run.segments = segments;
        run.noSegment = segments == std::string("1");
        const Texts all = periodRows(runReport(run));
        ASSERT_EQ(all.size(), 9U);
        run.properties["InItemId"] = "3";
        run.options = {{"chkIncludeKit", false}};
        const auto one = runReport(run);
        EXPECT_EQ(one.boxes, Texts{});
        EXPECT_EQ(periodRows(one), Texts(all.begin() + 6, all.end())) << segments;
    }
    ReportRun run = periods("2024-01-01", "2024-12-31");
    run.segments = "2";
    EXPECT_EQ(joined(runReport(run), 0, {"txtSoldGTotal", "txtSaleQtyGTotal", "txtAssQtyGTotal", "txtConQtyGTotal"}),
              "-$12.00 -2 1 -1");
    run.options = {{"chkIncludeKit", false}};
    run.order = "Item.Descr1 DESC";
    EXPECT_EQ(runReport(run).texts("txtItem"), (Texts{"BOLT - Bolt", "NUT - Nut"}));
    run.cancelFilter = true;
    EXPECT_EQ(runReport(run).only("lblEnd"), "0 record(s)");
}

TEST_F(Consumption, OnlyTheListKnowsWarehouses) {
    const TestCompany stocked(std::string(shop) +
                              "INSERT INTO Warehouse VALUES (1, 'M', 'Main', 0);"
                              "UPDATE CompanyFact SET Value = '1' WHERE Name = 'DefaultWarehouseId'");
    ReportRun run = list();
    run.company = stocked.path();
    run.where = "Warehouse.Name = 'Main'";
    EXPECT_EQ(runReport(run).texts("txtNoDoc"), (Texts{"A20", "A20"}));
    run.member = "ConsumedStatisticsByPeriod";
    const auto result = runReport(run);
    ASSERT_EQ(result.boxes.size(), 1U);
    EXPECT_EQ(result.boxes[0].find("no such column: Warehouse.Name"), 0U) << result.boxes[0];
    EXPECT_EQ(result.only("lblEnd"), "0 record(s)");
}

// The demo company by queries that share nothing with the reports' but the documents.
TEST(ConsumptionOfTheDemo, AgreesWithTheDocuments) {
    const DemoFile demo;
    const sqlite::Database file(demo.path(), sqlite::Open::readOnly);
    sqlite::Statement row(
        file,
        "WITH Line AS (SELECT InvoiDet.*, CASE InvoiType WHEN 3 THEN -1 ELSE 1 END AS Sign, ExchangeRate, Item.Servc "
        "AS "
        "Work FROM InvoiDet JOIN InvoiHdr ON InInvoiId = ExInvoiId JOIN Item ON InItemId = ExItemId WHERE InvoiType < "
        "50 "
        "AND InvoiDate BETWEEN ?1 AND ?2), Used AS (SELECT AssemblyDet.Qty FROM AssemblyDet JOIN AssemblyHdr ON Id = "
        "ExId WHERE "
        "AssemblyDate BETWEEN ?1 AND ?2) SELECT (SELECT SUM(Sign * ROUND(BaseRowTotal * ExchangeRate, 2)) FROM Line "
        "WHERE "
        "ExKitInvoiDetId IS NULL), (SELECT SUM(Sign * (Qty - COALESCE(QtyScrap, 0))) FROM Line WHERE ExKitInvoiDetId "
        "IS "
        "NULL), (SELECT SUM(Qty) FROM Used), (SELECT SUM(Sign * (Qty - COALESCE(QtyScrap, 0))) FROM Line WHERE "
        "COALESCE(Work, 0) = 0)");
    row.bind(1, "2025-01-15").bind(2, "2025-12-31").step();
    const LocaleFormat format;
    const auto plain = [&](double number) { return format.plainNumber(Variant(Money::fromDouble(number))); };
    const auto byPeriod = runReport(
        {.member = "ConsumedStatisticsByPeriod", .company = demo.path(), .from = "2025-01-15", .to = "2025-12-31"});
    EXPECT_EQ(byPeriod.boxes, Texts{});
    EXPECT_EQ(joined(byPeriod, 0, {"txtSoldGTotal", "txtSaleQtyGTotal", "txtAssQtyGTotal", "txtConQtyGTotal"}),
              format.currency(Money::fromDouble(row.real(0))) + " " + plain(row.real(1)) + " " + plain(row.real(2)) +
                  " " + plain(row.real(2) + row.real(3)));
    EXPECT_EQ(byPeriod.only("lblEnd"), std::to_string(byPeriod.texts("txtFromDate").size() / 12) + " record(s)");
}

}  // namespace
}  // namespace quillo::test
