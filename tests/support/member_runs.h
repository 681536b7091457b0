#pragma once

#include <fstream>
#include <iterator>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "tests/support/report_runner.h"

// Runs that any report of the factory takes, so that a suite holds for a report as soon as it is written.
namespace quillo::test {

inline std::string fileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline std::string goldenFolder() {
    return std::string(QUILLO_SOURCE) + "/tests/golden/";
}

// What a member must be told to list anything: whose figures it explains. Both companies of the tests know them.
std::map<std::string, std::string> neededBy(std::string_view member);

// The small company in which every report meets each of its branches.
class GoldenCompany : public TestCompany {
public:
    GoldenCompany() : TestCompany(fileText(goldenFolder() + "company.sql")) {}
    // The month that its rows lie in, its texts as ids.
    ReportRun run(std::string_view member) const {
        return {.member = std::string(member),
                .company = path(),
                .from = "2024-01-01",
                .to = "2024-01-31",
                .properties = neededBy(member),
                .language = "ids"};
    }
};

inline std::vector<std::string> writtenMembers() {
    std::vector<std::string> names;
    for (const clsReport::Member& member : clsReport::members())
        if (member.written) names.emplace_back(member.name);
    return names;
}

// What a member answers a host before it runs.
struct MemberTraits {
    std::string filterTables;
    bool segments = false, currency = false;
    int dates = 0;      // that it takes: one of DateDisplay
    bool rows = false;  // it reads rows of the company; a letter has none
};

// All columns that a list of tables and columns lets a user filter by: qualified, or alone where one table has the
// name.
std::vector<std::string> columnsOf(std::string_view tables, const Catalogue& catalogue, bool qualified);

// A condition on columns that is true of every row, and an order by them.
void filterBy(std::span<const std::string> columns, ReportRun& run);

MemberTraits traitsOf(std::string_view member, const std::string& company);

// A way to ask for a report.
struct MemberRun {
    std::string name;  // "" for the plain one, else such as "-foreign"
    ReportRun run;
};

// The ways that any report may be asked in: plain, and where it takes them foreign amounts and segments; by codes and
// by descriptions.
std::vector<MemberRun> runsOf(std::string_view member, const GoldenCompany& company);

// What the settings say of a company that shows descriptions where others show codes.
void showDescriptions(ReportRun& run);

}  // namespace quillo::test
