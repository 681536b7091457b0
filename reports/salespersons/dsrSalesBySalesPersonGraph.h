#pragma once

#include "framework/run_frame.h"

namespace quillo {

// Sales by salesperson of a period in home currency, largest first: as bars in thousands, ten of them and the rest
// together, and below in figures with each one's share. What a line leads to is dsrSalesBySalesPersonDetail.
class dsrSalesBySalesPersonGraph final : public FilterableReport {
public:
    explicit dsrSalesBySalesPersonGraph(HostContext& context);

private:
    void ActiveReport_ReportStart() override;
    void Detail_Format();
    void ReportFooter_Format();

    std::string query() const;
    // Fills the chart with the rows, and the total of all of them.
    void readSales(HostRecordset& sales);

    Section& ReportHeader = section("ReportHeader");
    Chart& chtSales = control<Chart>("chtSales");
    Field& txtSalesPerson = field("txtSalesPerson");
    Field& txtSale = field("txtSale");
    Field& txtShare = field("txtShare");
    Field& txtSaleTotal = field("txtSaleTotal");
    DataControl& rsSales = data("rsSales");

    Money m_curTotal;
};

}  // namespace quillo
