#pragma once

namespace quillo {

// A value axis whose ticks are round numbers: multiples of 1, 2 or 5 times a power of ten, from at or below the lowest
// value to at or above the highest. 0 is always on it.
struct ChartAxis {
    double low = 0, high = 1, step = 1;

    int ticks() const;             // how many there are, both ends among them
    double tick(int index) const;  // exactly 0 where it is 0
    int decimals() const;          // that a tick needs to be written
    double share(double value) const { return (value - low) / (high - low); }  // 0 at the low end, 1 at the high one
};

// most: how many steps there is room for, at least 1.
ChartAxis chartAxis(double lowest, double highest, int most);

}  // namespace quillo
