#include "tests/support/page_matching.h"

#include <algorithm>

namespace quillo::test {
namespace {

bool isFigure(ControlKind kind) {
    return kind == ControlKind::line || kind == ControlKind::shape;
}

std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

}  // namespace

void PlanIndex::add(const ReportPlan& plan) {
    for (const SectionPlan& section : plan.sections) {
        sections[section.name] = &section;
        for (const ControlPlan& control : section.controls) {
            controls[control.name] = &control;
            if (control.inner) add(*control.inner);
        }
    }
}

PageMatching::PageMatching(const PlanIndex& index, const Expectation& expected, const PlannedRun& run) : index_(index) {
    expect(expected.prints());
    for (std::size_t page = 0; page < run.kept.pages.size(); ++page)
        for (const PlacedSection& section : run.kept.pages[page]->sections)
            if (!index_.section(section).isOfPage()) visit(section, static_cast<int>(page), 0);
    finish();
}

void PageMatching::fail(int page, const std::string& what) {
    if (difference_.empty()) difference_ = "page " + std::to_string(page + 1) + ": " + what;
}

void PageMatching::expect(const std::vector<ExpectedPrint>& prints) {
    for (const ExpectedPrint& print : prints) {
        for (const ExpectedControl& control : print.controls) {
            if (!control.text.empty()) texts_[control.plan->name].due.push_back({control.text, &print});
            if (isFigure(control.plan->kind)) ++dueFigures_[control.plan->name];
        }
        prints_[print.section->name][print.order] = &print;
        expect(print.inner);
    }
}

// Gives the print that a placed section shows, as far as a text tells, of its own or in a sub-report.
const ExpectedPrint* PageMatching::visit(const PlacedSection& section, int page, int depth) {
    if (section.repeat) return nullptr;
    Piece piece{page, &section, nullptr, depth};
    const ExpectedPrint* within = nullptr;
    std::vector<const ControlPlan*> shown;
    for (const PlacedControl& control : section.controls) {
        bool seen = !control.text.empty();
        if (seen) take(control, piece);
        if (isFigure(control.info->kind)) ++figures_[control.info->name];
        for (const PlacedSection& inner : control.sections) {
            const ExpectedPrint* print = visit(inner, page, depth + 1);
            if (print == nullptr) continue;
            within = print;
            seen = true;
        }
        if (seen) shown.push_back(&index_.control(control));
    }
    if (piece.print == nullptr && within != nullptr) piece.print = holderOf(section, *within);
    order(piece);
    pieces_.push_back(piece);
    for (const ControlPlan* control : shown) seen_.push_back({page, piece.print, control});
    return shown.empty() ? nullptr : piece.print;
}

// The print of a section in which a sub-report's print stands: the last that was formatted before it.
const ExpectedPrint* PageMatching::holderOf(const PlacedSection& section, const ExpectedPrint& inner) const {
    const auto& prints = prints_.at(section.info->name);
    const auto behind = prints.upper_bound(inner.order);
    return behind == prints.begin() ? nullptr : std::prev(behind)->second;
}

void PageMatching::take(const PlacedControl& control, Piece& piece) {
    Texts& texts = texts_[control.info->name];
    if (texts.next == texts.due.size())
        return fail(piece.page, control.info->name + " shows " + quoted(control.text) + ", all its texts were shown");
    const Due& due = texts.due[texts.next];
    const std::string_view rest = std::string_view(due.text).substr(texts.letters);
    if (!rest.starts_with(control.text))
        return fail(piece.page, control.info->name + " shows " + quoted(control.text) + ", due is " + quoted(rest));
    if (piece.print != nullptr && piece.print != due.print)
        return fail(piece.page, control.info->name + " shows " + quoted(control.text) + " beside texts of print " +
                                    std::to_string(piece.print->number) + " of its section");
    piece.print = due.print;
    texts.letters += control.text.size();
    if (texts.letters < due.text.size()) return;
    ++texts.next;
    texts.letters = 0;
}

void PageMatching::order(Piece& piece) {
    const std::string& name = piece.placed->info->name;
    if (piece.print == nullptr) {
        if (piece.placed->continued) piece.print = current_[name];
        if (!piece.placed->continued) begun_.insert(name);
        return;
    }
    current_[name] = piece.print;
    const bool begun = begun_.erase(name) > 0;
    int& last = last_[piece.print->report];
    const std::string which = name + " " + std::to_string(piece.print->number);
    if (piece.print->order < last) fail(piece.page, which + " stands behind a later section");
    if (piece.print->order == last && !piece.placed->continued) fail(piece.page, which + " begins twice");
    if (piece.print->order > last && piece.placed->continued && !begun)
        fail(piece.page, which + " goes on before it began");
    last = piece.print->order;
}

void PageMatching::finish() {
    const int end = pieces_.empty() ? 0 : pieces_.back().page;
    for (const auto& [name, texts] : texts_) {
        if (texts.next == texts.due.size()) continue;
        const Due& due = texts.due[texts.next];
        fail(end, name + " never shows " + quoted(std::string_view(due.text).substr(texts.letters)) + " of " +
                      due.print->section->name + " " + std::to_string(due.print->number));
    }
    for (const auto& [name, due] : dueFigures_) {
        const int drawn = figures_[name];
        // What is high may be drawn in parts, one on each page.
        const bool high = index_.controls.at(name)->height > 0;
        if (high ? drawn < due : drawn != due)
            fail(end, name + " is drawn " + std::to_string(drawn) + " times, not " + std::to_string(due));
    }
}

}  // namespace quillo::test
