#pragma once

#include <string>
#include <vector>

namespace quillo::app {

// Before anything is opened: no output may be a file that the command reads, nor one that the database keeps beside it,
// nor another output; by whatever name, link or spelling. Empty names count for nothing. Throws UsageError.
void guardOutputs(const std::vector<std::string>& inputs, const std::vector<std::string>& outputs);

}  // namespace quillo::app
