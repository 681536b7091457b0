#pragma once

#include <chrono>
#include <compare>
#include <string>

namespace quillo::demo {

// A calendar day.
struct Day {
    int n = 0;  // days since 1970-01-01

    static constexpr Day of(int year, unsigned month, unsigned day) {
        using namespace std::chrono;
        return {static_cast<int>(sys_days(std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day))
                                     .time_since_epoch()
                                     .count())};
    }
    std::chrono::year_month_day civil() const {
        return std::chrono::year_month_day(std::chrono::sys_days(std::chrono::days(n)));
    }
    int year() const { return static_cast<int>(civil().year()); }
    int month() const { return static_cast<int>(static_cast<unsigned>(civil().month())); }
    int dayOfMonth() const { return static_cast<int>(static_cast<unsigned>(civil().day())); }
    // 0 is Sunday.
    int weekday() const {
        return static_cast<int>(std::chrono::weekday(std::chrono::sys_days(std::chrono::days(n))).c_encoding());
    }
    bool isWorkday() const { return weekday() >= 1 && weekday() <= 5; }
    bool isMonthEnd() const { return (*this + 1).dayOfMonth() == 1; }
    std::string iso() const;

    friend constexpr Day operator+(Day day, int count) { return {day.n + count}; }
    friend constexpr Day operator-(Day day, int count) { return {day.n - count}; }
    friend constexpr int operator-(Day a, Day b) { return a.n - b.n; }
    friend constexpr auto operator<=>(Day, Day) = default;
};

// The given day of the month that lies so many months after, or its last day when it is shorter.
Day dayInMonth(Day from, int monthsAfter, int day);

// A fiscal year before the first one that can be compared with a full one.
inline constexpr Day firstDay = Day::of(2022, 4, 1);
inline constexpr Day lastDay = Day::of(2025, 12, 31);

}  // namespace quillo::demo
