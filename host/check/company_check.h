#pragma once

#include "host/database/sqlite_handle.h"

#include <string>
#include <vector>

namespace quillo {

// What a file lacks to be a company of this version, a line for each: the version, tables, views,
// columns, facts; where it has all of them, its own texts that have no number or stand twice, and each column with
// values that are not of its type, how many and the first one's key. Empty when it lacks nothing; what it has beyond
// that is its own affair. A file that is damaged or no database gives one line that says so; indexes that do not agree
// with their tables, and values that their columns refuse, a line each. Reads the whole file and changes nothing.
// Throws sqlite::Error where it cannot be read, or another program keeps it locked.
std::vector<std::string> checkCompany(const sqlite::Database& database);

}  // namespace quillo
