#include "output/pdf/pdf_pictures.h"

#include <string_view>

#include "output/picture.h"

namespace quillo {
namespace {

std::string_view chars(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

Bytes& beginEntries(Bytes& out, std::uint64_t width, std::uint64_t height, std::string_view space) {
    return out << "/Type/XObject/Subtype/Image/Width " << width << "/Height " << height
               << "/BitsPerComponent 8/ColorSpace" << space;
}

PdfPictures::Entry writeJpeg(std::span<const std::byte> picture, PdfFile& file) {
    const PictureHeader header = readJpegHeader(picture);
    const PdfPictures::Entry entry{file.reserve(), static_cast<float>(header.width), static_cast<float>(header.height)};
    Bytes entries;
    beginEntries(entries, header.width, header.height,
                 header.components == 1   ? "/DeviceGray"
                 : header.components == 3 ? "/DeviceRGB"
                                          : "/DeviceCMYK");
    if (header.components == 4) entries << "/Decode[1 0 1 0 1 0 1 0]";  // programs store inks inverted
    entries << "/Filter/DCTDecode";
    file.storedStream(entry.number, entries.view(), chars(picture));
    return entry;
}

// The picture in one format, whatever its file holds.
Surface samePixels(const Surface& source) {
    Surface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, cairo_image_surface_get_width(source.get()),
                                               cairo_image_surface_get_height(source.get())));
    const Handle<cairo_t, cairo_destroy> pen(cairo_create(surface.get()));
    cairo_set_source_surface(pen.get(), source.get(), 0, 0);
    cairo_paint(pen.get());
    cairo_surface_flush(surface.get());
    return surface;
}

PdfPictures::Entry writePng(std::span<const std::byte> picture, PdfFile& file) {
    const Surface surface = samePixels(readPng(picture));
    const int width = cairo_image_surface_get_width(surface.get()),
              height = cairo_image_surface_get_height(surface.get());
    Bytes colors, alphas;
    const unsigned char* rows = cairo_image_surface_get_data(surface.get());
    const int stride = cairo_image_surface_get_stride(surface.get());
    bool opaque = true;
    for (int y = 0; y < height; ++y) {
        const auto* row = reinterpret_cast<const std::uint32_t*>(rows + static_cast<std::ptrdiff_t>(y) * stride);
        for (int x = 0; x < width; ++x) {
            const std::uint32_t pixel = row[x], alpha = pixel >> 24;
            const auto plain = [&](int shift) {  // colours come multiplied by their alpha
                return static_cast<char>(alpha == 0 ? 255 : ((pixel >> shift & 0xFF) * 255 + alpha / 2) / alpha);
            };
            colors << plain(16) << plain(8) << plain(0);
            alphas << static_cast<char>(alpha);
            opaque = opaque && alpha == 255;
        }
    }
    const PdfPictures::Entry entry{file.reserve(), static_cast<float>(width), static_cast<float>(height)};
    const auto w = static_cast<std::uint64_t>(width), h = static_cast<std::uint64_t>(height);
    Bytes entries, maskEntries;
    beginEntries(entries, w, h, "/DeviceRGB");
    if (!opaque) {
        const std::uint32_t mask = file.reserve();
        entries << "/SMask " << mask << " 0 R";
        file.stream(mask, beginEntries(maskEntries, w, h, "/DeviceGray").view(), alphas.view());
    }
    file.stream(entry.number, entries.view(), colors.view());
    return entry;
}

}  // namespace

const PdfPictures::Entry& PdfPictures::find(std::span<const std::byte> picture, PdfFile& file) {
    for (const Seen& seen : seen_)
        if (seen.picture.data() == picture.data() && seen.picture.size() == picture.size()) return *seen.entry;
    const Key key{picture.size(), libdeflate_crc32(0, picture.data(), picture.size()),
                  libdeflate_adler32(1, picture.data(), picture.size())};
    auto known = entries_.find(key);
    if (known == entries_.end())
        known = entries_.emplace(key, isJpeg(picture) ? writeJpeg(picture, file) : writePng(picture, file)).first;
    seen_.push_back({picture, &known->second});
    return known->second;
}

void PdfPictures::appendNames(Bytes& out) const {
    for (const auto& [key, entry] : entries_) out << "/I" << entry.number << ' ' << entry.number << " 0 R";
}

}  // namespace quillo
