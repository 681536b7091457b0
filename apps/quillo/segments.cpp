#include "apps/quillo/segments.h"

#include <sstream>

#include "apps/quillo/console.h"
#include "host/session/host_session.h"

namespace quillo::app {
namespace {

std::string nameOfSegment(HostSession& session, std::int64_t id) {
    sqlite::Statement row(session.file().handle(), "SELECT Descr FROM Segment WHERE InSegmentId = ?");
    if (!row.bind(1, id).step()) throw UsageError("the company has no segment " + std::to_string(id));
    return std::string(row.text(0));
}

}  // namespace

std::string segmentText(HostSession& session, const std::string& ids, bool none) {
    std::string text;
    std::istringstream list(ids);
    for (std::string part; std::getline(list, part, ',');) {
        std::int64_t id = 0;
        if (!(std::istringstream(part) >> id))
            throw UsageError("--segments takes ids joined by commas, not \"" + ids + "\"");
        text += (text.empty() ? "" : ", ") + nameOfSegment(session, id);
    }
    if (none) text += (text.empty() ? "" : ", ") + session.GetText(20213);
    return text;
}

}  // namespace quillo::app
