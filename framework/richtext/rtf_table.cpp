#include "framework/richtext/rtf_table.h"

#include <algorithm>
#include <iterator>

namespace quillo {
namespace {

constexpr std::size_t mostCells = 64;

}  // namespace

void RtfTable::define() {
    edges_.clear();
    rules_ = {};
    rule_ = nullptr;
    left_ = gap_ = 0;
    heading_ = false;
}

void RtfTable::addEdge(float right) {
    if (edges_.size() < mostCells)
        edges_.push_back({std::max(right, edges_.empty() ? left_ : edges_.back().right), rules_});
    rules_ = {};
    rule_ = nullptr;
}

void RtfTable::setRule(float width) {
    if (rule_ != nullptr) rules_.*rule_ = width;
}

void RtfTable::endCell() {
    if (cell_.empty()) cell_.emplace_back();
    cells_.push_back(std::move(cell_));
    cell_.clear();
}

RichCell RtfTable::cellOf(std::size_t index) const {
    RichCell cell = edges_[index].rules;
    cell.left = index == 0 ? left_ : edges_[index - 1].right;
    cell.right = edges_[index].right;
    return cell;
}

void RtfTable::endRow(RichText& text) {
    if (!cell_.empty()) endCell();
    if (edges_.empty() || cells_.empty()) return spill(text);
    RichBlock block;
    block.row.heading = heading_;
    block.row.gap = gap_;
    for (std::size_t i = 0; i < edges_.size(); ++i) block.row.cells.push_back(cellOf(i));
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        // What stands behind the last cell of the definition is kept in that one.
        auto& paragraphs = block.row.cells[std::min(i, edges_.size() - 1)].paragraphs;
        std::move(cells_[i].begin(), cells_[i].end(), std::back_inserter(paragraphs));
    }
    cells_.clear();
    text.push_back(std::move(block));
}

void RtfTable::leave(RichText& text) {
    if (!cell_.empty()) endCell();
    spill(text);
}

// Cells without a row are paragraphs.
void RtfTable::spill(RichText& text) {
    for (auto& cell : cells_)
        for (RichParagraph& paragraph : cell) text.push_back({std::move(paragraph), {}});
    cells_.clear();
}

}  // namespace quillo
