#include "tests/support/report_plan.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tests/support/dice.h"

namespace quillo::test {
namespace {

// Letters in a known order, so that a piece of a text that is lost or doubled shows.
std::string letters(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += static_cast<char>('a' + i % 26);
    return text;
}

}  // namespace

std::string ControlPlan::writtenAt(int number) const {
    if (shows == Shows::caption) return name + letters(filler) + ";";
    return name + "#" + std::to_string(number) + letters(number % 3 == 0 && !steady ? 0 : filler) + ";";
}

const std::vector<std::string>& planColumns() {
    static const std::vector<std::string> columns = {"Key1",  "Key2",  "Key3",   "Text1",
                                                     "Text2", "Text3", "Amount", "Dropped"};
    return columns;
}

std::size_t columnOf(const std::string& name) {
    const auto& columns = planColumns();
    return static_cast<std::size_t>(std::find(columns.begin(), columns.end(), name) - columns.begin());
}

const SectionPlan* ReportPlan::find(SectionKind kind, int level) const {
    for (const SectionPlan& section : sections)
        if (section.kind == kind && section.level == level) return &section;
    return nullptr;
}

namespace {

Variant planText(const std::string& start, Dice& dice) {
    if (dice.in(10)) return {};
    if (dice.in(10)) return "";
    const int length = dice.in(55) ? 0 : dice.in(85) ? dice.between(1, 50) : dice.between(50, 400);
    return start + letters(length) + ";";
}

Variant planAmount(bool asDouble, Dice& dice) {
    if (dice.in(8)) return {};
    if (asDouble) return dice.between(-12, 60) * 0.25;
    return Money::fromRaw(dice.between(-300, 1500) * Money::scale / 100);
}

}  // namespace

std::vector<Row> ReportPlan::rows(int run) const {
    if (feed == Feed::none) return {};
    Dice dice(rowSeed + 7919 * static_cast<std::uint64_t>(run));
    const int count = allRows ? mostRows : dice.in(8) ? 0 : dice.between(1, mostRows);
    std::vector<Row> rows;
    int keys[mostLevels] = {0, 0, 0};
    for (int i = 1; i <= count; ++i) {
        Row row;
        for (int& key : keys) {
            if (dice.in(changePercent)) key = dice.between(0, 5);
            row.values.push_back(key == 0 ? Variant() : Variant(key));
        }
        const std::string start = name + std::to_string(run) + "r" + std::to_string(i);
        for (const char* column : {".a", ".b", ".c"}) row.values.push_back(planText(start + column, dice));
        row.values.push_back(planAmount(doubles, dice));
        row.dropped = drops && dice.in(15);
        row.values.emplace_back(row.dropped);
        rows.push_back(std::move(row));
    }
    return rows;
}

namespace {

using Json = nlohmann::ordered_json;

const char* nameOf(GroupKeep keep) {
    return keep == GroupKeep::all ? "all" : keep == GroupKeep::firstDetail ? "firstDetail" : "none";
}
const char* nameOfNewPage(int newPage) {
    constexpr const char* names[] = {"none", "before", "after", "both"};
    return names[newPage];
}

Json designOf(const ControlPlan& plan, const ReportPlan& report) {
    Json control = {{"kind", quillo::nameOf(plan.kind)}, {"name", plan.name}, {"left", plan.left}, {"top", plan.top}};
    if (plan.kind == ControlKind::line) {
        control.update({{"x1", plan.left}, {"y1", plan.top}});
        control.update({{"x2", plan.left + plan.width}, {"y2", plan.top + plan.height}});
        return control;
    }
    control.update({{"width", plan.width}, {"height", plan.height}});
    if (plan.isText()) control["canGrow"] = plan.grows;
    if (plan.kind == ControlKind::label) control["caption"] = plan.writtenAt(0);
    if (plan.kind == ControlKind::pageBreak) control["visible"] = false;  // only "enabled" counts
    if (plan.shows == Shows::column) control["dataField"] = plan.column;
    if (plan.shows != Shows::sum) return control;
    control.update({{"dataField", "Amount"}, {"format", "#,##0.00"}});
    const SectionPlan* group = report.find(SectionKind::groupHeader, plan.over);
    control["sum"] = group != nullptr ? group->name : "report";
    control["running"] = plan.running ? "all" : "group";
    return control;
}

Json designOf(const SectionPlan& plan, const ReportPlan& report) {
    Json section = {{"name", plan.name}, {"kind", quillo::nameOf(plan.kind)}, {"height", plan.height}};
    if (!plan.dataField.empty()) section["dataField"] = plan.dataField;
    if (plan.repeat) section["repeat"] = true;
    if (plan.underlayNext) section["underlayNext"] = true;
    if (!plan.keepTogether) section["keepTogether"] = false;
    if (plan.startsHidden) section["visible"] = false;
    if (plan.groupKeep != GroupKeep::none) section["groupKeepTogether"] = nameOf(plan.groupKeep);
    if (plan.newPage != NewPage::none) section["newPage"] = nameOfNewPage(plan.newPage);
    section["controls"] = Json::array();
    for (const ControlPlan& control : plan.controls) section["controls"].push_back(designOf(control, report));
    if (plan.kind == SectionKind::detail && report.feed == Feed::recordset)
        section["controls"].push_back({{"kind", "DataControl"}, {"name", report.name + "rs"}});
    return section;
}

}  // namespace

std::string designOf(const ReportPlan& plan, float pageHeight) {
    Json design = {{"name", plan.name}};
    design["page"] = {{"width", planPageWidth}, {"height", pageHeight}, {"left", planMargin},
                      {"right", planMargin},    {"top", planMargin},    {"bottom", planMargin}};
    design["sections"] = Json::array();
    for (const SectionPlan& section : plan.sections) design["sections"].push_back(designOf(section, plan));
    return design.dump();
}

}  // namespace quillo::test
