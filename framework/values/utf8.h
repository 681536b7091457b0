#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillo {

// The character of several bytes, or the damage, that starts at pos.
char32_t nextLongCharacter(std::string_view text, std::size_t& pos);

// The character that starts at pos, which moves behind it. Damaged bytes give U+FFFD, one each.
inline char32_t nextCharacter(std::string_view text, std::size_t& pos) {
    const auto byte = static_cast<unsigned char>(text[pos]);
    if (byte >= 0x80) return nextLongCharacter(text, pos);
    ++pos;
    return byte;
}

void appendUtf8(char32_t character, std::string& text);

}  // namespace quillo
