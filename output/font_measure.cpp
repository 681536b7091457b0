#include "output/font_measure.h"

#include <algorithm>

#include "framework/engine/page.h"
#include "output/text_layout.h"
#include "output/text_shaper.h"

namespace quillo {
namespace {

float twips(float ems, const TextStyle& style) {
    return ems * style.size * twipsPerPoint;
}

bool isBlank(char byte) {
    return byte == ' ' || byte == '\t';
}

}  // namespace

FontMeasure::FontMeasure(std::shared_ptr<TextShaper> shaper)
    : shaper_(std::move(shaper)), shaped_(std::make_unique<ShapedText>()) {}
FontMeasure::~FontMeasure() = default;

float FontMeasure::lineHeight(const TextStyle& style) {
    return twips(shaper_->face(style).lineHeight(), style);
}

float FontMeasure::baseline(const TextStyle& style) {
    return twips(shaper_->face(style).baseline(), style);
}

float FontMeasure::width(std::string_view text, const TextStyle& style) {
    shape(text, style);
    return twips(shaped_->width(), style);
}

void FontMeasure::breakLines(std::string_view text, const TextStyle& style, float width,
                             std::vector<std::uint32_t>& starts) {
    shape(text, style);
    glyph_ = 0;
    const float room = std::max(width, 0.0F) / twips(1, style);
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        breakParagraph(text, static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(end), room, starts);
        start = end + 1;
    }
}

// Puts glyphs on the line until one is too much; the line then ends behind its last blank, else before
// that glyph. Blanks may hang over the edge.
void FontMeasure::breakParagraph(std::string_view text, std::uint32_t start, std::uint32_t end, float width,
                                 std::vector<std::uint32_t>& starts) {
    constexpr float tolerance = 1e-4F;
    starts.push_back(start);
    float used = 0, sinceBlank = 0;
    std::uint32_t line = start, afterBlank = start;
    for (; glyph_ < shaped_->glyphs.size() && shaped_->glyphs[glyph_].from < end; ++glyph_) {
        const Glyph& glyph = shaped_->glyphs[glyph_];
        used += glyph.advance;
        if (isBlank(text[glyph.from])) {
            afterBlank = glyph.to;
            sinceBlank = 0;
            continue;
        }
        sinceBlank += glyph.advance;
        if (used <= width + tolerance) continue;
        if (afterBlank > line) {
            line = afterBlank;
            used = sinceBlank;
        }
        const bool splits = used > width + tolerance && glyph.to > glyph.from && glyph.from > line;
        if (splits) {
            if (line != starts.back()) starts.push_back(line);
            line = glyph.from;
            used = sinceBlank = glyph.advance;
        }
        if (line != starts.back()) starts.push_back(line);
    }
    while (glyph_ < shaped_->glyphs.size() && shaped_->glyphs[glyph_].from == end) ++glyph_;  // the line feed itself
}

void FontMeasure::shape(std::string_view text, const TextStyle& style) {
    shaped_->clear();
    shaper_->shape(text, shaper_->face(style), *shaped_);
}

}  // namespace quillo
