#include <algorithm>

#include "tests/support/dice.h"
#include "tests/support/report_plan.h"

// How a seed becomes a report. Controls stand in columns, each in a place of its own, so that nothing overlaps but the
// frames that are meant to.
namespace quillo::test {
namespace {

constexpr float columnWidth = 1000, columnGap = 100, lineHeight = 200;
constexpr int pageColumns = 4;

// The columns that a section may use: a header that its rows underlay leaves the right half to them.
struct Strip {
    int first = 0, end = pageColumns;
};

class Planner {
public:
    explicit Planner(std::uint64_t seed)
        : dice_(seed),
          seed_(seed),
          size_(seed % 4 == 0   ? 3
                : seed % 4 == 1 ? 8
                                : 30),
          lively_(dice_.in(70)) {}

    ReportPlan report(const std::string& prefix, int depth, int columns);

private:
    using Kind = SectionKind;

    SectionPlan& add(ReportPlan& plan, Kind kind, const std::string& name, int level = 0);
    void addFrameHeaders(ReportPlan& plan);
    void addGroupHeaders(ReportPlan& plan);
    void addFooters(ReportPlan& plan);
    Strip stripOf(int level) const;
    void addDistribution(SectionPlan& footer, ReportPlan& plan);
    void addFrames(SectionPlan& section, Strip strip, float bottom);
    void flagEvents(SectionPlan& section);
    void fill(SectionPlan& section, Strip strip);
    float fillRows(SectionPlan& section, Strip strip, float top);
    float fillBricks(SectionPlan& section, Strip strip, float top);
    void addBreak(SectionPlan& section, float top);
    void addMark(SectionPlan& section, Strip strip, float top);
    ControlPlan cell(const SectionPlan& section, int column, int columns, float top);
    void makeText(ControlPlan& control, const SectionPlan& section);
    void makeSum(ControlPlan& control, const SectionPlan& section);
    void makeSubReport(ControlPlan& control, int columns);
    std::string named(const char* kind) { return kind + std::to_string(++names_); }
    bool sometimes(int percent) { return lively_ && dice_.in(percent); }

    // The report that is being made, or the sub-report within.
    struct Inside {
        int depth = 0;
        int columns = pageColumns;
        int levels = 0;
        int underlain = 0;  // level of the group whose rows underlay its header; 0: none
    };

    Dice dice_;
    std::uint64_t seed_;
    int size_;     // most rows of the report
    bool lively_;  // with events and flags
    int names_ = 0;
    Inside in_;
};

bool isOfRow(SectionKind kind) {
    return kind == SectionKind::groupHeader || kind == SectionKind::detail || kind == SectionKind::groupFooter;
}

void Planner::addMark(SectionPlan& section, Strip strip, float top) {
    ControlPlan mark;
    mark.kind = ControlKind::field;
    mark.name = named("mark");
    mark.left = static_cast<float>(strip.first) * columnWidth;
    mark.top = top, mark.width = columnWidth - columnGap, mark.height = lineHeight;
    mark.shows = Shows::written;
    section.controls.push_back(mark);
}

void Planner::makeText(ControlPlan& control, const SectionPlan& section) {
    control.kind = ControlKind::field;
    const bool bound = isOfRow(section.kind) || section.kind == Kind::reportFooter;
    control.shows = bound && dice_.in(75) ? Shows::column : Shows::written;
    control.grows = dice_.in(65);
    control.column = "Text" + std::to_string(dice_.between(1, 3));
    if (control.shows == Shows::written) control.filler = dice_.oneOf({0, 0, 10, 40});
    control.steady = section.isOfPage() && dice_.in(90);
    control.name = named(control.grows ? "grow" : "text");
    if (dice_.in(1)) control.height = 1200;  // a tower, which does not fit on the lowest pages
}

void Planner::makeSum(ControlPlan& control, const SectionPlan& section) {
    control.kind = ControlKind::field;
    control.shows = Shows::sum;
    control.name = named("sum");
    control.over = section.kind == Kind::reportFooter ? 0 : dice_.between(0, in_.levels);
    control.running = dice_.in(25);
}

void Planner::makeSubReport(ControlPlan& control, int columns) {
    control.kind = ControlKind::subReport;
    control.name = named("sub");
    control.width = static_cast<float>(columns) * columnWidth - columnGap;
    control.height = dice_.oneOf({100.0F, 200.0F, 400.0F});
    const Inside outside = in_;
    control.inner = std::make_shared<ReportPlan>(report(control.name, in_.depth + 1, columns));
    in_ = outside;
}

ControlPlan Planner::cell(const SectionPlan& section, int column, int columns, float top) {
    ControlPlan control;
    control.left = static_cast<float>(column) * columnWidth;
    control.top = top, control.width = columnWidth - columnGap, control.height = lineHeight;
    const bool sums = isOfRow(section.kind) ? section.kind != Kind::groupHeader : section.kind == Kind::reportFooter;
    const int choice = dice_.between(1, 100);
    if (choice <= 8 && in_.depth < 2 && !section.isOfPage()) {
        makeSubReport(control, columns);
    } else if (choice <= 14) {
        control.kind = ControlKind::line;
        control.name = named("line");
        control.height = dice_.oneOf({0.0F, 0.0F, 150.0F});
        if (control.height > 0) control.width = 0;
    } else if (choice <= 18) {
        control.kind = ControlKind::shape;
        control.name = named("shape");
    } else if (choice <= 28) {
        control.kind = ControlKind::label;
        control.name = named("label");
        control.grows = dice_.in(30);
        control.filler = control.grows ? dice_.oneOf({0, 20}) : 0;
    } else if (choice <= 45 && sums) {
        makeSum(control, section);
    } else {
        makeText(control, section);
    }
    if (sometimes(10)) control.hiddenEvery = dice_.between(1, 3);
    return control;
}

void Planner::addBreak(SectionPlan& section, float top) {
    ControlPlan pageBreak;
    pageBreak.kind = ControlKind::pageBreak;
    pageBreak.name = named("break");
    pageBreak.top = top;
    section.controls.push_back(pageBreak);
}

// Rows of controls side by side, between which a page may break.
float Planner::fillRows(SectionPlan& section, Strip strip, float top) {
    bool breaks = in_.depth == 0 && (section.kind == Kind::reportHeader || section.kind == Kind::reportFooter ||
                                     section.kind == Kind::detail || section.kind == Kind::groupFooter);
    for (int row = dice_.between(1, 3), column = strip.first + 1; row > 0; --row, column = strip.first) {
        float bottom = top + (column > strip.first ? lineHeight : 0);
        while (column < strip.end) {
            if (dice_.in(35)) {
                ++column;
                continue;
            }
            section.controls.push_back(
                cell(section, column, strip.end - column, top + dice_.oneOf({0.0F, 0.0F, 0.0F, 50.0F})));
            const ControlPlan& made = section.controls.back();
            bottom = std::max(bottom, made.top + made.height);
            column += std::max(1, static_cast<int>((made.width + columnGap) / columnWidth));
        }
        top = bottom + dice_.oneOf({0.0F, 0.0F, 50.0F});
        if (row == 1 || !breaks || !sometimes(section.kind == Kind::detail ? 4 : 12)) continue;
        addBreak(section, top);
        section.controls.back().hiddenEvery = dice_.oneOf({0, 1, 2});
        breaks = false;  // two with nothing between them ask for an empty page
    }
    return top;
}

// Columns of controls that have nothing to do with each other, so that no straight cut goes between them.
float Planner::fillBricks(SectionPlan& section, Strip strip, float top) {
    float lowest = top + lineHeight;
    const auto before = static_cast<std::ptrdiff_t>(section.controls.size());
    for (int column = strip.first; column < strip.end; ++column) {
        float y = column == strip.first ? top + lineHeight : top + dice_.oneOf({0.0F, 70.0F});
        for (int count = dice_.between(0, 3); count > 0; --count) {
            section.controls.push_back(cell(section, column, 1, y));
            y = section.controls.back().top + section.controls.back().height + dice_.oneOf({0.0F, 30.0F, 130.0F});
        }
        lowest = std::max(lowest, y);
    }
    std::stable_sort(section.controls.begin() + before, section.controls.end(),
                     [](const ControlPlan& a, const ControlPlan& b) { return a.top < b.top; });
    return lowest;
}

void Planner::addFrames(SectionPlan& section, Strip strip, float bottom) {
    if (!dice_.in(12)) return;
    ControlPlan frame;
    const bool box = dice_.in(50);
    frame.kind = box ? ControlKind::shape : ControlKind::line;
    frame.name = named(box ? "frame" : "rule");
    frame.left = static_cast<float>(strip.first) * columnWidth;
    frame.width = box ? static_cast<float>(strip.end - strip.first) * columnWidth - columnGap : 0;
    frame.height = bottom;
    section.controls.push_back(frame);
}

void Planner::fill(SectionPlan& section, Strip strip) {
    if (dice_.in(10)) return;  // as many designs have them: height 0 and nothing in it
    if (dice_.in(3)) {
        section.height = 150;
        return;
    }
    const float top = dice_.oneOf({0.0F, 30.0F});
    addMark(section, strip, top);
    const bool bricks = !section.isOfPage() && dice_.in(15);
    const float bottom = bricks ? fillBricks(section, strip, top) : fillRows(section, strip, top);
    addFrames(section, strip, bottom);
    section.height = bottom + dice_.oneOf({0.0F, 0.0F, 50.0F, 200.0F});
}

void Planner::flagEvents(SectionPlan& section) {
    section.keepTogether = !dice_.in(30);
    if (sometimes(12)) section.hiddenEvery = dice_.between(2, 4);
    if (sometimes(4)) section.hiddenEvery = 1;
    section.startsHidden = sometimes(8);
    if (sometimes(12)) section.taller = dice_.oneOf({100.0F, 350.0F});
}

SectionPlan& Planner::add(ReportPlan& plan, Kind kind, const std::string& name, int level) {
    SectionPlan section;
    section.kind = kind;
    section.name = (in_.depth > 0 ? plan.name : "") + name + (level > 0 ? std::to_string(level) : "");
    section.level = level;
    flagEvents(section);
    plan.sections.push_back(section);
    return plan.sections.back();
}

// What is inside of a group whose header its rows underlay stands in the right half, the header in the left.
Strip Planner::stripOf(int level) const {
    if (in_.underlain == 0 || level < in_.underlain) return {0, in_.columns};
    return level == in_.underlain ? Strip{0, 2} : Strip{2, in_.columns};
}

void Planner::addFrameHeaders(ReportPlan& plan) {
    if (dice_.in(45)) {
        SectionPlan& header = add(plan, Kind::reportHeader, "ReportHeader");
        fill(header, {0, in_.columns});
        header.repeat = in_.depth > 0 && dice_.in(30);
        if (in_.depth == 0 && sometimes(10)) header.newPage = NewPage::after;
    }
    if (in_.depth > 0 || dice_.in(30)) return;
    SectionPlan& header = add(plan, Kind::pageHeader, "PageHeader");
    const float top = dice_.in(40) ? lineHeight : 0;
    addMark(header, {}, top);
    header.height = fillRows(header, {}, top);
    if (top == 0) return;
    ControlPlan filter;  // what filters the report, above the captions
    in_.depth = 1;       // a plain one, which holds no other
    makeSubReport(filter, pageColumns);
    in_.depth = 0;
    filter.height = lineHeight;
    header.controls.insert(header.controls.begin(), filter);
}

void Planner::addGroupHeaders(ReportPlan& plan) {
    for (int level = 1; level <= in_.levels; ++level) {
        SectionPlan& header = add(plan, Kind::groupHeader, "gh", level);
        if (plan.feed != Feed::none && dice_.in(level == in_.levels ? 90 : 75))
            header.dataField = "Key" + std::to_string(level);
        fill(header, stripOf(level));
        header.underlayNext = level == in_.underlain;
        header.repeat = dice_.in(30);
        if (in_.depth > 0) continue;
        header.groupKeep = dice_.oneOf({GroupKeep::none, GroupKeep::none, GroupKeep::all, GroupKeep::firstDetail});
        if (sometimes(10)) header.newPage = dice_.oneOf({NewPage::before, NewPage::after, NewPage::both});
    }
}

// A report footer of two page breaks with a sub-report behind them: the empty page between them goes at the end.
void Planner::addDistribution(SectionPlan& footer, ReportPlan& plan) {
    plan.removesEmptyPage = true;
    footer.keepTogether = false;
    for (const float below : {0.0F, 15.0F}) addBreak(footer, footer.height + below);
    ControlPlan sub;
    sub.top = footer.height + 30;
    makeSubReport(sub, pageColumns);
    footer.height = sub.top + sub.height;
    footer.controls.push_back(sub);
}

void Planner::addFooters(ReportPlan& plan) {
    for (int level = in_.levels; level > 0; --level) {
        SectionPlan& footer = add(plan, Kind::groupFooter, "gf", level);
        fill(footer, stripOf(level == in_.underlain ? level + 1 : level));
        if (in_.depth == 0 && sometimes(10))
            footer.newPage = dice_.oneOf({NewPage::before, NewPage::after, NewPage::both});
    }
}

ReportPlan Planner::report(const std::string& prefix, int depth, int columns) {
    in_ = {depth, columns};
    ReportPlan plan;
    plan.name = prefix;
    plan.rowSeed = seed_ * 31 + static_cast<std::uint64_t>(names_);
    plan.mostRows = depth == 0 ? size_ : std::min(size_, depth == 1 ? 6 : 3);
    plan.changePercent = dice_.oneOf({10, 25, 50});
    plan.feed = dice_.in(82) ? Feed::recordset : dice_.in(60) ? Feed::fetch : Feed::none;
    plan.drops = sometimes(30), plan.doubles = dice_.in(20);
    in_.levels = std::min(dice_.oneOf({0, 0, 1, 1, 1, 2, 2, 3}), depth == 0 ? mostLevels : 1);
    in_.underlain = depth == 0 && in_.levels > 0 && dice_.in(15) ? dice_.between(1, in_.levels) : 0;
    addFrameHeaders(plan);
    addGroupHeaders(plan);
    SectionPlan& detail = add(plan, Kind::detail, "Detail");
    fill(detail, stripOf(in_.levels + 1));
    if (depth == 0 && sometimes(4)) detail.newPage = dice_.oneOf({NewPage::before, NewPage::after});
    addFooters(plan);
    if (depth == 0 && dice_.in(60)) fill(add(plan, Kind::pageFooter, "PageFooter"), {});
    if (dice_.in(70)) {
        SectionPlan& footer = add(plan, Kind::reportFooter, "ReportFooter");
        fill(footer, {0, columns});
        if (depth == 0 && !footer.controls.empty() && sometimes(20)) addDistribution(footer, plan);
        if (depth == 0 && sometimes(10)) footer.newPage = NewPage::before;
    }
    return plan;
}

}  // namespace

ReportPlan planReport(std::uint64_t seed) {
    return Planner(seed).report("Top", 0, pageColumns);
}

}  // namespace quillo::test
