#include "apps/quillo/outputs.h"

#include <algorithm>
#include <filesystem>

#include "framework/values/names.h"
#include "output/json/json_sink.h"
#include "output/pdf/pdf_sink.h"
#include "output/png/png_sink.h"
#include "output/queued_sink.h"

namespace quillo::app {
namespace {

// Leaves the output unfinished, and so unwritten, when the run has shown failures.
class StrictSink final : public PageSink {
public:
    StrictSink(std::unique_ptr<PageSink> inner, std::function<std::vector<std::string>()> failures)
        : inner_(std::move(inner)), failures_(std::move(failures)) {}
    void page(const Page& page) override { inner_->page(page); }
    std::unique_ptr<Page> take(std::unique_ptr<Page> handed) override { return inner_->take(std::move(handed)); }
    void finish() override {
        if (failures_().empty()) inner_->finish();
    }

private:
    std::unique_ptr<PageSink> inner_;
    std::function<std::vector<std::string>()> failures_;
};

constexpr std::string_view known[] = {"pdf", "png", "json"};
constexpr std::string_view toCome[] = {"svg", "html", "csv", "xlsx"};

std::unique_ptr<PageSink> openFormat(const std::string& format, const OutputRequest& request, Outlet& outlet) {
    if (format == "json")
        return std::make_unique<JsonSink>(outlet.open(request.path), request.report, request.member, request.title,
                                          request.failures);
    const auto shaper = makeTextShaper(request.missing);
    if (format == "png") return std::make_unique<PngSink>(request.path, request.resolution, shaper);
    return std::make_unique<PdfSink>(
        outlet.open(request.path),
        PdfOptions{request.title, request.language, request.frame.company, request.sessionDate}, shaper);
}

}  // namespace

std::string formatOf(const OutputRequest& request) {
    std::string format = foldedName(request.format);
    if (format.empty() && request.path.empty()) return "json";
    if (format.empty()) {
        format = foldedName(std::filesystem::path(request.path).extension().string());
        if (!format.empty()) format.erase(0, 1);
        if (format.empty())
            throw UsageError("\"" + request.path + "\" has no ending that tells a format; use --format");
    }
    if (std::find(std::begin(toCome), std::end(toCome), format) != std::end(toCome))
        throw UsageError("the format " + format + " comes with a later version; there are pdf, png and json");
    if (std::find(std::begin(known), std::end(known), format) == std::end(known))
        throw UsageError("there is no format \"" + format + "\"; there are pdf, png and json");
    if (format != "json" && request.path.empty()) throw UsageError("the format " + format + " needs a file: -o FILE");
    return format;
}

std::unique_ptr<PageSink> openOutput(const OutputRequest& request, Outlet& outlet, TextMeasure& measure) {
    const std::string format = formatOf(request);
    try {
        auto sink = openFormat(format, request, outlet);
        if (request.strict) sink = std::make_unique<StrictSink>(std::move(sink), request.failures);
        if (!request.path.empty()) sink = std::make_unique<QueuedSink>(std::move(sink));
        if (format == "json") return sink;
        PageFrameTexts frame = request.frame;
        if (format != "pdf") frame.ofWord.clear();  // its pages are files that are written before the last one comes
        return std::make_unique<PageFrame>(std::move(sink), frame, measure);
    } catch (const std::exception& failure) {
        throw UsageError(failure.what());
    }
}

}  // namespace quillo::app
