#pragma once

#include <string>
#include <vector>

#include "framework/services/services.h"
#include "host/filter/filter_grammar.h"

namespace quillo {

// A filter as a person reads it, in the user's language: "Code from A to M and Name contains Ltd".
std::string conditionInWords(const FilterCondition& condition, const HostContext& context);
// "Name, Code (descending)"; empty for an empty order.
std::string orderInWords(const std::vector<FilterOrder>& order, const HostContext& context);

}  // namespace quillo
