#pragma once

#include <string_view>

namespace quillo {

// SQL's LIKE: % stands for any characters, _ for one; without regard to case. escape: the one
// character that takes their meaning away, or empty.
bool matchesLike(std::string_view text, std::string_view pattern, std::string_view escape = "");

}  // namespace quillo
