#include "framework/engine/rich_layout.h"

#include <algorithm>
#include <cmath>

#include "framework/engine/rich_lines.h"

namespace quillo {
namespace {

constexpr float leastCell = 240;
constexpr const char *paragraphName = "Paragraph", *lineName = "Line", *rowName = "Row", *captionsName = "Captions",
                     *tableEndName = "TableEnd";

// The edges of a row's cells, which stand beside one another within the room.
std::vector<float> edgesOf(const RichRow& row, float width) {
    std::vector<float> edges = {std::clamp(row.cells.front().left, 0.0F, width / 2)};
    for (const RichCell& cell : row.cells) edges.push_back(std::max(cell.right, edges.back() + leastCell));
    if (edges.back() <= width) return edges;
    const float scale = (width - edges.front()) / (edges.back() - edges.front());
    for (float& edge : edges) edge = edges.front() + (edge - edges.front()) * scale;
    return edges;
}

class RichLayout {
public:
    explicit RichLayout(const RichPlace& place) : place_(place) {}

    std::span<const PlacedSection> run(const RichText& text) {
        for (const RichBlock& block : text) {
            if (block.isRow()) {
                addRow(block.row);
            } else {
                endTable();
                addParagraph(block.paragraph);
            }
        }
        endTable();
        return place_.arena.keep(sections_);
    }

private:
    void addParagraph(const RichParagraph& paragraph) {
        const auto lines = breakParagraph(paragraph, {0, place_.width, place_.mostHeight}, place_.measure);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const bool first = i == 0, last = i + 1 == lines.size();
            const float before = first ? paragraph.before : 0;
            addLine(lines[i], before);
            SectionInfo info = infoOf(first ? paragraphName : lineName);
            // No line of a paragraph stands alone on a page, at its end nor at its beginning.
            info.keepNext = paragraph.keepNext || (first && !last) || i + 2 == lines.size();
            endSection(info, before + lines[i].height + (last ? paragraph.after : 0));
        }
    }

    void addRow(const RichRow& row) {
        const auto edges = edgesOf(row, place_.width);
        float height = 0;
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            const float gap = std::min(row.gap, (edges[i + 1] - edges[i]) / 4);
            height = std::max(height, addCell(row.cells[i], {edges[i] + gap, edges[i + 1] - gap, place_.mostHeight}));
        }
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            addRule(row.cells[i].ruleAbove, edges[i], edges[i + 1], 0);
            addRule(row.cells[i].ruleBelow, edges[i], edges[i + 1], height);
        }
        // Only what a table begins with are its captions.
        captions_ = row.heading && (!inTable_ || captions_ > 0) ? captions_ + 1 : 0;
        inTable_ = true;
        SectionInfo info = infoOf(captions_ == 0 ? rowName : captionsName);
        if (captions_ > 0) {
            info.kind = SectionKind::groupHeader;
            info.level = captions_;
            info.repeat = info.keepNext = hasCaptions_ = true;
        }
        endSection(info, height);
    }

    // Its last row, often a total, stays with the one before. Behind it its captions do not stand again.
    void endTable() {
        if (inTable_ && sections_.size() > 1) {
            const SectionInfo*& before = sections_[sections_.size() - 2].info;
            SectionInfo kept = *before;
            kept.keepNext = true;
            if (before->name == rowName) before = place_.names.section(kept);
        }
        if (hasCaptions_) {
            SectionInfo info = infoOf(tableEndName);
            info.kind = SectionKind::groupFooter;
            info.level = 1;
            endSection(info, 0);
        }
        inTable_ = hasCaptions_ = false;
        captions_ = 0;
    }

    // Gives the height that it needs.
    float addCell(const RichCell& cell, const RichRoom& room) {
        float top = 0;
        for (const RichParagraph& paragraph : cell.paragraphs) {
            top += paragraph.before;
            for (const RichLine& line : breakParagraph(paragraph, room, place_.measure)) {
                addLine(line, top);
                top += line.height;
            }
            top += paragraph.after;
        }
        return top;
    }

    void addLine(const RichLine& line, float top) {
        for (const RichPiece& piece : line.pieces) {
            PlacedControl& control = add(piece.text.empty() ? "Picture" : "Text",
                                         piece.text.empty() ? ControlKind::image : ControlKind::field);
            control.left = piece.left;
            control.width = piece.width;
            if (piece.text.empty()) {
                control.height = piece.height;
                control.top = top + line.ascent - piece.height;
                control.picture = place_.names.picture(piece.run->picture);
            } else {
                control.style = place_.names.style(piece.run->style);
                control.height = place_.measure.lineHeight(piece.run->style);
                control.top = top + line.ascent - place_.measure.baseline(piece.run->style);
                control.text = place_.arena.text(piece.text);
            }
        }
    }

    void addRule(float lineWidth, float left, float right, float top) {
        if (lineWidth <= 0) return;
        PlacedControl& control = add("Rule", ControlKind::line);
        control.left = left;
        control.width = right - left;
        control.top = top;
        control.lineWidth = lineWidth;
    }

    PlacedControl& add(const char* name, ControlKind kind) {
        PlacedControl& control = controls_.emplace_back();
        control.info = place_.names.control({name, kind});
        return control;
    }

    static SectionInfo infoOf(const char* name) {
        SectionInfo info;
        info.name = name;
        return info;
    }

    void endSection(const SectionInfo& info, float height) {
        PlacedSection section;
        section.info = place_.names.section(info);
        section.top = top_;
        section.width = place_.width;
        section.height = height;
        section.controls = place_.arena.keep(controls_);
        controls_.clear();
        sections_.push_back(section);
        top_ += height;
    }

    const RichPlace& place_;
    std::vector<PlacedSection> sections_;
    std::vector<PlacedControl> controls_;  // of the section that is being made
    float top_ = 0;
    bool inTable_ = false, hasCaptions_ = false;
    int captions_ = 0;  // how many rows of captions came last
};

// Whether a run goes on where the other one ends, so that a word may stand in both.
bool goesOn(const PlacedControl& before, const PlacedControl& next) {
    return std::fabs(before.left + before.width - next.left) < 1;
}

void appendWords(const PlacedSection& line, std::string& words) {
    const PlacedControl* before = nullptr;
    for (const PlacedControl& control : line.controls) {
        if (control.text.empty()) continue;
        const bool apart = before != nullptr ? !goesOn(*before, control) : !words.empty() && words.back() != '\n';
        if (apart) words += ' ';
        words += control.text;
        before = &control;
    }
}

}  // namespace

std::span<const PlacedSection> layOutRichText(const RichText& text, const RichPlace& place) {
    return RichLayout(place).run(text);
}

std::string wordsOf(const PlacedControl& control) {
    std::string words;
    for (const PlacedSection& section : control.sections) {
        if (section.repeat || section.info->name == tableEndName) continue;
        const bool goesOn = section.continued || section.info->name == lineName;
        if (!goesOn && &section != &control.sections.front()) words += '\n';
        appendWords(section, words);
    }
    return words;
}

}  // namespace quillo
