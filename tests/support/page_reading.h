#pragma once

#include <algorithm>

#include "framework/engine/page.h"

namespace quillo::test {

// Whether a reader sees anything of it: a text, a line, a box.
inline bool showsAny(const PlacedSection& section) {
    return std::any_of(section.controls.begin(), section.controls.end(), [](const PlacedControl& control) {
        return !control.text.empty() || control.info->kind == ControlKind::line ||
               control.info->kind == ControlKind::shape ||
               std::any_of(control.sections.begin(), control.sections.end(), showsAny);
    });
}

// Whether it belongs to what a report tells, and is no frame of the page nor a heading that stands there again.
inline bool isBody(const PlacedSection& section) {
    return section.info->kind != SectionKind::pageHeader && section.info->kind != SectionKind::pageFooter &&
           !section.repeat;
}

// A page on which a reader finds something to read.
inline bool hasContent(const Page& page) {
    return std::any_of(page.sections.begin(), page.sections.end(),
                       [](const PlacedSection& section) { return isBody(section) && showsAny(section); });
}

}  // namespace quillo::test
