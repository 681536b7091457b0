#pragma once

#include <string>
#include <string_view>

namespace quillo {

// Whether a terminal or a reader would do something else with a character than show it: control characters of both
// sets, DEL, the marks that turn the direction of writing, line and paragraph separators, and damaged bytes.
bool isControl(char32_t character);

// A text as one line that a terminal may be given: each such character as U+FFFD, and a blank for each of the blanks
// that are not " ".
std::string printable(std::string_view text);

}  // namespace quillo
