#pragma once

#include <string_view>

#include "host/database/watch.h"

namespace quillo {

// SQL's LIKE: % stands for any characters, _ for one; without regard to case. escape: the one
// character that takes their meaning away, or empty. A long text may take long: throws RunStopped when the watch ends
// it.
bool matchesLike(std::string_view text, std::string_view pattern, std::string_view escape = "",
                 const sqlite::Watch* watch = nullptr);

}  // namespace quillo
