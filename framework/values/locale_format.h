#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "framework/values/date.h"
#include "framework/values/money.h"
#include "framework/values/variant.h"

namespace quillo {

// What a locale says about writing numbers, money and dates. A host fills it once from its locale
// library; formatting itself then needs no library and allocates nothing beyond its result.
struct LocaleSymbols {
    std::string decimal = ".";
    std::string group = ",";
    int firstGroup = 3;   // digits of the group beside the decimal point; 0: no grouping
    int otherGroups = 3;  // digits of the groups further left
    struct Affixes {
        std::string positivePrefix, positiveSuffix;
        std::string negativePrefix = "-", negativeSuffix;
    };
    Affixes number;
    Affixes currency{"$", "", "-$", ""};
    Affixes percent{"", "%", "-", "%"};
    int currencyDigits = 2;
    int numberDigits = 2;
    // Tokens y or yyyy, yy, M, MM, d, dd; everything else stands for itself.
    std::string shortDate = "yyyy-MM-dd";
};

// Writes amounts, numbers and dates as the user's locale does, and reads such amounts back exactly.
// Halves round away from zero, as on a printed statement. Immutable: may be shared between threads.
class LocaleFormat {
public:
    LocaleFormat() : LocaleFormat(LocaleSymbols()) {}
    explicit LocaleFormat(LocaleSymbols symbols);

    // digits: decimals, -1 for the locale's own.
    std::string currency(Money amount, int digits = -1) const;
    std::string number(Money value, int digits = -1) const;
    std::string number(double value, int digits = -1) const;
    // A share of one: 0.125 is 12.5 %.
    std::string percent(double share, int digits = 2) const;
    // Time of day is not printed. Throws ConversionError outside of the calendar.
    std::string shortDate(Date date) const;
    // A number as it is: no grouping, only the decimals that it has ("1.35", "1,35").
    std::string plainNumber(const ValueView& value) const;
    // The text that a bound field without format shows; empty for Null.
    void appendGeneral(std::string& out, const ValueView& value) const;

    void appendCurrency(std::string& out, Money amount, int digits = -1) const;
    void appendNumber(std::string& out, Money value, int digits) const;
    void appendShortDate(std::string& out, Date date) const;

    // Reads what currency() and number() wrote; signs, grouping and currency marks of this locale.
    // Throws ConversionError when the text is not such a number.
    Money readMoney(std::string_view text) const;

    const LocaleSymbols& symbols() const { return symbols_; }

private:
    // A piece of the short date's pattern: digits of the date, or a text that stands for itself.
    struct DatePart {
        enum class Kind { text, year, yearOfCentury, month, day };
        Kind kind = Kind::text;
        std::size_t digits = 0;  // at least
        std::string text;
    };
    static std::vector<DatePart> compileDate(std::string_view pattern);
    // What stands around the digits of an amount, without blanks.
    struct AmountShape {
        std::string prefix, suffix;
        bool negative = false;
    };
    void addShapes(const LocaleSymbols::Affixes& affixes);
    std::optional<Money> readDigits(std::string_view digits) const;

    LocaleSymbols symbols_;
    std::vector<DatePart> shortDate_;
    std::vector<AmountShape> shapes_;  // in the order in which reading tries them
    std::string group_;                // without blanks
};

// A format of a design, compiled once: "Currency", "Percent", "Short Date", or a picture such as
// "#,##0.00" with an optional second one for negative values: "#,##0.00;(#,##0.00)".
class NumberFormat {
public:
    NumberFormat() = default;  // general
    // Throws InputError on a picture that it cannot read.
    static NumberFormat compile(std::string_view picture);
    // Appends the value's text; nothing for Null. A text that is no number is appended as it is.
    void append(std::string& out, const ValueView& value, const LocaleFormat& locale) const;

private:
    enum class Kind { general, currency, percent, date, picture };
    struct Picture {
        std::string prefix, suffix;
        int decimals = 0;
        bool grouped = false;
    };
    static Picture compilePicture(std::string_view part, std::string_view whole);
    Kind kind_ = Kind::general;
    Picture positive_, negative_;
    bool ownNegative_ = false;
};

}  // namespace quillo
