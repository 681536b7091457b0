#pragma once

#include <functional>
#include <memory>
#include <string>

#include "framework/engine/page.h"
#include "framework/engine/report.h"
#include "framework/engine/text_measure.h"

namespace quillo {

struct Progress {
    long rows = 0;  // rows walked so far, those of sub-reports included
    int pages = 0;  // pages finished so far
};

struct RunOptions {
    int maxPages = 100000;  // a run that would give more stops with an EngineError
    // Called now and then; false asks the run to stop. Empty: never asked.
    std::function<bool(const Progress&)> proceed;
};

enum class RunEnd { done, stopped };

// Runs a report and hands its pages to the sink as soon as they can no longer change.
//
// - One row: the recordset stands on it; bound fields take their columns; headers of the groups whose
//   DataField changed print, outermost first; Detail. Before a new group's header the old group's
//   footers print, innermost first: their bound fields show the last row of the group and its sums,
//   while the recordset already stands on the next row or at its end.
// - A field is filled before its section's Format, so that what a report writes there is what prints. A
//   hidden section is formatted too, so that its event may show it.
// - Format runs once for each time that a section prints, also when the section then moves to the next
//   page or waits for the rest of its group.
// - A design with a data control and no recordset gives no detail; one without data control and without
//   fetchData gives one; with fetchData one a fetch until it says end.
// - A row dropped by LayoutAction 4 prints nothing and adds to no engine sum.
// - Controls that grow push down what stands below them. A section with a sub-report grows to hold it and what stands
//   beside it, also when its height was set lower. A section that does not fit moves to the next
//   page; one higher than a page, or not kept together, is split. A page on which nothing can be placed
//   ends the run with an EngineError that names report and section.
// - Of the finished pages two are held back, and those behind a page that is empty, for
//   PageCollection::Remove at the report's end; memory does not grow with the number of pages.
// - A page header's sub-report runs once, before the first page header is formatted.
//
// Failures of the report's own steps show as boxes and the run goes on; a row that the database cannot give
// shows one box and ends the rows. Throws EngineError, and what the sink throws; the sink is then not
// finished. A stop asked for by proceed leaves the sink unfinished too.
RunEnd runReport(Report& report, PageSink& sink, TextMeasure& measure, const RunOptions& options = {});

}  // namespace quillo
