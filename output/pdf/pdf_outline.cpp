#include "output/pdf/pdf_outline.h"

namespace quillo {

void PdfOutline::add(int level, std::string_view title, std::uint32_t page, std::int64_t top, PdfFile& file) {
    for (const Item& item : open_) {
        if (item.level == level && item.title == title) return;
    }
    if (root_.number == 0) root_.number = file.reserve();
    const std::uint32_t number = file.reserve();
    while (!open_.empty() && open_.back().level >= level) {
        // An item of the outline that lies deeper than this one ends its own row; the last to close is this one's
        // sibling.
        const bool sibling = open_.size() == 1 || open_[open_.size() - 2].level < level;
        closeLast(sibling ? number : 0, file);
    }
    Item& parent = open_.empty() ? root_ : open_.back();
    Item item;
    item.number = number;
    item.parent = parent.number;
    item.previous = parent.lastChild;
    item.level = level;
    item.title = title;
    item.page = page;
    item.top = top;
    if (parent.firstChild == 0) parent.firstChild = number;
    parent.lastChild = number;
    ++parent.children;
    open_.push_back(std::move(item));
}

void PdfOutline::closeLast(std::uint32_t next, PdfFile& file) {
    const Item& item = open_.back();
    Bytes& out = file.object(item.number);
    (out << "<</Title").shown(item.title) << "/Parent " << item.parent << " 0 R";
    if (item.previous != 0) out << "/Prev " << item.previous << " 0 R";
    if (next != 0) out << "/Next " << next << " 0 R";
    if (item.children > 0) {  // a negative count: shown closed
        out << "/First " << item.firstChild << " 0 R/Last " << item.lastChild << " 0 R/Count -" << item.children;
    }
    (out << "/Dest[" << item.page << " 0 R/XYZ null ").hundredths(item.top) << " null]>>";
    open_.pop_back();
}

std::uint32_t PdfOutline::finish(PdfFile& file) {
    while (!open_.empty()) closeLast(0, file);
    if (root_.number == 0) return 0;
    file.object(root_.number) << "<</Type/Outlines/First " << root_.firstChild << " 0 R/Last " << root_.lastChild
                              << " 0 R/Count " << root_.children << ">>";
    return root_.number;
}

}  // namespace quillo
