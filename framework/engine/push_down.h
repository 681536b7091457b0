#pragma once

#include <vector>

namespace quillo {

// Something that stands in a section, by its place before anything grew.
struct Extent {
    float top, bottom;
    float growth;  // how far its bottom moves down by itself
    float* place;  // its top, moved down below all that grew above it
};

// Moves each thing down by what grew above it: below the lowest of those that ended at or above its top. Two things
// that did not overlap before do not overlap behind. Takes about as many steps as there are things.
void pushDown(std::vector<Extent>& extents);

}  // namespace quillo
