#include <gtest/gtest.h>

#include <algorithm>

#include "reports/ageing/ageing.h"
#include "reports/ageing/dsrCustAgingDetail.h"
#include "reports/ageing/dsrCustAgingSummary.h"
#include "tests/company/demo_file.h"
#include "tests/support/list_host.h"
#include "tests/support/receivables_company.h"
#include "tests/support/report_runner.h"

namespace quillo::test {
namespace {

using Texts = std::vector<std::string>;

ReportRun ageing(const std::string& member, const std::string& company, const std::string& to) {
    return {.member = member, .company = company, .to = to, .sessionDate = "2024-03-31", .language = "ids"};
}

// A line of amounts as it prints: "155.00 58.00 0.00 0.00 | 213.00".
Texts lines(const ReportResult& result, const std::string& ending) {
    const auto plain = [](std::string text) {
        std::erase_if(text, [](char c) { return c == '$' || c == ','; });
        return text.empty() ? "-" : text;
    };
    std::vector<Texts> columns;
    for (const char* column : {"1", "2", "3", "4"})
        columns.push_back(result.texts(std::string("txtPer").append(column).append(ending)));
    columns.push_back(result.texts("txtTot" + ending));
    Texts found;
    for (std::size_t i = 0; i < columns.back().size(); ++i) {
        found.emplace_back();
        for (std::size_t c = 0; c < ageColumns; ++c) found.back() += plain(nth(columns[c], i)) + " ";
        found.back() += "| " + plain(columns.back()[i]);
    }
    return found;
}

std::vector<float> heights(const ReportResult& result, std::string_view section) {
    std::vector<float> found;
    for (const auto& page : result.kept.pages)
        for (const PlacedSection& placed : page->sections)
            if (placed.info->name == section) found.push_back(placed.height);
    return found;
}

// --- worked out on paper -------------------------------------------------------------------------

struct Aged {
    const char* to;
    Texts customers;  // Ash, Birch, Dogwood
    const char* grand;
};
// A document of 60 days is in the second column, one of 90 in the third; U2's 80 and 30 USD at 1.3333 are 106.66 and
// 40.00. The adjustments of -16 stand in the total alone.
const Aged paper[] = {
    {"2024-03-31",
     {"155.00 58.00 0.00 0.00 | 213.00", "74.16 1350.00 0.00 0.00 | 1424.16", "14.00 -25.00 0.00 0.00 | -11.00"},
     "243.16 1383.00 0.00 0.00 | 1610.16"},
    {"2024-04-27",
     {"5.00 150.00 58.00 0.00 | 213.00", "0.00 74.16 810.00 0.00 | 884.16", "-10.00 14.00 -25.00 0.00 | -21.00"},
     "-5.00 238.16 843.00 0.00 | 1060.16"},
    {"2024-05-15",
     {"0.00 5.00 150.00 58.00 | 213.00", "0.00 0.00 884.16 0.00 | 884.16", "45.00 14.00 0.00 -10.00 | 49.00"},
     "45.00 19.00 1034.16 48.00 | 1130.16"},
};

Texts withBlankZeros(Texts lines) {
    for (std::string& line : lines)
        for (auto at = line.find(" 0.00 "); at != line.npos; at = line.find(" 0.00 ")) line.replace(at, 6, " - ");
    for (std::string& line : lines)
        if (line.starts_with("0.00 ")) line.replace(0, 4, "-");
    return lines;
}

TEST(CustAging, AgesWhatWasOpenOnTheDayInHomeCurrency) {
    const TestCompany company(receivables);
    for (const auto& [to, customers, grand] : paper)
        for (const int dialect : {0, 1}) {
            SCOPED_TRACE(to);
            auto run = ageing("CustAgingDetail", company.path(), to);
            run.dialect = dialect;
            const auto detail = runReport(run);
            EXPECT_EQ(detail.boxes, Texts{});
            EXPECT_EQ(detail.texts("fldName"), (Texts{"Ash", "Birch", "Dogwood"}));
            EXPECT_EQ(lines(detail, "Total"), customers);
            EXPECT_EQ(lines(detail, "GrTotal"), Texts{grand});
            EXPECT_EQ(lines(detail, "TotalEval"), Texts{});
            EXPECT_EQ(lines(detail, "GrTotalEval"), Texts{});
            EXPECT_EQ(detail.only("txtAdjustmentsTotal"), "-$16.00");
            EXPECT_EQ(detail.only("lblEnd"), "3 #7622");
            EXPECT_EQ(detail.texts("lblCurrencyName"), Texts{});

            run.member = "CustAgingSummary";
            const auto summary = runReport(run);
            EXPECT_EQ(summary.boxes, Texts{});
            EXPECT_EQ(summary.texts("fldName"), (Texts{"A - Ash", "B - Birch", "D - Dogwood"}));
            EXPECT_EQ(lines(summary, "Total"), withBlankZeros(customers));
            EXPECT_EQ(lines(summary, "GrTotal"), Texts{grand});
            EXPECT_EQ(summary.only("lblEnd"), "3 #7622");
        }
}

TEST(CustAging, StandsByCurrencyInForeignDisplayWithTheAdjustmentsOfEach) {
    const TestCompany company(receivables);
    auto run = ageing("CustAgingDetail", company.path(), "2024-03-31");
    run.foreign = true;
    const auto detail = runReport(run);
    EXPECT_EQ(detail.boxes, Texts{});
    EXPECT_EQ(detail.texts("lblCurrencyName"), (Texts{"Canadian dollar", "US dollar"}));
    EXPECT_EQ(detail.texts("fldName"), (Texts{"Ash", "Dogwood", "Birch", "Dogwood"}));
    // Dogwood's dollars of the one kind are not added to those of the other.
    EXPECT_EQ(lines(detail, "Total"), (Texts{"155.00 58.00 0.00 0.00 | 213.00", "0.00 -25.00 0.00 0.00 | -25.00",
                                             "50.00 1000.00 0.00 0.00 | 1050.00", "10.00 0.00 0.00 0.00 | 10.00"}));
    EXPECT_EQ(detail.texts("lblSubTotal"), Texts(4, "#2710"));
    EXPECT_EQ(detail.texts("txtAdjustmentsCurrency"), (Texts{"-$3.00", "-$10.00"}));
    EXPECT_EQ(lines(detail, "TotalForeign"),
              (Texts{"155.00 33.00 0.00 0.00 | 185.00", "60.00 1000.00 0.00 0.00 | 1050.00"}));
    EXPECT_EQ(detail.texts("lblSubTotalForeign"), (Texts{"#1641 CAD", "#1641 USD"}));
    EXPECT_EQ(detail.texts("lblEnd"), Texts{});
    EXPECT_EQ(detail.texts("txtCurrEqual"), Texts{});
    // A correction in home currency is none of theirs.
    EXPECT_EQ(nth(detail.texts("txtPer1"), 8), "$0.00");

    run.member = "CustAgingSummary";
    const auto summary = runReport(run);
    EXPECT_EQ(summary.texts("lblCurrencyName"), (Texts{"CAD - Canadian dollar", "USD - US dollar"}));
    EXPECT_EQ(lines(summary, "Total"), (Texts{"155.00 58.00 - - | 213.00", "- -25.00 - - | -25.00",
                                              "50.00 1000.00 - - | 1050.00", "10.00 - - - | 10.00"}));
    EXPECT_EQ(lines(summary, "GrTotalForeign"), (Texts{"155.00 33.00 - - | 185.00", "60.00 1000.00 - - | 1050.00"}));
    EXPECT_EQ(summary.texts("txtAdjustmentsCurrency"), (Texts{"-$3.00", "-$10.00"}));
    EXPECT_EQ(summary.texts("lblEnd"), Texts{});
}

// 1000 USD are 1500, U2's 50 are 75, D1's 10 are 15; the correction does not take part.
TEST(CustAging, ReevaluatesAtTheRatesOfTheDayOrAtGivenOnes) {
    const TestCompany company(receivables);
    struct Way {
        const char *to, *ratesDate, *given, *rate;
    };
    // A rate that is given; of a day that is named; of the end date, which is later than the session's.
    const Way ways[] = {{"2024-03-31", "", "1.5", "1.5"}, {"2024-03-31", "2024-04-01", "", "1.5"}};
    for (const auto& [to, ratesDate, given, rate] : ways) {
        auto run = ageing("CustAgingDetail", company.path(), to);
        run.reevaluate = true;
        run.ratesDate = ratesDate;
        if (*given != 0) run.rates = {{"USD", given}};
        const auto detail = runReport(run);
        EXPECT_EQ(detail.boxes, Texts{});
        EXPECT_EQ(lines(detail, "Total"), paper[0].customers) << "at the rates of the documents";
        EXPECT_EQ(detail.texts("lblSubTotalEval"), (Texts{std::string("#5850 ") + rate, std::string("#5850 ") + rate}));
        EXPECT_EQ(lines(detail, "TotalEval"),
                  (Texts{"75.00 1500.00 0.00 0.00 | 1575.00", "15.00 -25.00 0.00 0.00 | -10.00"}));
        EXPECT_EQ(lines(detail, "GrTotal"), Texts{paper[0].grand});
        EXPECT_EQ(lines(detail, "GrTotalEval"), Texts{"245.00 1533.00 0.00 0.00 | 1778.00"});
        EXPECT_EQ(detail.texts("txtCurrEqual"), Texts{});

        run.member = "CustAgingSummary";
        const auto summary = runReport(run);
        EXPECT_EQ(summary.texts("fldName"), (Texts{"A - Ash (CAD)", "B - Birch (USD)", "D - Dogwood (CAD)"}));
        EXPECT_EQ(lines(summary, "Total"),
                  (Texts{"155.00 58.00 - - | 213.00", "75.00 1500.00 - - | 1575.00", "15.00 -25.00 - - | -10.00"}));
        EXPECT_EQ(lines(summary, "GrTotal"), Texts{"245.00 1533.00 0.00 0.00 | 1762.00"});
        EXPECT_EQ(summary.only("txtCurrencyRates"), std::string("1 USD = ") + rate + " CAD");
    }
    auto run = ageing("CustAgingSummary", company.path(), "2024-03-31");
    run.rates = {{"USD", "9"}};
    const auto summary = runReport(run);
    EXPECT_EQ(lines(summary, "GrTotal"), Texts{paper[0].grand}) << "rates alone re-evaluate nothing";
    EXPECT_EQ(summary.texts("txtCurrencyRates"), Texts{});
    run.reevaluate = true, run.rates.clear();
    EXPECT_EQ(runReport(run).only("txtCurrencyRates"), "1 USD = 1.25 CAD") << "of the end date";
    run.ratesDate = "soon";
    EXPECT_THROW(runReport(run), InputError);
    run.ratesDate = "", run.to = "", run.sessionDate = "2024-04-02";
    EXPECT_EQ(runReport(run).only("txtCurrencyRates"), "1 USD = 1.5 CAD") << "of the session's date";
}

TEST(CustAging, WithoutADateRunsToTheSessionsAndADocumentAheadOfItIsInTheFirstColumn) {
    const TestCompany company(receivables);
    auto run = ageing("CustAgingDetail", company.path(), "");
    const auto detail = runReport(run);
    EXPECT_EQ(lines(detail, "Total"), (Texts{"155.00 58.00 0.00 0.00 | 213.00", "74.16 810.00 0.00 0.00 | 884.16",
                                             "59.00 -10.00 0.00 0.00 | 49.00"}));
    run.member = "CustAgingSummary";
    EXPECT_EQ(lines(runReport(run), "Total"), withBlankZeros(lines(detail, "Total")));
}

// --- what the rows say -----------------------------------------------------------------------------

TEST(CustAgingDetail, TellsEachDocumentAndUnderItWhatSettledIt) {
    const TestCompany company(receivables);
    const auto result = runReport(ageing("CustAgingDetail", company.path(), "2024-05-15"));
    EXPECT_EQ(result.texts("fldInvoiId"), (Texts{"F1", "901", "901", "F2", "N1", "N1", "I1", "U1", "903", "AJ-1", "U2",
                                                 "77", "905", "905", "D1", "D2", "907", "905"}));
    EXPECT_EQ(result.texts("lblType"),
              (Texts{"#1413", "#1414", "#4025", "#1413", "#1415", "(#1415)", "#1394", "#1413", "#1414", "#4509",
                     "#1413", "#1414", "#1414", "#1415", "#1413", "#1413", "#1414", "#1415"}));
    EXPECT_EQ(result.texts("txtTotal"),
              (Texts{"$100.00", "$60.00", "$58.00", "$258.00", "$228.00", "$208.00", "$213.00", "$1,350.00", "$810.00",
                     "$817.50", "$924.16", "$884.16", "-$25.00", "-$10.00", "$4.00", "$74.00", "$64.00", "$49.00"}));
    EXPECT_EQ(nth(result.texts("fldInvoiDate"), 1), "2024-02-10");
    EXPECT_EQ(result.links("txtTotal"), (Texts{"INV|101", "PMT|301", "PMT|301|100", "INV|102", "PMT|302", "INV|103",
                                               "INV|104", "INV|105", "PMT|303", "", "INV|106", "PMT|106", "PMT|305",
                                               "PMT|306", "INV|109", "INV|110", "PMT|307", "PMT|306"}));
    EXPECT_EQ(result.links("txtPer4"),
              (Texts{"INV|101", "PMT|301", "PMT|301", "INV|102", "PMT|302", "INV|103", "INV|104", "INV|105", "PMT|303",
                     "", "INV|106", "PMT|106", "PMT|305", "PMT|306", "INV|109", "INV|110", "PMT|307", "PMT|306"}));
    // The amount stands in the document's column, the others are empty; a settlement is as old as what it settles.
    EXPECT_EQ(result.texts("txtPer1"),
              (Texts{"", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "$70.00", "-$10.00", "-$15.00"}));
    EXPECT_EQ(nth(result.texts("txtPer4"), 2), "-$2.00");
    EXPECT_EQ(nth(result.texts("txtPer4"), 3), "");
    EXPECT_EQ(result.texts("txtCurrEqual"),
              (Texts{"1 USD #1849 1.35 CAD", "1 USD #1849 1.35 CAD", "1 USD #1849 1.3333 CAD", "1 USD #1849 1.4 CAD"}));
    EXPECT_EQ(result.texts("lblSubTotal"), Texts(3, "#5852"));
    EXPECT_EQ(result.texts("fldCurrency"), (Texts{"Canadian dollar", "US dollar", "Canadian dollar"}));
    for (const char* caption : {"lblPer1Cap", "lblPer2Cap", "lblPer3Cap", "lblPer4Cap"})
        EXPECT_NE(result.only(caption).find_first_of("1369"), std::string::npos);
    EXPECT_EQ(result.only("lblPer2Cap"), "31 - 60");
    EXPECT_EQ(result.only("lblPer4Cap"), "91+");
    EXPECT_TRUE(first(result.links("txtAdjustmentsTotal")).starts_with("ARAdjust|SELECT SUM(DetAmnt)"));
}

TEST(CustAgingDetail, ListsWhatIsPaidWhereTheCompanyWishesAndOneCustomerAlone) {
    const TestCompany company(receivables);
    auto run = ageing("CustAgingDetail", company.path(), "2024-03-31");
    run.parameters["CustIncPaidInv"] = "1";
    run.properties["CustId"] = "12";
    const auto paid = runReport(run);
    // The credit note that is used up gives up its row; the cash sale was never owed.
    EXPECT_EQ(paid.texts("fldInvoiId"), (Texts{"C1", "N2", "904"}));
    EXPECT_EQ(paid.texts("txtTotal"), (Texts{"$60.00", "$55.00", "$0.00"}));
    EXPECT_EQ(paid.only("lblEnd"), "1 #7622");
    run.properties["CustId"] = "13";
    run.parameters.clear();
    EXPECT_EQ(lines(runReport(run), "Total"), Texts{paper[0].customers[2]});
    run.properties["CustId"] = "12";
    EXPECT_EQ(runReport(run).texts("fldInvoiId"), Texts{});
    run.member = "CustAgingSummary", run.properties.clear();
    run.parameters["CustIncPaidInv"] = "1";
    EXPECT_EQ(runReport(run).texts("fldName"), (Texts{"A - Ash", "B - Birch", "D - Dogwood"}));
}

TEST(CustAging, TakesBoundsSegmentsFilterAndOrderOfTheUser) {
    const TestCompany company(receivables);
    for (const char* member : {"CustAgingDetail", "CustAgingSummary"}) {
        auto run = ageing(member, company.path(), "2024-03-31");
        run.parameters = {{"CustPriod1", "20"}, {"CustPriod2", "10"}, {"CustPriod3", "44"}};
        const auto odd = runReport(run);
        EXPECT_EQ(odd.only("lblPer2Cap"), "21 - 10");
        // D1 is 11 days old, U2 21, the correction 26, F2 30, U1 45.
        EXPECT_EQ(lines(odd, "GrTotal"), Texts{"19.00 0.00 224.16 1383.00 | 1610.16"});
        run.parameters.clear();
        run.segments = "2";
        EXPECT_EQ(lines(runReport(run), "Total").size(), 1U);
        EXPECT_EQ(lines(runReport(run), "GrTotal"), Texts{"200.00 0.00 0.00 0.00 | 200.00"});
        run.noSegment = true;
        run.where = "Cust.CustId = 'A' OR Cust.CustId = 'D'";
        EXPECT_EQ(lines(runReport(run), "GrTotal"), Texts{"169.00 -25.00 0.00 0.00 | 128.00"})
            << "the user's condition does not reach beyond the segments";
        run = ageing(member, company.path(), "2024-03-31");
        run.order = "Cust.Name DESC";
        const auto sorted = runReport(run);
        EXPECT_EQ(lines(sorted, "GrTotal"), Texts{paper[0].grand});
        EXPECT_NE(first(sorted.texts("fldName")).find("Dogwood"), std::string::npos);
        run.settings[Setting::customerCodes] = "0";
        EXPECT_EQ(last(runReport(run).texts("fldName")), "Ash");
    }
}

TEST(CustAgingSummary, LeadsToTheCustomer) {
    const TestCompany company(receivables);
    const auto result = runReport(ageing("CustAgingSummary", company.path(), "2024-03-31"));
    EXPECT_EQ(result.links("txtPer3Total"), (Texts{"10", "11", "13"}));
    EXPECT_EQ(result.links("txtTotTotal"), (Texts{"10", "11", "13"}));
}

// --- the footer's height -----------------------------------------------------------------------------

TEST(CustAgingDetail, AFooterReachesBelowTheCustomersStackedFields) {
    const TestCompany company(receivables);
    const auto run = ageing("CustAgingDetail", company.path(), "2024-03-31");
    const auto withHeader = [&](float height) {
        return heights(runReport(run, [&](Report& report) { report.section("ghCustId").Height = height; }), "gfCustId");
    };
    // Ash prints 6 rows, 1620 high; Birch 4 and 2 lines of rates, 1560; Dogwood 2 and 1, 780.
    EXPECT_EQ(withHeader(1305), (std::vector<float>{360, 360, 575}));
    EXPECT_EQ(withHeader(1680), (std::vector<float>{360, 360, 950})) << "60 and 50 hold less than the controls need";
    EXPECT_EQ(withHeader(1630), (std::vector<float>{1680, 360, 900})) << "10 short of the header: its full height";
    EXPECT_EQ(withHeader(1640), (std::vector<float>{1690, 360, 910}));
    EXPECT_EQ(withHeader(1641), (std::vector<float>{360, 360, 911}));
    EXPECT_EQ(withHeader(1620), (std::vector<float>{360, 360, 890}));
}

// --- rows that a company of ours does not have -----------------------------------------------------

class ListedRows : public testing::Test {
protected:
    ListedRows() : host(*session) {}

    // Customer, key, kind, the document's kind, days before the session's date, balance, rate.
    void row(Variant customer, Variant key, int kind, int documentKind, int age, Variant balance, Variant currency = 1,
             double rate = 1) {
        const std::string name = customer.isNull() ? "" : "Customer " + customer.toText();
        const Date day{session->SessionDate().days - age};
        const char* code = currency.isNull() ? "" : currency.toInt32() == 1 ? "CAD" : "USD";
        host.rows.push_back({customer, customer, name, name + "|" + customer.textOrEmpty(), currency, code, key, kind,
                             documentKind, day, key, balance, rate});
    }
    template <class R>
    ReportResult run(bool foreign = false) {
        R report(host);
        report.IReport_Application(*session);
        report.IReport_DateTo(noEndLimit);
        report.IReport_DisplayForeignCurrency(foreign);
        if (generator != nullptr) report.IComparableReport_ComparableReportGen(generator);
        session.messages.texts.clear();
        ReportResult result;
        FixedMeasure measure;
        runReport(report, result.kept, measure);
        result.boxes = session.messages.texts;
        return result;
    }
    static SessionOptions options() {
        SessionOptions options;
        options.language = "ids";
        options.sessionDate = Date::fromCivil(2024, 3, 31);
        return options;
    }

    TestSession session{receivables, options()};
    ListHost host;
    ComparableReportGen* generator = nullptr;
};

TEST_F(ListedRows, WithoutADocumentPrintNothingAndCountNoCustomer) {
    row(1, Variant(), 1, 1, 5, Money::fromInteger(7));
    row(2, 901, 1, 1, 5, Money::fromInteger(9));
    row(3, Variant(), 1, 1, 5, Money::fromInteger(7));
    const auto detail = run<dsrCustAgingDetail>();
    EXPECT_EQ(detail.boxes, Texts{});
    EXPECT_EQ(detail.texts("fldName"), Texts{"Customer 2"});
    EXPECT_EQ(lines(detail, "Total"), Texts{"9.00 0.00 0.00 0.00 | 9.00"});
    EXPECT_EQ(detail.only("lblEnd"), "1 #7622");
    EXPECT_EQ(host.asked.day, noEndLimit);
    const auto summary = run<dsrCustAgingSummary>();
    EXPECT_EQ(summary.texts("fldName"), Texts{"2 - Customer 2"});
    EXPECT_EQ(summary.only("lblEnd"), "1 #7622");
}

TEST_F(ListedRows, OfACreditNoteTakeItsBalanceOfTheDayAndLeaveOutWhatSettledIt) {
    row(1, 112, 3, 3, 80, Money::fromInteger(-500));  // used up
    row(1, 308, 99, 3, 80, Money::fromInteger(5));
    row(1, 103, 3, 3, 29, Money::fromInteger(-500));  // -20 are left
    row(1, 302, 99, 1, 29, Variant());                // an amount that is missing is none
    const auto detail = run<dsrCustAgingDetail>();
    EXPECT_EQ(detail.texts("txtTotal"), (Texts{"-$20.00", "-$20.00"}));
    EXPECT_EQ(lines(detail, "GrTotal"), Texts{"-20.00 0.00 0.00 0.00 | -36.00"});
    EXPECT_EQ(lines(run<dsrCustAgingSummary>(), "Total"), Texts{"-20.00 - - - | -20.00"});
}

TEST_F(ListedRows, ThatCancelOutPrintNoLineUnlessInDifferentColumns) {
    row(1, 901, 1, 1, 5, Money::fromInteger(7));
    row(1, 902, 99, 1, 5, Money::fromInteger(-7));
    row(2, 903, 1, 1, 5, Money::fromInteger(100));
    row(2, 904, 99, 99, 95, Money::fromInteger(-100));
    const auto summary = run<dsrCustAgingSummary>();
    EXPECT_EQ(summary.texts("fldName"), Texts{"2 - Customer 2"});
    EXPECT_EQ(lines(summary, "Total"), Texts{"100.00 - - -100.00 | 0.00"});
    EXPECT_EQ(run<dsrCustAgingDetail>().only("lblEnd"), "2 #7622") << "each customer with a document counts";
}

// Without customer, currency, date shown and a kind that is known.
TEST_F(ListedRows, WithNullKeysStillCount) {
    row(Variant(), 901, 1, 1, 5, Money::fromInteger(7), Variant());
    row(Variant(), 902, 55, 1, 40, Money::fromInteger(2), Variant());
    row(4, 903, 1, 1, 5, Money::fromInteger(10), 2, 1.5);
    const auto detail = run<dsrCustAgingDetail>();
    EXPECT_EQ(detail.boxes, Texts{});
    EXPECT_EQ(lines(detail, "GrTotal"), Texts{"22.00 2.00 0.00 0.00 | 8.00"});
    EXPECT_EQ(detail.texts("lblType"), Texts(3, "#1413")) << "an unknown kind keeps the label";
    EXPECT_EQ(detail.links("txtTotal"), (Texts{"INV|901", "", "INV|903"}));
    EXPECT_EQ(detail.texts("fldInvoiDate"), Texts(3, ""));
    const auto foreign = run<dsrCustAgingDetail>(true);
    EXPECT_EQ(foreign.boxes, Texts{});
    EXPECT_EQ(foreign.texts("lblCurrencyName"), Texts{"US dollar"}) << "rows without a currency have no heading";
    EXPECT_EQ(lines(foreign, "TotalForeign"), Texts{"10.00 0.00 0.00 0.00 | 0.00"});
    const auto summary = run<dsrCustAgingSummary>(true);
    EXPECT_EQ(summary.boxes, Texts{});
    EXPECT_EQ(summary.texts("lblCurrencyName"), (Texts{"", "USD - US dollar"}));
}

// --- comparable tables -----------------------------------------------------------------------------

struct Told final : ComparableReportGen {
    bool active = true;
    std::string text;
    bool IsActive() const override { return active; }
    Element AddTable(std::string_view title, std::string_view mode) override {
        text.append("[").append(title).append(mode == "PurgeIncl" ? "] " : "?] ");
        return 1;
    }
    Element AddRow(Element, std::string_view title, std::string_view value, std::string_view) override {
        text.append(title).append(" ").append(value).append(": ");
        return 2;
    }
    void AddCell(Element, std::string_view name, std::string_view value, std::string_view) override {
        text.append(name).append("=").append(value).append("; ");
    }
    void Close() override { text += "end"; }
};

TEST_F(ListedRows, GiveTheirTotalsToAGeneratorThatIsActive) {
    row(1, 901, 1, 1, 5, Money::parse("7.5").value());
    row(2, Variant(), 1, 1, 5, Money::fromInteger(1));
    row(3, 903, 1, 1, 5, Money());
    row(4, 904, 1, 1, 35, Money::fromInteger(10), 2, 1.5);
    Told told;
    generator = &told;
    run<dsrCustAgingDetail>();
    EXPECT_EQ(told.text, "[fldCustId] lblSubTotal 1: lblTotalCap=7.5; lblSubTotal 4: lblTotalCap=15; end");
    told.text.clear();
    run<dsrCustAgingDetail>(true);
    EXPECT_EQ(told.text,
              "[fldCustId] lblSubTotal 1: lblTotalCap=7.5; [lblCurrencyName] lblSubTotalForeign -1: lblTotalCap=$4.50; "
              "[fldCustId] lblSubTotal 4: lblTotalCap=10; [lblCurrencyName] lblSubTotalForeign -1: lblTotalCap=$0.00; "
              "end");
    told.text.clear();
    run<dsrCustAgingSummary>();
    EXPECT_EQ(told.text, "[lblTotalCap2]  : lblPer1Cap=$7.50; lblPer2Cap=$15.00; lblPer3Cap=$0.00; lblPer4Cap=$0.00; ");
    told.text.clear();
    told.active = false;
    run<dsrCustAgingDetail>();
    run<dsrCustAgingSummary>();
    EXPECT_EQ(told.text, "");
}

// --- against the ledger ------------------------------------------------------------------------------

std::int64_t cents(const std::string& amount) {
    return LocaleFormat().readMoney(amount).raw() / (Money::scale / 100);
}

std::int64_t ledgerCents(const std::string& company, const std::string& to, const char* column,
                         const std::string& currency = "") {
    sqlite::Database file(company, sqlite::Open::readOnly);
    return file.integer(std::string("SELECT SUM(CAST(ROUND(100 * ") + column +
                        ") AS INTEGER)) FROM GLDet WHERE DetDate <= '" + to +
                        "' AND ExAcctId IN (SELECT ExGLAcctId FROM AccountGroup INNER JOIN WorldCurrency"
                        " ON InCurrencyId = ExCurrencyId WHERE Code = 'CustGLAR'" +
                        (currency.empty() ? "" : " AND CurrencyCode = '" + currency + "'") + ")");
}

TEST(CustAging, AgreesWithTheReceivablesAccountsOfTheDemoCompany) {
    const DemoFile company;
    for (const std::string to : {"2023-06-30", "2024-09-15", "2025-12-31"}) {
        SCOPED_TRACE(to);
        auto run = ageing("CustAgingDetail", company.path(), to);
        const auto detail = runReport(run);
        EXPECT_EQ(detail.boxes, Texts{});
        const auto foreignRows = static_cast<std::int64_t>(detail.texts("txtCurrEqual").size());
        EXPECT_GT(foreignRows, 0);
        EXPECT_LE(std::abs(cents(detail.only("txtTotGrTotal")) - ledgerCents(company.path(), to, "DetAmnt")),
                  foreignRows);
        run.member = "CustAgingSummary";
        EXPECT_EQ(lines(runReport(run), "GrTotal"), lines(detail, "GrTotal"));

        run.foreign = true;
        const auto summary = runReport(run);
        const auto captions = summary.texts("lblTotalCapForeign"), totals = summary.texts("txtTotGrTotalForeign");
        ASSERT_EQ(captions.size(), 3U);
        for (std::size_t i = 0; i < captions.size(); ++i) {
            const std::string code = captions[i].substr(captions[i].size() - 3);
            EXPECT_EQ(cents(totals[i]),
                      ledgerCents(company.path(), to, code == "CAD" ? "DetAmnt" : "ForeignAmnt", code))
                << code;
        }
        run.member = "CustAgingDetail";
        EXPECT_EQ(withBlankZeros(lines(runReport(run), "TotalForeign")),
                  withBlankZeros(lines(summary, "GrTotalForeign")));
    }
}

}  // namespace
}  // namespace quillo::test
