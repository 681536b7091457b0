#include "framework/values/date.h"

#include <chrono>
#include <cmath>

#include "framework/values/errors.h"
#include "framework/values/text.h"

namespace quillo {
namespace {

using namespace std::chrono;

constexpr sys_days epoch = 1899y / December / 30d;

constexpr int firstYear = 100, lastYear = 9999;

// A number of as many digits as the text has; read by hand, since journals read two dates a row.
std::optional<int> number(std::string_view digits) {
    int value = 0;
    for (const char digit : digits) {
        if (!isDigit(digit)) return std::nullopt;
        value = value * 10 + (digit - '0');
    }
    return value;
}

std::optional<Date> dayOf(int year, int month, int day) {
    const year_month_day date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                              std::chrono::day(static_cast<unsigned>(day))};
    if (year < firstYear || year > lastYear || !date.ok()) return std::nullopt;
    return Date{static_cast<double>((sys_days(date) - epoch).count())};
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
    if (const auto date = dayOf(year, month, day)) return *date;
    throw ConversionError("There is no such date");
}

Date::Civil Date::civil() const {
    constexpr auto first = static_cast<double>((sys_days(year(firstYear) / January / 1) - epoch).count());
    if (!(days >= first && days < noEndLimit.days + 1)) throw ConversionError("There is no such date");
    const year_month_day date{epoch + std::chrono::days(static_cast<int>(std::floor(days)))};
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

std::optional<Date> Date::parseIsoDay(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
    const auto year = number(text.substr(0, 4));
    const auto month = number(text.substr(5, 2));
    const auto day = number(text.substr(8, 2));
    return year && month && day ? dayOf(*year, *month, *day) : std::nullopt;
}

std::optional<Date> Date::parseIso(std::string_view text) {
    const auto day = parseIsoDay(text.substr(0, 10));
    if (!day || text.size() == 10) return day;
    if (text[10] != ' ' && text[10] != 'T') return std::nullopt;
    const auto time = timeOfDay(text.substr(11));
    if (!time) return std::nullopt;
    return Date{day->days + *time};
}

std::string Date::isoText() const {
    const Civil date = civil();
    std::string text;
    appendDigits(text, static_cast<unsigned>(date.year), 4);
    text += '-';
    appendDigits(text, static_cast<unsigned>(date.month), 2);
    text += '-';
    appendDigits(text, static_cast<unsigned>(date.day), 2);
    return text;
}

}  // namespace quillo
