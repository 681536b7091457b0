#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillo {

// The character that starts at pos, which moves behind it. Damaged bytes give U+FFFD, one each.
char32_t nextCharacter(std::string_view text, std::size_t& pos);

void appendUtf8(char32_t character, std::string& text);

}  // namespace quillo
