#pragma once

#include <cairo/cairo.h>

#include <cstddef>
#include <span>

#include "framework/values/picture_file.h"
#include "output/canvas.h"
#include "output/handle.h"

namespace quillo {

using Surface = Handle<cairo_surface_t, cairo_surface_destroy>;

// A PNG file as pixels. Throws OutputError when the file is none, or damaged.
Surface readPng(std::span<const std::byte> file);

// The largest box with these proportions that the box holds, in its middle.
Box fitInto(const Box& box, float width, float height);

}  // namespace quillo
