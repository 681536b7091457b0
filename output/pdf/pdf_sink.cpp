#include "output/pdf/pdf_sink.h"

#include <cmath>
#include <vector>

#include "output/page_painter.h"
#include "output/pdf/pdf_canvas.h"
#include "output/pdf/pdf_file.h"

namespace quillo {
namespace {

void appendDate(Bytes& out, Date date) {
    const std::string iso = date.isoText();  // YYYY-MM-DD, perhaps with a time of day
    out << "(D:" << iso.substr(0, 4) << iso.substr(5, 2) << iso.substr(8, 2) << ')';
}

}  // namespace

class PdfSink::Document {
public:
    Document(std::unique_ptr<Output> output, PdfOptions options, std::shared_ptr<TextShaper> shaper);
    void page(const Page& page);
    void finish();

private:
    static constexpr std::size_t pagesPerNode = 100;  // of the page tree

    void writeLinks(Bytes& out);
    void closeNode();
    void writeCatalog(std::uint32_t outline);
    void writeInformation();

    PdfOptions options_;
    PdfFile file_;
    PdfCanvas canvas_;
    std::shared_ptr<TextShaper> shaper_;
    PagePainter painter_;
    std::uint32_t resources_, pageTree_;
    std::shared_ptr<RunNames> names_;  // of the run whose pages come: keeps its pictures at their addresses
    struct Node {
        std::uint32_t number = 0;
        std::size_t pages = 0;
    };
    std::vector<Node> nodes_;          // those that are written
    Node node_;                        // the one that fills
    std::vector<std::uint32_t> kids_;  // its pages
};

PdfSink::Document::Document(std::unique_ptr<Output> output, PdfOptions options, std::shared_ptr<TextShaper> shaper)
    : options_(std::move(options)),
      file_(std::move(output)),
      canvas_(file_),
      shaper_(shaper),
      painter_(std::move(shaper)),
      resources_(file_.reserve()),
      pageTree_(file_.reserve()) {}

void PdfSink::Document::page(const Page& page) {
    if (page.names != names_) canvas_.beginRun();
    names_ = page.names;
    if (kids_.empty()) node_ = {file_.reserve(), 0};
    const std::uint32_t number = file_.reserve(2), content = number + 1;
    canvas_.begin(page.setup.height, number);
    painter_.paint(page, canvas_);
    file_.stream(content, "", canvas_.content());

    Bytes& out = file_.object(number);
    out << "<</Type/Page/Parent " << node_.number << " 0 R/MediaBox[0 0 ";
    out.hundredths(std::lround(page.setup.width * 5)) << ' ';
    out.hundredths(std::lround(page.setup.height * 5))
        << "]/Resources " << resources_ << " 0 R/Contents " << content << " 0 R";
    if (!canvas_.links().empty()) writeLinks(out);
    out << ">>";
    kids_.push_back(number);
    if (kids_.size() == pagesPerNode) closeNode();
}

// The links stand in the page itself: an object of its own for each would cost a number, a reference and a place in
// the cross-reference, which a journal with a link on every row pays for.
void PdfSink::Document::writeLinks(Bytes& out) {
    out << "/Annots[";
    for (const PdfCanvas::Link& link : canvas_.links()) {
        out << "<</Subtype/Link/F 4/Border[0 0 0]/Rect[";
        for (const std::int64_t side : {link.left, link.bottom, link.right, link.top}) out.hundredths(side) << ' ';
        const std::string_view tag = canvas_.tag(link);
        (out << "]/A<</S/URI/URI").literal(tag) << ">>/Contents";
        out.shown(tag) << ">>";
    }
    out << ']';
}

void PdfSink::Document::closeNode() {
    if (kids_.empty()) return;
    Bytes& out = file_.object(node_.number);
    out << "<</Type/Pages/Parent " << pageTree_ << " 0 R/Count " << kids_.size() << "/Kids[";
    for (const std::uint32_t kid : kids_) out << kid << " 0 R ";
    out << "]>>";
    nodes_.push_back({node_.number, kids_.size()});
    kids_.clear();
}

void PdfSink::Document::finish() {
    closeNode();
    std::size_t pages = 0;
    Bytes& tree = file_.object(pageTree_);
    tree << "<</Type/Pages/Kids[";
    for (const Node& node : nodes_) {
        tree << node.number << " 0 R ";
        pages += node.pages;
    }
    tree << "]/Count " << pages << ">>";
    const std::uint32_t outline = canvas_.finish(resources_, pages, *shaper_);
    writeCatalog(outline);
    writeInformation();
    file_.finish();
}

void PdfSink::Document::writeCatalog(std::uint32_t outline) {
    Bytes& out = file_.object(file_.catalog());
    out << "<</Type/Catalog/Pages " << pageTree_ << " 0 R/ViewerPreferences<</DisplayDocTitle true>>";
    if (!options_.language.empty()) (out << "/Lang").shown(options_.language);
    if (outline != 0) out << "/Outlines " << outline << " 0 R/PageMode/UseOutlines";
    out << ">>";
}

void PdfSink::Document::writeInformation() {
    Bytes& out = file_.object(file_.information());
    out << "<</Creator(Quillo)/Producer(Quillo)";
    if (!options_.title.empty()) (out << "/Title").shown(options_.title);
    if (!options_.author.empty()) (out << "/Author").shown(options_.author);
    if (options_.created) appendDate(out << "/CreationDate", *options_.created);
    out << ">>";
}

PdfSink::PdfSink(std::unique_ptr<Output> output, PdfOptions options, std::shared_ptr<TextShaper> shaper)
    : document_(std::make_unique<Document>(std::move(output), std::move(options), std::move(shaper))) {}
PdfSink::~PdfSink() = default;
void PdfSink::page(const Page& page) {
    document_->page(page);
}
void PdfSink::finish() {
    document_->finish();
}

}  // namespace quillo
