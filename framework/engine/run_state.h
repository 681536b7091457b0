#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "framework/engine/controls.h"
#include "framework/engine/page.h"
#include "framework/engine/run_options.h"
#include "framework/engine/text_measure.h"
#include "framework/values/errors.h"

namespace quillo {

// Runs a report inside a sub-report's control. An interface, so that layout need not know the walk.
class NestedRuns {
public:
    virtual ~NestedRuns() = default;
    // The sections of the whole run, stacked, in the arena.
    virtual std::span<const PlacedSection> run(Report& report, float width, Arena& arena) = 0;
};

// What the pages of a run point into beside their own arenas. A page's names keep all of it, for a sink may hold pages
// when the run has ended.
struct PageGround {
    RunNames names;
    Arena kept;  // the sub-reports of the page header
};

// What one run shares between its report and its sub-reports.
struct RunState {
    TextMeasure& measure;
    const RunOptions& options;
    NestedRuns* nested = nullptr;
    std::shared_ptr<PageGround> ground = std::make_shared<PageGround>();
    std::shared_ptr<RunNames> names{ground, &ground->names};
    Progress progress{};
    std::vector<std::pair<const SubReport*, std::span<const PlacedSection>>> filled{};
    std::set<std::string> missingColumns{};   // those that were told, each with its report and control
    std::vector<std::uint32_t> lineStarts{};  // room that layout uses again for each text

    void askToProceed() const {
        if (options.proceed && !options.proceed(progress)) throw RunStopped();
    }
};

}  // namespace quillo
