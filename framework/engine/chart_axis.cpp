#include "framework/engine/chart_axis.h"

#include <algorithm>
#include <cmath>

namespace quillo {
namespace {

// The least round number that is not below.
double roundStep(double least) {
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= least * (1 - 1e-9)) return factor * power;
    return 10 * power;
}

}  // namespace

int ChartAxis::ticks() const {
    return static_cast<int>(std::lround((high - low) / step)) + 1;
}

double ChartAxis::tick(int index) const {
    return std::round(low / step + index) * step;
}

int ChartAxis::decimals() const {
    return step >= 1 ? 0 : static_cast<int>(std::ceil(-std::log10(step) - 1e-9));
}

ChartAxis chartAxis(double lowest, double highest, int most) {
    lowest = std::min(lowest, 0.0);
    highest = std::max(highest, 0.0);
    if (highest == lowest) return {};
    ChartAxis axis;
    axis.step = roundStep((highest - lowest) / std::max(most, 1));
    // Both ends take a whole step, so that a side of few values may want a step more than there is room for.
    for (;;) {
        axis.low = std::floor(lowest / axis.step + 1e-9) * axis.step;
        axis.high = std::ceil(highest / axis.step - 1e-9) * axis.step;
        if (axis.ticks() <= std::max(most, 2) + 1) return axis;
        axis.step = roundStep(axis.step * 1.5);
    }
}

}  // namespace quillo
