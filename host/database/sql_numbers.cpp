#include "host/database/sql_numbers.h"

#include <map>
#include <optional>

#include "host/database/sql_chains.h"

namespace quillo::sql {
namespace {

struct Range {
    std::size_t begin, end;
};

// What stands beside an operator: no range when it is a number by itself, as a literal is and what stands in
// parentheses, whose own parts are looked at.
struct Operand {
    std::optional<Range> guarded;
};

bool isName(const Node& node) {
    const bool named = node.kind == TokenKind::word || node.kind == TokenKind::quoted;
    return named && !node.isGroup() && !isKeyword(node);
}

bool givesNumber(const Node& function) {
    return function.isOneOf({"SUM", "ROUND", "COUNT", "CCur", "quillo_number"});
}

std::optional<std::size_t> before(const Nodes& nodes, std::size_t at) {
    while (at > 0)
        if (!nodes[--at].isSpace()) return at;
    return std::nullopt;
}

Operand calledBy(const Nodes& nodes, std::size_t function, std::size_t arguments) {
    if (givesNumber(nodes[function])) return {};
    return {Range{function, arguments + 1}};
}

std::optional<Operand> operandAfter(const Nodes& nodes, std::size_t at) {
    const std::size_t first = skipSpace(nodes, at + 1);
    if (first == nodes.size() || nodes[first].kind == TokenKind::symbol) {
        // A sign looks at what stands behind it.
        const bool operand = first < nodes.size() &&
                             (nodes[first].isParentheses() || nodes[first].isSymbol("-") || nodes[first].isSymbol("+"));
        return operand ? std::optional(Operand{}) : std::nullopt;
    }
    if (nodes[first].isGroup()) return Operand{Range{first, first + 1}};  // CASE
    if (!isName(nodes[first])) return isKeyword(nodes[first]) ? std::nullopt : std::optional(Operand{});
    std::size_t last = first;
    for (std::size_t next = skipSpace(nodes, last + 1); next < nodes.size(); next = skipSpace(nodes, last + 1)) {
        if (nodes[next].isParentheses()) return calledBy(nodes, first, next);
        if (!nodes[next].isSymbol(".")) break;
        last = skipSpace(nodes, next + 1);
        if (last == nodes.size() || !isName(nodes[last])) return std::nullopt;
    }
    return Operand{Range{first, last + 1}};
}

std::optional<Operand> operandBefore(const Nodes& nodes, std::size_t at) {
    const auto last = before(nodes, at);
    if (!last) return std::nullopt;
    if (nodes[*last].isParentheses()) {
        const auto function = before(nodes, *last);
        return function && isName(nodes[*function]) ? calledBy(nodes, *function, *last) : Operand{};
    }
    if (nodes[*last].isGroup()) return Operand{Range{*last, *last + 1}};
    if (nodes[*last].kind == TokenKind::symbol || isKeyword(nodes[*last])) return std::nullopt;
    if (!isName(nodes[*last])) return Operand{};
    std::size_t first = *last;
    for (auto point = before(nodes, first); point && nodes[*point].isSymbol("."); point = before(nodes, first))
        first = before(nodes, *point).value_or(0);
    return Operand{Range{first, *last + 1}};
}

bool isArithmetic(const Node& node) {
    return node.isSymbol("+") || node.isSymbol("-") || node.isSymbol("*") || node.isSymbol("/") || node.isSymbol("%");
}

// By their beginnings; what stands between two operators is guarded once.
std::map<std::size_t, std::size_t> guardedRanges(const Nodes& nodes) {
    std::map<std::size_t, std::size_t> ranges;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (!isArithmetic(nodes[i])) continue;
        const auto left = operandBefore(nodes, i), right = operandAfter(nodes, i);
        const bool sign = !left && (nodes[i].isSymbol("+") || nodes[i].isSymbol("-"));
        if (!right || (!left && !sign)) continue;  // the * of all columns
        for (const auto& operand : {left, right})
            if (operand && operand->guarded) ranges.emplace(operand->guarded->begin, operand->guarded->end);
    }
    return ranges;
}

}  // namespace

void guardNumbers(Nodes& nodes) {
    for (Node& node : nodes) guardNumbers(node.children);
    const auto ranges = guardedRanges(nodes);
    if (ranges.empty()) return;
    Nodes result;
    for (std::size_t i = 0; i < nodes.size();) {
        const auto range = ranges.find(i);
        if (range == ranges.end()) {
            result.push_back(std::move(nodes[i++]));
            continue;
        }
        Node argument = symbolNode("(");
        argument.close = ")";
        while (i < range->second) argument.children.push_back(std::move(nodes[i++]));
        result.push_back(wordNode("quillo_number"));
        result.push_back(std::move(argument));
    }
    nodes = std::move(result);
}

}  // namespace quillo::sql
