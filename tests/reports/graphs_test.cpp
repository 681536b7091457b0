#include <gtest/gtest.h>

#include "framework/engine/chart_palette.h"
#include "tests/support/report_runner.h"

namespace quillo::test {
namespace {

using Texts = std::vector<std::string>;

// The controls of a name, each time that they printed.
std::vector<const PlacedControl*> controlsOf(const ReportResult& result, std::string_view name) {
    std::vector<const PlacedControl*> found;
    for (const auto& page : result.kept.pages)
        for (const PlacedSection& section : page->sections)
            for (const PlacedControl& control : section.controls)
                if (control.info->name == name) found.push_back(&control);
    return found;
}

const ChartData& chartOf(const ReportResult& result, std::string_view name, std::size_t index = 0) {
    return *controlsOf(result, name).at(index)->chart;
}

// "P1 0.1, P2 0.2"
std::string pointsOf(const ChartData::Series& series) {
    std::string text;
    for (const auto& point : series.points)
        text += (text.empty() ? "" : ", ") + point.label + " " + LocaleFormat().number(point.value, 3);
    return text;
}

// Two fiscal years, of three and of four periods. All amounts are of day and kind; the rate counts.
constexpr const char* sales =
    "INSERT INTO FiscalYear VALUES (1, 'Y1', '2023-01-01', '2023-12-31'), (2, 'Y2', '2024-01-01', '2024-12-31');"
    "INSERT INTO FiscalPeriod VALUES (1, 1, '2023-01-01', '2023-02-28'), (1, 2, '2023-03-01', '2023-06-30'),"
    " (1, 3, '2023-07-01', '2023-12-31'), (2, 1, '2024-01-01', '2024-02-29'), (2, 2, '2024-03-01', '2024-03-31'),"
    " (2, 3, '2024-04-01', '2024-09-30'), (2, 4, '2024-10-01', '2024-12-31');"
    "INSERT INTO Cust (InCustId, Name) VALUES (10, 'Ash');"
    "INSERT INTO InvoiHdr (InInvoiId, InvoiType, InvoiDate, ExCustId, ExchangeRate, DetAmnt) VALUES"
    " (1, 1, '2023-02-10', 10, 1, 60), (2, 4, '2023-02-28', 10, 1, 40), (3, 1, '2023-05-10', 10, 1, 200),"
    " (4, 1, '2023-05-11', 10, 1, 1000), (5, 1, '2024-02-29', 10, 1, 50), (6, 2, '2024-03-15', 10, 1.5, 300),"
    " (7, 1, '2024-05-10', 10, 1, 25), (8, 3, '2024-04-01', 10, 1, -10), (9, 1, '2024-05-11', 10, 1, 999),"
    " (10, 51, '2024-03-15', 10, 1, 777);";

ReportRun graph(const TestCompany& company, const char* member, const char* to) {
    return {.member = member, .company = company.path(), .to = to, .sessionDate = "2024-12-31", .language = "ids"};
}

TEST(SalesGraphs, CompareFiscalPeriodsUpToTheDay) {
    const TestCompany company(sales);
    for (const int dialect : {0, 1}) {
        ReportRun run = graph(company, "SalesJournalCompGraph", "2024-05-10");
        run.dialect = dialect;
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        ASSERT_EQ(result.pageCount(), 1U);
        EXPECT_EQ(result.only("lblLastYear") + " " + result.only("lblCurrYear"), "Y1 Y2");
        EXPECT_EQ(result.only("lblLastYearLegend"), "#4248 (Y1)");
        EXPECT_EQ(result.only("lblCurrYearLegend"), "#4249 (Y2)");
        EXPECT_EQ(result.only("InThous"), "#4166");
        struct Row {
            const char *last, *current, *money, *percent, *lastLink, *currentLink;
        };
        const Row rows[] = {
            {"$100.00", "$50.00", "-$50.00", "-50.00%", "2023-01-01|2023-02-28", "2024-01-01|2024-02-29"},
            {"$200.00", "$450.00", "$250.00", "125.00%", "2023-03-01|2023-05-10", "2024-03-01|2024-03-31"},
            {"$0.00", "$15.00", "$15.00", "0%", "", "2024-04-01|2024-05-10"}};
        float top = controlsOf(result, "lblPeriods").at(0)->top;
        for (std::size_t i = 0; i < std::size(rows); ++i) {
            const std::string number = std::to_string(i + 1);
            EXPECT_EQ(result.only(number + "Period"), " " + number);
            EXPECT_EQ(result.only(number + "LastYear"), rows[i].last);
            EXPECT_EQ(result.only(number + "CurrentYear"), rows[i].current);
            EXPECT_EQ(result.only(number + "DiffMoney"), rows[i].money);
            EXPECT_EQ(result.only(number + "DiffPercentage"), rows[i].percent);
            EXPECT_EQ(first(result.links(number + "LastYear")), rows[i].lastLink);
            EXPECT_EQ(first(result.links(number + "CurrentYear")), rows[i].currentLink);
            top += 330;
            for (const auto& [name, left, align] : {std::tuple{"Period", 600.0F, Align::left},
                                                    {"LastYear", 2490.0F, Align::right},
                                                    {"CurrentYear", 4455.0F, Align::right},
                                                    {"DiffMoney", 6465.0F, Align::right},
                                                    {"DiffPercentage", 8460.0F, Align::right}}) {
                const PlacedControl& field = *controlsOf(result, number + name).at(0);
                EXPECT_EQ(field.left, left) << name;
                EXPECT_EQ(field.top, top) << name;
                EXPECT_EQ(field.style->align, align) << name;
            }
        }
        EXPECT_TRUE(controlsOf(result, "4Period").empty());
        EXPECT_EQ(result.only("fldTotalLastYear"), "$300.00");
        EXPECT_EQ(result.only("fldTotalCurrentYear"), "$515.00");
        EXPECT_EQ(result.only("fldDiffMoney"), "$215.00");
        EXPECT_EQ(result.only("fldDiffPercentage"), "71.67%");
        EXPECT_EQ(controlsOf(result, "fldDiffPercentage").at(0)->top, top + 330);
        const ChartData& chart = chartOf(result, "MSCCustGrap");
        ASSERT_EQ(chart.series.size(), 2U);
        EXPECT_EQ(pointsOf(chart.series[0]), " 1 0.100,  2 0.200,  3 0.000") << "thousands";
        EXPECT_EQ(pointsOf(chart.series[1]), " 1 0.050,  2 0.450,  3 0.015");
        EXPECT_EQ(controlsOf(result, "LastYear").at(0)->fill, chartPalette[0]);
        EXPECT_EQ(controlsOf(result, "CurYear").at(0)->fill, chartPalette[1]);
    }
}

TEST(SalesGraphs, PeriodsEndOnTheDayAndOutsideOfAllYearsThereAreNone) {
    const TestCompany company(sales);
    const auto leap = runReport(graph(company, "SalesJournalCompGraph", "2024-02-29"));
    EXPECT_EQ(leap.only("1LastYear"), "$100.00");
    EXPECT_EQ(first(leap.links("1LastYear")), "2023-01-01|2023-02-28");
    EXPECT_TRUE(controlsOf(leap, "2Period").empty());
    // The first year has none before it.
    const auto start = runReport(graph(company, "SalesJournalCompGraph", "2023-03-01"));
    EXPECT_EQ(start.only("lblLastYear") + start.only("1LastYear") + start.only("1CurrentYear"), "$0.00$100.00");
    EXPECT_EQ(start.only("fldDiffPercentage"), "0.00%") << "of nothing there is no percentage";
    EXPECT_EQ(start.boxes, Texts{});
    for (const char* day : {"2025-06-01", "9999-12-31"}) {
        const auto outside = runReport(graph(company, "SalesJournalCompGraph", day));
        EXPECT_EQ(outside.boxes, Texts{}) << day;
        EXPECT_EQ(outside.only("lblLastYear") + outside.only("lblCurrYear"), "") << day;
        EXPECT_TRUE(controlsOf(outside, "1Period").empty()) << day;
        EXPECT_EQ(outside.only("fldTotalLastYear") + outside.only("fldTotalCurrentYear"), "$0.00$0.00") << day;
    }
}

TEST(SalesGraphs, PercentagesTakeTheSignOfTheMoneyInEveryLocale) {
    const TestCompany company(sales);
    ReportRun run = graph(company, "SalesJournalCompGraph", "2024-02-29");
    run.locale = "fr_CA";
    const auto french = runReport(run);
    EXPECT_EQ(french.only("1DiffMoney"), "-50,00\u00A0$");
    EXPECT_EQ(french.only("1DiffPercentage"), "-50,00%");
}

TEST(SalesGraphs, CompareCalendarMonths) {
    const TestCompany company(sales);
    for (const int dialect : {0, 1}) {
        ReportRun run = graph(company, "SalesJournalCompGraphMonths", "2024-05-10");
        run.dialect = dialect;
        const auto may = runReport(run);
        EXPECT_EQ(may.boxes, Texts{});
        EXPECT_EQ(may.only("lblLastYear") + " " + may.only("lblCurrYear"), "Y1 Y2");
        Texts months, last, current, money, percent, links;
        for (int i = 1; i <= 5; ++i) {
            const std::string number = std::to_string(i);
            months.push_back(may.only("Label" + number));
            last.push_back(may.only("txtLastYear" + number));
            current.push_back(may.only("txtCurrYear" + number));
            money.push_back(may.only("txtDiffDol" + number));
            percent.push_back(may.only("txtDiffPer" + number));
        }
        EXPECT_EQ(months, (Texts{"#4250", "#4251", "#4252", "#4253", "#4254"}));
        EXPECT_EQ(last, (Texts{"$0.00", "$100.00", "$0.00", "$0.00", "$200.00"}));
        EXPECT_EQ(current, (Texts{"$0.00", "$50.00", "$450.00", "-$10.00", "$25.00"}));
        EXPECT_EQ(money, (Texts{"$0.00", "-$50.00", "$450.00", "-$10.00", "-$175.00"}));
        EXPECT_EQ(percent, (Texts{"0%", "-50.00%", "0%", "0%", "-87.50%"}));
        EXPECT_EQ(first(may.links("txtLastYear2")), "2023-02-01|2023-02-28");
        EXPECT_EQ(first(may.links("txtCurrYear2")), "2024-02-01|2024-02-29");
        EXPECT_EQ(first(may.links("txtLastYear5")), "2023-05-01|2023-05-10");
        EXPECT_EQ(first(may.links("txtCurrYear5")), "2024-05-01|2024-05-10");
        EXPECT_TRUE(controlsOf(may, "Label6").empty()) << "of months to come nothing stands";
        EXPECT_EQ(may.only("txtTotalLastYear"), "$300.00");
        EXPECT_EQ(may.only("txtTotalCurYear"), "$515.00");
        EXPECT_EQ(may.only("txtDiffDolTotal"), "$215.00");
        EXPECT_EQ(may.only("txtDiffPerTotal"), "71.67%");
        const PlacedControl& lastMonth = *controlsOf(may, "Label5").at(0);
        EXPECT_EQ(controlsOf(may, "txtTotalCurYear").at(0)->top, lastMonth.top + lastMonth.height + 120);
        EXPECT_EQ(pointsOf(chartOf(may, "MSCCustGrap").series[1]),
                  "#4250 0.000, #4251 0.050, #4252 0.450, #4253 -0.010, #4254 0.025");
        EXPECT_EQ(controlsOf(may, "CurYear").at(0)->fill, chartPalette[1]);
    }
    const auto january = runReport(graph(company, "SalesJournalCompGraphMonths", "2024-01-31"));
    EXPECT_EQ(controlsOf(january, "txtTotalCurYear").at(0)->top, 6840 + 255 + 120);
    EXPECT_TRUE(controlsOf(january, "Label2").empty());
    const auto leap = runReport(graph(company, "SalesJournalCompGraphMonths", "2024-02-29"));
    EXPECT_EQ(first(leap.links("txtLastYear2")), "2023-02-01|2023-02-28");
    const auto after = runReport(graph(company, "SalesJournalCompGraphMonths", "2025-02-28"));
    EXPECT_EQ(first(after.links("txtLastYear2")), "2024-02-01|2024-02-29") << "the leap day was in that month";
    EXPECT_EQ(after.only("txtLastYear2"), "$0.00") << "but sales are read up to the same day, the 28th";
    const auto last = runReport(graph(company, "SalesJournalCompGraphMonths", "9999-12-31"));
    EXPECT_EQ(last.boxes, Texts{});
    EXPECT_EQ(first(last.links("txtCurrYear12")), "9999-12-01|9999-12-31");
    for (int month = 1; month <= 12; ++month) {
        const std::string number = std::to_string(month);
        const PlacedControl& name = *controlsOf(last, "Label" + number).at(0);
        EXPECT_NEAR(name.top, 6840 + (month - 1) * (10515 - 6840) / 11.0, 1) << "rows of one step";
        for (const auto& [cell, caption] : {std::pair{"txtLastYear", "lblLastYear"},
                                            {"txtCurrYear", "lblCurrYear"},
                                            {"txtDiffDol", "Label16"},
                                            {"txtDiffPer", "Label17"}}) {
            const PlacedControl &amount = *controlsOf(last, cell + number).at(0),
                                &head = *controlsOf(last, caption).at(0);
            EXPECT_EQ(amount.top, name.top) << cell << number;
            EXPECT_EQ(amount.left + amount.width, head.left + head.width) << cell << number;
            EXPECT_EQ(amount.style->align, Align::right) << cell << number;
        }
    }
}

// On 30 June 2024: in the first column twelve customers from 10 to 120 and one with 40 to his credit; in the second
// eleven from 10 to 110; nobody in the third; 100 US dollars in the fourth, with a correction of 5.
constexpr const char* owed =
    "UPDATE CompanyFact SET Value = '1' WHERE Name = 'UsesForeignCurrency';"
    "INSERT INTO WorldCurrency VALUES (2, 'USD', 'US dollar');"
    "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 12) INSERT INTO Cust (InCustId, Name,"
    " ExCurrencyId) SELECT 100 + I, printf('Cust %02d', I), 1 FROM N;"
    "INSERT INTO Cust (InCustId, Name, ExCurrencyId) VALUES (200, 'Credit', 1), (201, 'Abroad', 2);"
    "WITH RECURSIVE N(I) AS (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 12) INSERT INTO InvoiHdr (InInvoiId,"
    " InvoiType, InvoiDate, ExCustId, ExCurrencyId, ExchangeRate, TotAmnt)"
    " SELECT 100 + I, 1, '2024-06-20', 100 + I, 1, 1, 10 * I FROM N UNION ALL"
    " SELECT 200 + I, 1, '2024-05-20', 100 + I, 1, 1, 10 * I FROM N WHERE I < 12;"
    "INSERT INTO InvoiHdr (InInvoiId, InvoiType, InvoiDate, ExCustId, ExCurrencyId, ExchangeRate, TotAmnt) VALUES"
    " (300, 3, '2024-06-25', 200, 1, 1, -40), (301, 1, '2024-01-31', 201, 2, 1.5, 100);"
    "INSERT INTO CustHomeAdjustment VALUES (401, 'AJ-1', '2024-02-05', 201, 5, NULL);";

TEST(AgeingGraph, ShowsTheAgesAndTheLargestCustomersOfEach) {
    const TestCompany company(owed);
    for (const int dialect : {0, 1}) {
        ReportRun run = graph(company, "CustAgingGraphic", "2024-06-30");
        run.dialect = dialect;
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        ASSERT_EQ(result.pageCount(), 4U);
        EXPECT_EQ(pointsOf(chartOf(result, "MSCCustAgeGrap").series.at(0)), "1 - 30 0.740, 31 - 60 0.660, 91+ 0.155")
            << "thousands, the credit among them";
        EXPECT_EQ(result.texts("lblPeriodName"),
                  (Texts{"#2899: 1 - 30", "#2899: 31 - 60", "#2899: 61 - 90", "#2899: 91 +"}));
        ASSERT_EQ(controlsOf(result, "MSCPeriod").size(), 3U) << "nobody owes in the third column";
        EXPECT_EQ(chartOf(result, "MSCPeriod").title, "#2899: 1 - 30");
        EXPECT_EQ(chartOf(result, "MSCPeriod").kind, ChartKind::pie);
        EXPECT_EQ(result.texts("Per1"), (Texts{"Cust 12:   $120.00  (15.38%)", "Cust 11:   $110.00  (16.67%)",
                                               "Abroad:   $155.00  (100.00%)"}));
        EXPECT_EQ(result.links("Per1"), (Texts{"112", "111", "201"}));
        EXPECT_EQ(result.texts("Per11"), (Texts{"#2369: $30.00", "Cust 01:   $10.00  (1.52%)"}))
            << "two that have no row, and one that has";
        EXPECT_EQ(result.links("Per11"), (Texts{"", "101"}));
        EXPECT_EQ(result.texts("Per2").size(), 2U);
        EXPECT_EQ(result.texts("txtTotPer"), (Texts{"$780.00", "$660.00", "$0.00", "$155.00"}));
        EXPECT_EQ(result.texts("lblNotice"), Texts{"#7523"}) << "where a customer was left out";
        EXPECT_EQ(chartOf(result, "MSCPeriod").series.at(0).points.size(), 11U);
        EXPECT_EQ(pointsOf(chartOf(result, "MSCPeriod", 2).series.at(0)).substr(0, 26), "Abroad 155.000, Empty 0.00");
        const auto marks = controlsOf(result, "PerCol11");
        ASSERT_EQ(marks.size(), 2U);
        EXPECT_EQ(marks[0]->fill, chartPalette[10]) << "as its slice";
        // What a reader adds up gives the whole.
        Money shares;
        for (int row = 1; row <= 11; ++row) {
            const std::string text = nth(result.texts("Per" + std::to_string(row)), 1);
            const auto open = text.find('('), close = text.find('%');
            shares += LocaleFormat().readMoney(text.substr(open + 1, close - open - 1));
        }
        EXPECT_EQ(shares, Money::fromInteger(100));
    }
}

// The label is hidden by design, since the page's frame tells the day; a host may show it.
TEST(AgeingGraph, TellsItsDayAsTheOtherReportsByAgeDo) {
    const TestCompany company(owed);
    for (const char* member : {"CustAgingGraphic", "CustAgingDetail", "CustAgingSummary"}) {
        const auto caption = [&](const char* to) {
            const auto result = runReport(graph(company, member, to), [](Report& report) {
                report.section("PageHeader").find("lblDateFromDateTo")->Visible = true;
            });
            return first(result.texts("lblDateFromDateTo"));
        };
        EXPECT_EQ(caption("2024-06-30"), "#1776 2024-06-30") << member;
        EXPECT_EQ(caption(""), "#1376") << member;
    }
}

TEST(AgeingGraph, WithoutAnythingOwedSaysSoOnEachPage) {
    const TestCompany company(
        "INSERT INTO Cust (InCustId, Name, ExCurrencyId) VALUES (10, 'Ash', 1);"
        "INSERT INTO InvoiHdr (InInvoiId, InvoiType, InvoiDate, ExCustId, TotAmnt) VALUES (1, 3, '2024-06-25', 10, "
        "-4);");
    const auto result = runReport(graph(company, "CustAgingGraphic", "2024-06-30"));
    EXPECT_EQ(result.boxes, Texts{});
    EXPECT_EQ(result.pageCount(), 4U);
    EXPECT_EQ(result.texts("txtTotPer"), Texts(4, "$0.00"));
    EXPECT_TRUE(controlsOf(result, "MSCPeriod").empty() && controlsOf(result, "Per1").empty());
    EXPECT_EQ(result.texts("lblNotice").size(), 1U);
    // Without a closing day ages run to the session's date.
    ReportRun open = graph(company, "CustAgingGraphic", "");
    open.sessionDate = "2024-12-31";
    EXPECT_EQ(runReport(open).texts("lblNotice").size(), 1U);
}

}  // namespace
}  // namespace quillo::test
