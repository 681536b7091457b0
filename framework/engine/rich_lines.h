#pragma once

#include <string_view>
#include <vector>

#include "framework/engine/text_measure.h"
#include "framework/richtext/rich_text.h"

namespace quillo {

// What stands on a line in one look: a part of a run's text, or its picture.
struct RichPiece {
    const RichRun* run = nullptr;
    std::string_view text;
    float left = 0, width = 0;  // left from the edge of the room
    float height = 0;           // of a picture
};

// A line of a paragraph. Its pieces stand on one baseline.
struct RichLine {
    std::vector<RichPiece> pieces;
    float ascent = 0, height = 0;  // the baseline's distance from its top; as a whole
};

// The room that a paragraph has.
struct RichRoom {
    float left = 0, right = 0;
    float mostHeight = 0;  // of a picture
};

// Breaks a paragraph into lines: at line feeds, else at blanks, else within a word that is wider than the room. The
// paragraph must outlive its lines, of which there is at least one.
std::vector<RichLine> breakParagraph(const RichParagraph& paragraph, const RichRoom& room, TextMeasure& measure);

}  // namespace quillo
