#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "framework/engine/report.h"

namespace quillo {

// The same day a year earlier. 29 February becomes 1 March, a day later than a calendar reading would have it: meant,
// so that a figure agrees with those that were printed before.
Date yearBefore(Date day);

// What the sales statistics are asked for.
struct SalesStatisticWish {
    Date from, to;          // the current period
    Date lastFrom, lastTo;  // what it is compared with
    int SortOption = 0;     // 0 none, 1 ascending, 2 descending
    int SortType = 0;       // 0 none, 1 sales amount, 2 units, 3 profit, 4 profit percent
    int FilterType = 0;     // 0 all documents, 1 invoices, 2 credit notes, 3 both of them
    bool HideLastYearInfo = false;
    bool byWarehouse = false;  // a row an item and active warehouse, else a row an item
    std::string filter;        // where part, "|", order part
    std::string segments;      // the condition on segments; empty: all
};

// The one query of the sales statistics: what each item sold in two periods, and what it cost by the stock's running
// costs at their ends. Amounts, units and costs of a period are derived tables of their own, so that rows of the one do
// not multiply those of another. It is driven by the costs: an item that neither moved nor was sold as a kit up to the
// end of a period has none of it.
class SalesStatisticQuery {
public:
    using Params = std::vector<Variant>;  // of the "?" marks, in the order of the text

    // Both must outlive it. Failures show as the report's.
    SalesStatisticQuery(const Report& report, const SalesStatisticWish& wish) : report_(report), wish_(wish) {}

    std::string MainQuery(Params& params) const;
    std::string MainQueryWarehouse(Params& params) const;
    // The user's condition and the order of the rows, behind either of the two.
    void ManageFilters(std::string& query) const;

private:
    struct Period {
        std::string_view name;  // "Current", "Last": what its columns end in
        Date from, to;
    };
    // A cost method's expressions.
    struct CostTexts {
        std::string_view price, profit, percent;
    };

    Period current() const { return {"Current", wish_.from, wish_.to}; }
    Period last() const { return {"Last", wish_.lastFrom, wish_.lastTo}; }
    std::string GetInvoiTypeFilter() const;
    std::string ItemSoldAmountsQuery(Params& params, const Period& period) const;
    std::string ItemSoldUnitsQuery(Params& params, const Period& period) const;
    std::string soldQuery(std::string_view sum, std::string_view view) const;
    std::string InvenDetQuery(Params& params, Date day) const;
    std::string lastMovements() const;
    std::string lastKitLines() const;
    std::string block(Params& params, const Period& period, std::string_view head) const;
    std::string measures(const Period& period) const;
    std::string percent(std::string_view share) const;
    CostTexts costTexts(const Period& period) const;
    std::string conditions(std::string_view hidden, std::string_view secondLine) const;
    std::string sortHead() const;
    std::string orNull(std::string_view expression) const;
    std::string_view perWarehouse(std::string_view text) const { return wish_.byWarehouse ? text : ""; }
    void showFailure(std::string_view description, std::string_view procedure, int line) const {
        report_.showFailure(description, procedure, line);
    }

    const Report& report_;
    const SalesStatisticWish& wish_;
};

}  // namespace quillo
