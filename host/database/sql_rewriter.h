#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace quillo {

// The reports write their SQL for two servers; this says the same to SQLite. Token by token, and
// never inside a literal or a quoted name:
//   - IsNull( and LEFT( call functions of our own;
//   - a chain of + with a text in it joins texts, a chain of & joins them and reads NULL as '';
//   - what is added, subtracted, multiplied or divided fails when it is no number;
//   - <> NULL asks whether there is a value, as those who wrote it meant;
//   - the members of a union lose their parentheses;
//   - the outer ORDER BY sorts text by the collation QUILLO, also where an expression has lost it, and
//     after a union it names result columns without their table.
// Everything else stays as it is, faults included: the database is to report those. Only an empty
// IN ( ) and a second statement, which SQLite would pass over, throw DatabaseError here.
std::string rewriteSql(std::string_view text);

// A view's CREATE VIEW as a temporary view of the same name, whose arithmetic fails for what is no number. Empty when
// it is no such text.
std::string guardedView(std::string_view text);

// rewriteSql with a memory of the texts seen. Belongs to one connection.
class SqlRewriter {
public:
    const std::string& rewrite(const std::string& text);  // valid until the next call

private:
    std::unordered_map<std::string, std::string> known_;
};

}  // namespace quillo
