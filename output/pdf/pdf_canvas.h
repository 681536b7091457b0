#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "output/canvas.h"
#include "output/pdf/pdf_file.h"
#include "output/pdf/pdf_font.h"
#include "output/pdf/pdf_outline.h"
#include "output/pdf/pdf_pictures.h"

namespace quillo {

// The content of a PDF's pages, one at a time: begin(), draw, then content() and links() hold the page.
// Places are kept in hundredths of a point, from the page's left bottom corner.
class PdfCanvas final : public Canvas {
public:
    explicit PdfCanvas(PdfFile& file) : file_(file) {}

    void beginRun() { pictures_.beginRun(); }
    void begin(float height, std::uint32_t page);  // page is the number of the page object
    std::string_view content();
    struct Link {
        std::int64_t left, bottom, right, top;
        std::size_t tagStart, tagSize;  // in tags()
    };
    const std::vector<Link>& links() const { return links_; }
    std::string_view tag(const Link& link) const { return std::string_view(tags_).substr(link.tagStart, link.tagSize); }
    // The number of pages, the outline, the fonts and the shared resources; gives the outline's number, 0 for none.
    std::uint32_t finish(std::uint32_t resources, std::size_t pages, TextShaper& shaper);

    void fill(const Box& box, Color color) override;
    void frame(const Box& box, float lineWidth, Color color) override;
    void sector(const Box& box, float start, float sweep, Color color) override;
    void line(Point from, Point to, float lineWidth, Color color) override;
    void text(const PlacedLine& line, Color color) override;
    void pageCount(const PlacedLine& behind, Color color) override;
    void picture(const Box& box, std::span<const std::byte> file) override;
    void link(const Box& box, std::string_view tag) override;
    void bookmark(int level, std::string_view title, float top) override;
    void beginArtifact(SectionKind kind) override;
    void endArtifact() override;

private:
    void writePageCount(std::uint32_t resources, std::size_t pages, TextShaper& shaper);
    std::int64_t flip(float top) const;
    void openText();
    void closeText();
    void setFillColor(Color color);
    void setStroke(float lineWidth, Color color);
    void setFont(const PdfFont& font, std::int64_t size, std::int64_t scale);
    void moveTo(std::int64_t x, std::int64_t y);
    void appendColor(Color color);
    void rectangle(const Box& box);
    void showPlain(PdfFont& font, const PlacedLine& line, const GlyphRun& run);
    void showPlaced(PdfFont& font, const PlacedLine& line, const GlyphRun& run);
    PdfFont& fontOf(const Face& face);

    PdfFile& file_;
    PdfOutline outline_;
    PdfPictures pictures_;
    std::vector<std::unique_ptr<PdfFont>> fonts_;  // by the face's id
    Bytes out_;
    std::vector<Link> links_;
    std::string tags_;
    // A form that pages show before it is written: it has the look that it had on the first of them.
    struct PageCount {
        std::uint32_t number = 0;
        const Face* face = nullptr;
        float size = 0;
        Color color;
    } pageCount_;
    std::uint32_t page_ = 0;
    std::int64_t height_ = 0;

    // What the content has set so far, so that it is said only when it changes.
    struct State {
        const PdfFont* font = nullptr;
        std::int64_t size = 0, scale = 10000;  // hundredths of a point, of a per cent
        Color fill, stroke;
        std::int64_t lineWidth = 100;
        bool inText = false;
        std::int64_t x = 0, y = 0;  // where the line of text began
    } state_;
};

}  // namespace quillo
