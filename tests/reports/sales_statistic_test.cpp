#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "dialogs/FSalesStatsFilter.h"
#include "framework/values/errors.h"
#include "tests/company/demo_file.h"
#include "tests/support/report_runner.h"

namespace quillo::test {
namespace {

using Texts = std::vector<std::string>;

// Main and Quebec City are open, the third warehouse is closed. Bolts moved last at 3.00 (3.25 by the last purchase) on
// 15 March 2024, in Quebec City at 2.50 before; a kit holds two bolts and a nut. Gifts have units without an amount;
// nobody ever counted the new ones; the old ones sold a year ago alone.
constexpr const char* shop = R"(
    INSERT INTO Segment VALUES (1, 'S1', 'East'), (2, 'S2', 'West');
    INSERT INTO Warehouse VALUES (1, 'M', 'Main', 0), (2, 'Q', 'Quebec City', NULL), (3, 'X', 'Closed', 1);
    INSERT INTO Category VALUES (1, 'Hardware');
    INSERT INTO Item (InItemId, ItemId, Descr1, IsKit, ExCategoryId) VALUES (1, 'BOLT', 'Bolt M8', 0, 1),
        (2, 'KIT', 'Bolts and a nut', 1, NULL), (3, 'NUT', 'Nut M8', NULL, 1), (4, 'GIFT', 'Gift', 0, NULL),
        (5, 'OLD', 'Old lock', 0, NULL), (6, 'NEW', 'New lock', 0, NULL);
    INSERT INTO ItemComponent VALUES (2, 1, 2), (2, 3, 1);
    INSERT INTO InvenDet VALUES
        (1, 1, '2023-02-01', 'PUR', NULL, 20, 40, 20, 2, 2.1, 1, 1), (2, 1, '2023-03-20', 'PUR', NULL, 9, 20, 29, 2.2, 2.3, 1, 1),
        (3, 1, '2024-02-10', 'PUR', NULL, 9, 30, 9, 2.5, 2.6, 2, NULL), (4, 1, '2024-03-15', 'PUR', NULL, 9, 40, 38, 3, 3.25, 1, 2),
        (5, 1, '2024-04-02', 'PUR', NULL, 9, 90, 47, 9, 9, 1, 1), (6, 3, '2023-01-01', 'PUR', NULL, 9, 9, 9, 1, 1.5, 1, 1),
        (7, 4, '2023-01-01', 'PUR', NULL, 9, 45, 9, 5, 5, 1, 1), (8, 5, '2023-01-01', 'PUR', NULL, 9, 36, 9, 4, 4, 1, 1),
        (9, 1, '2024-03-01', 'PUR', NULL, 9, 30, 9, 7, 7, 3, 1);
    INSERT INTO InvoiHdr (InInvoiId, InvoiType, InvoiDate, ExchangeRate) VALUES (1, 1, '2024-03-05', 1),
        (2, 3, '2024-03-10', 1), (3, 1, '2023-03-31', 1), (4, 2, '2024-03-31', 1), (5, 1, '2024-04-01', 1),
        (6, 51, '2024-03-06', 1);
    INSERT INTO InvoiDet (InInvoiDetId, ExInvoiId, ExItemId, Qty, BaseRowTotal, IsKit, ExKitInvoiDetId, ExWarehouseId) VALUES
        (1, 1, 1, 10, 100, 0, NULL, 1), (2, 1, 2, 3, 90, 1, NULL, 1), (3, 1, 1, 6, 0, 0, 2, 1), (4, 1, 4, 1, 0, 0, NULL, 1),
        (5, 1, 6, 1, 50, 0, NULL, 1), (6, 2, 1, 2, 20, 0, NULL, 1), (7, 3, 1, 4, 40, 0, NULL, 1), (8, 3, 5, 2, 30, 0, NULL, 1),
        (9, 4, 3, 1.5, 4.5, 0, NULL, 2), (10, 4, 1, 0.5, 5.25, 0, NULL, 2), (11, 5, 1, 99, 99, 0, NULL, 1),
        (12, 6, 1, 99, 99, 0, NULL, 1), (13, 4, 1, 9, 9, 0, NULL, 3);)";
constexpr const char* withWarehouses = "UPDATE CompanyFact SET Value = '1' WHERE Name = 'DefaultWarehouseId';";
constexpr const char* closedSoldNothing = "DELETE FROM InvoiDet WHERE ExWarehouseId = 3;";

class SalesStatistic : public testing::Test {
protected:
    const TestCompany plain{std::string(shop) + closedSoldNothing};

    ReportRun march(const TestCompany& company) const {
        return {.member = "SalesStatistic", .company = company.path(), .from = "2024-03-01", .to = "2024-03-31"};
    }
    static ReportRun with(ReportRun run, std::vector<std::pair<std::string, Variant>> options) {
        run.options = std::move(options);
        return run;
    }
};

std::string lineOf(const ReportResult& result, std::size_t row, const std::array<const char*, 5>& names) {
    std::string text;
    for (const char* name : names) text += (text.empty() ? "" : " ") + nth(result.texts(name), row);
    return text;
}

constexpr std::array<const char*, 5> thisYear = {"lblQtyThisYear", "lblSalesThisYear", "lblPriceThisYear",
                                                 "lblMargeDol1", "lblMarge1"};
constexpr std::array<const char*, 5> lastYear = {"lblQtyLastYear", "lblSalesLastYear", "lblPriceLastYear",
                                                 "lblMargeDol2", "lblMarge2"};

// Each row as a reader finds it: this year over last year.
Texts rowsOf(const ReportResult& result) {
    Texts rows;
    const Texts items = result.texts("fldItem");
    const bool compared = !result.texts(lastYear[0]).empty();
    for (std::size_t i = 0; i < result.texts(thisYear[0]).size(); ++i)
        rows.push_back((items.empty() ? "" : items[i] + ": ") + lineOf(result, i, thisYear) +
                       (compared ? " / " + lineOf(result, i, lastYear) : ""));
    return rows;
}

Texts parametersOf(const ReportResult& result) {
    for (const std::string& line : result.sql) {
        const auto query = nlohmann::json::parse(line);
        if (query["text"].get<std::string>().find("ItemSoldUnits_View") != std::string::npos)
            return query["parameters"].get<Texts>();
    }
    return {"no query"};
}

TEST_F(SalesStatistic, ComparesWhatEachItemSoldAndWhatItCost) {
    for (const int dialect : {0, 1}) {
        ReportRun run = march(plain);
        run.dialect = dialect;
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        EXPECT_EQ(rowsOf(result), (Texts{
                                      "BOLT: 8.5 $85.25 $25.50 $59.75 70.09% / 4 $40.00 $8.80 $31.20 78.00%",
                                      "KIT: 3 $90.00 $7.00 $83.00 92.22% / 0 $0.00 $5.40 -$5.40 --",
                                      "NUT: 1.5 $4.50 $1.50 $3.00 66.67% / 0 $0.00 $0.00 $0.00 --",
                                      "OLD: 0 $0.00 $0.00 $0.00 -- / 2 $30.00 $8.00 $22.00 73.33%",
                                  }));
        EXPECT_EQ(lineOf(result, 0,
                         {"lblQtyThisYearTot", "lblSalesThisYearTot", "lblTotalPriceCurrent", "lblTotalProfitCurrent",
                          "lblTotalPercentCurrent"}),
                  "13.00 $179.75 $34.00 $145.75 81.08%");
        EXPECT_EQ(lineOf(result, 0,
                         {"lblQtyLastYearTot", "lblSalesLastYearTot", "lblTotalPriceLast", "lblTotalProfitLast",
                          "lblTotalPercentLast"}),
                  "6.00 $70.00 $22.20 $47.80 68.29%");
        EXPECT_EQ(result.only("lblEnd"), "4 item(s)");
        for (const char* name : {"fldItem", "fldDescr", "lblQtyThisYear", "lblMarge1", "lblSalesLastYear", "lblMarge2"})
            EXPECT_EQ(result.links(name), (Texts{"ITM|1", "ITM|2", "ITM|3", "ITM|5"})) << name;
        EXPECT_EQ(parametersOf(result),
                  (Texts{"2024-03-31", "2024-03-31", "2024-03-01", "2024-03-31", "2024-03-01", "2024-03-31",
                         "2023-03-31", "2023-03-31", "2023-03-01", "2023-03-31", "2023-03-01", "2023-03-31"}));
    }
}

TEST_F(SalesStatistic, CostsFollowTheLastPurchaseWhereTheCompanyReckonsSo) {
    ReportRun run = march(plain);
    run.parameters = {{"CostCalculMeth", "1"}};
    EXPECT_EQ(rowsOf(runReport(run)), (Texts{
                                          "BOLT: 8.5 $85.25 $27.63 $57.63 67.60% / 4 $40.00 $9.20 $30.80 77.00%",
                                          "KIT: 3 $90.00 $8.00 $82.00 91.11% / 0 $0.00 $6.10 -$6.10 --",
                                          "NUT: 1.5 $4.50 $2.25 $2.25 50.00% / 0 $0.00 $0.00 $0.00 --",
                                          "OLD: 0 $0.00 $0.00 $0.00 -- / 2 $30.00 $8.00 $22.00 73.33%",
                                      }));
}

// A kit sorts by its sales, since the query knows no cost of it.
TEST_F(SalesStatistic, SortsByEachMeasureWhateverTheOrderOfTheOptions) {
    const struct {
        std::vector<std::pair<std::string, Variant>> options;
        Texts items;
    } cases[] = {
        {{{"SortOption", "2"}, {"SortType", "1"}}, {"KIT", "BOLT", "NUT", "OLD"}},
        {{{"SortType", "1"}}, {"OLD", "NUT", "BOLT", "KIT"}},
        {{{"SortType", "2"}, {"SortOption", "1"}}, {"OLD", "NUT", "KIT", "BOLT"}},
        {{{"SortType", "2"}, {"SortOption", "2"}}, {"BOLT", "KIT", "NUT", "OLD"}},
        {{{"SortType", "3"}, {"SortOption", "2"}}, {"KIT", "BOLT", "NUT", "OLD"}},
        {{{"SortType", "4"}, {"SortOption", "1"}}, {"OLD", "NUT", "BOLT", "KIT"}},
        {{{"SortOption", "2"}}, {"BOLT", "KIT", "NUT", "OLD"}},
    };
    for (const auto& [options, items] : cases)
        for (const int dialect : {0, 1}) {
            ReportRun run = with(march(plain), options);
            run.dialect = dialect;
            const auto result = runReport(run);
            EXPECT_EQ(result.boxes, Texts{});
            EXPECT_EQ(result.texts("fldItem"), items) << options.front().first << options.front().second.toText();
        }
    ReportRun filtered = with(march(plain), {{"SortType", "2"}});
    filtered.where = "ItemId <> 'NUT' OR Category.Descr IS NULL";
    filtered.order = "Item.Descr1";
    EXPECT_EQ(runReport(filtered).texts("fldItem"), (Texts{"OLD", "KIT", "BOLT"}));
    filtered.options.clear();
    EXPECT_EQ(runReport(filtered).texts("fldItem"), (Texts{"BOLT", "KIT", "OLD"})) << "in the place of the code";
}

TEST_F(SalesStatistic, CountsTheDocumentsThatAreAskedFor) {
    const auto rows = [&](const char* kinds) { return rowsOf(runReport(with(march(plain), {{"FilterType", kinds}}))); };
    const Texts invoices = rows("1");
    ASSERT_EQ(invoices.size(), 3U);
    EXPECT_EQ(invoices[0], "BOLT: 10 $100.00 $30.00 $70.00 70.00% / 4 $40.00 $8.80 $31.20 78.00%");
    EXPECT_EQ(rows("2"), (Texts{"BOLT: -2 -$20.00 -$6.00 -$14.00 70.00% / 0 $0.00 $0.00 $0.00 --"}));
    const Texts both = rows("3");
    ASSERT_EQ(both.size(), 3U) << "a cash sale is neither";
    EXPECT_EQ(both[0], "BOLT: 8 $80.00 $24.00 $56.00 70.00% / 4 $40.00 $8.80 $31.20 78.00%");
}

TEST_F(SalesStatistic, LeavesLastYearOutWithItsCaptionsAndTotals) {
    const auto result = runReport(with(march(plain), {{"chkLastYear", "true"}}));
    EXPECT_EQ(rowsOf(result), (Texts{"BOLT: 8.5 $85.25 $25.50 $59.75 70.09%", "KIT: 3 $90.00 $7.00 $83.00 92.22%",
                                     "NUT: 1.5 $4.50 $1.50 $3.00 66.67%"}));
    for (const char* name : {"lblQtyLastYearCap", "lblSalesLastYearCap", "lblPriceLastYearCap", "lblQtyLastYearTot",
                             "lblTotalPercentLast", "lblMarge2", "LineTotalYears"})
        EXPECT_EQ(result.texts(name), Texts{}) << name;
    EXPECT_EQ(parametersOf(result).size(), 6U);
    EXPECT_EQ(result.only("lblTotalProfitCurrent"), "$145.75");
}

TEST_F(SalesStatistic, APeriodWithoutAnEndStandsAgainstItselfAndALeapDayAgainstTheFirstOfMarch) {
    ReportRun run = march(plain);
    run.from = "";
    const auto open = runReport(run);
    const Texts bounds = parametersOf(open);
    EXPECT_TRUE(std::equal(bounds.begin(), bounds.begin() + 6, bounds.begin() + 6)) << bounds.size();
    EXPECT_EQ(first(rowsOf(open)), "BOLT: 12.5 $125.25 $37.50 $87.75 70.06% / 12.5 $125.25 $37.50 $87.75 70.06%");
    run.from = "2024-02-29", run.to = "2024-02-29";
    const auto leap = runReport(run);
    EXPECT_EQ(last(parametersOf(leap)), "2023-03-01");
    EXPECT_EQ(leap.only("lblEnd"), "0 item(s)");
    EXPECT_EQ(leap.only("lblTotalPercentCurrent"), "0.00%");
    EXPECT_EQ(leap.only("lblQtyThisYearTot"), "0.00");
}

// The segment is that of the last cost, not of the sales.
TEST_F(SalesStatistic, NarrowsToTheSegmentOfTheLastCost) {
    ReportRun run = march(plain);
    run.segments = "2";
    EXPECT_EQ(runReport(run).texts("fldItem"), (Texts{"BOLT"}));
    run.noSegment = true;
    EXPECT_EQ(runReport(run).texts("fldItem"), (Texts{"BOLT", "KIT"}));
    run.segments = "";
    EXPECT_EQ(runReport(run).texts("fldItem"), (Texts{"KIT"}));
}

TEST_F(SalesStatistic, PrintsAnItemOnceWithALineAWarehouseAndASubtotal) {
    const TestCompany company(std::string(shop) + withWarehouses);
    ReportRun run = march(company);
    run.language = "ids";
    const auto result = runReport(run);
    EXPECT_EQ(result.boxes, Texts{});
    EXPECT_EQ(result.texts("ItemNameGH"), (Texts{"BOLT: Bolt M8", "KIT: Bolts and a nut", "OLD: Old lock"}));
    EXPECT_EQ(result.links("ItemNameGH"), (Texts{"ITM|1", "ITM|2", "ITM|5"}));
    EXPECT_EQ(result.texts("WarehouseNameGH"), (Texts{"M - Main", "Q - Quebec City", "M - Main", "M - Main"}));
    EXPECT_EQ(result.links("WarehouseNameGH"), (Texts{"WI|1", "WI|2", "WI|1", "WI|1"}));
    EXPECT_EQ(first(result.texts("LabelWarehouseNameGH")), "#4606 : ");
    EXPECT_EQ(first(result.texts("LabelWarehouseNameGF")), "#2710 #1780: ");
    EXPECT_EQ(result.texts("ItemNameGF"), (Texts{"BOLT", "KIT", "OLD"}));
    EXPECT_EQ(rowsOf(result), (Texts{
                                  "8 $80.00 $24.00 $56.00 70.00% / 4 $40.00 $8.80 $31.20 78.00%",
                                  "0.5 $5.25 $1.25 $4.00 76.19% / 0 $0.00 $0.00 $0.00 --",
                                  "3 $90.00 $7.00 $83.00 92.22% / 0 $0.00 $5.40 -$5.40 --",
                                  "0 $0.00 $0.00 $0.00 -- / 2 $30.00 $8.00 $22.00 73.33%",
                              }));
    const auto subtotal = [](const ReportResult& of, std::size_t item) {
        return lineOf(of, item,
                      {"ItemQtyThisYearTot", "ItemSalesThisYearTot", "ItemPriceThisYearTot", "ItemMargeDol1Tot",
                       "ItemMarge1Tot"}) +
               " / " +
               lineOf(of, item,
                      {"ItemQtyLastYearTot", "ItemSalesLastYearTot", "ItemPriceLastYearTot", "ItemMargeDol2Tot",
                       "ItemMarge2Tot"});
    };
    EXPECT_EQ(subtotal(result, 0), "9 $85.25 $25.25 $60.00 70.38% / 4 $40.00 $8.80 $31.20 78.00%");
    EXPECT_EQ(subtotal(result, 1), "3 $90.00 $7.00 $83.00 92.22% / 0 $0.00 $5.40 -$5.40 --");
    EXPECT_EQ(subtotal(result, 2), "0 $0.00 $0.00 $0.00 -- / 2 $30.00 $8.00 $22.00 73.33%");
    EXPECT_EQ(result.only("lblEnd"), "4 #7626");

    run.locale = "fr_CA";
    run.dialect = 1;
    run.where = "Warehouse.Name = 'Quebec City' OR Item.ItemId = 'BOLT'";
    run.options = {{"chkLastYear", "true"}};
    const auto french = runReport(run);
    EXPECT_EQ(french.only("ItemQtyThisYearTot"), "9");
    EXPECT_EQ(french.only("ItemSalesThisYearTot"), "85,25\u00a0$");
    EXPECT_EQ(french.texts("ItemQtyLastYearTot"), Texts{});
}

TEST_F(SalesStatistic, CaptionsStandAtTheirHeightUnderAFilterOfManyLines) {
    ReportRun run = march(plain);
    for (int i = 0; i < 8; ++i) run.where += (i == 0 ? "" : " AND ") + std::string("Item.Descr1 <> 'Another item'");
    const auto result = runReport(run);
    const auto top = [&](std::string_view name) {
        for (const PlacedSection& section : result.kept.pages.at(0)->sections)
            for (const PlacedControl& control : section.controls)
                if (control.info->name == name) return control.top;
        return -1.0F;
    };
    for (const char* name : {"lblCodeItemCap", "lblDescrCap", "lblQtyThisYearCap", "lblSalesThisYearCap",
                             "lblPriceThisYearCap", "lblMargeDolCap", "lblMargeCap"})
        EXPECT_EQ(top(name), 2551) << name;
    for (const char* name : {"lblQtyLastYearCap", "lblSalesLastYearCap", "lblPriceLastYearCap"})
        EXPECT_EQ(top(name), 2551 + 283) << name;
}

class StaleStock : public SalesStatistic {
protected:
    const TestCompany stale{std::string(shop) +
                            "INSERT INTO InvenDet VALUES (20, 3, '2024-03-20', 'INV', NULL, -2, NULL, "
                            "NULL, NULL, NULL, 1, 1);"
                            "INSERT INTO Parameter VALUES ('', 'StockUpToDate', '2024-12-31')"};
};

TEST_F(StaleStock, IsToldOnEachPageUnlessItIsBroughtUpToDateFirst) {
    ReportRun run = march(stale);
    run.settings = {{134, "0"}};
    run.pageHeight = 8000;  // two pages
    const auto warned = runReport(run);
    EXPECT_EQ(
        warned.texts("lblWarningInvMaj"),
        Texts(warned.pageCount(), "The stock is up to date only as of 2024-03-19; run the update for exact costs."));
    EXPECT_EQ(warned.pageCount(), 2U);
    run.settings = {};
    const auto updated = runReport(run);
    EXPECT_EQ(updated.boxes, Texts{});
    EXPECT_EQ(updated.texts("lblWarningInvMaj"), Texts{});
    run.settings = {{134, "0"}};
    EXPECT_EQ(runReport(run).texts("lblWarningInvMaj"), Texts{}) << "it stays up to date";
}

TEST_F(StaleStock, IsToldWhereAnotherProgramHoldsTheFile) {
    sqlite::Database other(stale.path(), sqlite::Open::readWrite);
    other.execute("BEGIN IMMEDIATE");
    const auto result = runReport(march(stale));
    EXPECT_EQ(result.boxes, Texts{});
    EXPECT_EQ(result.texts("lblWarningInvMaj").size(), 1U);
    EXPECT_EQ(rowsOf(result).size(), 4U) << "the run goes on";
}

TEST_F(SalesStatistic, SaysNothingOfItsTotalsWithoutItsFooterAndNothingAtAllWhenTheFilterIsRefused) {
    ReportRun run = march(plain);
    run.properties = {{"SubReportVisible", "True"}};
    const auto bare = runReport(run);
    EXPECT_EQ(bare.texts("lblEnd"), Texts{});
    EXPECT_EQ(rowsOf(bare).size(), 4U);
    run.properties.clear();
    run.cancelFilter = true;
    const auto cancelled = runReport(run);
    EXPECT_EQ(cancelled.boxes, Texts{});
    EXPECT_EQ(cancelled.sql, Texts{});
    EXPECT_EQ(cancelled.only("lblEnd"), "0 item(s)");
}

// The totals of the demo company, by a query that shares nothing with the report's but the documents.
TEST(SalesStatisticOfTheDemo, AgreesWithTheDocuments) {
    const DemoFile demo;
    const auto sums = [&](const char* from, const char* to) {
        const sqlite::Database file(demo.path(), sqlite::Open::readOnly);
        sqlite::Statement row(
            file,
            "SELECT SUM(Units), SUM(Sold) FROM (SELECT ExItemId, SUM(Sign * (Qty - COALESCE(QtyScrap, "
            "0))) AS Units, SUM(Sign * ROUND(BaseRowTotal * ExchangeRate, 2)) AS Sold FROM (SELECT *, "
            "CASE InvoiType WHEN 3 THEN -1 ELSE 1 END AS Sign FROM InvoiHdr) JOIN InvoiDet ON "
            "ExInvoiId = InInvoiId WHERE InvoiType < 50 AND ExKitInvoiDetId IS NULL AND InvoiDate "
            "BETWEEN ? AND ? AND (InvoiDet.IsKit <> 0 OR ExItemId IN (SELECT ExItemId FROM InvenDet "
            "WHERE DetDate <= ?2)) GROUP BY ExItemId)");
        row.bind(1, from).bind(2, to).step();
        const LocaleFormat format;
        return format.number(Money::fromDouble(row.real(0))) + " " + format.currency(Money::fromDouble(row.real(1)));
    };
    sqlite::Database(demo.path(), sqlite::Open::readWrite)
        .execute("UPDATE CompanyFact SET Value = '0' WHERE Name = 'DefaultWarehouseId'");
    const auto result =
        runReport({.member = "SalesStatistic", .company = demo.path(), .from = "2025-01-01", .to = "2025-12-31"});
    EXPECT_EQ(result.boxes, Texts{});
    EXPECT_EQ(result.only("lblQtyThisYearTot") + " " + result.only("lblSalesThisYearTot"),
              sums("2025-01-01", "2025-12-31"));
    EXPECT_EQ(result.only("lblQtyLastYearTot") + " " + result.only("lblSalesLastYearTot"),
              sums("2024-01-01", "2024-12-31"));
}

struct FilterForm : testing::Test {
    static SessionOptions inIds() {
        SessionOptions options;
        options.language = "ids";
        return options;
    }
    TestSession session{"", inIds()};
    FSalesStatsFilter form{*session};

    static std::string enabled(const OptionGroup& group) {
        std::string text;
        for (const OptionButton& option : group.Options)
            text += option.Enabled ? std::string(group.chosen() == &option ? "[x]" : "[ ]") : "---";
        return text;
    }
};

TEST_F(FilterForm, GivesNoDirectionWithoutAMeasure) {
    form.SortType = 0, form.SortOption = 2, form.FilterType = 9, form.HideLastYearInfo = true;
    form.Form_Load();
    form.Show();
    EXPECT_TRUE(form.checkBoxes()[0]->Value) << "the last choice shows";
    OptionGroup& directions = *form.optionGroups()[1];
    EXPECT_EQ(enabled(directions), "---------");
    EXPECT_EQ(form.optionGroups()[2]->chosen(), nullptr);
    EXPECT_THROW(form.click("optDesc"), InputError);
    form.click("optProfit");
    EXPECT_EQ(enabled(directions), "[x][ ][ ]");
    form.click("optDesc");
    form.click("optSaleUnits");
    EXPECT_EQ(enabled(directions), "[ ][ ][x]");
    form.click("optNoSort");
    form.click("optPercentage");
    form.click("cmdOk");
    EXPECT_FALSE(form.visible());
    EXPECT_EQ(form.SortType, 4);
    EXPECT_EQ(form.SortOption, 0);
    EXPECT_EQ(form.FilterType, 9) << "nothing was chosen";
}

TEST_F(FilterForm, KeepsItsPropertiesUnlessLeftByOk) {
    form.Form_Load();
    for (const char* leave : {"cmdCancel", "cmdOk"}) {
        form.Show();
        form.setOption("SortType", "3");
        form.setOption("FilterType", "2");
        form.setOption("chkLastYear", "true");
        form.click(leave);
        const bool taken = leave == std::string("cmdOk");
        EXPECT_EQ(form.HasCancel(), !taken);
        EXPECT_EQ(form.SortType, taken ? 3 : 0);
        EXPECT_EQ(form.FilterType, taken ? 2 : 0);
        EXPECT_EQ(form.HideLastYearInfo, taken);
        EXPECT_FALSE(form.visible());
    }
}

TEST_F(FilterForm, ReadsInTheUsersLanguage) {
    form.Form_Load();
    std::string read = form.Caption;
    for (const Frame* frame : form.frames()) read += " " + frame->Caption;
    for (const FormLabel* label : form.labels()) read += " " + label->Caption;
    for (const OptionGroup* group : form.optionGroups())
        for (const OptionButton& option : group->Options) read += " " + option.Name + option.Caption;
    for (const CheckBox* box : form.checkBoxes()) read += " " + box->Caption;
    for (const CommandButton* button : form.buttons()) read += " " + button->Caption;
    EXPECT_EQ(read,
              "#1711 #9486 #4149 #9486 #9487 optNoSort#2733 optSaleAmount#9488 optSaleUnits#9489 optProfit#9490 "
              "optPercentage#9491 optNone#2733 optAsc#4335 optDesc#4336 optNoFilter#2733 optInvoices#9492 "
              "optCredit#9493 optInvCredit#9494 #9495 #1542 #6886");
}

}  // namespace
}  // namespace quillo::test
