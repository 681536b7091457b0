#pragma once

#include <array>
#include <cstddef>

#include "framework/engine/page.h"

namespace quillo {

// The colours of charts. Dark and light take turns, so that neighbours differ in grey print too; no two neighbours are
// told apart by red against green alone, so that colour-blind readers see them. The last is for what is left over.
inline constexpr std::array<Color, 11> chartPalette = {{{0, 82, 147},
                                                        {230, 159, 0},
                                                        {0, 110, 84},
                                                        {125, 200, 240},
                                                        {190, 75, 0},
                                                        {240, 228, 66},
                                                        {110, 50, 110},
                                                        {225, 160, 195},
                                                        {80, 80, 80},
                                                        {150, 220, 130},
                                                        {115, 115, 115}}};

constexpr Color chartColor(std::size_t index) {
    return chartPalette[index % chartPalette.size()];
}

}  // namespace quillo
