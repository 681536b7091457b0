#pragma once

#include <span>

#include "framework/engine/page.h"
#include "framework/engine/text_measure.h"
#include "framework/values/locale_format.h"

namespace quillo {

// Where a chart is laid out.
struct ChartPlace {
    RunNames& names;
    Arena& arena;
    TextMeasure& measure;
    const LocaleFormat& locale;
    float width = 0, height = 0;  // twips
};

// Lays out a chart as the one section of a sub-report, of plain items: "Title", "Key" and "Name" of its legend; of bars
// "Grid", "Tick", "Bar", "Value" and "Label"; of a pie "Slice", "Edge" and "Share". Values that are no number count 0,
// a pie leaves out those that are not above 0. What the room has no place for is left out.
std::span<const PlacedSection> layOutChart(const ChartData& chart, const ChartPlace& place);

// The colour of a series of bars, of a slice: its own, else the palette's.
Color seriesColor(const ChartData& chart, std::size_t series);
Color sliceColor(const ChartData& chart, std::size_t point);

}  // namespace quillo
