#pragma once

#include <span>
#include <string>

#include "framework/engine/page.h"
#include "framework/engine/text_measure.h"
#include "framework/richtext/rich_text.h"

namespace quillo {

// Where a rich text is laid out.
struct RichPlace {
    RunNames& names;
    Arena& arena;
    TextMeasure& measure;
    float width = 0;
    float mostHeight = 0;  // of a picture
};

// Lays out a rich text as the sections of a sub-report: one for each line ("Paragraph" the first of a paragraph, "Line"
// the others) and each row of a table ("Row"), in them a control for each run: "Text", "Picture", "Rule". The captions
// of a table ("Captions") stand again where it is split.
std::span<const PlacedSection> layOutRichText(const RichText& text, const RichPlace& place);

// The words of a rich text's control, in their order: paragraphs and rows apart by line feeds.
std::string wordsOf(const PlacedControl& control);

}  // namespace quillo
