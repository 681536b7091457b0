#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "framework/engine/chart_axis.h"
#include "framework/engine/chart_layout.h"
#include "framework/engine/chart_palette.h"
#include "tests/support/fake_host.h"

namespace quillo::test {
namespace {

using std::string;
using std::vector;

// A letter is 100 twips wide at the size of a chart's texts.
class LetterMeasure final : public TextMeasure {
public:
    float lineHeight(const TextStyle&) override { return 200; }
    float width(std::string_view text, const TextStyle& style) override {
        return letter(style) * static_cast<float>(text.size());
    }
    void breakLines(std::string_view text, const TextStyle& style, float width,
                    vector<std::uint32_t>& starts) override {
        const auto letters = std::max<std::size_t>(1, static_cast<std::size_t>(width / letter(style)));
        for (std::size_t at = 0; at < text.size(); at += letters) starts.push_back(static_cast<std::uint32_t>(at));
    }

private:
    static float letter(const TextStyle& style) { return style.size * 100 / 7.5F; }
};

// A chart laid out in a box, its items by name.
class Charted {
public:
    explicit Charted(const ChartData& chart, float width = 9000, float height = 4000) : width_(width), height_(height) {
        const ChartPlace place{names_, arena_, measure_, locale_, width, height};
        section_ = layOutChart(chart, place).front();
    }

    vector<PlacedControl> items(std::string_view name) const {
        vector<PlacedControl> found;
        for (const PlacedControl& control : section_.controls)
            if (control.info->name == name) found.push_back(control);
        return found;
    }
    vector<string> texts(std::string_view name) const {
        vector<string> found;
        for (const PlacedControl& control : items(name)) found.emplace_back(control.text);
        return found;
    }
    // Nothing leaves the box, and no text lies over another one of its kind.
    void expectOrder() {
        constexpr float least = -1;
        for (const PlacedControl& control : section_.controls) {
            EXPECT_GE(std::min(control.left, control.left + control.width), least) << control.info->name;
            EXPECT_LE(control.left + control.width, width_ + 1) << control.info->name << ' ' << control.text;
            EXPECT_GE(std::min(control.top, control.top + control.height), least) << control.info->name;
            EXPECT_LE(control.top + control.height, height_ + 1) << control.info->name << ' ' << control.text;
        }
        for (const char* name : {"Tick", "Label", "Value", "Name"}) {
            const auto texts = items(name);
            for (std::size_t i = 0; i < texts.size(); ++i)
                for (std::size_t k = i + 1; k < texts.size(); ++k)
                    EXPECT_FALSE(overlap(texts[i], texts[k])) << texts[i].text << " over " << texts[k].text;
        }
    }

private:
    static bool overlap(const PlacedControl& a, const PlacedControl& b) {
        constexpr float touch = 1;
        return a.left + a.width > b.left + touch && b.left + b.width > a.left + touch &&
               a.top + a.height > b.top + touch && b.top + b.height > a.top + touch;
    }

    RunNames names_;
    Arena arena_;
    LetterMeasure measure_;
    LocaleFormat locale_;
    float width_, height_;
    PlacedSection section_;
};

ChartData bars(vector<vector<double>> series, const string& label = "P") {
    ChartData chart{"Sales", {}};
    for (const auto& values : series) {
        ChartData::Series one{"S" + std::to_string(chart.series.size()), {}};
        for (const double value : values) one.points.push_back({label + std::to_string(one.points.size() + 1), value});
        chart.series.push_back(one);
    }
    return chart;
}

TEST(Chart, TicksAreRoundNumbersAroundAllValues) {
    struct Case {
        double low, high;
        int most;
        double first, last, step;
        int decimals;
    };
    for (const Case& c : vector<Case>{{0, 97, 5, 0, 100, 20, 0},
                                      {-30, 97, 5, -50, 100, 50, 0},
                                      {12, 12, 5, 0, 15, 5, 0},
                                      {-0.7, -0.1, 4, -0.8, 0, 0.2, 1},
                                      {0, 0.031, 5, 0, 0.04, 0.01, 2},
                                      {0, 1234567, 6, 0, 1500000, 500000, 0},
                                      {-1, 1e9, 6, -2e8, 1e9, 2e8, 0},
                                      {0, 0, 5, 0, 1, 1, 0},
                                      {-1e15, 1e15, 1, -2e15, 2e15, 2e15, 0}}) {
        const ChartAxis axis = chartAxis(c.low, c.high, c.most);
        EXPECT_NEAR(axis.low, c.first, c.step * 1e-6) << c.low << " to " << c.high;
        EXPECT_NEAR(axis.high, c.last, c.step * 1e-6) << c.low << " to " << c.high;
        EXPECT_NEAR(axis.step, c.step, c.step * 1e-6) << c.low << " to " << c.high;
        EXPECT_EQ(axis.decimals(), c.decimals) << c.low << " to " << c.high;
        bool hasZero = false;
        for (int i = 0; i < axis.ticks(); ++i) hasZero = hasZero || axis.tick(i) == 0;
        EXPECT_TRUE(hasZero) << c.low << " to " << c.high;
    }
}

TEST(Chart, BarsStandOnZeroAsHighAsTheirValues) {
    const Charted chart(bars({{10, 40, 0}, {-20, 5, std::numeric_limits<double>::quiet_NaN()}}));
    EXPECT_EQ(chart.texts("Title"), (vector<string>{"Sales"}));
    EXPECT_EQ(chart.texts("Label"), (vector<string>{"P1", "P2", "P3"}));
    const auto found = chart.items("Bar");
    ASSERT_EQ(found.size(), 4U) << "what is 0 has no bar";
    const PlacedControl &ten = found[0], &minus = found[1], &forty = found[2], &five = found[3];
    const float zero = ten.top + ten.height;
    EXPECT_FLOAT_EQ(minus.top, zero) << "a negative value hangs";
    EXPECT_NEAR(forty.top + forty.height, zero, 1);
    EXPECT_NEAR(forty.height, 4 * ten.height, 1);
    EXPECT_NEAR(minus.height, 2 * ten.height, 1);
    EXPECT_NEAR(minus.left, ten.left + ten.width, 1) << "side by side";
    EXPECT_EQ(ten.fill, chartPalette[0]);
    EXPECT_EQ(five.fill, chartPalette[1]);
    EXPECT_TRUE(chart.items("Value").empty()) << "two series would crowd them";
    // Ticks stand where their values are.
    const auto ticks = chart.items("Tick");
    const auto middle = [](const PlacedControl& tick) { return tick.top + tick.height / 2; };
    for (const PlacedControl& tick : ticks) {
        if (tick.text == "0") {
            EXPECT_NEAR(middle(tick), zero, 1);
        } else if (tick.text == "40") {
            EXPECT_NEAR(middle(tick), forty.top, 1);
        }
    }
    EXPECT_EQ(chart.texts("Tick").front(), "-20");
}

TEST(Chart, TextsNeverLieOverOneAnother) {
    const string name = "Jean-Francois Desrosiers-Tremblay and Company of the North ";
    for (const int points : {1, 4, 12, 13, 24, 60}) {
        for (const char* label : {"P", "1234567890", name.c_str()}) {
            vector<double> up, down;
            for (int i = 0; i < points; ++i) up.push_back(i * 1234567.5), down.push_back(i - points / 2.0);
            for (const auto& values : vector<vector<vector<double>>>{{up}, {down}, {up, down}}) {
                ChartData chart = bars(values, label);
                chart.legend = true;
                for (const float width : {10800.0F, 4000.0F}) Charted(chart, width).expectOrder();
            }
        }
    }
    for (const auto& values : {vector<double>{}, vector<double>{0, 0}, vector<double>{-3, -5}})
        Charted(bars({values})).expectOrder();
    Charted(bars({{1, 2, 3}}), 9000, 300).expectOrder();
}

TEST(Chart, LongNamesAreBrokenIntoLinesAndCut) {
    const auto lines = Charted(bars({{1, 2, 3, 4, 5, 6}}, "one two three four five six seven eight ")).texts("Label");
    ASSERT_EQ(lines.size(), 18U) << "three lines each";
    EXPECT_TRUE(lines[0].starts_with("one two")) << lines[0];
    EXPECT_TRUE(lines[2].ends_with("…")) << lines[2];
}

TEST(Chart, AWordThatIsALittleTooLongIsSetSmallerAndNotBroken) {
    const ChartData chart = bars({vector<double>(12, 1)}, "Septemb");  // 9 letters at most, 8 have room
    const Charted narrow(chart, 11500), wide(chart, 13500);
    const auto labels = narrow.items("Label");
    ASSERT_EQ(labels.size(), 12U);
    EXPECT_EQ(labels[11].text, "Septemb12");
    EXPECT_LT(labels[0].style->size, 7.5F);
    EXPECT_EQ(labels[0].style->size, labels[11].style->size) << "all alike";
    EXPECT_EQ(wide.items("Label")[0].style->size, 7.5F) << "as large as there is room for";
}

TEST(Chart, APieSharesTheCircle) {
    ChartData chart{"1 - 30", {{"", {{"Ash", 50}, {"Birch", 30}, {"Cedar", -10}, {"Dogwood", 18}, {"Elm", 2}}}}};
    chart.kind = ChartKind::pie;
    chart.legend = true;
    chart.series[0].points[1].color = Color{1, 2, 3};
    Charted pie(chart);
    pie.expectOrder();
    const auto slices = pie.items("Slice");
    ASSERT_EQ(slices.size(), 4U) << "what is not above 0 has no slice";
    const float sweeps[] = {180, 108, 64.8F, 7.2F};
    float angle = 0;
    for (std::size_t i = 0; i < slices.size(); ++i) {
        EXPECT_NEAR(slices[i].startAngle, angle, 0.01);
        EXPECT_NEAR(slices[i].sweep, sweeps[i], 0.01);
        EXPECT_FLOAT_EQ(slices[i].width, slices[i].height) << "a circle";
        angle += sweeps[i];
    }
    EXPECT_EQ(slices[1].fill, (Color{1, 2, 3}));
    EXPECT_EQ(slices[2].fill, chartPalette[3]) << "a slice keeps its colour when one before it is left out";
    EXPECT_EQ(pie.texts("Share"), (vector<string>{"50%", "30%", "18%"})) << "a thin slice has no room";
    EXPECT_EQ(pie.texts("Name"), (vector<string>{"Ash", "Birch", "Cedar", "Dogwood", "Elm"}));
    for (const auto& share : pie.items("Share")) EXPECT_GE(share.left, slices[0].left);
}

// By luminance, and without red against green, which one man in twelve cannot tell apart.
TEST(Chart, NeighboursInThePaletteDifferInGreyAndToColourBlindReaders) {
    const auto grey = [](Color c) { return 0.299 * c.red + 0.587 * c.green + 0.114 * c.blue; };
    const auto yellowOrBlue = [](Color c) { return (c.red + c.green) / 2.0 - c.blue; };
    for (std::size_t i = 0; i < chartPalette.size(); ++i) {
        const Color one = chartPalette[i], next = chartColor(i + 1);
        const double difference = std::hypot(grey(one) - grey(next), (yellowOrBlue(one) - yellowOrBlue(next)) / 2);
        EXPECT_GT(std::fabs(grey(one) - grey(next)), 25) << i;
        EXPECT_GT(difference, 60) << i;
        for (std::size_t k = i + 1; k < chartPalette.size(); ++k) EXPECT_NE(one, chartPalette[k]);
    }
}

}  // namespace
}  // namespace quillo::test
