#include "output/page_frame.h"

#include <algorithm>

namespace quillo {
namespace {

constexpr float edge = 480;          // between the paper's edge and the frame: what printers can reach
constexpr float lowestMargin = 700;  // a lower one has no room for its part
constexpr float topHeight = 460, topGap = 160;
constexpr float bottomHeight = 230, bottomGap = 160;
constexpr float titleShare = 0.6F;  // of the width; the company has the rest
constexpr float periodHeight = 190;
constexpr float textGap = 70;  // between a text and its rule

constexpr Color ink{32, 48, 71};
constexpr Color softInk{96, 105, 117};

TextStyle styleOf(float size, bool bold, Align align, VerticalAlign verticalAlign, Color color) {
    TextStyle style;
    style.size = size;
    style.bold = bold;
    style.align = align;
    style.verticalAlign = verticalAlign;
    style.color = color;
    return style;
}

const TextStyle companyStyle = styleOf(9.5F, true, Align::left, VerticalAlign::bottom, softInk);
const TextStyle titleStyle = styleOf(16, true, Align::right, VerticalAlign::bottom, ink);
const TextStyle dateStyle = styleOf(8, false, Align::left, VerticalAlign::top, softInk);
const TextStyle numberStyle = styleOf(8, false, Align::right, VerticalAlign::top, softInk);
const TextStyle ruleStyle = styleOf(9, false, Align::left, VerticalAlign::top, ink);

}  // namespace

void PageFrame::page(const Page& page) {
    framed_.number = page.number;
    framed_.setup = page.setup;
    framed_.names = page.names;
    framed_.sections.clear();
    pageNumber_ = texts_.pageWord + " " + std::to_string(page.number);
    if (page.setup.topMargin >= lowestMargin) addTop(page.setup);
    framed_.sections.insert(framed_.sections.end(), page.sections.begin(), page.sections.end());
    if (page.setup.bottomMargin >= lowestMargin) addBottom(page.setup);
    inner_.page(framed_);
}

PlacedControl PageFrame::text(std::string_view name, std::string_view text, const TextStyle& style) {
    PlacedControl control;
    control.info = framed_.names->control({std::string(name), ControlKind::label});
    control.style = framed_.names->style(style);
    control.text = text;
    return control;
}

PlacedControl PageFrame::rule(float top, float width) {
    PlacedControl control;
    control.info = framed_.names->control({"linFrame", ControlKind::line});
    control.style = framed_.names->style(ruleStyle);
    control.top = top;
    control.width = width;
    control.lineWidth = 15;
    return control;
}

void PageFrame::addTop(const PageSetup& setup) {
    const float width = setup.printableWidth(), titleWidth = width * titleShare;
    PlacedControl company = text("lblFrameCompany", texts_.company, companyStyle);
    company.width = width - titleWidth;
    company.height = topHeight - textGap - 35;  // on the title's baseline
    PlacedControl title = text("lblFrameTitle", texts_.title, titleStyle);
    title.left = width - titleWidth;
    title.width = titleWidth;
    title.height = topHeight - textGap;
    PlacedControl period = text("lblFramePeriod", texts_.period, dateStyle);
    period.width = company.width;
    period.height = periodHeight;
    period.top = topHeight - textGap - periodHeight;
    if (!texts_.period.empty()) company.height -= periodHeight;
    top_[0] = company, top_[1] = title, top_[2] = rule(topHeight, width), top_[3] = period;
    const std::size_t shown = texts_.period.empty() ? 3 : 4;
    addSection(SectionKind::pageHeader, "FrameTop", setup, setup.topMargin - topGap - topHeight, topHeight,
               std::span(top_).first(shown));
}

void PageFrame::addBottom(const PageSetup& setup) {
    const float width = setup.printableWidth();
    PlacedControl date = text("lblFrameDate", texts_.printedOn, dateStyle);
    PlacedControl number = text("lblFramePage", pageNumber_, numberStyle);
    date.top = number.top = textGap;
    date.height = number.height = bottomHeight - textGap;
    date.width = number.left = number.width = width / 2;
    bottom_[0] = rule(0, width), bottom_[1] = date, bottom_[2] = number;
    const float top = std::min(setup.height - setup.bottomMargin + bottomGap, setup.height - edge - bottomHeight);
    addSection(SectionKind::pageFooter, "FrameBottom", setup, top, bottomHeight, bottom_);
}

void PageFrame::addSection(SectionKind kind, std::string_view name, const PageSetup& setup, float top, float height,
                           std::span<const PlacedControl> controls) {
    PlacedSection section;
    SectionInfo info;
    info.name = name;
    info.kind = kind;
    section.info = framed_.names->section(info);
    section.left = setup.leftMargin;
    section.top = top;
    section.width = setup.printableWidth();
    section.height = height;
    section.controls = controls;
    framed_.sections.push_back(section);
}

}  // namespace quillo
