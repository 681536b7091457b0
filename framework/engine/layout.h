#pragma once

#include <span>
#include <vector>

#include "framework/engine/report.h"
#include "framework/engine/run_notes.h"
#include "framework/engine/run_state.h"

namespace quillo {

// A section as it will print.
struct LaidOut {
    PlacedSection placed;
    std::span<const PlacedControl> inRepeats;  // what shows only where the section stands again
    std::span<const float> breaks;  // tops of its enabled page breaks, ascending; what grew above them is counted
    // A sub-report below which nothing stands and that has not run yet: it runs while its rows go to the pages. Its
    // place is flowTop; the design leaves flowRoom below it.
    const SubReport* flowing = nullptr;
    const ControlInfo* flowInfo = nullptr;
    float flowTop = 0, flowRoom = 0;
};

// Where a section is laid out.
struct LayoutRoom {
    const Report& report;
    RunNotes& notes;
    RunState& run;
    Arena& arena;
    float width = 0;
    bool flows = false;  // whether a sub-report below which nothing stands may run later
};

// Lays out a formatted section at the left top corner 0, 0 of what it will be placed on. What grows pushes down what
// stands below it, and the section is never lower than what it shows. A height that no section can have shows a box.
LaidOut layOut(const Section& section, const LayoutRoom& room);

// Height of sections stacked as a sub-report holds them.
float stackedHeight(std::span<const PlacedSection> sections);

float bottomOf(const PlacedControl& control);

}  // namespace quillo
