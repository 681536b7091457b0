#include "host/database/row_filter.h"

#include <string>

#include "framework/values/errors.h"
#include "host/database/collation.h"
#include "host/database/like.h"
#include "host/database/sql_cursor.h"

namespace quillo {
namespace {

using Condition = RowFilter::Condition;
using Truth = std::optional<bool>;

int compareValues(const ValueView& value, const Variant& literal) {
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
    Parser(std::string_view text, const Recordset& rows) : cursor_(text, "Filter"), rows_(rows) {}

    Condition whole() {
        Condition condition = alternatives();
        if (!cursor_.atEnd()) cursor_.refuse("the end of the condition");
        return condition;
    }

private:
    Condition alternatives() {
        Condition left = conjunction();
        while (cursor_.take("OR"))
            left = [a = std::move(left), b = conjunction()](const Recordset& row) -> Truth {
                const Truth first = a(row);
                if (first.value_or(false)) return true;
                const Truth second = b(row);
                return second.value_or(false) || first ? second : std::nullopt;
            };
        return left;
    }

    Condition conjunction() {
        Condition left = negation();
        while (cursor_.take("AND"))
            left = [a = std::move(left), b = negation()](const Recordset& row) -> Truth {
                const Truth first = a(row);
                if (!first.value_or(true)) return false;
                const Truth second = b(row);
                return !second.value_or(true) || first ? second : std::nullopt;
            };
        return left;
    }

    Condition negation() {
        if (cursor_.take("NOT"))
            return [inner = negation()](const Recordset& row) -> Truth {
                const Truth truth = inner(row);
                return truth ? Truth(!*truth) : std::nullopt;
            };
        if (!cursor_.takeSymbol("(")) return comparison();
        Condition inner = alternatives();
        if (!cursor_.takeSymbol(")")) cursor_.refuse("\")\"");
        return inner;
    }

    Condition comparison() {
        const int column = columnName();
        if (cursor_.take("IS")) {
            const bool negated = cursor_.take("NOT");
            if (!cursor_.take("NULL")) cursor_.refuse("NULL");
            return nullTest(column, !negated);
        }
        if (cursor_.take("LIKE")) {
            const Variant pattern = literal();
            return [column, text = pattern.textOrEmpty()](const Recordset& row) -> Truth {
                const ValueView value = row.value(column);
                if (value.isNull()) return std::nullopt;
                return matchesLike(value.toText(), text);
            };
        }
        const std::string sign(cursor_.comparisonSign());
        if (cursor_.take("NULL")) {
            if (sign != "=" && sign != "<>") cursor_.refuse("a value");
            return nullTest(column, sign == "=");
        }
        return [column, sign, wanted = literal()](const Recordset& row) -> Truth {
            const ValueView value = row.value(column);
            if (value.isNull()) return std::nullopt;
            return holds(sign, compareValues(value, wanted));
        };
    }

    static Condition nullTest(int column, bool wanted) {
        return [column, wanted](const Recordset& row) -> Truth { return row.value(column).isNull() == wanted; };
    }

    int columnName() {
        std::string name(cursor_.expect(sql::TokenKind::word, "a column"));
        while (cursor_.takeSymbol(".")) name = cursor_.expect(sql::TokenKind::word, "a column");
        const int column = rows_.find(name);
        if (column < 0) throw InputError("Filter: the rows have no column \"" + name + "\"");
        return column;
    }

    Variant literal() {
        if (cursor_.rest().starts_with('#')) return date();
        constexpr std::size_t length = 10;
        const auto day = Date::parseIsoDay(cursor_.rest().substr(0, length));
        if (!day) return cursor_.literal();
        cursor_.moveTo(cursor_.position() + length);
        return *day;
    }

    Variant date() {
        const std::string_view rest = cursor_.rest();
        const auto close = rest.find('#', 1);
        const auto day = close == std::string_view::npos ? std::nullopt : Date::parseIso(rest.substr(1, close - 1));
        if (!day) cursor_.refuse("a date like #2024-01-31#");
        cursor_.moveTo(cursor_.position() + close + 1);
        return *day;
    }

    sql::Cursor cursor_;
    const Recordset& rows_;
};

}  // namespace

RowFilter::RowFilter(std::string_view condition, const Recordset& rows) : condition_(Parser(condition, rows).whole()) {}

}  // namespace quillo
