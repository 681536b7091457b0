#pragma once

#include "reports/sales_journal/sales_comparison.h"

namespace quillo {

// The sales of the fiscal year of a day beside those of the year before, a row a fiscal period up to that day. The two
// years may have periods of different number and length.
class dsrSalesJournalCompGraph final : public SalesComparison {
public:
    explicit dsrSalesJournalCompGraph(HostContext& context);

private:
    // A fiscal year as it is compared: its periods up to a day. Of no year nothing is.
    struct ComparedYear {
        const FiscalYear* year = nullptr;
        Date cutoff;
        std::string name() const { return year != nullptr ? year->name : ""; }
        // From its first day to the cut-off; without a year a range that has no day.
        Days range() const;
        // The number of the period that the cut-off lies in, from 1; 0: in none.
        int lastPeriod() const;
        // What is compared of a period; empty where there is no such period, or it begins behind the cut-off.
        Days period(int number) const;
    };

    void Detail_Format();
    void SetYearLabels();
    void ClearControls();
    int FindMaxPeriod() const;
    void addPeriod(int number, float row);
    Money FillArray(const Days& days, Money& total) const;
    void FillReport(const ChartRow& row, const Days& lastYear, const Days& currentYear, float top);
    Field& CreateControl(const std::string& name, const Control& caption, float top);
    void showTotals();
    void SetTotalControlsPosition(float top);

    Label& lblPeriods = label("lblPeriods");
    Label& lblLastYear = label("lblLastYear");
    Label& lblCurrYear = label("lblCurrYear");
    Label& lblDiffMoney = label("lblDiffMoney");
    Label& lblDiffPercentage = label("lblDiffPercentage");
    Label& fldTotalLastYear = label("fldTotalLastYear");
    Label& fldTotalCurrentYear = label("fldTotalCurrentYear");
    Label& fldDiffMoney = label("fldDiffMoney");
    Label& fldDiffPercentage = label("fldDiffPercentage");

    ComparedYear m_last, m_current;
};

}  // namespace quillo
