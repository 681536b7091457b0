#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Where a drill tag leads: to a report that lists what a figure is made of, or to records of the company.
namespace quillo {

// A report to run, by the factory's name, and what its properties take.
struct ReportTarget {
    std::string member;
    std::vector<std::pair<std::string, std::string>> properties{};
    bool foreign = false;      // in the documents' own currency
    std::string from{}, to{};  // ISO dates; empty: as the user asks
};

// Records of one kind ("INV", "CUS"), by their keys.
struct RecordTarget {
    std::string kind;
    std::vector<int> keys{};
};

struct DrillTarget {
    ReportTarget report{};  // the member is empty where the tag leads to records
    RecordTarget records{};
    bool leadsToReport() const { return !report.member.empty(); }
};

// Whose key a tag of the day end carries.
enum class TillKey { user, register_ };
using TillKeyOf = std::function<TillKey(std::string_view key)>;

// Reads a tag: a kind word, "|" and a key; a bare key is a customer's, one with two days an item's consumption, bare
// words are a salesperson's. till tells whose a key of the day end is. Throws InputError for a tag of no known kind,
// one without a key, and one that leads out of the company (a web page, mail).
DrillTarget readDrillTag(std::string_view tag, const TillKeyOf& till);

}  // namespace quillo
