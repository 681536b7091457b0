#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

// Names of columns, sections, controls and properties compare without case (ASCII letters).
namespace quillo {

constexpr char lowerLetter(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

inline bool equalNames(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return lowerLetter(x) == lowerLetter(y); });
}

inline std::string foldedName(std::string_view name) {
    std::string folded(name);
    std::transform(folded.begin(), folded.end(), folded.begin(), lowerLetter);
    return folded;
}

// True when text holds part, without regard to case.
inline bool containsName(std::string_view text, std::string_view part) {
    return std::search(text.begin(), text.end(), part.begin(), part.end(),
                       [](char x, char y) { return lowerLetter(x) == lowerLetter(y); }) != text.end();
}

struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const {
        std::size_t hash = 14695981039346656037ULL;
        for (const char letter : name)
            hash = (hash ^ static_cast<unsigned char>(lowerLetter(letter))) * 1099511628211ULL;
        return hash;
    }
};

struct NameEqual {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const { return equalNames(a, b); }
};

}  // namespace quillo
