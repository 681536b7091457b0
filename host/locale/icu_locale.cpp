#include "host/locale/icu_locale.h"

#include <unicode/datefmt.h>
#include <unicode/decimfmt.h>
#include <unicode/smpdtfmt.h>
#include <unicode/ucurr.h>
#include <unicode/uloc.h>

#include <algorithm>
#include <memory>
#include <string>

#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "framework/values/text.h"

namespace quillo {
namespace {

std::string utf8(const icu::UnicodeString& text) {
    std::string result;
    text.toUTF8String(result);
    return result;
}

void check(UErrorCode status, std::string_view locale) {
    if (U_FAILURE(status))
        throw InputError("The formats of the locale \"" + std::string(locale) + "\" cannot be loaded");
}

icu::Locale knownLocale(std::string_view name) {
    std::string wanted(name);
    std::replace(wanted.begin(), wanted.end(), '-', '_');
    for (int32_t i = 0; i < uloc_countAvailable(); ++i) {
        const std::string known = uloc_getAvailable(i);
        if (equalNames(known, wanted)) return icu::Locale((known + "@numbers=latn;calendar=gregorian").c_str());
    }
    throw InputError("There is no locale \"" + std::string(name) + "\"; a locale is written like en_CA");
}

// A currency that ICU has no data for has its code as its name.
std::u16string knownCurrency(std::string_view code) {
    const auto unknown = [&] { return InputError("There is no currency \"" + std::string(code) + "\""); };
    if (code.size() != 3) throw unknown();
    const std::u16string currency(code.begin(), code.end());
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    ucurr_getName(currency.c_str(), "en", UCURR_LONG_NAME, nullptr, &length, &status);
    if (U_FAILURE(status) || status == U_USING_DEFAULT_WARNING) throw unknown();
    return currency;
}

icu::UnicodeString narrowSignIn(const char* locale, const std::u16string& currency, UErrorCode& status) {
    int32_t length = 0;
    const UChar* sign = ucurr_getName(currency.c_str(), locale, UCURR_NARROW_SYMBOL_NAME, nullptr, &length, &status);
    return U_FAILURE(status) ? icu::UnicodeString() : icu::UnicodeString(sign, length);
}

// The books are kept in one currency, and so its sign tells no country: "$", never "CA$" or "CAD". A sign of the
// locale's own ("kr.") stays.
void signNarrowly(icu::DecimalFormat& format, const std::u16string& currency, const char* locale, UErrorCode& status) {
    const icu::UnicodeString own = narrowSignIn(locale, currency, status);
    const icu::UnicodeString plain = narrowSignIn("root", currency, status);
    icu::DecimalFormatSymbols signs(*format.getDecimalFormatSymbols());
    const bool tellsCountry = own.endsWith(plain) || own == icu::UnicodeString(currency.c_str());
    signs.setSymbol(icu::DecimalFormatSymbols::kCurrencySymbol, tellsCountry ? plain : own);
    format.setDecimalFormatSymbols(signs);
}

// What stands before the first digit and behind the last one: the signs as they come out in print,
// with the blanks that ICU puts beside them.
LocaleSymbols::Affixes affixesOf(const icu::DecimalFormat& format) {
    const auto around = [&](double value, std::string& prefix, std::string& suffix) {
        icu::UnicodeString out;
        const std::string text = utf8(format.format(value, out));
        const auto first = std::find_if(text.begin(), text.end(), isDigit);
        const auto last = std::find_if(text.rbegin(), text.rend(), isDigit).base();
        prefix.assign(text.begin(), first);
        suffix.assign(last, text.end());
    };
    LocaleSymbols::Affixes affixes;
    around(1, affixes.positivePrefix, affixes.positiveSuffix);
    around(-1, affixes.negativePrefix, affixes.negativeSuffix);
    return affixes;
}

icu::DecimalFormat& decimal(const std::unique_ptr<icu::NumberFormat>& format, std::string_view locale) {
    auto* result = dynamic_cast<icu::DecimalFormat*>(format.get());
    if (result == nullptr) check(U_UNSUPPORTED_ERROR, locale);
    return *result;
}

// The locale's own short date, with four digits for the year and without the quotes around plain letters. English
// Canada writes a date in figures from the year on, as French Canada does; releases of ICU have it now so, now
// otherwise.
std::string shortDate(const icu::Locale& locale, std::string_view name) {
    if (equalNames(locale.getBaseName(), "en_CA")) return "yyyy-MM-dd";
    const std::unique_ptr<icu::DateFormat> format(icu::DateFormat::createDateInstance(icu::DateFormat::kShort, locale));
    const auto* simple = dynamic_cast<const icu::SimpleDateFormat*>(format.get());
    if (simple == nullptr) check(U_UNSUPPORTED_ERROR, name);
    icu::UnicodeString out;
    const std::string pattern = utf8(simple->toPattern(out));
    std::string result;
    for (const char letter : pattern) {
        if (letter == '\'') continue;
        const bool year = letter == 'y' || letter == 'u';
        if (year && result.ends_with("yyyy")) continue;
        result += year ? "yyyy" : std::string(1, letter);
    }
    return result;
}

}  // namespace

LocaleFormat makeLocaleFormat(std::string_view name, std::string_view currencyCode) {
    const icu::Locale locale = knownLocale(name);
    const std::u16string currency = knownCurrency(currencyCode);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::NumberFormat> numbers(icu::NumberFormat::createInstance(locale, status));
    const std::unique_ptr<icu::NumberFormat> amounts(icu::NumberFormat::createCurrencyInstance(locale, status));
    const std::unique_ptr<icu::NumberFormat> percents(icu::NumberFormat::createPercentInstance(locale, status));
    check(status, name);
    amounts->setCurrency(currency.c_str(), status);
    signNarrowly(decimal(amounts, name), currency, locale.getName(), status);
    check(status, name);

    const icu::DecimalFormat& number = decimal(numbers, name);
    const icu::DecimalFormat& amount = decimal(amounts, name);
    const icu::DecimalFormatSymbols& signs = *number.getDecimalFormatSymbols();
    LocaleSymbols symbols;
    symbols.decimal = utf8(signs.getConstSymbol(icu::DecimalFormatSymbols::kDecimalSeparatorSymbol));
    symbols.group = utf8(signs.getConstSymbol(icu::DecimalFormatSymbols::kGroupingSeparatorSymbol));
    symbols.firstGroup = number.isGroupingUsed() ? number.getGroupingSize() : 0;
    symbols.otherGroups =
        number.getSecondaryGroupingSize() > 0 ? number.getSecondaryGroupingSize() : symbols.firstGroup;
    symbols.number = affixesOf(number);
    symbols.currency = affixesOf(amount);
    symbols.percent = affixesOf(decimal(percents, name));
    symbols.currencyDigits = amount.getMaximumFractionDigits();
    symbols.shortDate = shortDate(locale, name);
    return LocaleFormat(symbols);
}

}  // namespace quillo
