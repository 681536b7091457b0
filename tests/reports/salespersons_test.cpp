#include <gtest/gtest.h>

#include <algorithm>

#include "framework/report_contract.h"
#include "host/drill/drill_target.h"
#include "tests/company/demo_file.h"
#include "tests/support/report_runner.h"

namespace quillo::test {
namespace {

using Texts = std::vector<std::string>;

// March: Ana, whose rate is 5, sells for 1000 at her rate and for 150 US dollars at 7, and takes 100 back; Ben, who has
// no rate, sells for 400 at 3 and for 80 US dollars without commission; one document has no salesperson, another an
// empty one, a third one that is no employee. An order and a sale in April do not count.
constexpr const char* march = R"(
    UPDATE CompanyFact SET Value = '1' WHERE Name = 'UsesForeignCurrency';
    INSERT INTO WorldCurrency VALUES (2, 'USD', 'US dollar');
    INSERT INTO Empl (InEmplId, FirstName, LastName, SalesComm) VALUES (1, 'Ana', 'Roy', 5), (2, 'Ben', 'Cole', NULL);
    INSERT INTO Cust (InCustId, CustId, Name) VALUES (10, 'A', 'Ash');
    INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, ExCustId, ExCurrencyId, ExchangeRate, DetAmnt,
        DiscTotAmnt, SalesPerson, CommissionPercent, CommissionAmount) VALUES
        (1, 'A1', 1, '2024-03-01', 10, 1, 1, 1000, 50, 'Ana Roy', 5, 50),
        (2, 'A2', 2, '2024-03-01', 10, 2, 1.3333, 150, 0, 'Ana Roy', 7, 10.5),
        (3, 'A3', 3, '2024-03-02', 10, 1, 1, -100, NULL, 'Ana Roy', 6, -6),
        (4, 'B1', 1, '2024-03-02', 10, 1, 1, 400, NULL, 'Ben Cole', 3, 12),
        (5, 'B2', 1, '2024-03-03', 10, 2, 1.5, 80, NULL, 'Ben Cole', 0, 0),
        (6, 'N1', 1, '2024-03-03', 10, 1, 1, 70, NULL, NULL, NULL, NULL),
        (7, 'N2', 1, '2024-03-04', 10, 1, 1, 30, NULL, '', 1, 0.3),
        (8, 'X1', 1, '2024-03-04', 10, 1, 1, 10, NULL, 'Eve Moss', 2, 0.2),
        (9, 'O1', 51, '2024-03-04', 10, 1, 1, 900, NULL, 'Ana Roy', 5, 45),
        (10, 'A4', 1, '2024-04-01', 10, 1, 1, 9000, NULL, 'Ana Roy', 5, 450);)";

ReportRun ask(const std::string& member, const std::string& company, std::map<std::string, std::string> properties = {},
              bool foreign = false) {
    ReportRun run{.member = member, .company = company, .from = "2024-03-01", .to = "2024-03-31", .language = "ids"};
    run.properties = std::move(properties);
    run.foreign = foreign;
    return run;
}

const std::map<std::string, std::string> variances = {{"IsCommissionVariances", "True"}};

// Both dialects give the same pages without a box.
ReportResult runBoth(ReportRun run) {
    auto result = runReport(run);
    EXPECT_EQ(result.boxes, Texts{});
    run.dialect = 1;
    EXPECT_EQ(runReport(run).text(), result.text()) << run.member;
    return result;
}

// --- sales and commissions -------------------------------------------------------------------------

TEST(SalesBySalesPersonDetail, ListsTheDocumentsWithTotalsByDayAndSalesperson) {
    const TestCompany company(march);
    const auto result = runBoth(ask("SalesBySalesPersonDetail", company.path()));
    EXPECT_EQ(result.texts("fldSalesPerson"), (Texts{"#2595", "Ana Roy", "Ben Cole", "Eve Moss"}));
    EXPECT_EQ(result.texts("txtInvoiId"), (Texts{"N1", "N2", "A1", "A2", "A3", "B1", "B2", "X1"}));
    EXPECT_EQ(result.texts("txtInvoiType"),
              (Texts{"#2916", "#2916", "#2916", "#2907", "#2863", "#2916", "#2916", "#2916"}));
    EXPECT_EQ(result.texts("txtDisc"), (Texts{"", "", "$50.00", "$0.00", "", "", "", ""}));
    EXPECT_EQ(result.texts("txtSale"),
              (Texts{"$70.00", "$30.00", "$1,000.00", "$200.00", "-$100.00", "$400.00", "$120.00", "$10.00"}));
    EXPECT_EQ(result.texts("txtComm"), (Texts{"", "$0.30", "$50.00", "$14.00", "-$6.00", "$12.00", "$0.00", "$0.20"}));
    EXPECT_EQ(nth(result.links("txtSale"), 2), "INV|1");
    EXPECT_EQ(result.texts("txtDateTotal").size(), 7U);
    EXPECT_EQ(nth(result.texts("txtDateTotal"), 2), "#2710 2024-03-01:");
    EXPECT_EQ(nth(result.texts("txtSaleDateTot"), 2), "$1,200.00");
    EXPECT_EQ(nth(result.texts("txtCommDateTot"), 2), "$64.00");
    EXPECT_EQ(result.texts("lblTotalName"),
              (Texts{"Total #2595:", "Total Ana Roy:", "Total Ben Cole:", "Total Eve Moss:"}));
    EXPECT_EQ(result.texts("txtSaleTot"), (Texts{"$100.00", "$1,100.00", "$520.00", "$10.00"}));
    EXPECT_EQ(result.texts("txtCommTot"), (Texts{"$0.30", "$58.00", "$12.00", "$0.20"}));
    EXPECT_EQ(result.only("txtSaleGrTot"), "$1,730.00");
    EXPECT_EQ(result.only("txtCommGrTot"), "$70.50");
    EXPECT_EQ(result.only("lblEnd"), "4 #7627");
    EXPECT_EQ(result.texts("txtCurrTotal"), Texts{});
}

TEST(SalesBySalesPersonDetail, TotalsByCurrencyInForeignDisplay) {
    const TestCompany company(march);
    const auto result = runBoth(ask("SalesBySalesPersonDetail", company.path(), {}, true));
    EXPECT_EQ(result.texts("txtCurrencyFullDescr").size(), 6U);
    EXPECT_EQ(nth(result.texts("txtCurrencyFullDescr"), 2), "USD - US dollar");
    EXPECT_EQ(nth(result.texts("txtCurrTotal"), 2), "#1641 USD");
    EXPECT_EQ(result.texts("txtSaleDateTotCurr"),
              (Texts{"$100.00", "$900.00", "$150.00", "$400.00", "$80.00", "$10.00"}));
    EXPECT_EQ(result.texts("txtCommDateTotCurr"), (Texts{"$0.30", "$44.00", "$10.50", "$12.00", "$0.00", "$0.20"}));
    for (const char* total : {"txtSaleTot", "txtSaleGrTot", "lblEnd"}) EXPECT_EQ(result.texts(total), Texts{}) << total;
}

// Ana is paid 2 percent of 200 too much, and 1 percent of a credit of 100; Ben all of his 3 percent of 400.
TEST(SalesBySalesPersonDetail, TellsVariancesOnFourLevels) {
    const TestCompany company(march);
    const auto home = runBoth(ask("SalesBySalesPersonDetail", company.path(), variances));
    EXPECT_EQ(home.texts("txtInvoiId"), (Texts{"A2", "A3", "B1"}));
    EXPECT_EQ(home.only("lblComm"), "#4396");
    EXPECT_EQ(home.texts("txtComm"), (Texts{"$4.00", "-$1.00", "$12.00"}));
    EXPECT_EQ(home.texts("txtCommDateTot"), (Texts{"$4.00", "-$1.00", "$12.00"}));
    EXPECT_EQ(home.texts("txtCommTot"), (Texts{"$3.00", "$12.00"}));
    EXPECT_EQ(home.only("txtCommGrTot"), "$15.00");
    const auto foreign = runBoth(ask("SalesBySalesPersonDetail", company.path(), variances, true));
    EXPECT_EQ(foreign.texts("txtCommDateTotCurr"), (Texts{"-$1.00", "$3.00", "$12.00"}));

    const auto summary = runBoth(ask("SalesBySalesPersonSummary", company.path(), variances));
    EXPECT_EQ(summary.texts("txtSale"), (Texts{"$100.00", "$400.00"}));
    EXPECT_EQ(summary.texts("txtComm"), (Texts{"$3.00", "$12.00"}));
    EXPECT_EQ(summary.only("txtCommTotal"), "$15.00");
    EXPECT_EQ(summary.only("lblComm"), "#4396");
    EXPECT_EQ(summary.links("txtSale"), (Texts{"Ana Roy|-1|0", "Ben Cole|-1|0"}));
    const auto byCurrency = runBoth(ask("SalesBySalesPersonSummary", company.path(), variances, true));
    EXPECT_EQ(byCurrency.texts("txtCommCurr"), (Texts{"-$1.00", "$3.00", "$12.00"}));
    for (const char* member : {"SalesBySalesPersonDetail", "SalesBySalesPersonSummary"})
        runReport(ask(member, company.path(), variances), [&](Report& report) {
            const std::string title = dynamic_cast<IReport&>(report).IReport_ReportTitle();
            EXPECT_EQ(title, member == std::string("SalesBySalesPersonDetail") ? "#7786" : "#7785");
        });
}

TEST(SalesBySalesPersonDetail, NarrowsToASalespersonACurrencyAndCommissions) {
    const TestCompany company(march);
    const auto documents = [&](std::map<std::string, std::string> properties, bool zero = true, const char* where = "",
                               const char* order = "") {
        auto run = ask("SalesBySalesPersonDetail", company.path(), std::move(properties));
        run.where = where, run.order = order;
        if (!zero) run.options = {{"chkShowZeroCommission", false}};
        return runBoth(run).texts("txtInvoiId");
    };
    EXPECT_EQ(documents({{"SalesPerson", "BLANK SALESPERSON NAME"}}), (Texts{"N1", "N2"}));
    EXPECT_EQ(documents({{"SalesPerson", "Ben Cole"}}), (Texts{"B1", "B2"}));
    EXPECT_EQ(documents({{"ExCurrencyId", "2"}}), (Texts{"A2", "B2"}));
    EXPECT_EQ(documents({}, false), (Texts{"N2", "A1", "A2", "A3", "B1", "X1"}));
    EXPECT_EQ(documents({{"SalesPerson", "Ana Roy"}}, true, "InvoiHdr.DetAmnt > 100 OR Cust.CustId = 'Z'",
                        "InvoiHdr.DetAmnt, InvoiHdr.InvoiDate DESC"),
              (Texts{"A2", "A1"}))
        << "the user's order stands behind salesperson and day";
    auto run = ask("SalesBySalesPersonSummary", company.path());
    run.options = {{"chkShowZeroCommission", false}};
    run.where = "InvoiHdr.InvoiId = 'B2' OR InvoiHdr.InvoiId = 'X1'";
    EXPECT_EQ(runBoth(run).only("lblEnd"), "1 #7627") << "whose commissions are all zero drops out";
}

// A rate of zero and one that is missing: each dialect takes another of them for 1.
TEST(SalesBySalesPersonDetail, TakesAMissingRateAsItsDialectDoes) {
    const TestCompany company(std::string(march) +
                              "DELETE FROM InvoiHdr WHERE InInvoiId NOT IN (1, 4);"
                              "UPDATE InvoiHdr SET ExchangeRate = 0, DiscTotAmnt = 5 WHERE InInvoiId = 1;"
                              "UPDATE InvoiHdr SET ExchangeRate = NULL, DiscTotAmnt = 7 WHERE InInvoiId = 4;");
    auto run = ask("SalesBySalesPersonDetail", company.path());
    const auto server = runReport(run);
    EXPECT_EQ(server.texts("txtSale"), (Texts{"$0.00", "$400.00"}));
    EXPECT_EQ(server.texts("txtDisc"), (Texts{"$0.00", "$7.00"}));
    EXPECT_EQ(server.texts("txtComm"), (Texts{"$0.00", "$12.00"}));
    run.dialect = 1;
    const auto jet = runReport(run);
    EXPECT_EQ(jet.texts("txtSale"), (Texts{"$1,000.00", "$400.00"}));
    EXPECT_EQ(jet.texts("txtDisc"), (Texts{"$5.00", "$7.00"}));
    EXPECT_EQ(jet.texts("txtComm"), (Texts{"$50.00", "$12.00"}));
    run.member = "SalesBySalesPersonSummary";
    EXPECT_EQ(runReport(run).texts("txtSale"), (Texts{"$1,000.00", "$0.00"})) << "what is missing stays so there";
    run.dialect = 2;
    EXPECT_EQ(runReport(run).boxes.size(), 1U) << "a database that is neither";
}

TEST(SalesBySalesPersonSummary, GivesALineASalespersonOrACurrencyWithItsLink) {
    const TestCompany company(march);
    const auto home = runBoth(ask("SalesBySalesPersonSummary", company.path()));
    EXPECT_EQ(home.texts("txtSalesPerson"), (Texts{"#2595", "Ana Roy", "Ben Cole", "Eve Moss"}));
    EXPECT_EQ(home.texts("txtSale"), (Texts{"$100.00", "$1,100.00", "$520.00", "$10.00"}));
    EXPECT_EQ(home.texts("txtComm"), (Texts{"$0.30", "$58.00", "$12.00", "$0.20"}));
    EXPECT_EQ(home.links("txtComm"),
              (Texts{"BLANK SALESPERSON NAME|0", "Ana Roy|0|0", "Ben Cole|0|0", "Eve Moss|0|0"}));
    EXPECT_EQ(home.only("txtGrandTotal"), "$1,730.00");
    EXPECT_EQ(home.only("txtCommTotal"), "$70.50");
    EXPECT_EQ(home.only("lblEnd"), "4 #7627");
    EXPECT_EQ(home.texts("txtSaleCurr"), Texts{});

    const auto foreign = runBoth(ask("SalesBySalesPersonSummary", company.path(), {}, true));
    EXPECT_EQ(foreign.texts("txtSalesPersonCurr"), home.texts("txtSalesPerson"));
    EXPECT_EQ(foreign.links("txtSalesPersonCurr"), home.links("txtSalesPerson"));
    EXPECT_EQ(nth(foreign.texts("txtCurrencyFullDescr"), 2), "USD - US dollar");
    EXPECT_EQ(foreign.texts("txtSaleCurr"), (Texts{"$100.00", "$900.00", "$150.00", "$400.00", "$80.00", "$10.00"}));
    EXPECT_EQ(foreign.texts("txtCommCurr"), (Texts{"$0.30", "$44.00", "$10.50", "$12.00", "$0.00", "$0.20"}));
    EXPECT_EQ(foreign.links("txtCommCurr"), (Texts{"BLANK SALESPERSON NAME|1", "Ana Roy|0|1", "Ana Roy|0|2",
                                                   "Ben Cole|0|1", "Ben Cole|0|2", "Eve Moss|0|1"}));
    for (const char* total : {"txtSale", "txtGrandTotal", "lblGrandTotal"})
        EXPECT_EQ(foreign.texts(total), Texts{}) << total;
    EXPECT_EQ(foreign.only("lblEnd"), "4 #7627");
}

// --- profit -----------------------------------------------------------------------------------------

// Goods that cost 5.50, and 6 from the fifth on; a kit of two; a service. A2 is in US dollars at 1.33335, which is
// 1.3334 as money; N1 takes one back; G1 gives a line away; Z1 has no rate; nobody sold N2.
const std::string sold = std::string(march) + R"(
    DELETE FROM InvoiHdr;
    INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, ExCustId, ExCurrencyId, ExchangeRate, SalesPerson)
        VALUES (1, 'A1', 1, '2024-03-01', 10, 1, 9, 'Ana Roy'), (2, 'A2', 2, '2024-03-05', 10, 2, 1.33335, 'Ana Roy'),
        (3, 'N1', 3, '2024-03-06', 10, 1, 1, 'Ben Cole'), (4, 'G1', 1, '2024-03-07', 10, 1, 1, 'Ben Cole'),
        (5, 'Z1', 1, '2024-03-08', 10, 2, 0, 'Ben Cole'), (6, 'N2', 1, '2024-03-09', 10, 1, 1, NULL);
    INSERT INTO Item (InItemId, ItemId, Servc, IsKit) VALUES (1, 'PLK', 0, 0), (2, 'CUT', 1, 0), (3, 'SET', NULL, 1);
    INSERT INTO ItemComponent VALUES (3, 1, 2);
    INSERT INTO InvenDet (InTrxId, ExItemId, DetDate, Source, Qty, CostAmnt, RunningAvgCost) VALUES
        (1, 1, '2024-02-01', 'PUR', 100, 550, 5.5), (2, 1, '2024-03-05', 'PUR', 100, 650, 6);
    INSERT INTO InvoiDet (InInvoiDetId, ExInvoiId, ExItemId, Descr, Qty, BaseRowTotal, Servc, ExKitInvoiDetId) VALUES
        (1, 1, 1, 'Planks', 10, 80, 0, NULL), (2, 1, 2, 'Cutting', 2, 15, 1, NULL), (3, 1, 3, 'Set', 1, 20, 0, NULL),
        (4, 1, 1, 'Of the set', 2, 99, 0, 3), (5, 1, NULL, 'Words', NULL, NULL, NULL, NULL),
        (6, 2, 1, 'Planks', 50, 200, 0, NULL), (7, 3, 1, 'Planks', 1, 20, 0, NULL), (8, 4, 1, 'Given', 1, 0, 0, NULL),
        (9, 5, 1, 'Planks', 1, 50, 0, NULL), (10, 6, 1, 'As a service', 1, 16, 1, NULL))";

TEST(SalesBySalesPersProfDetail, SetsEachLineAgainstItsCostOfTheDay) {
    const TestCompany company(sold);
    const auto result = runBoth(ask("SalesBySalesPersProfDetail", company.path()));
    EXPECT_EQ(result.texts("fldSalesPerson"), (Texts{"#2595", "Ana Roy", "Ben Cole"}));
    EXPECT_EQ(result.texts("txtItemId"), (Texts{"PLK", "PLK", "CUT", "SET", "", "PLK", "PLK", "PLK", "PLK"}));
    EXPECT_EQ(result.texts("txtSalePrice"),
              (Texts{"$16.00", "$80.00", "$15.00", "$20.00", "$0.00", "$266.68", "-$20.00", "$0.00", "$0.00"}));
    EXPECT_EQ(result.texts("txtCostingPrice"),
              (Texts{"NA", "$55.00", "NA", "$11.00", "$0.00", "$300.00", "$6.00", "$6.00", "$6.00"}));
    EXPECT_EQ(result.texts("txtProfitDoll"),
              (Texts{"$10.00", "$25.00", "$15.00", "$9.00", "$0.00", "-$33.32", "-$26.00", "-$6.00", "-$6.00"}));
    EXPECT_EQ(result.texts("txtProfitPerc"),
              (Texts{"62.50", "31.25", "100.00", "45.00", "NA", "-12.49", "-130.00", "NA", "NA"}));
    EXPECT_EQ(result.texts("TotDate"),
              (Texts{"#2710 N2:", "#2710 A1:", "#2710 A2:", "#2710 N1:", "#2710 G1:", "#2710 Z1:"}));
    EXPECT_EQ(nth(result.texts("txtSalePriceTot"), 1), "$115.00");
    EXPECT_EQ(nth(result.texts("txtCostingPriceTot"), 1), "$66.00");
    EXPECT_EQ(result.texts("txtProfitDollTot"), (Texts{"$10.00", "$49.00", "-$33.32", "-$26.00", "-$6.00", "-$6.00"}));
    EXPECT_EQ(result.texts("txtProfitPercTot"), (Texts{"62.50", "42.61", "-12.49", "-130.00", "NA", "NA"}));
    EXPECT_EQ(result.texts("lblTotalName"), (Texts{"Total #2595:", "Total Ana Roy:", "Total Ben Cole:"}));
    EXPECT_EQ(result.texts("txtSalePriceSlmTot"), (Texts{"$16.00", "$381.68", "-$20.00"}));
    EXPECT_EQ(result.texts("txtCostingPriceSlmTot"), (Texts{"$6.00", "$366.00", "$18.00"}));
    EXPECT_EQ(result.texts("txtProfitDollSlmTot"), (Texts{"$10.00", "$15.68", "-$38.00"}));
    EXPECT_EQ(result.texts("txtProfitPercSlmTot"), (Texts{"62.50", "4.11", "-190.00"}));
    EXPECT_EQ(result.only("lblGrTotal"), "#1641:");
    EXPECT_EQ(result.only("txtSalePriceGrTot"), "$377.68");
    EXPECT_EQ(result.only("txtCostingPriceGrTot"), "$390.00");
    EXPECT_EQ(result.only("txtProfitDollGrTot"), "-$12.32");
    EXPECT_EQ(result.only("txtProfitPercGrTot"), "-3.26");
    EXPECT_EQ(result.only("lblProfitDoll"), "#4946 $");
    EXPECT_EQ(result.only("lblProfitPerc"), "#4946 %");
    EXPECT_EQ(result.only("lblEnd"), "3 #7627");
    for (const char* linked : {"txtItemId", "txtProfitPerc", "txtCostingPrice"})
        EXPECT_EQ(nth(result.links(linked), 5), "INV|2") << linked;
    EXPECT_EQ(result.links("txtName"), (Texts{"INV|6", "INV|1", "INV|2", "INV|3", "INV|4", "INV|5"}));

    for (const auto& [name, documents] :
         {std::pair{"Ben Cole", Texts{"N1", "G1", "Z1"}}, {"BLANK SALESPERSON NAME", Texts{"N2"}}})
        EXPECT_EQ(
            runBoth(ask("SalesBySalesPersProfDetail", company.path(), {{"SalesPerson", name}})).texts("txtInvoiId"),
            documents);
}

TEST(SalesBySalesPersProfDetail, ReadsItsOwnPercentsInEveryLocale) {
    const TestCompany company(sold);
    for (const char* locale : {"fr_CA", "de_CH", "en_IN", "fr_FR", "sv_SE"}) {
        auto run = ask("SalesBySalesPersProfDetail", company.path());
        run.locale = locale;
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{}) << locale;
        EXPECT_NE(nth(result.texts("txtProfitPercSlmTot"), 2).find("190"), std::string::npos) << locale;
        EXPECT_FALSE(nth(result.texts("txtProfitPercSlmTot"), 2).starts_with("1")) << locale;
    }
}

TEST(SalesBySalesPersProfSummary, GivesALineASalespersonWithItsLink) {
    const TestCompany company(sold);
    const auto result = runBoth(ask("SalesBySalesPersProfSummary", company.path()));
    EXPECT_EQ(result.texts("txtSalesPerson"), (Texts{"#2595", "Ana Roy", "Ben Cole"}));
    EXPECT_EQ(result.texts("txtSales"), (Texts{"$16.00", "$381.68", "-$20.00"}));
    EXPECT_EQ(result.texts("txtCost"), (Texts{"$6.00", "$366.00", "$18.00"}));
    EXPECT_EQ(result.texts("txtProfitDoll"), (Texts{"$10.00", "$15.68", "-$38.00"}));
    EXPECT_EQ(result.texts("txtProfitPerc"), (Texts{"62.50", "4.11", "-190.00"}));
    EXPECT_EQ(result.only("txtTotSales"), "$377.68");
    EXPECT_EQ(result.only("txtTotCost"), "$390.00");
    EXPECT_EQ(result.only("txtTotProfitDoll"), "-$12.32");
    EXPECT_EQ(result.only("txtTotProfitPerc"), "-3.26");
    EXPECT_EQ(result.only("lblEnd"), "3 #7627");
    EXPECT_EQ(result.links("txtProfitPerc"), (Texts{"BLANK SALESPERSON NAME", "Ana Roy", "Ben Cole"}));
    auto given = ask("SalesBySalesPersProfSummary", company.path());
    given.where = "InvoiHdr.InvoiId = 'G1'";
    EXPECT_EQ(runBoth(given).only("txtProfitPerc"), "NA");
    EXPECT_EQ(runBoth(given).only("txtTotProfitPerc"), "NA");
}

TEST(SalesBySalesPersProf, AnItemThatIsGoneShowsABoxAndCostsNothing) {
    const TestCompany company(sold + ";DELETE FROM ItemComponent; DELETE FROM Item WHERE InItemId = 3");
    const auto detail = runReport(ask("SalesBySalesPersProfDetail", company.path()));
    ASSERT_EQ(detail.boxes.size(), 1U);
    EXPECT_NE(detail.boxes[0].find("dsrSalesBySalesPersProfDetail.Detail_Format"), std::string::npos);
    EXPECT_EQ(nth(detail.texts("txtDescr"), 3), "Set");
    EXPECT_EQ(nth(detail.texts("txtCostingPrice"), 3), "$0.00");
    EXPECT_EQ(nth(detail.texts("txtProfitPerc"), 3), "100.00");
    const auto summary = runReport(ask("SalesBySalesPersProfSummary", company.path()));
    EXPECT_EQ(summary.boxes.size(), 1U);
    EXPECT_EQ(nth(summary.texts("txtCost"), 1), "$355.00");
}

// Two documents of a day that the user's order does not tell apart keep their lines together.
TEST(SalesBySalesPersProfDetail, KeepsTheLinesOfADocumentTogetherUnderAnyOrder) {
    const TestCompany company(sold +
                              ";UPDATE InvoiHdr SET InvoiDate = '2024-03-01' WHERE InInvoiId = 2;"
                              "INSERT INTO InvoiDet (InInvoiDetId, ExInvoiId, Descr) VALUES (11, 1, 'Last')");
    auto run = ask("SalesBySalesPersProfDetail", company.path());
    run.order = "Cust.Name";
    const auto result = runBoth(run);
    EXPECT_EQ(result.texts("TotDate"),
              (Texts{"#2710 N2:", "#2710 A1:", "#2710 A2:", "#2710 N1:", "#2710 G1:", "#2710 Z1:"}));
}

struct Told final : ComparableReportGen {
    bool active = true;
    std::string text;
    bool IsActive() const override { return active; }
    Element AddTable(std::string_view title, std::string_view mode) override {
        text.append("[").append(title).append(mode == "PurgeIncl" ? "] " : "?] ");
        return 1;
    }
    Element AddRow(Element, std::string_view title, std::string_view value, std::string_view mode) override {
        text.append(title).append(value).append(mode == "PurgeIncl" ? " " : "? ");
        return 2;
    }
    void AddCell(Element, std::string_view name, std::string_view value, std::string_view mode) override {
        text.append(name).append("=").append(value).append(mode == "PurgeIncl" ? "; " : "?; ");
    }
    void Close() override { text += "end"; }
};

TEST(SalesBySalesPersProf, GivesItsTotalsToAGeneratorThatIsActive) {
    const TestCompany company(sold + ";DELETE FROM InvoiHdr WHERE InInvoiId IN (2, 3, 4, 5)");
    const auto told = [&](const char* member, bool active) {
        Told generator;
        generator.active = active;
        runReport(ask(member, company.path()), [&](Report& report) {
            dynamic_cast<IComparableReport&>(report).IComparableReport_ComparableReportGen(&generator);
        });
        return generator.text;
    };
    EXPECT_EQ(told("SalesBySalesPersProfDetail", true),
              "[#1895] Total #2595: #1601=$16.00; #4947=$6.00; #4946 $=$10.00; #4946 %=62.50; "
              "Total Ana Roy: #1601=$115.00; #4947=$66.00; #4946 $=$49.00; #4946 %=42.61; "
              "[#1641:] #1641: #1601=$72.00; #4947=$72.00; #4946 $=$59.00; #4946 %=45.04; end");
    EXPECT_EQ(told("SalesBySalesPersProfSummary", true),
              "[#1641:] #1641: #1604=$131.00; #4442=$72.00; #4946 $=$59.00; #4946 %=45.04; end");
    EXPECT_EQ(told("SalesBySalesPersProfDetail", false) + told("SalesBySalesPersProfSummary", false), "");
}

// --- the graph --------------------------------------------------------------------------------------

TEST(SalesBySalesPersonGraph, DrawsTenAndTheRestAndListsAllLargestFirst) {
    std::string more = march;
    for (int i = 0; i < 8; ++i)
        more += "INSERT INTO InvoiHdr (InInvoiId, InvoiType, InvoiDate, ExchangeRate, DetAmnt, SalesPerson) VALUES (" +
                std::to_string(20 + i) + ", 1, '2024-03-05', 1, " + std::to_string(2000 + i) + ", 'S" +
                std::to_string(i) + "');";
    const TestCompany company(more);
    Chart* chart = nullptr;
    ChartData data;
    auto run = ask("SalesBySalesPersonGraph", company.path());
    run.where = "InvoiHdr.InvoiId IS NULL OR InvoiHdr.InvoiId <> 'A1'";
    const auto prepare = [&](Report& report) {
        chart = static_cast<Chart*>(report.section("ReportHeader").find("chtSales"));
        report.section("ReportFooter").AfterPrint = [&] { data = chart->Data; };
    };
    const auto result = runReport(run, prepare);
    EXPECT_EQ(runBoth(run).boxes, Texts{});
    EXPECT_EQ(result.texts("txtSalesPerson"),
              (Texts{"S7", "S6", "S5", "S4", "S3", "S2", "S1", "S0", "Ben Cole", "#2595", "Ana Roy", "Eve Moss"}));
    EXPECT_EQ(first(result.texts("txtSale")), "$2,007.00");
    EXPECT_EQ(nth(result.texts("txtShare"), 8), "3.1");
    EXPECT_EQ(result.only("txtSaleTotal"), "$16,758.00");
    EXPECT_EQ(nth(result.links("txtSalesPerson"), 8), "Ben Cole|0|0");
    EXPECT_EQ(nth(result.links("txtSale"), 9), "BLANK SALESPERSON NAME|0");
    EXPECT_EQ(result.only("lblEnd"), "12 #7627");
    ASSERT_EQ(data.series.size(), 1U);
    const auto& bars = data.series[0].points;
    ASSERT_EQ(bars.size(), 11U);
    EXPECT_EQ(bars[0].label, "S7");
    EXPECT_EQ(bars[8].value, 0.52) << "in thousands";
    EXPECT_EQ(bars[10].label, "#2369");
    EXPECT_EQ(bars[10].value, 0.11);
    run.to = run.from = "2020-01-01";
    EXPECT_EQ(runReport(run).texts("lblInThous"), Texts{}) << "nothing sold, nothing drawn";
}

// --- what leads to what -----------------------------------------------------------------------------

Money sumOf(const Texts& amounts) {
    Money sum;
    for (const std::string& amount : amounts) sum += LocaleFormat().readMoney(amount);
    return sum;
}

// Follows each link of a figure to its report; the totals there agree to a cent a document at the most, which are
// rounded one by one there.
std::size_t follow(const ReportRun& run, const char* figure, const char* total) {
    const auto pages = runReport(run);
    EXPECT_EQ(pages.boxes, Texts{});
    const auto texts = pages.texts(figure), links = pages.links(figure);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const ReportTarget target = readDrillTag(links[i], [](std::string_view) { return TillKey::user; }).report;
        ReportRun behind = run;
        behind.member = target.member;
        behind.properties = {target.properties.begin(), target.properties.end()};
        behind.foreign = target.foreign;
        const auto detail = runReport(behind);
        EXPECT_EQ(detail.boxes, Texts{});
        const auto documents = static_cast<std::int64_t>(detail.texts("txtInvoiId").size());
        const Money apart = sumOf(detail.texts(total)) - sumOf({texts[i]});
        EXPECT_LE(std::abs(apart.raw()), run.foreign ? 0 : documents * Money::scale / 200) << links[i];
        EXPECT_GT(documents, 0) << links[i];
    }
    return texts.size();
}

TEST(SalesBySalesPerson, EachLinkLeadsToItsFigure) {
    const DemoFile company;
    ReportRun run{
        .member = "SalesBySalesPersonSummary", .company = company.path(), .from = "2025-03-01", .to = "2025-04-30"};
    for (const char* face : {"False", "True"}) {
        run.properties = {{"IsCommissionVariances", face}};
        run.foreign = false;
        EXPECT_GT(follow(run, "txtSale", "txtSaleTot"), 3U);
        EXPECT_GT(follow(run, "txtComm", "txtCommTot"), 3U);
        run.foreign = true;
        EXPECT_GT(follow(run, "txtSaleCurr", "txtSaleDateTotCurr"), 3U);
        EXPECT_GT(follow(run, "txtCommCurr", "txtCommDateTotCurr"), 3U);
    }
    run.foreign = false;
    run.properties.clear();
    run.member = "SalesBySalesPersonGraph";
    EXPECT_GT(follow(run, "txtSale", "txtSaleTot"), 3U);
    run.member = "SalesBySalesPersProfSummary";
    EXPECT_GT(follow(run, "txtProfitDoll", "txtProfitDollSlmTot"), 3U);
}

TEST(SalesBySalesPersProf, TheSummaryEqualsTheGroupsOfTheDetail) {
    const DemoFile company;
    for (const int dialect : {0, 1}) {
        ReportRun run{.member = "SalesBySalesPersProfSummary",
                      .company = company.path(),
                      .from = "2024-01-01",
                      .to = "2024-12-31",
                      .dialect = dialect};
        const auto summary = runReport(run);
        run.member = "SalesBySalesPersProfDetail";
        const auto detail = runReport(run);
        EXPECT_EQ(summary.boxes, Texts{});
        EXPECT_EQ(detail.boxes, Texts{});
        EXPECT_GT(summary.texts("txtSalesPerson").size(), 3U);
        for (const auto& [line, group] : {std::pair{"txtSales", "txtSalePriceSlmTot"},
                                          {"txtCost", "txtCostingPriceSlmTot"},
                                          {"txtProfitDoll", "txtProfitDollSlmTot"},
                                          {"txtProfitPerc", "txtProfitPercSlmTot"},
                                          {"txtTotSales", "txtSalePriceGrTot"},
                                          {"txtTotProfitPerc", "txtProfitPercGrTot"}})
            EXPECT_EQ(summary.texts(line), detail.texts(group)) << line;
        EXPECT_EQ(sumOf(detail.texts("txtSalePrice")), sumOf(summary.texts("txtTotSales")));
    }
}

}  // namespace
}  // namespace quillo::test
