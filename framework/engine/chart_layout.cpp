#include "framework/engine/chart_layout.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <ranges>
#include <string>
#include <vector>

#include "framework/engine/chart_axis.h"
#include "framework/engine/chart_palette.h"

namespace quillo {
namespace {

constexpr float gap = 80, keySize = 130, lineWidth = 10;  // twips
constexpr float titlePoints = 10, textPoints = 7.5F, leastPoints = 5.5F;
constexpr Color gridColor{222, 222, 222}, axisColor{90, 90, 90}, white{255, 255, 255};
constexpr std::string_view ellipsis = "…";

// Beyond it no axis could tell its ticks apart.
constexpr double mostValue = 1e15;

double valueOf(const ChartData::Point& point) {
    return std::isfinite(point.value) ? std::clamp(point.value, -mostValue, mostValue) : 0;
}

TextStyle textStyle(Align align, float points = textPoints) {
    TextStyle style;
    style.size = points;
    style.align = align;
    return style;
}

// What can be read on a ground: black on light ones.
Color inkOn(Color ground) {
    return ground.red * 3 + ground.green * 6 + ground.blue > 1300 ? Color{} : white;
}

class ChartLayout {
public:
    ChartLayout(const ChartData& chart, const ChartPlace& place) : chart_(chart), place_(place) {}

    std::span<const PlacedSection> run() {
        Room room{0, 0, place_.width, place_.height};
        if (!chart_.title.empty()) takeTitle(room);
        if (chart_.kind == ChartKind::pie) {
            if (chart_.legend) takeSliceNames(room);
            addPie(room);
        } else {
            if (chart_.legend) takeSeriesNames(room);
            addBars(room);
        }
        return section();
    }

private:
    struct Room {
        float left = 0, top = 0, right = 0, bottom = 0;
        float width() const { return right - left; }
        float height() const { return bottom - top; }
        bool isEmpty() const { return width() <= 0 || height() <= 0; }
    };

    float lineHeight() { return place_.measure.lineHeight(textStyle(Align::left)); }
    float widthOf(std::string_view text, float points = textPoints) {
        return place_.measure.width(text, textStyle(Align::left, points));
    }

    void takeTitle(Room& room) {
        TextStyle style = textStyle(Align::center, titlePoints);
        style.bold = true;
        const float height = place_.measure.lineHeight(style);
        addText("Title", chart_.title, style, {room.left, room.top, room.right, room.top + height});
        room.top += height + gap;
    }

    // The series' names in a row below the title.
    void takeSeriesNames(Room& room) {
        float width = -2 * gap;
        for (const auto& series : chart_.series) width += keySize + 3 * gap + widthOf(series.name);
        float left = room.left + std::max((room.width() - width) / 2, 0.0F);
        for (std::size_t i = 0; i < chart_.series.size(); ++i) {
            const float named = std::min(widthOf(chart_.series[i].name), room.right - left - keySize - gap);
            if (named <= 0) break;
            addName(chart_.series[i].name, seriesColor(chart_, i), left, room.top, named);
            left += keySize + 3 * gap + named;
        }
        room.top += lineHeight() + gap;
    }

    // The slices' names in a column at the right.
    void takeSliceNames(Room& room) {
        if (chart_.series.empty()) return;
        const auto& points = chart_.series.front().points;
        float width = 0;
        for (const auto& point : points) width = std::max(width, widthOf(point.label));
        width = std::min(width, room.width() / 2 - keySize - 2 * gap);
        const float step = lineHeight() + gap / 2, left = room.right - width - keySize - gap;
        float top = room.top;
        for (std::size_t i = 0; i < points.size() && top + lineHeight() <= room.bottom; ++i, top += step)
            addName(points[i].label, sliceColor(chart_, i), left, top, width);
        room.right = left - gap;
    }

    void addName(const std::string& name, Color color, float left, float top, float width) {
        const float middle = top + lineHeight() / 2;
        addGround("Key", color, {left, middle - keySize / 2, left + keySize, middle + keySize / 2});
        addText("Name", name, textStyle(Align::left),
                {left + keySize + gap, top, left + keySize + gap + width, top + lineHeight()});
    }

    std::size_t pointCount() const {
        std::size_t count = 0;
        for (const auto& series : chart_.series) count = std::max(count, series.points.size());
        return count;
    }

    void addBars(Room room) {
        const std::size_t points = pointCount();
        if (points == 0) return;
        const bool tellsValues = chart_.series.size() == 1 && points <= mostValues;
        if (tellsValues) room.top += lineHeight();
        room.top += lineHeight() / 2;  // half of the highest tick's text
        slot_ = room.width() / static_cast<float>(points);
        fitLabels(points, room.width() * plotShare / static_cast<float>(points));
        const float labels = labelHeight(points, room.width());
        room.bottom -= labels + gap;
        if (room.height() <= lineHeight()) return;
        const ChartAxis axis = axisFor(room);
        room.left += tickWidth(axis) + gap;
        if (room.isEmpty()) return;
        slot_ = room.width() / static_cast<float>(points);
        addGrid(axis, room);
        for (std::size_t point = 0; point < points; ++point) addPoint(point, axis, room, tellsValues);
        addRule("Grid", axisColor, {room.left, heightOf(0, axis, room)}, {room.right, heightOf(0, axis, room)});
        addLabels(points, {room.left, room.bottom + gap, room.right, room.bottom + gap + labels});
    }

    ChartAxis axisFor(const Room& room) {
        double low = 0, high = 0;
        for (const auto& series : chart_.series) {
            for (const auto& point : series.points) {
                low = std::min(low, valueOf(point));
                high = std::max(high, valueOf(point));
            }
        }
        // Below the bars that go down there is room for their values too.
        constexpr int most = 6;
        return chartAxis(low, high, std::clamp(static_cast<int>(room.height() / (2 * lineHeight())), 1, most));
    }

    std::string tickText(const ChartAxis& axis, int index) const {
        return place_.locale.number(axis.tick(index), axis.decimals());
    }

    float tickWidth(const ChartAxis& axis) {
        float width = 0;
        for (int i = 0; i < axis.ticks(); ++i) width = std::max(width, widthOf(tickText(axis, i)));
        return width;
    }

    static float heightOf(double value, const ChartAxis& axis, const Room& room) {
        return room.bottom - static_cast<float>(axis.share(value)) * room.height();
    }

    void addGrid(const ChartAxis& axis, const Room& room) {
        for (int i = 0; i < axis.ticks(); ++i) {
            const float height = heightOf(axis.tick(i), axis, room);
            addRule("Grid", gridColor, {room.left, height}, {room.right, height});
            addText("Tick", tickText(axis, i), textStyle(Align::right),
                    {0, height - lineHeight() / 2, room.left - gap, height + lineHeight() / 2});
        }
    }

    void addPoint(std::size_t point, const ChartAxis& axis, const Room& room, bool tellsValue) {
        const auto count = static_cast<float>(chart_.series.size());
        const float width = std::min(slot_ * barShare, widestBar * count) / count;
        float left = room.left + slot_ * (static_cast<float>(point) + 0.5F) - width * count / 2;
        for (std::size_t i = 0; i < chart_.series.size(); ++i, left += width) {
            const auto& points = chart_.series[i].points;
            if (point >= points.size()) continue;
            const double value = valueOf(points[point]);
            const float zero = heightOf(0, axis, room), end = heightOf(value, axis, room);
            const Room bar{left, std::min(zero, end), left + width, std::max(zero, end)};
            if (value != 0) addGround("Bar", points[point].color.value_or(seriesColor(chart_, i)), bar);
            if (tellsValue) addValue(value, axis, bar);
        }
    }

    // Above a bar that goes up, below one that goes down.
    void addValue(double value, const ChartAxis& axis, const Room& bar) {
        const float top = value < 0 ? bar.bottom : bar.top - lineHeight();
        const float middle = (bar.left + bar.right) / 2;
        const std::string text = place_.locale.number(value, axis.decimals() + (axis.step < 10 ? 1 : 0));
        addText("Value", text, textStyle(Align::center),
                {middle - slot_ / 2, top, middle + slot_ / 2, top + lineHeight()});
    }

    // A word that is a little too long for its slot makes all labels smaller; the names of the months fit so.
    void fitLabels(std::size_t points, float slot) {
        float widest = 0;
        for (std::size_t i = 0; i < points; ++i)
            for (const auto word : std::views::split(labelOf(i), ' '))
                widest = std::max(widest, widthOf({word.begin(), word.end()}));
        const float fitting = widest > 0 ? textPoints * (slot - gap) / widest : textPoints;
        labelPoints_ = fitting < leastPoints ? textPoints : std::min(fitting, textPoints);
    }

    // Labels that do not fit beside one another are broken into lines, or where that is too narrow for words only every
    // second, third ... stands.
    float widestLabel(std::size_t points) {
        float width = 0;
        for (std::size_t i = 0; i < points; ++i) width = std::max(width, widthOf(labelOf(i), labelPoints_));
        return width + gap;
    }

    bool breaksLabels(std::size_t points, float slot) { return widestLabel(points) > slot && slot >= leastWords; }

    std::size_t labelStep(std::size_t points, float slot) {
        const float widest = widestLabel(points);
        if (widest <= slot || breaksLabels(points, slot)) return 1;
        return static_cast<std::size_t>(std::ceil(widest / slot));
    }

    float labelHeight(std::size_t points, float width) {
        // The axis takes some of the width, which is not known before its height is.
        const float slot = width * plotShare / static_cast<float>(points);
        return lineHeight() * (breaksLabels(points, slot) ? mostLabelLines : 1);
    }

    const std::string& labelOf(std::size_t point) const {
        static const std::string none;
        for (const auto& series : chart_.series)
            if (point < series.points.size()) return series.points[point].label;
        return none;
    }

    void addLabels(std::size_t points, const Room& room) {
        if (room.height() > lineHeight() * 1.5F) return addBrokenLabels(points, room);
        const std::size_t step = labelStep(points, slot_);
        float free = 0;  // where the next label may begin
        for (std::size_t i = 0; i < points; i += step) {
            const float width = std::min(widthOf(labelOf(i), labelPoints_), place_.width);
            const float middle = room.left + slot_ * (static_cast<float>(i) + 0.5F);
            const float left = std::clamp(middle - width / 2, 0.0F, place_.width - width);
            if (left < free) continue;
            addText("Label", labelOf(i), textStyle(Align::center, labelPoints_),
                    {left, room.top, left + width, room.bottom});
            free = left + width + gap / 2;
        }
    }

    void addBrokenLabels(std::size_t points, const Room& room) {
        const float width = slot_ - gap;
        for (std::size_t i = 0; i < points; ++i) {
            const float left = room.left + slot_ * static_cast<float>(i) + gap / 2;
            float top = room.top;
            for (const std::string& line : labelLines(labelOf(i), width)) {
                addText("Label", line, textStyle(Align::center, labelPoints_),
                        {left, top, left + width, top + lineHeight()});
                top += lineHeight();
            }
        }
    }

    std::vector<std::string> labelLines(const std::string& label, float width) {
        TextStyle style = textStyle(Align::center, labelPoints_);
        style.wrap = true;
        std::vector<std::uint32_t> starts;
        place_.measure.breakLines(label, style, width, starts);
        if (starts.size() < 2) return {label};
        std::vector<std::string> lines;
        for (std::size_t i = 0; i < std::min(starts.size(), mostLabelLines); ++i) {
            const std::size_t end = i + 1 < starts.size() ? starts[i + 1] : label.size();
            lines.push_back(label.substr(starts[i], end - starts[i]));
            while (lines.back().ends_with(' ')) lines.back().pop_back();
        }
        if (starts.size() > mostLabelLines) lines.back() += ellipsis;
        return lines;
    }

    void addPie(const Room& room) {
        if (chart_.series.empty() || room.isEmpty()) return;
        const auto& points = chart_.series.front().points;
        double total = 0;
        for (const auto& point : points) total += std::max(valueOf(point), 0.0);
        if (total <= 0) return;
        const float radius = std::min(room.width(), room.height()) / 2;
        const Spot middle{room.left + room.width() / 2, room.top + radius};
        double angle = 0;
        for (std::size_t i = 0; i < points.size(); ++i) {
            const double share = std::max(valueOf(points[i]), 0.0) / total;
            if (share > 0) addSlice(sliceColor(chart_, i), middle, radius, angle, share);
            angle += share * 360;
        }
        angle = 0;
        for (std::size_t i = 0; i < points.size(); ++i) {
            const double share = std::max(valueOf(points[i]), 0.0) / total;
            if (share > 0 && share < 1) addRule("Edge", white, middle, onCircle(middle, radius, angle), 2 * lineWidth);
            if (share >= leastTold) addShare(share, inkOn(sliceColor(chart_, i)), middle, radius, angle + share * 180);
            angle += share * 360;
        }
    }

    struct Spot {
        float x = 0, y = 0;
    };

    // Degrees clockwise from the top.
    static Spot onCircle(Spot middle, float radius, double degrees) {
        const double turn = degrees * std::numbers::pi / 180;
        return {middle.x + radius * static_cast<float>(std::sin(turn)),
                middle.y - radius * static_cast<float>(std::cos(turn))};
    }

    void addSlice(Color color, Spot middle, float radius, double start, double share) {
        PlacedControl& slice = add("Slice", ControlKind::sector,
                                   {middle.x - radius, middle.y - radius, middle.x + radius, middle.y + radius});
        slice.fill = color;
        slice.startAngle = static_cast<float>(start);
        slice.sweep = static_cast<float>(share * 360);
    }

    void addShare(double share, Color ink, Spot middle, float radius, double angle) {
        const Spot at = onCircle(middle, radius * 0.72F, angle);
        TextStyle style = textStyle(Align::center);
        style.color = ink;
        const float half = radius / 4, high = lineHeight() / 2;
        addText("Share", place_.locale.percent(share, 0), style, {at.x - half, at.y - high, at.x + half, at.y + high});
    }

    PlacedControl& add(const char* name, ControlKind kind, const Room& box) {
        PlacedControl& control = controls_.emplace_back();
        control.info = place_.names.control({name, kind});
        control.left = box.left;
        control.top = box.top;
        control.width = box.width();
        control.height = box.height();
        return control;
    }

    void addGround(const char* name, Color color, const Room& box) {
        PlacedControl& ground = add(name, ControlKind::shape, box);
        ground.lineWidth = 0;
        ground.fill = color;
    }

    void addText(const char* name, std::string_view text, const TextStyle& style, const Room& box) {
        PlacedControl& control = add(name, ControlKind::field, box);
        control.style = place_.names.style(style);
        control.text = place_.arena.text(text);
    }

    void addRule(const char* name, Color color, Spot from, Spot to, float width = lineWidth) {
        TextStyle style;
        style.color = color;
        PlacedControl& rule = add(name, ControlKind::line, {from.x, from.y, to.x, to.y});
        rule.style = place_.names.style(style);
        rule.lineWidth = width;
    }

    std::span<const PlacedSection> section() {
        SectionInfo info;
        info.name = "Chart";
        PlacedSection placed;
        placed.info = place_.names.section(info);
        placed.width = place_.width;
        placed.height = place_.height;
        placed.controls = place_.arena.keep(controls_);
        return place_.arena.keep(std::vector<PlacedSection>{placed});
    }

    static constexpr std::size_t mostValues = 12, mostLabelLines = 3;
    static constexpr float barShare = 0.7F, widestBar = 900, leastWords = 600, plotShare = 0.92F;
    static constexpr double leastTold = 0.04;

    const ChartData& chart_;
    const ChartPlace& place_;
    std::vector<PlacedControl> controls_;
    float slot_ = 0;  // the width that a point has
    float labelPoints_ = textPoints;
};

}  // namespace

std::span<const PlacedSection> layOutChart(const ChartData& chart, const ChartPlace& place) {
    return ChartLayout(chart, place).run();
}

Color seriesColor(const ChartData& chart, std::size_t series) {
    const auto known = series < chart.series.size() ? chart.series[series].color : std::nullopt;
    return known.value_or(chartColor(series));
}

Color sliceColor(const ChartData& chart, std::size_t point) {
    const bool has = !chart.series.empty() && point < chart.series.front().points.size();
    const auto known = has ? chart.series.front().points[point].color : std::nullopt;
    return known.value_or(chartColor(point));
}

}  // namespace quillo
