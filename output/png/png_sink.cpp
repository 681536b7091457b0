#include "output/png/png_sink.h"

#include <cmath>
#include <exception>
#include <filesystem>
#include <vector>

#include "output/output_error.h"
#include "output/output_file.h"
#include "output/page_painter.h"
#include "output/png/cairo_canvas.h"

namespace quillo {
namespace {

constexpr double twipsPerInch = 1440;

// Takes Cairo's bytes; what a file throws must not pass through Cairo, so it waits here.
struct Receiver {
    OutputFile& file;
    std::exception_ptr failure;
};

cairo_status_t receive(void* to, const unsigned char* bytes, unsigned count) {
    auto& receiver = *static_cast<Receiver*>(to);
    try {
        receiver.file.write({reinterpret_cast<const char*>(bytes), count});
        return CAIRO_STATUS_SUCCESS;
    } catch (...) {
        receiver.failure = std::current_exception();
        return CAIRO_STATUS_WRITE_ERROR;
    }
}

}  // namespace

class PngSink::Album {
public:
    Album(std::string path, double resolution, std::shared_ptr<TextShaper> shaper);
    void page(const Page& page);
    void finish();

private:
    void write(const Surface& picture, const std::string& path);
    std::string numberedPath() const;

    std::string path_;
    double resolution_;
    CairoFonts fonts_;
    PagePainter painter_;
    Surface first_;  // waits until it is known whether it is the only page
    std::vector<std::unique_ptr<OutputFile>> files_;
};

PngSink::Album::Album(std::string path, double resolution, std::shared_ptr<TextShaper> shaper)
    : path_(std::move(path)), resolution_(resolution), painter_(std::move(shaper)) {}

void PngSink::Album::page(const Page& page) {
    const double scale = resolution_ / twipsPerInch;
    const auto pixels = [&](float twips) { return static_cast<int>(std::lround(twips * scale)); };
    Surface picture(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, pixels(page.setup.width), pixels(page.setup.height)));
    if (const auto status = cairo_surface_status(picture.get()); status != CAIRO_STATUS_SUCCESS) {
        throw OutputError("A page cannot be drawn: " + std::string(cairo_status_to_string(status)));
    }
    CairoCanvas canvas(picture.get(), scale, fonts_);
    canvas.fill({0, 0, page.setup.width, page.setup.height}, {255, 255, 255});
    painter_.paint(page, canvas);
    if (files_.empty() && !first_) {
        first_ = std::move(picture);
        return;
    }
    if (first_) write(first_, numberedPath());
    first_.reset();
    write(picture, numberedPath());
}

void PngSink::Album::finish() {
    if (first_) write(first_, path_);
    first_.reset();
    for (const auto& file : files_) file->finish();
}

void PngSink::Album::write(const Surface& picture, const std::string& path) {
    files_.push_back(std::make_unique<OutputFile>(path));
    Receiver receiver{*files_.back(), {}};
    const cairo_status_t status = cairo_surface_write_to_png_stream(picture.get(), receive, &receiver);
    if (receiver.failure) std::rethrow_exception(receiver.failure);
    if (status != CAIRO_STATUS_SUCCESS)
        throw OutputError("Cannot write " + path + ": " + cairo_status_to_string(status));
    files_.back()->close();
}

std::string PngSink::Album::numberedPath() const {
    std::filesystem::path path(path_);
    path.replace_filename(path.stem().string() + "-" + std::to_string(files_.size() + 1) + path.extension().string());
    return path.string();
}

PngSink::PngSink(std::string path, double resolution, std::shared_ptr<TextShaper> shaper)
    : album_(std::make_unique<Album>(std::move(path), resolution, std::move(shaper))) {}
PngSink::~PngSink() = default;
void PngSink::page(const Page& page) {
    album_->page(page);
}
void PngSink::finish() {
    album_->finish();
}

}  // namespace quillo
