#pragma once

#include <functional>
#include <memory>
#include <string>

#include "framework/engine/page.h"
#include "framework/engine/report.h"
#include "framework/engine/run_options.h"
#include "framework/engine/text_measure.h"

namespace quillo {

enum class RunEnd { done, stopped };

// Runs a report and hands each page to the sink as soon as the next one begins.
//
// - One row: the recordset stands on it; bound fields take their columns; headers of the groups whose
//   DataField changed print, outermost first; Detail. Before a new group's header the old group's
//   footers print, innermost first: their bound fields show the last row of the group and its sums,
//   while the recordset already stands on the next row or at its end.
// - A field is filled before its section's Format, so that what a report writes there is what prints. A
//   hidden section is formatted too, so that its event may show it.
// - Format runs once for each time that a section prints, also when the section then moves to the next page; AfterPrint
//   follows its placing, before the next Format. A header that stands again on a later page shows what it printed
//   first, and no event runs. A section's page header may be formatted between the section's own Format and AfterPrint.
// - A design with a data control and no recordset gives no detail; one without data control and without
//   fetchData gives one; with fetchData one a fetch until it says end. Beside a recordset fetchData runs once a row,
//   behind the move, and is told whether the rows are at their end, which ends them.
// - An event may give the data control another recordset, which is then walked from where it stands, or take it away,
//   which ends the rows.
// - A row dropped by LayoutAction prints nothing and adds to no engine sum. A group that prints only with its rows is
//   formatted where it begins, and placed before its first row that prints.
// - Controls that grow push down what stands below them. A section is never lower than what it shows. A section that
//   does not fit moves to the next page; one higher than a page, or not kept together, is split. A page on which
//   nothing can be placed ends the run with an EngineError that names report and section.
// - A page header's sub-report runs once, before the first page header is formatted.
// - Memory grows neither with the rows nor with the pages nor with a sub-report that ends its section.
//
// Failures of the report's own steps show as boxes and the run goes on, and so do values that a field cannot show or
// sum; a row that the database cannot give shows one box and ends the rows. Throws EngineError, and what the sink
// throws; the sink is then not finished. A stop asked for by proceed, or by a service that throws RunStopped, leaves
// the sink unfinished too.
RunEnd runReport(Report& report, PageSink& sink, TextMeasure& measure, const RunOptions& options = {});

}  // namespace quillo
