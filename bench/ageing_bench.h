#pragma once

#include <string>

namespace quillo::bench {

// The receivables by age of 20,000 customers with 100,000 open documents to PDF, beside the query of the list and the
// bare loop over its rows; and the memory beside that of a tenth of them.
void ageingBench(int rounds);

// What the memory of a run is measured on: to a PDF beside the company file.
void printAgeing(const std::string& company);

}  // namespace quillo::bench
