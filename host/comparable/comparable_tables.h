#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "framework/report_contract.h"

// What a report says beside its pages, so that two runs of it can be laid side by side: tables of rows, each with named
// cells. They are kept as an XML file.
namespace quillo {

struct ComparableCell {
    std::string name, value;  // the value as the report printed it
};

struct ComparableRow {
    std::string title, value;  // what kind of row, and the key of what it stands for; the key may be empty
    std::vector<ComparableCell> cells{};
};

struct ComparableTable {
    std::string title;
    std::vector<ComparableRow> rows{};
};

// The tables of one run.
struct ComparableTables {
    std::string report;  // its internal name
    std::string title;   // as its pages say
    std::string company;
    std::string period;            // the dates that it covers, in words; may be empty
    std::string locale, currency;  // in which its amounts are written: "fr_CA", "CAD"
    std::vector<ComparableTable> tables{};
};

// Collects what one run of a report writes. A table that the report opens again under the same title goes on, and so
// does a row of the same title and key.
class ComparableCollector final : public ComparableReportGen {
public:
    bool IsActive() const override { return true; }
    Element AddTable(std::string_view title, std::string_view mode) override;
    // Throws InputError for a handle that AddTable did not give.
    Element AddRow(Element table, std::string_view title, std::string_view value, std::string_view mode) override;
    // Throws InputError for a handle that AddRow did not give.
    void AddCell(Element row, std::string_view name, std::string_view value, std::string_view mode) override;
    void Close() override { closed_ = true; }

    // Whether the report said that it has told all.
    bool closed() const { return closed_; }
    const std::vector<ComparableTable>& tables() const { return tables_; }

private:
    struct Place {
        std::size_t table, row;
    };
    std::vector<ComparableTable> tables_;
    std::vector<Place> rows_;                               // by handle
    std::unordered_map<std::string, std::size_t> tableOf_;  // by title
    std::unordered_map<std::string, std::size_t> rowOf_;    // handles by table, title and key
    bool closed_ = false;
};

std::string comparableXml(const ComparableTables& tables);
// Throws InputError that names the file and what is wrong with it.
ComparableTables readComparable(const std::string& path);

// One cell of two runs.
struct ComparedCell {
    std::string table, row, cell;
    std::string left, right;          // as printed; empty: that run does not have it
    std::optional<Money> difference;  // right less left, what is missing counts 0; none where they are no amounts
    bool equal = false;               // the same amount, or the same text
};

// All cells that either of them has, in the order of the left one; those that only the right one has stand behind those
// of their row, row and table. Where a row has several cells of one name, they are compared in their order. Throws
// InputError when they are of two reports.
std::vector<ComparedCell> compareTables(const ComparableTables& left, const ComparableTables& right);

}  // namespace quillo
