#pragma once

#include <vector>

#include "framework/richtext/rich_text.h"

namespace quillo {

// Gathers the rows of RTF tables: what a row is defined as, and what came for its cells so far.
class RtfTable {
public:
    // \trowd: the next row is defined anew.
    void define();
    // \cellx: a cell up to that edge.
    void addEdge(float right);
    void setLeft(float left) { left_ = left; }
    void setGap(float gap) { gap_ = gap; }
    void setHeading() { heading_ = true; }
    // The border that the next width is for, null for one that is not printed.
    void chooseRule(float RichCell::*rule) { rule_ = rule; }
    void setRule(float width);

    void addParagraph(RichParagraph paragraph) { cell_.push_back(std::move(paragraph)); }
    // \cell
    void endCell();
    // \row, or where a table is left without it: gives what was gathered, as a row where one was defined.
    void endRow(RichText& text);
    void leave(RichText& text);
    bool isEmpty() const { return cells_.empty() && cell_.empty(); }

private:
    struct Edge {
        float right;
        RichCell rules;
    };
    void spill(RichText& text);
    RichCell cellOf(std::size_t index) const;

    std::vector<Edge> edges_;
    RichCell rules_;  // of the cell that is being defined
    float RichCell::*rule_ = nullptr;
    float left_ = 0, gap_ = 0;
    bool heading_ = false;
    std::vector<std::vector<RichParagraph>> cells_;
    std::vector<RichParagraph> cell_;
};

}  // namespace quillo
