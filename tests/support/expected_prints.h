#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/support/report_plan.h"

namespace quillo::test {

// A control that a print shows, with its text.
struct ExpectedControl {
    const ControlPlan* plan;
    std::string text{};
};

// One Format of a section of the body, in the order of the run.
struct ExpectedPrint {
    const ReportPlan* report;
    const SectionPlan* section;
    int number;                 // of the section's prints, 1 for the first
    int order = 0;              // among all prints of a run, those of sub-reports behind the one that holds them
    bool printed = false;       // else it was hidden, or its row dropped
    std::vector<int> groups{};  // which instance of each group it belongs to, outermost first
    std::vector<ExpectedControl> controls{};
    std::vector<ExpectedPrint> inner{};  // of its sub-reports
};

// What a plan must print, worked out from its rows alone: no pages, no sums that are carried along.
class Expectation {
public:
    explicit Expectation(const ReportPlan& plan) : prints_(walk(plan)) {}
    Expectation(const Expectation&) = delete;
    Expectation& operator=(const Expectation&) = delete;

    const std::vector<ExpectedPrint>& prints() const { return prints_; }
    // The events of the body in their order, as an EventLog has them.
    std::vector<std::string> events() const;

private:
    struct Walk {
        const ReportPlan& plan;
        std::vector<Row> rows;
        std::vector<std::vector<int>> groups;  // of each row, its instance of each level's group
        std::vector<ExpectedPrint> prints{};
    };
    std::vector<ExpectedPrint> walk(const ReportPlan& plan);
    void print(Walk& walk, SectionKind kind, int level, std::size_t row);
    void close(Walk& walk, int from, std::size_t row);
    std::string textOf(const Walk& walk, const ControlPlan& control, std::size_t row, int number) const;

    std::map<const ReportPlan*, int> runs_;
    std::map<const SectionPlan*, int> numbers_;
    int order_ = 0;
    std::vector<ExpectedPrint> prints_;
};

}  // namespace quillo::test
