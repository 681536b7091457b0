#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <set>

#include "framework/engine/design_reader.h"
#include "output/json/json_sink.h"
#include "tests/output/page_builder.h"

namespace quillo {
namespace {

std::string pageOf(const std::string& path) {
    std::ifstream file(std::string(QUILLO_SOURCE) + "/" + path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// What stands between a heading of a page and the next one.
std::string chapter(const std::string& page, const std::string& heading) {
    const auto from = page.find("\n## " + heading + "\n");
    if (from == std::string::npos) return {};
    return page.substr(from, page.find("\n## ", from + 1) - from);
}

// Whether the first column of one of the chapter's tables names the word.
bool hasRow(const std::string& chapter, const std::string& word) {
    std::istringstream lines(chapter);
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with("| `") && line.substr(0, line.find('|', 1)).find("`" + word + "`") != std::string::npos)
            return true;
    return false;
}

TEST(Docs, TellEachKeyKindAndStyleOfADesign) {
    const std::string page = pageOf("docs/designs.md");
    const auto headingOf = [](std::string_view object) {
        return (object == "design" || object == "page" ? "The " : "A ") + std::string(object);
    };
    ASSERT_FALSE(designKeys().empty());
    for (const DesignKeys& known : designKeys())
        for (const std::string_view key : known.keys)
            EXPECT_TRUE(hasRow(chapter(page, headingOf(known.object)), std::string(key)))
                << "docs/designs.md, " << known.object << ": " << key;
    for (int kind = 0; kind <= static_cast<int>(ControlKind::chart); ++kind) {
        const std::string name(nameOf(static_cast<ControlKind>(kind)));
        EXPECT_TRUE(hasRow(chapter(page, "A control"), name)) << "docs/designs.md: " << name;
    }
    const auto styles = nlohmann::json::parse(pageOf("designs/styles.json"));
    for (const auto& [name, style] : styles.items())
        EXPECT_TRUE(hasRow(chapter(page, "A style"), name)) << "docs/designs.md: style " << name;
}

TEST(Docs, TellWhatEachFormatPrints) {
    std::istringstream lines(chapter(pageOf("docs/designs.md"), "Formats"));
    const LocaleFormat locale;
    std::size_t rows = 0;
    for (std::string line; std::getline(lines, line);) {
        if (!line.ends_with("` |")) continue;
        std::vector<std::string> cells;
        for (std::size_t at = 2; at < line.size();) {
            const auto end = line.find(" | ", at);
            std::string cell = line.substr(at, std::min(end, line.size() - 2) - at);
            std::erase(cell, '`');
            cells.push_back(cell);
            at = end == std::string::npos ? line.size() : end + 3;
        }
        ASSERT_EQ(cells.size(), 3U) << line;
        const NumberFormat format = NumberFormat::compile(cells[0] == "none" ? "" : cells[0]);
        std::string positive, negative;
        format.append(positive, Variant(Money::fromRaw(12345000)).view(), locale);
        format.append(negative, Variant(Money::fromRaw(-12345000)).view(), locale);
        EXPECT_EQ(positive, cells[1]) << line;
        EXPECT_EQ(negative, cells[2]) << line;
        ++rows;
    }
    EXPECT_GT(rows, 3U);
}

void collectKeys(const nlohmann::json& node, std::set<std::string>& keys) {
    if (node.is_object())
        for (const auto& [key, value] : node.items()) keys.insert(key);
    if (!node.is_structured()) return;
    for (const auto& inner : node) collectKeys(inner, keys);
}

TEST(Docs, TellEachKeyOfTheJsonPages) {
    std::stringstream written;
    JsonSink sink(std::make_unique<OutputStream>(written), "dsrSample", "Sample", "Sample", {});
    test::PageBuilder builder, inner;
    const ChartData chart{"Ageing", {{"Due", {{"30", 12.5}}}}};
    inner.section(100).text("within");
    const std::vector<PlacedSection> sections = inner.page().sections;
    builder.section(240).text("text").link = "INV|1";
    builder.control(ControlKind::shape, "shpGround", 0, 200).fill = Color{};
    builder.control(ControlKind::chart, "chtAge", 0, 200).chart = &chart;
    builder.control(ControlKind::subReport, "subInfo", 0, 200).sections = sections;
    sink.page(builder.page());
    sink.finish();
    std::set<std::string> keys;
    collectKeys(nlohmann::json::parse(written.str()), keys);
    ASSERT_TRUE(keys.contains("points")) << written.str();
    const std::string page = pageOf("docs/json-pages.md");
    for (const std::string& key : keys)
        EXPECT_NE(page.find("`" + key + "`"), std::string::npos) << "docs/json-pages.md: " << key;
}

}  // namespace
}  // namespace quillo
