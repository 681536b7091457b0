#pragma once

#include <cairo/cairo.h>

#include <cstddef>
#include <cstdint>
#include <span>

#include "output/canvas.h"
#include "output/handle.h"

namespace quillo {

using Surface = Handle<cairo_surface_t, cairo_surface_destroy>;

// What the header of a JPEG file says.
struct JpegHeader {
    std::uint32_t width = 0, height = 0;  // pixels
    int components = 0;                   // 1 gray, 3 colour, 4 the four printing inks
};

bool isJpeg(std::span<const std::byte> file);
// Throws OutputError when the header is damaged.
JpegHeader readJpegHeader(std::span<const std::byte> file);
// A PNG file as pixels. Throws OutputError when the file is none, or damaged.
Surface readPng(std::span<const std::byte> file);

// The largest box with these proportions that the box holds, in its middle.
Box fitInto(const Box& box, float width, float height);

}  // namespace quillo
