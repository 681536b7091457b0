#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "framework/engine/layout.h"

namespace quillo {

class BandRun;

// Where the formatted sections of a run go: the pages, or the inside of a sub-report's control.
class SectionTarget {
public:
    virtual ~SectionTarget() = default;
    virtual Arena& arena() = 0;
    virtual float width() const = 0;
    // Whether this is the inside of a sub-report's control.
    virtual bool isNested() const { return false; }
    // Whether the last sub-report of the section may run while its rows go to the target.
    virtual bool takesFlow(const Section&) const { return false; }
    // Before the first row; prints the report header.
    virtual void begin(BandRun& run) = 0;
    virtual void place(Section& section, const LaidOut& laid) = 0;
    virtual void openGroup(Section&) {}
    virtual void closeGroup(Section&) {}
};

// The walk of one report over its rows: binding, groups, sums, events. Knows nothing of pages.
class BandRun {
public:
    BandRun(Report& report, RunState& state, SectionTarget& target);

    // From ActiveReport_ReportStart to the report footer. Throws RunStopped and EngineError.
    void run();
    // ActiveReport_ReportEnd: after what the run placed has found its place.
    void end();

    Report& report() { return report_; }
    RunState& state() { return state_; }
    // The section of a kind that stands once in a design; null when there is none.
    Section* single(SectionKind kind) const;
    // Binds and formats a section, and lays it out; nothing when it is hidden or was dropped.
    std::optional<LaidOut> format(Section& section);
    // Formats a section, hands it to the target and tells the report that it has printed.
    void print(Section* section);
    // Tells the report that a section has printed.
    void printed(Section& section);

private:
    struct Group {
        Section* header;
        Section* footer;
        Expression expression;
        Variant value;
        bool waits = false;  // opened, and prints with its first row that prints
        bool shows = false;  // of a group that waits: its header is not hidden
    };
    struct Sum {
        FieldNotes* field;
        const Section* section;
        int group;               // index of its group; -1: the report
        FieldNotes::Sum before;  // what a row that is dropped leaves
    };

    // Binds a section and runs its event; whether it shows.
    bool formats(Section& section);
    LaidOut laidOut(const Section& section);
    void printFormatted(Section& section);
    void openWaiting();
    void prepare();
    void prepareGroups();
    void prepareFields();
    void checkGroupKeys();
    void takeRecordset();
    void compile(const Section& section, FieldNotes& notes);
    void tellMissing(const Section& section, const Control& control, const Expression& bound);
    int findColumn(std::string_view name) const;
    ValueView columnValue(const Expression::Part& part) const;
    ValueView valueOf(Expression& expression, std::string& joined) const;
    void fill(const Section& section);
    void fillField(const Section& section, FieldNotes& notes);
    void fillLink(const Section& section, LinkNotes& notes);
    void show(FieldNotes& notes) const;
    std::string tagOf(const Section& section, LinkNotes& notes);
    void capture();
    bool firstRow();
    bool nextRow();
    bool fetch();
    bool rowsAtEnd() const;
    void advance();
    void row();
    std::size_t firstChanged();
    void open(std::size_t from);
    void close(std::size_t from);
    void printDetail();
    void addToSums();
    void addToSum(const Section& section, FieldNotes& notes);

    Report& report_;
    RunState& state_;
    SectionTarget& target_;
    RunNotes* notes_ = nullptr;
    std::shared_ptr<Recordset> rows_;  // kept: an event may give the data control another one, or none
    std::vector<Group> groups_;
    std::size_t openGroups_ = 0;
    std::vector<Sum> sums_;
    std::vector<std::pair<const Section*, FieldNotes*>> captured_;  // fields of headers and footers: keep a row's value
    std::vector<const Section*> linked_;                            // headers and footers that lead somewhere
    bool live_ = false;                                             // a row stands there to be read
    std::string joined_;
};

// Runs sub-reports whole, each into an arena.
class StackedRuns final : public NestedRuns {
public:
    explicit StackedRuns(RunState& state) : state_(state) {}
    std::span<const PlacedSection> run(Report& report, float width, Arena& arena) override;

private:
    RunState& state_;
};

}  // namespace quillo
