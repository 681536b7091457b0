#include "host/check/company_check.h"

#include "host/database/company_schema.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

namespace quillo {
namespace {

std::string lower(std::string_view name) {
    std::string text(name);
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

struct Relation {
    std::string kind, name;            // as written
    std::vector<std::string> columns;  // as written
    std::set<std::string> lowered;
};

using Shape = std::map<std::string, Relation>;  // by lowered name

Shape shapeOf(const sqlite::Database& database) {
    Shape shape;
    sqlite::Statement relations(
        database, "SELECT type, name FROM sqlite_master WHERE type IN ('table', 'view') AND name NOT LIKE 'sqlite%'");
    while (relations.step()) {
        Relation relation{std::string(relations.text(0)), std::string(relations.text(1)), {}, {}};
        sqlite::Statement columns(database, "SELECT name FROM pragma_table_info(?1)");
        columns.bind(1, relation.name);
        while (columns.step()) {
            relation.columns.emplace_back(columns.text(0));
            relation.lowered.insert(lower(columns.text(0)));
        }
        shape.emplace(lower(relation.name), std::move(relation));
    }
    return shape;
}

std::set<std::string> factsOf(const sqlite::Database& database) {
    std::set<std::string> facts;
    sqlite::Statement rows(database, "SELECT Name FROM CompanyFact");
    while (rows.step()) facts.emplace(rows.text(0));
    return facts;
}

std::int64_t versionOf(const sqlite::Database& database) {
    sqlite::Statement version(database, "PRAGMA user_version");
    return version.step() ? version.integer(0) : 0;
}

void compareRelations(const Shape& wanted, const Shape& found, std::vector<std::string>& lacks) {
    for (const auto& [name, relation] : wanted) {
        const auto match = found.find(name);
        if (match == found.end()) {
            lacks.push_back(relation.kind + " " + relation.name + " is missing");
            continue;
        }
        for (const auto& column : relation.columns)
            if (!match->second.lowered.contains(lower(column)))
                lacks.push_back("column " + relation.name + "." + column + " is missing");
    }
}

// Texts of the company's own that no number leads to, or two.
void checkTexts(const sqlite::Database& database, std::vector<std::string>& lacks) {
    sqlite::Statement rows(database,
                           "SELECT Id, Language, COUNT(*) FROM TextOverride WHERE Text IS NOT NULL "
                           "GROUP BY Language, Id HAVING COUNT(*) > 1 OR COALESCE(Id, 0) <= 0 ORDER BY Language, Id");
    while (rows.step()) {
        const std::string language(rows.text(1));
        lacks.push_back(rows.integer(0) <= 0 ? "TextOverride has a text in " + language + " without a number"
                                             : "TextOverride words the text " + std::string(rows.text(0)) + " in " +
                                                   language + " " + std::string(rows.text(2)) + " times");
    }
}

std::vector<std::string> compare(const sqlite::Database& database) {
    std::vector<std::string> lacks;
    sqlite::Database model(":memory:", sqlite::Open::create);
    model.execute(std::string(companySchema()));
    const Shape found = shapeOf(database);
    if (found.empty()) return {"the file is empty: it has no tables"};
    const std::int64_t version = versionOf(database);
    const std::int64_t wanted = versionOf(model);
    if (version != wanted)
        lacks.push_back("the company is of version " + std::to_string(version) + ", this program reads version " +
                        std::to_string(wanted));
    compareRelations(shapeOf(model), found, lacks);
    if (!found.contains("companyfact")) return lacks;
    const auto facts = factsOf(database);
    for (const auto& fact : factsOf(model))
        if (!facts.contains(fact)) lacks.push_back("the company's " + fact + " is missing from CompanyFact");
    if (lacks.empty()) checkTexts(database, lacks);
    return lacks;
}

}  // namespace

std::vector<std::string> checkCompany(const sqlite::Database& database) {
    try {
        sqlite::Statement sound(database, "PRAGMA quick_check(1)");
        if (sound.step() && sound.text(0) != "ok") return {"the file is damaged: " + std::string(sound.text(0))};
        return compare(database);
    } catch (const sqlite::Error& error) {
        if (error.isLock()) throw;
        return {std::string("the file is damaged or no company: ") + error.what()};
    }
}

}  // namespace quillo
