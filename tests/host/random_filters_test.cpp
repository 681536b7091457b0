#include <algorithm>
#include <functional>
#include <optional>
#include <variant>

#include "tests/support/dice.h"
#include "tests/support/member_runs.h"

namespace quillo::test {
namespace {

using Cell = std::variant<std::monostate, double, std::string>;
using Row = std::vector<Cell>;
using Truth = std::optional<bool>;

enum class Type { text, amount, truth, date };
struct Column {
    const char* name;
    Type type;
};
constexpr Column columns[] = {{"Cust.Name", Type::text},         {"Contact", Type::text},
                              {"CreditLim", Type::amount},       {"TotAmnt", Type::amount},
                              {"CustInactive", Type::truth},     {"InvoiHdr.ToApprove", Type::truth},
                              {"InvoiHdr.ShipDate", Type::date}, {"DueDate", Type::date}};
constexpr int rowCount = 40;

std::string inQuotes(const std::string& text) {
    return "'" + text + "'";
}

// A value that a cell of the type may hold; the same few, so that they meet.
Cell randomValue(Dice& dice, Type type) {
    switch (type) {
        case Type::text:
            return dice.oneOf<std::string>({"ash", "birch", "elm", "ba", "b", ""});
        case Type::amount:
            return dice.oneOf({-1.5, 5.0, 100.0, 1000.5, 9.0, 20000.0});
        case Type::truth:
            return dice.oneOf({0.0, 1.0});
        case Type::date:
            return dice.oneOf<std::string>({"2024-06-01", "2024-01-12", "2023-12-31", "2024-11-02"});
    }
    return {};
}

std::string inSql(const Cell& cell) {
    if (const auto* number = std::get_if<double>(&cell)) return Variant(*number).toText();
    const auto* text = std::get_if<std::string>(&cell);
    return text == nullptr ? "NULL" : inQuotes(*text);
}

// As one of the users of a Canadian company might write it.
std::string written(Dice& dice, Type type, const Cell& cell) {
    if (type == Type::text) return inSql(cell);
    if (type == Type::date) {
        std::string day = std::get<std::string>(cell);
        if (day[5] == '0' && dice.in(50)) day.erase(5, 1);
        return inQuotes(day);
    }
    if (type == Type::truth && std::get<double>(cell) != 0) return dice.oneOf<std::string>({"1", "-1", "'1'"});
    const Money amount = Money::fromDouble(std::get<double>(cell));
    if (type == Type::amount && dice.in(30)) return inQuotes(LocaleFormat().number(amount));
    return dice.in(30) ? inQuotes(amount.toText()) : amount.toText();
}

struct Claim {
    std::string text;
    std::function<Truth(const Row&)> holds;
};

Truth compared(const Cell& left, const std::string& sign, const Cell& right) {
    if (left.index() == 0 || right.index() == 0) return std::nullopt;
    if (sign == "=") return left == right;
    if (sign == "<>") return left != right;
    if (sign == "<") return left < right;
    if (sign == "<=") return left <= right;
    return sign == ">" ? left > right : left >= right;
}

Truth inverted(Truth truth) {
    return truth ? Truth(!*truth) : truth;
}

Truth both(Truth a, Truth b) {
    if (a == Truth(false) || b == Truth(false)) return false;
    return a && b ? Truth(true) : std::nullopt;
}

bool like(std::string_view text, std::string_view pattern) {
    if (pattern.empty()) return text.empty();
    if (pattern.front() == '%')
        return like(text, pattern.substr(1)) || (!text.empty() && like(text.substr(1), pattern));
    return !text.empty() && (pattern.front() == '_' || pattern.front() == text.front()) &&
           like(text.substr(1), pattern.substr(1));
}

Claim randomTest(Dice& dice) {
    const auto at = static_cast<std::size_t>(dice.between(0, std::size(columns) - 1));
    const Column& column = columns[at];
    const Cell first = randomValue(dice, column.type), second = randomValue(dice, column.type);
    const std::string name = column.name, one = written(dice, column.type, first),
                      two = written(dice, column.type, second);
    const bool isNot = dice.in(30);
    const std::string negation = isNot ? " NOT" : "";
    const auto may = [isNot](Truth truth) { return isNot ? inverted(truth) : truth; };
    switch (dice.between(0, column.type == Type::text ? 4 : column.type == Type::truth ? 1 : 3)) {
        case 0:
            return {name + " IS" + negation + " NULL", [=](const Row& row) { return may(row[at].index() == 0); }};
        case 1: {
            const auto sign = column.type == Type::truth ? dice.oneOf<std::string>({"=", "<>"})
                                                         : dice.oneOf<std::string>({"=", "<>", "<", "<=", ">", ">="});
            return {name + " " + sign + " " + one, [=](const Row& row) { return compared(row[at], sign, first); }};
        }
        case 2:
            return {name + negation + " BETWEEN " + one + " AND " + two, [=](const Row& row) {
                        return may(both(compared(row[at], ">=", first), compared(row[at], "<=", second)));
                    }};
        case 3:
            return {name + negation + " IN (" + one + ", " + two + ")", [=](const Row& row) {
                        if (row[at].index() == 0) return Truth();
                        return may(row[at] == first || row[at] == second);
                    }};
        default: {
            const auto pattern = dice.oneOf<std::string>({"b%", "%h", "%a%", "_", "%", "a_h", "%i_c%"});
            return {name + negation + " LIKE " + inQuotes(pattern), [=](const Row& row) {
                        const auto* text = std::get_if<std::string>(&row[at]);
                        return text == nullptr ? Truth() : may(like(*text, pattern));
                    }};
        }
    }
}

Claim randomCondition(Dice& dice, int depth) {
    if (depth == 0 || dice.in(25)) return randomTest(dice);
    const Claim left = randomCondition(dice, depth - 1);
    if (dice.in(20)) return {"NOT (" + left.text + ")", [=](const Row& row) { return inverted(left.holds(row)); }};
    const Claim right = randomCondition(dice, depth - 1);
    if (dice.in(50))
        return {"(" + left.text + ") AND (" + right.text + ")",
                [=](const Row& row) { return both(left.holds(row), right.holds(row)); }};
    return {"(" + left.text + " OR " + right.text + ")",
            [=](const Row& row) { return inverted(both(inverted(left.holds(row)), inverted(right.holds(row)))); }};
}

// Orders 100 to 139, each of a customer of its own.
std::string insert(const Row& row, int key) {
    const auto cell = [&](std::size_t at) { return inSql(row[at]); };
    const std::string id = std::to_string(key);
    return "INSERT INTO Cust (InCustId, Name, Contact, CreditLim, CustInactive) VALUES (" + id + ", " + cell(0) + ", " +
           cell(1) + ", " + cell(2) + ", " + cell(4) +
           "); INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, "
           "ExCustId, InvoiDate, RecDate, TotAmnt, ToApprove, ShipDate, DueDate) VALUES (" +
           id + ", '" + id + "', 51, " + id + ", '2024-01-01', '2024-01-01', " + cell(3) + ", " + cell(5) + ", " +
           cell(6) + ", " + cell(7) + ");";
}

// What a filter lists is what its words say, reckoned here row by row, on either kind of database.
TEST(RandomFilters, ListTheRowsOfWhichTheyAreTrue) {
    Dice dice(20240601);
    std::vector<Row> rows;
    std::string sql;
    for (int i = 0; i < rowCount; ++i) {
        Row& row = rows.emplace_back();
        for (const Column& column : columns)
            row.push_back(dice.in(20) && &column != &columns[3] ? Cell() : randomValue(dice, column.type));
        sql += insert(row, 100 + i);
    }
    const TestCompany company(sql);
    int listed = 0;
    for (int i = 0; i < 200; ++i) {
        const Claim filter = randomCondition(dice, dice.between(0, 4));
        std::vector<std::string> expected;
        for (int k = 0; k < rowCount; ++k)
            if (filter.holds(rows[static_cast<std::size_t>(k)]).value_or(false))
                expected.push_back(std::to_string(100 + k));
        listed += static_cast<int>(expected.size());
        const auto result =
            runReport({.member = "OpenOrders", .company = company.path(), .where = filter.text, .dialect = i % 2});
        ASSERT_EQ(result.boxes, std::vector<std::string>{}) << filter.text;
        ASSERT_EQ(result.texts("txtInvoiId"), expected) << filter.text;
    }
    EXPECT_GT(listed, 1000) << "else nothing was compared";
}

// The largest filters that are taken are none too large for any report's query.
TEST(RandomFilters, TheLargestRunInEachReport) {
    const GoldenCompany company;
    for (const std::string& member : writtenMembers()) {
        const std::string tables = traitsOf(member, company.path()).filterTables;
        if (tables.empty()) continue;
        const std::string column = tables.find("Item") != tables.npos
                                       ? "Item.InItemId"
                                       : columnsOf(tables, CompanyFile(company.path()).catalogue(), true).front();
        std::string deep = column + " IS NULL", wide = deep;
        std::string inverse = deep;
        for (int i = 0; i < 10; ++i) inverse = column + " IS NULL AND NOT (" + inverse + ")";
        for (int i = 0; i < 20; ++i) deep = column + " IS NULL " + (i % 2 == 0 ? "AND (" : "OR (") + deep + ")";
        for (int i = 1; i < 800; ++i) wide += " OR " + column + " IS NULL";
        for (const std::string& where : {deep, inverse, wide}) {
            auto run = company.run(member);
            run.where = where;
            const auto result = runReport(run);
            for (const std::string& box : result.boxes)
                EXPECT_TRUE(box.find("stack") == box.npos && box.find("depth") == box.npos) << member << ": " << box;
        }
    }
}

}  // namespace
}  // namespace quillo::test
