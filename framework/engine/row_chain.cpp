#include "framework/engine/row_chain.h"

#include <limits>

namespace quillo {
namespace {

constexpr int detailLevel = std::numeric_limits<int>::max();

}  // namespace

bool RowChain::isTotal(const PlacedSection& section) {
    return section.info->kind == SectionKind::groupFooter || section.info->kind == SectionKind::reportFooter;
}

std::optional<std::size_t> RowChain::rowOf(const PlacedSection& section) const {
    if (!isTotal(section) || section.info->level >= level_) return std::nullopt;
    return from_;
}

void RowChain::placed(const PlacedSection& section, std::size_t from) {
    if (section.info->kind == SectionKind::detail) {
        from_ = from;
        level_ = detailLevel;
    } else if (isTotal(section)) {
        if (!rowOf(section)) from_ = from;
        level_ = section.info->level;
    } else {
        clear();
    }
}

void RowChain::moved(std::size_t first, std::size_t to) {
    if (from_ && *from_ >= first) {
        *from_ = *from_ - first + to;
    } else {
        clear();
    }
}

}  // namespace quillo
