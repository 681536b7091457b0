#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "apps/quillo/outlet.h"
#include "framework/engine/page.h"
#include "framework/values/date.h"
#include "output/page_frame.h"
#include "output/shaper.h"

namespace quillo::app {

// What an output needs to know of the run beside its pages.
struct OutputRequest {
    std::string format;  // pdf, png, json, or empty: by the file's ending, JSON without a file
    std::string path;    // empty: standard output
    double resolution = 110;
    std::string report, member, title;
    std::string language;
    PageFrameTexts frame;
    Date sessionDate;
    std::function<std::vector<std::string>()> failures;
    bool strict = false;       // a run that showed failures leaves the file as it was
    MissingCharacter missing;  // called on the output's own thread, until the sink has ended
};

// What a strict run with failures says in its end.
inline constexpr std::string_view nothingWritten = "nothing was written, since the report has failures";

// The format that the request comes to. Throws UsageError for one that is unknown, not there yet, or needs a file.
std::string formatOf(const OutputRequest& request);

// The sink that takes the pages, the host's frame included where the format has one. A file is painted
// and written on a thread of its own; measure and outlet must outlive the sink. Throws UsageError when the file cannot
// be written.
std::unique_ptr<PageSink> openOutput(const OutputRequest& request, Outlet& outlet, TextMeasure& measure);

}  // namespace quillo::app
