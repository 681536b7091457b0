#include <algorithm>
#include <cmath>

#include "tests/support/page_checks.h"
#include "tests/support/page_reading.h"

namespace quillo::test {
namespace {

constexpr float tolerance = 1;  // twip

struct Box {
    float left, top, right, bottom;
};

Box boxOf(const PlacedControl& control) {
    return {control.left, control.top, control.left + control.width, control.top + control.height};
}
Box boxOf(const ControlPlan& plan) {
    return {plan.left, plan.top, plan.left + plan.width, plan.top + plan.height};
}

// A line has no width: it is overprinted when it runs through the inside of the other.
bool meets(float from, float to, float otherFrom, float otherTo) {
    if (to <= from) return otherFrom + tolerance < from && from < otherTo - tolerance;
    if (otherTo <= otherFrom) return meets(otherFrom, otherTo, from, to);
    return std::min(to, otherTo) - std::max(from, otherFrom) > tolerance;
}
bool overlaps(const Box& a, const Box& b) {
    return meets(a.left, a.right, b.left, b.right) && meets(a.top, a.bottom, b.top, b.bottom);
}

std::string number(float value) {
    return std::to_string(std::lround(value));
}

class Overprint {
public:
    Overprint(const Trial& trial, const Page& page) : trial_(trial), page_(page) {}

    std::string find() {
        for (const PlacedSection& section : page_.sections) look(section, section.top);
        stack(page_.sections);
        return found_.empty() ? "" : "page " + std::to_string(page_.number) + ": " + found_;
    }

private:
    void note(const std::string& what) {
        if (found_.empty()) found_ = what;
    }

    // top: of the section on the page.
    void look(const PlacedSection& section, float top) {
        for (std::size_t i = 0; i < section.controls.size(); ++i) {
            const PlacedControl& control = section.controls[i];
            inside(section, control, top);
            lines(control);
            for (std::size_t j = 0; j < i; ++j) apart(control, section.controls[j]);
            for (const PlacedSection& inner : control.sections) {
                if (inner.top < -tolerance || inner.top + inner.height > control.height + tolerance)
                    note(inner.info->name + " sticks out of " + control.info->name);
                look(inner, top + control.top + inner.top);
            }
            stack(control.sections);
        }
    }

    void inside(const PlacedSection& section, const PlacedControl& control, float top) {
        const Box box = boxOf(control);
        const std::string& name = control.info->name;
        if (box.top < -tolerance || box.bottom > section.height + tolerance || box.right > section.width + tolerance)
            note(name + " sticks out of " + section.info->name + ", bottom " + number(box.bottom) + " of " +
                 number(section.height));
        if (top + box.top < planMargin - tolerance || top + box.bottom > page_.setup.height - planMargin + tolerance)
            note(name + " stands in the page's margin, " + number(top + box.top) + " to " + number(top + box.bottom));
    }

    // A text that grows has room for all its lines, and its lines for all its letters.
    void lines(const PlacedControl& control) {
        if (control.text.empty() || !trial_.index.control(control).grows) return;
        const auto due = std::ceil(static_cast<float>(control.text.size()) / std::floor(control.width / 100));
        if (static_cast<float>(control.lines.size()) != due)
            note(control.info->name + " has " + std::to_string(control.lines.size()) + " lines, not " + number(due));
        if (due * 200 > control.height + tolerance) note(control.info->name + " is too low for its lines");
    }

    void apart(const PlacedControl& a, const PlacedControl& b) {
        if (!overlaps(boxOf(a), boxOf(b))) return;
        if (overlaps(boxOf(trial_.index.control(a)), boxOf(trial_.index.control(b)))) return;  // so designed
        note(a.info->name + " and " + b.info->name + " overprint each other");
    }

    // Sections stand one under the other, but for a group beside the header that it underlays. One that shows nothing
    // is only room.
    void stack(std::span<const PlacedSection> sections) {
        for (std::size_t j = 0; j < sections.size(); ++j)
            for (std::size_t i = 0; i < j; ++i) {
                const PlacedSection &above = sections[i], &below = sections[j];
                if (!meets(above.top, above.top + above.height, below.top, below.top + below.height)) continue;
                if (!showsAny(above) || !showsAny(below)) continue;
                if (!underlays(sections, i, j))
                    note(below.info->name + " at " + number(below.top) + " overprints " + above.info->name + " at " +
                         number(above.top) + "+" + number(above.height));
                else
                    beside(above, below);
            }
    }

    // Whether a section belongs to the group that prints beside a header: up to the group's own footer.
    bool underlays(std::span<const PlacedSection> sections, std::size_t header, std::size_t other) {
        const SectionPlan& plan = trial_.index.section(sections[header]);
        if (!plan.underlayNext) return false;
        for (std::size_t i = header + 1; i <= other; ++i) {
            const SectionPlan& next = trial_.index.section(sections[i]);
            const bool ends = next.kind == SectionKind::groupFooter && next.level == plan.level;
            const bool itself = i == other || (sections[other].continued && sections[i].info == sections[other].info);
            const bool inside = next.kind == SectionKind::detail || next.level > plan.level || (ends && itself);
            if (!inside) return false;
        }
        return true;
    }

    void beside(const PlacedSection& header, const PlacedSection& row) {
        for (const PlacedControl& a : header.controls)
            for (const PlacedControl& b : row.controls) {
                Box one = boxOf(a), other = boxOf(b);
                one.top += header.top, one.bottom += header.top;
                other.top += row.top, other.bottom += row.top;
                if (overlaps(one, other)) note(a.info->name + " and " + b.info->name + " overprint each other");
            }
    }

    const Trial& trial_;
    const Page& page_;
    std::string found_;
};

}  // namespace

std::string findOverprint(const Trial& trial) {
    for (const auto& page : trial.run.kept.pages)
        if (std::string found = Overprint(trial, *page).find(); !found.empty()) return found;
    return {};
}

}  // namespace quillo::test
