#pragma once

#include "framework/engine/engine.h"
#include "host/session/host_session.h"

namespace quillo {

// Runs a report as runReport does, and behind its last page whatever its pages could not say: the whole text of a
// filter that they cut, and the failures that were shown since the session's log was cleared.
RunEnd runWithNotes(Report& report, HostSession& session, PageSink& sink, TextMeasure& measure,
                    const RunOptions& options);

}  // namespace quillo
