#include "output/page_frame.h"

#include <algorithm>
#include <initializer_list>

namespace quillo {
namespace {

constexpr float edge = 480;          // between the paper's edge and the frame: what printers can reach
constexpr float lowestMargin = 700;  // a lower one has no room for its part
constexpr float topHeight = 460, topGap = 160;
constexpr float bottomHeight = 230, bottomGap = 160;
constexpr float titleShare = 0.75F;  // of the width, at most: a longer one is narrowed
constexpr float partsGap = 360;      // between company and title
constexpr float periodHeight = 190;
constexpr float textGap = 70;  // between a text and its rule

constexpr Color ink{32, 48, 71};
constexpr Color softInk{96, 105, 117};
constexpr Color alarm{176, 32, 32};

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
const TextStyle periodStyle = styleOf(8, false, Align::left, VerticalAlign::top, softInk);
const TextStyle numberStyle = periodStyle;
const TextStyle dateStyle = styleOf(8, false, Align::right, VerticalAlign::top, softInk);
const TextStyle failureStyle = styleOf(8, true, Align::center, VerticalAlign::top, alarm);
const TextStyle ruleStyle = styleOf(9, false, Align::left, VerticalAlign::top, ink);

PlacedControl textControl(Page& page, std::string_view name, std::string_view text, const TextStyle& style,
                          bool thenPageCount = false) {
    PlacedControl control;
    control.info = page.names->control({.name = std::string(name), .thenPageCount = thenPageCount});
    control.style = page.names->style(style);
    control.text = page.arena.text(text);
    return control;
}

PlacedControl rule(Page& page, float top) {
    PlacedControl control;
    control.info = page.names->control({"linFrame", ControlKind::line});
    control.style = page.names->style(ruleStyle);
    control.top = top;
    control.width = page.setup.printableWidth();
    control.lineWidth = 15;
    return control;
}

PlacedSection frameSection(Page& page, SectionKind kind, std::string_view name, float top, float height,
                           std::initializer_list<PlacedControl> controls) {
    SectionInfo info;
    info.name = name;
    info.kind = kind;
    const auto kept = page.arena.array<PlacedControl>(controls.size());
    std::uninitialized_copy(controls.begin(), controls.end(), kept.begin());
    PlacedSection section;
    section.info = page.names->section(info);
    section.left = page.setup.leftMargin;
    section.top = top;
    section.width = page.setup.printableWidth();
    section.height = height;
    section.controls = kept;
    return section;
}

}  // namespace

PageFrame::PageFrame(std::unique_ptr<PageSink> inner, PageFrameTexts texts, TextMeasure& measure)
    : inner_(std::move(inner)), texts_(std::move(texts)), titleWidth_(measure.width(texts_.title, titleStyle)) {}

std::unique_ptr<Page> PageFrame::take(std::unique_ptr<Page> handed) {
    Page& page = *handed;
    if (page.setup.topMargin >= lowestMargin) page.sections.insert(page.sections.begin(), top(page));
    if (page.setup.bottomMargin >= lowestMargin) page.sections.push_back(bottom(page));
    return inner_->take(std::move(handed));
}

PlacedSection PageFrame::top(Page& page) const {
    const float width = page.setup.printableWidth(), titleWidth = std::min(titleWidth_ + 20, width * titleShare);
    PlacedControl company = textControl(page, "lblFrameCompany", texts_.company, companyStyle);
    company.width = width - titleWidth - partsGap;
    company.height = topHeight - textGap - 35;  // on the title's baseline
    PlacedControl title = textControl(page, "lblFrameTitle", texts_.title, titleStyle);
    title.left = width - titleWidth;
    title.width = titleWidth;
    title.height = topHeight - textGap;
    PlacedControl period = textControl(page, "lblFramePeriod", texts_.period, periodStyle);
    period.width = company.width;
    period.height = periodHeight;
    period.top = topHeight - textGap - periodHeight;
    if (!texts_.period.empty()) company.height -= periodHeight;
    const float start = page.setup.topMargin - topGap - topHeight;
    return frameSection(page, SectionKind::pageHeader, "FrameTop", start, topHeight,
                        {company, title, rule(page, topHeight), period});
}

PlacedSection PageFrame::bottom(Page& page) const {
    const PageSetup& setup = page.setup;
    const std::string words = texts_.pageWord + " " + std::to_string(page.number);
    const bool counted = !texts_.ofWord.empty();
    PlacedControl number =
        textControl(page, "lblFramePage", counted ? words + " " + texts_.ofWord : words, numberStyle, counted);
    PlacedControl date = textControl(page, "lblFrameDate", texts_.printedOn, dateStyle);
    const bool failed = texts_.failed && texts_.failed();
    PlacedControl failure =
        textControl(page, "lblFrameFailures", failed ? texts_.failureNote : std::string_view(), failureStyle);
    date.top = number.top = failure.top = textGap;
    date.height = number.height = failure.height = bottomHeight - textGap;
    date.width = number.width = failure.left = setup.printableWidth() / 4;
    failure.width = setup.printableWidth() / 2;
    date.left = failure.left + failure.width;
    const float start = std::min(setup.height - setup.bottomMargin + bottomGap, setup.height - edge - bottomHeight);
    return frameSection(page, SectionKind::pageFooter, "FrameBottom", start, bottomHeight,
                        {rule(page, 0), number, failure, date});
}

}  // namespace quillo
