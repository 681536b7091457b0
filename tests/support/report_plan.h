#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "framework/engine/controls.h"
#include "framework/values/variant.h"

// A report as a seed makes it up: its design, its rows and what its events do, told as data, so that a report can be
// run by it (planned_report.h) and what must be printed can be worked out from it (expected_prints.h).
namespace quillo::test {

// Where a text comes from. Each text is unique in its run, by row or by the number of its section's print.
enum class Shows { caption, column, written, sum };

struct ReportPlan;

struct ControlPlan {
    ControlKind kind = ControlKind::label;
    std::string name;
    float left = 0, top = 0, width = 0, height = 0;
    Shows shows = Shows::caption;
    std::string column;    // of a bound text
    int over = 0;          // level of the group that a sum is over; 0: the report
    bool running = false;  // a sum that never starts again
    bool grows = false;
    int filler = 0;       // letters that a written text has beside its name
    bool steady = false;  // it has them in every print
    int hiddenEvery = 0;  // hidden (a break: not taken) in each print whose number this divides; 0: never
    std::shared_ptr<const ReportPlan> inner;  // of a sub-report

    bool isPrintedAt(int number) const { return hiddenEvery == 0 || number % hiddenEvery != 0; }
    bool isText() const { return kind == ControlKind::label || kind == ControlKind::field; }
    // What the report writes into it at a print; the caption of a label.
    std::string writtenAt(int number) const;
};

struct SectionPlan {
    SectionKind kind = SectionKind::detail;
    std::string name;
    int level = 0;  // of a group's header and footer, 1 the outermost
    float height = 0;
    std::string dataField{};
    bool repeat = false, underlayNext = false, keepTogether = true;
    GroupKeep groupKeep = GroupKeep::none;
    int newPage = NewPage::none;
    int hiddenEvery = 0;  // as of a control
    bool startsHidden = false;
    float taller = 0;  // twips that the report adds to the height at each second print
    std::vector<ControlPlan> controls{};

    bool isPrintedAt(int number) const { return hiddenEvery == 0 || number % hiddenEvery != 0; }
    float heightAt(int number) const { return height + (number % 2 == 0 ? taller : 0); }
    bool isOfPage() const { return kind == SectionKind::pageHeader || kind == SectionKind::pageFooter; }
};

enum class Feed { recordset, fetch, none };

constexpr int mostLevels = 3;

struct Row {
    std::vector<Variant> values{};  // as the plan's columns
    bool dropped = false;
    const Variant& key(int level) const { return values[static_cast<std::size_t>(level - 1)]; }
};

struct ReportPlan {
    std::string name;
    Feed feed = Feed::recordset;
    std::vector<SectionPlan> sections{};
    bool removesEmptyPage = false;  // as the journals do behind the two breaks of their footer
    std::uint64_t rowSeed = 0;
    int mostRows = 0;
    bool allRows = false;   // as many rows as it may have, in each run
    int changePercent = 0;  // how often a group's key changes
    bool drops = false;
    bool doubles = false;  // amounts are doubles, not money

    // The rows of a run, 1 for the first; a report without rows of its own has none.
    std::vector<Row> rows(int run) const;
    const SectionPlan* find(SectionKind kind, int level = 0) const;
};

const std::vector<std::string>& planColumns();  // Key1 .. Key3, Text1 .. Text3, Amount, Dropped
std::size_t columnOf(const std::string& name);

// The report of a seed. Small seeds make small reports.
ReportPlan planReport(std::uint64_t seed);

// Its design as a file holds it.
std::string designOf(const ReportPlan& plan, float pageHeight);

// The page of all plans, whose height varies.
constexpr float planMargin = 500, planPageWidth = 5000;

}  // namespace quillo::test
