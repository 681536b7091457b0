#pragma once

#include <string>

namespace quillo::bench {

// What the memory of a run owes to the accounts of a journal's distribution.
void distributionBench();

// One journal of a single row with the distribution of so many accounts behind it, to a PDF file.
void printDistribution(int accounts, const std::string& file);

}  // namespace quillo::bench
