#include "framework/engine/headings.h"

#include <algorithm>

namespace quillo {

void Headings::placed(const PlacedSection& section) {
    const SectionInfo& info = *section.info;
    if (section.continued || (section.repeat && hold_ == Hold::copies)) return;
    if (info.kind == SectionKind::groupHeader || info.kind == SectionKind::groupFooter)
        std::erase_if(open_, [&](const Heading& heading) { return heading.level >= info.level; });
    if (!info.repeat) return;
    Heading heading{info.level, section, nullptr};
    if (hold_ == Hold::copies) {
        heading.arena = std::make_unique<Arena>();
        heading.section = copySection(section, *heading.arena);
    }
    open_.push_back(std::move(heading));
}

std::vector<PlacedSection> Headings::before(const PlacedSection& next) const {
    std::vector<PlacedSection> again;
    const bool opens = next.info->kind == SectionKind::groupHeader && !next.continued;
    const bool ends = next.info->kind == SectionKind::reportFooter;
    for (const Heading& heading : open_) {
        if (heading.level > 0 && (ends || (opens && heading.level >= next.info->level))) continue;
        again.push_back(heading.section);
        again.back().repeat = true;
    }
    return again;
}

}  // namespace quillo
