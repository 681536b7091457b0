#include "framework/values/date.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "framework/values/errors.h"

namespace quillo {
namespace {

using namespace std::chrono;

constexpr sys_days epoch = 1899y / December / 30d;

std::optional<int> number(std::string_view text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || text.front() == '-' || error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::optional<double> timeOfDay(std::string_view text) {
    if ((text.size() != 5 && text.size() != 8) || text[2] != ':' || (text.size() == 8 && text[5] != ':'))
        return std::nullopt;
    const auto hour = number(text.substr(0, 2));
    const auto minute = number(text.substr(3, 2));
    const auto second = text.size() == 8 ? number(text.substr(6, 2)) : std::optional(0);
    if (!hour || !minute || !second || *hour > 23 || *minute > 59 || *second > 59) return std::nullopt;
    return (*hour * 3600 + *minute * 60 + *second) / 86400.0;
}

}  // namespace

Date Date::fromCivil(int year, int month, int day) {
    const year_month_day date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                              std::chrono::day(static_cast<unsigned>(day))};
    if (year < 100 || year > 9999 || !date.ok()) throw ConversionError("There is no such date");
    return {static_cast<double>((sys_days(date) - epoch).count())};
}

Date::Civil Date::civil() const {
    const year_month_day date{epoch + std::chrono::days(static_cast<long>(std::floor(days)))};
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

std::optional<Date> Date::parseIso(std::string_view text) {
    if (text.size() < 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
    const auto y = number(text.substr(0, 4));
    const auto m = number(text.substr(5, 2));
    const auto d = number(text.substr(8, 2));
    if (!y || !m || !d || *y < 100) return std::nullopt;
    const year_month_day date{std::chrono::year(*y), std::chrono::month(static_cast<unsigned>(*m)),
                              std::chrono::day(static_cast<unsigned>(*d))};
    if (!date.ok()) return std::nullopt;
    const double day = static_cast<double>((sys_days(date) - epoch).count());
    if (text.size() == 10) return Date{day};
    if (text[10] != ' ' && text[10] != 'T') return std::nullopt;
    const auto time = timeOfDay(text.substr(11));
    if (!time) return std::nullopt;
    return Date{day + *time};
}

std::string Date::isoText() const {
    const Civil date = civil();
    char buffer[16];
    const int length = std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d", date.year, date.month, date.day);
    return {buffer, static_cast<std::size_t>(length)};
}

}  // namespace quillo
