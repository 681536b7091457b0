#pragma once

#include <string>
#include <string_view>

#include "framework/values/variant.h"
#include "host/database/sql_token.h"

namespace quillo::sql {

// Reads a text token by token, blanks skipped, for small grammars. Failures are InputError and tell the
// character, from 1, and what stands there. The text must outlive it.
class Cursor {
public:
    // subject: what the text is, for failures ("The filter's condition").
    Cursor(std::string_view text, std::string subject);

    bool atEnd() const { return at_ >= text_.size(); }
    std::size_t position() const { return at_; }
    // The token here; a space without text at the end.
    Token peek() const;
    void advance(const Token& token) { moveTo(at_ + token.text.size()); }
    void moveTo(std::size_t position);
    // Take what is wanted when it stands here.
    bool take(std::string_view word);
    bool takeSymbol(std::string_view symbol);
    // The text of a token of that kind; refuses every other one.
    std::string_view expect(TokenKind kind, std::string_view what);
    // A literal text or number, with its sign.
    Variant literal();
    bool startsLiteral() const;
    // "=", "<>", "<=", ">=", "<" or ">".
    std::string_view comparisonSign();

    // expected: what should stand here.
    [[noreturn]] void refuse(std::string_view expected) const;
    // The same with a sentence of its own.
    [[noreturn]] void fail(std::string_view what) const;
    std::string_view rest() const { return text_.substr(at_); }

private:
    std::string_view text_;
    std::string subject_;
    std::size_t at_ = 0;
};

}  // namespace quillo::sql
