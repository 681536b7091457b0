#pragma once

#include "output/canvas.h"
#include "output/text_layout.h"

namespace quillo {

// Draws a chart into the box: its title, then upright bars, the series of a point side by side, with
// the points' labels below and the series' names at the top right when there are several. Bars of
// negative values hang from the zero line.
void paintChart(const ChartData& chart, const Box& box, TextLayout& layout, Canvas& canvas);

}  // namespace quillo
