#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "framework/engine/controls.h"

namespace quillo {

struct Design {
    PageSetup setup;
    std::vector<std::unique_ptr<Section>> sections;
};

// The keys that one kind of a design's objects may hold: the "design" itself, its "page", a "style", "section",
// "control".
struct DesignKeys {
    std::string_view object;
    std::span<const std::string_view> keys;
};
// All that readDesign knows.
std::span<const DesignKeys> designKeys();

// Reads a design from its JSON text; measures are twips. styles is the house's own style sheet, which every
// design builds upon. Throws InputError with the design's name and the place of the damage: bad JSON,
// an unknown key, kind or style, a name that stands twice, a group without its counterpart, a sum in a
// section that prints before its rows.
Design readDesign(const std::string& name, std::string_view text, std::string_view styles);

}  // namespace quillo
