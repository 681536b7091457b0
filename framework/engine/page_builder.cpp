#include "framework/engine/page_builder.h"

#include <algorithm>

#include "framework/values/errors.h"

namespace quillo {
namespace {

constexpr float tolerance = 0.5F;  // twips that rounding may cost without moving a section

std::vector<float> enabledBreaks(const Section& section) {
    std::vector<float> tops;
    for (const auto& control : section.controls)
        if (control->kind() == ControlKind::pageBreak && static_cast<const PageBreak&>(*control).Enabled)
            tops.push_back(control->Top);
    std::sort(tops.begin(), tops.end());
    return tops;
}

// The part of a section between two heights, moved to the top. Controls belong where they start.
PlacedSection slice(const PlacedSection& section, float from, float to, bool last, Arena& arena) {
    std::vector<PlacedControl> controls;
    float bottom = 0;
    for (PlacedControl control : section.controls) {
        if (control.top < from || (!last && control.top >= to)) continue;
        control.top -= from;
        bottom = std::max(bottom, control.top + std::max(control.height, 0.0F));
        controls.push_back(control);
    }
    const auto kept = arena.array<PlacedControl>(controls.size());
    std::uninitialized_copy(controls.begin(), controls.end(), kept.begin());
    PlacedSection part = section;
    part.controls = kept;
    part.continued = from > 0;
    part.height = std::max(bottom, last ? section.height - from : to - from);
    return part;
}

// The sub-reports of the page header run once; what they printed shows on every page, at its own height.
void fillPageHeader(BandRun& run) {
    const Section* header = run.single(SectionKind::pageHeader);
    if (header == nullptr) return;
    for (const auto& control : header->controls) {
        if (control->kind() != ControlKind::subReport) continue;
        auto& sub = static_cast<SubReport&>(*control);
        if (!sub.Object) continue;
        const auto sections = runSubReport(*sub.Object, sub.Width, run.state().kept, run.state());
        run.state().filled.emplace_back(&sub, sections);
        sub.Height = stackedHeight(sections);
    }
}

// A sub-report that was not given is no reason for a page.
bool hasContent(const PlacedSection& part) {
    return std::any_of(part.controls.begin(), part.controls.end(), [](const PlacedControl& control) {
        return control.info->kind != ControlKind::subReport || !control.sections.empty();
    });
}

}  // namespace

PageBuilder::PageBuilder(const Report& report, PageSink& sink, RunState& state)
    : report_(report), sink_(sink), state_(state), setup_(report.setup) {}

void PageBuilder::fail(const std::string& section, const std::string& what) const {
    throw EngineError("Report " + report_.name() + ", section " + section + ": " + what);
}

void PageBuilder::begin(BandRun& run) {
    run_ = &run;
    fillPageHeader(run);
    openPage();
    headerPrinted_ = false;
    if (Section* header = run.single(SectionKind::reportHeader)) {
        if (const auto placed = run.format(*header)) place(*header, *placed);
    }
    if (!headerPrinted_) printPageHeader();
}

void PageBuilder::openPage() {
    if (Count() >= state_.options.maxPages)
        throw EngineError("Report " + report_.name() + " gives more than " + std::to_string(state_.options.maxPages) +
                          " pages");
    if (spare_.empty()) spare_.push_back(std::make_unique<BuiltPage>());
    current_ = std::move(spare_.back());
    spare_.pop_back();
    if (!current_->page) current_->page = std::make_unique<Page>();
    current_->page->setup = setup_;
    current_->page->names = state_.names;
    current_->empty = true;
    current_->holds = current_->removed = false;
    cursor_ = bodyTop_ = setup_.topMargin;
    underlayBottom_ = 0;
    const Section* footer = run_->single(SectionKind::pageFooter);
    bottom_ = setup_.height - setup_.bottomMargin - (footer != nullptr && footer->Visible ? footer->Height : 0);
    headerPrinted_ = true;
}

void PageBuilder::printPageHeader() {
    headerPrinted_ = true;
    Section* header = run_->single(SectionKind::pageHeader);
    if (header == nullptr) return;
    if (const auto placed = run_->format(*header)) put(*placed, false);
    if (current_->empty) bodyTop_ = cursor_;
    if (cursor_ >= bottom_) fail(header->Name(), "leaves no room on the page for anything else");
}

void PageBuilder::closePage() {
    if (Section* footer = run_->single(SectionKind::pageFooter)) {
        if (auto placed = run_->format(*footer)) {
            cursor_ = setup_.height - setup_.bottomMargin - placed->height;
            put(*placed, false);
        }
    }
    current_->holds = current_->empty && inReportFooter_;
    held_.push_back(std::move(current_));
    ++state_.progress.pages;
    emit(false);
    if (state_.options.proceed && !state_.options.proceed(state_.progress)) throw RunStopped();
}

void PageBuilder::newPage() {
    closePage();
    openPage();
    printPageHeader();
    for (Section* header : run_->repeatedHeaders()) {
        // A header that comes with its group to this page prints there for the first time.
        if (std::find(moving_.begin(), moving_.end(), header) != moving_.end()) continue;
        if (const auto placed = run_->format(*header)) put(*placed, false);
    }
    if (cursor_ >= bottom_) fail("PageHeader", "leaves no room on the page for anything else");
    bodyTop_ = cursor_;
}

void PageBuilder::breakNow() {
    for (; breaks_ > 0; --breaks_) newPage();
}

void PageBuilder::emit(bool all) {
    while (!held_.empty() && (all || (held_.size() > 2 && !held_.front()->holds))) {
        auto built = std::move(held_.front());
        held_.pop_front();
        built->page->number = ++emitted_;
        built->page = sink_.take(std::move(built->page));
        if (built->page) built->page->clear();
        spare_.push_back(std::move(built));
    }
}

void PageBuilder::put(const PlacedSection& placed, bool body) {
    if (placed.height > 0 || !placed.controls.empty()) {
        current_->page->sections.push_back(placed);
        current_->page->sections.back().top = cursor_;
        current_->page->sections.back().left = setup_.leftMargin;
        if (body) current_->empty = false;
    }
    cursor_ += placed.height;
}

void PageBuilder::beforeFormat() {
    if (waiting_.empty()) breakNow();
}

void PageBuilder::place(Section& section, const PlacedSection& placed) {
    if (keeper_ == nullptr || overlong_) return placeNow(section, placed);
    waiting_.push_back({&section, placed});
    waitingHeight_ += placed.height;
    if (waitingHeight_ > bodyHeight()) {
        flushWaiting();
        overlong_ = true;
    }
}

void PageBuilder::placeNow(Section& section, const PlacedSection& placed) {
    inReportFooter_ = section.kind() == SectionKind::reportFooter;
    if ((section.NewPage & NewPage::before) != 0 && !current_->empty) ++breaks_;
    // What a group's rows underlay ends where its footer starts.
    if (section.kind() != SectionKind::detail) cursor_ = std::max(cursor_, underlayBottom_);
    placeSlices(section, placed);
    if (section.UnderlayNext) {
        underlayBottom_ = cursor_;
        cursor_ -= placed.height;
    } else if (section.kind() != SectionKind::detail) {
        underlayBottom_ = 0;
    }
    if ((section.NewPage & NewPage::after) != 0) ++breaks_;
    if (section.AfterPrint) section.AfterPrint();
}

void PageBuilder::placeSlices(Section& section, const PlacedSection& placed) {
    const std::vector<float> breaks = enabledBreaks(section);
    float from = 0;
    for (std::size_t i = 0; i <= breaks.size(); ++i) {
        const bool last = i == breaks.size();
        if (breaks.empty()) {
            placePiece(section, placed);
            return;
        }
        PlacedSection part = slice(placed, from, last ? placed.height : breaks[i], last, arena());
        if (hasContent(part)) placePiece(section, part);
        if (last) break;
        from = breaks[i];
        ++breaks_;
    }
}

void PageBuilder::placePiece(Section& section, PlacedSection piece) {
    if (breaks_ > 0) {
        Arena spare;
        const PlacedSection kept = copySection(piece, spare);
        breakNow();
        piece = copySection(kept, arena());
    }
    lastStart_ = Count() + 1;
    for (;;) {
        if (cursor_ + piece.height <= bottom_ + tolerance) return put(piece, true);
        const bool fresh = cursor_ <= bodyTop_ + tolerance;
        const bool splits = !section.KeepTogether || piece.height > bodyHeight() + tolerance;
        PlacedSection head, tail;
        if (splits && splitSection(piece, bottom_ - cursor_, arena(), head, tail)) {
            put(head, true);
            piece = tail;
        } else if (fresh) {
            fail(section.Name(), "nothing of it fits on a page");
        }
        Arena spare;
        const PlacedSection kept = copySection(piece, spare);
        newPage();
        piece = copySection(kept, arena());
    }
}

void PageBuilder::openGroup(Section& header) {
    if (keeper_ != nullptr || header.GrpKeepTogether == GroupKeep::none) return;
    breakNow();
    keeper_ = &header;
    overlong_ = false;
}

void PageBuilder::detailDone() {
    if (keeper_ != nullptr && keeper_->GrpKeepTogether == GroupKeep::firstDetail) stopWaiting();
}

void PageBuilder::closeGroup(Section& header) {
    if (keeper_ == &header) stopWaiting();
}

void PageBuilder::stopWaiting() {
    flushWaiting();
    keeper_ = nullptr;
    overlong_ = false;
}

void PageBuilder::flushWaiting() {
    std::vector<Waiting> waiting = std::move(waiting_);
    waiting_.clear();
    const float height = std::exchange(waitingHeight_, 0.0F);
    const bool fits = cursor_ + height <= bottom_ + tolerance;
    Arena spare;
    if (!fits) {  // a new page comes, and with it another arena
        for (Waiting& entry : waiting) {
            entry.placed = copySection(entry.placed, spare);
            moving_.push_back(entry.section);
        }
        if (!current_->empty && cursor_ > bodyTop_ + tolerance) newPage();
        moving_.clear();
    }
    for (Waiting& entry : waiting) {
        if (!fits) entry.placed = copySection(entry.placed, arena());
        placeNow(*entry.section, entry.placed);
    }
}

void PageBuilder::endPages() {
    if (keeper_ != nullptr) stopWaiting();
    closePage();
}

void PageBuilder::finish() {
    emit(true);
}

bool PageBuilder::isEmpty(int index) const {
    return index >= emitted_ && index < Count() && held_[static_cast<std::size_t>(index - emitted_)]->empty;
}

void PageBuilder::Remove(int index) {
    if (index < 0 || index >= Count()) throw EngineError("There is no page " + std::to_string(index) + " to remove");
    if (index < emitted_) throw EngineError("Page " + std::to_string(index) + " has left already");
    held_[static_cast<std::size_t>(index - emitted_)]->removed = true;
}

void PageBuilder::Commit() {
    std::erase_if(held_, [](const auto& built) { return built->removed; });
}

}  // namespace quillo
