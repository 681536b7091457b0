#pragma once

#include <algorithm>
#include <string>
#include <string_view>

// Plain text as the library reads and writes it, whatever the locale of the process.
namespace quillo {

constexpr bool isBlank(char letter) {
    return letter == ' ' || (letter >= '\t' && letter <= '\r');
}

constexpr bool isDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

constexpr bool isLetter(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
}

// Without the blanks around it; points into the text.
constexpr std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

// Appends a number with zeros in front up to that many digits.
inline void appendDigits(std::string& out, unsigned value, std::size_t atLeast) {
    const std::size_t start = out.size();
    do {
        out += static_cast<char>('0' + value % 10);
        value /= 10;
    } while (value != 0 || out.size() - start < atLeast);
    std::reverse(out.begin() + static_cast<std::ptrdiff_t>(start), out.end());
}

}  // namespace quillo
