#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/company/demo_file.h"
#include "tests/support/report_runner.h"

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
                run.from = from, run.to = to;
                run.dialect = dialect;
                run.foreign = wish.foreign;
                run.segments = wish.segments, run.noSegment = wish.noSegment;
                SCOPED_TRACE(run.member + ", dialect " + std::to_string(dialect) + ", " + wish.name);
                const auto result = test::runReport(run);
                EXPECT_EQ(result.boxes, std::vector<std::string>{});
                EXPECT_FALSE(result.sql.empty());
                EXPECT_GE(result.pageCount(), 1U);
            }
    }
}

TEST(AllMembers, RunOnACompanyWithoutRows) {
    const test::TestCompany company;
    runAll(company.path(), "2024-01-01", "2024-12-31");
}

TEST(AllMembers, RunOnADemoCompany) {
    const test::DemoFile company;
    runAll(company.path(), "2025-03-01", "2025-03-14");
}

TEST(AllMembers, HaveARowInTheDocuments) {
    const fs::path page = fs::path(QUILLO_SOURCE) / "docs/reports.md";
    std::ifstream file(page, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    for (const clsReport::Member& member : clsReport::members()) {
        if (!member.written) continue;
        EXPECT_NE(text.find("`" + std::string(member.name) + "`"), text.npos) << member.name;
    }
}

}  // namespace
}  // namespace quillo
