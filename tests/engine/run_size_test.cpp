#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/page_checks.h"

// What a run costs does not grow faster than the report: pages leave while it goes on, a text is measured once.
namespace quillo::test {
namespace {

ControlPlan text(const std::string& name, float top, bool grows) {
    ControlPlan control;
    control.kind = ControlKind::field;
    control.name = name;
    control.top = top, control.width = 900, control.height = 200;
    control.shows = Shows::written;
    control.grows = grows;
    control.filler = grows ? 30 : 0;
    return control;
}

ControlPlan pageBreak(const std::string& name, float top) {
    ControlPlan control;
    control.kind = ControlKind::pageBreak;
    control.name = name;
    control.top = top;
    return control;
}

// Rows of one line each.
ReportPlan list(const std::string& name, int rows) {
    ReportPlan plan;
    plan.name = name;
    plan.mostRows = rows;
    plan.allRows = true;
    plan.sections = {{.name = name + "Detail", .height = 200, .controls = {text(name + "Text", 0, false)}}};
    return plan;
}

// A journal of one row with its distribution behind the two page breaks of its footer.
ReportPlan journal(int accounts) {
    ReportPlan plan = list("Journal", 1);
    plan.removesEmptyPage = true;
    ControlPlan distribution;
    distribution.kind = ControlKind::subReport;
    distribution.name = "sub";
    distribution.top = 215, distribution.width = 3900, distribution.height = 100;
    distribution.inner = std::make_shared<ReportPlan>(list("Distribution", accounts));
    plan.sections.push_back(
        {.kind = SectionKind::reportFooter,
         .name = "ReportFooter",
         .height = 315,
         .keepTogether = false,
         .controls = {text("Total", 0, false), pageBreak("first", 200), pageBreak("second", 215), distribution}});
    return plan;
}

int rowsOf(const PlacedSection& section) {
    int rows = section.info->name == "DistributionDetail" && !section.continued;
    for (const PlacedControl& control : section.controls)
        for (const PlacedSection& inner : control.sections) rows += rowsOf(inner);
    return rows;
}

// The most rows of a distribution that were formatted and not yet given to the sink.
int mostRowsWaiting(const PlannedRun& run) {
    int most = 0, given = 0;
    for (std::size_t page = 0; page < run.kept.pages.size(); ++page) {
        const auto end = run.log.body.begin() + static_cast<std::ptrdiff_t>(run.eventsAtPage[page]);
        const auto formatted = std::count_if(run.log.body.begin(), end, [](const std::string& event) {
            return event.starts_with("F DistributionDetail ");
        });
        most = std::max(most, static_cast<int>(formatted) - given);
        for (const PlacedSection& section : run.kept.pages[page]->sections) given += rowsOf(section);
    }
    return most;
}

TEST(RunSize, ADistributionOfAnyLengthLeavesPageByPage) {
    for (const int accounts : {30, 600}) {
        SCOPED_TRACE(std::to_string(accounts) + " accounts on pages of ten");
        const ReportPlan plan = journal(accounts);
        const PlannedRun run = runPlan(plan, 3000);
        EXPECT_EQ(PageMatching(PlanIndex(plan), Expectation(plan), run).difference(), "");
        EXPECT_EQ(run.kept.pages.size(), 1 + static_cast<std::size_t>(accounts) / 10);
        EXPECT_LE(run.mostHeldBack, 3);
        EXPECT_LE(mostRowsWaiting(run), 50);
    }
}

TEST(RunSize, TextsThatGrowOneUnderTheOtherAreMeasuredOnceEach) {
    constexpr int texts = 1000;
    ReportPlan plan;
    plan.name = "Stack";
    plan.feed = Feed::none;
    plan.sections = {{.name = "Detail", .height = 250.0F * texts}};
    for (int i = 0; i < texts; ++i)
        plan.sections.front().controls.push_back(
            text("grow" + std::to_string(i), 250.0F * static_cast<float>(i), true));
    const PlanIndex index(plan);
    const Expectation expected(plan);
    for (const float height : {1000000.0F, 3000.0F}) {
        SCOPED_TRACE("pages of " + std::to_string(height));
        const PlannedRun run = runPlan(plan, height);
        EXPECT_EQ(run.measured, texts);
        EXPECT_EQ(PageMatching(index, expected, run).difference(), "");
    }
}

}  // namespace
}  // namespace quillo::test
