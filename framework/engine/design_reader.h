#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "framework/engine/controls.h"

namespace quillo {

struct Design {
    PageSetup setup;
    std::vector<std::unique_ptr<Section>> sections;
};

// Reads a design from its JSON text; measures are twips. styles is the house's own style sheet, which every
// design builds upon. Throws InputError with the design's name and the place of the damage: bad JSON,
// an unknown key, kind or style, a name that stands twice, a group without its counterpart, a sum in a
// section that prints before its rows.
Design readDesign(const std::string& name, std::string_view text, std::string_view styles);

}  // namespace quillo
