#include <gtest/gtest.h>

#include "framework/values/errors.h"
#include "tests/support/sample_report.h"

// Where sections come to stand: what repeats, keeps together, breaks and splits.
namespace quillo::test {
namespace {

std::string label(const std::string& name, int top, int height = 100, const std::string& more = "") {
    return R"({"kind": "Label", "name": ")" + name + R"(", "caption": ")" + name + R"(", "width": 1000, "top": )" +
           std::to_string(top) + ", \"height\": " + std::to_string(height) + (more.empty() ? "" : ", " + more) + "}";
}

std::string breakAt(const std::string& name, int top) {
    return R"({"kind": "PageBreak", "name": ")" + name + R"(", "top": )" + std::to_string(top) + "}";
}

std::string subReportAt(int top, int height = 100) {
    return R"({"kind": "SubReport", "name": "sub", "left": 0, "width": 3000, "top": )" + std::to_string(top) +
           ", \"height\": " + std::to_string(height) + "}";
}

std::string detail(int height, const std::string& more = "") {
    return section("Detail", "detail", height, bound("v", "V") + "," + dataControl + more);
}

Rows numbers(int from, int to) {
    Rows rows;
    for (int i = from; i <= to; ++i) rows.push_back({i});
    return rows;
}

std::shared_ptr<Sample> withRows(Bench& bench, const std::string& sections, std::vector<std::string> columns,
                                 Rows rows) {
    auto report = bench.report(design(sections));
    report->dataControl()->Recordset = Bench::rows(std::move(columns), std::move(rows));
    return report;
}

TEST(Pages, AHeaderStandsAgainAsItPrintedFirstAndRunsNoEvent) {
    Bench bench;
    auto report =
        withRows(bench,
                 section("ghOuter", "groupHeader", 100, bound("o", "O"), R"("dataField": "O", "repeat": true)") + "," +
                     section("ghInner", "groupHeader", 100, bound("i", "I"), R"("dataField": "I", "repeat": true)") +
                     "," + detail(600) + "," + section("gfInner", "groupFooter", 500, label("in", 0)) + "," +
                     section("gfOuter", "groupFooter", 100),
                 {"O", "I", "V"}, {{"a", 1, 1}, {"a", 1, 2}, {"a", 1, 3}, {"b", 2, 4}});
    std::string events;
    report->section("ghInner").Format = [&] { events += "F" + report->field("i").Text; };
    report->section("ghInner").AfterPrint = [&] { events += "P"; };
    // The footer goes to page 2 with its row, while the recordset stands in the group of b already.
    EXPECT_EQ(
        bench.run(*report),
        "-- 1\nghOuter a\nghInner 1\nDetail 1\nDetail 2\n-- 2\nghOuter a\nghInner 1\nDetail 3\ngfInner in\ngfOuter\n"
        "-- 3\nghOuter b\nghInner 2\nDetail 4\ngfInner in\ngfOuter\n");
    EXPECT_EQ(events, "F1PF2P");
    ASSERT_EQ(bench.pages.pages.size(), 3U);
    EXPECT_TRUE(bench.pages.pages[1]->sections.at(1).repeat);
    EXPECT_FALSE(bench.pages.pages[2]->sections.at(1).repeat);
}

TEST(Pages, HeadingsThatWouldFillThePageDoNotStandAgain) {
    Bench bench;
    auto report = withRows(bench,
                           section("gh", "groupHeader", 1500, bound("g", "G"), R"("dataField": "G", "repeat": true)") +
                               "," + detail(500) + "," + section("gf", "groupFooter", 0),
                           {"G", "V"}, {{"a", 1}, {"a", 2}, {"a", 3}});
    EXPECT_EQ(bench.run(*report), "-- 1\ngh a\nDetail 1\n-- 2\nDetail 2\nDetail 3\n");
}

TEST(Pages, ATotalNeverLeavesItsRow) {
    Bench bench;
    auto report = withRows(bench,
                           section("gh", "groupHeader", 100, bound("g", "G"), R"("dataField": "G")") + "," +
                               detail(450) + "," + section("gf", "groupFooter", 100, label("sum", 0)) + "," +
                               section("ReportFooter", "reportFooter", 100, label("total", 0)),
                           {"G", "V"}, {{"a", 1}, {"a", 2}, {"a", 3}, {"a", 4}});
    EXPECT_EQ(bench.run(*report),
              "-- 1\ngh a\nDetail 1\nDetail 2\nDetail 3\n-- 2\nDetail 4\ngf sum\nReportFooter total\n");
}

TEST(Pages, AKeptGroupMovesWithoutAnEventAndAfterPrintFollowsEachSection) {
    Bench bench;
    auto report =
        withRows(bench,
                 section("gh", "groupHeader", 100, bound("g", "G"), R"("dataField": "G", "groupKeepTogether": "all")") +
                     "," + detail(600) + "," + section("gf", "groupFooter", 100),
                 {"G", "V"}, {{"a", 1}, {"b", 2}, {"b", 3}});
    std::string events;
    for (const char* name : {"gh", "Detail", "gf"}) {
        report->section(name).Format = [&events, name] { events += std::string(name) + "("; };
        report->section(name).AfterPrint = [&events] { events += ")"; };
    }
    EXPECT_EQ(bench.run(*report), "-- 1\ngh a\nDetail 1\ngf\n-- 2\ngh b\nDetail 2\nDetail 3\ngf\n");
    EXPECT_EQ(events, "gh()Detail()gf()gh()Detail()Detail()gf()");
}

TEST(Pages, AGroupTooLongToKeepStillKeepsItsInnerGroups) {
    Bench bench;
    auto report = withRows(
        bench,
        section("ghOuter", "groupHeader", 100, bound("o", "O"), R"("dataField": "O", "groupKeepTogether": "all")") +
            "," +
            section("ghInner", "groupHeader", 100, bound("i", "I"), R"("dataField": "I", "groupKeepTogether": "all")") +
            "," + detail(400) + "," + section("gfInner", "groupFooter", 0) + "," + section("gfOuter", "groupFooter", 0),
        {"O", "I", "V"}, {{"a", 1, 1}, {"a", 1, 2}, {"a", 1, 3}, {"a", 2, 4}, {"a", 2, 5}});
    EXPECT_EQ(bench.run(*report),
              "-- 1\nghOuter a\nghInner 1\nDetail 1\nDetail 2\nDetail 3\n-- 2\nghInner 2\nDetail 4\nDetail 5\n");
}

TEST(Pages, ABreakWaitsForSomethingThatPrints) {
    Bench bench;
    auto report =
        withRows(bench, detail(300) + "," + section("ReportFooter", "reportFooter", 200), {"V"}, numbers(1, 2));
    report->section("Detail").NewPage = NewPage::after;
    EXPECT_EQ(bench.run(*report), "-- 1\nDetail 1\n-- 2\nDetail 2\n") << "nothing shows behind the last break";

    Bench shown;
    auto second = withRows(shown, detail(300) + "," + section("ReportFooter", "reportFooter", 200, label("end", 0)),
                           {"V"}, numbers(1, 1));
    second->section("Detail").NewPage = NewPage::after;
    EXPECT_EQ(shown.run(*second), "-- 1\nDetail 1\n-- 2\nReportFooter end\n");
}

TEST(Pages, BreaksInASectionMoveDownWithWhatGrowsAboveThem) {
    Bench bench;
    auto report = withRows(bench,
                           section("Detail", "detail", 500,
                                   label("long", 0, 200, R"("canGrow": true)") + "," + breakAt("b", 250) + "," +
                                       label("behind", 260) + "," + dataControl),
                           {"V"}, numbers(1, 1));
    report->label("long").Caption = std::string(60, 'x');  // six lines of 200
    EXPECT_EQ(bench.run(*report, true),
              "-- 1\nDetail@500+1250 " + std::string(60, 'x') + "@0\n-- 2\nDetail@500+250 behind@10\n");
}

TEST(Pages, ATextThatSplitsPushesDownWhatStandsBelowOnTheNextPage) {
    Bench bench;
    auto report = withRows(bench,
                           section("Detail", "detail", 350,
                                   label("top", 0, 150) + "," + label("long", 150, 100, R"("canGrow": true)") + "," +
                                       label("below", 250) + "," + dataControl),
                           {"V"}, numbers(1, 1));
    report->label("long").Caption =
        std::string(110, 'x');  // eleven lines of 200; nine fit below "top", 50 twips are lost
    EXPECT_EQ(bench.run(*report, true), "-- 1\nDetail@500+2000 top@0 " + std::string(90, 'x') +
                                            "@150\n-- 2\nDetail@500+500 " + std::string(20, 'x') + "@0 below@400\n");
}

TEST(Pages, StackedControlsThatGrowTakeNoLongerThanTheyAreMany) {
    constexpr int count = 60;  // one step more for each doubling would never end
    std::string controls;
    for (int i = 0; i < count; ++i) controls += label("g" + std::to_string(i), i * 10, 10, R"("canGrow": true)") + ",";
    Bench bench;
    auto report =
        bench.report(design(section("Detail", "detail", count * 10, controls + label("last", count * 10, 10))));
    bench.run(*report);
    ASSERT_FALSE(bench.pages.pages.empty());
    EXPECT_EQ(bench.pages.pages.size(), 7U) << "60 lines of 200 on pages of 2000, and the last label";
}

TEST(Pages, ARestThatShowsNothingTakesNoPage) {
    Bench bench;
    auto report = withRows(bench, detail(2600), {"V"}, numbers(1, 2));
    EXPECT_EQ(bench.run(*report), "-- 1\nDetail 1\n-- 2\nDetail 2\n");
}

TEST(Pages, ASectionIsNeverLowerThanWhatItShowsAndAHeightThatCannotBeShowsABox) {
    for (const float height : {-300.0F, std::numeric_limits<float>::quiet_NaN()}) {
        Bench bench;
        auto report = withRows(bench, detail(200), {"V"}, numbers(1, 2));
        report->section("Detail").Format = [&] { report->section("Detail").Height = height; };
        EXPECT_EQ(bench.run(*report, true), "-- 1\nDetail@500+100 1@0\nDetail@600+100 2@0\n");
        ASSERT_EQ(bench.host.boxes.size(), 2U);
        EXPECT_NE(bench.host.boxes.front().find("twips high\r\nin Quillo.Sample.Detail_Format"), std::string::npos)
            << bench.host.boxes.front();
    }
}

TEST(Pages, AnUnderlaidHeaderStaysBesideItsGroupAcrossEmptySectionsAndAFooterThatStretchesItself) {
    Bench bench;
    auto report =
        withRows(bench,
                 section("gh", "groupHeader", 900, bound("g", "G"), R"("dataField": "G", "underlayNext": true)") + "," +
                     section("ghEmpty", "groupHeader", 0, "", R"("dataField": "V")") + "," + detail(200) + "," +
                     section("gfEmpty", "groupFooter", 0) + "," + section("gf", "groupFooter", 100, label("sum", 0)),
                 {"G", "V"}, {{"a", 1}, {"a", 2}, {"b", 3}, {"c", 4}});
    int rows = 0;
    report->section("gh").Format = [&] { rows = 0; };
    report->section("Detail").AfterPrint = [&] { ++rows; };
    report->section("gf").Format = [&] {
        report->section("gf").Height = 900.0F - 200.0F * static_cast<float>(rows) + 50;
    };
    EXPECT_EQ(bench.run(*report, true),
              "-- 1\ngh@500+900 a@0\nDetail@500+200 1@0\nDetail@700+200 2@0\ngf@900+550 sum@0\n"
              "gh@1450+900 b@0\nDetail@1450+200 3@0\ngf@1650+750 sum@0\n"
              "-- 2\ngh@500+900 c@0\nDetail@500+200 4@0\ngf@700+750 sum@0\n");
}

TEST(Pages, APageFooterThatGrowsTakesItsRoomFromTheRowsAboveIt) {
    Bench bench;
    auto report = withRows(bench, detail(600) + "," + section("PageFooter", "pageFooter", 100, label("foot", 0)), {"V"},
                           numbers(1, 5));
    int pages = 0;
    report->section("PageFooter").Format = [&] {
        report->section("PageFooter").Height = ++pages == 1 ? 700.0F : 100.0F;
    };
    EXPECT_EQ(bench.run(*report),
              "-- 1\nDetail 1\nDetail 2\nPageFooter foot\n-- 2\nDetail 3\nDetail 4\nPageFooter foot\n-- 3\nDetail "
              "5\nPageFooter foot\n");
}

TEST(Pages, ThePageHeaderShowsTheRowThatItsPageBeginsWith) {
    Bench bench;
    auto report = withRows(bench, section("PageHeader", "pageHeader", 200, bound("h", "V")) + "," + detail(800), {"V"},
                           numbers(1, 3));
    EXPECT_EQ(bench.run(*report), "-- 1\nPageHeader 1\nDetail 1\nDetail 2\n-- 2\nPageHeader 3\nDetail 3\n");
}

TEST(Pages, SlicesBehindALongSubReportKeepTheirControls) {
    Bench bench;
    auto report =
        withRows(bench,
                 detail(100) + "," +
                     section("ReportFooter", "reportFooter", 600,
                             subReportAt(0) + "," + breakAt("b", 200) + "," + label("behind", 300) + "," +
                                 R"({"kind": "SubReport", "name": "sub2", "top": 450, "width": 3000, "height": 100})",
                             R"("keepTogether": false)"),
                 {"V"}, numbers(0, 0));
    auto sub = withRows(bench, detail(150), {"V"}, numbers(1, 30));
    auto last = withRows(bench, detail(150), {"V"}, numbers(31, 60));
    report->subReport("sub").Object = sub;
    report->subReport("sub2").Object = last;
    const std::string text = bench.run(*report);
    std::string rows;
    for (int i = 1; i <= 60; ++i) {
        const auto at = text.find("Detail " + std::to_string(i) + (i == 30 || i == 60 ? "]" : ""));
        EXPECT_NE(at, std::string::npos) << i << "\n" << text;
    }
    EXPECT_NE(text.find("ReportFooter behind"), std::string::npos) << text;
}

// Header that repeats, rows, total; as a report's last sub-report it may be of any length.
std::string distribution() {
    return design(section("ReportHeader", "reportHeader", 200, label("captions", 0), R"("repeat": true)") + "," +
                  section("gh", "groupHeader", 0, "", R"("dataField": "V")") + "," +
                  section("Detail", "detail", 0, dataControl) + "," +
                  section("gf", "groupFooter", 150, bound("account", "V")) + "," +
                  section("ReportFooter", "reportFooter", 200, label("sum", 0)));
}

TEST(Pages, ASubReportOfAnyLengthGoesToThePagesWithItsHeadingsAndItsTotalKeepsItsRow) {
    for (const bool kept : {false, true}) {
        Bench bench;
        auto report =
            withRows(bench,
                     detail(100) + "," +
                         section("ReportFooter", "reportFooter", 300, label("above", 0) + "," + subReportAt(150),
                                 kept ? "" : R"("keepTogether": false)"),
                     {"V"}, numbers(0, 0));
        auto sub = bench.report(distribution());
        sub->dataControl()->Recordset = Bench::rows({"V"}, numbers(1, 23));
        report->subReport("sub").Object = sub;
        int ends = 0;
        sub->end = [&](Sample&) { ++ends; };
        std::string expected = "-- 1\nDetail 0\nReportFooter above\nReportFooter [ReportHeader captions";
        for (int i = 1; i <= 10; ++i) expected += " | gf " + std::to_string(i);
        expected += "]\n-- 2\nReportFooter [ReportHeader captions";
        for (int i = 11; i <= 22; ++i) expected += " | gf " + std::to_string(i);
        expected += "]\n-- 3\nReportFooter [ReportHeader captions | gf 23 | ReportFooter sum]\n";
        EXPECT_EQ(bench.run(*report), expected);
        EXPECT_EQ(ends, 1);
    }
}

TEST(Pages, PagesLeaveForTheSinkWhileTheDistributionIsStillRunning) {
    struct Counter final : PageSink {
        void page(const Page&) override { ++count; }
        int count = 0;
    } sink;
    Bench bench;
    auto report = withRows(
        bench,
        detail(100) + "," +
            section("ReportFooter", "reportFooter", 300,
                    label("total", 0) + "," + breakAt("b1", 110) + "," + breakAt("b2", 120) + "," + subReportAt(130),
                    R"("keepTogether": false)"),
        {"V"}, numbers(0, 0));
    report->RemovesEmptyPages = true;
    auto sub = bench.report(distribution());
    sub->dataControl()->Recordset = Bench::rows({"V"}, numbers(1, 5000));
    report->subReport("sub").Object = sub;
    int row = 0, behind = 0;
    sub->section("gf").Format = [&] { behind = std::max(behind, ++row / 12 + 1 - sink.count); };
    runReport(*report, sink, bench.measure, bench.options);
    EXPECT_GT(sink.count, 400);
    EXPECT_LE(behind, 2) << "pages that wait";
}

TEST(Pages, WhatASubReportCannotDoIsRefused) {
    for (const std::string& inner :
         {section("Detail", "detail", 100, breakAt("b", 0)),
          section("gh", "groupHeader", 1, "", R"("groupKeepTogether": "all")") + "," + section("gf", "groupFooter", 1),
          section("Detail", "detail", 100, "", R"("newPage": "after")")}) {
        Bench bench;
        auto report = bench.report(design(section("Detail", "detail", 100, subReportAt(0) + "," + label("l", 200))));
        report->subReport("sub").Object = bench.report(design(inner));
        EXPECT_THROW(bench.run(*report), EngineError) << inner;
    }
}

}  // namespace
}  // namespace quillo::test
