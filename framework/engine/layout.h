#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "framework/engine/controls.h"
#include "framework/engine/engine.h"

namespace quillo {

// What one run shares between its report and its sub-reports.
struct RunState {
    TextMeasure& measure;
    const RunOptions& options;
    std::shared_ptr<RunNames> names = std::make_shared<RunNames>();
    std::uint64_t id = 0;
    Progress progress{};
    Arena kept{};  // what stays for the whole run: the sub-reports of the page header
    std::vector<std::pair<const SubReport*, std::span<const PlacedSection>>> filled{};
};

// Lays out a formatted section at the left top corner 0, 0 of what it will be placed on.
PlacedSection layOut(Section& section, float width, Arena& arena, RunState& run);

// Height of sections stacked as a sub-report holds them.
float stackedHeight(std::span<const PlacedSection> sections);

// Cuts a section in two at the last place above available (twips) where nothing is torn: between the
// controls, the lines of a text, the sections of a sub-report. False when nothing fits above.
bool splitSection(const PlacedSection& section, float available, Arena& arena, PlacedSection& head,
                  PlacedSection& tail);

}  // namespace quillo
