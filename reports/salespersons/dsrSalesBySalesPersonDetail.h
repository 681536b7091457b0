#pragma once

#include "reports/salespersons/commission_report.h"

namespace quillo {

// The sales documents of a period by salesperson and day, with discount, sales total and commission or its variance;
// with foreign display by currency too, in the documents' own amounts.
class dsrSalesBySalesPersonDetail final : public CommissionReport {
public:
    explicit dsrSalesBySalesPersonDetail(HostContext& context);

private:
    void ActiveReport_ReportStart() override;
    void ActiveReport_DataInitialize() override;
    void ActiveReport_FetchData(bool& eof);
    void ghSalesPerson_Format();
    void ghCurrency_Format();
    void ghDate_Format();
    void Detail_Format();
    void gfDate_Format();
    void gfCurrency_Format();
    void gfSalesPerson_Format();
    void ReportFooter_Format();

    ListQuery query() const;
    std::string amounts(int databaseKind) const;
    std::string amountColumns(const char* sale, const char* discount, const char* commission) const;
    std::string tables() const;
    std::string narrowing() const;

    int ExCurrencyId = 0;     // 0: documents in all currencies
    std::string SalesPerson;  // empty: all; Drill::blankSalesPerson: the documents without one

    Section& ghCurrency = section("ghCurrency");
    Section& ghDate = section("ghDate");
    Section& gfCurrency = section("gfCurrency");
    Section& gfSalesPerson = section("gfSalesPerson");
    Section& ReportFooter = section("ReportFooter");
    Field& fldSalesPerson = field("fldSalesPerson");
    Field& txtCurrencyFullDescr = field("txtCurrencyFullDescr");
    Field& txtDisc = field("txtDisc");
    Field& txtSale = field("txtSale");
    Field& txtComm = field("txtComm");
    Label& txtDateTotal = label("txtDateTotal");
    Field& txtSaleDateTot = field("txtSaleDateTot");
    Field& txtCommDateTot = field("txtCommDateTot");
    Label& txtCurrTotal = label("txtCurrTotal");
    Field& txtCommDateTotCurr = field("txtCommDateTotCurr");
    Label& lblTotalName = label("lblTotalName");
    Field& txtSaleTot = field("txtSaleTot");
    Field& txtCommTot = field("txtCommTot");
    Field& txtSaleGrTot = field("txtSaleGrTot");
    Field& txtCommGrTot = field("txtCommGrTot");

    // The variances so far, of each level that has a total.
    struct {
        Money date, currency, salesPerson, grand;
    } m_variances;
};

}  // namespace quillo
