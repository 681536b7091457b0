#include "framework/engine/flow_target.h"

#include <algorithm>

#include "framework/engine/split.h"

namespace quillo {

FlowTarget::FlowTarget(Paginator& pages, const Section& section, const PlacedSection& upper, const Flow& flow)
    : pages_(pages), section_(section), upper_(upper), flow_(flow) {}

void FlowTarget::run() {
    BandRun run(*flow_.control->Object, pages_.state_, *this);
    run.run();
    run.end();
    if (!flows_) return placeWhole();
    endPiece();
    pages_.cursor_ = std::min(pages_.cursor_ + flow_.room, pages_.bottom_);
}

void FlowTarget::place(Section&, const LaidOut& laid) {
    if (laid.placed.height <= 0 && laid.placed.controls.empty()) return;
    if (flows_) {
        append(laid.placed);
        arena_.clear();
        return;
    }
    hold(laid.placed);
    if (flow_.top + height_ > pages_.pageRoom()) startFlow();
}

void FlowTarget::hold(const PlacedSection& section) {
    waiting_.push_back(section);
    waiting_.back().top = height_;
    height_ += section.height;
}

PlacedControl FlowTarget::control(std::span<const PlacedSection> sections, float top, float height) const {
    PlacedControl placed;
    placed.info = flow_.info;
    placed.left = flow_.control->Left;
    placed.top = top;
    placed.width = flow_.control->Width;
    placed.height = height;
    placed.sections = sections;
    return placed;
}

// An empty sub-report keeps the place that the design gives it.
void FlowTarget::placeWhole() {
    std::vector<PlacedControl> controls(upper_.controls.begin(), upper_.controls.end());
    controls.push_back(control(waiting_, flow_.top, std::max(flow_.control->Height, height_)));
    PlacedSection whole = upper_;
    whole.controls = controls;
    whole.height = std::max(whole.height, flow_.top + controls.back().height + flow_.room);
    pages_.placePiece(section_, copySection(whole, pages_.arena()));
}

void FlowTarget::startFlow() {
    flows_ = true;
    upper_.height = flow_.top;
    printed_ = shows(upper_);
    if (printed_) {
        pages_.placePiece(section_, upper_);
    } else {
        pages_.printDueHeader();
        pages_.cursor_ += flow_.top;
    }
    pages_.forget(section_);
    pages_.keeps_.clear();
    for (const PlacedSection& section : waiting_) append(section);
    waiting_.clear();
    arena_.clear();
}

void FlowTarget::append(PlacedSection section) {
    if (!shows(section)) section.height = std::clamp(pages_.bottom_ - pages_.cursor_, 0.0F, section.height);
    while (!pages_.fits(section.height)) {
        const auto row = row_.rowOf(section);
        PlacedSection head, rest;
        if (row && holdsRows(*row)) {
            turn(takeRow(*row));
        } else if (section.height > pages_.pageRoom() &&
                   splitSection(section, pages_.bottom_ - pages_.cursor_, arena_, head, rest)) {
            if (!shows(rest)) return add(head);
            add(head, false);
            section = rest;
            turn({});
        } else if (holdsRows(piece_.size()) || pages_.hasBody(pages_.end())) {
            turn(headings_.before(section));
        } else if (!piece_.empty()) {  // headings that leave no room do not stand again
            pages_.cursor_ = pieceTop_;
            piece_.clear();
        } else if (pages_.cursor_ > pages_.bodyTop_ && !pages_.hasBody(pages_.end())) {
            pages_.cursor_ = pages_.bodyTop_;  // nothing but space stands above
        } else if (splitSection(section, pages_.bottom_ - pages_.cursor_, arena_, head, rest, Cut::through)) {
            if (!shows(rest)) return add(head);
            add(head, false);
            section = rest;
            turn({});
        } else if (!dropSpaceAbove(section, arena_)) {
            pages_.fail(section_.Name(), "nothing of section " + section.info->name + " fits into the " +
                                             std::to_string(static_cast<int>(pages_.pageRoom())) +
                                             " twips that a page has for it");
        }
    }
    add(section);
}

// Whether more than headings stands on the page above a row.
bool FlowTarget::holdsRows(std::size_t end) const {
    const auto first = piece_.begin(), last = first + static_cast<std::ptrdiff_t>(end);
    return std::any_of(first, last, [](const PlacedSection& section) { return !section.repeat && shows(section); });
}

void FlowTarget::add(const PlacedSection& section, bool whole) {
    if (piece_.empty()) pieceTop_ = pages_.cursor_;
    if (shows(section)) row_.placed(section, piece_.size());
    if (whole) headings_.placed(section);
    piece_.push_back(copySection(section, pages_.arena()));
    piece_.back().top = pages_.cursor_ - pieceTop_;
    pages_.cursor_ += section.height;
}

// Goes to the next page, on which what is given stands first.
void FlowTarget::turn(const std::vector<PlacedSection>& again) {
    endPiece();
    pages_.turnPage(pages_.end());
    row_.clear();
    float headings = 0;
    for (const PlacedSection& section : again) headings += section.repeat ? section.height : 0;
    const bool roomForThem = headings <= pages_.pageRoom() / 2;
    for (const PlacedSection& section : again) {
        if (!section.repeat)
            append(section);  // the next page may hold less than the one that it comes from
        else if (roomForThem)
            add(section);
    }
}

// The row that a total must not leave, below the headings that stand again.
std::vector<PlacedSection> FlowTarget::takeRow(std::size_t from) {
    std::vector<PlacedSection> row = headings_.before(piece_[from]);
    for (std::size_t i = from; i < piece_.size(); ++i) row.push_back(copySection(piece_[i], arena_));
    pages_.cursor_ = pieceTop_ + piece_[from].top;
    piece_.resize(from);
    return row;
}

// What stands on the page becomes a piece of the section.
void FlowTarget::endPiece() {
    if (!holdsRows(piece_.size())) {  // headings alone are no piece
        if (!piece_.empty()) pages_.cursor_ = pieceTop_;
        piece_.clear();
        return;
    }
    const float height = pages_.cursor_ - pieceTop_;
    const PlacedControl placed = control(pages_.arena().keep(piece_), 0, height);
    PlacedSection section = upper_;
    section.controls = pages_.arena().keep(std::vector{placed});
    section.height = height;
    section.continued = upper_.continued || printed_;
    printed_ = true;
    piece_.clear();
    pages_.cursor_ = pieceTop_;
    pages_.put(section_, section, false);
}

}  // namespace quillo
