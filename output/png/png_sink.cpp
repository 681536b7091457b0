#include "output/png/png_sink.h"

#include <libdeflate.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <exception>
#include <filesystem>
#include <fstream>
#include <vector>

#include "output/output_error.h"
#include "output/output_file.h"
#include "output/page_painter.h"
#include "output/png/cairo_canvas.h"

namespace quillo {
namespace {

namespace fs = std::filesystem;

constexpr double twipsPerInch = 1440;
constexpr std::size_t mostOpen = 200;   // files; the pages beyond wait without a handle
constexpr std::size_t headerSize = 33;  // what a PNG begins with, up to the first chunk that may be any

std::string bigEndian(std::uint32_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift & 0xFF);
    return bytes;
}

// A chunk of text that tells a page's file from any other picture.
const std::string& mark() {
    static const std::string chunk = [] {
        const std::string text = std::string("Software") + '\0' + "Quillo page", named = "tEXt" + text;
        return bigEndian(static_cast<std::uint32_t>(text.size())) + named +
               bigEndian(libdeflate_crc32(0, named.data(), named.size()));
    }();
    return chunk;
}

bool bearsMark(const fs::path& path) {
    std::error_code none;
    if (fs::symlink_status(path, none).type() != fs::file_type::regular) return false;
    std::string start(headerSize + mark().size(), '\0');
    std::ifstream(path, std::ios::binary).read(start.data(), static_cast<std::streamsize>(start.size()));
    return start.ends_with(mark());
}

// Takes Cairo's bytes; what a file throws must not pass through Cairo, so it waits here.
struct Receiver {
    OutputFile& file;
    std::exception_ptr failure;
    std::size_t header = headerSize;  // bytes that are to come before the mark

    void take(std::string_view bytes) {
        const std::string_view first = bytes.substr(0, header);
        file.write(first);
        if (header > 0 && header == first.size()) file.write(mark());
        header -= first.size();
        file.write(bytes.substr(first.size()));
    }
};

cairo_status_t receive(void* to, const unsigned char* bytes, unsigned count) {
    auto& receiver = *static_cast<Receiver*>(to);
    try {
        receiver.take({reinterpret_cast<const char*>(bytes), count});
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
    void clearOlder() const;

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
    clearOlder();
}

void PngSink::Album::clearOlder() const {
    const int last = files_.size() > 1 ? static_cast<int>(files_.size()) : 0;
    std::error_code none;
    std::vector<fs::path> older;
    const fs::path folder = fs::path(path_).parent_path();
    for (const auto& entry : fs::directory_iterator(folder.empty() ? "." : folder, none))
        if (PngSink::pageNumber(path_, (folder / entry.path().filename()).string()) > last && bearsMark(entry.path()))
            older.push_back(entry.path());
    if (last > 0 && bearsMark(path_)) older.emplace_back(path_);
    for (const fs::path& path : older) fs::remove(path, none);
}

void PngSink::Album::write(const Surface& picture, const std::string& path) {
    files_.push_back(std::make_unique<OutputFile>(path));
    Receiver receiver{*files_.back(), {}, headerSize};
    const cairo_status_t status = cairo_surface_write_to_png_stream(picture.get(), receive, &receiver);
    if (receiver.failure) std::rethrow_exception(receiver.failure);
    if (status != CAIRO_STATUS_SUCCESS)
        throw OutputError("Cannot write " + path + ": " + cairo_status_to_string(status));
    if (files_.size() > mostOpen) files_.back()->close();
}

std::string PngSink::Album::numberedPath() const {
    fs::path path(path_);
    path.replace_filename(path.stem().string() + "-" + std::to_string(files_.size() + 1) + path.extension().string());
    return path.string();
}

PngSink::PngSink(std::string path, double resolution, std::shared_ptr<TextShaper> shaper)
    : album_(std::make_unique<Album>(std::move(path), resolution, std::move(shaper))) {}
PngSink::~PngSink() = default;

int PngSink::pageNumber(const std::string& path, const std::string& other) {
    const fs::path first(path), second(other);
    const std::string start = first.stem().string() + "-", end = first.extension().string();
    const std::string name = second.filename().string();
    if (first.parent_path() != second.parent_path() || name.size() <= start.size() + end.size()) return 0;
    if (!name.starts_with(start) || !name.ends_with(end) || name[start.size()] == '0') return 0;
    int number = 0;
    const char* const last = name.data() + name.size() - end.size();
    const auto [stop, error] = std::from_chars(name.data() + start.size(), last, number);
    return error == std::errc{} && stop == last ? std::max(number, 0) : 0;
}

void PngSink::page(const Page& page) {
    album_->page(page);
}
void PngSink::finish() {
    album_->finish();
}

}  // namespace quillo
