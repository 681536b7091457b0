#include <gtest/gtest.h>

#include "tests/support/sample_report.h"

namespace quillo::test {
namespace {

const std::string grouped =
    design(section("PageHeader", "pageHeader", 100) + "," +
           section("ghOuter", "groupHeader", 100, bound("outer", "Outer"), R"("dataField": "Outer")") + "," +
           section("ghInner", "groupHeader", 0, "", R"("dataField": "Inner")") + "," +
           section("Detail", "detail", 100, bound("amount", "Amount") + "," + dataControl) + "," +
           section("gfInner", "groupFooter", 100,
                   bound("innerLast", "=[Outer] & \\\"/\\\" & Inner") + "," +
                       bound("innerSum", "Amount", R"("sum": "ghInner", "format": "#,##0.00")")) +
           "," + section("gfOuter", "groupFooter", 100, bound("outerSum", "Amount", R"("sum": "ghOuter")")) + "," +
           section("PageFooter", "pageFooter", 0) + "," +
           section("ReportFooter", "reportFooter", 100, bound("total", "Amount", R"("sum": "report")")));

Rows groupedRows() {
    return {{"A", 1, Money::fromInteger(10)},
            {"A", 1, Money::fromInteger(5)},
            {"A", 2, Money::fromInteger(7)},
            {"B", 2, Money::fromInteger(100)},
            {"B", 2, Variant()}};
}

TEST(Engine, GroupsBreakFromOutsideInAndFootersShowTheirOwnGroup) {
    Bench bench;
    auto report = bench.report(grouped);
    report->start = [](Sample& r) {
        r.dataControl()->Recordset = Bench::rows({"Outer", "Inner", "Amount"}, groupedRows());
    };
    // The inner value stays 2 when the outer one changes: the inner group breaks all the same.
    std::string seen;
    report->section("gfInner").Format = [&] {
        seen += report->dataControl()->atEnd() ? "end;" : report->dataControl()->Collect("Amount").toText() + ";";
    };
    EXPECT_EQ(
        bench.run(*report),
        "-- 1\nPageHeader\nghOuter A\nDetail 10\nDetail 5\ngfInner A/1 15.00\nDetail 7\ngfInner A/2 7.00\ngfOuter 22\n"
        "ghOuter B\nDetail 100\nDetail \ngfInner B/2 100.00\ngfOuter 100\nReportFooter 122\n");
    EXPECT_EQ(seen, "7;100;end;") << "in a footer's event the recordset stands on the next row";
    EXPECT_TRUE(bench.pages.finished);
    EXPECT_TRUE(bench.host.boxes.empty());
}

TEST(Engine, DroppedRowsPrintNothingAndAddToNoSum) {
    Bench bench;
    auto report = bench.report(grouped);
    report->start = [](Sample& r) {
        r.dataControl()->Recordset = Bench::rows({"Outer", "Inner", "Amount"}, groupedRows());
    };
    report->section("Detail").Format = [&] {
        if (report->field("amount").Text == "5") report->LayoutAction = LayoutActions::dropRow;
    };
    const std::string text = bench.run(*report);
    EXPECT_EQ(text.find("Detail 5"), std::string::npos);
    EXPECT_NE(text.find("gfInner A/1 10.00"), std::string::npos) << text;
    EXPECT_NE(text.find("ReportFooter 117"), std::string::npos) << text;
}

TEST(Engine, WithoutRowsTheFramePrintsAlone) {
    for (const bool emptyRecordset : {false, true}) {
        Bench bench;
        auto report = bench.report(grouped);
        if (emptyRecordset) report->dataControl()->Recordset = Bench::rows({"Outer", "Inner", "Amount"}, {});
        EXPECT_EQ(bench.run(*report), "-- 1\nPageHeader\nReportFooter 0\n");
    }
    Bench bench;
    auto report =
        bench.report(design(section("Detail", "detail", 100, R"({"kind": "Label", "name": "l", "caption": "once"})")));
    EXPECT_EQ(bench.run(*report), "-- 1\nDetail once\n") << "no data control and no fetch: one detail";
}

TEST(Engine, RowsFedByHandFillBoundFieldsUntilTheEnd) {
    Bench bench;
    auto report = bench.report(design(section("gh", "groupHeader", 100, bound("g", "Key"), R"("dataField": "Key")") +
                                      "," + section("Detail", "detail", 100, bound("v", "Value")) + "," +
                                      section("gf", "groupFooter", 100, bound("s", "Value", R"("sum": "gh")"))));
    report->Fields.Add("Key");
    report->Fields.Add("Value");
    int position = 0;
    report->fetchData = [&](bool& eof) {
        eof = position == 3;
        report->Fields.Item("key").Value = position < 2 ? "x" : "y";
        report->Fields.Item("value").Value = ++position;
    };
    EXPECT_EQ(bench.run(*report), "-- 1\ngh x\nDetail 1\nDetail 2\ngf 3\ngh y\nDetail 3\ngf 3\n");
}

TEST(Engine, FormatRunsOnceForASectionThatMovesToTheNextPage) {
    Bench bench;
    auto report = bench.report(
        design(section("PageHeader", "pageHeader", 500) + "," +
               section("Detail", "detail", 800, bound("v", "V") + "," + dataControl) + "," +
               section("PageFooter", "pageFooter", 100, R"({"kind": "Label", "name": "foot", "caption": "foot"})")));
    report->dataControl()->Recordset = Bench::rows({"V"}, {{1}, {2}, {3}, {4}});
    int formatted = 0, printed = 0;
    report->section("Detail").Format = [&] { ++formatted; };
    report->section("Detail").AfterPrint = [&] { ++printed; };
    EXPECT_EQ(bench.run(*report, true),
              "-- 1\nPageHeader@500+500\nDetail@1000+800 1@0\nPageFooter@2400+100 foot@0\n"
              "-- 2\nPageHeader@500+500\nDetail@1000+800 2@0\nPageFooter@2400+100 foot@0\n"
              "-- 3\nPageHeader@500+500\nDetail@1000+800 3@0\nPageFooter@2400+100 foot@0\n"
              "-- 4\nPageHeader@500+500\nDetail@1000+800 4@0\nPageFooter@2400+100 foot@0\n");
    EXPECT_EQ(formatted, 4);
    EXPECT_EQ(printed, 4);
}

TEST(Engine, HeadersRepeatOnEachPageOfTheirGroupAndKeepWithTheirFirstRow) {
    Bench bench;
    auto report =
        bench.report(design(section("gh", "groupHeader", 400, bound("g", "G"),
                                    R"("dataField": "G", "repeat": true, "groupKeepTogether": "firstDetail")") +
                            "," + section("Detail", "detail", 600, bound("v", "V") + "," + dataControl) + "," +
                            section("gf", "groupFooter", 0)));
    report->dataControl()->Recordset = Bench::rows({"G", "V"}, {{"a", 1}, {"a", 2}, {"a", 3}, {"a", 4}, {"b", 5}});
    // Page 2 holds the repeated header and two rows; header b fits there alone, but not with its row.
    EXPECT_EQ(bench.run(*report),
              "-- 1\ngh a\nDetail 1\nDetail 2\n-- 2\ngh a\nDetail 3\nDetail 4\n-- 3\ngh b\nDetail 5\n");
}

TEST(Engine, AMarkOfARepeatedHeaderStandsOnlyWhereTheHeaderStandsAgain) {
    Bench bench;
    const std::string mark =
        R"(,{"kind": "Label", "name": "more", "top": 50, "height": 900, "caption": "continued", "onlyInRepeats": true})";
    const auto header = [&](const char* more) {
        return section("gh", "groupHeader", 400, bound("g", "G") + mark, R"("dataField": "G")" + std::string(more));
    };
    const std::string rest = "," + section("Detail", "detail", 600, bound("v", "V") + "," + dataControl) + "," +
                             section("gf", "groupFooter", 0);
    auto report = bench.report(design(header(R"(, "repeat": true)") + rest));
    report->dataControl()->Recordset = Bench::rows({"G", "V"}, {{"a", 1}, {"a", 2}, {"a", 3}, {"b", 4}, {"b", 5}});
    EXPECT_EQ(bench.run(*report),
              "-- 1\ngh a\nDetail 1\nDetail 2\n-- 2\ngh a continued\nDetail 3\ngh b\nDetail 4\n"
              "-- 3\ngh b continued\nDetail 5\n")
        << "and takes no room from the rows";
    EXPECT_THROW(bench.report(design(header("") + rest)), InputError) << "a header that does not repeat";
}

TEST(Engine, WhatIsNotInRepeatsLeavesItsRoomToTheRows) {
    Bench bench;
    const std::string forward =
        R"(,{"kind": "Label", "name": "f", "top": 600, "height": 300, "caption": "forward", "notInRepeats": true})";
    auto report = bench.report(design(
        section("gh", "groupHeader", 900, bound("g", "G") + forward, R"("dataField": "G", "repeat": true)") + "," +
        section("Detail", "detail", 600, bound("v", "V") + "," + dataControl) + "," + section("gf", "groupFooter", 0)));
    report->dataControl()->Recordset = Bench::rows({"G", "V"}, {{"a", 1}, {"a", 2}, {"a", 3}, {"a", 4}});
    EXPECT_EQ(bench.run(*report), "-- 1\ngh a forward\nDetail 1\n-- 2\ngh a\nDetail 2\nDetail 3\nDetail 4\n");
}

TEST(Engine, AGroupKeptTogetherMovesWholeAndIsSplitWhenNoPageHoldsIt) {
    Bench bench;
    const std::string text =
        design(section("gh", "groupHeader", 100, bound("g", "G"), R"("dataField": "G", "groupKeepTogether": "all")") +
               "," + section("Detail", "detail", 600, bound("v", "V") + "," + dataControl) + "," +
               section("gf", "groupFooter", 100));
    auto report = bench.report(text);
    report->dataControl()->Recordset =
        Bench::rows({"G", "V"}, {{"a", 1}, {"b", 2}, {"b", 3}, {"c", 4}, {"c", 5}, {"c", 6}, {"c", 7}, {"d", 8}});
    EXPECT_EQ(bench.run(*report),
              "-- 1\ngh a\nDetail 1\ngf\n-- 2\ngh b\nDetail 2\nDetail 3\ngf\n-- 3\ngh c\nDetail 4\nDetail 5\nDetail "
              "6\n-- 4\nDetail 7\ngf\ngh d\nDetail 8\ngf\n");
}

TEST(Engine, ATextThatGrowsPushesDownWhatStandsBelow) {
    Bench bench;
    auto report = bench.report(design(
        section("Detail", "detail", 700,
                R"({"kind": "Field", "name": "long", "top": 0, "width": 1000, "height": 200, "canGrow": true},)"
                R"({"kind": "Label", "name": "beside", "left": 1500, "top": 100, "height": 200, "caption": "beside"},)"
                R"({"kind": "Label", "name": "below", "top": 300, "height": 200, "caption": "below"})")));
    report->field("long").Text = std::string(35, 'x');  // four lines of ten letters
    EXPECT_EQ(bench.run(*report, true), "-- 1\nDetail@500+1300 " + std::string(35, 'x') + "@0 beside@100 below@900\n");
}

TEST(Engine, ASectionHigherThanAPageIsSplitBetweenLinesAndLosesNothing) {
    Bench bench;
    auto report = bench.report(
        design(section("Detail", "detail", 300,
                       R"({"kind": "Field", "name": "long", "top": 0, "width": 1000, "height": 200, "canGrow": true},)"
                       R"({"kind": "Label", "name": "below", "top": 200, "height": 100, "caption": "below"})")));
    std::string text;
    for (int i = 0; i < 25; ++i) text += "line " + std::to_string(100 + i) + "..";
    report->field("long").Text = text;
    bench.run(*report);
    ASSERT_EQ(bench.pages.pages.size(), 3U);
    std::string printed;
    for (const auto& page : bench.pages.pages)
        for (const auto& control : page->sections.at(0).controls) printed += control.text;
    EXPECT_EQ(printed, text + "below");
    EXPECT_TRUE(bench.pages.pages[1]->sections.at(0).continued);
}

TEST(Engine, ATextWithoutEndIsCutAndTold) {
    Bench bench;
    auto report = bench.report(
        design(section("Detail", "detail", 300,
                       R"({"kind": "Field", "name": "long", "width": 1000, "height": 200, "canGrow": true})")));
    report->field("long").Text = std::string(1 << 20, 'x');
    bench.run(*report);
    EXPECT_EQ(bench.host.boxes, std::vector<std::string>{"A text has 104858 lines, of which the first 10000 print\r\n"
                                                         "in Quillo.Sample.Detail_Format, control long"});
    EXPECT_EQ(bench.pages.pages.size(), 1000U) << "ten lines a page";
    EXPECT_TRUE(bench.pages.pages.back()->sections.at(0).controls[0].text.ends_with("\xE2\x80\xA6"));
}

TEST(Engine, APageThatCanPlaceNothingStopsTheRunByName) {
    Bench bench;
    auto report = bench.report(design(section(
        "Detail", "detail", 2500, R"({"kind": "Label", "name": "tower", "top": 0, "height": 2400, "caption": "x"})")));
    try {
        bench.run(*report);
        FAIL() << "the run went on";
    } catch (const EngineError& error) {
        EXPECT_STREQ(error.what(),
                     "Report Sample, section Detail: nothing of it fits into the 2000 twips that a page has for it");
    }
    EXPECT_FALSE(bench.pages.finished);

    auto header =
        bench.report(design(section("PageHeader", "pageHeader", 2000) + "," + section("Detail", "detail", 100)));
    EXPECT_THROW(bench.run(*header), EngineError);
}

TEST(Engine, LimitsAndStopsEndARunWithoutFinishingTheSink) {
    const std::string text = design(section("Detail", "detail", 900, bound("v", "V") + "," + dataControl));
    Rows rows(400, {1});
    Bench bench;
    bench.options.maxPages = 10;
    auto report = bench.report(text);
    report->dataControl()->Recordset = Bench::rows({"V"}, rows);
    EXPECT_THROW(bench.run(*report), EngineError);
    EXPECT_FALSE(bench.pages.finished);

    Bench stopped;
    stopped.options.proceed = [](const Progress& progress) { return progress.pages < 5; };
    auto second = stopped.report(text);
    second->dataControl()->Recordset = Bench::rows({"V"}, rows);
    EXPECT_EQ(runReport(*second, stopped.pages, stopped.measure, stopped.options), RunEnd::stopped);
    EXPECT_FALSE(stopped.pages.finished);
    EXPECT_LE(stopped.pages.pages.size(), 5U);
}

// A footer of two page breaks with a sub-report behind them, as the journals have it.
const std::string breaking = design(
    section("Detail", "detail", 100, bound("v", "V") + "," + dataControl) + "," +
    section(
        "ReportFooter", "reportFooter", 500,
        R"({"kind": "Label", "name": "total", "top": 0, "height": 200, "caption": "total"},)"
        R"({"kind": "PageBreak", "name": "b1", "top": 250, "visible": false}, {"kind": "PageBreak", "name": "b2", "top": 260},)"
        R"({"kind": "SubReport", "name": "sub", "top": 280, "width": 4000, "height": 200})",
        R"("keepTogether": false)"));
const std::string lines = design(section("Detail", "detail", 450, bound("line", "L") + "," + dataControl));

std::shared_ptr<Sample> breakingReport(Bench& bench, int subRows) {
    auto report = bench.report(breaking);
    report->dataControl()->Recordset = Bench::rows({"V"}, {{1}});
    auto sub = bench.report(lines);
    Rows rows;
    for (int i = 1; i <= subRows; ++i) rows.push_back({i});
    sub->dataControl()->Recordset = Bench::rows({"L"}, rows);
    report->subReport("sub").Object = sub;
    return report;
}

TEST(Engine, TheEmptyPageBetweenTwoBreaksIsThereUnlessTheReportTakesItOut) {
    for (const int rows : {2, 12}) {  // 12 rows are three pages
        for (const bool removed : {false, true}) {
            Bench bench;
            auto report = breakingReport(bench, rows);
            report->RemovesEmptyPages = removed;
            const std::string text = bench.run(*report);
            EXPECT_TRUE(bench.host.boxes.empty());
            const std::string total = "-- 1\nDetail 1\nReportFooter total\n";
            EXPECT_EQ(text.substr(0, text.find("ReportFooter [")), total + (removed ? "-- 2\n" : "-- 2\n-- 3\n"))
                << text;
            EXPECT_EQ(bench.pages.pages.size(), (rows == 2 ? 2U : 4U) + (removed ? 0U : 1U)) << text;
            for (int i = 1; i <= rows; ++i)
                EXPECT_NE(text.find("Detail " + std::to_string(i)), std::string::npos) << text;
            for (std::size_t i = 0; i < bench.pages.pages.size(); ++i)
                EXPECT_EQ(bench.pages.pages[i]->number, static_cast<int>(i) + 1);
        }
    }
}

TEST(Engine, BreaksBeforeASubReportThatWasNotGivenMakeNoPages) {
    Bench bench;
    auto report = bench.report(breaking);
    EXPECT_EQ(bench.run(*report), "-- 1\nReportFooter total\n");
}

TEST(Engine, SubReportsNestAndRunAnewForEachRow) {
    Bench bench;
    const std::string holder = design(
        section(
            "Detail", "detail", 200,
            R"({"kind": "SubReport", "name": "sub", "width": 3000, "height": 100}, {"kind": "SubReport", "name": "other", "top": 100, "width": 3000, "height": 100})") +
        "," + section("ReportFooter", "reportFooter", 0));
    auto report = bench.report(
        design(section("Detail", "detail", 100,
                       bound("v", "V") + "," + dataControl +
                           R"(, {"kind": "SubReport", "name": "sub", "top": 0, "width": 3000, "height": 100})")));
    auto middle = bench.report(holder);
    auto inner = bench.report(lines), other = bench.report(lines);
    report->subReport("sub").Object = middle;
    middle->subReport("sub").Object = inner;
    middle->subReport("other").Object = other;
    report->dataControl()->Recordset = Bench::rows({"V"}, {{1}, {2}});
    int starts = 0;
    inner->start = [&](Sample& r) {
        ++starts;
        r.dataControl()->Recordset = Bench::rows({"L"}, {{starts * 10}, {starts * 10 + 1}});
    };
    EXPECT_EQ(bench.run(*report, true),
              "-- 1\nDetail@500+1000 1@0 [Detail@0+1000 [Detail@0+450 10@0 | Detail@450+450 11@0] []]\n"
              "Detail@1500+1000 2@0 [Detail@0+1000 [Detail@0+450 20@0 | Detail@450+450 21@0] []]\n");
}

TEST(Engine, ASectionSetTooLowGrowsToHoldItsSubReportAndWhatStandsBeside) {
    Bench bench;
    auto report = bench.report(design(
        section("Detail", "detail", 100,
                R"({"kind": "SubReport", "name": "sub", "top": 100, "width": 3000, "height": 900},)"
                R"({"kind": "Label", "name": "beside", "top": 800, "width": 100, "height": 400, "caption": "b"},)" +
                    std::string(dataControl))));
    auto inner = bench.report(lines);
    inner->start = [](Sample& r) { r.dataControl()->Recordset = Bench::rows({"L"}, {{1}}); };
    report->subReport("sub").Object = inner;
    report->dataControl()->Recordset = Bench::rows({"V"}, {{1}, {2}});
    report->section("Detail").Format = [&] {
        if (report->dataControl()->Collect("V").toInt32() == 2)
            report->subReport("sub").Visible = report->label("beside").Visible = false;
    };
    EXPECT_EQ(bench.run(*report, true), "-- 1\nDetail@500+1200 [Detail@0+450 1@0] b@800\nDetail@1700+100\n");
}

TEST(Engine, AGroupPrintsBesideAHeaderThatItUnderlaysAndEndsBelowIt) {
    Bench bench;
    auto report = bench.report(
        design(section("gh", "groupHeader", 600, bound("g", "G"), R"("dataField": "G", "underlayNext": true)") + "," +
               section("Detail", "detail", 200, bound("v", "V") + "," + dataControl) + "," +
               section("gf", "groupFooter", 100)));
    report->dataControl()->Recordset = Bench::rows({"G", "V"}, {{"a", 1}, {"a", 2}, {"b", 3}});
    EXPECT_EQ(bench.run(*report, true),
              "-- 1\ngh@500+600 a@0\nDetail@500+200 1@0\nDetail@700+200 2@0\ngf@900+100\ngh@1100+600 "
              "b@0\nDetail@1100+200 3@0\ngf@1300+100\n");
}

TEST(Engine, HiddenSectionsAreFormattedAndMayShowThemselves) {
    Bench bench;
    auto report = bench.report(grouped);
    report->dataControl()->Recordset = Bench::rows({"Outer", "Inner", "Amount"}, groupedRows());
    Section& footer = report->section("gfInner");
    footer.Visible = false;
    footer.Format = [&] { footer.Visible = report->field("innerLast").Text == "A/2"; };
    const std::string text = bench.run(*report);
    EXPECT_NE(text.find("gfInner A/2"), std::string::npos) << text;
    EXPECT_EQ(text.find("gfInner B/2"), std::string::npos) << text;
}

TEST(Engine, BindingFindsQualifiedNamesAndTellsOnceOfAColumnThatIsMissing) {
    Bench bench;
    auto report = bench.report(design(section(
        "Detail", "detail", 100,
        bound("a", "InvoiHdr.ExCurrencyId") + "," + bound("b", "Nowhere") + "," +
            bound("own", "Written", R"("optionalColumn": true)") + "," + bound("c", "x", R"("format": "Currency")") +
            "," + bound("run", "x", R"("sum": "report", "running": "all")") + "," + dataControl)));
    report->dataControl()->Recordset =
        Bench::rows({"excurrencyid", "X"}, {{2, Money::fromDouble(1234.5)}, {3, Money::fromDouble(-0.004)}});
    EXPECT_EQ(bench.run(*report), "-- 1\nDetail 2   $1,234.50 1234.5\nDetail 3   $0.00 1234.496\n");
    EXPECT_EQ(
        bench.host.boxes,
        std::vector<std::string>{"There is no column \"Nowhere\" to show\r\nin Quillo.Sample.Detail_Format, field b"});
}

TEST(Engine, WhatAReportWritesInFormatPrintsAndARebindTakesTheOtherColumn) {
    Bench bench;
    auto report = bench.report(
        design(section("Detail", "detail", 100, bound("a", "One") + "," + bound("b", "One") + "," + dataControl)));
    report->dataControl()->Recordset = Bench::rows({"One", "Two"}, {{"1", "2"}, {"3", "4"}});
    report->section("Detail").Format = [&] {
        report->field("a").Text += "!";
        report->field("b").DataField = "Two";
    };
    EXPECT_EQ(bench.run(*report), "-- 1\nDetail 1! 1\nDetail 3! 4\n");
}

TEST(Engine, AShapePrintsWithTheBackColourOfItsDesignUntilTheReportSetsAnother) {
    Bench bench;
    auto report = bench.report(
        design(section("Detail", "detail", 300,
                       std::string(dataControl) +
                           R"(, {"kind": "Shape", "name": "shp", "width": 9, "height": 9, "fill": "#0000c8"})")));
    report->dataControl()->Recordset = Bench::rows({"A"}, {{1}, {2}, {3}});
    std::vector<std::optional<Color>> colors = {Color{0, 0, 200}, Color{1, 2, 3}, std::nullopt};
    std::size_t row = 0;
    report->section("Detail").Format = [&] {
        if (row > 0) report->shape("shp").BackColor = colors[row];
        ++row;
    };
    bench.run(*report);
    std::vector<std::optional<Color>> printed;
    for (const PlacedSection& section : bench.pages.pages.at(0)->sections)
        for (const PlacedControl& control : section.controls) printed.push_back(control.fill);
    EXPECT_EQ(printed, colors);
}

TEST(Engine, AnEventThatFailsShowsOneBoxAndTheRunGoesOn) {
    Bench bench;
    auto report = bench.report(grouped);
    report->dataControl()->Recordset = Bench::rows({"Outer", "Inner", "Amount"}, groupedRows());
    report->section("gfOuter").Format = [] { throw ConversionError("Type mismatch"); };
    bench.run(*report);
    ASSERT_EQ(bench.host.boxes.size(), 2U);
    EXPECT_EQ(bench.host.boxes.front(), "Type mismatch\r\nin Quillo.Sample.gfOuter_Format");
    EXPECT_TRUE(bench.pages.finished);
}

TEST(Engine, AValueThatCannotBeSummedOrShownLeavesTheOthersAndNamesItsField) {
    Bench bench;
    auto report = bench.report(
        design(section("Detail", "detail", 100,
                       bound("a", "A", R"("format": "Currency")") + "," + bound("b", "B") + "," + dataControl) +
               "," +
               section("ReportFooter", "reportFooter", 100,
                       bound("sumA", "A", R"("sum": "report")") + "," + bound("sumB", "B", R"("sum": "report")"))));
    report->dataControl()->Recordset = Bench::rows({"A", "B"}, {{1, 1}, {1e15, 2}, {3, 4}});
    int printed = 0;
    report->section("Detail").AfterPrint = [&] {
        if (++printed == 2) throw ConversionError("late");
    };
    EXPECT_EQ(bench.run(*report), "-- 1\nDetail $1.00 1\nDetail  2\nDetail $3.00 4\nReportFooter 4 7\n");
    EXPECT_EQ(bench.host.boxes,
              (std::vector<std::string>{
                  "Overflow: the amount is too large\r\nin Quillo.Sample.ReportFooter_Format, field sumA",
                  "Overflow: the amount is too large\r\nin Quillo.Sample.Detail_Format, field a",
                  "late\r\nin Quillo.Sample.Detail_AfterPrint"}));
}

TEST(Engine, ARecordsetThatAnEventReplacesOrTakesAwayIsNotReadAgain) {
    for (const bool taken : {false, true}) {
        Bench bench;
        auto report = bench.report(design(section("gh", "groupHeader", 100, bound("g", "G"), R"("dataField": "G")") +
                                          "," + section("Detail", "detail", 100, bound("v", "V") + "," + dataControl) +
                                          "," + section("gf", "groupFooter", 100, bound("last", "V"))));
        report->dataControl()->Recordset = Bench::rows({"G", "V"}, {{"a", 1}, {"a", 2}, {"a", 3}});
        report->section("Detail").Format = [&] {
            if (report->field("v").Text != "2") return;
            report->dataControl()->Recordset = taken ? nullptr : Bench::rows({"V", "G"}, {{8, "a"}, {9, "b"}});
        };
        EXPECT_EQ(bench.run(*report), taken ? "-- 1\ngh a\nDetail 1\nDetail 2\ngf 2\n"
                                            : "-- 1\ngh a\nDetail 1\nDetail 2\nDetail 8\ngf 8\ngh b\nDetail 9\ngf 9\n");
        EXPECT_TRUE(bench.host.boxes.empty());
    }
}

TEST(Engine, BothActionsThatGiveUpARowLeaveNoTraceOfIt) {
    for (const int action : {LayoutActions::skipRow, LayoutActions::dropRow}) {
        Bench bench;
        auto report = bench.report(
            design(section("Detail", "detail", 100,
                           bound("v", "V") + "," + bound("run", "V", R"("sum": "report", "running": "all")") + "," +
                               dataControl) +
                   "," + section("ReportFooter", "reportFooter", 100, bound("s", "V", R"("sum": "report")"))));
        report->dataControl()->Recordset = Bench::rows({"V"}, {{1}, {2}, {4}});
        report->section("Detail").Format = [&] {
            if (report->field("v").Text == "2") report->LayoutAction = action;
        };
        EXPECT_EQ(bench.run(*report), "-- 1\nDetail 1 1\nDetail 4 5\nReportFooter 5\n");
    }
}

// Rows below zero are dropped: those of a and c1 are all.
TEST(Engine, AGroupThatWaitsPrintsWithItsFirstRowThatPrintsOrNotAtAll) {
    const std::string waits = R"(, "onlyWithRows": true, "repeat": true, "groupKeepTogether": "firstDetail")";
    Bench bench;
    auto report = bench.report(
        design(section("ghOuter", "groupHeader", 100, bound("o", "G"), R"("dataField": "G")" + waits) + "," +
               section("ghInner", "groupHeader", 100, bound("i", "H"), R"("dataField": "H")" + waits) + "," +
               section("Detail", "detail", 100, bound("v", "V") + "," + dataControl) + "," +
               section("gfInner", "groupFooter", 100, bound("s", "V", R"("sum": "ghInner")")) + "," +
               section("gfOuter", "groupFooter", 100, bound("t", "V", R"("sum": "ghOuter")"))));
    report->dataControl()->Recordset = Bench::rows(
        {"G", "H", "V"},
        {{"a", "a1", -1}, {"b", "b1", -2}, {"b", "b1", 3}, {"b", "b1", -4}, {"c", "c1", -5}, {"c", "c2", 6}});
    std::string events;
    report->section("ghInner").Format = [&] { events += "format " + report->field("i").Text + ";"; };
    report->section("ghInner").AfterPrint = [&] { events += "printed;"; };
    report->section("Detail").Format = [&] {
        if (report->field("v").Text.starts_with("-")) report->LayoutAction = LayoutActions::skipRow;
    };
    EXPECT_EQ(bench.run(*report),
              "-- 1\nghOuter b\nghInner b1\nDetail 3\ngfInner 3\ngfOuter 3\n"
              "ghOuter c\nghInner c2\nDetail 6\ngfInner 6\ngfOuter 6\n");
    EXPECT_EQ(events, "format a1;format b1;printed;format c1;format c2;printed;");
    EXPECT_TRUE(bench.host.boxes.empty());
}

TEST(Engine, AGroupOverAColumnThatIsNotThereShowsABox) {
    Bench bench;
    auto report = bench.report(grouped);
    report->dataControl()->Recordset = Bench::rows({"Outer", "Amount"}, {{"A", 1}, {"B", 2}});
    bench.run(*report);
    EXPECT_EQ(bench.host.boxes,
              (std::vector<std::string>{
                  "There is no column \"Inner\" to group by\r\nin Quillo.Sample.ghInner_Format",
                  "There is no column \"Inner\" to show\r\nin Quillo.Sample.gfInner_Format, field innerLast"}));
}

TEST(Engine, FetchDataBesideARecordsetIsToldOfEachRowAndOfTheEnd) {
    Bench bench;
    auto report = bench.report(
        design(section("Detail", "detail", 100, bound("v", "V") + "," + bound("w", "Word") + "," + dataControl)));
    report->dataControl()->Recordset = Bench::rows({"V"}, {{1}, {2}, {3}});
    report->Fields.Add("Word");
    std::string told;
    report->fetchData = [&](bool& eof) {
        told += eof ? "end" : report->dataControl()->Collect("V").toText();
        if (!eof) report->Fields.Item("Word").Value = "w" + report->dataControl()->Collect("V").toText();
        eof = false;  // the end of the rows ends them all the same
    };
    EXPECT_EQ(bench.run(*report), "-- 1\nDetail 1 w1\nDetail 2 w2\nDetail 3 w3\n");
    EXPECT_EQ(told, "123end");
}

TEST(Engine, TheFieldsOfASubReportThatRunsAgainAreNotDoubled) {
    Bench bench;
    auto report = bench.report(design(section("Detail", "detail", 100)));
    report->Fields.Add("A").Value = 1;
    report->Fields.Add("a");
    EXPECT_TRUE(report->Fields.Item("A").Value.isNull());
    EXPECT_EQ(report->Fields.find("a"), 0);
}

TEST(Engine, AStopDuringAQueryIsNoFailure) {
    Bench bench;
    auto report = bench.report(grouped);
    report->start = [](Sample&) { throw RunStopped(); };
    EXPECT_EQ(runReport(*report, bench.pages, bench.measure), RunEnd::stopped);
    EXPECT_TRUE(bench.host.boxes.empty());
    EXPECT_FALSE(bench.pages.finished);
}

TEST(Design, DamageIsRefusedWithItsPlace) {
    FakeHost host;
    const struct {
        std::string design, message;
    } cases[] = {
        {"{\n\"sections\": [}", "Design Sample: it is no JSON, at line 2"},
        {R"({"page": {"width": 1e999}})", "Design Sample: it holds a number that is too large"},
        {R"([])", "Design Sample: an object is expected"},
        {R"({"styles": 3})", "Design Sample: \"styles\" must be an object"},
        {R"({"styles": {"big": 3}})", "Design Sample, style big: an object is expected"},
        {R"({"sections": [5]})", "Design Sample, section 1: an object is expected"},
        {R"({"sections": [{"name": 5}]})", "Design Sample, section 1: \"name\" must be a text"},
        {design(section("Detail", "detail", 100, R"({"kind": "Line", "name": "a"}, 7)")),
         "section Detail, control 2: an object is expected"},
        {design(section("Detail", "detail", 100, R"({"kind": "Label", "name": "x", "caption": 5})")),
         "section Detail, control x: \"caption\" must be a text"},
        {design(section("Detail", "detail", 100, R"({"kind": "Line", "name": "x", "x1": 1e30})")),
         "section Detail, control x: \"x1\" is too large"},
        {design(section("Detail", "detail", 100, R"({"kind": "Lable", "name": "x"})")),
         "section Detail, control x: there is no control kind \"Lable\""},
        {design(section("Detail", "detail", 100, R"({"kind": "Label", "name": "x", "widht": 5})")),
         "control x: unknown key \"widht\""},
        {design(section("Detail", "detail", 100, R"({"kind": "Label", "name": "x"}, {"kind": "Line", "name": "X"})")),
         "control X: the name stands twice"},
        {design(section("Detail", "detail", 100, R"({"kind": "Field", "name": "x", "style": "nope"})")),
         "there is no style \"nope\""},
        {design(section("Detail", "detail", 100, bound("x", "=[A & [B]"))), "The expression"},
        {design(section("Detail", "detail", 100, bound("x", "A", R"("format": "#.##.0")"))), "The format"},
        {design(section("gh", "groupHeader", 100) + "," + section("Detail", "detail", 1)),
         "each group header needs its footer"},
        {design(section("gh", "groupHeader", 1, bound("x", "A", R"("sum": "report")")) + "," +
                section("gf", "groupFooter", 1)),
         "belongs into a footer"},
        {design(section("gh", "groupHeader", 1) + "," +
                section("gf", "groupFooter", 1, bound("x", "A", R"("sum": "ghh")"))),
         "there is no group \"ghh\""},
        {design(section("ReportFooter", "reportFooter", 1) + "," + section("Detail", "detail", 1)),
         "stands out of order"},
    };
    for (const auto& [text, message] : cases) {
        try {
            Sample report(host, text);
            ADD_FAILURE() << "taken: " << text;
        } catch (const InputError& error) {
            EXPECT_NE(std::string(error.what()).find(message), std::string::npos) << error.what();
        }
    }
}

TEST(Design, ControlsAndEventsOfUnknownNamesFailAtConstruction) {
    FakeHost host;
    Sample report(host, design(section("Detail", "detail", 100, bound("x", "A"))));
    EXPECT_THROW(report.label("x"), NameError);
    EXPECT_THROW(report.field("y"), NameError);
    EXPECT_THROW(report.section("gh"), NameError);
    EXPECT_THROW(report.setProperty("InvoiceType", 1), NameError);
}

TEST(Style, TextsSetWhatTheyNameAndRefuseTheRest) {
    StyleProperty style;
    style = "font-size: 8pt; text-align: right; font-weight: bold;";
    EXPECT_EQ(style.value().size, 8);
    EXPECT_EQ(style.value().align, Align::right);
    EXPECT_TRUE(style.value().bold);
    style = "font-style: italic";
    EXPECT_TRUE(style.value().bold && style.value().italic);
    EXPECT_THROW(style = "font-size: large", InputError);
    EXPECT_THROW(style = "colour: red", InputError);
    EXPECT_EQ(style.value().size, 8);
}

}  // namespace
}  // namespace quillo::test
