#include "host/database/sql_tree.h"

#include <algorithm>

#include "framework/values/names.h"

namespace quillo::sql {
namespace {

// Reads up to the closer of the group that is open; false when the text ends before.
bool parseInto(Nodes& nodes, const std::vector<Token>& all, std::size_t& at, std::string_view closer) {
    for (; at < all.size(); ++at) {
        const Token& token = all[at];
        const bool opensParentheses = token.isSymbol("(");
        const bool opensCase = token.is("CASE");
        if (token.isSymbol(")") || token.is("END")) return !closer.empty() && equalNames(token.text, closer);
        nodes.push_back({token.kind, std::string(token.text), {}, {}});
        if (!opensParentheses && !opensCase) continue;
        Node& group = nodes.back();
        if (!parseInto(group.children, all, ++at, opensCase ? "END" : ")")) return false;
        group.close = all[at].text;
    }
    return closer.empty();
}

}  // namespace

bool Node::is(std::string_view word) const {
    return kind == TokenKind::word && !isGroup() && equalNames(text, word);
}

bool Node::isOneOf(std::initializer_list<std::string_view> words) const {
    return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return is(word); });
}

Node wordNode(std::string_view word) {
    return {TokenKind::word, std::string(word), {}, {}};
}

Node symbolNode(std::string_view symbol) {
    return {TokenKind::symbol, std::string(symbol), {}, {}};
}

std::optional<Nodes> parse(std::string_view text) {
    const std::vector<Token> all = tokens(text);
    Nodes nodes;
    std::size_t at = 0;
    if (!parseInto(nodes, all, at, "")) return std::nullopt;
    return nodes;
}

void append(std::string& out, const Nodes& nodes) {
    for (const Node& node : nodes) {
        out += node.text;
        append(out, node.children);
        out += node.close;
    }
}

std::size_t skipSpace(const Nodes& nodes, std::size_t from) {
    while (from < nodes.size() && nodes[from].isSpace()) ++from;
    return from;
}

bool startsWithSelect(const Nodes& nodes) {
    const std::size_t first = skipSpace(nodes, 0);
    if (first == nodes.size()) return false;
    if (nodes[first].isParentheses()) return startsWithSelect(nodes[first].children);
    return nodes[first].is("SELECT");
}

bool containsWord(const Nodes& nodes, std::initializer_list<std::string_view> words) {
    return std::any_of(nodes.begin(), nodes.end(), [&](const Node& node) { return node.isOneOf(words); });
}

}  // namespace quillo::sql
