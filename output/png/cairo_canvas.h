#pragma once

#include <cairo/cairo.h>

#include <map>
#include <vector>

#include "output/canvas.h"
#include "output/picture.h"

namespace quillo {

// The installed fonts as Cairo knows them, shared by the pages of a document.
class CairoFonts {
public:
    cairo_font_face_t* face(const Face& face);

private:
    std::map<std::uint32_t, Handle<cairo_font_face_t, cairo_font_face_destroy>> faces_;  // by the face's id
};

// Draws on any Cairo surface. The surface and the fonts must outlive the canvas.
class CairoCanvas final : public Canvas {
public:
    // Scale is the surface's units (pixels) to the twip.
    CairoCanvas(cairo_surface_t* surface, double scale, CairoFonts& fonts);

    void fill(const Box& box, Color color) override;
    void frame(const Box& box, float lineWidth, Color color) override;
    void sector(const Box& box, float start, float sweep, Color color) override;
    void line(Point from, Point to, float lineWidth, Color color) override;
    void text(const PlacedLine& line, Color color) override;
    void picture(const Box& box, std::span<const std::byte> file) override;

private:
    void setColor(Color color);

    Handle<cairo_t, cairo_destroy> pen_;
    CairoFonts& fonts_;
    std::vector<cairo_glyph_t> glyphs_;
};

}  // namespace quillo
