#pragma once

#include <cairo/cairo.h>

#include <cstddef>
#include <span>
#include <vector>

#include "output/picture.h"
#include "tests/output/output_files.h"

namespace quillo::test {

// Four by two pixels, half of them clear.
inline std::vector<std::byte> redPng() {
    const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 4, 2));
    const Handle<cairo_t, cairo_destroy> pen(cairo_create(surface.get()));
    cairo_set_source_rgb(pen.get(), 1, 0, 0);
    cairo_rectangle(pen.get(), 0, 0, 2, 2);
    cairo_fill(pen.get());
    std::vector<std::byte> file;
    const auto take = [](void* to, const unsigned char* bytes, unsigned count) {
        const auto part = std::as_bytes(std::span(bytes, count));
        static_cast<std::vector<std::byte>*>(to)->insert(static_cast<std::vector<std::byte>*>(to)->end(), part.begin(),
                                                         part.end());
        return CAIRO_STATUS_SUCCESS;
    };
    cairo_surface_write_to_png_stream(surface.get(), take, &file);
    return file;
}

// A picture of three by two pixels, made from a page's corner.
inline std::vector<std::byte> smallJpeg() {
    const TestFolder folder;
    PageBuilder builder;
    printPdf(builder.page(), folder.file("empty.pdf"));
    run("pdftoppm -jpeg -singlefile -x 0 -y 0 -W 3 -H 2 " + folder.file("empty.pdf") + " " + folder.file("small"));
    const std::string file = read(folder.file("small.jpg"));
    const auto bytes = std::as_bytes(std::span(file));
    return {bytes.begin(), bytes.end()};
}

}  // namespace quillo::test
