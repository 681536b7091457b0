#include "tests/support/expected_prints.h"

#include <cstdio>
#include <cstdlib>

#include "framework/values/variant.h"

namespace quillo::test {
namespace {

constexpr std::size_t noRow = static_cast<std::size_t>(-1);

int levelsOf(const ReportPlan& plan) {
    int levels = 0;
    for (const SectionPlan& section : plan.sections) levels += section.kind == SectionKind::groupHeader;
    return levels;
}

// The outermost group that changes between two rows; one more than there are groups: none.
int changedLevel(const ReportPlan& plan, const Row& before, const Row& now) {
    const int levels = levelsOf(plan);
    for (int level = 1; level <= levels; ++level)
        if (!plan.find(SectionKind::groupHeader, level)->dataField.empty() &&
            before.key(level).textOrEmpty() != now.key(level).textOrEmpty())
            return level;
    return levels + 1;
}

std::vector<std::vector<int>> groupsOf(const ReportPlan& plan, const std::vector<Row>& rows) {
    std::vector<int> groups(static_cast<std::size_t>(levelsOf(plan)), 1);
    std::vector<std::vector<int>> all;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::size_t changed =
            i == 0 ? groups.size() + 1 : static_cast<std::size_t>(changedLevel(plan, rows[i - 1], rows[i]));
        for (std::size_t level = changed; level <= groups.size(); ++level) ++groups[level - 1];
        all.push_back(groups);
    }
    return all;
}

int cents(const Variant& amount) {
    return static_cast<int>(amount.toMoney().raw() / (Money::scale / 100));
}

std::string amountText(int amount) {
    char text[32];
    std::snprintf(text, sizeof text, "%s%d.%02d", amount < 0 ? "-" : "", std::abs(amount) / 100,
                  std::abs(amount) % 100);
    return text;
}

}  // namespace

// A sum adds up what was not dropped, up to the row, in the same instance of its group.
std::string Expectation::textOf(const Walk& walk, const ControlPlan& control, std::size_t row, int number) const {
    if (control.shows == Shows::caption || control.shows == Shows::written) return control.writtenAt(number);
    const auto column = [&](std::size_t i) -> const Variant& { return walk.rows[i].values[columnOf(control.column)]; };
    if (control.shows == Shows::column)
        return row == noRow || walk.rows[row].values.empty() ? "" : column(row).textOrEmpty();
    int sum = 0;
    const auto level = static_cast<std::size_t>(control.over);
    for (std::size_t i = 0; row != noRow && i <= row; ++i) {
        const Row& added = walk.rows[i];
        if (added.values.empty() || added.dropped || added.values[columnOf("Amount")].isNull()) continue;
        if (level == 0 || control.running || walk.groups[i][level - 1] == walk.groups[row][level - 1])
            sum += cents(added.values[columnOf("Amount")]);
    }
    return amountText(sum);
}

void Expectation::print(Walk& walk, SectionKind kind, int level, std::size_t row) {
    const SectionPlan* section = walk.plan.find(kind, level);
    if (section == nullptr) return;
    const int number = ++numbers_[section];
    ExpectedPrint print{&walk.plan, section, number, ++order_};
    print.printed = section->isPrintedAt(number) && !(kind == SectionKind::detail && walk.rows[row].dropped);
    if (row != noRow) print.groups = walk.groups[row];
    for (const ControlPlan& control : section->controls) {
        if (!print.printed || !control.isPrintedAt(number)) continue;
        print.controls.push_back({&control, control.isText() ? textOf(walk, control, row, number) : ""});
        if (!control.inner) continue;
        for (ExpectedPrint& inner : this->walk(*control.inner)) print.inner.push_back(std::move(inner));
    }
    walk.prints.push_back(std::move(print));
}

void Expectation::close(Walk& walk, int from, std::size_t row) {
    for (int level = levelsOf(walk.plan); level >= from; --level) print(walk, SectionKind::groupFooter, level, row);
}

std::vector<ExpectedPrint> Expectation::walk(const ReportPlan& plan) {
    Walk walk{plan, plan.rows(++runs_[&plan]), {}};
    if (plan.feed == Feed::none) walk.rows.resize(1);
    walk.groups = groupsOf(plan, walk.rows);
    print(walk, SectionKind::reportHeader, 0, noRow);
    for (std::size_t row = 0; row < walk.rows.size(); ++row) {
        const int from = row == 0 ? 1 : changedLevel(plan, walk.rows[row - 1], walk.rows[row]);
        if (row > 0) close(walk, from, row - 1);
        for (int level = from; level <= levelsOf(plan); ++level) print(walk, SectionKind::groupHeader, level, row);
        print(walk, SectionKind::detail, 0, row);
    }
    if (!walk.rows.empty()) close(walk, 1, walk.rows.size() - 1);
    print(walk, SectionKind::reportFooter, 0, walk.rows.empty() ? noRow : walk.rows.size() - 1);
    return std::move(walk.prints);
}

namespace {

void addEvents(const std::vector<ExpectedPrint>& prints, std::vector<std::string>& events) {
    for (const ExpectedPrint& print : prints) {
        const std::string which = print.section->name + " " + std::to_string(print.number);
        events.push_back("F " + which);
        addEvents(print.inner, events);
        if (print.printed) events.push_back("A " + which);
    }
}

}  // namespace

std::vector<std::string> Expectation::events() const {
    std::vector<std::string> events;
    addEvents(prints_, events);
    return events;
}

}  // namespace quillo::test
