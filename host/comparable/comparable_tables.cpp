#include "host/comparable/comparable_tables.h"

#include <deque>

#include "framework/values/errors.h"
#include "host/locale/icu_locale.h"

namespace quillo {
namespace {

std::string keyOf(const ComparableTable& table) {
    return table.title;
}
std::string keyOf(const ComparableRow& row) {
    return row.title + '\n' + row.value;
}
std::string keyOf(const ComparableCell& cell) {
    return cell.name;
}

// The entries of a list by what they are about. Those that are alike are taken in their order.
template <class Entry>
class Index {
public:
    explicit Index(const std::vector<Entry>* entries) {
        if (entries == nullptr) return;
        for (const Entry& entry : *entries) places_[keyOf(entry)].push_back(&entry);
    }
    // Null when none like it is left.
    const Entry* take(const Entry& entry) {
        const auto found = places_.find(keyOf(entry));
        if (found == places_.end() || found->second.empty()) return nullptr;
        const Entry* taken = found->second.front();
        found->second.pop_front();
        return taken;
    }

private:
    std::unordered_map<std::string, std::deque<const Entry*>> places_;
};

// Reads the amounts of one run. A plain number is read everywhere.
class AmountReader {
public:
    explicit AmountReader(const ComparableTables& tables) : locale_(makeLocaleFormat(tables.locale, tables.currency)) {}

    std::optional<Money> read(const std::string& text) const {
        if (text.empty()) return Money();
        try {
            if (const auto plain = Money::parse(text)) return plain;
            return locale_.readMoney(text);
        } catch (const std::exception&) {
            return std::nullopt;
        }
    }

private:
    LocaleFormat locale_;
};

// Walks two runs, cell by cell.
class Comparison {
public:
    Comparison(const ComparableTables& left, const ComparableTables& right) : leftAmounts_(left), rightAmounts_(right) {
        walk<ComparableTable>(&left.tables, &right.tables, [&](const ComparableTable* a, const ComparableTable* b) {
            table_ = (a != nullptr ? a : b)->title;
            rows(a, b);
        });
    }

    std::vector<ComparedCell> take() { return std::move(cells_); }

private:
    // Calls with each entry of both lists: the two that are alike together, null for one that is missing.
    template <class Entry, class Call>
    static void walk(const std::vector<Entry>* left, const std::vector<Entry>* right, const Call& call) {
        Index<Entry> before(left), after(right);
        if (left != nullptr)
            for (const Entry& entry : *left) call(&entry, after.take(entry));
        if (right != nullptr)
            for (const Entry& entry : *right)
                if (before.take(entry) == nullptr) call(nullptr, &entry);
    }

    void rows(const ComparableTable* left, const ComparableTable* right) {
        walk<ComparableRow>(left != nullptr ? &left->rows : nullptr, right != nullptr ? &right->rows : nullptr,
                            [&](const ComparableRow* a, const ComparableRow* b) {
                                const ComparableRow& one = a != nullptr ? *a : *b;
                                row_ = one.value.empty() ? one.title : one.title + " " + one.value;
                                cells(a, b);
                            });
    }

    void cells(const ComparableRow* left, const ComparableRow* right) {
        walk<ComparableCell>(left != nullptr ? &left->cells : nullptr, right != nullptr ? &right->cells : nullptr,
                             [&](const ComparableCell* a, const ComparableCell* b) { cell(a, b); });
    }

    void cell(const ComparableCell* left, const ComparableCell* right) {
        ComparedCell compared{table_, row_, (left != nullptr ? left : right)->name, {}, {}, {}, false};
        if (left != nullptr) compared.left = left->value;
        if (right != nullptr) compared.right = right->value;
        const auto before = leftAmounts_.read(compared.left), after = rightAmounts_.read(compared.right);
        if (before && after) compared.difference = *after - *before;
        compared.equal = left != nullptr && right != nullptr &&
                         (compared.difference ? compared.difference->isZero() : compared.left == compared.right);
        cells_.push_back(std::move(compared));
    }

    AmountReader leftAmounts_, rightAmounts_;
    std::string table_, row_;
    std::vector<ComparedCell> cells_;
};

}  // namespace

ComparableCollector::Element ComparableCollector::AddTable(std::string_view title, std::string_view) {
    const auto [known, added] = tableOf_.emplace(title, tables_.size());
    if (added) tables_.push_back({std::string(title)});
    return static_cast<Element>(known->second);
}

ComparableCollector::Element ComparableCollector::AddRow(Element table, std::string_view title, std::string_view value,
                                                         std::string_view) {
    if (table < 0 || static_cast<std::size_t>(table) >= tables_.size())
        throw InputError("there is no comparable table to put the row \"" + std::string(title) + "\" into");
    const auto at = static_cast<std::size_t>(table);
    std::vector<ComparableRow>& rows = tables_[at].rows;
    ComparableRow row{std::string(title), std::string(value)};
    const auto [known, added] = rowOf_.emplace(std::to_string(at) + '\n' + keyOf(row), rows_.size());
    if (added) {
        rows_.push_back({at, rows.size()});
        rows.push_back(std::move(row));
    }
    return static_cast<Element>(known->second);
}

void ComparableCollector::AddCell(Element row, std::string_view name, std::string_view value, std::string_view) {
    if (row < 0 || static_cast<std::size_t>(row) >= rows_.size())
        throw InputError("there is no comparable row to put \"" + std::string(name) + "\" into");
    const Place& place = rows_[static_cast<std::size_t>(row)];
    tables_[place.table].rows[place.row].cells.push_back({std::string(name), std::string(value)});
}

std::vector<ComparedCell> compareTables(const ComparableTables& left, const ComparableTables& right) {
    if (left.report != right.report)
        throw InputError("they are tables of two reports, " + left.report + " and " + right.report);
    return Comparison(left, right).take();
}

}  // namespace quillo
