#pragma once

#include <string_view>

// The order of all text of a company: root order of the languages, without regard to case, width and
// trailing blanks; accents decide only between words that are otherwise equal.
namespace quillo {

// Below, equal to or above 0, as a stands before, beside or after b. May be called on any thread.
int compareText(std::string_view a, std::string_view b);

}  // namespace quillo
