#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "framework/engine/layout.h"
#include "framework/engine/report.h"

namespace quillo {

class BandRun;

// Where the formatted sections of a run go: the pages, or the inside of a sub-report's control.
class SectionTarget {
public:
    virtual ~SectionTarget() = default;
    virtual Arena& arena() = 0;
    virtual float width() const = 0;
    // Before the first row; prints the report header.
    virtual void begin(BandRun& run) = 0;
    // A section is about to be formatted: a page break that was asked for takes place now.
    virtual void beforeFormat() {}
    virtual void place(Section& section, const PlacedSection& placed) = 0;
    virtual void openGroup(Section&) {}
    virtual void closeGroup(Section&) {}
    virtual void detailDone() {}
};

// The walk of one report over its rows: binding, groups, sums, events. Knows nothing of pages.
class BandRun {
public:
    BandRun(Report& report, RunState& state, SectionTarget& target);

    // From ActiveReport_ReportStart to the report footer.
    void run();

    Report& report() { return report_; }
    RunState& state() { return state_; }
    // The section of a kind that stands once in a design; null when there is none.
    Section* single(SectionKind kind) const;
    // Binds and formats a section, and lays it out; nothing when it is hidden or was dropped.
    std::optional<PlacedSection> format(Section& section);
    // Formats a section and hands it to the target.
    void print(Section* section);
    // The headers of the open groups that print again on each page, outermost first.
    std::vector<Section*> repeatedHeaders() const;

private:
    struct Group {
        Section* header;
        Section* footer;
        Expression expression;
        Variant value;
    };
    struct Sum {
        Field* field;
        int group;  // index of its group; -1: the report
    };

    void prepare();
    void prepareFields();
    void bindColumns(Field& field) const;
    int findColumn(std::string_view name) const;
    ValueView columnValue(const Expression::Part& part) const;
    ValueView valueOf(Expression& expression, std::string& joined) const;
    void fill(Section& section);
    void show(Field& field) const;
    void capture();
    void walk();
    bool advance();
    void row();
    std::size_t firstChanged();
    void open(std::size_t from);
    void close(std::size_t from);
    void printDetail();
    void addToSums(int sign);

    Report& report_;
    RunState& state_;
    SectionTarget& target_;
    Recordset* rows_ = nullptr;
    std::vector<Group> groups_;
    std::size_t openGroups_ = 0;
    std::vector<Sum> sums_;
    std::vector<Field*> captured_;  // bound fields of headers and footers: keep their value for a later print
    bool live_ = false;             // a row stands there to be read
    std::string joined_;
};

// Runs a report inside a sub-report's control; the sections live in the arena.
std::span<const PlacedSection> runSubReport(Report& report, float width, Arena& arena, RunState& state);

// Thrown when the run was asked to stop. Not an std::exception, so that no step takes it for a failure.
struct RunStopped {};

}  // namespace quillo
