#include "host/locale/icu_locale.h"

#include <gtest/gtest.h>
#include <unicode/decimfmt.h>
#include <unicode/numfmt.h>

#include "framework/values/errors.h"

namespace quillo {
namespace {

// ICU's own text of an amount, rounded as statements are.
std::string icuText(icu::NumberFormat* format, double value, const char16_t* currency = nullptr) {
    UErrorCode status = U_ZERO_ERROR;
    if (currency != nullptr) format->setCurrency(currency, status);
    format->setRoundingMode(icu::NumberFormat::kRoundHalfUp);
    icu::UnicodeString out;
    std::string text;
    format->format(value, out).toUTF8String(text);
    return text;
}

TEST(IcuLocale, WritesAmountsAsIcuDoesAndReadsThemBack) {
    struct Locale {
        const char* name;
        const char* currency;
        const char16_t* wide;
    };
    const Locale locales[] = {{"en_CA", "CAD", u"CAD"}, {"fr_CA", "CAD", u"CAD"}, {"en_US", "USD", u"USD"},
                              {"de_DE", "EUR", u"EUR"}, {"hi_IN", "INR", u"INR"}, {"fr_FR", "EUR", u"EUR"},
                              {"da_DK", "DKK", u"DKK"}, {"ja_JP", "JPY", u"JPY"}, {"sv_SE", "SEK", u"SEK"}};
    const double values[] = {0,     0.01,    -0.01, 0.005,   -0.004,     1,           -1,
                             12.34, -999.99, 1000,  -1234.5, 1234567.89, -98765432.1, 123456789012.34};
    for (const Locale& locale : locales) {
        const LocaleFormat format = makeLocaleFormat(locale.name, locale.currency);
        UErrorCode status = U_ZERO_ERROR;
        const icu::Locale icuLocale(locale.name);
        const std::unique_ptr<icu::NumberFormat> amounts(icu::NumberFormat::createCurrencyInstance(icuLocale, status));
        const std::unique_ptr<icu::NumberFormat> numbers(icu::NumberFormat::createInstance(icuLocale, status));
        numbers->setMinimumFractionDigits(2);
        numbers->setMaximumFractionDigits(2);
        ASSERT_TRUE(U_SUCCESS(status));
        for (const double value : values) {
            const Money money = Money::fromDouble(value);
            const std::string text = format.currency(money);
            // ICU keeps the sign of an amount that rounds to nothing; a statement does not.
            if (value != -0.004 && (value != -0.01 || amounts->getMaximumFractionDigits() > 0)) {
                EXPECT_EQ(text, icuText(amounts.get(), value, locale.wide)) << locale.name;
                EXPECT_EQ(format.number(money, 2), icuText(numbers.get(), value)) << locale.name;
            }
            EXPECT_EQ(format.readMoney(text), roundAmount(money, format.symbols().currencyDigits))
                << locale.name << " " << text;
            EXPECT_EQ(format.readMoney(format.number(money, 4)), money) << locale.name << " " << text;
        }
    }
}

TEST(IcuLocale, TheHomeCurrencyIsNeverTaggedWithItsCountry) {
    struct Case {
        const char* locale;
        const char* currency;
        const char* amount;
    };
    const Case cases[] = {
        {"en_US", "CAD", "-$12.50"},       {"de_DE", "CAD", "-12,50\u00A0$"},   {"en_CA", "USD", "-$12.50"},
        {"fr_FR", "CAD", "-12,50\u00A0$"}, {"es_MX", "CAD", "-$12.50"},         {"bg_BG", "CAD", "-12,50\u00A0$"},
        {"de_AT", "EUR", "-€\u00A012,50"}, {"en_US", "CHF", "-CHF\u00A012.50"}, {"da_DK", "DKK", "-12,50\u00A0kr."},
    };
    for (const Case& one : cases) {
        const LocaleFormat format = makeLocaleFormat(one.locale, one.currency);
        const Money amount = Money::fromDouble(-12.5);
        EXPECT_EQ(format.currency(amount), one.amount) << one.locale;
        EXPECT_EQ(format.readMoney(one.amount), amount) << one.locale;
    }
}

TEST(IcuLocale, WritesPercentsAndDates) {
    struct Case {
        const char* locale;
        const char* percent;
        const char* date;
    };
    const Case cases[] = {
        {"en_CA", "12.50%", "2024-02-09"},
        {"en_US", "12.50%", "2/9/2024"},
        {"de_DE", "12,50\u00A0%", "09.02.2024"},
        {"fr_CA", "12,50\u00A0%", "2024-02-09"},
        {"fr_FR", "12,50\u00A0%", "09/02/2024"},
        {"hi-IN", "12.50%", "9/2/2024"},
        {"ar_EG", "12.50\u200E%\u200E", "9\u200F/2\u200F/2024"},
        {"th_TH", "12.50%", "9/2/2024"},
    };
    for (const Case& one : cases) {
        const LocaleFormat format = makeLocaleFormat(one.locale, "CAD");
        EXPECT_EQ(format.percent(0.125), one.percent) << one.locale;
        EXPECT_EQ(format.shortDate(Date::fromCivil(2024, 2, 9)), one.date) << one.locale;
    }
}

TEST(IcuLocale, UnknownNamesAreErrors) {
    EXPECT_THROW(makeLocaleFormat("xx_YY", "CAD"), InputError);
    EXPECT_THROW(makeLocaleFormat("", "CAD"), InputError);
    EXPECT_THROW(makeLocaleFormat("en_CA", "ZZY"), InputError);
    EXPECT_THROW(makeLocaleFormat("en_CA", "dollar"), InputError);
}

}  // namespace
}  // namespace quillo
