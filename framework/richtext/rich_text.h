#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "framework/engine/page.h"

// A formatted text as plain data: what a reader of a format gives and the layout takes. Measures are twips.
namespace quillo {

// A stretch of one look: a text, or a picture.
struct RichRun {
    TextStyle style;
    std::string text;                // UTF-8; a tab goes to the next stop, a line feed ends the line
    std::vector<std::byte> picture;  // a PNG or JPEG file; empty: a text
    float width = 0, height = 0;     // of the picture
};

struct TabStop {
    float at = 0;
    Align align = Align::left;  // what of the text stands at it: its left end, middle or right end
};

struct RichParagraph {
    Align align = Align::left;
    float left = 0, right = 0;  // indents
    float first = 0;            // what the first line is indented more than the others
    float before = 0, after = 0;
    bool keepNext = false;      // stays on the page of the paragraph below
    std::vector<TabStop> tabs;  // ascending
    TextStyle style;            // of the line that it has without any text
    std::vector<RichRun> runs;
};

struct RichCell {
    float left = 0, right = 0;              // its edges, from the text's left edge
    float ruleAbove = 0, ruleBelow = 0;     // widths; 0: none
    std::vector<RichParagraph> paragraphs;  // one or more
};

struct RichRow {
    bool heading = false;  // stands again where its table goes on on another page
    float gap = 0;         // between a cell's edge and its text
    std::vector<RichCell> cells;
};

// A paragraph, or a row of a table where there are cells.
struct RichBlock {
    RichParagraph paragraph;
    RichRow row;
    bool isRow() const { return !row.cells.empty(); }
};

using RichText = std::vector<RichBlock>;

}  // namespace quillo
