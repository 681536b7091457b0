#include "host/filter/filter_grammar.h"

#include <algorithm>

#include "framework/values/errors.h"
#include "framework/values/text.h"
#include "host/database/sql_cursor.h"

namespace quillo {
namespace {

using Kind = FilterCondition::Kind;
using sql::TokenKind;

constexpr int deepest = 100;  // parentheses in parentheses

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
    ConditionParser(std::string_view text, const std::string& subject, const FilterScope& scope)
        : text_(text), cursor_(text, subject), scope_(scope) {}

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
        if (++depth_ > deepest) cursor_.fail("the condition is nested too deep");
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
        FilterCondition condition;
        condition.column = column();
        if (cursor_.take("IS")) {
            condition.kind = Kind::isNull;
            condition.negated = cursor_.take("NOT");
            if (!cursor_.take("NULL")) cursor_.refuse("NULL");
            return condition;
        }
        condition.negated = cursor_.take("NOT");
        if (cursor_.take("BETWEEN")) {
            condition.kind = Kind::between;
            condition.operands.push_back(operand());
            if (!cursor_.take("AND")) cursor_.refuse("AND");
            condition.operands.push_back(operand());
        } else if (cursor_.take("LIKE")) {
            condition.kind = Kind::like;
            if (cursor_.peek().kind != TokenKind::text) cursor_.refuse("a text in single quotes");
            condition.operands.push_back(cursor_.literal());
        } else if (cursor_.take("IN")) {
            condition.kind = Kind::in;
            readList(condition.operands);
        } else {
            if (condition.negated) cursor_.refuse("BETWEEN, LIKE or IN");
            condition.sign = cursor_.comparisonSign();
            condition.operands.push_back(operand());
        }
        return condition;
    }

    void readList(std::vector<FilterOperand>& values) {
        if (!cursor_.takeSymbol("(")) cursor_.refuse("\"(\"");
        do values.push_back(cursor_.literal());
        while (cursor_.takeSymbol(","));
        if (!cursor_.takeSymbol(")")) cursor_.refuse("\",\" or \")\"");
    }

    FilterOperand operand() {
        if (cursor_.startsLiteral()) return cursor_.literal();
        if (cursor_.peek().kind != TokenKind::word) cursor_.refuse("a value or a column");
        return column();
    }

    FilterColumn column() {
        const std::size_t start = cursor_.position();
        FilterColumn found = columnAt(cursor_, scope_);
        sql_.append(text_.substr(copied_, start - copied_)).append(found.sql());
        copied_ = start + trimmed(text_.substr(start, cursor_.position() - start)).size();
        return found;
    }

    std::string_view text_;
    sql::Cursor cursor_;
    const FilterScope& scope_;
    int depth_ = 0;
    std::string sql_;         // the condition as a query takes it,
    std::size_t copied_ = 0;  // up to here in the text
};

}  // namespace

std::optional<FilterWhere> parseFilterCondition(std::string_view text, const FilterScope& scope) {
    const std::string subject = "The filter's condition";
    refuseBars(text, subject);
    return ConditionParser(text, subject, scope).whole();
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
