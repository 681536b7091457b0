#pragma once

#include <string_view>

#include "framework/richtext/rich_text.h"

namespace quillo {

// Reads a text that is RTF, or plain text with a paragraph a line. base: how a text looks of which the file says
// nothing.
//
// No file is refused. What is not understood is left out and the text within it kept; groups that a reader may ignore
// ({\*\...}), damaged pictures and pictures that are neither PNG nor JPEG are left out whole. Measures beyond any paper
// are cut to what a page can hold.
RichText readRichText(std::string_view text, const TextStyle& base);

}  // namespace quillo
