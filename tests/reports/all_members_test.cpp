#include <gtest/gtest.h>

#include <filesystem>
#include <span>

#include "host/filter/filter_words.h"
#include "tests/company/demo_file.h"
#include "tests/support/member_runs.h"

namespace quillo {
namespace {

namespace fs = std::filesystem;

// What a user may ask of any report, so that every branch of its texts is built.
struct Wish {
    const char* name;
    bool foreign;
    const char* segments;
    bool noSegment;
};
constexpr Wish wishes[] = {{"plain", false, "", false}, {"foreign, segments and none", true, "1,2", true}};

// No report shows a failure: its design loads and all that it asks the database runs on the schema.
void runAll(const std::string& company, const char* from, const char* to) {
    for (const clsReport::Member& member : clsReport::members()) {
        if (!member.written) continue;
        for (const int dialect : {0, 1})
            for (const Wish& wish : wishes) {
                test::ReportRun run;
                run.member = member.name;
                run.company = company;
                run.properties = test::neededBy(member.name);
                run.from = from, run.to = to;
                run.dialect = dialect;
                run.foreign = wish.foreign;
                const auto traits = test::traitsOf(member.name, company);
                if (traits.segments) run.segments = wish.segments, run.noSegment = wish.noSegment;
                SCOPED_TRACE(run.member + ", dialect " + std::to_string(dialect) + ", " + wish.name);
                const auto result = test::runReport(run);
                EXPECT_EQ(result.boxes, std::vector<std::string>{});
                EXPECT_TRUE(!traits.rows || !result.sql.empty()) << "a report with rows asks for them";
                EXPECT_GE(result.pageCount(), 1U);
            }
    }
}

TEST(AllMembers, RunOnACompanyWithoutRows) {
    const test::TestCompany company(
        "INSERT INTO Segment (InSegmentId, Descr) VALUES (1, 'East'), (2, 'West');"
        "INSERT INTO GLAcct (InGLAcctId, GLAcctId) VALUES (1, '1100');"
        "INSERT INTO AccountGroup VALUES ('CustGLAR', 1, 1)");
    runAll(company.path(), "2024-01-01", "2024-12-31");
}

TEST(AllMembers, RunOnADemoCompany) {
    const test::DemoFile company;
    runAll(company.path(), "2025-03-01", "2025-03-14");
}

std::size_t count(const test::ReportResult& result, SectionKind kind) {
    std::size_t sections = 0;
    for (const auto& page : result.kept.pages)
        for (const PlacedSection& section : page->sections)
            sections +=
                section.info->kind == kind && section.info->name != "Note" && section.height > 0 && !section.continued;
    return sections;
}

std::size_t rowsOf(const test::ReportResult& result) {
    return count(result, SectionKind::detail);
}

// A report that folds its rows prints a line a group: an order by what changes within a group parts it.
void expectRows(const test::ReportResult& result, const test::ReportResult& all) {
    if (rowsOf(all) > 0) {
        EXPECT_EQ(rowsOf(result), rowsOf(all));
    } else {
        EXPECT_GT(count(all, SectionKind::groupFooter), 0U);
        EXPECT_GE(count(result, SectionKind::groupFooter), count(all, SectionKind::groupFooter));
    }
}

// No column that a filter offers is ambiguous, missing or hidden behind a view where the report's query stands, and
// none of them loses or doubles a row.
TEST(AllMembers, TakeEveryColumnOfTheirFilterAsConditionAndAsOrder) {
    const test::DemoFile company;
    test::ListedMessages messages;
    SessionOptions options;
    options.company = company.path();
    HostSession session(options, messages);
    constexpr std::size_t atOnce = 16;  // the filter's text must leave room on the page
    for (const clsReport::Member& member : clsReport::members()) {
        if (!member.written) continue;
        std::string tables = test::traitsOf(member.name, company.path()).filterTables;
        if (tables.empty()) continue;  // takes no filter
        // The statistics by period list items, which know no warehouse: whoever filters by one is told so.
        if (member.name == "ConsumedStatisticsByPeriod") tables = tables.substr(tables.find("Item"));
        test::ReportRun run{.member = std::string(member.name), .company = company.path()};
        run.from = "2025-12-01", run.to = "2025-12-07";
        const auto all = test::runReport(run);
        for (const bool qualified : {true, false}) {
            const auto columns = test::columnsOf(tables, session.file().catalogue(), qualified);
            ASSERT_FALSE(columns.empty()) << run.member;
            for (std::size_t at = 0; at < columns.size(); at += atOnce) {
                test::filterBy(std::span(columns).subspan(at, std::min(atOnce, columns.size() - at)), run);
                const auto result = test::runReport(run);
                EXPECT_EQ(result.boxes, std::vector<std::string>{}) << run.member << ", " << run.where;
                SCOPED_TRACE(run.member + ", " + run.where);
                expectRows(result, all);
            }
        }
    }
}

TEST(AllMembers, TellEveryColumnOfTheirFilterInWords) {
    const test::DemoFile company;
    test::ListedMessages messages;
    SessionOptions options;
    options.company = company.path();
    options.language = "ids";
    HostSession session(options, messages);
    for (const clsReport::Member& member : clsReport::members()) {
        if (!member.written) continue;
        const std::string tables = test::traitsOf(member.name, company.path()).filterTables;
        for (const std::string& name : test::columnsOf(tables, session.file().catalogue(), true)) {
            const auto dot = name.find('.');
            const std::string words = orderInWords({{{name.substr(0, dot), name.substr(dot + 1)}}}, session);
            EXPECT_NE(words, name.substr(dot + 1)) << member.name << ": " << name;
        }
    }
}

TEST(AllMembers, HaveARowInTheDocuments) {
    const fs::path page = fs::path(QUILLO_SOURCE) / "docs/reports.md";
    const std::string text = test::fileText(page.string());
    for (const clsReport::Member& member : clsReport::members()) {
        if (!member.written) continue;
        EXPECT_NE(text.find("`" + std::string(member.name) + "`"), text.npos) << member.name;
    }
}

}  // namespace
}  // namespace quillo
