#include <gtest/gtest.h>

#include "tests/company/demo_file.h"
#include "tests/support/member_runs.h"
#include "tests/support/page_reading.h"
#include "tests/support/report_runner.h"

// What a report tells does not depend on the paper: the same texts and totals, in the same order, on any page.
namespace quillo {
namespace {

// What each control of a report's body printed from first to last, and the names of its sections in their order.
using Told = std::map<std::string, std::string>;
constexpr const char* sections = "the sections";

void tell(const PlacedSection& section, Told& told) {
    if (section.repeat) return;
    if (!section.continued && test::showsAny(section)) told[sections] += section.info->name + " ";
    for (const PlacedControl& control : section.controls) {
        told[control.info->name] += control.text;
        for (const PlacedSection& inner : control.sections) tell(inner, told);
    }
}

Told toldBy(const test::ReportResult& result) {
    Told told;
    for (const auto& page : result.kept.pages)
        for (const PlacedSection& section : page->sections)
            if (test::isBody(section)) tell(section, told);
    return told;
}

// Where the texts of a control part from each other first; empty: nowhere.
std::string difference(const Told& told, const Told& again) {
    constexpr std::size_t before = 20, shown = 60;
    for (const auto& [control, text] : told) {
        const auto found = again.find(control);
        const std::string other = found == again.end() ? "" : found->second;
        if (other == text) continue;
        const auto end = std::mismatch(text.begin(), text.end(), other.begin(), other.end()).first;
        const auto at = static_cast<std::size_t>(end - text.begin());
        const std::size_t from = at - std::min(at, before);
        return control + ": \"" + other.substr(from, shown) + "\", as designed \"" + text.substr(from, shown) + "\"";
    }
    return told.size() == again.size() ? "" : "another control prints";
}

bool isChart(const PlacedSection& section) {
    return std::ranges::any_of(section.controls,
                               [](const auto& item) { return item.info->kind == ControlKind::chart; });
}

// A heading stands above the first row of what it heads, on the same page.
void expectNoHeadingAlone(const std::vector<std::shared_ptr<const Page>>& pages) {
    const PlacedSection* before = nullptr;
    int on = 0;
    for (const auto& page : pages)
        for (const PlacedSection& section : page->sections) {
            if (!test::isBody(section)) continue;
            const bool heads = before != nullptr && before->info->kind == SectionKind::groupHeader && !isChart(*before);
            if (heads && test::showsAny(*before) && section.info->kind == SectionKind::detail && on != page->number)
                ADD_FAILURE() << before->info->name << " stands alone at the end of page " << on;
            before = &section, on = page->number;
        }
}

struct Paper {
    const char* name;
    float height;  // twips
};
constexpr float halfLetter = 7920;
constexpr Paper papers[] = {
    {"half a page", halfLetter}, {"a little more", halfLetter + 500}, {"a page without end", 1000000}};

test::ReportResult runOn(test::ReportRun run, float pageHeight) {
    run.pageHeight = pageHeight;
    const auto result = test::runReport(run);
    EXPECT_EQ(result.boxes, std::vector<std::string>{});
    for (const auto& page : result.kept.pages) EXPECT_TRUE(test::hasContent(*page)) << "page " << page->number;
    expectNoHeadingAlone(result.kept.pages);
    return result;
}

TEST(PageHeights, EveryMemberTellsTheSameOnAnyPage) {
    const test::DemoFile company;
    for (const clsReport::Member& member : clsReport::members()) {
        if (!member.written) continue;
        SCOPED_TRACE(member.name);
        test::ReportRun run;
        run.member = member.name;
        run.company = company.path();
        run.properties = test::neededBy(member.name);
        run.from = "2025-03-01", run.to = "2025-03-14";
        const auto asDesigned = runOn(run, 0);
        const Told told = toldBy(asDesigned);
        EXPECT_TRUE(told.contains(sections));
        for (const Paper& paper : papers) {
            SCOPED_TRACE(paper.name);
            const auto result = runOn(run, paper.height);
            ASSERT_GE(result.pageCount(), 1U);
            EXPECT_EQ(result.kept.pages.front()->setup.height, paper.height);
            EXPECT_EQ(difference(told, toldBy(result)), "");
        }
    }
}

}  // namespace
}  // namespace quillo
