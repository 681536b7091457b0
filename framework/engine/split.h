#pragma once

#include <cstdint>

#include "framework/engine/page.h"

namespace quillo {

// Where a section may be cut.
enum class Cut : std::uint8_t {
    between,  // at one height, where no control that must stay whole stands across it
    through,  // at the height that is there; what must stay whole and stands across it goes below, apart from its row
};

// Cuts a section in two above available (twips): between the controls, the lines of a text, the sections of a
// sub-report. What could not use the room above the cut moves down what stands below it; a sub-report's headings stand
// again above its rest. False when nothing that shows fits above.
bool splitSection(const PlacedSection& section, float available, Arena& arena, PlacedSection& head, PlacedSection& tail,
                  Cut cut = Cut::between);

// Moves what a section shows up to its top; false when it stands there already.
bool dropSpaceAbove(PlacedSection& section, Arena& arena);

// The part of a section between two heights, moved to the top. Controls belong where they start; last: so do all that
// start further down.
PlacedSection sliceSection(const PlacedSection& section, float from, float to, bool last, Arena& arena);

}  // namespace quillo
