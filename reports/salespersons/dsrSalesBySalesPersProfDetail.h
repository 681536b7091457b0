#pragma once

#include "reports/salespersons/profit_report.h"

namespace quillo {

// The profit of each line sold, by salesperson and document: what it was sold for in home currency against what the
// item cost on the document's day.
class dsrSalesBySalesPersProfDetail final : public ProfitReport {
public:
    explicit dsrSalesBySalesPersProfDetail(HostContext& context);

private:
    void ActiveReport_ReportStart() override;
    void ghSalesPerson_Format();
    void ghInvoi_Format();
    void Detail_Format();
    void gfInvoi_Format();
    void gfSalesPerson_Format();
    void ReportFooter_Format();

    ListQuery query() const;
    void compareSalesPerson();
    void compareGrandTotal();
    void enterSection(std::string_view name);

    std::string SalesPerson;  // empty: all; Drill::blankSalesPerson: the documents without one

    Label& lblSalePrice = label("lblSalePrice");
    Label& lblCurrPrice = label("lblCurrPrice");
    Field& fldSalesPerson = field("fldSalesPerson");
    ProfitFields lineFields = {field("txtSalePrice"), field("txtCostingPrice"), field("txtProfitDoll"),
                               field("txtProfitPerc")};
    Label& TotDate = label("TotDate");
    ProfitFields invoiceFields = {field("txtSalePriceTot"), field("txtCostingPriceTot"), field("txtProfitDollTot"),
                                  field("txtProfitPercTot")};
    Label& lblTotalName = label("lblTotalName");
    ProfitFields salesPersonFields = {field("txtSalePriceSlmTot"), field("txtCostingPriceSlmTot"),
                                      field("txtProfitDollSlmTot"), field("txtProfitPercSlmTot")};
    ProfitFields grandFields = {field("txtSalePriceGrTot"), field("txtCostingPriceGrTot"), field("txtProfitDollGrTot"),
                                field("txtProfitPercGrTot")};

    ProfitSum m_invoice, m_salesPerson;
    std::string m_strInvoice;                  // the document that its sum is of
    std::optional<std::string> m_SalesPerson;  // whose sum it is; none before the first row
    std::string m_strLastSection;              // that wrote to the generator last
};

}  // namespace quillo
