#pragma once

#include "reports/salespersons/profit_report.h"

namespace quillo {

// The profit of a period, a line a salesperson. What a line leads to is dsrSalesBySalesPersProfDetail.
class dsrSalesBySalesPersProfSummary final : public ProfitReport {
public:
    explicit dsrSalesBySalesPersProfSummary(HostContext& context);

private:
    void ActiveReport_ReportStart() override;
    void ghSalesPerson_Format();
    void Detail_Format();
    void gfSalesPerson_Format();
    void ReportFooter_Format();

    ListQuery query() const;
    std::string salesPersonExpression() const;
    void compareGrandTotal();

    Label& lblSale = label("lblSale");
    Label& lblCost = label("lblCost");
    Field& txtSalesPerson = field("txtSalesPerson");
    ProfitFields groupFields = {field("txtSales"), field("txtCost"), field("txtProfitDoll"), field("txtProfitPerc")};
    ProfitFields grandFields = {field("txtTotSales"), field("txtTotCost"), field("txtTotProfitDoll"),
                                field("txtTotProfitPerc")};

    ProfitSum m_group;
    std::string m_strSalesPersonName;
};

}  // namespace quillo
