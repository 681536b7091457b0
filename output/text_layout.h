#pragma once

#include <memory>
#include <string_view>

#include "framework/engine/page.h"
#include "output/text_shaper.h"

namespace quillo {

inline constexpr float twipsPerPoint = 20;

// One line of text where it prints. Left and baseline are twips from the page's corner.
struct PlacedLine {
    std::string_view text;  // what the glyphs' bytes count in
    const ShapedText* glyphs = nullptr;
    float left = 0, baseline = 0;
    float width = 0;     // twips, as printed
    float size = 0;      // points
    float condense = 1;  // horizontal scale
    float blankGap = 0;  // ems by which each blank is wider, before condensing: justified text
};

// Places the text of controls, so that all outputs agree. A line that is wider than its box is
// narrowed down to seven tenths; if that is not enough, a number is narrowed further, for no digit may
// be lost, and other text ends in an ellipsis. Lines that begin below the box do not print.
//
//     layout.start(control, left, top);
//     while (const PlacedLine* line = layout.next()) ...
class TextLayout {
public:
    explicit TextLayout(std::shared_ptr<TextShaper> shaper) : shaper_(std::move(shaper)) {}

    // The control must have a style. Its box has its corner at (left, top), twips from the page's corner.
    void start(const PlacedControl& control, float left, float top);
    // The next line, valid until the next call; null behind the last.
    const PlacedLine* next();

private:
    std::string_view takeText();
    void fit(float room);
    void endInEllipsis(float room);
    void align(Align align, float room);

    std::shared_ptr<TextShaper> shaper_;
    ShapedText shaped_;
    PlacedLine line_;
    const PlacedControl* control_ = nullptr;
    const Face* face_ = nullptr;
    std::size_t lineCount_ = 0, nextLine_ = 0;
    float left_ = 0, lineTop_ = 0, bottom_ = 0;
};

// Digits with separators, signs, currency signs and codes of up to three letters; dates too.
bool isNumber(std::string_view text);

}  // namespace quillo
