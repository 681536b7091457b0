#include <algorithm>

#include "tests/support/page_checks.h"

namespace quillo::test {
namespace {

float highest(const PlannedRun& run, SectionKind kind) {
    float height = 0;
    for (const auto& page : run.kept.pages)
        for (const PlacedSection& section : page->sections)
            if (section.info->kind == kind) height = std::max(height, section.height);
    return height;
}

// Height of what no page break may go through, within a placed section.
float wholeHeight(const PlacedSection& section);

float wholeHeight(const PlacedControl& control) {
    float height = 0;
    for (const PlacedSection& inner : control.sections) height = std::max(height, wholeHeight(inner));
    if (control.info->kind != ControlKind::label && control.info->kind != ControlKind::field) return height;
    return control.lines.size() > 1 ? control.height / static_cast<float>(control.lines.size()) : control.height;
}

float wholeHeight(const PlacedSection& section) {
    float height = 0;
    for (const PlacedControl& control : section.controls) height = std::max(height, wholeHeight(control));
    return height;
}

// What a designed row leaves above its first control, at most.
constexpr float offsetInRow = 300;

// The engine may give up a report only for a control that is higher than a page and cannot be split, together with
// the room that its row leaves above it, and says where.
// The room is that of the page which was never finished: its own header may be higher than those before.
bool hasReason(const Trial& trial) {
    const auto told = trial.run.error.find(" fits into the ");
    if (told == std::string::npos) return trial.run.error.find("leaves no room on the page") != std::string::npos;
    const float room = std::min(bodyRoom(trial), std::stof(trial.run.error.substr(told + 15)));
    for (const Piece& piece : trial.endlessMatching.pieces())
        if (trial.run.error.find("section " + piece.placed->info->name + ":") != std::string::npos &&
            wholeHeight(*piece.placed) > room - offsetInRow)
            return true;
    return false;
}

std::string difference(const std::vector<std::string>& due, const std::vector<std::string>& seen) {
    const auto [at, other] = std::mismatch(due.begin(), due.end(), seen.begin(), seen.end());
    if (at == due.end() && other == seen.end()) return {};
    const std::string before = at == due.begin() ? "the start" : *std::prev(at);
    return "behind " + before + " comes " + (other == seen.end() ? "the end" : *other) + ", due is " +
           (at == due.end() ? "the end" : *at);
}

}  // namespace

float bodyRoom(const Trial& trial) {
    float room = trial.run.pageHeight - 2 * planMargin;
    for (const SectionKind kind : {SectionKind::pageHeader, SectionKind::pageFooter})
        if (const SectionPlan* section = trial.plan.find(kind))
            room -= std::max(highest(trial.endless, kind) + section->taller, highest(trial.run, kind));
    return room;
}

std::string findWrongEnd(const Trial& trial) {
    if (!trial.run.boxes.empty()) return "box " + trial.run.boxes.front();
    if (trial.run.mostHeldBack > 3) return std::to_string(trial.run.mostHeldBack) + " pages were held back";
    if (trial.run.error.empty()) return trial.run.kept.finished ? "" : "the sink was not finished";
    return hasReason(trial) ? "" : trial.run.error;
}

std::string findWrongEvent(const Trial& trial) {
    if (std::string found = difference(trial.expected.events(), trial.run.log.body); !found.empty()) return found;
    // Page header and footer: a Format a page, followed by the AfterPrint of what was printed.
    const auto& events = trial.run.log.page;
    for (const SectionKind kind : {SectionKind::pageHeader, SectionKind::pageFooter}) {
        const SectionPlan* section = trial.plan.find(kind);
        if (section == nullptr) continue;
        std::vector<std::string> due, seen;
        const auto formats = static_cast<int>(std::count_if(events.begin(), events.end(), [&](const auto& event) {
            return event.starts_with("F " + section->name + " ");
        }));
        if (formats > static_cast<int>(trial.run.kept.pages.size()))
            return section->name + " was formatted more often than there are pages";
        for (int number = 1; number <= formats; ++number) {
            due.push_back("F " + section->name + " " + std::to_string(number));
            if (section->isPrintedAt(number)) due.push_back("A " + section->name + " " + std::to_string(number));
        }
        for (const auto& event : events)
            if (event.substr(2).starts_with(section->name + " ")) seen.push_back(event);
        if (std::string found = difference(due, seen); !found.empty()) return found;
    }
    return {};
}

}  // namespace quillo::test
