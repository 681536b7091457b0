#include <gtest/gtest.h>
#include <sys/stat.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "framework/values/errors.h"
#include "output/json/json_sink.h"
#include "output/output_error.h"
#include "output/picture.h"
#include "output/png/png_sink.h"
#include "output/style_text.h"
#include "tests/output/output_files.h"
#include "tests/output/sample_pictures.h"

namespace quillo::test {
namespace {

using std::string;

TEST(OutputFile, AppearsWholeOrNotAtAll) {
    const TestFolder folder;
    const string path = folder.file("a.txt");
    {
        OutputFile file(path);
        file.write("half");
        EXPECT_FALSE(std::filesystem::exists(path));
    }
    EXPECT_EQ(folder.count(), 0U) << "nothing is left of an abandoned file";
    {
        OutputFile file(path);
        file.write("who");
        file.write("le");
        file.finish();
    }
    EXPECT_EQ(read(path), "whole");
    { OutputFile(path).write("half"); }
    EXPECT_EQ(read(path), "whole") << "what was there stays until the new one is finished";

    std::filesystem::create_symlink(path, folder.file("link"));
    OutputFile through(folder.file("link"));
    through.write("new");
    through.finish();
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("link")));
    EXPECT_EQ(read(path), "new");
    OutputFile device("/dev/null");
    device.write("x");
    device.finish();
    EXPECT_FALSE(std::filesystem::is_regular_file("/dev/null"));
}

// What a user made of a file stays: who may read it, its other names, the link that leads to it.
TEST(OutputFile, TakesAPlaceAsItIs) {
    const TestFolder folder;
    const auto write = [](const string& path, const string& text) {
        OutputFile file(path);
        file.write(text);
        file.finish();
    };
    const string path = folder.file("a.txt");
    write(path, "old and longer");
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    const uid_t owner = geteuid() == 0 ? 65534 : geteuid();
    ASSERT_EQ(chown(path.c_str(), owner, static_cast<gid_t>(-1)), 0);
    write(path, "new");
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
    EXPECT_EQ(status.st_uid, owner);
    std::filesystem::create_hard_link(path, folder.file("other"));
    write(path, "newer");
    EXPECT_EQ(read(folder.file("other")), "newer");
    std::filesystem::create_symlink("to be", folder.file("dangling"));
    write(folder.file("dangling"), "through");
    EXPECT_EQ(read(folder.file("to be")), "through");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("dangling")));
    const string longest = folder.file(string(255, 'n'));
    write(longest, "first");
    write(longest, "second");
    EXPECT_EQ(read(longest), "second");
    EXPECT_EQ(folder.count(), 5U);
}

TEST(OutputFile, SaysWhyItCannotBeWritten) {
    const TestFolder folder;
    const auto failure = [](const string& path) -> string {
        try {
            OutputFile file(path);
            file.write("x");
            file.finish();
        } catch (const OutputError& error) {
            return error.what();
        }
        return "";
    };
    EXPECT_EQ(failure(folder.file("no/a.txt")),
              "Cannot write " + folder.file("no/a.txt") + ": No such file or directory");
    EXPECT_EQ(failure(folder.file("")), "Cannot write " + folder.file("") + ": Is a directory");
    EXPECT_EQ(failure("/dev/full"), "Cannot write /dev/full: No space left on device");
    EXPECT_EQ(folder.count(), 0U);
}

TEST(Json, HoldsThePageAndReadsBack) {
    std::ostringstream stream;
    std::vector<string> failures;
    JsonSink sink(std::make_unique<OutputStream>(stream), "dsrTermList", "TermList", "Terms \"x\"",
                  [&] { return failures; });
    PageBuilder builder(3);
    builder.section(300.5F, SectionKind::pageHeader, "PageHeader").text("é\t\"q\"\\\n\x01", 0.25F, 3000).link = "5;A";
    builder.section(240);
    builder.control(ControlKind::line, "linRule", 0, 10800, 0);
    builder.control(ControlKind::shape, "shpKey", 0, 200).fill = Color{10, 200, 255};
    ChartData chart{"Ageing", {{"Due", {{"30", 12.5}, {"60", -0.1}}}}};
    builder.control(ControlKind::chart, "chtAge", 0, 3000).chart = &chart;
    PageBuilder inner;
    inner.section(100, SectionKind::detail, "Inner").text("within \xFF");
    const std::vector<PlacedSection> innerSections = inner.page().sections;
    builder.control(ControlKind::subReport, "subInfo", 0, 3000).sections = innerSections;
    sink.page(builder.page());
    sink.page(PageBuilder(4).page());
    failures.push_back("a box, shown late");
    sink.finish();

    const auto json = nlohmann::json::parse(stream.str());
    EXPECT_EQ(json["report"], "dsrTermList");
    EXPECT_EQ(json["member"], "TermList");
    EXPECT_EQ(json["title"], "Terms \"x\"");
    EXPECT_EQ(json["failures"], nlohmann::json({"a box, shown late"}));
    ASSERT_EQ(json["pages"].size(), 2U);
    const auto& page = json["pages"][0];
    ASSERT_EQ(page["sections"].size(), 2U);
    EXPECT_EQ(page["number"], 3);
    EXPECT_EQ(page["width"], 12240);
    EXPECT_EQ(page["sections"][0]["name"], "PageHeader");
    EXPECT_EQ(page["sections"][0]["top"], 1440);
    EXPECT_EQ(page["sections"][0]["height"], 300.5);
    EXPECT_EQ(page["sections"][0]["controls"].at(0),
              nlohmann::json::parse(
                  R"({"name": "txtText", "kind": "Field", "text": "é\t\"q\"\\\n\u0001", "style": "9", "align": "left",
        "left": 0.25, "top": 0, "width": 3000, "height": 240, "link": "5;A"})"));
    const auto& controls = page["sections"][1]["controls"];
    ASSERT_EQ(controls.size(), 4U);
    EXPECT_FALSE(controls[0].contains("text") || controls[0].contains("link") || controls[0].contains("fill"));
    EXPECT_EQ(controls[1]["fill"], "#0ac8ff");
    EXPECT_EQ(controls[2]["series"],
              nlohmann::json::parse(
                  R"([{"name": "Due", "points": [{"label": "30", "value": 12.5}, {"label": "60", "value": -0.1}]}])"));
    EXPECT_EQ(controls[3]["sections"].at(0)["controls"].at(0)["text"], "within \xEF\xBF\xBD")
        << "damaged bytes are shown as such";
}

TEST(StyleText, NamesOnlyWhatIsNotPlain) {
    const auto look = [](auto change) {
        TextStyle style;
        change(style);
        return styleText(style);
    };
    EXPECT_EQ(look([](TextStyle& style) { style.bold = true; }), "9 bold");
    EXPECT_EQ(look([](TextStyle& style) {
                  style.size = 8.5F;
                  style.italic = style.underline = style.wrap = true;
                  style.color = {0x55, 0, 0xFF};
              }),
              "8.5 italic underline wrap #5500ff");
    EXPECT_EQ(look([](TextStyle& style) {
                  style.family = "Liberation Serif";
                  style.verticalAlign = VerticalAlign::middle;
                  style.fill = Color{255, 224, 224};
              }),
              "9 Liberation Serif middle on #ffe0e0");
    EXPECT_EQ(look([](TextStyle& style) { style.verticalAlign = VerticalAlign::bottom; }), "9 bottom");
}

TEST(Json, TellsTheAlignmentOfATextBesideItsStyle) {
    std::ostringstream stream;
    JsonSink sink(std::make_unique<OutputStream>(stream), "dsrTermList", "TermList", "Terms", {});
    PageBuilder builder;
    builder.section(240);
    for (const Align align : {Align::left, Align::center, Align::right, Align::justify}) {
        TextStyle style;
        style.align = align;
        builder.text("x", 0, 100, style);
    }
    sink.page(builder.page());
    sink.finish();
    const auto json = nlohmann::json::parse(stream.str());
    std::vector<string> aligns;
    for (const auto& control : json["pages"].at(0)["sections"].at(0)["controls"]) {
        EXPECT_EQ(control["style"], "9");
        aligns.push_back(control["align"]);
    }
    EXPECT_EQ(aligns, (std::vector<string>{"left", "center", "right", "justify"}));
}

// The darkest of the pixels of a box, in shares of the picture's width and height.
unsigned darkest(const string& path, double left, double top, double right, double bottom) {
    const string file = read(path);
    const Surface picture = readPng(std::as_bytes(std::span(file)));
    const int width = cairo_image_surface_get_width(picture.get()),
              height = cairo_image_surface_get_height(picture.get());
    const auto at = [](double share, int whole) { return static_cast<int>(share * whole); };
    unsigned darkest = 255;
    for (int y = at(top, height); y < at(bottom, height); ++y) {
        const unsigned char* row = cairo_image_surface_get_data(picture.get()) +
                                   static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(picture.get());
        for (int x = at(left, width); x < at(right, width); ++x) darkest = std::min<unsigned>(darkest, row[4 * x + 1]);
    }
    return darkest;
}

TEST(Png, NamesItsFilesByTheNumberOfPages) {
    const TestFolder folder;
    PageBuilder builder;
    builder.section(240).text("Amount", 8800, 2000);
    {
        PngSink sink(folder.file("one.png"), 50);
        sink.page(builder.page());
        EXPECT_EQ(folder.count(), 0U);
        sink.finish();
    }
    EXPECT_EQ(folder.count(), 1U);
    {
        PngSink abandoned(folder.file("half.png"), 50);
        for (int i = 0; i < 3; ++i) abandoned.page(builder.page());
    }
    EXPECT_EQ(folder.count(), 1U) << "nothing is left of abandoned pages";
    PngSink sink(folder.file("more.png"), 50);
    for (int i = 0; i < 2; ++i) sink.page(builder.page());
    sink.finish();
    for (const char* name : {"one.png", "more-1.png", "more-2.png"}) {
        const string path = folder.file(name);
        EXPECT_LT(darkest(path, 0.77, 0.08, 0.95, 0.12), 128U) << "the text is where the page has it: " << name;
        EXPECT_EQ(darkest(path, 0, 0.2, 1, 1), 255U) << "and nothing elsewhere";
    }
    EXPECT_EQ(folder.count(), 3U);

    // A run of another length takes its older pages away, and no picture of the user's.
    std::filesystem::copy_file(folder.file("more-2.png"), folder.file("more-3.png"));
    std::filesystem::copy_file(folder.file("more-2.png"), folder.file("more-03.png"));
    std::ofstream(folder.file("more-4.png"))
        << "the user's own picture, of a longer name than it needs, to be read whole";
    PngSink single(folder.file("more.png"), 50);
    single.page(builder.page());
    single.finish();
    for (const char* name : {"more-1.png", "more-2.png", "more-3.png"})
        EXPECT_FALSE(std::filesystem::exists(folder.file(name))) << name;
    EXPECT_EQ(folder.count(), 4U) << "one.png, more.png, more-03.png, more-4.png";
}

TEST(Pictures, ReadTheSizeOfAJpegAndRefuseDamage) {
    const auto jpeg = smallJpeg();
    const PictureHeader header = readJpegHeader(jpeg);
    EXPECT_EQ(header.width, 3U);
    EXPECT_EQ(header.height, 2U);
    EXPECT_EQ(header.components, 3);
    for (std::size_t size = 4; size < 30; ++size)
        EXPECT_THROW(readJpegHeader(std::span(jpeg).first(size)), InputError) << size;
    const Box box = fitInto({10, 10, 100, 100}, 3, 2);
    EXPECT_FLOAT_EQ(box.width, 100);
    EXPECT_FLOAT_EQ(box.height, 200.0F / 3);
    EXPECT_FLOAT_EQ(box.top, 10 + 50.0F / 3);
}

}  // namespace
}  // namespace quillo::test
