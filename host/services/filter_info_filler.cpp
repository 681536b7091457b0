#include "host/services/filter_info_filler.h"

#include "host/language/host_texts.h"

namespace quillo {
namespace {

constexpr float lineHeight = 210;
constexpr float textShare = 0.66F;  // of the width; the dates of a report stand to the right

// One growing line of text, as wide as the control that it is printed in.
class FilterText final : public Report {
public:
    FilterText(HostContext& context, const std::string& text, float width) : Report("dsrFilterAndSortByInfo", context) {
        Label& line = label("lblFilter");
        line.Caption = text;
        line.Width = width * textShare;
    }
};

std::string filterText(const FilterInfo& info, const Application& application, std::string_view segments) {
    std::string text = info.where;
    if (!info.order.empty()) {
        text += text.empty() ? application.GetText(HostText::sortedByAlone)
                             : "; " + application.GetText(HostText::sortedBy);
        text += " " + info.order;
    }
    if (!segments.empty())
        text += (text.empty() ? "" : "\n") + application.GetText(HostText::segments) + " " + std::string(segments);
    return text;
}

}  // namespace

void FilterTextFiller::FillFilterInfo(SubReport& control, const FilterInfo& info, Application& application,
                                      std::string_view segments) {
    const std::string text = filterText(info, application, segments);
    control.Object = text.empty() ? nullptr : std::make_shared<FilterText>(context_, text, control.Width);
    filled_ = control.Object;
    control.Height = lineHeight;  // also without a text, so that the dates beside it keep their line
}

std::string FilterTextFiller::cutText(TextMeasure& measure) const {
    const auto filled = filled_.lock();
    if (!filled) return {};
    const auto& line = static_cast<const Label&>(*filled->section("Detail").find("lblFilter"));
    std::vector<std::uint32_t> starts;
    measure.breakLines(line.Caption, line.Style.value(), line.Width, starts);
    return starts.size() > line.MostLines ? line.Caption : std::string();
}

}  // namespace quillo
