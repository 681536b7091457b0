#include "framework/engine/push_down.h"

#include <algorithm>
#include <queue>

namespace quillo {
namespace {

// Something that moves what stands below its bottom.
struct Push {
    float bottom, by;
    bool operator>(const Push& other) const { return bottom > other.bottom; }
};

}  // namespace

void pushDown(std::vector<Extent>& extents) {
    std::sort(extents.begin(), extents.end(),
              [](const Extent& a, const Extent& b) { return a.top != b.top ? a.top < b.top : a.bottom < b.bottom; });
    std::priority_queue<Push, std::vector<Push>, std::greater<>> waiting;
    float push = 0;  // of all that ended at or above the place that is looked at
    for (Extent& extent : extents) {
        for (; !waiting.empty() && waiting.top().bottom <= extent.top; waiting.pop())
            push = std::max(push, waiting.top().by);
        *extent.place += push;
        if (extent.growth > 0) waiting.push({extent.bottom, push + extent.growth});
    }
}

}  // namespace quillo
