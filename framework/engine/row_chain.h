#pragma once

#include <cstddef>
#include <optional>

#include "framework/engine/page.h"

namespace quillo {

// Where, among placed sections, the row began that the next total belongs to: a detail with the footers behind it, or a
// footer that stands in a detail's place where a report prints no details.
class RowChain {
public:
    // A section that shows has been placed. from: where what is kept with it began, its own place without such.
    void placed(const PlacedSection& section, std::size_t from);
    // Where the row began that this section must not leave; nothing when the section is no total of it.
    std::optional<std::size_t> rowOf(const PlacedSection& section) const;
    // The sections from the first on have moved to another place, or all are gone.
    void moved(std::size_t first, std::size_t to);
    void clear() { from_.reset(); }

private:
    static bool isTotal(const PlacedSection& section);
    std::optional<std::size_t> from_;
    int level_ = 0;  // of the chain's last section; a total of a lower level belongs to it
};

}  // namespace quillo
