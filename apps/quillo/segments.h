#pragma once

#include <string>

namespace quillo {
class HostSession;
}

namespace quillo::app {

// The names of the chosen segments for the page header. ids: joined by commas; none: rows without segment too.
// Throws UsageError for a segment that the company does not have.
std::string segmentText(HostSession& session, const std::string& ids, bool none);

}  // namespace quillo::app
