#include <gtest/gtest.h>

#include <regex>

#include <nlohmann/json.hpp>

#include "output/font_measure.h"
#include "output/output_error.h"
#include "output/page_frame.h"
#include "tests/output/output_files.h"
#include "tests/output/sample_pictures.h"

namespace quillo::test {
namespace {

using std::string;

// Objects uncompressed, one entry a line.
string objectsOf(const string& path) {
    return run("qpdf --qdf --object-streams=disable " + path + " -");
}

std::size_t countOf(const string& text, const string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != string::npos; at = text.find(part, at + part.size())) ++count;
    return count;
}

TEST(Pdf, IsSoundAndGivesItsTextBack) {
    const TestFolder folder;
    const string path = folder.file("a.pdf");
    PageBuilder builder;
    builder.section(300, SectionKind::pageHeader, "PageHeader").text("Société Générale");
    builder.section(240).text("1 234,50 € (net) \\ x");
    builder.section(240).text(
        "na\xC3\xAFve e\xCC\x81t\xC3\xA9 \xD0\x9F\xD1\x80\xD0\xB8\xD0\xB2\xD0\xB5\xD1\x82 \xE2\x9C\x93");
    builder.section(400).wrapped("first line second", 1500, 400, {0, 11});
    printPdf(builder.page(), path, {"Ventes – été", "fr-CA", "Café (1)", Date::fromCivil(2024, 3, 31)});

    EXPECT_TRUE(contains(run("qpdf --check " + path), "No syntax or stream encoding errors"));
    const string text = run("pdftotext -layout " + path + " -");
    for (const char* part : {"Société Générale", "1 234,50 € (net) \\ x", "naïve", "e\xCC\x81t\xC3\xA9 Привет ✓",
                             "first line", "second"}) {
        EXPECT_TRUE(contains(text, part)) << part << " in\n" << text;
    }
    const string info = run("pdfinfo " + path);
    for (const char* part : {"Ventes – été", "Café (1)", "Mar 31", "612 x 792"})
        EXPECT_TRUE(contains(info, part)) << info;
    EXPECT_TRUE(contains(objectsOf(path), "/Lang (fr-CA)"));
    const string fonts = run("pdffonts " + path);
    EXPECT_EQ(countOf(fonts, "yes yes yes"), 2U) << "each font embedded, as a subset, with its text:\n" << fonts;
}

TEST(Pdf, LinksCarryTheTagUnchanged) {
    const TestFolder folder;
    PageBuilder builder;
    builder.section(240);
    for (const char* tag : {"5", "Cust;A (1)\\2", "https://example.com/?a=1&b=2", "mailto:a@example.com", "Café"}) {
        builder.text("x", 0, 1000).link = tag;
    }
    printPdf(builder.page(), folder.file("a.pdf"));
    const string objects = objectsOf(folder.file("a.pdf"));
    for (const char* uri :
         {"(5)", "(Cust;A \\(1\\)\\\\2)", "(https://example.com/?a=1&b=2)", "(mailto:a@example.com)"}) {
        EXPECT_TRUE(contains(objects, string("/URI ") + uri)) << uri;
        EXPECT_TRUE(contains(objects, string("/Contents ") + uri)) << uri;
    }
    EXPECT_TRUE(contains(objects, "/URI <436166c3a9>") || contains(objects, "/URI (Caf\xC3\xA9)"))
        << "exact bytes, not converted";
    EXPECT_EQ(countOf(objects, "/Subtype /Link"), 5U);
    const string flat = std::regex_replace(objects, std::regex("\\s+"), " ");
    EXPECT_TRUE(contains(flat, "/Rect [ 36 708 86 720 ]")) << "the control's box, points from the bottom:\n" << objects;
}

TEST(Pdf, SamePagesGiveSameBytes) {
    const TestFolder folder;
    const auto print = [&](const string& name, const string& text) {
        PageBuilder builder;
        builder.section(240).text(text).link = "1";
        printPdf(builder.page(), folder.file(name), {"T", "en", "C", Date::fromCivil(2024, 1, 2)});
        return read(folder.file(name));
    };
    EXPECT_EQ(print("a.pdf", "One"), print("b.pdf", "One"));
    EXPECT_NE(print("a.pdf", "One"), print("b.pdf", "Two"));
}

TEST(Pdf, ManyPagesHangInTheTreeInTheirOrder) {
    const TestFolder folder;
    const string path = folder.file("a.pdf");
    PdfSink sink(std::make_unique<OutputFile>(path), {});
    for (int number = 1; number <= 250; ++number) {
        PageBuilder builder(number);
        builder.section(240).text("Leaf " + std::to_string(number));
        sink.page(builder.page());
    }
    sink.finish();
    EXPECT_TRUE(contains(run("qpdf --check " + path), "No syntax or stream encoding errors"));
    EXPECT_EQ(run("qpdf --show-npages " + path), "250\n");
    for (const char* number : {"1", "100", "101", "250"}) {
        EXPECT_TRUE(contains(run("pdftotext -f " + string(number) + " -l " + number + " " + path + " -"),
                             "Leaf " + string(number) + "\n"));
    }
}

// The titles of outline items, each with those below it in parentheses.
string titlesOf(const nlohmann::json& items) {
    string titles;
    for (const auto& item : items) {
        titles += (titles.empty() ? "" : " ") + item["title"].get<string>();
        if (!item["kids"].empty()) titles += "(" + titlesOf(item["kids"]) + ")";
    }
    return titles;
}

TEST(Pdf, OutlineNestsGroupsAndListsRepeatedHeadersOnce) {
    const TestFolder folder;
    const string path = folder.file("a.pdf");
    const auto group = [](PageBuilder& builder, int level, const string& title) {
        builder.section(240, SectionKind::groupHeader, "Group" + std::to_string(level), level, true).text(title);
    };
    PageBuilder first(1), second(2);
    group(first, 1, "North"), group(first, 2, "Ann"), group(first, 2, "Bob"), group(first, 1, "South"),
        group(first, 2, "Cid");
    group(second, 1, "South"), group(second, 2, "Cid"), group(second, 2, "Eve"), group(second, 1, "West");
    PdfSink sink(std::make_unique<OutputFile>(path), {});
    sink.page(first.page());
    sink.page(second.page());
    sink.finish();

    const auto json = nlohmann::json::parse(run("qpdf --json --json-key=outlines " + path));
    EXPECT_EQ(titlesOf(json["outlines"]), "North(Ann Bob) South(Cid Eve) West");
    EXPECT_EQ(json["outlines"].at(1)["kids"].at(1)["destpageposfrom1"], 2);
    EXPECT_TRUE(contains(run("qpdf --check " + path), "No syntax or stream encoding errors"));
}

TEST(Pdf, PicturesAreEmbeddedOnceAndInTheirFormat) {
    const TestFolder folder;
    const string path = folder.file("a.pdf");
    PageBuilder builder;
    builder.section(2000);
    const auto png = redPng(), jpeg = smallJpeg();
    for (int i = 0; i < 3; ++i) builder.control(ControlKind::image, "img", 0, 1000, 1000).picture = png;
    builder.control(ControlKind::image, "img", 2000, 1000, 1000).picture = jpeg;
    printPdf(builder.page(), path);
    EXPECT_TRUE(contains(run("qpdf --check " + path), "No syntax or stream encoding errors"));
    const string images = run("pdfimages -list " + path);
    EXPECT_EQ(countOf(images, "image   "), 4U) << images;  // as drawn
    const string objects = objectsOf(path);
    EXPECT_EQ(countOf(objects, "/Subtype /Image"), 3U) << "the PNG, its mask and the JPEG";
    EXPECT_TRUE(contains(images, "jpeg"));

    PageBuilder damaged;
    damaged.section(2000).control(ControlKind::image, "img", 0, 1000, 1000).picture = std::span(png).first(40);
    EXPECT_THROW(printPdf(damaged.page(), folder.file("b.pdf")), OutputError);
    EXPECT_FALSE(std::filesystem::exists(folder.file("b.pdf")));
}

TEST(Pdf, AnotherRunsPictureInTheSamePlaceIsAnotherPicture) {
    const TestFolder folder;
    const string path = folder.file("a.pdf");
    PdfSink sink(std::make_unique<OutputFile>(path), {});
    const auto png = redPng(), jpeg = smallJpeg();
    std::vector<std::byte> room(std::max(png.size(), jpeg.size()));
    for (const auto& file : {png, png, jpeg}) {
        std::copy(file.begin(), file.end(), room.begin());
        PageBuilder run;
        run.section(2000).control(ControlKind::image, "img", 0, 1000, 1000).picture = room;
        sink.page(run.page());
        sink.page(run.page());
    }
    sink.finish();
    EXPECT_EQ(countOf(objectsOf(path), "/Subtype /Image"), 3U) << "the PNG, its mask and the JPEG";
}

TEST(Pdf, MissingCharacterIsNamed) {
    constexpr const char* unassigned = "\xF3\xA0\x82\x80";  // U+E0080, which no font has
    PageBuilder builder;
    builder.section(240).text(string("a") + unassigned);
    const TestFolder folder;
    try {
        printPdf(builder.page(), folder.file("a.pdf"));
        ADD_FAILURE() << "printed without the character";
    } catch (const FontError& error) {
        EXPECT_TRUE(contains(error.what(), "No installed font has U+E0080") && contains(error.what(), "LiberationSans"))
            << error.what();
    }
    EXPECT_EQ(folder.count(), 0U) << "nothing half-written";

    std::vector<string> heard;
    const auto shaper = makeTextShaper([&](const string& failure) { heard.push_back(failure); });
    PdfSink sink(std::make_unique<OutputFile>(folder.file("b.pdf")), {}, shaper);
    sink.page(builder.page());
    sink.page(builder.page());
    sink.finish();
    EXPECT_EQ(heard.size(), 1U) << "told once, and the document is there";
    EXPECT_TRUE(contains(run("qpdf --check " + folder.file("b.pdf")), "No syntax"));
}

TEST(Pdf, MemoryDoesNotGrowWithPages) {
    const auto residentBytes = [] {
        std::ifstream statm("/proc/self/statm");
        long size = 0, resident = 0;
        statm >> size >> resident;
        return resident * sysconf(_SC_PAGESIZE);
    };
    PageBuilder builder;
    for (int row = 0; row < 50; ++row)
        builder.section(240).text("Row of some length " + std::to_string(row)).link = "12345";
    const Page& page = builder.page();
    const TestFolder folder;
    PdfSink sink(std::make_unique<OutputFile>(folder.file("a.pdf")), {});
    for (int i = 0; i < 100; ++i) sink.page(page);
    const long before = residentBytes();
    for (int i = 0; i < 6000; ++i) sink.page(page);
    sink.finish();
#ifdef __SANITIZE_ADDRESS__
    constexpr long allowed = 12L << 20;  // the sanitizer keeps freed memory for a while
#else
    constexpr long allowed = 4L << 20;
#endif
    EXPECT_LT(residentBytes() - before, allowed);
}

TEST(Frame, AddsCompanyTitleDateAndNumberInTheMargins) {
    const TestFolder folder;
    const string path = folder.file("a.pdf");
    const string company = "Les Menuiseries nordiques et de la vallée inc.";
    FontMeasure measure;
    PageFrame frame(std::make_unique<PdfSink>(std::make_unique<OutputFile>(path), PdfOptions()),
                    {company, "Liste des termes", "Imprimé le 31 mars", "Page", "de"}, measure);
    for (int number = 1; number <= 2; ++number) {
        PageBuilder builder(number);
        builder.section(240).text("Body");
        frame.page(builder.page());
    }
    PageBuilder narrow(3);
    narrow.page().setup.topMargin = narrow.page().setup.bottomMargin = 200;
    narrow.section(240).text("Body");
    frame.page(narrow.page());
    frame.finish();
    const auto textOf = [&](const string& page) {
        return run("pdftotext -layout -f " + page + " -l " + page + " " + path + " -");
    };
    const string second = textOf("2");
    for (const string& part : {company, string("Liste des termes"), string("Imprimé le 31 mars"), string("Body")})
        EXPECT_TRUE(contains(second, part)) << part;
    EXPECT_TRUE(contains(second, "Page 2 de 3")) << "the number of pages is told on pages that were written before";
    EXPECT_LT(second.find("Liste"), second.find("Body"));
    EXPECT_LT(second.find("Body"), second.find("Page 2"));
    EXPECT_FALSE(contains(textOf("3"), "Liste")) << "a margin without room stays empty";
}

}  // namespace
}  // namespace quillo::test
