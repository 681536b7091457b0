#pragma once

#include <string_view>

namespace quillo {

// The schema of a company file as one SQL script: tables, views, indexes, the rows that every new
// company starts with, and its version in PRAGMA user_version.
std::string_view companySchema();

}  // namespace quillo
