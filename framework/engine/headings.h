#pragma once

#include <memory>
#include <span>
#include <vector>

#include "framework/engine/page.h"

namespace quillo {

// Which headings of stacked sections stand again where the stack goes on: each report header and group header that
// repeats, as long as its group has not ended.
class Headings {
public:
    enum class Hold { views, copies };
    // views: what is placed outlives this.
    explicit Headings(Hold hold) : hold_(hold) {}

    // A section has been placed.
    void placed(const PlacedSection& section);
    // The headings that stand again before next, outermost first.
    std::vector<PlacedSection> before(const PlacedSection& next) const;

private:
    struct Heading {
        int level;  // 0: the report's
        PlacedSection section;
        std::unique_ptr<Arena> arena;
    };
    Hold hold_;
    std::vector<Heading> open_;
};

}  // namespace quillo
