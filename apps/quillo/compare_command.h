#pragma once

#include <string>

#include "apps/quillo/console.h"

namespace quillo::app {

// Lays the comparable tables of two files side by side: on the console, or as CSV in a file when output is not empty.
// Throws UsageError when a file cannot be read or written, or when they are of two reports.
void compareFiles(const std::string& left, const std::string& right, const std::string& output, const Console& console);

}  // namespace quillo::app
