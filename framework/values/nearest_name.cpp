#include "framework/values/nearest_name.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "framework/values/names.h"

namespace quillo {
namespace {

// How many letters lie between two names: changed, left out, put in. Two that changed places count as one.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> beforeLast, last(b.size() + 1), row(b.size() + 1);
    std::iota(last.begin(), last.end(), 0U);
    for (std::size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (std::size_t k = 1; k <= b.size(); ++k) {
            row[k] = std::min({last[k] + 1, row[k - 1] + 1, last[k - 1] + (a[i - 1] == b[k - 1] ? 0U : 1U)});
            const bool swapped = i > 1 && k > 1 && a[i - 1] == b[k - 2] && a[i - 2] == b[k - 1];
            if (swapped) row[k] = std::min(row[k], beforeLast[k - 2] + 1);
        }
        beforeLast = std::exchange(last, row);
    }
    return last[b.size()];
}

}  // namespace

std::string nearestName(std::string_view written, const std::vector<std::string>& candidates) {
    constexpr std::size_t longest = 64;  // of a name that somebody types
    if (written.size() > longest) return {};
    const std::string wanted = foldedName(written);
    std::size_t least = std::max<std::size_t>(written.size() / 3, 1);  // farther ones are other names
    std::string nearest;
    for (const std::string& candidate : candidates) {
        const std::size_t far = distance(wanted, foldedName(candidate));
        if (far > least || (far == least && !nearest.empty())) continue;
        least = far;
        nearest = candidate;
    }
    return nearest;
}

std::string didYouMean(std::string_view written, const std::vector<std::string>& candidates) {
    const std::string nearest = nearestName(written, candidates);
    return nearest.empty() ? nearest : " (did you mean " + nearest + "?)";
}

}  // namespace quillo
