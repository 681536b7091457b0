#include "host/filter/filter_grammar.h"

#include <algorithm>

#include "framework/values/errors.h"
#include "framework/values/text.h"
#include "host/database/sql_cursor.h"
#include "host/filter/filter_values.h"

namespace quillo {
namespace {

using Kind = FilterCondition::Kind;
using sql::TokenKind;

// SQLite parses a hundred things that wait for their end, and a query puts some around the filter; an expression may be
// a thousand deep, each AND and OR one of them.
constexpr int deepest = 20;  // parentheses and NOTs in each other
constexpr int mostTests = 800;

FilterColumn columnAt(sql::Cursor& cursor, const FilterScope& scope) {
    const sql::Cursor start = cursor;
    std::string_view table;
    std::string_view column = cursor.expect(TokenKind::word, "a column");
    if (cursor.takeSymbol(".")) {
        table = column;
        column = cursor.expect(TokenKind::word, "a column");
    }
    try {
        return scope.find(table, column);
    } catch (const InputError& failure) {
        start.fail(failure.what());
    }
}

// The report takes the two parts of a filter apart at "|".
void refuseBars(std::string_view text, const std::string& subject) {
    const auto bar = text.find('|');
    if (bar != std::string_view::npos)
        throw InputError(subject + ", character " + std::to_string(bar + 1) + ": \"|\" cannot stand in a filter");
}

class ConditionParser {
public:
    ConditionParser(std::string_view text, const std::string& subject, const FilterScope& scope,
                    const LocaleFormat& locale)
        : text_(text), cursor_(text, subject), scope_(scope), locale_(locale) {}

    std::optional<FilterWhere> whole() {
        if (cursor_.atEnd()) return std::nullopt;
        FilterCondition condition = alternatives();
        if (!cursor_.atEnd()) cursor_.refuse("AND, OR or the end");
        return FilterWhere{std::move(condition), std::string(trimmed(sql_.append(text_.substr(copied_))))};
    }

private:
    FilterCondition alternatives() { return joined(Kind::any, "OR", &ConditionParser::conjunction); }
    FilterCondition conjunction() { return joined(Kind::all, "AND", &ConditionParser::single); }

    FilterCondition joined(Kind kind, std::string_view word, FilterCondition (ConditionParser::*part)()) {
        FilterCondition first = (this->*part)();
        if (!cursor_.take(word)) return first;
        FilterCondition list;
        list.kind = kind;
        list.conditions.push_back(std::move(first));
        do list.conditions.push_back((this->*part)());
        while (cursor_.take(word));
        return list;
    }

    FilterCondition single() {
        if (++depth_ > deepest + 1)
            cursor_.fail("more than " + std::to_string(deepest) + " parentheses or NOTs in each other");
        FilterCondition condition = cursor_.take("NOT")       ? negation()
                                    : cursor_.takeSymbol("(") ? parenthesised()
                                                              : test();
        --depth_;
        return condition;
    }

    FilterCondition negation() {
        FilterCondition condition;
        condition.kind = Kind::negation;
        condition.conditions.push_back(single());
        return condition;
    }

    FilterCondition parenthesised() {
        FilterCondition condition = alternatives();
        if (!cursor_.takeSymbol(")")) cursor_.refuse("\")\"");
        return condition;
    }

    FilterCondition test() {
        if (++tests_ > mostTests)
            cursor_.fail("more than " + std::to_string(mostTests) + " comparisons in a condition");
        FilterCondition condition;
        condition.column = column();
        const FilterColumn& tested = condition.column;
        if (cursor_.take("IS")) {
            condition.kind = Kind::isNull;
            condition.negated = cursor_.take("NOT");
            if (!cursor_.take("NULL")) cursor_.refuse("NULL");
            return condition;
        }
        condition.negated = cursor_.take("NOT");
        if (cursor_.take("BETWEEN")) {
            condition.kind = Kind::between;
            condition.operands.push_back(operand(tested));
            if (!cursor_.take("AND")) cursor_.refuse("AND");
            condition.operands.push_back(operand(tested));
        } else if (cursor_.peek().is("LIKE")) {
            condition.kind = Kind::like;
            if (!areComparable(tested.kind, ColumnKind::text) && tested.kind != ColumnKind::date)
                cursor_.fail(tested.column + " holds numbers, and LIKE looks at texts");
            cursor_.take("LIKE");
            if (cursor_.peek().kind != TokenKind::text) cursor_.refuse("a text in single quotes");
            condition.operands.push_back(cursor_.literal());
        } else if (cursor_.take("IN")) {
            condition.kind = Kind::in;
            readList(tested, condition.operands);
        } else {
            if (condition.negated) cursor_.refuse("BETWEEN, LIKE or IN");
            const std::size_t start = cursor_.position();
            condition.sign = cursor_.comparisonSign();
            condition.operands.push_back(tested.kind == ColumnKind::yesOrNo ? truth(tested, condition.sign, start)
                                                                            : operand(tested));
        }
        return condition;
    }

    void readList(const FilterColumn& tested, std::vector<FilterOperand>& values) {
        if (!cursor_.takeSymbol("(")) cursor_.refuse("\"(\"");
        do values.push_back(literal(tested));
        while (cursor_.takeSymbol(","));
        if (!cursor_.takeSymbol(")")) cursor_.refuse("\",\" or \")\"");
    }

    FilterOperand operand(const FilterColumn& tested) {
        if (cursor_.startsLiteral()) return literal(tested);
        const sql::Cursor start = cursor_;
        if (start.peek().kind != TokenKind::word) start.refuse("a value or a column");
        FilterColumn other = column();
        if (!areComparable(tested.kind, other.kind))
            start.fail(tested.sql() + " and " + other.sql() + " hold values of two kinds");
        return other;
    }

    FilterOperand literal(const FilterColumn& tested) {
        const std::size_t start = cursor_.position();
        const Variant asWritten = cursor_.literal();
        Variant value = read(tested, asWritten, start);
        const bool same = value.kind() == asWritten.kind() && sameValue(value, asWritten);
        if (!same) replace(start, sqlOf(value));
        return value;
    }

    Variant read(const FilterColumn& tested, const Variant& asWritten, std::size_t start) {
        if (auto value = valueFor(tested.kind, asWritten, takenSince(start), locale_)) return std::move(*value);
        cursor_.moveTo(start);
        cursor_.refuse(wantedFor(tested.kind));
    }

    // True is any number but 0, as it is on the page; only what is asked for exactly is said so.
    FilterOperand truth(const FilterColumn& tested, const std::string& sign, std::size_t start) {
        const bool exact = sign == "=" || sign == "<>";
        if (!exact || !cursor_.startsLiteral()) return operand(tested);
        const std::size_t behindSign = cursor_.position();
        const Variant value = read(tested, cursor_.literal(), behindSign);
        replace(start, (sign == "=") == (value.toDouble() == 0) ? "= 0" : "<> 0");
        return value;
    }

    FilterColumn column() {
        const std::size_t start = cursor_.position();
        FilterColumn found = columnAt(cursor_, scope_);
        replace(start, found.sql());
        return found;
    }

    std::string_view takenSince(std::size_t start) const {
        return trimmed(text_.substr(start, cursor_.position() - start));
    }

    // Puts a text in the place of what was read since start.
    void replace(std::size_t start, std::string_view text) {
        sql_.append(text_.substr(copied_, start - copied_)).append(text);
        copied_ = start + takenSince(start).size();
    }

    std::string_view text_;
    sql::Cursor cursor_;
    const FilterScope& scope_;
    const LocaleFormat& locale_;
    int depth_ = 0, tests_ = 0;
    std::string sql_;         // the condition as a query takes it,
    std::size_t copied_ = 0;  // up to here in the text
};

}  // namespace

std::optional<FilterWhere> parseFilterCondition(std::string_view text, const FilterScope& scope,
                                                const LocaleFormat& locale) {
    const std::string subject = "The filter's condition";
    refuseBars(text, subject);
    return ConditionParser(text, subject, scope, locale).whole();
}

std::vector<FilterOrder> parseFilterOrder(std::string_view text, const FilterScope& scope) {
    const std::string subject = "The filter's order";
    refuseBars(text, subject);
    sql::Cursor cursor(text, subject);
    std::vector<FilterOrder> orders;
    if (cursor.atEnd()) return orders;
    do {
        FilterOrder order{columnAt(cursor, scope)};
        order.descending = cursor.take("DESC");
        if (!order.descending) cursor.take("ASC");
        const bool again = std::any_of(orders.begin(), orders.end(),
                                       [&](const FilterOrder& before) { return before.column == order.column; });
        if (!again) orders.push_back(std::move(order));
    } while (cursor.takeSymbol(","));
    if (!cursor.atEnd()) cursor.refuse("\",\" or the end");
    return orders;
}

}  // namespace quillo
