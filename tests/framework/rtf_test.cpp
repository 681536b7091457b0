#include <gtest/gtest.h>

#include <string_view>

#include "framework/richtext/rtf_reader.h"
#include "output/style_text.h"
#include "tests/output/sample_pictures.h"
#include "tests/support/dice.h"
#include "tests/support/sample_letter.h"

namespace quillo::test {
namespace {

using namespace std::string_view_literals;

RichText read(const std::string& rtf) {
    return readRichText(rtf, {});
}

// "<12 bold>Dear<12> Bo": each run with its look, which is left out where it is the plain one.
std::string describe(const RichParagraph& paragraph) {
    std::string text;
    for (const RichRun& run : paragraph.runs) {
        if (const std::string look = styleText(run.style); look != styleText({})) text += "<" + look + ">";
        text += run.picture.empty() ? run.text : "[picture]";
    }
    return text;
}

// A paragraph a line; the cells of a row between bars.
std::string describe(const RichText& text) {
    std::string lines;
    for (const RichBlock& block : text) {
        if (!lines.empty()) lines += "\n";
        if (!block.isRow()) lines += describe(block.paragraph);
        for (const RichCell& cell : block.row.cells) {
            lines += "|";
            for (const RichParagraph& paragraph : cell.paragraphs)
                lines += (&paragraph == &cell.paragraphs.front() ? "" : "/") + describe(paragraph);
        }
    }
    return lines;
}

RichText readBody(const std::string& body) {
    return read(
        "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Liberation Sans;}{\\f1 Courier New;}}"
        "{\\colortbl;\\red255\\green0\\blue0;}\\fs18 " +
        body + "}");
}

std::string inRtf(const std::string& body) {
    return describe(readBody(body));
}

struct Case {
    const char *body, *text;
};

TEST(Rtf, ReadsTheLooksOfItsRuns) {
    constexpr Case cases[] = {
        {"plain {\\b bold} plain", "plain <9 bold>bold plain"},
        {"\\b a\\b0 b\\i c\\i0\\ul d\\ulnone e", "<9 bold>ab<9 italic>c<9 underline>de"},
        {"\\f1\\fs24 x\\plain y", "<12 Courier New>x<12>y"},
        {"\\cf1 red\\cf0 black", "<9 #ff0000>redblack"},
        {"\\cf7\\f9 of no table", "of no table"},
        {"{\\b one\\par two}\\par three", "<9 bold>one\n<9 bold>two\nthree"},
        {"seen{\\v hidden}", "seen"},
    };
    for (const Case& c : cases) EXPECT_EQ(inRtf(c.body), std::string(c.text)) << c.body;
}

TEST(Rtf, ReadsCharactersWhateverWayTheyAreWritten) {
    constexpr Case cases[] = {
        {"\\'e9\\'80\\'93", "é€“"},
        {"{\\ansicpg850 \\'82\\'9b}", "éø"},
        {"{\\pca \\'82}", "é"},
        {"\\u233?t\\u-1279 ?", "ét\xEF\xAC\x81"},
        {"\\uc2\\u8364 EUx{\\uc0\\u8364 y}", "€x€y"},
        {"\\u55357?\\u56832?", "😀"},
        {"\\u56832?", "\xEF\xBF\xBD"},
        {"\\u233\\'e9!", "é!"},
        {"\\u233{x}", "éx"},
        {"\\{\\\\\\}\\~\\_\\-", "{\\}\u00A0\u2011"},
        {"a\\tab b\\line c\\emdash\\rquote\\bullet", "a\tb\nc—’•"},
        {"one\r\nword", "oneword"},
        {"one\\\nother", "one\nother"},
    };
    for (const Case& c : cases) EXPECT_EQ(inRtf(c.body), std::string(c.text)) << c.body;
}

TEST(Rtf, LeavesOutWhatItDoesNotKnowAndKeepsItsText) {
    constexpr Case cases[] = {
        {"{\\*\\generator Writer;}a{\\*\\unknown{\\b x}}b", "ab"},
        {"{\\field{\\*\\fldinst HYPERLINK x}{\\fldrslt here}}", "here"},
        {"{\\header on top}{\\stylesheet{\\s0 Normal;}}{\\info{\\author Bo}}text", "text"},
        {"\\outlinelevel0{\\shad\\someword12 kept}", "kept"},
        {"{\\listtext 1.\\tab}item", "1.\titem"},
        {"a{\\footnote b}c", "abc"},
        {"a}b", "a\nb"},
        {"{{{a", "a"},
        {"a\\info\\*\\fonttbl b", "ab"},
        {"a\\", "a}"},
        {"a\\'zz", "azz"},
    };
    for (const Case& c : cases) EXPECT_EQ(inRtf(c.body), std::string(c.text)) << c.body;
    EXPECT_EQ(describe(read("no RTF\r\nat {all}")), "no RTF\nat {all}");
    EXPECT_TRUE(read("").empty());
}

TEST(Rtf, ReadsTheFormOfParagraphs) {
    const RichText text = read(
        "{\\rtf1\\qr\\li100\\ri200\\fi-50\\sb30\\sa40\\tqr\\tx900\\tx300\\tqc\\tx600 a\\par b\\par\\pard c\\par"
        "\\li99999999\\sb-5 d}");
    ASSERT_EQ(text.size(), 4U);
    for (const RichBlock& block : {text[0], text[1]}) {
        const RichParagraph& paragraph = block.paragraph;
        EXPECT_EQ(paragraph.align, Align::right);
        EXPECT_EQ((std::vector{paragraph.left, paragraph.right, paragraph.first, paragraph.before, paragraph.after}),
                  (std::vector{100.0F, 200.0F, -50.0F, 30.0F, 40.0F}));
        ASSERT_EQ(paragraph.tabs.size(), 3U);
        EXPECT_EQ(paragraph.tabs[0].at, 300);
        EXPECT_EQ(paragraph.tabs[1].align, Align::center);
        EXPECT_EQ(paragraph.tabs[2].align, Align::right);
    }
    EXPECT_EQ(text[2].paragraph.align, Align::left);
    EXPECT_EQ(text[2].paragraph.left, 0);
    EXPECT_LT(text[3].paragraph.left, 31000) << "no page is that wide";
    EXPECT_EQ(text[3].paragraph.before, 0);
}

TEST(Rtf, ReadsTablesAsRows) {
    constexpr Case cases[] = {
        {"\\trowd\\cellx100\\cellx200\\intbl a\\cell{\\b b}\\par c\\cell\\row\\pard d", "|a|<9 bold>b/c\nd"},
        {"\\trowd\\cellx100\\intbl a\\cell more\\cell\\row", "|a/more"},
        {"\\trowd\\cellx100\\cellx200\\intbl a\\cell\\row", "|a|"},
        {"\\intbl a\\cell b\\cell\\row c", "a\nb\nc"},
        {"\\trowd\\cellx100\\intbl a\\cell\\pard b\\par", "a\nb"},
        {"\\trowd\\cellx100\\intbl a\\cell b", "a\nb"},
    };
    for (const Case& c : cases) EXPECT_EQ(inRtf(c.body), std::string(c.text)) << c.body;
    const RichText text = read(
        "{\\rtf1\\trowd\\trhdr\\trgaph50\\trleft10\\clbrdrb\\brdrs\\brdrw30\\cellx500\\clbrdrl\\brdrs\\cellx400\\intbl "
        "a\\cell b\\cell\\row}");
    ASSERT_EQ(text.size(), 1U);
    const RichRow& row = text[0].row;
    ASSERT_EQ(row.cells.size(), 2U);
    EXPECT_TRUE(row.heading);
    EXPECT_EQ(row.gap, 50);
    EXPECT_EQ(row.cells[0].left, 10);
    EXPECT_EQ(row.cells[0].right, 500);
    EXPECT_EQ(row.cells[0].ruleBelow, 30);
    EXPECT_EQ(row.cells[1].left, 500);
    EXPECT_EQ(row.cells[1].right, 500) << "an edge never lies before the one before";
    EXPECT_EQ(row.cells[1].ruleAbove + row.cells[1].ruleBelow, 0);
}

std::string hexOf(std::span<const std::byte> bytes) {
    std::string hex;
    for (const std::byte byte : bytes) {
        hex += "0123456789abcdef"[std::to_integer<int>(byte) >> 4];
        hex += "0123456789abcdef"[std::to_integer<int>(byte) & 15];
        if (hex.size() % 64 == 0) hex += "\n";
    }
    return hex;
}

TEST(Rtf, ReadsPicturesAndLeavesOutDamagedOnes) {
    const auto png = redPng(), jpeg = smallJpeg();
    const std::string raw(reinterpret_cast<const char*>(jpeg.data()), jpeg.size());
    const RichText text = readBody("a{\\pict{\\*\\blipuid 01}\\pngblip\\picwgoal600\\pichgoal300\\picscalex50 " +
                                   hexOf(png) + "}b{\\*\\shppict{\\pict\\jpegblip\\bin" + std::to_string(jpeg.size()) +
                                   " " + raw + "}}{\\nonshppict{\\pict\\wmetafile8 0100}}c");
    ASSERT_EQ(describe(text), "a[picture]b[picture]c");
    const RichRun &first = text[0].paragraph.runs[1], &second = text[0].paragraph.runs[3];
    EXPECT_EQ(first.picture, png);
    EXPECT_EQ(first.width, 300);
    EXPECT_EQ(first.height, 300);
    EXPECT_EQ(second.picture, jpeg);
    EXPECT_EQ(second.width, 45) << "its dots, where the file names no size";
    auto spoiled = png;
    spoiled[spoiled.size() - 20] ^= std::byte{1};
    for (const std::string& hex : {hexOf(spoiled), hexOf(std::span(png).first(40)), std::string("0102"), std::string()})
        EXPECT_EQ(inRtf("a{\\pict\\pngblip " + hex + "}b"), "ab");
}

TEST(Rtf, ADamagedFileGivesWhatCanBeRead) {
    const std::string whole = sampleLetter();
    const std::string words = describe(read(whole));
    for (std::size_t size = 0; size < whole.size(); ++size) read(whole.substr(0, size));
    EXPECT_EQ(describe(read(whole.substr(0, whole.size() - 1))), words) << "a brace that lacks at the end";
    Dice dice(1);
    for (int round = 0; round < 4000; ++round) {
        std::string damaged = whole;
        for (int i = dice.between(1, 8); i > 0; --i) {
            const auto at = static_cast<std::size_t>(dice.between(0, static_cast<int>(damaged.size()) - 1));
            constexpr std::string_view spice = "{}\\\\\\'*0-9\n\xff\0;"sv;
            if (dice.between(0, 2) == 0)
                damaged.erase(at, static_cast<std::size_t>(dice.between(1, 12)));
            else
                damaged[at] = spice[static_cast<std::size_t>(dice.between(0, static_cast<int>(spice.size()) - 1))];
        }
        for (const RichBlock& block : read(damaged)) EXPECT_LE(block.row.cells.size(), 64U);
    }
    EXPECT_EQ(inRtf(std::string(300000, '{') + "deep" + std::string(300000, '}') + " out"), "deep out");
    EXPECT_EQ(describe(read("{\\rtf1 x}")), "<12 Times New Roman>x") << "what RTF means that names no font";
}

}  // namespace
}  // namespace quillo::test
