#pragma once

#include <vector>

#include "framework/engine/controls.h"

namespace quillo {

// The two columns of amounts of a journal, or of the distribution behind it, with the rules above and under their
// totals.
struct JournalColumns {
    struct Place {
        float left, width;  // twips
    };
    std::vector<Control*> debits, credits;
    std::vector<Line*> rules;

    void place(const Place& debit, const Place& credit) const;
};

}  // namespace quillo
