#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillo {

// The pattern with its arguments in the places of %1 to %9; a place without argument stays as it is.
std::string withArguments(std::string_view pattern, const std::vector<std::string>& arguments);

}  // namespace quillo
