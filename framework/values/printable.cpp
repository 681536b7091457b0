#include "framework/values/printable.h"

#include "framework/values/text.h"
#include "framework/values/utf8.h"

namespace quillo {

bool isControl(char32_t character) {
    const auto within = [character](char32_t first, char32_t last) { return first <= character && character <= last; };
    return character < 0x20 || within(0x7F, 0x9F) || character == 0x061C || within(0x200E, 0x200F) ||
           within(0x2028, 0x202E) || within(0x2066, 0x2069);
}

std::string printable(std::string_view text) {
    constexpr char32_t replacement = 0xFFFD;
    std::string line;
    line.reserve(text.size());
    for (std::size_t pos = 0; pos < text.size();) {
        if (isBlank(text[pos])) {
            line += ' ';
            ++pos;
            continue;
        }
        const char32_t character = nextCharacter(text, pos);
        appendUtf8(isControl(character) ? replacement : character, line);
    }
    return line;
}

}  // namespace quillo
