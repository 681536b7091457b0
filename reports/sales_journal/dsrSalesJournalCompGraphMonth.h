#pragma once

#include "reports/sales_journal/sales_comparison.h"

namespace quillo {

// The sales of the calendar year of a day beside those of the year before, a row a month up to the month of that day.
class dsrSalesJournalCompGraphMonth final : public SalesComparison {
public:
    explicit dsrSalesJournalCompGraphMonth(HostContext& context);

private:
    std::string IReport_ReportTitle() override;
    void Detail_Format();
    void addMonth(int month);
    Days monthOfLastYear(int month) const;
    Days monthOfThisYear(int month) const;
    std::string MonthDescription(int month) const;
    void FillAmounts(int month, const Days& lastYear, const Days& currentYear);
    void showTotals();
    void hideRows(int from);
    void placeTotals(int count);
    std::string fiscalYear(Date day) const;

    Field& txtTotalLastYear = field("txtTotalLastYear");
    Field& txtTotalCurYear = field("txtTotalCurYear");
    Field& txtDiffDolTotal = field("txtDiffDolTotal");
    Field& txtDiffPerTotal = field("txtDiffPerTotal");
    Label& lblLastYear = label("lblLastYear");
    Label& lblCurrYear = label("lblCurrYear");

    int m_year = 0;
};

}  // namespace quillo
