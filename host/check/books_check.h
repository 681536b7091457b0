#pragma once

#include "framework/values/money.h"
#include "host/database/sqlite_handle.h"

#include <string>
#include <vector>

namespace quillo {

// One equality of the books: what the ledger (or a header) says and what the documents add up to.
// Counts stand as whole amounts.
struct BooksLine {
    std::string name;
    Money left, right;
    std::string failure;  // why a sum cannot be made: an amount that is none, or beyond all bounds
    bool ok() const { return failure.empty() && left == right; }
};

// Proves a company's books by sums over its tables: each transaction and the trial balance, the
// receivables accounts against open documents and adjustments by currency, the cash accounts against
// receipts, headers against lines, the stock against its movements. Reads only. Sums are made of whole
// cents, so that an equality holds exactly or not at all. Throws sqlite::Error when the file is no company.
std::vector<BooksLine> checkBooks(const sqlite::Database& database);

}  // namespace quillo
