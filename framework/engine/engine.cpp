#include "framework/engine/engine.h"

#include <exception>

#include "framework/engine/band_run.h"
#include "framework/engine/page_builder.h"
#include "framework/values/errors.h"

namespace quillo {
namespace {

std::uint64_t nextRunId() {
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

}  // namespace

RunEnd runReport(Report& report, PageSink& sink, TextMeasure& measure, const RunOptions& options) {
    RunState state{measure, options};
    state.id = nextRunId();
    PageBuilder pages(report, sink, state);
    struct Visit {
        Report& report;
        ~Visit() { report.Pages = nullptr; }
    } visit{report};
    report.Pages = &pages;
    try {
        BandRun run(report, state, pages);
        run.run();
        pages.endPages();
        try {
            report.ActiveReport_ReportEnd();
        } catch (const std::exception& error) {
            report.showFailure(error.what(), "ActiveReport_ReportEnd", 0);
        }
        pages.finish();
    } catch (const RunStopped&) {
        return RunEnd::stopped;
    }
    sink.finish();
    return RunEnd::done;
}

}  // namespace quillo
