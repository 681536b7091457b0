#pragma once

#include "reports/salespersons/commission_report.h"

namespace quillo {

// Sales total and commission or its variance of a period, a line a salesperson; with foreign display a line for each of
// his currencies. What the lines lead to is dsrSalesBySalesPersonDetail.
class dsrSalesBySalesPersonSummary final : public CommissionReport {
public:
    explicit dsrSalesBySalesPersonSummary(HostContext& context);

private:
    void ActiveReport_ReportStart() override;
    void ghSalesPerson_Format();
    void ghCurrency_Format();
    void Detail_Format();
    void gfCurrency_Format();
    void gfSalesPerson_Format();
    void ReportFooter_Format();

    ListQuery query() const;
    std::string amounts(int databaseKind) const;
    // The tag of the row's salesperson, in a currency or (0) in all.
    std::string tagOf(int currency) const;
    int rowCurrency() const;

    Section& ghSalesPerson = section("ghSalesPerson");
    Section& gfCurrency = section("gfCurrency");
    Section& gfSalesPerson = section("gfSalesPerson");
    Field& txtSalesPersonCurr = field("txtSalesPersonCurr");
    Field& txtCurrencyFullDescr = field("txtCurrencyFullDescr");
    Field& txtSaleCurr = field("txtSaleCurr");
    Field& txtCommCurr = field("txtCommCurr");
    Field& txtSalesPerson = field("txtSalesPerson");
    Field& txtSale = field("txtSale");
    Field& txtComm = field("txtComm");
    Label& lblGrandTotal = label("lblGrandTotal");
    Field& txtGrandTotal = field("txtGrandTotal");
    Field& txtCommTotal = field("txtCommTotal");
    Line& LineGrandTotal1 = line("LineGrandTotal1");
    Line& LineGrandTotal2 = line("LineGrandTotal2");
    Line& LineGrandTotal3 = line("LineGrandTotal3");

    Money m_curVarianceGroup, m_curVarianceGrand;
};

}  // namespace quillo
