#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "framework/engine/design_reader.h"
#include "framework/values/errors.h"

namespace quillo {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

std::string contents(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// All places of a document, from the whole inwards.
std::vector<Json::json_pointer> placesOf(const Json& document) {
    std::vector<Json::json_pointer> places{Json::json_pointer()};
    for (std::size_t at = 0; at < places.size(); ++at) {
        const Json::json_pointer place = places[at];
        const Json& node = document.at(place);
        if (node.is_object())
            for (const auto& [key, value] : node.items()) places.push_back(place / key);
        if (node.is_array())
            for (std::size_t i = 0; i < node.size(); ++i) places.push_back(place / i);
    }
    return places;
}

// Empty when the design is taken or refused as it should be: by a failure that names the design.
std::string complaint(const std::string& text, const std::string& styles) {
    try {
        readDesign("Sample", text, styles);
    } catch (const InputError& refusal) {
        return std::string(refusal.what()).starts_with("Design ") ? "" : refusal.what();
    } catch (const std::exception& other) {
        return other.what();
    }
    return "";
}

TEST(DesignDamage, WhateverStandsInAWrongPlaceIsRefusedByTheReaderItself) {
    const fs::path designs = fs::path(QUILLO_SOURCE) / "designs";
    const std::string styles = contents(designs / "styles.json");
    const Json design = Json::parse(contents(designs / "dsrOpenOrders.json"));
    const Json house = Json::parse(styles);
    ASSERT_EQ(complaint(design.dump(), styles), "");
    for (const Json& wrong : {Json(5), Json(-1e300), Json("x"), Json(nullptr), Json(true), Json::array({7}),
                              Json::object({{"name", 7}}), Json::object({{"", Json::array()}})}) {
        for (const auto& place : placesOf(design)) {
            Json damaged = design;
            damaged[place] = wrong;
            EXPECT_EQ(complaint(damaged.dump(), styles), "") << place.to_string() << ": " << wrong.dump();
        }
        for (const auto& place : placesOf(house)) {
            Json damaged = house;
            damaged[place] = wrong;
            EXPECT_EQ(complaint(design.dump(), damaged.dump()), "") << place.to_string() << ": " << wrong.dump();
        }
    }
}

}  // namespace
}  // namespace quillo
