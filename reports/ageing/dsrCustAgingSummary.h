#pragma once

#include "reports/ageing/ageing_report.h"

namespace quillo {

// What each customer owes, a line a customer with a column for each age; totals by currency with foreign display, or
// of all. Re-evaluated amounts take the place of those at the documents' rates.
class dsrCustAgingSummary final : public AgeingReport {
public:
    explicit dsrCustAgingSummary(HostContext& context);

private:
    void ActiveReport_ReportStart() override;
    void PageHeader_Format();
    void ghCurrency_Format();
    void ghCustId_Format();
    void Detail_Format();
    void gfCustId_Format();
    void gfCurrency_Format();
    void ReportFooter_Format();

    void enterCurrency();
    std::string customerName() const;
    Money rowAmount(int kind, Money balance) const;
    void compareTotals();

    Field& txtCurrencyRates = field("txtCurrencyRates");
    Label& lblCurrencyName = label("lblCurrencyName");
    Field& fldName = field("fldName");
    AgeFields customerFields = amountFields("Total");
    Label& lblAdjustmentsCurrency = label("lblAdjustmentsCurrency");
    Field& txtAdjustmentsCurrency = field("txtAdjustmentsCurrency");
    Label& lblTotalCapForeign = label("lblTotalCapForeign");
    AgeFields currencyFields = amountFields("GrTotalForeign");
    Label& lblAdjustmentsTotal = label("lblAdjustmentsTotal");
    Field& txtAdjustmentsTotal = field("txtAdjustmentsTotal");
    Label& lblTotalCap2 = label("lblTotalCap2");
    AgeFields grandFields = amountFields("GrTotal");
    Label& lblEnd = label("lblEnd");
};

}  // namespace quillo
