#include "output/picture.h"

#include <algorithm>
#include <cstring>

#include "output/output_error.h"

namespace quillo {
namespace {

unsigned byteAt(std::span<const std::byte> file, std::size_t pos) {
    if (pos >= file.size()) throw OutputError("A JPEG picture is damaged: it ends within its header");
    return std::to_integer<unsigned>(file[pos]);
}

unsigned wordAt(std::span<const std::byte> file, std::size_t pos) {
    return byteAt(file, pos) << 8 | byteAt(file, pos + 1);
}

// Of the frame markers, those that are none: tables, extensions and arithmetic conditioning.
bool startsFrame(unsigned marker) {
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

cairo_status_t readBytes(void* from, unsigned char* to, unsigned count) {
    auto& rest = *static_cast<std::span<const std::byte>*>(from);
    if (rest.size() < count) return CAIRO_STATUS_READ_ERROR;
    std::memcpy(to, rest.data(), count);
    rest = rest.subspan(count);
    return CAIRO_STATUS_SUCCESS;
}

}  // namespace

bool isJpeg(std::span<const std::byte> file) {
    return file.size() > 3 && wordAt(file, 0) == 0xFFD8;
}

JpegHeader readJpegHeader(std::span<const std::byte> file) {
    for (std::size_t pos = 2;; pos += 2 + wordAt(file, pos + 2)) {
        if (byteAt(file, pos) != 0xFF) throw OutputError("A JPEG picture is damaged at byte " + std::to_string(pos));
        while (byteAt(file, pos + 1) == 0xFF) ++pos;
        if (!startsFrame(byteAt(file, pos + 1))) continue;
        const JpegHeader header{wordAt(file, pos + 7), wordAt(file, pos + 5), static_cast<int>(byteAt(file, pos + 9))};
        const bool known = header.components == 1 || header.components == 3 || header.components == 4;
        if (header.width == 0 || header.height == 0 || !known) throw OutputError("A JPEG picture has no size");
        return header;
    }
}

Surface readPng(std::span<const std::byte> file) {
    Surface surface(cairo_image_surface_create_from_png_stream(readBytes, &file));
    const cairo_status_t status = cairo_surface_status(surface.get());
    if (status != CAIRO_STATUS_SUCCESS)
        throw OutputError(std::string("A picture cannot be read: ") + cairo_status_to_string(status));
    return surface;
}

Box fitInto(const Box& box, float width, float height) {
    const float scale = std::min(box.width / width, box.height / height);
    const float ownWidth = width * scale, ownHeight = height * scale;
    return {box.left + (box.width - ownWidth) / 2, box.top + (box.height - ownHeight) / 2, ownWidth, ownHeight};
}

}  // namespace quillo
