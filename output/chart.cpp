#include "output/chart.h"

#include <algorithm>
#include <array>

namespace quillo {
namespace {

constexpr float margin = 80, titleHeight = 300, labelHeight = 220, keySize = 120, keyWidth = 1400;
constexpr float barShare = 0.7F;  // of a point's width; the rest is air
constexpr Color axisColor{120, 120, 120};
constexpr std::array<Color, 6> seriesColors = {
    {{46, 92, 138}, {201, 123, 46}, {90, 143, 82}, {150, 80, 110}, {110, 110, 160}, {140, 140, 90}}};

Color colorOf(std::size_t series) {
    return seriesColors[series % seriesColors.size()];
}

struct Range {
    double low = 0, high = 0;
    double span() const { return high > low ? high - low : 1; }
};

Range rangeOf(const ChartData& chart) {
    Range range;
    for (const auto& series : chart.series) {
        for (const auto& point : series.points) {
            range.low = std::min(range.low, point.value);
            range.high = std::max(range.high, point.value);
        }
    }
    return range;
}

void paintLabel(std::string_view text, const TextStyle& style, const Box& box, TextLayout& layout, Canvas& canvas) {
    PlacedControl control;
    control.style = &style;
    control.text = text;
    control.width = box.width;
    control.height = box.height;
    layout.start(control, box.left, box.top);
    while (const PlacedLine* line = layout.next()) canvas.text(*line, style.color);
}

void paintKey(const ChartData& chart, const Box& box, TextLayout& layout, Canvas& canvas) {
    TextStyle style;
    style.size = 7;
    float left = box.right() - margin - keyWidth * static_cast<float>(chart.series.size());
    for (std::size_t s = 0; s < chart.series.size(); ++s, left += keyWidth) {
        canvas.fill({left, box.top + margin + 40, keySize, keySize}, colorOf(s));
        paintLabel(chart.series[s].name, style,
                   {left + keySize + 60, box.top + margin, keyWidth - keySize - 120, labelHeight}, layout, canvas);
    }
}

void paintBars(const ChartData& chart, const Box& plot, TextLayout& layout, Canvas& canvas) {
    std::size_t points = 0;
    for (const auto& series : chart.series) points = std::max(points, series.points.size());
    if (points == 0) return;
    const Range range = rangeOf(chart);
    const auto yOf = [&](double value) {
        return plot.top + static_cast<float>((range.high - value) / range.span()) * plot.height;
    };
    const float pointWidth = plot.width / static_cast<float>(points);
    const float barWidth = pointWidth * barShare / static_cast<float>(chart.series.size());
    TextStyle style;
    style.size = 7;
    style.align = Align::center;
    for (std::size_t s = 0; s < chart.series.size(); ++s) {
        for (std::size_t p = 0; p < chart.series[s].points.size(); ++p) {
            const auto& point = chart.series[s].points[p];
            const float pointLeft = plot.left + pointWidth * static_cast<float>(p);
            const float left = pointLeft + pointWidth * (1 - barShare) / 2 + barWidth * static_cast<float>(s);
            const float top = yOf(std::max(point.value, 0.0)), bottom = yOf(std::min(point.value, 0.0));
            canvas.fill({left, top, barWidth, bottom - top}, colorOf(s));
            if (s == 0)
                paintLabel(point.label, style, {pointLeft, plot.bottom() + 30, pointWidth, labelHeight}, layout,
                           canvas);
        }
    }
    canvas.line({plot.left, yOf(0)}, {plot.right(), yOf(0)}, 10, axisColor);
}

}  // namespace

void paintChart(const ChartData& chart, const Box& box, TextLayout& layout, Canvas& canvas) {
    canvas.frame(box, 10, axisColor);
    TextStyle title;
    title.bold = true;
    const bool hasKey = chart.series.size() > 1;
    paintLabel(chart.title, title, {box.left + margin, box.top + margin, box.width - 2 * margin, titleHeight}, layout,
               canvas);
    if (hasKey) paintKey(chart, box, layout, canvas);
    const Box plot{box.left + margin, box.top + margin + titleHeight, box.width - 2 * margin,
                   box.height - 2 * margin - titleHeight - labelHeight};
    if (plot.width > 0 && plot.height > 0) paintBars(chart, plot, layout, canvas);
}

}  // namespace quillo
