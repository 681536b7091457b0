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

// The start of the character that holds the byte at pos, which is one of the text's; pos itself in damage.
inline std::size_t startOfCharacter(std::string_view text, std::size_t pos) {
    const auto goesOn = [&](std::size_t at) { return (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80; };
    std::size_t start = pos;
    while (start > 0 && pos - start < 3 && goesOn(start)) --start;
    return goesOn(start) ? pos : start;
}

void appendUtf8(char32_t character, std::string& text);

}  // namespace quillo
