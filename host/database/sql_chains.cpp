#include "host/database/sql_chains.h"

#include <algorithm>

namespace quillo::sql {
namespace {

bool isChainOperator(const Node& node) {
    return node.isSymbol("+") || node.isSymbol("-") || node.isSymbol("*") || node.isSymbol("/") || node.isSymbol("%") ||
           node.isSymbol("&") || node.isSymbol("||");
}

// What ends an expression at its own depth of parentheses.
bool endsChain(const Node& node) {
    if (node.isGroup()) return false;
    if (node.kind == TokenKind::symbol) return !isChainOperator(node) && !node.isSymbol(".");
    return isKeyword(node);
}

bool isTextType(const Node& node) {
    return node.isOneOf({"VARCHAR", "NVARCHAR", "CHAR", "NCHAR", "TEXT", "NTEXT"});
}

bool isText(const Nodes& expression);

// A piece of a CASE or of an argument list is the whole of a result; a comparison in it is not.
bool anyPieceIsText(const Nodes& nodes) {
    Nodes piece;
    bool found = false;
    const auto close = [&] {
        found = found || isText(piece);
        piece.clear();
    };
    for (const Node& node : nodes) {
        if (node.isSymbol(",") || node.isOneOf({"THEN", "ELSE", "WHEN"})) {
            close();
        } else {
            piece.push_back(node);
        }
    }
    close();
    return found;
}

bool isTextCall(const Node& function, const Node& arguments) {
    if (function.is("CAST")) {
        const auto& inner = arguments.children;
        const auto as = std::find_if(inner.begin(), inner.end(), [](const Node& node) { return node.is("AS"); });
        return std::any_of(as, inner.end(), isTextType);
    }
    if (function.isOneOf({"quillo_left", "quillo_join", "CStr", "TRIM", "LTRIM", "RTRIM", "UPPER", "LOWER", "SUBSTR",
                          "SUBSTRING", "REPLACE"}))
        return true;
    return function.isOneOf({"COALESCE", "IIF", "IFNULL", "NULLIF", "quillo_isnull", "MIN", "MAX"}) &&
           anyPieceIsText(arguments.children);
}

bool isText(const Nodes& expression) {
    std::vector<const Node*> parts;
    for (const Node& node : expression) {
        if (node.isSpace()) continue;
        if (endsChain(node)) return false;
        parts.push_back(&node);
    }
    if (std::any_of(parts.begin(), parts.end(), [](const Node* node) { return node->isSymbol("||"); })) return true;
    if (parts.size() == 2 && parts[1]->isParentheses()) return isTextCall(*parts[0], *parts[1]);
    if (parts.size() != 1) return false;
    const Node& only = *parts[0];
    if (!only.isGroup()) return only.kind == TokenKind::text;
    return only.isParentheses() ? isText(only.children) : anyPieceIsText(only.children);
}

struct Range {
    std::size_t begin;
    std::size_t end;
};

// Where the operator stands between two operands, and not as a sign in front of one.
std::vector<std::size_t> binaryOperators(const Nodes& nodes, Range range, std::string_view symbol) {
    std::vector<std::size_t> found;
    bool operand = false;
    for (std::size_t i = range.begin; i < range.end; ++i) {
        if (nodes[i].isSpace()) continue;
        if (operand && nodes[i].isSymbol(symbol)) found.push_back(i);
        operand = !isChainOperator(nodes[i]);
    }
    return found;
}

Nodes slice(const Nodes& nodes, std::size_t begin, std::size_t end) {
    const auto first = nodes.begin();
    return {first + static_cast<std::ptrdiff_t>(begin), first + static_cast<std::ptrdiff_t>(end)};
}

void joinPlusChain(Nodes& nodes, Range range) {
    const auto operators = binaryOperators(nodes, range, "+");
    if (operators.empty()) return;
    bool text = false;
    std::size_t begin = range.begin;
    for (std::size_t i = 0; i <= operators.size(); ++i) {
        const std::size_t end = i < operators.size() ? operators[i] : range.end;
        text = text || isText(slice(nodes, begin, end));
        begin = end + 1;
    }
    if (!text) return;
    for (const std::size_t at : operators) nodes[at].text = "||";
}

// A & B & C becomes quillo_join(A , B , C), with the blanks around the chain left outside.
void joinAmpersandChain(Nodes& nodes, Range range) {
    const auto operators = binaryOperators(nodes, range, "&");
    if (operators.empty()) return;
    while (nodes[range.begin].isSpace()) ++range.begin;
    while (nodes[range.end - 1].isSpace()) --range.end;
    for (const std::size_t at : operators) nodes[at] = symbolNode(",");
    Node arguments = symbolNode("(");
    arguments.close = ")";
    arguments.children = slice(nodes, range.begin, range.end);
    const auto first = nodes.begin();
    nodes.erase(first + static_cast<std::ptrdiff_t>(range.begin), first + static_cast<std::ptrdiff_t>(range.end));
    const auto at = nodes.begin() + static_cast<std::ptrdiff_t>(range.begin);
    nodes.insert(nodes.insert(at, std::move(arguments)), wordNode("quillo_join"));
}

void rewriteChain(Nodes& nodes, Range range) {
    std::size_t begin = range.begin;
    for (const std::size_t at : binaryOperators(nodes, range, "&")) {
        joinPlusChain(nodes, {begin, at});
        begin = at + 1;
    }
    joinPlusChain(nodes, {begin, range.end});
    joinAmpersandChain(nodes, range);
}

void renameFunctions(Nodes& nodes) {
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const std::size_t after = skipSpace(nodes, i + 1);
        if (after == nodes.size() || !nodes[after].isParentheses()) continue;
        if (nodes[i].is("ISNULL")) nodes[i].text = "quillo_isnull";
        if (nodes[i].is("LEFT")) nodes[i].text = "quillo_left";
    }
}

}  // namespace

bool isKeyword(const Node& node) {
    return node.isOneOf({"SELECT", "DISTINCT", "ALL",     "AS",    "FROM",  "WHERE", "AND",  "OR",    "NOT",
                         "ON",     "BETWEEN",  "LIKE",    "IN",    "IS",    "GROUP", "BY",   "ORDER", "HAVING",
                         "UNION",  "WHEN",     "THEN",    "ELSE",  "ASC",   "DESC",  "JOIN", "INNER", "LEFT",
                         "RIGHT",  "OUTER",    "COLLATE", "CROSS", "LIMIT", "ESCAPE"});
}

void rewriteChains(Nodes& nodes) {
    for (Node& node : nodes) rewriteChains(node.children);
    renameFunctions(nodes);
    // From the end, so that a chain that shrinks moves nothing that is still to be read.
    std::size_t end = nodes.size();
    while (true) {
        std::size_t begin = end;
        while (begin > 0 && !endsChain(nodes[begin - 1])) --begin;
        if (begin < end) rewriteChain(nodes, {begin, end});
        if (begin == 0) return;
        end = begin - 1;
    }
}

}  // namespace quillo::sql
