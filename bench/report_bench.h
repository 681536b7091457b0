#pragma once

#include <string>

namespace quillo::bench {

// The sales journal of the demo company beside its bare loop, and the receipts with their payments by the receipt.
void reportBenches(int rounds);

// One sales journal of all years to a PDF beside the company file: what the memory of a run is measured on.
void printSalesJournal(const std::string& company);

}  // namespace quillo::bench
