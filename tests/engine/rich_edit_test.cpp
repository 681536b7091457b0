#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "framework/engine/rich_layout.h"
#include "output/json/json_sink.h"
#include "output/output_file.h"
#include "tests/output/sample_pictures.h"
#include "tests/support/dice.h"
#include "tests/support/sample_letter.h"
#include "tests/support/sample_report.h"

// Formatted texts on pages. A letter is 100 twips wide, a line 200 high, its letters stand at 160.
namespace quillo::test {
namespace {

struct Shown {
    std::string text;
    float left, top, right, bottom;  // from the page's corner
};

class RichEditPages : public testing::Test {
protected:
    Bench bench;

    // The text in a box of 4000 twips, on pages whose body has that height.
    void print(const std::string& rtf, float body = 2000, const std::string& more = R"("canGrow": true)",
               bool keepTogether = false) {
        bench.pages.pages.clear();
        const auto report = bench.report(
            design(section("Detail", "detail", 200,
                           R"({"kind": "RichEdit", "name": "rtb", "width": 4000, "height": 200, )" + more + "}",
                           std::string("\"keepTogether\": ") + (keepTogether ? "true" : "false"))));
        report->setup.height = body + 1000;
        static_cast<RichEdit&>(*report->section("Detail").find("rtb")).RTF = rtf;
        bench.run(*report);
    }
    static void collect(const PlacedSection& section, float left, float top, std::vector<Shown>& shown) {
        for (const PlacedControl& control : section.controls) {
            const float x = left + section.left + control.left, y = top + section.top + control.top;
            if (control.info->kind != ControlKind::richEdit)
                shown.push_back({std::string(control.text), x, y, x + control.width, y + control.height});
            for (const PlacedSection& inner : control.sections) collect(inner, x, y, shown);
        }
    }
    std::vector<Shown> shownOn(std::size_t page) const {
        std::vector<Shown> shown;
        for (const PlacedSection& section : bench.pages.pages.at(page)->sections) collect(section, 0, 0, shown);
        return shown;
    }
    // "text@left,top" of each run, from the corner of the body.
    std::string places() const {
        std::string text;
        for (const Shown& run : shownOn(0))
            text += (text.empty() ? "" : " ") + run.text + "@" + std::to_string(static_cast<int>(run.left - 500)) +
                    "," + std::to_string(static_cast<int>(run.top - 500));
        return text;
    }
    std::string words() const {
        std::string text;
        for (const auto& page : bench.pages.pages)
            for (const PlacedSection& section : page->sections)
                for (const PlacedControl& control : section.controls) text += wordsOf(control) + "\n";
        return text;
    }
};

TEST_F(RichEditPages, BreaksLinesBetweenWordsAndWithinLongOnes) {
    const struct {
        const char *body, *places;
    } cases[] = {
        {"one two", "one two@0,0"},
        {"a line that is wider than its box is", "a line that is wider than its box is@0,0"},
        {"a line that is quite a bit wider than its box is",
         "a line that is quite a bit wider than@0,0 its box is@0,200"},
        {"forty letters in a row fill the line's 40 more", "forty letters in a row fill the line's@0,0 40 more@0,200"},
        {"ab{\\b cd}ef {\\i gh}", "ab@0,0 cd@200,0 ef @400,0 gh@700,0"},
        {"word 12345678901234567890123456789012345678901234567890 end",
         "word@0,0 1234567890123456789012345678901234567890@0,200 1234567890 end@0,400"},
        {"a word that stands in two looks, {\\b as}this one",
         "a word that stands in two looks, @0,0 as@3300,0 this@3500,0 one@0,200"},
        {"a word that stands in two looks, as {\\b this}one",
         "a word that stands in two looks, as@0,0 this@0,200 one@400,200"},
        {"one\\line two\\par\\par three", "one@0,0 two@0,200 three@0,600"},
        {"  led by blanks  ", "  led by blanks@0,0"},
    };
    for (const auto& c : cases) {
        print(std::string("{\\rtf1 ") + c.body + "}");
        EXPECT_EQ(places(), c.places) << c.body;
    }
}

TEST_F(RichEditPages, PlacesLinesByAlignmentIndentsAndTabs) {
    const struct {
        const char *body, *places;
    } cases[] = {
        {"\\qr right", "right@3500,0"},
        {"\\qc mid", "mid@1850,0"},
        {"\\qr a{\\b b} ", "a@3800,0 b@3900,0"},
        {"\\li500\\ri500\\fi200 the first line stands further in than those below",
         "the first line stands@700,0 further in than those below@500,200"},
        {"\\li500\\fi-500 1.\\tab goes on where the text of its first line began",
         "1.@0,0 goes on where the text of its first@500,0 line began@500,200"},
        {"\\qj words that fill the room that there is for all",
         "words@0,0 that@628,0 fill@1157,0 the@1685,0 room@2114,0 that@2642,0 there@3171,0 is@3800,0 for all@0,200"},
        {"\\tx1000\\tqc\\tx2000\\tqr\\tx3000 a\\tab b\\tab cc\\tab dd\\tab e",
         "a@0,0 b@1000,0 cc@1900,0 dd@2800,0 e@3600,0"},
        {"\\tqr\\tx3900 a\\tab 12345678901234567890123456789012345678",
         "a@0,0 12345678901234567890123456789012345678@100,0"},
        {"\\tx3000 a\\tab too long for here", "a@0,0 too long@3000,0 for here@0,200"},
        {"\\tqr\\tx9000 a\\tab b", "a@0,0 b@3900,0"},
        {"\\sb100\\sa50 a\\par b", "a@0,100 b@0,450"},
    };
    for (const auto& c : cases) {
        print(std::string("{\\rtf1 ") + c.body + "}");
        EXPECT_EQ(places(), c.places) << c.body;
    }
}

TEST_F(RichEditPages, PutsTheCellsOfARowBesideOneAnother) {
    print(
        "{\\rtf1\\trowd\\trgaph100\\cellx1000\\cellx3000\\intbl number 12\\cell\\qr 10.00\\cell\\row"
        "\\trowd\\cellx8000\\cellx16000\\pard\\intbl a\\cell b\\cell\\row\\pard end}");
    EXPECT_EQ(places(), "number@100,0 12@100,200 10.00@2400,0 a@0,400 b@2000,400 end@0,600")
        << "a table that is wider than the text is narrowed";
}

TEST_F(RichEditPages, PicturesStandOnTheLineAndFitThePage) {
    const auto png = redPng();
    std::string hex;
    for (const std::byte byte : png) {
        hex += "0123456789abcdef"[std::to_integer<int>(byte) >> 4];
        hex += "0123456789abcdef"[std::to_integer<int>(byte) & 15];
    }
    print("{\\rtf1 a{\\pict\\pngblip\\picwgoal300\\pichgoal500 " + hex +
          "}\\par{\\pict\\pngblip\\picwgoal9000\\pichgoal9000 " + hex + "}}");
    const auto shown = shownOn(0);
    ASSERT_EQ(shown.size(), 3U);
    EXPECT_EQ(shown[0].top, 500 + 500 - 160) << "the letter stands on the picture's lower edge";
    EXPECT_EQ(shown[1].bottom, 500 + 500);
    EXPECT_EQ(shown[2].bottom - shown[2].top, 1000) << "half the page at most";
    EXPECT_EQ(shown[2].right - shown[2].left, 1000);
}

// Whatever the page: each word once and in order, within the body, on nothing else.
TEST_F(RichEditPages, LosesAndCoversNothingOnAnyPage) {
    print(sampleLetter(), 100000);
    ASSERT_EQ(bench.pages.pages.size(), 1U);
    const auto flat = [](const std::string& text) {
        std::istringstream stream(text);
        std::string joined;
        for (std::string word; stream >> word;) joined += word + " ";
        return joined;
    };
    const std::string all = flat(words());
    EXPECT_NE(all.find("Dear Bo, café €"), all.npos) << all;
    for (const float body : {400.0F, 700.0F, 1000.0F, 2000.0F}) {
        for (const bool keepTogether : {false, true}) {
            print(sampleLetter(), body, R"("canGrow": true)", keepTogether);
            EXPECT_GT(bench.pages.pages.size(), 1U);
            EXPECT_EQ(flat(words()), all) << body;
            for (std::size_t page = 0; page < bench.pages.pages.size(); ++page) {
                const auto shown = shownOn(page);
                for (const Shown& a : shown) {
                    EXPECT_GE(a.top, 500) << a.text;
                    EXPECT_LE(a.bottom, 500 + body + 1) << a.text;
                    for (const Shown& b : shown) {
                        const bool apart = &a == &b || a.text.empty() || b.text.empty() || a.right <= b.left + 1 ||
                                           b.right <= a.left + 1 || a.bottom <= b.top + 1 || b.bottom <= a.top + 1;
                        EXPECT_TRUE(apart) << a.text << " and " << b.text;
                    }
                }
            }
        }
    }
    EXPECT_TRUE(bench.host.boxes.empty());
}

TEST_F(RichEditPages, CaptionsStandAgainWhereTheirTableGoesOnAndOnlyThere) {
    std::string rtf = "{\\rtf1 above\\par\\trowd\\trhdr\\cellx2000\\intbl Captions\\cell\\row\\pard";
    for (int i = 1; i <= 12; ++i) rtf += "\\trowd\\cellx2000\\intbl row " + std::to_string(i) + "\\cell\\row\\pard";
    print(rtf + " below\\par more\\par more\\par more\\par more\\par more\\par last}");
    ASSERT_EQ(bench.pages.pages.size(), 3U);
    const auto first = [&](std::size_t page, std::size_t index) { return shownOn(page).at(index).text; };
    EXPECT_EQ(first(0, 1), "Captions");
    EXPECT_EQ(first(1, 0), "Captions");
    EXPECT_EQ(first(1, 1), "row 9");
    EXPECT_EQ(first(2, 0), "more");
    EXPECT_EQ(words().find("Captions"), words().rfind("Captions")) << "the words tell them once";
}

// Ten lines stand on a page.
TEST_F(RichEditPages, WhatBelongsTogetherIsNotTorn) {
    const auto lines = [](int count) {
        std::string rtf;
        for (int i = 0; i < count; ++i) rtf += "line\\par ";
        return rtf;
    };
    const auto table = [](int rows) {
        std::string rtf = "\\trowd\\trhdr\\cellx900\\intbl Captions\\cell\\row";
        for (int i = 1; i <= rows; ++i) rtf += "\\trowd\\cellx900\\intbl row " + std::to_string(i) + "\\cell\\row";
        return rtf + "\\pard ";
    };
    const std::string threeLines =
        "three lines of this text, each of them near as wide as the room, for the widows and "
        "the orphans\\par ";
    const struct {
        std::string body;
        std::vector<std::string> second;  // what the second page begins with
    } cases[] = {
        {lines(9) + table(2), {"Captions", "row 1"}},
        {lines(1) + table(9), {"Captions", "row 8", "row 9"}},
        {lines(9) + threeLines, {"three lines of this text, each of them"}},
        {lines(8) + threeLines, {"three lines of this text, each of them"}},
        {lines(8) + "\\keepn goes\\par along\\par\\pard with this", {"goes", "along", "with this"}},
        {"\\keepn " + lines(12), {"line", "line"}},
    };
    for (const auto& c : cases) {
        print("{\\rtf1 " + c.body + "}");
        ASSERT_EQ(bench.pages.pages.size(), 2U) << c.body;
        const auto shown = shownOn(1);
        ASSERT_GE(shown.size(), c.second.size());
        for (std::size_t i = 0; i < c.second.size(); ++i) EXPECT_EQ(shown[i].text, c.second[i]) << c.body;
    }
    print("{\\rtf1 " + lines(7) + threeLines + "}");
    EXPECT_EQ(bench.pages.pages.size(), 1U);
}

TEST_F(RichEditPages, WithoutRoomToGrowShowsTheLinesThatFit) {
    print("{\\rtf1 one\\par two\\par three}", 2000, R"("canGrow": false)");
    EXPECT_EQ(words(), "one\n");
    print("plain {text}\nof lines");
    EXPECT_EQ(words(), "plain {text}\nof lines\n");
}

TEST_F(RichEditPages, JsonHasTheWordsInTheirOrder) {
    print(
        "{\\rtf1 a{\\b b}c d\\tab e\\par this paragraph goes on to a second line of its own, and ends\\par"
        "\\trowd\\cellx1000\\cellx2000\\intbl f\\cell g\\cell\\row}");
    std::stringstream written;
    JsonSink sink(std::make_unique<OutputStream>(written), "dsrSample", "Sample", "", {});
    sink.page(*bench.pages.pages.at(0));
    sink.finish();
    const auto control = nlohmann::json::parse(written.str())["pages"][0]["sections"][0]["controls"][0];
    EXPECT_EQ(control["kind"], "RichEdit");
    EXPECT_EQ(control["text"], "abc d e\nthis paragraph goes on to a second line of its own, and ends\nf g");
    EXPECT_EQ(control["sections"].size(), 4U);
    EXPECT_EQ(control["sections"][2]["name"], "Line");
}

TEST_F(RichEditPages, ADamagedBodyPrintsWhatCanBeRead) {
    const std::string whole = sampleLetter();
    Dice dice(7);
    for (int round = 0; round < 300; ++round) {
        std::string damaged = whole;
        for (int i = 0; i < 6; ++i) {
            const auto at = static_cast<std::size_t>(dice.between(10, static_cast<int>(damaged.size()) - 1));
            damaged.replace(at, 1, dice.oneOf({"{", "}", "\\", "9999", "-", "\\cellx5", "\\row", "\\tab", "\\fs999 "}));
        }
        print(damaged, 14000);
        ASSERT_GE(bench.pages.pages.size(), 1U) << damaged;
    }
    EXPECT_TRUE(bench.host.boxes.empty());
}

}  // namespace
}  // namespace quillo::test
