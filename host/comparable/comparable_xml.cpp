#include <cstring>
#include <filesystem>
#include <pugixml.hpp>
#include <sstream>

#include "framework/values/errors.h"
#include "host/comparable/comparable_tables.h"

namespace quillo {
namespace {

// An attribute for each text that stands beside the tables.
struct Fact {
    const char* name;
    std::string ComparableTables::*text;
};
constexpr Fact facts[] = {{"report", &ComparableTables::report},   {"title", &ComparableTables::title},
                          {"company", &ComparableTables::company}, {"period", &ComparableTables::period},
                          {"locale", &ComparableTables::locale},   {"currency", &ComparableTables::currency}};

// The mark that every element carries: a tool that thins out its tables may take it away.
constexpr const char* mode = "PurgeIncl";

pugi::xml_node append(pugi::xml_node& parent, const char* name) {
    pugi::xml_node node = parent.append_child(name);
    node.append_attribute("mode") = mode;
    return node;
}

void write(pugi::xml_node parent, const ComparableRow& row) {
    pugi::xml_node node = append(parent, "row");
    node.append_attribute("title") = row.title.c_str();
    node.append_attribute("value") = row.value.c_str();
    for (const ComparableCell& cell : row.cells) {
        pugi::xml_node entry = append(node, "cell");
        entry.append_attribute("name") = cell.name.c_str();
        entry.append_attribute("value") = cell.value.c_str();
    }
}

std::string text(const pugi::xml_node& node, const char* attribute) {
    return node.attribute(attribute).value();
}

ComparableRow readRow(const pugi::xml_node& node) {
    ComparableRow row{text(node, "title"), text(node, "value")};
    for (const pugi::xml_node& cell : node.children("cell"))
        row.cells.push_back({text(cell, "name"), text(cell, "value")});
    return row;
}

}  // namespace

std::string comparableXml(const ComparableTables& tables) {
    pugi::xml_document document;
    pugi::xml_node root = document.append_child("comparable");
    for (const Fact& fact : facts) root.append_attribute(fact.name) = (tables.*fact.text).c_str();
    for (const ComparableTable& table : tables.tables) {
        pugi::xml_node node = append(root, "table");
        node.append_attribute("title") = table.title.c_str();
        for (const ComparableRow& row : table.rows) write(node, row);
    }
    std::ostringstream out;
    document.save(out, "  ", pugi::format_default, pugi::encoding_utf8);
    return out.str();
}

ComparableTables readComparable(const std::string& path) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored)) throw InputError(path + ": there is no such file");
    pugi::xml_document document;
    const pugi::xml_parse_result result = document.load_file(path.c_str());
    if (!result) throw InputError(path + ": " + result.description());
    const pugi::xml_node root = document.document_element();
    if (std::strcmp(root.name(), "comparable") != 0) throw InputError(path + ": it holds no comparable tables");
    ComparableTables tables;
    for (const Fact& fact : facts) tables.*fact.text = text(root, fact.name);
    for (const pugi::xml_node& node : root.children("table")) {
        ComparableTable& table = tables.tables.emplace_back();
        table.title = text(node, "title");
        for (const pugi::xml_node& row : node.children("row")) table.rows.push_back(readRow(row));
    }
    return tables;
}

}  // namespace quillo
