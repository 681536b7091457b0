#include "demo/days.h"

#include <algorithm>
#include <cstdio>

namespace quillo::demo {

std::string Day::iso() const {
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", year(), month(), dayOfMonth());
    return text;
}

Day dayInMonth(Day from, int monthsAfter, int day) {
    using namespace std::chrono;
    const auto civil = from.civil();
    const auto month = civil.year() / civil.month() + months(monthsAfter);
    const auto last = static_cast<unsigned>((month / std::chrono::last).day());
    return Day::of(static_cast<int>(month.year()), static_cast<unsigned>(month.month()),
                   std::min(static_cast<unsigned>(day), last));
}

}  // namespace quillo::demo
