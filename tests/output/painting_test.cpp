#include <gtest/gtest.h>

#include "output/picture.h"
#include "output/png/png_sink.h"
#include "tests/output/output_files.h"
#include "tests/output/sample_pictures.h"

namespace quillo::test {
namespace {

using std::string;

// Where a word of the first page begins, in points from the left top corner.
struct Corner {
    double x = -1, y = -1;
};

Corner cornerOf(const string& word, const Page& page) {
    const TestFolder folder;
    printPdf(page, folder.file("a.pdf"));
    const string boxes = run("pdftotext -bbox " + folder.file("a.pdf") + " -");
    const std::size_t at = boxes.rfind("<word", boxes.find(">" + word + "<"));
    if (at == string::npos) return {};
    const auto number = [&](const char* name) { return std::stod(boxes.substr(boxes.find(name, at) + 6)); };
    return {number("xMin"), number("yMin")};
}

TEST(Painting, PlacesSubReportsWithinTheirControls) {
    PageBuilder inner;
    inner.page().setup.leftMargin = 0;
    inner.section(300).text("first", 100);
    inner.section(300).text("second", 200);
    std::vector<PlacedSection> sections = inner.page().sections;
    sections[0].top = 0;
    sections[1].top = 300;
    PageBuilder builder;
    builder.section(240).text("before", 0, 900);
    builder.section(1000);
    PlacedControl& sub = builder.control(ControlKind::subReport, "sub", 1000, 5000, 600);
    sub.top = 40;
    sub.sections = sections;
    const Corner before = cornerOf("before", builder.page()), first = cornerOf("first", builder.page()),
                 second = cornerOf("second", builder.page());
    EXPECT_NEAR(before.x, 720 / 20.0, 0.2);
    EXPECT_NEAR(first.x, (720 + 1000 + 100) / 20.0, 0.2);
    EXPECT_NEAR(second.x, (720 + 1000 + 200) / 20.0, 0.2);
    EXPECT_NEAR(first.y - before.y, (240 + 40) / 20.0, 0.1);
    EXPECT_NEAR(second.y - first.y, 300 / 20.0, 0.1);
}

TEST(Painting, NarrowedAndSpreadTextFillsItsBox) {
    const string number = "123456789.00";
    TextStyle right, spread;
    right.align = Align::right;
    spread.align = Align::justify;
    PageBuilder builder;
    builder.section(240).text(number, 0, 500, right);
    builder.section(500).wrapped("one two three four", 3000, 480, {0, 8}, spread);
    EXPECT_NEAR(cornerOf(number, builder.page()).x, 36, 0.2) << "as wide as the box, so it begins where the box does";
    PageBuilder plain;
    plain.section(240).text("two", 0, 3000, right);
    EXPECT_NEAR(cornerOf("two", builder.page()).x, cornerOf("two", plain.page()).x, 0.2)
        << "the spread line ends where the box does";
}

Surface draw(const Page& page) {
    const TestFolder folder;
    PngSink sink(folder.file("a.png"), 144);  // ten twips to the pixel
    sink.page(page);
    sink.finish();
    const string file = read(folder.file("a.png"));
    return readPng(std::as_bytes(std::span(file)));
}

// The colour at a place, which is in twips.
Color colorAt(const Surface& picture, int x, int y) {
    const unsigned char* row = cairo_image_surface_get_data(picture.get()) +
                               static_cast<std::ptrdiff_t>(y / 10) * cairo_image_surface_get_stride(picture.get());
    const std::uint32_t pixel = reinterpret_cast<const std::uint32_t*>(row)[x / 10];
    return {static_cast<std::uint8_t>(pixel >> 16), static_cast<std::uint8_t>(pixel >> 8),
            static_cast<std::uint8_t>(pixel)};
}

TEST(Painting, DrawsFillsLinesShapesPicturesAndSectors) {
    constexpr Color white{255, 255, 255}, blue{0, 0, 200}, green{0, 150, 0}, red{255, 0, 0}, yellow{250, 220, 0};
    PageBuilder builder;
    builder.section(3000);  // begins 720 from the left, 1440 from the top
    TextStyle filled, inked;
    filled.fill = blue;
    inked.color = green;
    builder.text("", 0, 1000, filled);
    PlacedControl& line = builder.control(ControlKind::line, "lin", 2000, -1000, 0);
    line.top = 1000;
    line.lineWidth = 60;
    line.style = builder.style(inked);
    const auto png = redPng();
    builder.section(3000);
    PlacedControl& box = builder.control(ControlKind::shape, "shp", 0, 1000, 1000);
    box.lineWidth = 60;
    box.style = builder.style(inked);
    PlacedControl& filledBox = builder.control(ControlKind::shape, "shpFilled", 0, 1000, 500);
    filledBox.top = 1500;
    filledBox.fill = green;
    filledBox.lineWidth = 60;
    builder.control(ControlKind::image, "img", 2000, 1000, 1000).picture = png;
    // Around 6720, 5440 of the page: from three to six o'clock, and the quarter before twelve.
    for (const float start : {90.0F, 270.0F}) {
        PlacedControl& sector = builder.control(ControlKind::sector, "sct", 5000, 2000, 2000);
        sector.startAngle = start;
        sector.sweep = 90;
        sector.fill = start < 100 ? yellow : blue;
    }
    PlacedControl& plain = builder.control(ControlKind::shape, "shpPlain", 8000, 1000, 500);
    plain.lineWidth = 0;
    plain.fill = yellow;
    const Page& page = builder.page();

    struct Case {
        const char* what;
        int x, y;
        Color color;
    };
    const Case cases[] = {
        {"a control's fill", 1200, 1500, blue},
        {"beside it", 1800, 1500, white},
        {"a line that runs to the left", 2200, 2440, green},
        {"beyond its end", 1600, 2440, white},
        {"the left side of a shape", 720, 4940, green},
        {"its inside", 1200, 4940, white},
        {"a filled shape", 1200, 6200, green},
        {"its frame, drawn over the fill", 730, 6200, {0, 0, 0}},
        {"the drawn half of a picture, fitted into its box", 2950, 4940, red},
        {"its clear half", 3450, 4940, white},
        {"above the picture", 2950, 4600, white},
        {"a sector, right below the middle", 6720 + 500, 5440 + 500, yellow},
        {"the corner of its box", 6720 + 900, 5440 + 900, white},
        {"the quarter that no sector has", 6720 - 500, 5440 + 500, white},
        {"the sector across", 6720 - 500, 5440 - 500, blue},
        {"a shape without a line, to its edge", 8730, 4460, yellow},
    };
    const Surface picture = draw(page);
    for (const Case& c : cases) {
        const Color color = colorAt(picture, c.x, c.y);
        EXPECT_EQ(color, c.color) << c.what << ": " << int{color.red} << ' ' << int{color.green} << ' '
                                  << int{color.blue};
    }
}

}  // namespace
}  // namespace quillo::test
