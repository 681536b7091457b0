#include "host/database/sql_token.h"

#include <algorithm>

#include "framework/values/names.h"
#include "framework/values/text.h"

namespace quillo::sql {
namespace {

bool startsWord(char c) {
    return isLetter(c) || c == '_' || c == '@' || c == '#' || static_cast<unsigned char>(c) >= 0x80;
}
bool continuesWord(char c) {
    return startsWord(c) || isDigit(c) || c == '$';
}

template <class Test>
std::size_t runLength(std::string_view text, Test test) {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), test) - text.begin());
}

// Up to the closing sign; the sign doubled stands for itself.
Token enclosed(std::string_view text, TokenKind kind, char close) {
    for (std::size_t at = 1; at < text.size(); ++at) {
        if (text[at] != close) continue;
        if (at + 1 < text.size() && text[at + 1] == close && close != ']') {
            ++at;
        } else {
            return {kind, text.substr(0, at + 1)};
        }
    }
    return {kind, text, false};
}

Token comment(std::string_view text) {
    if (text.starts_with("--")) return {TokenKind::space, text.substr(0, text.find('\n'))};
    const auto end = text.find("*/", 2);
    if (end == std::string_view::npos) return {TokenKind::space, text, false};
    return {TokenKind::space, text.substr(0, end + 2)};
}

Token number(std::string_view text) {
    std::size_t length = runLength(text, isDigit);
    if (length < text.size() && text[length] == '.') length += 1 + runLength(text.substr(length + 1), isDigit);
    if (length < text.size() && lowerLetter(text[length]) == 'e') {
        const std::size_t sign =
            length + 1 < text.size() && (text[length + 1] == '+' || text[length + 1] == '-') ? 1 : 0;
        const std::size_t digits = runLength(text.substr(std::min(text.size(), length + 1 + sign)), isDigit);
        if (digits > 0) length += 1 + sign + digits;
    }
    return {TokenKind::number, text.substr(0, length)};
}

Token symbol(std::string_view text) {
    static constexpr std::string_view pairs[] = {"<>", "<=", ">=", "!=", "==", "||", "<<", ">>"};
    const auto two = text.substr(0, 2);
    const bool pair = std::find(std::begin(pairs), std::end(pairs), two) != std::end(pairs);
    return {TokenKind::symbol, pair ? two : text.substr(0, 1)};
}

}  // namespace

Token firstToken(std::string_view text) {
    const char first = text.front();
    if (isBlank(first)) return {TokenKind::space, text.substr(0, runLength(text, isBlank))};
    if (text.starts_with("--") || text.starts_with("/*")) return comment(text);
    if (startsWord(first)) return {TokenKind::word, text.substr(0, runLength(text, continuesWord))};
    if (isDigit(first) || (first == '.' && text.size() > 1 && isDigit(text[1]))) return number(text);
    switch (first) {
        case '\'':
            return enclosed(text, TokenKind::text, '\'');
        case '"':
            return enclosed(text, TokenKind::quoted, '"');
        case '`':
            return enclosed(text, TokenKind::quoted, '`');
        case '[':
            return enclosed(text, TokenKind::quoted, ']');
        case '?':
            return {TokenKind::mark, text.substr(0, 1)};
        default:
            return symbol(text);
    }
}

bool Token::is(std::string_view word) const {
    return kind == TokenKind::word && equalNames(text, word);
}

bool Token::isComment() const {
    return kind == TokenKind::space && (text.starts_with("--") || text.starts_with("/*"));
}

std::vector<Token> tokens(std::string_view text) {
    std::vector<Token> result;
    while (!text.empty()) {
        result.push_back(firstToken(text));
        text.remove_prefix(result.back().text.size());
    }
    return result;
}

}  // namespace quillo::sql
