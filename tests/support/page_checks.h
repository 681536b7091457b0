#pragma once

#include <string>
#include <vector>

#include "tests/support/page_matching.h"

namespace quillo::test {

// One plan, run on pages of one height, beside the same on a page that has no end.
struct Trial {
    const ReportPlan& plan;
    const PlanIndex& index;
    const Expectation& expected;
    const PlannedRun& run;
    const PlannedRun& endless;
    const PageMatching& matching;         // of the run
    const PageMatching& endlessMatching;  // of the endless run
};

// Height that the body has at least on each page, between page header and footer; twips.
float bodyRoom(const Trial& trial);

// A property of every report: what breaks it first, or nothing.
struct PageCheck {
    const char* name;
    std::string (*find)(const Trial&);
    bool ofWholeRuns;  // tells nothing of a run that the engine gave up
};
extern const std::vector<PageCheck> pageChecks;

// Run and events (run_checks.cpp)
std::string findWrongEnd(const Trial& trial);
std::string findWrongEvent(const Trial& trial);
// Texts, emptiness, breaks, what stands together (flow_checks.cpp)
std::string findWrongText(const Trial& trial);
std::string findEmptyPage(const Trial& trial);
std::string findMissedBreak(const Trial& trial);
std::string findWrongHeading(const Trial& trial);
std::string findTornTogether(const Trial& trial);
// Places (geometry_checks.cpp)
std::string findOverprint(const Trial& trial);

}  // namespace quillo::test
