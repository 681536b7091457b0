#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace quillo {

// A calendar date with time of day: a count of days, 0 being 1899-12-30. Whole days are midnights.
struct Date {
    double days = 0;

    friend constexpr auto operator<=>(Date, Date) = default;

    struct Civil {
        int year;
        int month;  // 1 to 12
        int day;    // 1 to 31
    };
    // Throws ConversionError when the calendar has no such day.
    static Date fromCivil(int year, int month, int day);
    // Throws ConversionError for a count of days outside of the years 100 to 9999.
    Civil civil() const;
    // YYYY-MM-DD, and nothing else.
    static std::optional<Date> parseIsoDay(std::string_view text);
    // The same, or with a time of day " HH:MM[:SS]" behind it.
    static std::optional<Date> parseIso(std::string_view text);
    // Throws as civil does.
    std::string isoText() const;
};

inline constexpr Date noDate{0};            // 1899-12-30: no date at all
inline constexpr Date noStartLimit{1};      // 1899-12-31: a range without a first day
inline constexpr Date noEndLimit{2958465};  // 9999-12-31: a range without a last day

}  // namespace quillo
