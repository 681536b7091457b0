#pragma once

#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "tests/support/expected_prints.h"
#include "tests/support/planned_report.h"

namespace quillo::test {

// Sections and controls of a plan and of its sub-reports, by name.
struct PlanIndex {
    explicit PlanIndex(const ReportPlan& plan) { add(plan); }
    void add(const ReportPlan& plan);
    const ControlPlan& control(const PlacedControl& placed) const { return *controls.at(placed.info->name); }
    const SectionPlan& section(const PlacedSection& placed) const { return *sections.at(placed.info->name); }

    std::unordered_map<std::string, const ControlPlan*> controls;
    std::unordered_map<std::string, const SectionPlan*> sections;
};

// A print, or a part of it, as it stands on a page. Pages count from 0.
struct Piece {
    int page;
    const PlacedSection* placed;
    const ExpectedPrint* print = nullptr;  // null: it shows no text that tells
    int depth = 0;                         // 1 inside of a sub-report, and so on
};

// A control that was seen on a page, text by text; a sub-report where it shows a text.
struct Seen {
    int page;
    const ExpectedPrint* print;
    const ControlPlan* control;
};

// Finds what stands on the pages among what must be printed. Page headers and footers are left out, and the headings
// that stand again.
class PageMatching {
public:
    PageMatching(const PlanIndex& index, const Expectation& expected, const PlannedRun& run);
    // What is lost, doubled, torn wrongly or out of order first; empty: nothing is.
    const std::string& difference() const { return difference_; }
    const std::vector<Piece>& pieces() const { return pieces_; }
    const std::vector<Seen>& seen() const { return seen_; }

private:
    struct Due {
        std::string text;
        const ExpectedPrint* print;
    };
    struct Texts {
        std::vector<Due> due{};
        std::size_t next = 0, letters = 0;  // what of them has been seen
    };
    void expect(const std::vector<ExpectedPrint>& prints);
    const ExpectedPrint* visit(const PlacedSection& section, int page, int depth);
    const ExpectedPrint* holderOf(const PlacedSection& section, const ExpectedPrint& inner) const;
    void take(const PlacedControl& control, Piece& piece);
    // Where a piece stands among the others; tells the print of a rest that shows no text of its own.
    void order(Piece& piece);
    void finish();
    void fail(int page, const std::string& what);

    const PlanIndex& index_;
    std::map<std::string, Texts> texts_;
    std::map<std::string, int> dueFigures_, figures_;                    // lines and shapes
    std::map<const ReportPlan*, int> last_;                              // order of the print seen last
    std::map<std::string, std::map<int, const ExpectedPrint*>> prints_;  // of each section, by their order
    std::map<std::string, const ExpectedPrint*> current_;                // of each section
    std::set<std::string> begun_;                                        // sections that began without a text
    std::vector<Piece> pieces_;
    std::vector<Seen> seen_;
    std::string difference_;
};

}  // namespace quillo::test
