#include "framework/engine/paginator.h"

#include <algorithm>
#include <deque>
#include <utility>

#include "framework/engine/flow_target.h"
#include "framework/engine/split.h"
#include "framework/values/errors.h"

namespace quillo {
namespace {

constexpr float tolerance = 0.5F;  // twips that rounding may cost without moving a section

// The sub-reports of the page header run once; what they printed shows on every page, at its own height.
void fillPageHeader(BandRun& run) {
    const Section* header = run.single(SectionKind::pageHeader);
    if (header == nullptr) return;
    RunState& state = run.state();
    for (const auto& control : header->controls) {
        if (control->kind() != ControlKind::subReport) continue;
        auto& sub = static_cast<SubReport&>(*control);
        if (!sub.Object) continue;
        const auto sections = state.nested->run(*sub.Object, sub.Width, state.ground->kept);
        state.filled.emplace_back(&sub, sections);
        sub.Height = stackedHeight(sections);
    }
}

float bottomOf(const PlacedSection& section) {
    return section.top + section.height;
}

}  // namespace

Paginator::Paginator(const Report& report, PageSink& sink, RunState& state)
    : report_(report), sink_(sink), state_(state), setup_(report.setup) {}

void Paginator::fail(const std::string& section, const std::string& what) const {
    throw EngineError("Report " + report_.name() + ", section " + section + ": " + what);
}

bool Paginator::takesFlow(const Section& section) const {
    return section.kind() != SectionKind::pageHeader && section.kind() != SectionKind::pageFooter;
}

void Paginator::begin(BandRun& run) {
    run_ = &run;
    fillPageHeader(run);
    openPage(sparePage());
    headerPrinted_ = false;
    run.print(run.single(SectionKind::reportHeader));
    if (headerPrinted_) return;
    headerDue_ = true;
    if (hasBody(end()) || breaks_ > 0) return;
    owners_.assign(end(), nullptr);
    printPageHeader();
}

// --- pages -------------------------------------------------------------------------------------

std::unique_ptr<Page> Paginator::sparePage() {
    if (!spare_) return std::make_unique<Page>();
    spare_->clear();
    return std::move(spare_);
}

void Paginator::openPage(std::unique_ptr<Page> page) {
    if (pages_ >= state_.options.maxPages)
        throw PageLimitError("Report " + report_.name() + " gives more than " +
                             std::to_string(state_.options.maxPages) + " pages");
    current_ = std::move(page);
    current_->number = ++pages_;
    current_->setup = setup_;
    current_->names = state_.names;
    owners_.clear();
    cursor_ = setup_.topMargin;
    headHeight_ = 0;
    bodyTop_ = cursor_;
    const Section* footer = run_->single(SectionKind::pageFooter);
    const float reserve = footer != nullptr && footer->Visible ? footer->Height : 0;
    bottom_ = setup_.height - setup_.bottomMargin - std::max(reserve, footerHeight_);
}

void Paginator::printPageHeader() {
    headerPrinted_ = true;
    headerDue_ = false;
    Section* header = run_->single(SectionKind::pageHeader);
    if (header == nullptr) return;
    if (std::exchange(headerReady_, false)) {
        if (readyHeader_) putPageHeader(copySection(*readyHeader_, arena()));
        if (std::exchange(headerWaits_, false)) run_->printed(*header);
    } else if (const auto laid = run_->format(*header)) {
        PlacedSection placed = laid->placed;
        if (hasBody(end()) && !fits(placed.height)) return turnToHeader(placed);
        putPageHeader(placed);
        run_->printed(*header);
    }
    if (cursor_ >= bottom_) fail(header->Name(), "leaves no room on the page for anything else");
}

void Paginator::putPageHeader(const PlacedSection& placed) {
    putAt(nullptr, placed, cursor_);
    cursor_ += placed.height;
    bodyTop_ = cursor_;
    headHeight_ = pageHeaderHeight_ = placed.height;
}

// A report header that fills the first page has it for itself; the page header waits for the next one.
void Paginator::turnToHeader(const PlacedSection& placed) {
    readyHeader_ = copySection(placed, ready_);
    headerReady_ = headerWaits_ = true;
    breaks_ = std::max(breaks_, 1);
}

// What the headers printed first stands again, as long as it leaves the page to the rows.
void Paginator::printHeadings(const Carry& carry) {
    const float most = pageRoom() / 2;
    float height = 0;
    for (Repeated& group : repeated_) {
        const bool goesAlong = group.at && *group.at + (carry.torn ? 1 : 0) >= carry.from;
        if (!group.print || group.torn || goesAlong || (group.endedAt && *group.endedAt <= carry.from)) continue;
        if (height + group.print->height > most) continue;
        height += group.print->height;
        putAt(nullptr, repeatOf(group), cursor_);
        cursor_ += group.print->height;
    }
    bodyTop_ = cursor_;
    headHeight_ += height;
}

PlacedSection Paginator::repeatOf(const Repeated& group) {
    PlacedSection again = copySection(*group.print, arena());
    again.repeat = true;
    const PlacedSection marks = copySection(group.marks, arena());
    std::vector<PlacedControl> controls(again.controls.begin(), again.controls.end());
    controls.insert(controls.end(), marks.controls.begin(), marks.controls.end());
    again.controls = arena().keep(controls);
    return again;
}

void Paginator::keepMarks(const Section& section, const LaidOut& laid) {
    for (Repeated& group : repeated_) {
        if (group.header != &section || group.endedAt) continue;
        PlacedSection marks = laid.placed;
        marks.controls = laid.inRepeats;
        group.marks = copySection(marks, *group.arena);
    }
}

// A header without what stands only in its first print, nor the room below the rest that this took.
PlacedSection Paginator::asRepeat(const PlacedSection& print, Arena& arena) {
    PlacedSection again = copySection(print, arena);
    std::vector<PlacedControl> controls;
    float bottom = 0, bottomOfRest = 0;
    for (const PlacedControl& control : again.controls) {
        bottom = std::max(bottom, control.top + control.height);
        if (control.info->notInRepeats) continue;
        bottomOfRest = std::max(bottomOfRest, control.top + control.height);
        controls.push_back(control);
    }
    if (controls.size() == again.controls.size()) return again;
    again.height -= bottom - bottomOfRest;
    again.controls = arena.keep(controls);
    return again;
}

// What printed on the page that closes is kept for those that follow.
void Paginator::keepHeadings() {
    for (Repeated& group : repeated_) {
        if (!group.at || group.print) continue;
        group.print = asRepeat(current_->sections[*group.at], *group.arena);
    }
}

// A header that is split stands again whole, behind its last piece.
void Paginator::keepTorn(const Section& section, const PlacedSection& piece) {
    for (Repeated& group : repeated_) {
        if (group.header != &section || group.print || group.endedAt || piece.continued) continue;
        group.print = asRepeat(piece, *group.arena);
        group.torn = true;
    }
}

// A header that goes to the pages row by row does not stand again, nor does its group stand beside it.
void Paginator::forget(const Section& section) {
    std::erase_if(repeated_, [&](const Repeated& group) { return group.header == &section; });
    for (const Underlay& underlay : underlays_)
        if (underlay.header == &section) cursor_ = std::max(cursor_, underlay.bottom);
    std::erase_if(underlays_, [&](const Underlay& underlay) { return underlay.header == &section; });
}

void Paginator::mend(const Section& section) {
    const auto isOfIt = [&](const PlacedSection* piece) { return piece->info->name == section.Name(); };
    if (std::count_if(waiting_.begin(), waiting_.end(), isOfIt) > 2) return;  // another piece is still to come
    for (Repeated& group : repeated_)
        if (group.header == &section) group.torn = false;
}

void Paginator::turnPage(std::size_t from) {
    std::unique_ptr<Page> next = sparePage();
    keepHeadings();
    Carry carry{{}, end(), false, cursor_};
    while (end() > from) takeLast(carry, next->arena);
    for (PlacedSection* piece : waiting_) *piece = copySection(*piece, next->arena);
    closePage(carry, next->arena);
    openNext(std::move(next), carry);
}

void Paginator::takeLast(Carry& carry, Arena& next) {
    carry.from = end() - 1;
    carry.parts.insert(carry.parts.begin(), {owners_.back(), copySection(current_->sections.back(), next)});
    current_->sections.pop_back();
    owners_.pop_back();
}

void Paginator::closePage(Carry& carry, Arena& next) {
    const bool hadBody = hasBody(end());
    printPageFooter(carry, next);
    if (hadBody && !hasBody(end())) return dropPage();
    ++state_.progress.pages;
    state_.askToProceed();
    spare_ = sink_.take(std::move(current_));
    dropped_ = 0;
}

// All that stood on the page made way for its footer: it begins anew, with the footer's room kept free.
void Paginator::dropPage() {
    if (++dropped_ > 2) fail("PageFooter", "leaves no room on the page for anything else");
    ready_.clear();
    readyHeader_.reset();
    headerReady_ = true;
    for (const PlacedSection& section : current_->sections) {
        if (section.info->kind == SectionKind::pageHeader) readyHeader_ = copySection(section, ready_);
        if (section.info->kind == SectionKind::pageFooter) readyFooter_ = copySection(section, ready_);
    }
    spare_ = std::move(current_);
    --pages_;
}

void Paginator::printPageFooter(Carry& carry, Arena& next) {
    footerHeight_ = 0;
    Section* footer = run_->single(SectionKind::pageFooter);
    if (footer == nullptr) return;
    const bool ready = readyFooter_.has_value();
    std::optional<PlacedSection> placed = std::exchange(readyFooter_, std::nullopt);
    if (!ready) {
        if (const auto laid = run_->format(*footer)) placed = laid->placed;
    }
    if (!placed) return;
    footerHeight_ = placed->height;
    const float top = setup_.height - setup_.bottomMargin - footerHeight_;
    makeRoom(top, carry, next);
    putAt(nullptr, copySection(*placed, arena()), top);
    if (!ready) run_->printed(*footer);
}

// A page footer that has become higher takes its room from what was placed last.
void Paginator::makeRoom(float bottom, Carry& carry, Arena& next) {
    while (bodyBottom(0) > bottom + tolerance) {
        PlacedSection head, rest;
        if (owners_.back() == nullptr) fail("PageFooter", "leaves no room on the page for anything else");
        if (!hasBody(end() - 1) && shows(current_->sections.back()) &&
            splitSection(current_->sections.back(), bottom - current_->sections.back().top, arena(), head, rest)) {
            current_->sections.back() = head;
            if (!shows(rest)) continue;
            carry.parts.insert(carry.parts.begin(), {owners_.back(), copySection(rest, next)});
            carry.torn = true;
        } else {
            takeLast(carry, next);
            while (!owners_.empty() && owners_.back() != nullptr &&
                   owners_.back()->kind() == SectionKind::groupHeader && hasBody(end() - 1))
                takeLast(carry, next);  // not without the row that they head
        }
    }
}

void Paginator::openNext(std::unique_ptr<Page> next, Carry& carry) {
    openPage(std::move(next));
    printPageHeader();
    printHeadings(carry);
    follow(carry);
    putCarried(carry);
}

// What is known of places on the page before now holds of where its sections go.
void Paginator::follow(const Carry& carry) {
    const auto gone = [&](std::size_t at) { return at < carry.from; };
    std::erase_if(keeps_, [&](const Keep& keep) { return gone(keep.from); });
    std::erase_if(underlays_, [&](const Underlay& underlay) { return gone(underlay.at); });
    std::erase_if(firstRows_, [&](const FirstRow& first) { return gone(first.header); });
    for (Keep& keep : keeps_) keep.from = carry.placeOf(keep.from, end());
    for (FirstRow& first : firstRows_) first = {carry.placeOf(first.header, end()), carry.placeOf(first.row, end())};
    for (Underlay& underlay : underlays_) underlay.at = carry.placeOf(underlay.at, end());
    std::erase_if(repeated_, [&](const Repeated& group) { return group.endedAt && *group.endedAt <= carry.from; });
    for (Repeated& group : repeated_) {
        if (group.endedAt) group.endedAt = carry.placeOf(*group.endedAt, end());
        if (!group.at) continue;
        group.torn = carry.torn && *group.at + 1 == carry.from;
        if (gone(*group.at)) {
            group.at.reset();
        } else {
            group.at = carry.placeOf(*group.at, end());
            group.print.reset();  // it stands on the new page, and is kept when that one closes
        }
    }
    row_.moved(carry.from, carry.placeOf(carry.from, end()));
}

// As it stood, where it fits so; else piece by piece.
void Paginator::putCarried(Carry& carry) {
    if (carry.parts.empty()) return;
    const float shift = cursor_ - carry.parts.front().placed.top;
    float bottom = carry.cursor;
    for (const Carry::Part& part : carry.parts) bottom = std::max(bottom, bottomOf(part.placed));
    if (!carry.torn && bottom + shift <= bottom_ + tolerance) {
        for (const Carry::Part& part : carry.parts) putAt(part.section, part.placed, part.placed.top + shift);
        for (Underlay& underlay : underlays_) underlay.bottom += shift;
        cursor_ = carry.cursor + shift;
        return;
    }
    keeps_.clear();
    firstRows_.clear();
    underlays_.clear();
    row_.clear();
    for (Repeated& group : repeated_)
        if (group.at && *group.at >= end()) group.at.reset();
    std::deque<Waiting> waits;
    for (Carry::Part& part : carry.parts) waits.emplace_back(*this, part.placed);
    const bool outer = std::exchange(replaces_, true);
    for (const Carry::Part& part : carry.parts) placePiece(*part.section, part.placed);
    replaces_ = outer;
}

// The break that a fresh page is already behind counts for nothing.
void Paginator::takeBreaks() {
    int turns = std::exchange(breaks_, 0);
    if (report_.RemovesEmptyPages) turns = std::min(turns, 1);
    if (turns > 0 && !hasBody(end())) --turns;
    for (; turns > 0; --turns) {
        turnPage(end());
        // What made way for a page footer stands before the break all the same.
        if (turns == 1 && hasBody(end())) ++turns;
    }
}

// Below a report header the page header waits for something that prints.
void Paginator::printDueHeader() {
    takeBreaks();
    if (!headerDue_) return;
    printPageHeader();
    for (Keep& keep : keeps_) keep.from = end();  // groups that wait for their first section begin below it
    takeBreaks();
}

void Paginator::finish() {
    for (;;) {
        std::unique_ptr<Page> next = sparePage();
        Carry carry{{}, end(), false, cursor_};
        keepHeadings();
        closePage(carry, next->arena);
        if (std::none_of(carry.parts.begin(), carry.parts.end(),
                         [](const Carry::Part& part) { return shows(part.placed); }))
            return;
        openNext(std::move(next), carry);
    }
}

// --- sections ----------------------------------------------------------------------------------

void Paginator::place(Section& section, const LaidOut& laid) {
    PlacedSection whole = laid.placed;
    const Waiting waits(*this, whole);
    if (!laid.inRepeats.empty()) keepMarks(section, laid);
    const std::vector<float> breaks(laid.breaks.begin(), laid.breaks.end());
    if ((section.NewPage & NewPage::before) != 0) breaks_ = std::max(breaks_, 1);
    float from = 0;
    for (const float at : breaks) {
        placePiece(section, sliceSection(whole, from, at, false, arena()));
        from = at;
        ++breaks_;
    }
    const PlacedSection last = breaks.empty() ? whole : sliceSection(whole, from, whole.height, true, arena());
    if (laid.flowing != nullptr) {
        FlowTarget(*this, section, last, {laid.flowing, laid.flowInfo, laid.flowTop - from, laid.flowRoom}).run();
    } else {
        placePiece(section, last);
    }
    if ((section.NewPage & NewPage::after) != 0) breaks_ = std::max(breaks_, 1);
}

void Paginator::placePiece(const Section& section, PlacedSection piece) {
    if (!shows(piece)) return placeSpace(section, piece);
    const Waiting waits(*this, piece);
    printDueHeader();
    while (!fits(piece.height)) {
        const bool spaceAbove = !hasBody(end()) && cursor_ > bodyTop_;
        const bool whole =
            section.KeepTogether && (hasBody(end()) || spaceAbove) && piece.height <= nextRoom(end()) + tolerance;
        PlacedSection head, rest;
        if (const auto from = keptWith(piece)) {
            turnPage(*from);
        } else if (!whole && splitSection(piece, bottom_ - cursor_, arena(), head, rest)) {
            if (!shows(rest)) return put(section, head);  // only room is cut off
            keepTorn(section, piece);
            put(section, head, false);
            piece = rest;
            turnPage(end());
        } else if (hasBody(end())) {
            turnPage(loneHeaders(piece.height));
        } else if (spaceAbove) {
            cursor_ = bodyTop_;
        } else if (splitSection(piece, bottom_ - cursor_, arena(), head, rest, Cut::through)) {
            if (!shows(rest)) return put(section, head);
            put(section, head, false);
            piece = rest;
            turnPage(end());
        } else if (dropSpaceAbove(piece, arena())) {
            continue;
        } else {
            fail(section.Name(), "nothing of it fits into the " + std::to_string(static_cast<int>(pageRoom())) +
                                     " twips that a page has for it");
        }
    }
    put(section, piece);
}

// Room that shows nothing takes no page.
void Paginator::placeSpace(const Section& section, PlacedSection piece) {
    if (breaks_ > 0) return;
    piece.height = std::clamp(bottom_ - cursor_, 0.0F, piece.height);
    put(section, piece);
}

void Paginator::put(const Section& section, const PlacedSection& piece, bool whole) {
    const float top = cursor_;
    cursor_ += piece.height;
    if (shows(piece)) row_.placed(piece, keeps_.empty() ? end() : keeps_.front().from);
    if (section.kind() == SectionKind::detail) endFirstRow();
    if (whole && !piece.continued && shows(piece)) noteHeader(section, piece);
    if (whole) mend(section);
    putAt(&section, piece, top);
}

void Paginator::putAt(const Section* section, const PlacedSection& placed, float top) {
    if (placed.height <= 0 && placed.controls.empty()) return;
    current_->sections.push_back(placed);
    current_->sections.back().top = top;
    current_->sections.back().left = setup_.leftMargin;
    owners_.push_back(section);
}

// The first row of its groups stands with their headers from here on.
void Paginator::endFirstRow() {
    std::erase_if(keeps_, [this](const Keep& keep) {
        const bool ends = keep.header->GrpKeepTogether == GroupKeep::firstDetail;
        if (ends) firstRows_.push_back({keep.from, end()});
        return ends;
    });
}

void Paginator::noteHeader(const Section& section, const PlacedSection& piece) {
    for (Repeated& group : repeated_)
        if (group.header == &section && !group.endedAt && !group.print) group.at = end();
    if (!section.UnderlayNext || section.kind() != SectionKind::groupHeader || replaces_) return;
    underlays_.push_back({&section, cursor_, end()});
    cursor_ -= piece.height;
}

void Paginator::openGroup(Section& header) {
    if (header.GrpKeepTogether != GroupKeep::none) keeps_.push_back({&header, end()});
    if (header.Repeat) repeated_.push_back({&header, std::make_unique<Arena>()});
}

void Paginator::closeGroup(Section& header) {
    std::erase_if(keeps_, [&](const Keep& keep) { return keep.header == &header; });
    // What of the group may still move to the next page brings its heading along.
    for (Repeated& group : repeated_)
        if (group.header == &header && !group.endedAt) group.endedAt = end();
    for (const Underlay& underlay : underlays_)
        if (underlay.header == &header) cursor_ = std::max(cursor_, underlay.bottom);
    std::erase_if(underlays_, [&](const Underlay& underlay) { return underlay.header == &header; });
}

// --- what fits ---------------------------------------------------------------------------------

bool Paginator::fits(float height) const {
    return cursor_ + height <= bottom_ + tolerance;
}

float Paginator::pageRoom() const {
    return bottom_ - setup_.topMargin - headHeight_;
}

// Room for what stands from an index on, and for what comes, on a page that begins with it.
float Paginator::nextRoom(std::size_t from) const {
    float headings = 0;
    for (const Repeated& group : repeated_) {
        if ((group.at && *group.at >= from) || (group.endedAt && *group.endedAt <= from)) continue;
        if (group.print) headings += group.print->height;
        if (!group.print && group.at) headings += current_->sections[*group.at].height;
    }
    const float page = bottom_ - setup_.topMargin - pageHeaderHeight_;
    return headings <= page / 2 ? page - headings : page;
}

float Paginator::bodyBottom(std::size_t from) const {
    float bottom = 0;
    for (std::size_t i = from; i < end(); ++i)
        if (!current_->sections[i].controls.empty()) bottom = std::max(bottom, bottomOf(current_->sections[i]));
    return bottom;
}

bool Paginator::hasBody(std::size_t end) const {
    for (std::size_t i = 0; i < end; ++i)
        if (owners_[i] != nullptr && shows(current_->sections[i])) return true;
    return false;
}

// Whether what stands from an index on can go to the next page, with a piece of that height, and leaves a page behind.
bool Paginator::movesWith(std::size_t from, float height) const {
    if (!hasBody(from)) return false;
    const float top = from < end() ? current_->sections[from].top : cursor_;
    return std::max(cursor_ + height, bodyBottom(from)) - top <= nextRoom(from) + tolerance;
}

// From where on the page belongs together with a piece that does not fit: the outermost group that one page can hold.
std::optional<std::size_t> Paginator::keptWith(const PlacedSection& piece) const {
    for (const Keep& keep : keeps_)
        if (const std::size_t from = withHeaders(keep.from); movesWith(from, piece.height)) return from;
    const auto row = row_.rowOf(piece);
    if (!row || !movesWith(withHeaders(*row), piece.height)) return std::nullopt;
    return withHeaders(*row);
}

// Where a place among sections begins that may be parted: not between a header and its first row.
std::size_t Paginator::withHeaders(std::size_t from) const {
    for (const FirstRow& first : firstRows_)
        if (first.header < from && from <= first.row) from = first.header;
    return from;
}

// From where on headers would stay behind without their row; the page's end where they must.
std::size_t Paginator::loneHeaders(float height) const {
    std::size_t from = end();
    while (from > 0 && owners_[from - 1] != nullptr && owners_[from - 1]->kind() == SectionKind::groupHeader) --from;
    return movesWith(from, height) ? from : end();
}

}  // namespace quillo
