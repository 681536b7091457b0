#include "framework/engine/engine.h"

#include "framework/engine/band_run.h"
#include "framework/engine/paginator.h"

namespace quillo {

RunEnd runReport(Report& report, PageSink& sink, TextMeasure& measure, const RunOptions& options) {
    RunState state{measure, options};
    StackedRuns nested(state);
    state.nested = &nested;
    Paginator pages(report, sink, state);
    try {
        BandRun run(report, state, pages);
        run.run();
        pages.finish();
        run.end();
    } catch (const RunStopped&) {
        return RunEnd::stopped;
    }
    sink.finish();
    return RunEnd::done;
}

}  // namespace quillo
