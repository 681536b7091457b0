#pragma once

#include "framework/engine/page.h"

namespace quillo {

// Cuts a section in two at the last place above available (twips) where nothing is torn: between the
// controls, the lines of a text, the sections of a sub-report. What a text or a sub-report could not use of the room
// above the cut moves down what stands below it; a sub-report's headings stand again above its rest. False when
// nothing that shows fits above.
bool splitSection(const PlacedSection& section, float available, Arena& arena, PlacedSection& head,
                  PlacedSection& tail);

// The part of a section between two heights, moved to the top. Controls belong where they start; last: so do all that
// start further down.
PlacedSection sliceSection(const PlacedSection& section, float from, float to, bool last, Arena& arena);

}  // namespace quillo
