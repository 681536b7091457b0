#include "demo/receivables.h"

#include <algorithm>

namespace quillo::demo {
namespace {

Day instalmentDay(const Instalment& part, Day date) {
    return part.date ? std::max(*part.date, date) : date + part.days;
}

}  // namespace

Day dueDate(const Term& term, Day date) {
    if (!term.instalments.empty()) return instalmentDay(term.instalments.back(), date);
    if (!term.mode) return date;
    if (term.mode == 4) return dayInMonth(date, date.dayOfMonth() > *term.nextMonthAfter ? 2 : 1, *term.due);
    return date + *term.due;
}

Cents dueUpTo(const Term& term, Day date, Cents total, Day day) {
    if (term.instalments.empty()) return dueDate(term, date) <= day ? total : Cents{};
    if (dueDate(term, date) <= day) return total;
    Percent share;
    for (const auto& part : term.instalments)
        if (instalmentDay(part, date) <= day) share.n += part.share.n;
    return total * share;
}

}  // namespace quillo::demo
