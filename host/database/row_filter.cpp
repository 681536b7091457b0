#include "host/database/row_filter.h"

#include <charconv>
#include <string>

#include "framework/values/errors.h"
#include "host/database/collation.h"
#include "host/database/like.h"
#include "host/database/sql_token.h"

namespace quillo {
namespace {

using Condition = RowFilter::Condition;
using Truth = std::optional<bool>;

int compareValues(const Variant& value, const Variant& literal) {
    const auto order = [](auto a, auto b) { return a < b ? -1 : a > b ? 1 : 0; };
    // True is any number but 0 here, as it is in the database.
    if (value.kind() == ValueKind::boolean) return order(value.toBool(), literal.toBool());
    if (literal.kind() == ValueKind::date || value.kind() == ValueKind::date)
        return order(value.toDate().days, literal.toDate().days);
    if (literal.kind() == ValueKind::text) return compareText(value.toText(), literal.view().textView());
    return order(value.toDouble(), literal.toDouble());
}

bool holds(std::string_view comparison, int order) {
    if (comparison == "=") return order == 0;
    if (comparison == "<>") return order != 0;
    if (comparison == "<") return order < 0;
    if (comparison == "<=") return order <= 0;
    if (comparison == ">") return order > 0;
    return order >= 0;
}

class Parser {
public:
    Parser(std::string_view text, const RowSet& rows) : text_(text), rows_(rows) { skipBlanks(); }

    Condition whole() {
        Condition condition = alternatives();
        if (at_ < text_.size()) refuse("the end of the condition");
        return condition;
    }

private:
    Condition alternatives() {
        Condition left = conjunction();
        while (take("OR"))
            left = [a = std::move(left), b = conjunction()](const RowSet& rows, std::size_t row) -> Truth {
                const Truth first = a(rows, row);
                if (first.value_or(false)) return true;
                const Truth second = b(rows, row);
                return second.value_or(false) || first ? second : std::nullopt;
            };
        return left;
    }

    Condition conjunction() {
        Condition left = negation();
        while (take("AND"))
            left = [a = std::move(left), b = negation()](const RowSet& rows, std::size_t row) -> Truth {
                const Truth first = a(rows, row);
                if (!first.value_or(true)) return false;
                const Truth second = b(rows, row);
                return !second.value_or(true) || first ? second : std::nullopt;
            };
        return left;
    }

    Condition negation() {
        if (take("NOT"))
            return [inner = negation()](const RowSet& rows, std::size_t row) -> Truth {
                const Truth truth = inner(rows, row);
                return truth ? Truth(!*truth) : std::nullopt;
            };
        if (!takeSymbol("(")) return comparison();
        Condition inner = alternatives();
        if (!takeSymbol(")")) refuse("\")\"");
        return inner;
    }

    Condition comparison() {
        const int column = columnName();
        if (take("IS")) {
            const bool negated = take("NOT");
            if (!take("NULL")) refuse("NULL");
            return nullTest(column, !negated);
        }
        if (take("LIKE")) {
            const Variant pattern = literal();
            return [column, text = pattern.textOrEmpty()](const RowSet& rows, std::size_t row) -> Truth {
                const Variant& value = rows.at(row, column);
                if (value.isNull()) return std::nullopt;
                return matchesLike(value.toText(), text);
            };
        }
        const std::string sign = comparisonSign();
        if (take("NULL")) {
            if (sign != "=" && sign != "<>") refuse("a value");
            return nullTest(column, sign == "=");
        }
        return [column, sign, wanted = literal()](const RowSet& rows, std::size_t row) -> Truth {
            const Variant& value = rows.at(row, column);
            if (value.isNull()) return std::nullopt;
            return holds(sign, compareValues(value, wanted));
        };
    }

    static Condition nullTest(int column, bool wanted) {
        return [column, wanted](const RowSet& rows, std::size_t row) -> Truth {
            return rows.at(row, column).isNull() == wanted;
        };
    }

    int columnName() {
        std::string name(expect(sql::TokenKind::word, "a column"));
        while (takeSymbol(".")) name = expect(sql::TokenKind::word, "a column");
        const int column = rows_.find(name);
        if (column < 0) throw InputError("Filter: the rows have no column \"" + name + "\"");
        return column;
    }

    std::string comparisonSign() {
        for (const std::string_view sign : {"=", "<>", "<=", ">=", "<", ">"})
            if (takeSymbol(sign)) return std::string(sign);
        refuse("a comparison");
    }

    Variant literal() {
        if (at_ < text_.size() && text_[at_] == '#') return date();
        const bool negative = takeSymbol("-");
        const sql::Token token = peek();
        if (token.kind == sql::TokenKind::text && token.closed && !negative) {
            advance(token);
            return unquoted(token.text);
        }
        double number = 0;
        const auto [end, error] = std::from_chars(token.text.data(), token.text.data() + token.text.size(), number);
        if (token.kind != sql::TokenKind::number || error != std::errc{} ||
            end != token.text.data() + token.text.size())
            refuse("a value");
        advance(token);
        return negative ? -number : number;
    }

    Variant date() {
        const auto close = text_.find('#', at_ + 1);
        const auto day =
            close == std::string_view::npos ? std::nullopt : Date::parseIso(text_.substr(at_ + 1, close - at_ - 1));
        if (!day) refuse("a date like #2024-01-31#");
        at_ = close + 1;
        skipBlanks();
        return *day;
    }

    static std::string unquoted(std::string_view quoted) {
        std::string text;
        for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
            text += quoted[i];
            if (quoted[i] == '\'') ++i;
        }
        return text;
    }

    sql::Token peek() const {
        return at_ < text_.size() ? sql::firstToken(text_.substr(at_)) : sql::Token{sql::TokenKind::space, {}};
    }
    void advance(const sql::Token& token) {
        at_ += token.text.size();
        skipBlanks();
    }
    void skipBlanks() {
        while (at_ < text_.size() && peek().kind == sql::TokenKind::space) at_ += peek().text.size();
    }
    bool take(std::string_view word) {
        const sql::Token token = peek();
        if (token.is(word)) advance(token);
        return token.is(word);
    }
    bool takeSymbol(std::string_view symbol) {
        const sql::Token token = peek();
        if (token.isSymbol(symbol)) advance(token);
        return token.isSymbol(symbol);
    }
    std::string_view expect(sql::TokenKind kind, std::string_view what) {
        const sql::Token token = peek();
        if (token.kind != kind) refuse(what);
        advance(token);
        return token.text;
    }
    [[noreturn]] void refuse(std::string_view expected) const {
        const std::string found = at_ < text_.size() ? "\"" + std::string(text_.substr(at_, 20)) + "\"" : "its end";
        throw InputError("Filter: " + std::string(expected) + " is missing at character " + std::to_string(at_ + 1) +
                         ", before " + found);
    }

    std::string_view text_;
    const RowSet& rows_;
    std::size_t at_ = 0;
};

}  // namespace

RowFilter::RowFilter(std::string_view condition, const RowSet& rows) : condition_(Parser(condition, rows).whole()) {}

}  // namespace quillo
