#include <algorithm>
#include <limits>
#include <optional>

#include "tests/support/page_checks.h"
#include "tests/support/page_reading.h"

namespace quillo::test {
namespace {

// What page header or footer take of a page, with the room that an empty report header leaves above.
float heightOn(const Page& page, SectionKind kind) {
    float room = 0;
    for (const PlacedSection& section : page.sections) {
        if (section.info->kind == kind) return room + section.height;
        room = shows(section) ? 0 : room + section.height;
    }
    return 0;
}

// Whether page header or footer change their height from page to page, or the footer's is not the one that its design
// keeps free: the engine then chooses by the room of the page that it sees, and may part on the next one what the
// widest page would hold.
bool frameVaries(const Trial& trial) {
    for (const SectionKind kind : {SectionKind::pageHeader, SectionKind::pageFooter}) {
        std::optional<float> height;
        if (const SectionPlan* footer = trial.plan.find(SectionKind::pageFooter);
            footer != nullptr && kind == SectionKind::pageFooter)
            height = footer->height;
        for (const auto& page : trial.run.kept.pages) {
            const float here = heightOn(*page, kind);
            if (height && *height != here) return true;
            height = here;
        }
    }
    return false;
}

std::string onPage(const Page& page, const std::string& what) {
    return "page " + std::to_string(page.number) + ": " + what;
}

std::string nameOf(const ExpectedPrint& print) {
    return print.section->name + " " + std::to_string(print.number);
}

// The pages on which each print of the report itself shows a text.
class Pages {
public:
    explicit Pages(const Trial& trial) : prints_(trial.expected.prints()), spans_(prints_.size()) {
        for (const Seen& seen : trial.matching.seen()) {
            const std::optional<std::size_t> at = indexOf(seen.print);
            if (!at) continue;
            Span& span = spans_[*at];
            span.first = std::min(span.first, seen.page);
            span.last = std::max(span.last, seen.page);
        }
    }

    struct Span {
        int first = std::numeric_limits<int>::max(), last = -1;
        bool empty() const { return last < 0; }
    };
    const std::vector<ExpectedPrint>& prints() const { return prints_; }
    const Span& of(std::size_t print) const { return spans_[print]; }
    std::optional<std::size_t> indexOf(const ExpectedPrint* print) const {
        if (print < prints_.data() || print >= prints_.data() + prints_.size()) return {};
        return static_cast<std::size_t>(print - prints_.data());
    }
    // Last page of what comes before a print; -1: nothing does.
    int lastBefore(std::size_t print) const {
        int last = -1;
        for (std::size_t i = 0; i < print; ++i) last = std::max(last, spans_[i].last);
        return last;
    }
    int firstFrom(std::size_t print) const {
        int first = std::numeric_limits<int>::max();
        for (std::size_t i = print; i < spans_.size(); ++i) first = std::min(first, spans_[i].first);
        return first;
    }

private:
    const std::vector<ExpectedPrint>& prints_;
    std::vector<Span> spans_;
};

bool parts(const ExpectedPrint& print, int newPage) {
    return print.printed && (print.section->newPage & newPage) != 0;
}

std::vector<const ControlPlan*> breaksOf(const ExpectedPrint& print) {
    std::vector<const ControlPlan*> breaks;
    for (const ExpectedControl& control : print.controls)
        if (control.plan->kind == ControlKind::pageBreak) breaks.push_back(control.plan);
    return breaks;
}

// A page break within a print: what starts above it stands on an earlier page than what starts below.
std::string findMissedBreakIn(const Trial& trial, const Pages& pages, std::size_t at) {
    for (const ControlPlan* pageBreak : breaksOf(pages.prints()[at])) {
        int above = pages.lastBefore(at), below = pages.firstFrom(at + 1);
        for (const Seen& seen : trial.matching.seen()) {
            if (seen.print != &pages.prints()[at]) continue;
            if (seen.control->top < pageBreak->top)
                above = std::max(above, seen.page);
            else
                below = std::min(below, seen.page);
        }
        if (above >= below) return pageBreak->name + " of " + nameOf(pages.prints()[at]) + " breaks no page";
    }
    return {};
}

}  // namespace

std::string findWrongText(const Trial& trial) {
    return trial.matching.difference();
}

namespace {

bool hasTexts(const std::vector<ExpectedPrint>& prints) {
    return std::any_of(prints.begin(), prints.end(), [](const ExpectedPrint& print) {
        return hasTexts(print.inner) ||
               std::any_of(print.controls.begin(), print.controls.end(),
                           [](const ExpectedControl& control) { return !control.text.empty(); });
    });
}

}  // namespace

std::string findEmptyPage(const Trial& trial) {
    const bool nothing = !hasTexts(trial.expected.prints());
    for (const auto& page : trial.run.kept.pages) {
        for (const SectionKind kind : {SectionKind::pageHeader, SectionKind::pageFooter})
            if (std::count_if(page->sections.begin(), page->sections.end(),
                              [kind](const PlacedSection& section) { return section.info->kind == kind; }) > 1)
                return onPage(*page, "its frame stands there twice");
        if (!hasContent(*page) && !nothing) return onPage(*page, "is empty");
    }
    return nothing && trial.run.kept.pages.size() != 1 ? "a report without content has pages" : "";
}

std::string findMissedBreak(const Trial& trial) {
    const Pages pages(trial);
    for (std::size_t at = 0; at < pages.prints().size(); ++at) {
        const ExpectedPrint& print = pages.prints()[at];
        if (parts(print, NewPage::before) && pages.lastBefore(at) >= pages.firstFrom(at))
            return "no new page before " + nameOf(print);
        if (parts(print, NewPage::after) && pages.lastBefore(at + 1) >= pages.firstFrom(at + 1))
            return "no new page after " + nameOf(print);
        if (std::string found = findMissedBreakIn(trial, pages, at); !found.empty()) return found;
    }
    return {};
}

namespace {

// The places of the report's own prints on the endless page.
class Heights {
public:
    explicit Heights(const Trial& trial) {
        for (const Piece& piece : trial.endlessMatching.pieces())
            if (piece.depth == 0 && piece.print != nullptr) places_.insert({piece.print->order, piece});
    }
    // Null when it was not placed there.
    const Piece* of(const ExpectedPrint& print) const {
        const auto found = places_.find(print.order);
        return found == places_.end() ? nullptr : &found->second;
    }
    float height(const ExpectedPrint& print) const {
        const Piece* piece = of(print);
        return piece == nullptr ? 0 : piece->placed->height;
    }

private:
    std::map<int, Piece> places_;
};

// Whether a print stands inside the group that a header opened: behind it, up to the group's footer.
bool isInside(const ExpectedPrint& print, const ExpectedPrint& header) {
    const auto levels = static_cast<std::size_t>(header.section->level);
    if (print.order <= header.order || print.groups.size() < levels) return false;
    const SectionKind kind = print.section->kind;
    if (kind == SectionKind::reportFooter) return false;
    if (kind == SectionKind::groupFooter && print.section->level < header.section->level) return false;
    return std::equal(header.groups.begin(), header.groups.begin() + header.section->level, print.groups.begin());
}

// The printed headers that stand again on a page on which a print goes on or begins.
std::vector<const ExpectedPrint*> headingsOf(const std::vector<ExpectedPrint>& prints, const ExpectedPrint& print) {
    std::vector<const ExpectedPrint*> headings;
    for (const ExpectedPrint& header : prints)
        if (header.section->kind == SectionKind::groupHeader && header.section->repeat && header.printed &&
            isInside(print, header) &&
            (print.section->kind != SectionKind::groupHeader || print.section->level > header.section->level))
            headings.push_back(&header);
    return headings;
}

float heightOf(const std::vector<const ExpectedPrint*>& headings, const Heights& heights) {
    float sum = 0;
    for (const ExpectedPrint* heading : headings) sum += heights.height(*heading);
    return sum;
}

std::map<std::string, std::string> textsOf(const PlacedSection& section) {
    std::map<std::string, std::string> texts;
    for (const PlacedControl& control : section.controls)
        if (!control.text.empty()) texts[control.info->name] += control.text;
    return texts;
}

std::map<std::string, std::string> textsOf(const ExpectedPrint& print) {
    std::map<std::string, std::string> texts;
    for (const ExpectedControl& control : print.controls)
        if (!control.text.empty()) texts[control.plan->name] = control.text;
    return texts;
}

// The headings of a page: those of open groups, each as it was printed first. They may be left out where they take more
// than half of the page from the rows.
std::string findWrongHeadingOn(const Trial& trial, const Page& page, const ExpectedPrint& first,
                               const Heights& heights) {
    std::vector<const ExpectedPrint*> due = headingsOf(trial.expected.prints(), first);
    std::erase_if(due, [](const ExpectedPrint* heading) { return textsOf(*heading).empty(); });
    const bool needed = heightOf(due, heights) <= bodyRoom(trial) / 2;
    auto next = due.begin();
    for (const PlacedSection& section : page.sections) {
        if (!section.repeat || textsOf(section).empty()) continue;
        if (section.info->name == first.section->name) return section.info->name + " stands again above its own rest";
        const auto found = std::find_if(next, due.end(), [&](const ExpectedPrint* heading) {
            return heading->section->name == section.info->name;
        });
        if (found == due.end()) return section.info->name + " stands there out of its group";
        if (textsOf(section) != textsOf(**found)) return section.info->name + " does not stand there as at first";
        if (needed && found != next) return "no heading " + nameOf(**next) + " above " + nameOf(first);
        next = std::next(found);
    }
    return needed && next != due.end() ? "no heading " + nameOf(**next) + " above " + nameOf(first) : "";
}

}  // namespace

std::string findWrongHeading(const Trial& trial) {
    if (frameVaries(trial)) return {};
    const Heights heights(trial);
    for (std::size_t index = 1; index < trial.run.kept.pages.size(); ++index) {
        const auto& pieces = trial.matching.pieces();
        const auto first = std::find_if(pieces.begin(), pieces.end(), [&](const Piece& piece) {
            return piece.page == static_cast<int>(index) && piece.depth == 0 && piece.print != nullptr;
        });
        if (first == pieces.end()) continue;
        const Page& page = *trial.run.kept.pages[index];
        if (std::string found = findWrongHeadingOn(trial, page, *first->print, heights); !found.empty())
            return onPage(page, found);
    }
    return {};
}

namespace {

// Whether prints from one to another must stand on one page: they fit there and nothing parts them.
bool fitsTogether(const Trial& trial, const Heights& heights, std::size_t from, std::size_t to) {
    const auto& prints = trial.expected.prints();
    const Piece* top = nullptr;
    float height = 0, space = 0;  // above the first that shows
    for (std::size_t i = from; i <= to; ++i) {
        if (!breaksOf(prints[i]).empty()) return false;
        if ((i > from && parts(prints[i], NewPage::before)) || (i < to && parts(prints[i], NewPage::after)))
            return false;
        const Piece* piece = heights.of(prints[i]);
        if (piece == nullptr) {
            if (top == nullptr && prints[i].printed) space += prints[i].section->heightAt(prints[i].number);
            continue;
        }
        if (top == nullptr) top = piece;
        height = std::max(height, piece->placed->top + piece->placed->height - top->placed->top);
    }
    const float headings = heightOf(headingsOf(prints, prints[from]), heights);
    return headings + space + height <= bodyRoom(trial);
}

// The last print that a header's group must keep beside it; the header itself when it keeps none.
std::size_t keptUpTo(const std::vector<ExpectedPrint>& prints, std::size_t header) {
    std::size_t last = header;
    for (std::size_t i = header + 1; i < prints.size() && isInside(prints[i], prints[header]); ++i) {
        last = i;
        if (prints[header].section->groupKeep == GroupKeep::firstDetail && prints[i].printed &&
            prints[i].section->kind == SectionKind::detail)
            break;
    }
    return last;
}

}  // namespace

// Whether a kept header right above must stand with the same prints, and no page holds them all: either may then part.
bool outerNeedsMore(const Trial& trial, const Heights& heights, std::size_t at, std::size_t last) {
    const auto& prints = trial.expected.prints();
    for (std::size_t outer = at; outer > 0 && prints[outer - 1].section->kind == SectionKind::groupHeader; --outer)
        if (prints[outer - 1].section->groupKeep != GroupKeep::none && !fitsTogether(trial, heights, outer - 1, last))
            return true;
    return false;
}

std::string findTornTogether(const Trial& trial) {
    if (frameVaries(trial)) return {};
    const Pages pages(trial);
    const Heights heights(trial);
    const auto& prints = trial.expected.prints();
    for (std::size_t at = 0; at < prints.size(); ++at) {
        const bool group =
            prints[at].section->kind == SectionKind::groupHeader && prints[at].section->groupKeep != GroupKeep::none;
        const std::size_t last = group ? keptUpTo(prints, at) : at;
        if (last == at && !prints[at].section->keepTogether) continue;
        if (!fitsTogether(trial, heights, at, last) || outerNeedsMore(trial, heights, at, last)) continue;
        const int begin = std::min(pages.of(at).first, pages.firstFrom(at));
        for (std::size_t i = at; i <= last; ++i)
            if (!pages.of(i).empty() && pages.of(i).last > begin)
                return nameOf(prints[i]) + " does not stand together with " + nameOf(prints[at]);
    }
    return {};
}

const std::vector<PageCheck> pageChecks = {
    {"the run ends", findWrongEnd, false},
    {"events run once, in order", findWrongEvent, true},
    {"texts are printed once, in order", findWrongText, true},
    {"nothing overprints", findOverprint, false},
    {"no page is empty", findEmptyPage, true},
    {"pages break where asked", findMissedBreak, true},
    {"headings stand again", findWrongHeading, true},
    {"what fits stands together", findTornTogether, true},
};

}  // namespace quillo::test
