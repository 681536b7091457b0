#include "host/database/like.h"

#include <unicode/uchar.h>

#include "framework/values/errors.h"

namespace quillo {
namespace {

// Next character without its case, or -1 at the end. A byte that is no UTF-8 stands for itself.
UChar32 next(std::string_view& text) {
    if (text.empty()) return -1;
    const auto first = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    if (first < 0x80) return first >= 'A' && first <= 'Z' ? first + ('a' - 'A') : first;
    const std::size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
    UChar32 character = first & (0x3F >> more);
    for (std::size_t i = 0; i < more; ++i) {
        if (i == text.size() || (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) return first;
        character = (character << 6) | (text[i] & 0x3F);
    }
    text.remove_prefix(more);
    return u_foldCase(character, U_FOLD_CASE_DEFAULT);
}

}  // namespace

bool matchesLike(std::string_view text, std::string_view pattern, std::string_view escape, const sqlite::Watch* watch) {
    constexpr unsigned charactersBetweenLooks = 1 << 20;
    unsigned looked = 0;
    std::string_view escapeText = escape;
    const UChar32 escapeMark = next(escapeText);
    // Where the last % was, to try again with one character more behind it.
    bool retry = false;
    std::string_view retryText;
    std::string_view retryPattern;
    while (true) {
        if (++looked % charactersBetweenLooks == 0 && watch != nullptr && watch->over()) throw RunStopped();
        std::string_view patternRest = pattern;
        UChar32 wanted = next(patternRest);
        if (wanted == '%' && escapeMark != '%') {
            retry = true;
            retryText = text;
            retryPattern = pattern = patternRest;
            continue;
        }
        if (wanted == -1 && text.empty()) return true;
        bool literal = false;
        if (wanted != -1 && wanted == escapeMark) {
            wanted = next(patternRest);
            literal = true;
        }
        std::string_view textRest = text;
        const UChar32 found = next(textRest);
        if (wanted != -1 && found != -1 && (wanted == found || (wanted == '_' && !literal))) {
            text = textRest;
            pattern = patternRest;
            continue;
        }
        if (!retry || next(retryText) == -1) return false;
        text = retryText;
        pattern = retryPattern;
    }
}

}  // namespace quillo
