#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace quillo {

struct TextStyle;

// How wide and high text is. Filled by the output layer, so that the engine knows no font library.
// One measurer serves one run at a time.
class TextMeasure {
public:
    virtual ~TextMeasure() = default;
    // Height of one line in twips.
    virtual float lineHeight(const TextStyle& style) = 0;
    // From the top of a line to where its letters stand, in twips.
    virtual float baseline(const TextStyle& style) { return lineHeight(style) * 0.8F; }
    // Width of a text on one line in twips.
    virtual float width(std::string_view text, const TextStyle& style) = 0;
    // Breaks the text into lines no wider than width (twips): at line feeds, else at blanks, else
    // within a word that is wider than the line. Appends the byte offset where each line starts (the
    // first is 0; none for an empty text). Blanks at a break belong to the line before.
    virtual void breakLines(std::string_view text, const TextStyle& style, float width,
                            std::vector<std::uint32_t>& starts) = 0;
};

}  // namespace quillo
