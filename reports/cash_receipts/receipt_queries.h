#pragma once

#include <string>
#include <string_view>

// The texts by which the summary of cash receipts asks for its rows and for how their money came in.
namespace quillo {

// A row a transaction. segments: condition on the ledger's lines; filter: the user's.
// The order is fixed and the user's is never used, meant: the currencies must follow each other.
// The alias MainRecodset is spelled so, and the forms with and without a filter differ in its case and in blanks,
// meant: who looks for the text in a server's log finds it as it has always been.
std::string receiptsQuery(const std::string& segments, const std::string& filter, int databaseKind);

// The amounts of a document by payment method; the document's key takes the "?".
struct MethodQuery {
    std::string_view source;
    const char* text;
    const char* otherwise = nullptr;  // when the first gives no rows
};

// By the source of a posting; null for one that has none.
const MethodQuery* methodQueryOf(std::string_view source);

}  // namespace quillo
