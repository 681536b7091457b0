#include <gtest/gtest.h>

#include <limits>

#include "framework/drill_tags.h"
#include "framework/query_builder.h"
#include "framework/values/errors.h"
#include "framework/values/locale_format.h"
#include "framework/values/names.h"
#include "framework/values/nearest_name.h"
#include "framework/values/printable.h"

namespace quillo {
namespace {

Money money(const char* text) {
    return ValueView::ofText(text).toMoney();
}

TEST(Money, DoublesRoundHalfToEvenAtTheFourthDecimal) {
    const struct {
        double value;
        std::int64_t raw;
    } cases[] = {{0.1, 1000},       {0.00005, 0},
                 {0.00015, 2},      {0.00025, 2},
                 {-0.00015, -2},    {1234567.89, 12345678900},
                 {0.1 + 0.2, 3000}, {1.00005, 10000},
                 {-2.675, -26750},  {1e10 / 3, 33333333333333}};
    for (const auto& [value, raw] : cases) EXPECT_EQ(Money::fromDouble(value).raw(), raw) << value;
    EXPECT_THROW(Money::fromDouble(1e15), OverflowError);
    EXPECT_THROW(Money::fromDouble(std::numeric_limits<double>::quiet_NaN()), OverflowError);
}

TEST(Money, AmountsRoundHalfAwayFromZero) {
    const struct {
        const char* value;
        int digits;
        const char* rounded;
    } cases[] = {{"0.005", 2, "0.01"}, {"-0.005", 2, "-0.01"},   {"0.0049", 2, "0"},          {"2.5", 0, "3"},
                 {"-2.5", 0, "-3"},    {"1.23456", 4, "1.2346"}, {"999999.995", 2, "1000000"}};
    for (const auto& [value, digits, rounded] : cases)
        EXPECT_EQ(roundAmount(money(value), digits).toText(), rounded) << value;
    EXPECT_EQ(roundAmount(1.005, 2).toText(), "1.01") << "the decimal value counts, not its binary neighbour";
    EXPECT_EQ(roundAmount(-1.005, 2).toText(), "-1.01");
    EXPECT_EQ(roundProduct(money("0.0050"), 0.9998, 2).toText(), "0")
        << "a product is rounded once, not first to four decimals";
    EXPECT_EQ(roundProduct(money("100.10"), 1.35, 2).toText(), "135.14");
    EXPECT_EQ(roundProduct(money("100.10"), -1.35, 2).toText(), "-135.14");
}

TEST(Money, ProductsWithARateAreExactWhateverTheRateIs) {
    EXPECT_EQ(roundProduct(money("5000000000"), 1.0 / 18500, 2).toText(), "270270.27");
    EXPECT_EQ((money("5000000000") * (1.0 / 18500)).toText(), "270270.2703");
    EXPECT_EQ((money("0.01") * 1e12).toText(), "10000000000") << "a rate of a hyperinflation";
    EXPECT_EQ((money("-900000000000000") * 1e-15).toText(), "-0.9");
    EXPECT_EQ((money("900000000000000") * 1e-300).toText(), "0");
    EXPECT_EQ(roundProduct(money("50000000000.10"), 1.35, 2).toText(), "67500000000.14");
    EXPECT_EQ((money("922337203685477.5807") * 1.0).toText(), "922337203685477.5807");
    EXPECT_EQ(roundProduct(money("900000000000000.0049"), 1.0, 2).toText(), "900000000000000")
        << "what is forgiven never reaches a ten-thousandth";
    EXPECT_THROW(money("1") * 1e16, OverflowError);
    EXPECT_THROW(money("1") * 1e300, OverflowError);
    EXPECT_THROW(money("1") * std::numeric_limits<double>::quiet_NaN(), OverflowError);
}

TEST(Money, WhatThrowsKeepsItsValue) {
    Money most = Money::fromRaw(std::numeric_limits<std::int64_t>::max());
    Money least = Money::fromRaw(std::numeric_limits<std::int64_t>::min());
    EXPECT_THROW(most += money("1"), OverflowError);
    EXPECT_THROW(least -= money("1"), OverflowError);
    EXPECT_EQ(most.toText(), "922337203685477.5807");
    EXPECT_EQ(least.toText(), "-922337203685477.5808");
}

TEST(Money, ArithmeticIsExactAndChecked) {
    EXPECT_EQ((money("0.1") + money("0.2") - money("0.3")).raw(), 0);
    EXPECT_EQ((money("1.5") * money("-2.25")).toText(), "-3.375");
    EXPECT_EQ((money("10") / money("3")).toText(), "3.3333");
    EXPECT_EQ((money("-20") / money("3")).toText(), "-6.6667");
    EXPECT_EQ((money("1.0001") * 0.5).toText(), "0.5") << "half to even at the fourth decimal";
    const Money most = Money::fromRaw(std::numeric_limits<std::int64_t>::max());
    EXPECT_THROW(most + Money::fromRaw(1), OverflowError);
    EXPECT_THROW(most * money("2"), OverflowError);
    EXPECT_THROW(-Money::fromRaw(std::numeric_limits<std::int64_t>::min()), OverflowError);
    EXPECT_THROW(most / Money(), ConversionError);
    EXPECT_EQ(Money::fromRaw(std::numeric_limits<std::int64_t>::min()).toText(), "-922337203685477.5808");
}

TEST(Dates, CountFromTheDayBeforeTheCentury) {
    const struct {
        const char* text;
        double days;
    } cases[] = {{"1899-12-30", 0},     {"1899-12-31", 1},       {"1900-03-01", 61},
                 {"2024-02-29", 45351}, {"9999-12-31", 2958465}, {"2024-02-29 12:00", 45351.5}};
    for (const auto& [text, days] : cases) {
        ASSERT_TRUE(Date::parseIso(text)) << text;
        EXPECT_EQ(Date::parseIso(text)->days, days) << text;
        EXPECT_EQ(Date::parseIso(text)->isoText(), std::string(text).substr(0, 10));
    }
    for (const double wild : {1e300, -1e300, -700000.0, 2958466.0, std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity()}) {
        EXPECT_THROW(Date{wild}.isoText(), ConversionError) << wild;
        EXPECT_THROW(LocaleFormat().shortDate({wild}), ConversionError) << wild;
    }
    EXPECT_EQ(Date{2958465.99}.isoText(), "9999-12-31");
    EXPECT_EQ(Date{-0.5}.isoText(), "1899-12-29") << "a day begins at its midnight, also before the first one";
    for (const char* bad :
         {"2023-02-29", "2023-13-01", "2023-1-1", "20230101", "2023-01-01x", "2023-01-01 25:00", "-123-01-01", ""})
        EXPECT_FALSE(Date::parseIso(bad)) << bad;
}

TEST(Variants, ConvertByOneTable) {
    EXPECT_EQ(ValueView::ofText("2023-05-06").toDate().isoText(), "2023-05-06");
    EXPECT_EQ(ValueView::ofText(" 12.5 ").toMoney().toText(), "12.5");
    for (const char* extreme : {"922337203685477.5807", "-922337203685477.5808"})
        EXPECT_EQ(ValueView::ofText(extreme).toMoney().toText(), extreme);
    EXPECT_THROW(ValueView::ofText("922337203685477.5808").toMoney(), OverflowError);
    EXPECT_THROW(ValueView::ofText("99999999999999999999999999 Elm Street").toMoney(), ConversionError);
    EXPECT_EQ(ValueView::ofBool(true).toInt32(), -1);
    EXPECT_TRUE(ValueView::ofInt32(7).toBool());
    EXPECT_FALSE(ValueView::ofText("0").toBool());
    EXPECT_TRUE(ValueView::ofText("TRUE").toBool());
    EXPECT_EQ(ValueView::ofDouble(2.5).toInt32(), 2);
    EXPECT_EQ(ValueView::ofDouble(1e15).toText(), "1e+15");
    EXPECT_EQ(ValueView::ofMoney(money("-0.05")).toText(), "-0.05");
    EXPECT_THROW(ValueView::ofInt64(1LL << 40).toInt32(), OverflowError);
    EXPECT_THROW(ValueView::ofText("12,5").toMoney(), ConversionError);
    EXPECT_THROW(ValueView::ofText("tomorrow").toDate(), ConversionError);
    EXPECT_THROW(ValueView().toText(), ConversionError);
    EXPECT_EQ(ValueView().moneyOrZero(), Money());
    EXPECT_TRUE(sameValue(ValueView::ofInt32(5), ValueView::ofText("5")));
    EXPECT_TRUE(sameValue(ValueView::ofMoney(money("5")), ValueView::ofDouble(5)));
    EXPECT_FALSE(sameValue(ValueView(), ValueView::ofInt32(0)));
}

LocaleFormat french() {
    LocaleSymbols symbols;
    symbols.decimal = ",";
    symbols.group = "\xC2\xA0";
    symbols.currency = {"", "\xC2\xA0$", "-", "\xC2\xA0$"};
    symbols.shortDate = "d.MM.yy";
    return LocaleFormat(symbols);
}

TEST(LocaleFormats, WriteAndReadBackTheSameAmount) {
    for (const LocaleFormat& locale : {LocaleFormat(), french()}) {
        for (const char* text : {"0", "0.01", "-0.01", "1", "999.99", "1000", "-1234567.89", "92233720368547.58",
                                 "-12345678901234.5", "100000"}) {
            const Money amount = money(text);
            ASSERT_EQ(amount.toText(), text);
            EXPECT_EQ(locale.readMoney(locale.currency(amount)), roundAmount(amount, 2)) << locale.currency(amount);
            EXPECT_EQ(locale.readMoney(locale.number(amount, 2)), roundAmount(amount, 2));
        }
        for (const char* bad : {"", "$", "abc", "1.2.3", "1,2,,3.4.5", "--5", "12x", "()", "(x)"})
            EXPECT_THROW(locale.readMoney(bad), ConversionError) << bad;
        EXPECT_THROW(locale.readMoney("999999999999999"), OverflowError);
    }
    EXPECT_EQ(french().currency(money("-1234.5")),
              "-1\xC2\xA0"
              "234,50\xC2\xA0$");
    EXPECT_EQ(LocaleFormat().currency(money("-0.004")), "$0.00") << "what rounds to nothing has no sign";
    EXPECT_EQ(LocaleFormat().readMoney("(1,234.50)").toText(), "-1234.5");
    EXPECT_EQ(french().shortDate(*Date::parseIso("2023-05-06")), "6.05.23");
    EXPECT_EQ(LocaleFormat().shortDate(*Date::parseIso("0987-01-02")), "0987-01-02");
    EXPECT_EQ(french().plainNumber(ValueView::ofDouble(1.35)), "1,35");
    EXPECT_EQ(LocaleFormat().percent(0.125), "12.50%");
}

TEST(NumberFormats, FollowTheirPicture) {
    const struct {
        const char *picture, *value, *text;
    } cases[] = {{"#,##0.00", "1234.5", "1,234.50"},
                 {"#,##0.00", "-1234.5", "-1,234.50"},
                 {"#,##0.00;(#,##0.00)", "-1234.5", "(1,234.50)"},
                 {"#,##0.00;(#,##0.00)", "0", "0.00"},
                 {"0", "2.5", "3"},
                 {"0.000", "1.2345", "1.235"},
                 {"Currency", "-5", "-$5.00"},
                 {"#,##0.00 kg", "7", "7.00 kg"},
                 {"Percent", "0.5", "50.00%"},
                 {"#,##0.00;(#,##0.00)", "-0.001", "0.00"}};
    for (const auto& [picture, value, text] : cases) {
        std::string out;
        NumberFormat::compile(picture).append(out, ValueView::ofMoney(money(value)), LocaleFormat());
        EXPECT_EQ(out, text) << picture;
    }
    std::string out;
    NumberFormat::compile("Currency").append(out, ValueView(), LocaleFormat());
    EXPECT_EQ(out, "");
    NumberFormat::compile("#,##0.00").append(out, ValueView::ofText("n/a"), LocaleFormat());
    EXPECT_EQ(out, "n/a");
    for (const char* bad : {"abc", "#.#.0", "0.00000", "#0a0"})
        EXPECT_THROW(NumberFormat::compile(bad), InputError) << bad;
}

TEST(Filters, MergeIntoTheText) {
    const struct {
        const char *filter, *where, *own, *order;
    } cases[] = {
        {"", "", "", " ORDER BY Descr"},
        {"|", "", "", " ORDER BY Descr"},
        {"|Name DESC", "", "", " ORDER BY Name DESC"},
        {"Code > 'A'|", " WHERE (Code > 'A') ", " AND (Code > 'A') ", " ORDER BY Descr"},
        {"Code > 'A'|Code|rest", " WHERE (Code > 'A') ", " AND (Code > 'A') ", " ORDER BY Code"},
        {"Code > 'A'", " WHERE (Code > 'A') ", " AND (Code > 'A') ", " ORDER BY Descr"},
    };
    for (const auto& [filter, where, own, order] : cases) {
        const FilterParts parts = splitFilter(filter);
        EXPECT_EQ(whereClause(parts, OwnWhere::no), where) << filter;
        EXPECT_EQ(whereClause(parts, OwnWhere::yes), own) << filter;
        EXPECT_EQ(orderClause(parts, " ORDER BY Descr"), order) << filter;
    }
    const auto keeping = [](const char* filter) {
        return orderClauseKeeping(splitFilter(filter), "WorldCurrency.CurrencyCode", " ORDER BY own");
    };
    EXPECT_EQ(keeping("|Cust.Name"), " ORDER BY WorldCurrency.CurrencyCode, Cust.Name");
    EXPECT_EQ(keeping("|worldcurrency.CURRENCYCODE DESC, Cust.Name"),
              " ORDER BY worldcurrency.CURRENCYCODE DESC, Cust.Name");
    EXPECT_EQ(keeping("x=1|"), " ORDER BY own");
    EXPECT_EQ(orderClauseBehind(splitFilter("|Name"), "GLAcctId, ", " ORDER BY own"), " ORDER BY GLAcctId, Name");
    const auto behindAll = [](std::string_view filter) {
        return orderClauseBehindAll(splitFilter(filter), {"T.A", "T.B"}, " ORDER BY own");
    };
    EXPECT_EQ(behindAll("x = 1|"), " ORDER BY own");
    EXPECT_EQ(behindAll("|T.C DESC, D"), " ORDER BY T.A, T.B, T.C DESC, D");
    EXPECT_EQ(behindAll("|t.b DESC, T.AB,T.A"), " ORDER BY T.A, T.B, T.AB");
    EXPECT_EQ(behindAll("|U.A, b"), " ORDER BY T.A, T.B, U.A");
    EXPECT_EQ(orderClauseBehindAll(splitFilter("|T.A, T.AB"), {"A"}, ""), " ORDER BY A, T.AB");
    EXPECT_EQ(orderWithTies(" ORDER BY own", {"Cust.Id"}), " ORDER BY own, Cust.Id");
    EXPECT_EQ(orderWithTies(" ORDER BY cust.id DESC", {"Cust.Id", "Addr.Id"}), " ORDER BY cust.id DESC, Addr.Id");
}

TEST(Segments, ClauseHasTheAskedParts) {
    const std::string column = "GLDet.ExSegmentId";
    EXPECT_EQ(segmentClause(column, "", false, true), "");
    EXPECT_EQ(segmentClause(column, "1,2", false, false), "(GLDet.ExSegmentId IN (1,2))");
    EXPECT_EQ(segmentClause(column, "", true, true), " AND (GLDet.ExSegmentId IS NULL)");
    EXPECT_EQ(segmentClause(column, "3", true, true), " AND (GLDet.ExSegmentId IN (3) OR GLDet.ExSegmentId IS NULL)");
    EXPECT_EQ(segmentListClause(column, "3,4"), " AND GLDet.ExSegmentId IN (3,4) ");
    EXPECT_EQ(segmentListClause(column, ""), "");
}

TEST(DrillTags, CarryTheKeyAndNothingElse) {
    EXPECT_EQ(drillTag(Drill::invoice, ValueView::ofInt32(12)), "INV|12");
    EXPECT_EQ(drillTag("PMT", ValueView()), "PMT|");
    EXPECT_EQ(webTag("HTTP://Example.com"), "HTTP://Example.com");
    EXPECT_EQ(webTag("example.com"), "http://example.com");
    EXPECT_EQ(webTag(""), "http://");
    EXPECT_EQ(mailTag(""), "mailto:");
    for (const char* address : {"javascript:alert(1)", " JavaScript:x", "a@b.ca\r\nBcc: c@d.ca", "a@b.ca%0D%0ABcc:c",
                                "example.com/\xE2\x80\xAE"
                                "fdp",
                                "example.com\x1B[2J"}) {
        EXPECT_EQ(webTag(address), "") << address;
        EXPECT_EQ(mailTag(address), "") << address;
    }
}

TEST(Printable, LetsNoTerminalBeCommanded) {
    EXPECT_EQ(printable("Élan 1\u202F000\u00A0$\n\ttwo"), "Élan 1\u202F000\u00A0$  two");
    for (const char* control : {"\x1B", "\x7F", "\u009B", "\x9B", "\u202E", "\u2066", "\x07", "\u2028"})
        EXPECT_EQ(printable(std::string("a") + control + "b"), "a\uFFFDb");
}

TEST(NearestNames, AreOfferedToSlipsOfTheFingerAlone) {
    const std::vector<std::string> names = {"run", "CustList", "CustListShipAddr", "InvoiDate"};
    EXPECT_EQ(nearestName("custlst", names), "CustList");
    EXPECT_EQ(nearestName("rnu", names), "run");
    EXPECT_EQ(nearestName("InvoiceDate", names), "InvoiDate");
    EXPECT_EQ(nearestName("Salary", names), "");
    EXPECT_EQ(nearestName(std::string(100000, 'x'), names), "");
}

}  // namespace
}  // namespace quillo
