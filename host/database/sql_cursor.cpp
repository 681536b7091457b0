#include "host/database/sql_cursor.h"

#include <charconv>

#include "framework/values/errors.h"

namespace quillo::sql {
namespace {

std::string unquoted(std::string_view quoted) {
    std::string text;
    for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
        text += quoted[i];
        if (quoted[i] == '\'') ++i;
    }
    return text;
}

}  // namespace

Cursor::Cursor(std::string_view text, std::string subject) : text_(text), subject_(std::move(subject)) {
    moveTo(0);
}

Token Cursor::peek() const {
    return atEnd() ? Token{TokenKind::space, {}} : firstToken(rest());
}

void Cursor::moveTo(std::size_t position) {
    at_ = position;
    while (!atEnd() && peek().kind == TokenKind::space && !peek().isComment()) at_ += peek().text.size();
}

bool Cursor::take(std::string_view word) {
    const Token token = peek();
    if (token.is(word)) advance(token);
    return token.is(word);
}

bool Cursor::takeSymbol(std::string_view symbol) {
    const Token token = peek();
    if (token.isSymbol(symbol)) advance(token);
    return token.isSymbol(symbol);
}

std::string_view Cursor::expect(TokenKind kind, std::string_view what) {
    const Token token = peek();
    if (token.kind != kind) refuse(what);
    advance(token);
    return token.text;
}

bool Cursor::startsLiteral() const {
    const Token token = peek();
    return token.kind == TokenKind::text || token.kind == TokenKind::number || token.isSymbol("-");
}

Variant Cursor::literal() {
    const bool negative = takeSymbol("-");
    const Token token = peek();
    if (token.kind == TokenKind::text && !negative) {
        if (!token.closed) fail("the quote has no end");
        advance(token);
        return unquoted(token.text);
    }
    double number = 0;
    const char* const last = token.text.data() + token.text.size();
    if (token.kind != TokenKind::number) refuse("a value");
    const auto [end, error] = std::from_chars(token.text.data(), last, number);
    if (error != std::errc{} || end != last) refuse("a value");
    advance(token);
    return negative ? -number : number;
}

std::string_view Cursor::comparisonSign() {
    for (const std::string_view sign : {"=", "<>", "<=", ">=", "<", ">"})
        if (takeSymbol(sign)) return sign;
    refuse("a comparison");
}

void Cursor::refuse(std::string_view expected) const {
    fail(std::string(expected) + " is expected");
}

void Cursor::fail(std::string_view what) const {
    constexpr std::size_t shown = 24;
    const std::string place = atEnd() ? "at its end" : "at \"" + std::string(rest().substr(0, shown)) + "\"";
    throw InputError(subject_ + ", character " + std::to_string(at_ + 1) + ": " + std::string(what) + " " + place);
}

}  // namespace quillo::sql
