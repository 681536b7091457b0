#pragma once

#include <string_view>
#include <vector>

// The pieces of an SQL text. Their texts point into the text given and, put side by side, are that
// text again.
namespace quillo::sql {

enum class TokenKind {
    space,   // blanks and comments
    word,    // a keyword or a plain name
    quoted,  // a name in double quotes, brackets or back quotes
    text,    // a literal in single quotes
    number,
    mark,    // the "?" of a parameter
    symbol,  // an operator, a comma, a point, a parenthesis
};

struct Token {
    TokenKind kind;
    std::string_view text;
    bool closed = true;  // false: a literal, a name or a comment that has no end

    // Compares a word without case; false for every other kind.
    bool is(std::string_view word) const;
    bool isSymbol(std::string_view symbol) const { return kind == TokenKind::symbol && text == symbol; }
    bool isComment() const;
};

std::vector<Token> tokens(std::string_view text);
// The first of them; the text must not be empty.
Token firstToken(std::string_view text);

}  // namespace quillo::sql
