#include "apps/quillo/outputs.h"

#include <algorithm>
#include <filesystem>

#include "framework/values/names.h"
#include "output/json/json_sink.h"
#include "output/output_file.h"
#include "output/pdf/pdf_sink.h"
#include "output/png/png_sink.h"

namespace quillo::app {
namespace {

constexpr std::string_view known[] = {"pdf", "png", "json"};
constexpr std::string_view toCome[] = {"svg", "html", "csv", "xlsx"};

// The frame around the pages together with the sink that it writes to.
class FramedSink final : public PageSink {
public:
    FramedSink(std::unique_ptr<PageSink> inner, PageFrameTexts texts)
        : inner_(std::move(inner)), frame_(*inner_, std::move(texts)) {}
    void page(const Page& page) override { frame_.page(page); }
    void finish() override { frame_.finish(); }

private:
    std::unique_ptr<PageSink> inner_;
    PageFrame frame_;
};

std::unique_ptr<Output> fileOrStream(const OutputRequest& request, const Console& console) {
    if (request.path.empty()) return std::make_unique<OutputStream>(console.out);
    return std::make_unique<OutputFile>(request.path);
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

std::unique_ptr<PageSink> openOutput(const OutputRequest& request, const Console& console) {
    const std::string format = formatOf(request);
    try {
        if (format == "json")
            return std::make_unique<JsonSink>(fileOrStream(request, console), request.report, request.member,
                                              request.title, request.failures);
        std::unique_ptr<PageSink> sink;
        if (format == "pdf") {
            sink = std::make_unique<PdfSink>(
                std::make_unique<OutputFile>(request.path),
                PdfOptions{request.title, request.language, request.frame.company, request.sessionDate},
                request.shaper);
        } else {
            sink = std::make_unique<PngSink>(request.path, request.resolution, request.shaper);
        }
        return std::make_unique<FramedSink>(std::move(sink), request.frame);
    } catch (const std::exception& failure) {
        throw UsageError(failure.what());
    }
}

}  // namespace quillo::app
