#include "framework/engine/layout.h"

#include <algorithm>
#include <cmath>

#include "framework/engine/band_run.h"

namespace quillo {
namespace {

// A control that grew, by its place in the design.
struct Growth {
    float top, bottom, by;
};

const TextStyle* styleOf(TextControl& control, RunState& run) {
    if (control.Style.takeChange() || control.placedRun != run.id)
        control.placedStyle = run.names->style(control.Style.value());
    return control.placedStyle;
}

void placeText(TextControl& control, const std::string& text, PlacedControl& placed, Arena& arena, RunState& run) {
    placed.style = styleOf(control, run);
    placed.text = arena.text(text);
    if (!placed.style->wrap || text.empty()) return;
    static thread_local std::vector<std::uint32_t> starts;
    starts.clear();
    run.measure.breakLines(text, *placed.style, control.Width, starts);
    const auto lines = arena.array<std::uint32_t>(starts.size());
    std::copy(starts.begin(), starts.end(), lines.begin());
    placed.lines = lines;
    if (control.CanGrow)
        placed.height =
            std::max(control.Height, static_cast<float>(starts.size()) * run.measure.lineHeight(*placed.style));
}

void placeSubReport(const SubReport& control, PlacedControl& placed, Arena& arena, RunState& run) {
    if (!control.Object) return;
    const auto filled =
        std::find_if(run.filled.begin(), run.filled.end(), [&](const auto& entry) { return entry.first == &control; });
    placed.sections =
        filled != run.filled.end() ? filled->second : runSubReport(*control.Object, control.Width, arena, run);
    if (control.CanGrow) placed.height = std::max(control.Height, stackedHeight(placed.sections));
}

void place(Control& control, PlacedControl& placed, Arena& arena, RunState& run) {
    placed.left = control.Left;
    placed.top = control.Top;
    placed.width = control.Width;
    placed.height = control.Height;
    placed.link = arena.text(control.Hyperlink);
    switch (control.kind()) {
        case ControlKind::label: {
            auto& label = static_cast<Label&>(control);
            placeText(label, label.Caption, placed, arena, run);
            break;
        }
        case ControlKind::field: {
            auto& field = static_cast<Field&>(control);
            placeText(field, field.Text, placed, arena, run);
            break;
        }
        case ControlKind::richEdit: {
            auto& rich = static_cast<RichEdit&>(control);
            placeText(rich, rich.RTF, placed, arena, run);
            break;
        }
        case ControlKind::line: {
            const auto& line = static_cast<const Line&>(control);
            placed.left = line.X1;
            placed.top = line.Y1;
            placed.width = line.X2 - line.X1;
            placed.height = line.Y2 - line.Y1;
            placed.lineWidth = line.LineWidth;
            break;
        }
        case ControlKind::shape: {
            const auto& shape = static_cast<const Shape&>(control);
            placed.lineWidth = shape.LineWidth;
            placed.fill = shape.BackColor;
            break;
        }
        case ControlKind::subReport:
            placeSubReport(static_cast<const SubReport&>(control), placed, arena, run);
            break;
        case ControlKind::image: {
            const auto& picture = static_cast<const Image&>(control).Picture;
            const auto bytes = arena.array<std::byte>(picture.size());
            std::copy(picture.begin(), picture.end(), bytes.begin());
            placed.picture = bytes;
            break;
        }
        case ControlKind::chart:
            placed.chart = run.names->chart(static_cast<const Chart&>(control).Data);
            break;
        case ControlKind::dataControl:
        case ControlKind::pageBreak:
            break;
    }
    if (control.placedRun != run.id) {
        control.placedInfo = run.names->control(control.info);
        control.placedRun = run.id;
    }
    placed.info = control.placedInfo;
}

bool isPrinted(const Control& control) {
    return control.Visible && control.kind() != ControlKind::dataControl && control.kind() != ControlKind::pageBreak;
}

float bottomOf(const PlacedControl& control) {
    return control.top + std::max(control.height, 0.0F);
}

// How far a control that starts at top is pushed: below every control that stood above it.
float pushOf(float top, const std::vector<Growth>& growths) {
    float push = 0;
    for (const Growth& growth : growths)
        if (growth.bottom <= top) push = std::max(push, growth.by + pushOf(growth.top, growths));
    return push;
}

void pushDown(PlacedSection& placed, std::span<PlacedControl> controls, const std::vector<Growth>& growths,
              float oldBottom) {
    float bottom = 0;
    for (PlacedControl& control : controls) {
        control.top += pushOf(control.top, growths);
        bottom = std::max(bottom, bottomOf(control));
    }
    // The room that the design leaves below its last control stays.
    placed.height = std::max(placed.height, bottom + std::max(0.0F, placed.height - oldBottom));
}

}  // namespace

float stackedHeight(std::span<const PlacedSection> sections) {
    return sections.empty() ? 0 : sections.back().top + sections.back().height;
}

PlacedSection layOut(Section& section, float width, Arena& arena, RunState& run) {
    if (section.placedRun != run.id) {
        section.placedInfo = run.names->section(section.info);
        section.placedRun = run.id;
    }
    const auto count = static_cast<std::size_t>(
        std::count_if(section.controls.begin(), section.controls.end(), [](const auto& c) { return isPrinted(*c); }));
    const auto controls = arena.array<PlacedControl>(count);
    std::vector<Growth> growths;
    bool holdsReport = false;  // a section grows to hold the whole of its sub-reports and what stands beside them
    float oldBottom = 0;
    std::size_t next = 0;
    for (const auto& control : section.controls) {
        if (!isPrinted(*control)) continue;
        PlacedControl& placed = *new (&controls[next++]) PlacedControl();
        place(*control, placed, arena, run);
        const float height = control->kind() == ControlKind::line ? std::max(placed.height, 0.0F) : control->Height;
        oldBottom = std::max(oldBottom, placed.top + height);
        if (placed.height > height && control->kind() != ControlKind::line)
            growths.push_back({placed.top, placed.top + height, placed.height - height});
        holdsReport = holdsReport || control->kind() == ControlKind::subReport;
    }
    PlacedSection placed;
    placed.info = section.placedInfo;
    placed.width = width;
    placed.height = section.Height;
    if (!growths.empty() || holdsReport) pushDown(placed, controls, growths, oldBottom);
    placed.controls = controls;
    return placed;
}

namespace {

bool isSplittable(const PlacedControl& control) {
    return !control.sections.empty() || control.lines.size() > 1 || control.info->kind == ControlKind::shape ||
           (control.info->kind == ControlKind::line && control.height > 0);
}

struct Halves {
    std::vector<PlacedControl> head, tail;
    float waste = 0;       // room above the cut that a split control could not use
    float wasteBelow = 0;  // only what starts below here moves down by it
};

void splitLines(const PlacedControl& control, float above, Arena& arena, Halves& halves) {
    const float lineHeight = control.height / static_cast<float>(control.lines.size());
    const auto fitting =
        std::min(static_cast<std::size_t>(std::floor(above / lineHeight + 0.01F)), control.lines.size());
    PlacedControl head = control, tail = control;
    const std::uint32_t at =
        fitting < control.lines.size() ? control.lines[fitting] : static_cast<std::uint32_t>(control.text.size());
    head.text = control.text.substr(0, at);
    head.lines = control.lines.first(fitting);
    head.height = static_cast<float>(fitting) * lineHeight;
    tail.height = control.height - head.height;
    tail.text = control.text.substr(at);
    const auto rest = arena.array<std::uint32_t>(control.lines.size() - fitting);
    std::transform(control.lines.begin() + static_cast<std::ptrdiff_t>(fitting), control.lines.end(), rest.begin(),
                   [at](std::uint32_t start) { return start - at; });
    tail.lines = rest;
    tail.top = 0;
    if (fitting > 0) halves.head.push_back(head);
    if (!tail.lines.empty()) halves.tail.push_back(tail);
}

void splitSubReport(const PlacedControl& control, float above, Arena& arena, Halves& halves) {
    std::vector<PlacedSection> head, tail;
    float shift = 0;
    for (const PlacedSection& section : control.sections) {
        if (tail.empty() && section.top + section.height <= above + 0.01F) {
            head.push_back(section);
            continue;
        }
        if (tail.empty()) {
            PlacedSection first, rest;
            // Only a section that starts the page and is higher than it is torn further.
            if (head.empty() && splitSection(section, above - section.top, arena, first, rest)) {
                head.push_back(first);
                tail.push_back(rest);
                shift = section.top + section.height - rest.height;
                tail.back().top = 0;
                continue;
            }
            shift = section.top;
        }
        tail.push_back(section);
        tail.back().top -= shift;
    }
    const auto keep = [&arena](const std::vector<PlacedSection>& sections) {
        const auto copy = arena.array<PlacedSection>(sections.size());
        std::uninitialized_copy(sections.begin(), sections.end(), copy.begin());
        return copy;
    };
    if (!head.empty()) {
        PlacedControl part = control;
        part.sections = keep(head);
        part.height = stackedHeight(part.sections);
        halves.head.push_back(part);
    }
    if (!tail.empty()) {
        PlacedControl part = control;
        part.sections = keep(tail);
        part.height = std::max(stackedHeight(part.sections), control.height - above);
        part.top = 0;
        halves.waste = std::max(halves.waste, part.height - (control.height - above));
        halves.wasteBelow = control.top + control.height;
        halves.tail.push_back(part);
    }
}

void splitBox(const PlacedControl& control, float above, Halves& halves) {
    PlacedControl head = control, tail = control;
    head.height = above;
    tail.height = control.height - above;
    tail.top = 0;
    halves.head.push_back(head);
    halves.tail.push_back(tail);
}

// The last height at which no control that must stay whole is torn.
float cutOf(const PlacedSection& section, float available) {
    float cut = available;
    for (bool moved = true; moved;) {
        moved = false;
        for (const PlacedControl& control : section.controls) {
            if (isSplittable(control) || control.top >= cut || bottomOf(control) <= cut + 0.01F) continue;
            cut = control.top;
            moved = true;
        }
    }
    return cut;
}

}  // namespace

bool splitSection(const PlacedSection& section, float available, Arena& arena, PlacedSection& head,
                  PlacedSection& tail) {
    const float cut = cutOf(section, available);
    if (cut <= 0) return false;
    Halves halves;
    std::vector<const PlacedControl*> below;
    for (const PlacedControl& control : section.controls) {
        if (bottomOf(control) <= cut + 0.01F && control.top < cut) {
            halves.head.push_back(control);
        } else if (control.top >= cut) {
            below.push_back(&control);
        } else if (!control.sections.empty()) {
            splitSubReport(control, cut - control.top, arena, halves);
        } else if (control.lines.size() > 1) {
            splitLines(control, cut - control.top, arena, halves);
        } else {
            splitBox(control, cut - control.top, halves);
        }
    }
    if (halves.head.empty()) return false;
    for (const PlacedControl* control : below) {
        halves.tail.push_back(*control);
        halves.tail.back().top -= cut - (control->top >= halves.wasteBelow ? halves.waste : 0);
    }
    const auto keep = [&arena](const std::vector<PlacedControl>& controls) {
        const auto copy = arena.array<PlacedControl>(controls.size());
        std::uninitialized_copy(controls.begin(), controls.end(), copy.begin());
        return copy;
    };
    head = tail = section;
    head.height = cut;
    head.controls = keep(halves.head);
    tail.continued = true;
    tail.height = section.height - cut + halves.waste;
    tail.controls = keep(halves.tail);
    return true;
}

}  // namespace quillo
