#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "framework/engine/page.h"

namespace quillo::test {

// Makes pages by hand. Styles, names and texts live as long as the builder.
class PageBuilder {
public:
    explicit PageBuilder(int number = 1) {
        page_.number = number;
        page_.names = std::make_shared<RunNames>();
    }
    // Begins a section below the one before.
    PageBuilder& section(float height, SectionKind kind = SectionKind::detail, const std::string& name = "Detail",
                         int level = 0, bool bookmark = false) {
        finishSection();
        PlacedSection section;
        section.info = page_.names->section({name, kind, level, bookmark, std::nullopt});
        section.left = page_.setup.leftMargin;
        section.top = top_;
        section.width = page_.setup.printableWidth();
        section.height = height;
        page_.sections.push_back(section);
        top_ += height;
        return *this;
    }
    // Adds a control, to be completed by the caller before the next call.
    PlacedControl& control(ControlKind kind, const std::string& name, float left, float width, float height = 240) {
        PlacedControl control;
        control.info = page_.names->control({name, kind});
        control.style = page_.names->style({});
        control.left = left;
        control.width = width;
        control.height = height;
        controls_.push_back(control);
        return controls_.back();
    }
    PlacedControl& text(const std::string& text, float left = 0, float width = 10800, const TextStyle& style = {}) {
        PlacedControl& made = control(ControlKind::field, "txtText", left, width);
        made.style = page_.names->style(style);
        made.text = page_.arena.text(text);
        return made;
    }
    PlacedControl& wrapped(const std::string& text, float width, float height, const std::vector<std::uint32_t>& lines,
                           TextStyle style = {}) {
        style.wrap = true;
        PlacedControl& made = this->text(text, 0, width, style);
        made.height = height;
        const auto copy = page_.arena.array<std::uint32_t>(lines.size());
        std::copy(lines.begin(), lines.end(), copy.begin());
        made.lines = copy;
        return made;
    }
    const TextStyle* style(const TextStyle& style) { return page_.names->style(style); }
    std::string_view keep(const std::string& text) { return page_.arena.text(text); }
    Page& page() {
        finishSection();
        return page_;
    }

private:
    void finishSection() {
        if (page_.sections.empty()) return;
        const auto controls = page_.arena.array<PlacedControl>(controls_.size());
        std::uninitialized_copy(controls_.begin(), controls_.end(), controls.begin());
        if (!controls_.empty()) page_.sections.back().controls = controls;
        controls_.clear();
    }

    Page page_;
    std::vector<PlacedControl> controls_;
    float top_ = 1440;
};

}  // namespace quillo::test
