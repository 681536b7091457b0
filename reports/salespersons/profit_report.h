#pragma once

#include <initializer_list>
#include <optional>
#include <utility>

#include "framework/report_mixins.h"

namespace quillo {

// What was sold and what it cost, in home currency.
struct ProfitSum {
    Money sale, cost;
    Money profit() const { return sale - cost; }
};

// The fields of a line of profit.
struct ProfitFields {
    Field &sale, &cost, &profit, &percent;
};

// What the two reports of profit by salesperson have in common: what a line was sold for and what it cost on its day,
// how profit and its percent print, and the grand total.
class ProfitReport : public ComparableReport<FilterableReport> {
public:
    void IReport_Initialize() override;

protected:
    ProfitReport(std::string name, HostContext& context, const ContractRow& contract);

    // Starts the list; the costs of all items are read once for it.
    bool ActiveReport_ReportStart(const ListQuery& query);
    using Report::ActiveReport_ReportStart;

    // What the row adds, by steps of Detail_Format. A credit note's line sells for less than nothing and keeps the sign
    // of its cost: meant, it takes both from the profit.
    ProfitSum readRow();
    void add(const ProfitSum& row, std::initializer_list<ProfitSum*> sums);

    // Prints a line, by steps of the procedure; its percent is empty until it is told, and "NA" where there is none.
    void show(const char* procedure, const ProfitFields& fields, const ProfitSum& sum);
    void showPercent(const char* procedure, const ProfitFields& fields, const std::optional<double>& percent,
                     int digits);
    void showGrandTotal(const ProfitFields& fields);
    static std::optional<double> percentOf(Money profit, Money sale);
    Money shown(const Field& field) const { return locale().readMoney(field.Text); }

    // Writes a line to the generator's table under the captions of its columns, beginning the table where none is held.
    using Cells = std::initializer_list<std::pair<const Label&, const Field&>>;
    void compare(const std::string& table, const std::string& row, const Cells& cells);

    static constexpr int percentDigits = 2;
    ProfitSum m_grand;
    int m_lngSalesPersonCount = 0;
    DataControl& rsSales = data("rsSales");
    Label& lblProfitDoll = label("lblProfitDoll");
    Label& lblProfitPerc = label("lblProfitPerc");
    Label& lblGrTotal = label("lblGrTotal");
    Label& lblEnd = label("lblEnd");

private:
    void ReportHeader_Format();
    void PageHeader_Format();
    Money rowRate() const;
    Money rowBase() const;
    Money rowCost() const;

    int m_lngHomeCurrencyId = 0;
};

}  // namespace quillo
