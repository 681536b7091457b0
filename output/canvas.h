#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "framework/engine/page.h"
#include "output/text_layout.h"

namespace quillo {

// A box on the page, twips from its left top corner.
struct Box {
    float left = 0, top = 0, width = 0, height = 0;
    float right() const { return left + width; }
    float bottom() const { return top + height; }
};

struct Point {
    float x = 0, y = 0;
};

// What a page is drawn on. Places and widths are in twips.
class Canvas {
public:
    virtual ~Canvas() = default;
    virtual void fill(const Box& box, Color color) = 0;
    virtual void frame(const Box& box, float lineWidth, Color color) = 0;
    // A sector of the ellipse that the box holds, filled: degrees clockwise from the top.
    virtual void sector(const Box& box, float start, float sweep, Color color) = 0;
    virtual void line(Point from, Point to, float lineWidth, Color color) = 0;
    virtual void text(const PlacedLine& line, Color color) = 0;
    // A PNG or JPEG file, as large as the box allows without distortion. Throws OutputError when it is damaged.
    virtual void picture(const Box& box, std::span<const std::byte> file) = 0;

    // What only some outputs can show.
    virtual void pageCount(const PlacedLine& /*behind*/, Color) {}  // the number of pages, which is known in the end
    virtual void link(const Box&, std::string_view /*tag*/) {}
    virtual void bookmark(int /*level*/, std::string_view /*title*/, float /*top*/) {}
    virtual void beginArtifact(SectionKind) {}  // page headers and footers: not part of what the document says
    virtual void endArtifact() {}
};

}  // namespace quillo
