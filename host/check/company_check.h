#pragma once

#include "host/database/sqlite_handle.h"

#include <string>
#include <vector>

namespace quillo {

// What a file lacks to be a company of this version, a line for each: the version, tables, views,
// columns, facts; where it has all of them, its own texts that have no number or stand twice. Empty when it
// lacks nothing; what it has beyond that is its own affair. A file that is damaged or no database gives one
// line that says so. Reads only. Throws sqlite::Error when another program keeps the file locked.
std::vector<std::string> checkCompany(const sqlite::Database& database);

}  // namespace quillo
