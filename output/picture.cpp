#include "output/picture.h"

#include <algorithm>
#include <cstring>

#include "output/output_error.h"

namespace quillo {
namespace {

cairo_status_t readBytes(void* from, unsigned char* to, unsigned count) {
    auto& rest = *static_cast<std::span<const std::byte>*>(from);
    if (rest.size() < count) return CAIRO_STATUS_READ_ERROR;
    std::memcpy(to, rest.data(), count);
    rest = rest.subspan(count);
    return CAIRO_STATUS_SUCCESS;
}

}  // namespace

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
