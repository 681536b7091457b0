#include <gtest/gtest.h>

#include "tests/company/demo_file.h"
#include "tests/support/report_runner.h"

namespace quillo::test {
namespace {

using Texts = std::vector<std::string>;

// Ash is dealt with in Canadian dollars, Birch in US dollars. The set hides its bolts, since its part with the lowest
// key of a line says so; the open set shows its nut; the box may be changed and shows its lid.
constexpr const char* shop = R"(
    UPDATE CompanyFact SET Value = '1' WHERE Name = 'UsesForeignCurrency';
    INSERT INTO WorldCurrency VALUES (2, 'USD', 'US dollar');
    INSERT INTO Segment VALUES (1, 'S1', 'East'), (2, 'S2', 'West');
    INSERT INTO Warehouse VALUES (1, 'M', 'Main', 0), (2, 'Q', 'Quebec City', 0);
    INSERT INTO Cust (InCustId, CustId, Name, ExCurrencyId) VALUES (1, 'A', 'Ash', 1), (2, 'B', 'Birch', 2);
    INSERT INTO Item (InItemId, ItemId, Descr1, ComputeKitOption, AllowKitModification) VALUES (1, 'BOLT', 'Bolt', 2, 0),
        (2, 'LID', 'Lid', 0, 1), (3, 'NUT', 'Nut', 2, 0), (4, 'PIN', 'Pin', 1, 0), (5, 'SET', 'Set', NULL, NULL);
    INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, ExCustId, ExchangeRate) VALUES
        (10, 'F10', 1, '2024-03-01', 1, 1), (11, 'N11', 3, '2024-03-02', 1, 1), (12, 'U12', 2, '2024-03-31', 2, 1.35789),
        (13, 'I13', 4, '2024-03-05', 2, 1.4), (14, 'O14', 51, '2024-03-05', 1, 1), (15, 'F15', 1, '2024-04-01', 1, 1),
        (16, 'F16', 1, '2024-02-29', 1, 1);
    INSERT INTO InvoiDet (InInvoiDetId, ExInvoiId, ExItemId, Descr, Qty, QtyScrap, UnitPrice, DiscPercent, BaseRowTotal,
                          ExKitInvoiDetId, IsKit, ExWarehouseId, ExSegmentId) VALUES
        (1, 10, 1, 'Bolts', 12, 2, 3, 10, 27, NULL, 0, 1, 1), (2, 10, 5, 'A set', 1, NULL, 50, NULL, 50, NULL, 1, 1, 1),
        (4, 10, 1, 'Bolts of the set', 8, NULL, 0, NULL, 0, 2, 0, 1, 1), (3, 10, 4, 'Pin of the set', 4, NULL, 0, NULL, 0, 2, 0, 1, 1),
        (5, 11, 1, 'Bolts back', 2, NULL, 3, 10, 5.4, NULL, 0, 1, 2), (6, 12, 3, 'Nuts', 3, NULL, 1.005, NULL, 3.015, NULL, 0, 2, 2),
        (7, 12, 5, 'An open set', 2, NULL, 40, 12.5, 70, NULL, 1, 2, NULL), (8, 12, 3, 'Nut of it', 2, NULL, 0, NULL, 0, 7, 0, 2, NULL),
        (9, 13, NULL, 'Interest', 1, NULL, 7.5, NULL, 7.5, NULL, 0, NULL, NULL), (10, 12, 2, 'Lid of a box', 0, NULL, 2, NULL, 1.5, 99, 0, 2, 1),
        (11, 10, 99, 'A gone item', 1, NULL, 4, NULL, 4, NULL, 0, 1, 1), (12, 10, 2, 'Priceless', 5, NULL, NULL, NULL, NULL, NULL, 0, 1, 1),
        (13, 14, 1, 'Ordered', 1, NULL, 9, NULL, 9, NULL, 0, 1, 1), (14, 15, 1, 'Late', 1, NULL, 9, NULL, 9, NULL, 0, 1, 1),
        (15, 16, 1, 'Early', 1, NULL, 9, NULL, 9, NULL, 0, 1, 1);)";

class InvoicedItemLists : public testing::Test {
protected:
    const TestCompany company{shop};

    ReportRun march(const char* member) const {
        return {.member = member, .company = company.path(), .from = "2024-03-01", .to = "2024-03-31"};
    }
};

// What a reader finds: headings, lines and subtotals as they follow one another.
Texts linesOf(const ReportResult& result) {
    Texts lines;
    for (const auto& page : result.kept.pages)
        for (const PlacedSection& section : page->sections) {
            if (section.info->kind == SectionKind::pageHeader || section.info->kind == SectionKind::reportFooter)
                continue;
            std::string line;
            for (const PlacedControl& control : section.controls) {
                if (control.info->kind == ControlKind::line) continue;
                line.append(line.empty() ? "" : " | ").append(control.text);
            }
            lines.push_back(line);
        }
    return lines;
}

TEST_F(InvoicedItemLists, ByItemCountInHomeCurrencyWhatDocumentsShow) {
    for (const int dialect : {0, 1}) {
        ReportRun run = march("InvStatByItem");
        run.dialect = dialect;
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        EXPECT_EQ(linesOf(result), (Texts{"Item: | ",
                                          "A - Ash | 2024-03-01 | F10 | 1 | $4.00 |  | $4.00",
                                          "Total | 1 | $4.00",
                                          "Item: | BOLT - Bolt",
                                          "A - Ash | 2024-03-01 | F10 | 10 | $3.00 | $3.00 | $27.00",
                                          "A - Ash | 2024-03-02 | N11 | 2 | -$2.40 | $0.60 | -$5.40",
                                          "Total | 12 | $21.60",
                                          "Item: | LID - Lid",
                                          "A - Ash | 2024-03-01 | F10 | 5 | $0.00 |  | $0.00",
                                          "Total | 5 | $0.00",
                                          "Item: | SET - Set",
                                          "A - Ash | 2024-03-01 | F10 | 1 | $50.00 |  | $50.00",
                                          "Total | 1 | $50.00",  // pins print in no set: their group is not there
                                          "Item: | ",
                                          "B - Birch | 2024-03-05 | I13 | 1 | $10.50 |  | $10.50",
                                          "Total | 1 | $10.50",
                                          "Item: | LID - Lid",
                                          "B - Birch | 2024-03-31 | U12 | 0 | $0.00 |  | $2.04",
                                          "Total | 0 | $2.04",
                                          "Item: | NUT - Nut",
                                          "B - Birch | 2024-03-31 | U12 | 3 | $1.36 |  | $4.09",
                                          "B - Birch | 2024-03-31 | U12 | 2 | $0.00 |  | $0.00",
                                          "Total | 5 | $4.09",
                                          "Item: | SET - Set",
                                          "B - Birch | 2024-03-31 | U12 | 2 | $54.32 | $13.58 | $95.05",
                                          "Total | 2 | $95.05"}));
        EXPECT_EQ(result.only("txtExtQtyTotal") + " " + result.only("txtExtGrandTotal"), "27 $187.28");
        EXPECT_EQ(result.only("lblEnd"), "10 record(s)");
        EXPECT_EQ(result.links("txtItem"),
                  (Texts{"ITM|", "ITM|1", "ITM|2", "ITM|5", "ITM|", "ITM|2", "ITM|3", "ITM|5"}));
        for (const char* name :
             {"fldQty", "txtDiscount", "txtUnitPrice", "txtExt", "txtCustName", "fldInvoiId", "fldInvoiDate"})
            EXPECT_EQ(last(result.links(name)), "INV|12") << name;
        const auto asked = std::ranges::count_if(
            result.sql, [](const std::string& query) { return query.find("ExKitInvoiDetId = ") != query.npos; });
        EXPECT_EQ(asked, 3) << "once a kit";
    }
}

TEST_F(InvoicedItemLists, ByItemKeepCurrenciesApartInForeignDisplay) {
    ReportRun run = march("InvStatByItem");
    run.foreign = true;
    const auto result = runReport(run);
    EXPECT_EQ(result.texts("txtCurrencyDescr"), (Texts{"CAD - Canadian dollar", "USD - US dollar"}));
    EXPECT_EQ(last(linesOf(result)), "Grand total | USD | 8 | $82.02");
    EXPECT_EQ(result.texts("txtCurrencyTotal"), (Texts{"$75.60", "$82.02"}));
    EXPECT_EQ(result.texts("txtQtyTotal"), (Texts{"19", "8"}));
    EXPECT_EQ(last(result.texts("txtUnitPrice")) + last(result.texts("txtDiscount")), "$40.00$10.00");
    for (const char* name : {"txtExtGrandTotal", "txtExtQtyTotal", "lblGrandTotal", "LineGrandTotal2"})
        EXPECT_EQ(result.texts(name), Texts{}) << name;

    const TestCompany home(std::string(shop) + "UPDATE CompanyFact SET Value = '0' WHERE Name = 'UsesForeignCurrency'");
    run.company = home.path();
    const auto plain = runReport(run);
    EXPECT_EQ(plain.texts("txtCurrencyDescr"), Texts{});
    EXPECT_EQ(plain.only("txtExtGrandTotal"), "$157.62") << "no rate counts";
}

TEST_F(InvoicedItemLists, ByCustomerKeepAKitsPartsBehindItAndLeaveOutWhatHasNoItemOrPrice) {
    for (const int dialect : {0, 1}) {
        ReportRun run = march("InvStatByCust");
        run.dialect = dialect;
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        EXPECT_EQ(linesOf(result),
                  (Texts{"Customer: | A - Ash", "BOLT - Bolt | 2024-03-01 | F10 | 10 | $3.00 | $3.00 | $27.00",
                         "SET - Set | 2024-03-01 | F10 | 1 | $50.00 |  | $50.00",
                         "A gone item | 2024-03-01 | F10 | 1 | $4.00 |  | $4.00",
                         "BOLT - Bolt | 2024-03-02 | N11 | 2 | -$2.40 | $0.60 | -$5.40", "Total | $75.60",
                         "Customer: | B - Birch", "NUT - Nut | 2024-03-31 | U12 | 3 | $1.36 |  | $4.09",
                         "SET - Set | 2024-03-31 | U12 | 2 | $54.32 | $13.58 | $95.05",
                         "NUT - Nut | 2024-03-31 | U12 | 2 | $0.00 |  | $0.00",
                         "LID - Lid | 2024-03-31 | U12 | 0 | $0.00 |  | $2.04", "Total | $101.18"}));
        EXPECT_EQ(result.only("txtExtGrandTotal"), "$176.78");
        EXPECT_EQ(result.links("lblClient"), (Texts{"CUS|1", "CUS|2"}));
        EXPECT_EQ(result.links("txtItemName").at(3), "INV|11");
    }
}

TEST_F(InvoicedItemLists, LeaveOutZeroAsWellAsWhatIsBelowIt) {
    for (const char* member : {"InvStatByItem", "InvStatByCust"}) {
        ReportRun run = march(member);
        run.options = {{"chkShowZeroTransaction", false}};
        const auto result = runReport(run);
        const Texts quantities = result.texts("fldQty");
        EXPECT_EQ(std::ranges::count(quantities, "0") + std::ranges::count(result.texts("txtUnitPrice"), "$0.00"), 0);
        EXPECT_EQ(quantities.size(), member == std::string("InvStatByItem") ? 7U : 6U) << member;
    }
}

TEST_F(InvoicedItemLists, NarrowToFilterSegmentsAndWarehouses) {
    const TestCompany stocked(std::string(shop) +
                              "UPDATE CompanyFact SET Value = '1' WHERE Name = 'DefaultWarehouseId'");
    for (const int dialect : {0, 1}) {
        ReportRun run = march("InvStatByItem");
        run.dialect = dialect;
        run.where = "Item.ItemId = 'NUT' OR Cust.Name = 'Ash'";
        run.order = "InvoiHdr.InvoiDate DESC";
        EXPECT_EQ(runReport(run).texts("fldInvoiId"), (Texts{"F10", "N11", "F10", "F10", "F10", "U12", "U12"}));
        run.segments = "2", run.noSegment = true;
        EXPECT_EQ(runReport(run).texts("fldInvoiId"), (Texts{"N11", "U12", "U12"}));
        run.company = stocked.path();
        run.where = "Warehouse.Name = 'Quebec City'";
        run.segments = "", run.noSegment = false;
        EXPECT_EQ(runReport(run).texts("fldInvoiId"), (Texts{"U12", "U12", "U12", "U12"}));
    }
    ReportRun run = march("InvStatByCust");
    run.order = "InvoiHdr.InvoiDate DESC, Item.ItemId";
    run.settings = {{104, "0"}};
    const auto result = runReport(run);
    EXPECT_EQ(result.texts("lblClient"), (Texts{"Ash", "Birch"}));
    EXPECT_EQ(first(result.texts("txtItemName")), "BOLT - Bolt");
    EXPECT_EQ(first(result.texts("fldInvoiId")), "N11");
    run.cancelFilter = true;
    EXPECT_EQ(runReport(run).only("lblEnd"), "0 record(s)");
    EXPECT_EQ(runReport(run).sql, Texts{});
}

TEST_F(InvoicedItemLists, ALineThatCannotBeConvertedShowsNoAmountsAndTheOthersStand) {
    const TestCompany unrated(std::string(shop) + "UPDATE InvoiHdr SET ExchangeRate = NULL WHERE InInvoiId = 11");
    ReportRun run = march("InvStatByCust");
    run.company = unrated.path();
    const auto result = runReport(run);
    ASSERT_EQ(result.boxes.size(), 1U);
    EXPECT_NE(result.boxes[0].find("in Quillo.dsrInvStatByCust.Detail_Format at line "), std::string::npos);
    EXPECT_EQ(linesOf(result).at(4), "BOLT - Bolt | 2024-03-02 | N11 | 2 |  |  | ");
    EXPECT_EQ(first(result.texts("txtExtTotal")), "$81.00");
}

// The demo company by a query that shares nothing with the report's but the documents.
TEST(InvoicedItemsOfTheDemo, AgreeWithTheDocuments) {
    const DemoFile demo;
    const sqlite::Database file(demo.path(), sqlite::Open::readOnly);
    sqlite::Statement row(
        file,
        "WITH Shown AS (SELECT InvoiDet.*, Sold.ExchangeRate, CASE InvoiType WHEN 3 THEN -1 ELSE 1 END AS Sign "
        "FROM InvoiDet JOIN InvoiHdr AS Sold ON InInvoiId = ExInvoiId JOIN Cust ON InCustId = ExCustId WHERE InvoiType "
        "< 50 AND InvoiDate LIKE '2025-1%' AND (ExKitInvoiDetId IS NULL OR (SELECT ComputeKitOption = 2 OR "
        "AllowKitModification <> 0 FROM InvoiDet AS Part JOIN Item ON InItemId = Part.ExItemId WHERE "
        "Part.ExKitInvoiDetId = InvoiDet.ExKitInvoiDetId ORDER BY InInvoiDetId LIMIT 1))) "
        "SELECT COUNT(*), SUM(Qty - COALESCE(QtyScrap, 0)), SUM(Sign * ROUND(BaseRowTotal * ExchangeRate, 2)), "
        "SUM(ExKitInvoiDetId IS NOT NULL) FROM Shown");
    row.step();
    ASSERT_GT(row.integer(3), 0) << "kits that show their parts";
    const LocaleFormat format;
    const auto result =
        runReport({.member = "InvStatByItem", .company = demo.path(), .from = "2025-10-01", .to = "2025-12-31"});
    EXPECT_EQ(result.boxes, Texts{});
    EXPECT_EQ(result.only("lblEnd"), std::to_string(row.integer(0)) + " record(s)");
    EXPECT_EQ(result.only("txtExtQtyTotal"), format.plainNumber(Variant(Money::fromDouble(row.real(1)))));
    EXPECT_EQ(result.only("txtExtGrandTotal"), format.currency(Money::fromDouble(row.real(2))));
}

}  // namespace
}  // namespace quillo::test
