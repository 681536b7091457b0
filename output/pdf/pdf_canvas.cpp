#include "output/pdf/pdf_canvas.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

#include "output/picture.h"

namespace quillo {
namespace {

// As std::lround, but without a call: every text needs four.
std::int64_t rounded(float value) {
    return static_cast<std::int64_t>(double{value} + (value < 0 ? -0.5 : 0.5));
}

std::int64_t hundredths(float points) {
    return rounded(points * 100.0F);
}
std::int64_t fromTwips(float twips) {
    return rounded(twips * (100.0F / twipsPerPoint));
}

// Written between the strings of a TJ: by how much the pen goes back, in thousandths of an em.
std::int64_t back(float ems) {
    return rounded(ems * -100000.0F);
}

char* append(char* at, const PdfFont::Token& token) {
    std::memcpy(at, token.bytes, sizeof token.bytes);
    return at + token.size;
}

}  // namespace

std::int64_t PdfCanvas::flip(float top) const {
    return height_ - fromTwips(top);
}

void PdfCanvas::begin(float height, std::uint32_t page) {
    out_.clear();
    links_.clear();
    tags_.clear();
    state_ = {};
    page_ = page;
    height_ = fromTwips(height);
}

std::string_view PdfCanvas::content() {
    closeText();
    return out_.view();
}

std::uint32_t PdfCanvas::finish(std::uint32_t resources, std::size_t pages, TextShaper& shaper) {
    writePageCount(resources, pages, shaper);
    const std::uint32_t outline = outline_.finish(file_);
    Bytes& out = file_.object(resources);
    out << "<</Font<<";
    for (const auto& font : fonts_) {
        if (font) out << "/F" << font->face().id() << ' ' << font->number() << " 0 R";
    }
    out << ">>";
    if (pageCount_.number != 0 || !pictures_.empty()) {
        out << "/XObject<<";
        if (pageCount_.number != 0) out << "/N " << pageCount_.number << " 0 R";
        pictures_.appendNames(out);
        out << ">>";
    }
    out << ">>";
    const std::uint32_t encoding = file_.reserve();
    PdfFont::writeEncoding(file_, encoding);
    for (const auto& font : fonts_) {
        if (font) font->write(file_, encoding);
    }
    return outline;
}

void PdfCanvas::openText() {
    if (state_.inText) return;
    out_ << "BT\n";
    state_.inText = true;
    state_.x = state_.y = 0;
}

void PdfCanvas::closeText() {
    if (state_.inText) out_ << "ET\n";
    state_.inText = false;
}

void PdfCanvas::appendColor(Color color) {
    for (const std::uint8_t part : {color.red, color.green, color.blue})
        out_.hundredths((part * 100 + 127) / 255) << ' ';
}

void PdfCanvas::setFillColor(Color color) {
    if (color == state_.fill) return;
    appendColor(color);
    out_ << "rg\n";
    state_.fill = color;
}

void PdfCanvas::setStroke(float lineWidth, Color color) {
    if (color != state_.stroke) {
        appendColor(color);
        out_ << "RG\n";
        state_.stroke = color;
    }
    if (const std::int64_t width = fromTwips(lineWidth); width != state_.lineWidth) {
        out_.hundredths(width) << " w\n";
        state_.lineWidth = width;
    }
}

void PdfCanvas::rectangle(const Box& box) {
    const std::int64_t left = fromTwips(box.left), bottom = flip(box.bottom());
    out_.hundredths(left) << ' ';
    out_.hundredths(bottom) << ' ';
    out_.hundredths(fromTwips(box.right()) - left) << ' ';
    out_.hundredths(flip(box.top) - bottom) << " re ";
}

void PdfCanvas::fill(const Box& box, Color color) {
    closeText();
    setFillColor(color);
    rectangle(box);
    out_ << "f\n";
}

void PdfCanvas::frame(const Box& box, float lineWidth, Color color) {
    closeText();
    setStroke(lineWidth, color);
    rectangle(box);
    out_ << "S\n";
}

// An arc as curves of at most a quarter turn each: their control points lie on the tangents of their ends.
void PdfCanvas::sector(const Box& box, float start, float sweep, Color color) {
    closeText();
    setFillColor(color);
    const auto point = [&](double right, double up) {
        out_.hundredths(fromTwips(box.left + box.width / 2 * static_cast<float>(1 + right))) << ' ';
        out_.hundredths(flip(box.top + box.height / 2 * static_cast<float>(1 - up))) << ' ';
    };
    const int pieces = std::max(1, static_cast<int>(std::ceil(sweep / 90)));
    const double piece = double{sweep} / pieces * std::numbers::pi / 180, reach = 4.0 / 3 * std::tan(piece / 4);
    double angle = start * std::numbers::pi / 180;
    point(0, 0);
    out_ << "m ";
    point(std::sin(angle), std::cos(angle));
    out_ << "l\n";
    for (int i = 0; i < pieces; ++i, angle += piece) {
        const double s = std::sin(angle), c = std::cos(angle), s2 = std::sin(angle + piece),
                     c2 = std::cos(angle + piece);
        point(s + reach * c, c - reach * s);
        point(s2 - reach * c2, c2 + reach * s2);
        point(s2, c2);
        out_ << "c\n";
    }
    out_ << "f\n";
}

void PdfCanvas::line(Point from, Point to, float lineWidth, Color color) {
    closeText();
    setStroke(lineWidth, color);
    out_.hundredths(fromTwips(from.x)) << ' ';
    out_.hundredths(flip(from.y)) << " m ";
    out_.hundredths(fromTwips(to.x)) << ' ';
    out_.hundredths(flip(to.y)) << " l S\n";
}

PdfFont& PdfCanvas::fontOf(const Face& face) {
    if (face.id() >= fonts_.size()) fonts_.resize(face.id() + 1);
    auto& font = fonts_[face.id()];
    if (!font) font = std::make_unique<PdfFont>(face, file_.reserve());
    return *font;
}

void PdfCanvas::setFont(const PdfFont& font, std::int64_t size, std::int64_t scale) {
    if (&font != state_.font || size != state_.size) {
        out_ << "/F" << font.face().id() << ' ';
        out_.hundredths(size) << " Tf\n";
        state_.font = &font;
        state_.size = size;
    }
    if (scale != state_.scale) {
        out_.hundredths(scale) << " Tz\n";
        state_.scale = scale;
    }
}

void PdfCanvas::moveTo(std::int64_t x, std::int64_t y) {
    out_.hundredths(x - state_.x) << ' ';
    out_.hundredths(y - state_.y) << " Td";
    state_.x = x;
    state_.y = y;
}

void PdfCanvas::text(const PlacedLine& line, Color color) {
    openText();
    setFillColor(color);
    bool first = true;
    for (const GlyphRun& run : line.glyphs->runs) {
        PdfFont& font = fontOf(*run.face);
        setFont(font, hundredths(line.size), hundredths(line.condense * 100));
        if (first) moveTo(fromTwips(line.left), flip(line.baseline));
        first = false;
        if (run.placed || line.blankGap != 0) {
            showPlaced(font, line, run);
        } else {
            showPlain(font, line, run);
        }
    }
}

void PdfCanvas::showPlain(PdfFont& font, const PlacedLine& line, const GlyphRun& run) {
    char* at = out_.room(run.count * sizeof(PdfFont::Token) + 8);
    *at++ = '(';
    const Glyph* glyph = line.glyphs->glyphs.data() + run.first;
    for (const Glyph* const end = glyph + run.count; glyph != end; ++glyph)
        at = append(at, font.token(*glyph, line.text));
    std::memcpy(at, ")Tj\n", 4);
    out_.taken(at + 4);
}

void PdfCanvas::pageCount(const PlacedLine& behind, Color color) {
    if (behind.glyphs->runs.empty()) return;
    if (pageCount_.number == 0) pageCount_ = {file_.reserve(), behind.glyphs->runs.back().face, behind.size, color};
    closeText();
    (out_ << "q 1 0 0 1 ").hundredths(fromTwips(behind.left + behind.width)) << ' ';
    out_.hundredths(flip(behind.baseline)) << " cm /N Do Q\n";
}

void PdfCanvas::writePageCount(std::uint32_t resources, std::size_t pages, TextShaper& shaper) {
    if (pageCount_.number == 0) return;
    const std::string number = " " + std::to_string(pages);
    ShapedText glyphs;
    shaper.shape(number, *pageCount_.face, glyphs);
    PlacedLine line;
    line.text = number;
    line.glyphs = &glyphs;
    line.size = pageCount_.size;
    begin(0, 0);
    text(line, pageCount_.color);
    const std::string_view drawn = content();
    Bytes entries;
    (entries << "/Type/XObject/Subtype/Form/BBox[0 ").hundredths(hundredths(-line.size)) << ' ';
    entries.hundredths(hundredths(glyphs.width() * line.size)) << ' ';
    entries.hundredths(hundredths(line.size)) << "]/Resources " << resources << " 0 R";
    file_.stream(pageCount_.number, entries.view(), drawn);
}

// Glyph for glyph, each moved to its place and the pen to where the next one starts.
void PdfCanvas::showPlaced(PdfFont& font, const PlacedLine& line, const GlyphRun& run) {
    std::int64_t rise = 0;
    out_ << '[';
    for (std::uint32_t i = run.first; i < run.first + run.count; ++i) {
        const Glyph& glyph = line.glyphs->glyphs[i];
        const std::int64_t ownRise = hundredths(glyph.dy * line.size);
        if (ownRise != rise) (out_ << "]TJ ").hundredths(ownRise) << " Ts[";
        rise = ownRise;
        if (glyph.dx != 0) out_.hundredths(back(glyph.dx));
        char* at = out_.room(sizeof(PdfFont::Token) + 2);
        *at++ = '(';
        at = append(at, font.token(glyph, line.text));
        *at++ = ')';
        out_.taken(at);
        const float gap = glyph.slot == 0 ? line.blankGap : 0;
        const std::int64_t after = back(glyph.advance + gap - glyph.dx - font.face().advance(glyph.index));
        if (after != 0) out_.hundredths(after);
    }
    out_ << "]TJ";
    if (rise != 0) out_ << " 0 Ts";
    out_ << '\n';
}

void PdfCanvas::picture(const Box& box, std::span<const std::byte> file) {
    const PdfPictures::Entry& entry = pictures_.find(file, file_);
    const Box own = fitInto(box, entry.width, entry.height);
    closeText();
    (out_ << "q ").hundredths(fromTwips(own.width)) << " 0 0 ";
    out_.hundredths(fromTwips(own.height)) << ' ';
    out_.hundredths(fromTwips(own.left)) << ' ';
    out_.hundredths(flip(own.bottom())) << " cm /I" << entry.number << " Do Q\n";
}

void PdfCanvas::link(const Box& box, std::string_view tag) {
    links_.push_back(
        {fromTwips(box.left), flip(box.bottom()), fromTwips(box.right()), flip(box.top), tags_.size(), tag.size()});
    tags_ += tag;
}

void PdfCanvas::bookmark(int level, std::string_view title, float top) {
    outline_.add(level, title, page_, flip(top), file_);
}

void PdfCanvas::beginArtifact(SectionKind kind) {
    closeText();
    out_ << "/Artifact<</Type/Pagination/Subtype/" << (kind == SectionKind::pageHeader ? "Header" : "Footer")
         << ">>BDC\n";
}

void PdfCanvas::endArtifact() {
    closeText();
    out_ << "EMC\n";
}

}  // namespace quillo
