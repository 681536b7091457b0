#include "host/check/company_check.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <map>
#include <set>

#include "host/company/catalogue.h"
#include "host/database/company_schema.h"

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

// SQL: whether a column holds what its type does not allow, and SQLite would take for 0 or for another day. Empty for a
// type that allows everything.
std::string unfit(const std::string& column, std::string_view declared) {
    const std::string type = lower(declared.substr(0, declared.find(' ')));
    if (type == "date")
        return column + " IS NOT NULL AND (TYPEOF(" + column + ") <> 'text' OR " + column + " IS NOT DATE(" + column +
               ", '+0 days') OR " + column + " < '0100')";
    if (type == "text" || type == "time") return "TYPEOF(" + column + ") = 'blob'";
    const bool number = type == "money" || type == "real" || type == "boolean" || type == "int" || type == "integer";
    return number ? "TYPEOF(" + column + ") IN ('text', 'blob') OR ABS(" + column + ") > 9.2e18" : "";
}

std::string kindOf(std::string_view declared) {
    const std::string type = lower(declared.substr(0, declared.find(' ')));
    if (type == "money") return "an amount";
    if (type == "date") return "a date";
    return type == "text" || type == "time" ? "a text" : "a number";
}

// One pass over the table, whatever the number of its columns.
void checkValues(const sqlite::Database& database, const std::string& table, const Catalogue& model,
                 std::vector<std::string>& lacks) {
    const std::string& key = model.columns(table).front();
    std::vector<std::string> columns;
    std::string sums;
    for (const std::string& column : model.columns(table)) {
        const std::string test = unfit(column, model.type(table, column));
        if (test.empty()) continue;
        columns.push_back(column);
        sums += (sums.empty() ? "" : ", ") + ("COUNT(CASE WHEN " + test + " THEN 1 END), MIN(CASE WHEN " + test +
                                              " THEN COALESCE(" + key + ", '') END)");
    }
    if (columns.empty()) return;
    sqlite::Statement counts(database, "SELECT " + sums + " FROM " + table);
    counts.step();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int at = static_cast<int>(2 * i);
        if (counts.integer(at) == 0) continue;
        lacks.push_back("column " + table + "." + columns[i] + ": " + std::to_string(counts.integer(at)) +
                        (counts.integer(at) == 1 ? " value is not " : " values are not ") +
                        kindOf(model.type(table, columns[i])) + "; the first at " + key + " " +
                        std::string(counts.text(at + 1)));
    }
}

// What SQLite found, in words for somebody who has to do something about it.
std::string damageInWords(const std::string& found) {
    const auto has = [&](std::string_view part) { return found.find(part) != std::string::npos; };
    if (has("missing from index") || has("wrong # of entries in index") || has("non-unique entry in index"))
        return "an index does not agree with its table, and reports may miss rows; REINDEX builds it anew (" + found +
               ")";
    if (has("CHECK constraint failed in") || has("NULL value in"))
        return "a table holds a value that its columns refuse (" + found + ")";
    const auto end = std::min(found.find('\n'), found.size());
    return "the file is damaged, and what it still shows may be wrong; take a copy from before (" +
           found.substr(0, end) + ")";
}

std::vector<std::string> damagesOf(const sqlite::Database& database) {
    std::vector<std::string> damages;
    sqlite::Statement findings(database, "PRAGMA integrity_check(20)");
    while (findings.step()) {
        if (findings.text(0) == "ok") continue;
        std::string words = damageInWords(std::string(findings.text(0)));
        if (words.starts_with("the file is damaged")) return {std::move(words)};
        damages.push_back(std::move(words));
    }
    return damages;
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
    if (!lacks.empty()) return lacks;
    checkTexts(database, lacks);
    const Catalogue shape(model);
    for (const auto& [name, relation] : shapeOf(model))
        if (relation.kind == "table") checkValues(database, relation.name, shape, lacks);
    return lacks;
}

}  // namespace

std::vector<std::string> checkCompany(const sqlite::Database& database) {
    try {
        auto lacks = damagesOf(database);
        const bool unreadable = lacks.size() == 1 && lacks.front().starts_with("the file is damaged");
        if (!unreadable) std::ranges::move(compare(database), std::back_inserter(lacks));
        return lacks;
    } catch (const sqlite::Error& error) {
        const int code = error.code & 0xFF;
        if (code != SQLITE_CORRUPT && code != SQLITE_NOTADB && code != SQLITE_ERROR) throw;
        const std::string what = code == SQLITE_CORRUPT  ? "what stands in it does not fit together"
                                 : code == SQLITE_NOTADB ? "it is not a database"
                                                         : error.what();
        return {"the file is damaged, or no company: " + what};
    }
}

}  // namespace quillo
