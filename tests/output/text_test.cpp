#include <gtest/gtest.h>

#include <chrono>

#include "output/font_measure.h"
#include "output/text_layout.h"
#include "tests/output/output_files.h"

namespace quillo::test {
namespace {

using std::string;
using Starts = std::vector<std::uint32_t>;

TEST(TextMeasure, BreaksLines) {
    FontMeasure measure;
    const TextStyle style;
    const auto wide = [&](const char* text) { return measure.width(text, style); };
    struct Case {
        const char* what;
        const char* text;
        float width;
        Starts starts;
    };
    const Case cases[] = {
        {"nothing", "", 1000, {}},
        {"fits", "one two", wide("one two"), {0}},
        {"at a blank, which stays on its line", "one two", wide("one tw"), {0, 4}},
        {"blanks may hang over", "one    two", wide("one"), {0, 7}},
        {"at line feeds, empty lines too", "a\n\nb", 1000, {0, 2, 3}},
        {"a last line feed begins no line", "a\n", 1000, {0}},
        {"carriage returns have no width", "one\r\ntwo", wide("one"), {0, 5}},
        {"within a long word", "aaaaaa", wide("aa"), {0, 2, 4}},
        {"a long word begins a line of its own", "x aaaaaa", wide("aaaa"), {0, 2, 6}},
        {"never within a character", "éééé", wide("éé"), {0, 4}},
        {"never before a mark", "e\xCC\x81q\xCC\x81", wide("q"), {0, 3}},
        {"no room: a character a line", "abc", 0, {0, 1, 2}},
        {"a paragraph starts anew", "one two\nthree four", wide("one two"), {0, 8, 14}},
    };
    for (const Case& c : cases) {
        Starts starts;
        measure.breakLines(c.text, style, c.width, starts);
        EXPECT_EQ(starts, c.starts) << c.what;
    }
}

TEST(TextMeasure, LinesAreNoWiderThanAsked) {
    FontMeasure measure;
    TextStyle style;
    style.size = 7.5F;
    const string text =
        "Pour toute question sur ce compte, écrire à Société d'exploitation forestière, 1 234,50 €, avant la fin du "
        "mois.";
    for (const float width : {300.0F, 777.0F, 1500.0F, 4000.0F}) {
        Starts starts;
        measure.breakLines(text, style, width, starts);
        for (std::size_t i = 0; i < starts.size(); ++i) {
            const std::size_t end = i + 1 < starts.size() ? starts[i + 1] : text.size();
            const string line = text.substr(starts[i], text.find_last_not_of(' ', end - 1) + 1 - starts[i]);
            EXPECT_LE(measure.width(line, style), width + 1) << line;
        }
    }
}

TEST(TextMeasure, GrowsWithTheSizeAndKeepsDigitsInColumns) {
    FontMeasure measure;
    TextStyle small, large, bold;
    small.size = 8;
    large.size = 16;
    bold.bold = true;
    EXPECT_NEAR(measure.width("Amount", large), 2 * measure.width("Amount", small), 0.1);
    EXPECT_NEAR(measure.lineHeight(large), 2 * measure.lineHeight(small), 0.1);
    EXPECT_NEAR(measure.lineHeight(small), 8 * 20 * 1.149F, 1) << "ascent, descent and gap of the default font";
    EXPECT_EQ(measure.width("1111", small), measure.width("8749", small));
    EXPECT_NEAR(measure.width("AVAV", small), 2 * (measure.width("A", small) + measure.width("V", small)), 0.01)
        << "no kerning";
    EXPECT_GT(measure.width("Amount", bold), measure.width("Amount", TextStyle()));
}

// The least time of a few that a text takes to be measured, in seconds.
double secondsFor(FontMeasure& measure, const string& text) {
    double least = 1e9;
    for (int i = 0; i < 3; ++i) {
        Starts starts;
        const auto start = std::chrono::steady_clock::now();
        measure.breakLines(text, TextStyle(), 2000, starts);
        least = std::min(least, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return least;
}

TEST(TextMeasure, ATextTwiceAsLongTakesTwiceTheTime) {
    FontMeasure measure;
    for (const char* part : {"\u200B", "\u0301", "x", "\u0628", "\n"}) {
        string text;
        while (text.size() < 100'000) text += part;
        const double once = secondsFor(measure, text), twice = secondsFor(measure, text + text);
        EXPECT_LT(twice, 3 * once + 0.01) << part << ": " << once << " s, then " << twice;
        EXPECT_LT(once, 1) << part;
    }
}

TEST(TextLayout, TellsNumbers) {
    for (const char* text : {"1,234.50", "(12.00)", "-5 %",
                             "1\xC2\xA0"
                             "234,50 €",
                             "CHF 12.00", "2024-03-31",
                             "1\xE2\x80\xAF"
                             "000 $"}) {
        EXPECT_TRUE(isNumber(text)) << text;
    }
    for (const char* text : {"", "-", "Net 30 days", "ABC", "No 5 é"}) EXPECT_FALSE(isNumber(text)) << text;
}

// The text that prints for a text in a box of some width.
string inBox(const string& text, float width) {
    PageBuilder builder;
    builder.section(240).text(text, 0, width);
    string printed = printedText(builder.page());
    return printed.substr(0, printed.find('\n'));
}

TEST(TextLayout, NumbersAreNeverCutAndNamesEndInAnEllipsis) {
    EXPECT_EQ(inBox("1,234,567,890.12", 150), "1,234,567,890.12");
    const string name = "A customer of quite a long name";
    EXPECT_EQ(inBox(name, 2200), name) << "narrowed";
    const string cut = inBox(name, 1000);
    EXPECT_TRUE(cut.starts_with("A custo") && cut.ends_with("…") && cut.size() < name.size()) << cut;
    EXPECT_EQ(inBox("Total of  and more words behind", 600), "Total of…") << "no blank before the ellipsis";
}

struct Place {
    string text;
    float left, baseline, width;
};

std::vector<Place> placesOf(const PlacedControl& control) {
    TextLayout layout(makeTextShaper());
    layout.start(control, 100, 1000);
    std::vector<Place> places;
    while (const PlacedLine* line = layout.next())
        places.push_back({string(line->text), line->left, line->baseline, line->width});
    return places;
}

TEST(TextLayout, Aligns) {
    TextStyle style;
    FontMeasure measure;
    const float width = measure.width("Total", style), height = measure.lineHeight(style);
    const auto place = [&](Align align, VerticalAlign vertical) {
        style.align = align;
        style.verticalAlign = vertical;
        PageBuilder builder;
        PlacedControl& control = builder.section(1000).text("Total", 0, 3000, style);
        control.height = 1000;
        return placesOf(control).at(0);
    };
    const Place base = place(Align::left, VerticalAlign::top);
    EXPECT_FLOAT_EQ(base.left, 100);
    EXPECT_GT(base.baseline, 1000 + height / 2);
    EXPECT_LT(base.baseline, 1000 + height);
    EXPECT_NEAR(place(Align::right, VerticalAlign::top).left, 100 + 3000 - width, 0.1);
    EXPECT_NEAR(place(Align::center, VerticalAlign::top).left, 100 + (3000 - width) / 2, 0.1);
    EXPECT_NEAR(place(Align::left, VerticalAlign::bottom).baseline - base.baseline, 1000 - height, 0.1);
    EXPECT_NEAR(place(Align::left, VerticalAlign::middle).baseline - base.baseline, (1000 - height) / 2, 0.1);
}

TEST(TextLayout, PlacesWrappedLines) {
    TextStyle style;
    style.align = Align::justify;
    FontMeasure measure;
    const float height = measure.lineHeight(style);
    const string text = "one two\nthree four five";  // the second line is the last
    PageBuilder builder;
    builder.section(1000);
    const auto whole = placesOf(builder.wrapped(text, 2000, 3 * height, {0, 8, 19}, style));
    ASSERT_EQ(whole.size(), 3U);
    EXPECT_EQ(whole[0].text, "one two");
    EXPECT_EQ(whole[1].text, "three four");
    EXPECT_NEAR(whole[1].baseline - whole[0].baseline, height, 0.1);
    EXPECT_LT(whole[0].width, 2000) << "the end of a paragraph is not spread";
    EXPECT_FLOAT_EQ(whole[1].width, 2000) << "a line within one is";
    EXPECT_LT(whole[2].width, 2000);
    EXPECT_EQ(placesOf(builder.wrapped(text, 2000, 1.2F * height, {0, 8, 19}, style)).size(), 2U)
        << "lines that begin in the box";
    EXPECT_EQ(placesOf(builder.wrapped(text, 2000, 0.5F * height, {0, 8, 19}, style)).size(), 1U)
        << "the first prints always";
}

}  // namespace
}  // namespace quillo::test
