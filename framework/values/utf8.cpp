#include "framework/values/utf8.h"

namespace quillo {
namespace {

constexpr char32_t damaged = 0xFFFD;

// The smallest character that may take 2, 3 or 4 bytes: shorter ones in longer forms are damage.
constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};

std::size_t lengthOf(unsigned char lead) {
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    if (lead >= 0xF0 && lead < 0xF5) return 4;
    return 0;
}

}  // namespace

char32_t nextLongCharacter(std::string_view text, std::size_t& pos) {
    const auto lead = static_cast<unsigned char>(text[pos++]);
    const std::size_t length = lengthOf(lead);
    if (length == 0 || pos - 1 + length > text.size()) return damaged;
    char32_t character = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 0; i + 1 < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[pos + i]);
        if ((byte & 0xC0) != 0x80) return damaged;
        character = character << 6 | (byte & 0x3FU);
    }
    const bool surrogate = character >= 0xD800 && character < 0xE000;
    if (character < smallest[length] || character > 0x10FFFF || surrogate) return damaged;
    pos += length - 1;
    return character;
}

void appendUtf8(char32_t character, std::string& text) {
    const auto tail = [&](int shift) { text.push_back(static_cast<char>(0x80 | (character >> shift & 0x3F))); };
    if (character < 0x80) {
        text.push_back(static_cast<char>(character));
    } else if (character < 0x800) {
        text.push_back(static_cast<char>(0xC0 | character >> 6));
        tail(0);
    } else if (character < 0x10000) {
        text.push_back(static_cast<char>(0xE0 | character >> 12));
        tail(6), tail(0);
    } else {
        text.push_back(static_cast<char>(0xF0 | character >> 18));
        tail(12), tail(6), tail(0);
    }
}

}  // namespace quillo
