#include "output/png/cairo_canvas.h"

#include <cairo/cairo-ft.h>

#include <numbers>

namespace quillo {
namespace {

constexpr Color pictureColor{225, 225, 225};

void addBox(cairo_t* pen, const Box& box) {
    cairo_rectangle(pen, box.left, box.top, box.width, box.height);
}

}  // namespace

// Cairo opens the file by itself, so that its font lives as long as Cairo's own caches want.
cairo_font_face_t* CairoFonts::face(const Face& face) {
    auto& known = faces_[face.id()];
    if (known) return known.get();
    const Handle<FcPattern, FcPatternDestroy> pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FILE, reinterpret_cast<const FcChar8*>(face.file().c_str()));
    FcPatternAddInteger(pattern.get(), FC_INDEX, face.index());
    known.reset(cairo_ft_font_face_create_for_pattern(pattern.get()));
    return known.get();
}

CairoCanvas::CairoCanvas(cairo_surface_t* surface, double scale, CairoFonts& fonts)
    : pen_(cairo_create(surface)), fonts_(fonts) {
    cairo_scale(pen_.get(), scale, scale);
    const Handle<cairo_font_options_t, cairo_font_options_destroy> options(cairo_font_options_create());
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
    cairo_set_font_options(pen_.get(), options.get());
}

void CairoCanvas::setColor(Color color) {
    cairo_set_source_rgb(pen_.get(), color.red / 255.0, color.green / 255.0, color.blue / 255.0);
}

void CairoCanvas::fill(const Box& box, Color color) {
    setColor(color);
    addBox(pen_.get(), box);
    cairo_fill(pen_.get());
}

void CairoCanvas::frame(const Box& box, float lineWidth, Color color) {
    setColor(color);
    cairo_set_line_width(pen_.get(), lineWidth);
    addBox(pen_.get(), box);
    cairo_stroke(pen_.get());
}

void CairoCanvas::sector(const Box& box, float start, float sweep, Color color) {
    constexpr double degree = std::numbers::pi / 180;
    setColor(color);
    cairo_save(pen_.get());
    cairo_translate(pen_.get(), box.left + box.width / 2, box.top + box.height / 2);
    cairo_scale(pen_.get(), box.width / 2, box.height / 2);
    cairo_move_to(pen_.get(), 0, 0);
    cairo_arc(pen_.get(), 0, 0, 1, (start - 90) * degree, (start + sweep - 90) * degree);
    cairo_close_path(pen_.get());
    cairo_restore(pen_.get());
    cairo_fill(pen_.get());
}

void CairoCanvas::line(Point from, Point to, float lineWidth, Color color) {
    setColor(color);
    cairo_set_line_width(pen_.get(), lineWidth);
    cairo_move_to(pen_.get(), from.x, from.y);
    cairo_line_to(pen_.get(), to.x, to.y);
    cairo_stroke(pen_.get());
}

void CairoCanvas::text(const PlacedLine& line, Color color) {
    setColor(color);
    const double em = line.size * twipsPerPoint;
    double x = 0;  // ems from the line's start, before condensing
    for (const GlyphRun& run : line.glyphs->runs) {
        glyphs_.clear();
        for (std::uint32_t i = run.first; i < run.first + run.count; ++i) {
            const Glyph& glyph = line.glyphs->glyphs[i];
            glyphs_.push_back({glyph.index, (x + glyph.dx) * em, -glyph.dy * em});
            x += glyph.advance + (glyph.slot == 0 ? line.blankGap : 0);
        }
        cairo_save(pen_.get());
        cairo_translate(pen_.get(), line.left, line.baseline);
        cairo_scale(pen_.get(), line.condense, 1);
        cairo_set_font_face(pen_.get(), fonts_.face(*run.face));
        cairo_set_font_size(pen_.get(), em);
        cairo_show_glyphs(pen_.get(), glyphs_.data(), static_cast<int>(glyphs_.size()));
        cairo_restore(pen_.get());
    }
}

void CairoCanvas::picture(const Box& box, std::span<const std::byte> file) {
    if (isJpeg(file)) {  // Cairo cannot decode it: its place is shown
        const PictureHeader header = readJpegHeader(file);
        fill(fitInto(box, static_cast<float>(header.width), static_cast<float>(header.height)), pictureColor);
        return;
    }
    const Surface picture = readPng(file);
    const auto width = static_cast<float>(cairo_image_surface_get_width(picture.get()));
    const Box own = fitInto(box, width, static_cast<float>(cairo_image_surface_get_height(picture.get())));
    cairo_save(pen_.get());
    cairo_translate(pen_.get(), own.left, own.top);
    cairo_scale(pen_.get(), own.width / width, own.width / width);
    cairo_set_source_surface(pen_.get(), picture.get(), 0, 0);
    cairo_pattern_set_extend(cairo_get_source(pen_.get()), CAIRO_EXTEND_PAD);  // else an enlarged picture's edges fade
    cairo_rectangle(pen_.get(), 0, 0, width, own.height / own.width * width);
    cairo_fill(pen_.get());
    cairo_restore(pen_.get());
}

}  // namespace quillo
