#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillo {

// The candidate that takes the fewest letters to be changed, left out or put in, for somebody who wrote a name wrong;
// empty when none is near.
std::string nearestName(std::string_view written, const std::vector<std::string>& candidates);

// " (did you mean X?)", or nothing.
std::string didYouMean(std::string_view written, const std::vector<std::string>& candidates);

}  // namespace quillo
