#include "host/database/sql_rewriter.h"

#include <algorithm>
#include <iterator>

#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "host/database/sql_chains.h"
#include "host/database/sql_numbers.h"
#include "host/database/sql_tree.h"

namespace quillo {
namespace {

using namespace sql;

void refuseEmptyLists(const Nodes& nodes) {
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        refuseEmptyLists(nodes[i].children);
        const std::size_t list = skipSpace(nodes, i + 1);
        if (!nodes[i].is("IN") || list == nodes.size() || !nodes[list].isParentheses()) continue;
        if (skipSpace(nodes[list].children, 0) == nodes[list].children.size())
            throw DatabaseError("Incorrect syntax near ')'.");
    }
}

// SQLite would compile the first statement and forget the rest.
void refuseSecondStatement(const Nodes& nodes) {
    const auto end = std::find_if(nodes.begin(), nodes.end(), [](const Node& node) { return node.isSymbol(";"); });
    if (end != nodes.end() && std::any_of(end + 1, nodes.end(), [](const Node& node) { return !node.isSpace(); }))
        throw DatabaseError("Incorrect syntax near ';'.");
}

// A comparison with NULL is true of no row, and an IIf would always take its other branch.
void sayIsNotNull(Nodes& nodes) {
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        sayIsNotNull(nodes[i].children);
        const std::size_t after = skipSpace(nodes, i + 1);
        if (nodes[i].isSymbol("<>") && after < nodes.size() && nodes[after].is("NULL")) nodes[i] = wordNode(" IS NOT ");
    }
}

bool isSetOperator(const Node& node) {
    return node.isOneOf({"UNION", "EXCEPT", "INTERSECT"});
}

// The text of a member without its parentheses; one that is a union or sorts of its own is read from.
Nodes unwrapped(Nodes inner) {
    const std::size_t first = skipSpace(inner, 0);
    const bool alone = skipSpace(inner, first + 1) == inner.size();
    if (alone && inner[first].isParentheses()) return unwrapped(std::move(inner[first].children));
    const bool compound = std::any_of(inner.begin(), inner.end(), isSetOperator);
    if (!compound && !containsWord(inner, {"ORDER", "LIMIT"})) return inner;
    Node group = symbolNode("(");
    group.close = ")";
    group.children = std::move(inner);
    Nodes member;
    for (const std::string_view word : {"SELECT", " ", "*", " ", "FROM", " "})
        member.push_back({word == " "   ? TokenKind::space
                          : word == "*" ? TokenKind::symbol
                                        : TokenKind::word,
                          std::string(word),
                          {},
                          {}});
    member.push_back(std::move(group));
    return member;
}

void unwrapMembers(Nodes& nodes, bool outermost) {
    for (Node& node : nodes) unwrapMembers(node.children, false);
    // Inside, a lone SELECT in parentheses is a value, and they belong to it.
    if (!outermost && std::none_of(nodes.begin(), nodes.end(), isSetOperator)) return;
    Nodes result;
    bool memberStart = true;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        Node& node = nodes[i];
        const std::size_t after = skipSpace(nodes, i + 1);
        const bool memberEnd = after == nodes.size() || isSetOperator(nodes[after]) ||
                               nodes[after].isOneOf({"ORDER", "LIMIT"}) || nodes[after].isSymbol(";");
        if (memberStart && memberEnd && node.isParentheses() && startsWithSelect(node.children)) {
            Nodes member = unwrapped(std::move(node.children));
            std::move(member.begin(), member.end(), std::back_inserter(result));
        } else {
            result.push_back(std::move(node));
        }
        const Node& last = result.back();
        if (!last.isSpace()) memberStart = isSetOperator(last) || last.is("ALL");
    }
    nodes = std::move(result);
}

// Aliases of derived tables: their columns may be expressions, which have no collation.
void collectDerived(const Nodes& nodes, std::vector<std::string>& aliases) {
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        collectDerived(nodes[i].children, aliases);
        if (!nodes[i].isParentheses() || !startsWithSelect(nodes[i].children)) continue;
        std::size_t alias = skipSpace(nodes, i + 1);
        if (alias < nodes.size() && nodes[alias].is("AS")) alias = skipSpace(nodes, alias + 1);
        if (alias < nodes.size() && nodes[alias].kind == TokenKind::word) aliases.push_back(nodes[alias].text);
    }
}

struct OrderRules {
    bool afterUnion;
    std::vector<std::string> derived;

    bool keepsCollation(const std::vector<std::size_t>& term, const Nodes& nodes) const {
        if (afterUnion || term.size() != 3 || !nodes[term[1]].isSymbol(".")) return false;
        const std::string& table = nodes[term[0]].text;
        return std::none_of(derived.begin(), derived.end(),
                            [&](const std::string& alias) { return equalNames(alias, table); });
    }
};

void appendTerm(Nodes& out, const Nodes& nodes, std::size_t begin, std::size_t end, const OrderRules& rules) {
    std::vector<std::size_t> term;  // without blanks and direction
    std::size_t direction = begin;
    while (direction < end && !nodes[direction].isOneOf({"ASC", "DESC", "NULLS", "COLLATE"})) {
        if (!nodes[direction].isSpace()) term.push_back(direction);
        ++direction;
    }
    const bool collated = direction < end && nodes[direction].is("COLLATE");
    const bool plain = std::all_of(term.begin(), term.end(), [&](std::size_t i) {
        return nodes[i].kind == TokenKind::word || nodes[i].kind == TokenKind::quoted || nodes[i].isSymbol(".");
    });
    if (rules.afterUnion && plain && term.size() >= 3) begin = term.back();
    const auto copy = [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i) out.push_back(nodes[i]);
    };
    if (term.empty() || collated || rules.keepsCollation(term, nodes)) {
        copy(begin, end);
        return;
    }
    copy(begin, term.back() + 1);
    out.push_back({TokenKind::word, " COLLATE QUILLO", {}, {}});
    copy(term.back() + 1, end);
}

void sortText(Nodes& nodes) {
    std::size_t order = nodes.size();
    OrderRules rules{false, {}};
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (nodes[i].is("ORDER")) order = i;
        rules.afterUnion = rules.afterUnion || isSetOperator(nodes[i]);
    }
    const std::size_t by = skipSpace(nodes, order + 1);
    if (by >= nodes.size() || !nodes[by].is("BY")) return;
    collectDerived(nodes, rules.derived);
    Nodes result(nodes.begin(), nodes.begin() + static_cast<std::ptrdiff_t>(by) + 1);
    std::size_t begin = skipSpace(nodes, by + 1);
    for (std::size_t i = by + 1; i < begin; ++i) result.push_back(nodes[i]);
    std::size_t end = begin;
    while (end < nodes.size() && !nodes[end].is("LIMIT") && !nodes[end].isSymbol(";")) ++end;
    for (std::size_t i = begin; i < end; ++i) {
        if (!nodes[i].isSymbol(",")) continue;
        appendTerm(result, nodes, begin, i, rules);
        result.push_back(nodes[i]);
        begin = i + 1;
    }
    appendTerm(result, nodes, begin, end, rules);
    for (std::size_t i = end; i < nodes.size(); ++i) result.push_back(nodes[i]);
    nodes = std::move(result);
}

}  // namespace

std::string rewriteSql(std::string_view text) {
    auto nodes = sql::parse(text);
    if (!nodes) return std::string(text);
    refuseEmptyLists(*nodes);
    refuseSecondStatement(*nodes);
    rewriteChains(*nodes);
    guardNumbers(*nodes);
    sayIsNotNull(*nodes);
    unwrapMembers(*nodes, true);
    sortText(*nodes);
    std::string result;
    append(result, *nodes);
    return result;
}

std::string guardedView(std::string_view text) {
    auto nodes = sql::parse(text);
    if (!nodes) return {};
    const auto view = std::find_if(nodes->begin(), nodes->end(), [](const Node& node) { return node.is("VIEW"); });
    if (view == nodes->end()) return {};
    view->text = "TEMP VIEW";
    guardNumbers(*nodes);
    std::string result;
    append(result, *nodes);
    return result;
}

const std::string& SqlRewriter::rewrite(const std::string& text) {
    constexpr std::size_t most = 256;  // look-ups that write a key into their text come without end
    const auto found = known_.find(text);
    if (found != known_.end()) return found->second;
    std::string rewritten = rewriteSql(text);
    if (known_.size() >= most) known_.clear();
    return known_.emplace(text, std::move(rewritten)).first->second;
}

}  // namespace quillo
