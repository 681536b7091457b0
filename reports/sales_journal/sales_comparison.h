#pragma once

#include <memory>
#include <string>
#include <vector>

#include "framework/engine/controls.h"
#include "framework/run_frame.h"

namespace quillo {

// This year's sales beside last year's, as bars in thousands and as a table in units: what the graph by fiscal period
// and the one by month have in common.
class SalesComparison : public ReportFrame {
protected:
    SalesComparison(std::string name, HostContext& context, int titleId);

    void ActiveReport_ReportStart() override;

    // A row of the table that the chart shows: what stands below its bars, and the amounts of both years, in units.
    struct ChartRow {
        std::string label;
        Money lastYear, currentYear;
    };
    // The first and the last day of a range; no days where there is nothing to sum.
    struct Days {
        Date first{}, last{};
        bool isEmpty() const { return first == noDate; }
        // What a figure leads to.
        std::string tag() const { return isEmpty() ? "" : first.isoText() + "|" + last.isoText(); }
    };
    // The texts of a difference between two amounts.
    struct Difference {
        std::string money, percent;
    };

    // Sums of the documents of two ranges by day, the column that is named so.
    void openSales(std::string_view dayColumn, const Days& lastYear, const Days& currentYear);
    // What was sold in the range.
    Money CalculateTotal(const Days& days) const;

    // Of a row: no percentage of nothing, or of less.
    Difference rowDifference(Money lastYear, Money currentYear) const;
    Difference totalDifference() const;

    // Fills the chart with the table's rows, in thousands, and the legend with the names and the series' colours.
    void showChart(const std::string& lastYear, const std::string& currentYear);

    Section& Detail = section("Detail");
    Chart& MSCCustGrap = control<Chart>("MSCCustGrap");
    std::vector<ChartRow> m_vChartData;
    Money m_curLastYearTotal, m_curCurrentYearTotal;

private:
    Difference difference(Money lastYear, Money currentYear, std::string percent) const;

    std::unique_ptr<HostRecordset> m_sales;
};

// The same day of the next and of the last year; 28 February for the 29th. Throw ConversionError outside of the
// calendar.
Date plusOneYear(Date day);
Date lessOneYear(Date day);

}  // namespace quillo
