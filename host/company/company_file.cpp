#include "host/company/company_file.h"

#include <charconv>
#include <filesystem>

#include "framework/values/errors.h"

namespace quillo {
namespace {

constexpr std::string_view hostTables[] = {"CompanyFact",   "Setting",      "Parameter",   "TextOverride",
                                           "Dictionary",    "AccountGroup", "CustomField", "CustomFieldValue",
                                           "WorldCurrency", "Cust",         "Addr"};

std::optional<std::string> firstText(sqlite::Statement& statement) {
    if (!statement.step() || statement.isNull(0)) return std::nullopt;
    return std::string(statement.text(0));
}

// Runs a step over a company file; its failures name the file.
template <class Step>
auto told(const std::string& path, Step step) {
    const auto refuse = [&](const std::string& what) { return InputError("The company file " + path + " " + what); };
    try {
        return step(refuse);
    } catch (const sqlite::Error& failure) {
        throw InputError(sqlite::inWords(failure, path));
    }
}

sqlite::Database openCompany(const std::string& path, const std::atomic<bool>* stop) {
    return told(path, [&](const auto& refuse) {
        std::error_code ignored;
        if (!std::filesystem::exists(path, ignored)) throw refuse("does not exist");
        if (!std::filesystem::is_regular_file(path, ignored)) throw refuse("is not a file");
        return sqlite::Database(path, sqlite::Open::readOnly, stop);
    });
}

// Looks into the file before reports may, because they cannot ask for its version.
Catalogue examined(const std::string& path, sqlite::Database& database) {
    return told(path, [&](const auto& refuse) {
        Catalogue catalogue(database);
        if (!catalogue.hasTable("CompanyFact")) throw refuse("is not a company: it has no table CompanyFact");
        const auto version = database.integer("PRAGMA user_version");
        if (version != companyVersion)
            throw refuse("is of version " + std::to_string(version) + "; this program reads version " +
                         std::to_string(companyVersion));
        for (const auto table : hostTables)
            if (!catalogue.hasTable(table)) throw refuse("lacks the table " + std::string(table));
        return catalogue;
    });
}

}  // namespace

CompanyFile::CompanyFile(const std::string& path, const std::atomic<bool>* stop)
    : CompanyFile(path, openCompany(path, stop)) {}

CompanyFile::CompanyFile(const std::string& path, sqlite::Database database)
    : path_(path),
      catalogue_(examined(path, database)),
      database_(std::make_unique<SqliteDatabase>(std::move(database), path)) {}

std::string CompanyFile::folder() const {
    const auto folder = std::filesystem::path(path_).parent_path();
    return folder.empty() ? "." : folder.string();
}

std::string CompanyFile::fact(std::string_view name, std::string_view fallback) const {
    sqlite::Statement statement(handle(), "SELECT Value FROM CompanyFact WHERE Name = ? COLLATE NOCASE");
    statement.bind(1, name);
    return firstText(statement).value_or(std::string(fallback));
}

int CompanyFile::integerFact(std::string_view name, int fallback) const {
    const std::string text = fact(name, "");
    if (text.empty()) return fallback;
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size())
        throw InputError("The company file " + path_ + " tells \"" + text + "\" as " + std::string(name) +
                         ", which is not a number");
    return value;
}

std::optional<std::string> CompanyFile::setting(int number) const {
    sqlite::Statement statement(handle(), "SELECT Value FROM Setting WHERE Number = ?");
    statement.bind(1, number);
    return firstText(statement);
}

std::optional<std::string> CompanyFile::parameter(std::string_view section, std::string_view name) const {
    sqlite::Statement statement(
        handle(),
        "SELECT Value FROM Parameter WHERE Name = ? COLLATE NOCASE AND (Section = ?2 COLLATE NOCASE OR ?2 = '') "
        "ORDER BY Section");
    statement.bind(1, name).bind(2, section);
    return firstText(statement);
}

std::vector<std::pair<int, std::string>> CompanyFile::textOverrides(std::string_view language) const {
    std::vector<std::pair<int, std::string>> texts;
    sqlite::Statement statement(
        handle(), "SELECT Id, Text FROM TextOverride WHERE Language = ? AND Text IS NOT NULL ORDER BY Id");
    statement.bind(1, language);
    while (statement.step()) {
        const int id = static_cast<int>(statement.integer(0));
        if (id <= 0) throw InputError("The company file " + path_ + " has a text of its own without a number");
        if (!texts.empty() && texts.back().first == id)
            throw InputError("The company file " + path_ + " words the text " + std::to_string(id) + " twice");
        texts.emplace_back(id, statement.text(1));
    }
    return texts;
}

}  // namespace quillo
