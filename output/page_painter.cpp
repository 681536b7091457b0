#include "output/page_painter.h"

namespace quillo {
namespace {

// The text by which the outline lists a section; looks into sub-reports too.
std::string_view firstText(const PlacedSection& section) {
    for (const PlacedControl& control : section.controls) {
        if (control.text.find_first_not_of(' ') != std::string_view::npos) return control.text;
        for (const PlacedSection& inner : control.sections) {
            if (const std::string_view found = firstText(inner); !found.empty()) return found;
        }
    }
    return {};
}

bool isArtifact(const PlacedSection& section) {
    return section.info->kind == SectionKind::pageHeader || section.info->kind == SectionKind::pageFooter;
}

Color colorOf(const PlacedControl& control) {
    return control.style ? control.style->color : Color{};
}

}  // namespace

void PagePainter::paint(const Page& page, Canvas& canvas) {
    for (const PlacedSection& section : page.sections) {
        const bool artifact = isArtifact(section);
        if (artifact) canvas.beginArtifact(section.info->kind);
        paintSections({&section, 1}, {0, 0}, canvas);
        if (artifact) canvas.endArtifact();
    }
}

void PagePainter::paintSections(std::span<const PlacedSection> sections, Point corner, Canvas& canvas) {
    for (const PlacedSection& section : sections) {
        const Point own{corner.x + section.left, corner.y + section.top};
        if (section.info->fill) canvas.fill({own.x, own.y, section.width, section.height}, *section.info->fill);
        if (section.info->bookmark && !section.continued) {
            if (const std::string_view title = firstText(section); !title.empty())
                canvas.bookmark(section.info->level, title, own.y);
        }
        for (const PlacedControl& control : section.controls)
            paintControl(control, {own.x + control.left, own.y + control.top}, canvas);
    }
}

void PagePainter::paintControl(const PlacedControl& control, Point corner, Canvas& canvas) {
    const Box box{corner.x, corner.y, control.width, control.height};
    if (control.info->kind == ControlKind::line) {
        canvas.line(corner, {box.right(), box.bottom()}, control.lineWidth, colorOf(control));
        return;
    }
    if (control.info->kind == ControlKind::sector) {
        canvas.sector(box, control.startAngle, control.sweep, control.fill.value_or(Color{}));
        return;
    }
    if (control.style && control.style->fill) canvas.fill(box, *control.style->fill);
    if (control.fill) canvas.fill(box, *control.fill);
    if (control.info->kind == ControlKind::shape && control.lineWidth > 0)
        canvas.frame(box, control.lineWidth, colorOf(control));
    if (!control.picture.empty()) canvas.picture(box, control.picture);
    if (control.style && !control.text.empty()) paintText(control, corner, canvas);
    paintSections(control.sections, corner, canvas);
    if (!control.link.empty()) canvas.link(box, control.link);
}

void PagePainter::paintText(const PlacedControl& control, Point corner, Canvas& canvas) {
    const TextStyle& style = *control.style;
    layout_.start(control, corner.x, corner.y);
    while (const PlacedLine* line = layout_.next()) {
        canvas.text(*line, style.color);
        if (control.info->thenPageCount) canvas.pageCount(*line, style.color);
        if (!style.underline || line->glyphs->runs.empty()) continue;
        const Face::Metrics& metrics = line->glyphs->runs.front().face->metrics();
        const float em = line->size * twipsPerPoint;
        canvas.fill(
            {line->left, line->baseline + metrics.underlineTop * em, line->width, metrics.underlineThickness * em},
            style.color);
    }
}

}  // namespace quillo
