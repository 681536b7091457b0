#include "framework/engine/split.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <vector>

#include "framework/engine/headings.h"
#include "framework/engine/layout.h"
#include "framework/engine/push_down.h"

namespace quillo {
namespace {

constexpr float tolerance = 0.01F;

bool isSplittable(const PlacedControl& control) {
    return !control.sections.empty() || control.lines.size() > 1 || control.info->kind == ControlKind::shape ||
           (control.info->kind == ControlKind::line && control.height > 0);
}

// What of a control stands above the cut, and what below it, at the top of the rest.
struct Halves {
    std::optional<PlacedControl> head, tail;
};

Halves splitLines(const PlacedControl& control, float above, Arena& arena) {
    const float lineHeight = control.height / static_cast<float>(control.lines.size());
    const auto fitting =
        std::min(static_cast<std::size_t>(std::floor(above / lineHeight + tolerance)), control.lines.size());
    if (fitting == control.lines.size()) return {control, std::nullopt};
    if (fitting == 0) return {std::nullopt, control};
    Halves halves{control, control};
    const std::uint32_t at = control.lines[fitting];
    halves.head->text = control.text.substr(0, at);
    halves.head->lines = control.lines.first(fitting);
    halves.head->height = static_cast<float>(fitting) * lineHeight;
    halves.tail->height = control.height - halves.head->height;
    halves.tail->text = control.text.substr(at);
    const auto rest = arena.array<std::uint32_t>(control.lines.size() - fitting);
    std::transform(control.lines.begin() + static_cast<std::ptrdiff_t>(fitting), control.lines.end(), rest.begin(),
                   [at](std::uint32_t start) { return start - at; });
    halves.tail->lines = rest;
    return halves;
}

Halves splitBox(const PlacedControl& control, float above) {
    Halves halves{control, control};
    halves.head->height = above;
    halves.tail->height = control.height - above;
    return halves;
}

// The sections of a sub-report, cut in two.
struct Stacks {
    std::vector<PlacedSection> head, tail;
    bool torn = false;  // the last of the head goes on as the first of the tail
};

void moveBelow(std::vector<PlacedSection>& sections, float top) {
    for (PlacedSection& section : sections) {
        section.top = top;
        top += section.height;
    }
}

bool tellsNothing(const PlacedSection& section) {
    return section.repeat || !shows(section);
}

// What stays with what stands below it goes along, unless nothing would be left.
void keepWithNext(Stacks& stacks) {
    if (stacks.tail.empty() || stacks.torn) return;
    auto from = stacks.head.end();
    while (from != stacks.head.begin() && std::prev(from)->info->keepNext) --from;
    if (std::all_of(stacks.head.begin(), from, tellsNothing)) return;
    stacks.tail.insert(stacks.tail.begin(), from, stacks.head.end());
    stacks.head.erase(from, stacks.head.end());
}

Stacks splitStack(std::span<const PlacedSection> sections, float above, Arena& arena, Cut cut) {
    Stacks stacks;
    for (const PlacedSection& section : sections) {
        if (stacks.tail.empty() && section.top + section.height <= above + tolerance) {
            stacks.head.push_back(section);
            continue;
        }
        PlacedSection first, rest = section;
        // Only a section that starts the page and is higher than it is torn further.
        if (stacks.tail.empty() && std::all_of(stacks.head.begin(), stacks.head.end(), tellsNothing) &&
            splitSection(section, above - section.top, arena, first, rest, cut)) {
            stacks.head.push_back(first);
            stacks.torn = true;
        }
        stacks.tail.push_back(rest);
    }
    keepWithNext(stacks);
    return stacks;
}

// Headings that leave no room for anything else do not stand again, nor does empty room.
Stacks splitUsefully(std::span<const PlacedSection> sections, float above, Arena& arena, Cut cut) {
    Stacks stacks = splitStack(sections, above, arena, cut);
    if (!std::all_of(stacks.head.begin(), stacks.head.end(), tellsNothing) || stacks.tail.empty()) return stacks;
    std::vector<PlacedSection> rest(std::find_if_not(sections.begin(), sections.end(), tellsNothing), sections.end());
    moveBelow(rest, 0);
    stacks = splitStack(rest, above, arena, cut);
    if (!stacks.head.empty() || rest.empty() || cut == Cut::between || !dropSpaceAbove(rest.front(), arena))
        return stacks;
    moveBelow(rest, 0);
    return splitStack(rest, above, arena, cut);
}

Halves splitSubReport(const PlacedControl& control, float above, Arena& arena, Cut cut) {
    Stacks stacks = splitUsefully(control.sections, above, arena, cut);
    if (stacks.head.empty()) {
        Halves halves{std::nullopt, control};
        if (stacks.tail.empty()) halves.tail->sections = {};  // nothing but headings was left
        return halves;
    }
    if (stacks.tail.empty()) {  // the cut goes through the room below its rows
        Halves halves = splitBox(control, above);
        halves.head->sections = arena.keep(stacks.head);
        halves.tail->sections = {};
        return halves;
    }
    Headings headings(Headings::Hold::views);
    const std::size_t whole = stacks.head.size() - (stacks.torn ? 1 : 0);
    for (std::size_t i = 0; i < whole; ++i) headings.placed(stacks.head[i]);
    std::vector<PlacedSection> again = headings.before(stacks.tail.front());
    again.insert(again.end(), stacks.tail.begin(), stacks.tail.end());
    moveBelow(again, 0);
    Halves halves{control, control};
    halves.head->sections = arena.keep(stacks.head);
    halves.head->height = stackedHeight(halves.head->sections);
    halves.tail->sections = arena.keep(again);
    halves.tail->height = std::max(stackedHeight(halves.tail->sections), control.height - above);
    return halves;
}

Halves splitControl(const PlacedControl& control, float above, Arena& arena, Cut cut) {
    if (!control.sections.empty()) return splitSubReport(control, above, arena, cut);
    if (control.lines.size() > 1) return splitLines(control, above, arena);
    if (isSplittable(control)) return splitBox(control, above);
    return {std::nullopt, control};
}

// The last height at which no control that must stay whole is torn.
float heightOf(Cut kind, const PlacedSection& section, float available) {
    float cut = available;
    for (bool moved = kind == Cut::between; moved;) {
        moved = false;
        for (const PlacedControl& control : section.controls) {
            if (isSplittable(control) || control.top >= cut || bottomOf(control) <= cut + tolerance) continue;
            cut = control.top;
            moved = true;
        }
    }
    return cut;
}

// The rest of a section below a cut.
class Rest {
public:
    explicit Rest(float cut, std::size_t count) : cut_(cut) { controls_.reserve(count); }

    // A control that the cut went through, or that starts below it. before: as it was.
    void add(const PlacedControl& before, PlacedControl rest) {
        const float top = std::max(before.top - cut_, 0.0F);
        const float bottom = std::max(bottomOf(before) - cut_, top);
        rest.top = top;
        const float growth = top + std::max(rest.height, 0.0F) - bottom;
        grown_ = grown_ || growth > 0;
        controls_.push_back(rest);
        extents_.push_back({top, bottom, growth, nullptr});
    }

    // height: what the section has below the cut.
    void finish(PlacedSection& tail, float height, Arena& arena) {
        float bottomBefore = 0, bottom = 0;
        for (std::size_t i = 0; i < extents_.size(); ++i) {
            bottomBefore = std::max(bottomBefore, extents_[i].bottom);
            extents_[i].place = &controls_[i].top;
        }
        if (grown_) pushDown(extents_);
        for (const PlacedControl& control : controls_) bottom = std::max(bottom, bottomOf(control));
        tail.height = std::max(height, bottom + std::max(0.0F, height - bottomBefore));
        tail.controls = arena.keep(controls_);
    }

private:
    float cut_;
    bool grown_ = false;
    std::vector<PlacedControl> controls_;
    std::vector<Extent> extents_;
};

}  // namespace

bool splitSection(const PlacedSection& section, float available, Arena& arena, PlacedSection& head, PlacedSection& tail,
                  Cut kind) {
    const float cut = heightOf(kind, section, available);
    if (cut <= 0) return false;
    std::vector<PlacedControl> above;
    Rest rest(cut, section.controls.size());
    for (const PlacedControl& control : section.controls) {
        if (bottomOf(control) <= cut + tolerance && control.top < cut) {
            above.push_back(control);
        } else if (control.top >= cut) {
            rest.add(control, control);
        } else {
            const Halves halves = splitControl(control, cut - control.top, arena, kind);
            if (halves.head) above.push_back(*halves.head);
            if (halves.tail) rest.add(control, *halves.tail);
        }
    }
    if (!section.info->fill &&
        std::none_of(above.begin(), above.end(), [](const PlacedControl& control) { return shows(control); }))
        return false;
    PlacedSection whole = section;
    head = tail = whole;
    head.height = cut;
    head.controls = arena.keep(above);
    tail.continued = true;
    rest.finish(tail, whole.height - cut, arena);
    return true;
}

bool dropSpaceAbove(PlacedSection& section, Arena& arena) {
    float space = section.height;
    for (const PlacedControl& control : section.controls)
        if (shows(control)) space = std::min(space, control.top);
    if (space <= 0) return false;
    const bool continued = section.continued;
    section = sliceSection(section, space, section.height, true, arena);
    section.continued = continued;
    return true;
}

PlacedSection sliceSection(const PlacedSection& section, float from, float to, bool last, Arena& arena) {
    std::vector<PlacedControl> controls;
    float bottom = 0;
    for (PlacedControl control : section.controls) {
        if (control.top < from || (!last && control.top >= to)) continue;
        control.top -= from;
        bottom = std::max(bottom, bottomOf(control));
        controls.push_back(control);
    }
    PlacedSection part = section;
    part.controls = arena.keep(controls);
    part.continued = from > 0;
    part.height = std::max(bottom, (last ? section.height : to) - from);
    return part;
}

}  // namespace quillo
