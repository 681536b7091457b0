#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "framework/values/locale_format.h"
#include "framework/values/variant.h"
#include "host/filter/filter_scope.h"

namespace quillo {

// Values of a filter as their column compares them.

// A day in figures from the year on (2024-6-1), or in the order of the locale's short date; nothing for other texts.
std::optional<Date> readDay(std::string_view text, const LocaleFormat& locale);

// A literal, which the filter's author wrote as that text, as its column holds it: a date as its ISO text, an amount or
// a number as a number, a text with all its figures. Nothing when it is no such value.
std::optional<Variant> valueFor(ColumnKind kind, const Variant& literal, std::string_view written,
                                const LocaleFormat& locale);

// Such a value as a query takes it.
std::string sqlOf(const Variant& value);

// What a column of that kind takes, for refusals: "a date such as '2024-12-31'".
std::string_view wantedFor(ColumnKind kind);

// Whether two columns can be compared with each other.
bool areComparable(ColumnKind one, ColumnKind other);

}  // namespace quillo
