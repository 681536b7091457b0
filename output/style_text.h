#pragma once

#include <string>
#include <string_view>

#include "framework/engine/page.h"

namespace quillo {

std::string_view nameOf(Align align);  // "left", "center", "right" or "justify", as designs write it

// As designs write it: "#rrggbb".
std::string colorText(Color color);

// How a text looks, in a word or a few: the size in points and what differs from plain black text, such as "9 bold",
// "8 italic wrap #555555" or "9 Liberation Serif middle on #ffe0e0". The alignment is not part of it.
std::string styleText(const TextStyle& style);

}  // namespace quillo
