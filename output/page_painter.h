#pragma once

#include <memory>
#include <span>

#include "output/canvas.h"
#include "output/text_layout.h"

namespace quillo {

// Draws everything on a page, in print order: the one walk that all drawing outputs share.
class PagePainter {
public:
    explicit PagePainter(std::shared_ptr<TextShaper> shaper) : layout_(std::move(shaper)) {}
    void paint(const Page& page, Canvas& canvas);

private:
    void paintSections(std::span<const PlacedSection> sections, Point corner, Canvas& canvas);
    void paintControl(const PlacedControl& control, Point corner, Canvas& canvas);
    void paintText(const PlacedControl& control, Point corner, Canvas& canvas);

    TextLayout layout_;
};

}  // namespace quillo
