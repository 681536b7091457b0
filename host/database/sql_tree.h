#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/database/sql_token.h"

// An SQL text as a tree: what stands in parentheses, and between CASE and END, is one node.
namespace quillo::sql {

struct Node;
using Nodes = std::vector<Node>;

struct Node {
    TokenKind kind = TokenKind::space;
    std::string text;   // of a group: what opens it
    std::string close;  // of a group: what closes it; empty: no group
    Nodes children;

    bool isGroup() const { return !close.empty(); }
    bool isParentheses() const { return isGroup() && text == "("; }
    bool isSpace() const { return kind == TokenKind::space && !isGroup(); }
    bool is(std::string_view word) const;
    bool isOneOf(std::initializer_list<std::string_view> words) const;
    bool isSymbol(std::string_view symbol) const { return kind == TokenKind::symbol && !isGroup() && text == symbol; }
};

Node wordNode(std::string_view word);
Node symbolNode(std::string_view symbol);

// Nothing when parentheses or CASE and END do not match.
std::optional<Nodes> parse(std::string_view text);
void append(std::string& out, const Nodes& nodes);

// Index of the first node from there on that is not space; nodes.size() when there is none.
std::size_t skipSpace(const Nodes& nodes, std::size_t from);
// Whether a list's first word is SELECT, inside of any parentheses.
bool startsWithSelect(const Nodes& nodes);
bool containsWord(const Nodes& nodes, std::initializer_list<std::string_view> words);

}  // namespace quillo::sql
