#include <gtest/gtest.h>

#include "tests/support/report_runner.h"

namespace quillo::test {
namespace {

using Texts = std::vector<std::string>;

// March 2024 is asked for. Worked out on paper, a line a document: what the term asks for, what came in, what is left.
//
//   Ash    M2   mode 2 of 1000: 300 falls due in March; 100 came                     300.00  100.00  200.00
//          AHD  mode 2 of 1000: 500 came by February where 400 was due: 100 ahead    200.00    0.00  200.00
//          FAR  mode 2 of 1000: 800 came by February, 400 ahead: nothing            (left out)
//   Birch  M3   mode 3 of 100.01: 50.01 falls due on March 11; 59 and a discount of 1 came  50.01  60.00  0.00
//          TRM  a term without a mode expects nothing; 10 came                         0.00   10.00    0.00
//          M1   mode 1 of 200, due on March 20: 50 came before; 30 came              150.00   30.00  120.00
//          M4   mode 4 of 80, of March 5 and due on March 31: 20 came on the spot     80.00   20.00   60.00
//          LAT  mode 1, due in April; OLD was paid in February                       (left out)
//   Cedar  U1   mode 1 of 100 USD at 1.25, due on March 10: 40 came                  100.00   40.00   60.00
//   Dogwood paid long ago; a credit note is nothing that is expected.
constexpr const char* rows =
    "UPDATE CompanyFact SET Value = '1' WHERE Name = 'UsesForeignCurrency';"
    "INSERT INTO WorldCurrency VALUES (2, 'USD', 'US dollar');"
    "INSERT INTO Segment VALUES (1, 'S1', 'East');"
    "INSERT INTO Term (InTermId, TermId, TermMode) VALUES (1, 'N30', 1), (2, 'DAT', 2), (3, 'DAY', 3), (4, 'DOM', 4),"
    " (5, 'ODD', NULL);"
    "INSERT INTO PaymentSchedule (ExTermId, Position, Percent, DueDate, Days) VALUES (2, 1, 40, '2024-02-15', NULL),"
    " (2, 2, 30, '2024-03-15', NULL), (2, 3, 30, '2024-04-15', NULL), (3, 1, 50, NULL, 30), (3, 2, 50, NULL, 60);"
    "INSERT INTO Cust (InCustId, CustId, Name, Contact, Tel1, ExCurrencyId) VALUES (10, 'A', 'Ash', 'Al', '555', 1),"
    " (11, 'B', 'Birch', NULL, '556', 1), (12, 'C', 'Cedar', NULL, NULL, 2), (13, 'D', 'Dogwood', NULL, NULL, 1);"
    "INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, DueDate, ExCustId, ExTermId, ExCurrencyId,"
    " ExchangeRate, TotAmnt, RecAmnt, ExSegmentId) VALUES"
    " (1, 'M2', 1, '2024-01-20', '2024-04-15', 10, 2, 1, 1, 1000, NULL, 1),"
    " (2, 'AHD', 1, '2024-01-21', '2024-04-15', 10, 2, 1, 1, 1000, 0, NULL),"
    " (3, 'FAR', 1, '2024-01-22', '2024-04-15', 10, 2, 1, 1, 1000, 0, NULL),"
    " (4, 'M3', 1, '2024-02-10', '2024-04-10', 11, 3, 1, 1, 100.01, 0, NULL),"
    " (5, 'M1', 1, '2024-02-19', '2024-03-20', 11, 1, 1, NULL, 200, 0, NULL),"
    " (6, 'M4', 1, '2024-03-05', '2024-03-31', 11, 4, 1, 1, 80, 20, NULL),"
    " (7, 'LAT', 1, '2024-03-02', '2024-04-01', 11, 1, 1, 1, 70, 0, NULL),"
    " (8, 'OLD', 1, '2024-01-02', '2024-01-31', 11, 1, 1, 1, 40, 0, NULL),"
    " (9, 'TRM', 1, '2024-02-12', '2024-02-12', 11, 5, 1, 1, 30, 0, NULL),"
    " (10, 'CR', 3, '2024-02-13', '2024-02-13', 11, 1, 1, 1, -25, 0, NULL),"
    " (11, 'U1', 1, '2024-02-09', '2024-03-10', 12, 1, 2, 1.25, 100, 0, NULL),"
    " (12, 'DW', 1, '2023-02-09', '2023-03-10', 13, 1, 1, 1, 60, 60, NULL);"
    "INSERT INTO PmtHdr (InPmtId, PmtDate) VALUES (1, '2024-02-20'), (2, '2024-03-05');"
    "INSERT INTO PmtDet (ExPmtId, ExInvoiId, PmtAmnt, PmtDisc) VALUES (2, 1, 100, 0), (1, 2, 500, 0), (1, 3, 800, 0),"
    " (2, 4, 59, 1), (1, 5, 50, 0), (2, 5, 30, NULL), (1, 8, 40, 0), (2, 9, 10, 0), (2, 11, 40, 0);";

constexpr const char* detail = "ExpectedAndExceededPmtByCustDet";
constexpr const char* summary = "ExpectedAndExceededPmtByCustSum";

class ExpectedPayments : public testing::Test {
protected:
    const TestCompany company{rows};
    ReportRun march(const char* member) const {
        return {
            .member = member, .company = company.path(), .from = "2024-03-01", .to = "2024-03-31", .language = "ids"};
    }
};

TEST_F(ExpectedPayments, CompareWhatTermsAskForWithWhatCame) {
    for (const int dialect : {0, 1}) {
        ReportRun run = march(detail);
        run.dialect = dialect;
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        EXPECT_EQ(result.texts("lblCustomerName"), Texts{"#1573"});
        EXPECT_EQ(result.texts("lblInvoice"), Texts{"#2746"});
        EXPECT_EQ(result.texts("lblExpected"), Texts{"#5738"});
        EXPECT_EQ(result.texts("lblReceived"), Texts{"#5739"});
        EXPECT_EQ(result.texts("lblToReceive"), Texts{"#5740"});
        EXPECT_EQ(result.texts("fldDocNo"), (Texts{"M2", "AHD", "M3", "TRM", "M1", "M4", "U1"}));
        EXPECT_EQ(result.texts("fldExpected"),
                  (Texts{"300.00", "200.00", "50.01", "0.00", "150.00", "80.00", "125.00"}));
        EXPECT_EQ(result.texts("fldReceived"), (Texts{"100.00", "0.00", "60.00", "10.00", "30.00", "20.00", "50.00"}));
        EXPECT_EQ(result.texts("fldOverdue"), (Texts{"200.00", "200.00", "0.00", "0.00", "120.00", "60.00", "75.00"}));
        EXPECT_EQ(result.links("fldOverdue"), (Texts{"INV|1", "INV|2", "INV|4", "INV|9", "INV|5", "INV|6", "INV|11"}));
        EXPECT_EQ(result.links("fldExpected"), result.links("fldOverdue"));
        EXPECT_EQ(result.links("fldReceived"), result.links("fldOverdue"));
        EXPECT_EQ(result.texts("fldCustName"), (Texts{"A\r\nAsh\r\nAl\r\n555", "B\r\nBirch\r\n556", "C\r\nCedar"}));
        EXPECT_TRUE(result.texts("fldSumCustName").empty());
        EXPECT_EQ(result.only("lblEnd"), "7 #5860");
    }
}

TEST_F(ExpectedPayments, AddUpByCustomerByCurrencyAndInAll) {
    const auto result = runReport(march(detail));
    EXPECT_EQ(result.texts("fldSumCustExpected"), (Texts{"500.00", "280.01", "125.00"}));
    EXPECT_EQ(result.texts("fldSumCustReceived"), (Texts{"100.00", "120.00", "50.00"}));
    EXPECT_EQ(result.texts("fldSumCustOverdue"), (Texts{"400.00", "180.00", "75.00"}));
    EXPECT_EQ(result.texts("lblCurrency"), (Texts{"CAD - Canadian dollar", "USD - US dollar"}));
    EXPECT_EQ(result.texts("fldSumCurrExpected"), (Texts{"780.01", "125.00"}));
    EXPECT_EQ(result.texts("fldSumCurrReceived"), (Texts{"220.00", "50.00"}));
    EXPECT_EQ(result.texts("fldSumCurrOverdue"), (Texts{"580.00", "75.00"}));
    EXPECT_EQ(result.only("Field1") + " " + result.only("Field2") + " " + result.only("Field3"),
              "905.01 270.00 655.00");

    ReportRun foreign = march(detail);
    foreign.foreign = true;
    const auto inForeign = runReport(foreign);
    EXPECT_EQ(last(inForeign.texts("fldExpected")), "100.00");
    EXPECT_EQ(inForeign.texts("fldSumCurrOverdue"), (Texts{"580.00", "60.00"}));
    for (const char* total : {"lblTotal", "Field1", "Field2", "Field3", "LineGrandTotal1"})
        EXPECT_TRUE(inForeign.texts(total).empty()) << "CAD and USD are not added up: " << total;
}

void eachOf(const ReportResult& result, std::string_view name,
            const std::function<void(const PlacedControl& control)>& take) {
    for (const auto& page : result.kept.pages)
        for (const PlacedSection& section : page->sections)
            for (const PlacedControl& control : section.controls)
                if (control.info->name == name) take(control);
}

std::vector<float> topsOf(const ReportResult& result, std::string_view name) {
    std::vector<float> tops;
    eachOf(result, name, [&](const PlacedControl& control) { tops.push_back(control.top); });
    return tops;
}

TEST_F(ExpectedPayments, WhatIsStillToComeIsBold) {
    std::vector<bool> bold;
    eachOf(runReport(march(detail)), "fldOverdue",
           [&](const PlacedControl& control) { bold.push_back(control.style->bold); });
    EXPECT_EQ(bold, (std::vector<bool>{true, true, false, false, true, true, true}));
}

TEST_F(ExpectedPayments, TheSummaryIsALineACustomer) {
    const auto result = runReport(march(summary));
    EXPECT_EQ(result.boxes, Texts{});
    EXPECT_EQ(result.texts("fldSumCustName"), (Texts{"A - Ash", "B - Birch", "C - Cedar"}));
    EXPECT_EQ(result.texts("fldSumCustOverdue"), (Texts{"400.00", "180.00", "75.00"}));
    for (const char* control : {"fldSumCustName", "fldSumCustExpected", "fldSumCustReceived", "fldSumCustOverdue"}) {
        EXPECT_EQ(result.links(control), (Texts{"10", "11", "12"})) << control;
        EXPECT_EQ(topsOf(result, control), topsOf(runReport(march(detail)), "fldCustName")) << control;
    }
    for (const char* hidden : {"lblInvoice", "fldCustName", "fldDocNo", "fldOverdue"})
        EXPECT_TRUE(result.texts(hidden).empty()) << hidden;
    EXPECT_EQ(result.only("Field3"), "655.00");
    EXPECT_EQ(result.only("lblEnd"), "3 #7622");
    EXPECT_EQ(runReport(march(detail)).links("fldSumCustOverdue"), (Texts{"", "", ""}));
}

TEST_F(ExpectedPayments, NamesAndCurrenciesFollowTheCompany) {
    ReportRun run = march(detail);
    run.settings[Setting::customerCodes] = "0";
    EXPECT_EQ(runReport(run).texts("fldCustName"), (Texts{"Ash\r\nAl\r\n555", "Birch\r\n556", "Cedar"}));
    run.member = summary;
    EXPECT_EQ(runReport(run).texts("fldSumCustName"), (Texts{"Ash", "Birch", "Cedar"}));
    run = march(detail);
    run.properties["ReportType"] = "3";
    EXPECT_THROW(runReport(run), InputError);

    const TestCompany home(std::string(rows) + "UPDATE CompanyFact SET Value = '0' WHERE Name = 'UsesForeignCurrency'");
    run = march(detail);
    run.company = home.path();
    const auto result = runReport(run);
    EXPECT_TRUE(result.texts("lblCurrency").empty());
    EXPECT_TRUE(result.texts("fldSumCurrExpected").empty());
}

TEST_F(ExpectedPayments, ADetailShowsAllOpenDocumentsWhenAsked) {
    ReportRun run = march(detail);
    run.options = {{"chkShowZeroTransaction", true}};
    const auto result = runReport(run);
    EXPECT_EQ(result.texts("fldDocNo"), (Texts{"M2", "AHD", "FAR", "OLD", "M3", "TRM", "M1", "LAT", "M4", "DW", "U1"}));
    EXPECT_EQ(last(result.texts("fldSumCustOverdue")), "75.00");
    EXPECT_EQ(result.only("Field3"), "655.00");
    run.member = summary;
    EXPECT_EQ(runReport(run).texts("fldSumCustName").size(), 3U) << "the summary is not asked";
}

TEST_F(ExpectedPayments, WithoutLimitsEverythingDueIsExpected) {
    ReportRun run = march(detail);
    run.from = run.to = "";
    run.where = "Cust.Name = 'Birch'";
    const auto result = runReport(run);
    EXPECT_EQ(result.texts("fldDocNo"), (Texts{"OLD", "M3", "TRM", "M1", "LAT", "M4"}));
    EXPECT_EQ(result.texts("fldExpected"), (Texts{"40.00", "100.01", "0.00", "200.00", "70.00", "80.00"}));
    EXPECT_EQ(result.texts("fldReceived"), (Texts{"40.00", "60.00", "10.00", "80.00", "0.00", "20.00"}));
    run.from = "2024-03-01", run.to = "2024-03-01";
    EXPECT_EQ(runReport(run).texts("fldDocNo"), Texts{}) << "nothing is due or paid on that day";
}

TEST_F(ExpectedPayments, ACustomerAndSegmentsNarrowTheRows) {
    ReportRun run = march(summary);
    run.properties["CustId"] = "11";
    auto result = runReport(run);
    EXPECT_EQ(result.texts("fldSumCustName"), Texts{"B - Birch"});
    EXPECT_NE(last(result.sql).find(" WHERE InvoiHdr.InvoiType <> 3 AND InvoiHdr.ExCustId = ? ORDER BY"),
              std::string::npos);
    run = march(detail);
    run.segments = "1";
    EXPECT_EQ(runReport(run).texts("fldDocNo"), Texts{"M2"});
    run.noSegment = true;
    run.where = "InvoiHdr.TotAmnt > 500";
    result = runReport(run);
    EXPECT_EQ(result.texts("fldDocNo"), (Texts{"M2", "AHD"}));
    EXPECT_NE(last(result.sql)
                  .find(" WHERE InvoiHdr.InvoiType <> 3 AND (InvoiHdr.ExSegmentId IN (1) OR "
                        "InvoiHdr.ExSegmentId IS NULL) AND (InvoiHdr.TotAmnt > 500)  ORDER BY "
                        "InvoiHdr.ExCurrencyId, Cust.Name, InvoiHdr.InvoiDate\""),
              std::string::npos)
        << last(result.sql);
}

// A host's own filter tool, which gives an order as its user wrote it.
struct BareOrder final : FilterTool {
    BareOrder(IFilterableReport& asking, std::string wanted) : report(asking), order(std::move(wanted)) {}
    void GetFilter(const std::string&, bool, bool, bool&, bool, bool) override {
        report.IFilterableReport_Filter("|" + order);
    }
    FilterInfo GetFilterInfo() override { return {}; }
    IFilterableReport& report;
    std::string order;
};

TEST_F(ExpectedPayments, AUsersOrderKeepsCurrenciesAndCustomersWhole) {
    const auto orderOf = [&](const ReportRun& run, const std::string& order) {
        std::unique_ptr<BareOrder> tool;
        const auto result = runReport(run, [&](Report& report) {
            auto& filterable = dynamic_cast<IFilterableReport&>(report);
            tool = std::make_unique<BareOrder>(filterable, order);
            filterable.IFilterableReport_FilterTool(*tool);
        });
        EXPECT_EQ(result.boxes, Texts{});
        EXPECT_EQ(result.texts("lblCurrency").size(), run.company == company.path() ? 2U : 0U) << order;
        EXPECT_EQ(result.texts("fldCustName").size(), 3U) << order;
        const std::string sql = last(result.sql);
        const auto begin = sql.find(" ORDER BY ");
        return sql.substr(begin, sql.find('"', begin) - begin);
    };
    const ReportRun run = march(detail);
    EXPECT_EQ(orderOf(run, "InvoiHdr.TotAmnt DESC"),
              " ORDER BY InvoiHdr.ExCurrencyId, Cust.Name, InvoiHdr.InvoiDate, InvoiHdr.TotAmnt DESC");
    EXPECT_EQ(orderOf(run, "Name DESC, InvoiDate"), " ORDER BY InvoiHdr.ExCurrencyId, Cust.Name DESC, InvoiDate");
    EXPECT_EQ(orderOf(run, "CUSTID, InvoiHdr.ExCustId"),
              " ORDER BY InvoiHdr.ExCurrencyId, Cust.CustId, InvoiHdr.ExCustId");
    EXPECT_EQ(orderOf(run, "Cust.CustId DESC, Cust.Name"),
              " ORDER BY InvoiHdr.ExCurrencyId, Cust.CustId DESC, Cust.Name");
    EXPECT_EQ(orderOf(run, "InvoiHdr.InvoiDate DESC, CustId"),
              " ORDER BY InvoiHdr.ExCurrencyId, Cust.Name, InvoiHdr.InvoiDate, Cust.CustId");
    EXPECT_EQ(orderOf(run, ""), " ORDER BY InvoiHdr.ExCurrencyId, Cust.Name, InvoiHdr.InvoiDate");

    const TestCompany home(std::string(rows) + "UPDATE CompanyFact SET Value = '0' WHERE Name = 'UsesForeignCurrency'");
    ReportRun atHome = run;
    atHome.company = home.path();
    EXPECT_EQ(orderOf(atHome, "InvoiHdr.TotAmnt"), " ORDER BY Cust.Name, InvoiHdr.InvoiDate, InvoiHdr.TotAmnt");
    EXPECT_EQ(orderOf(atHome, "Name"), " ORDER BY Cust.Name");
}

}  // namespace
}  // namespace quillo::test
