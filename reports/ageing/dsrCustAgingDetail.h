#pragma once

#include "reports/ageing/ageing_report.h"

namespace quillo {

// What each customer owes, a line for each document and each settlement of it in the column of the document's age, with
// the customer's running balance; totals by customer, by currency with foreign display, and of all.
class dsrCustAgingDetail final : public AgeingReport {
public:
    explicit dsrCustAgingDetail(HostContext& context);

    int CustId = 0;  // the one customer to print; 0: all

private:
    // What a row adds: as it prints, and in its own currency.
    struct RowAmounts {
        Money shown, own;
    };

    void ActiveReport_ReportStart() override;
    void ghCurrency_Format();
    void ghCustId_Format();
    void ghForCurr_Format();
    void Detail_Format();
    void Detail_AfterPrint();
    void gfForCurr_AfterPrint();
    void gfCustId_Format();
    void gfCurrency_Format();
    void ReportFooter_Format();

    void enterCurrency();
    void enterCustomer();
    bool tellsRate() const;
    RowAmounts rowAmounts(int kind, Money balance) const;
    void addEvaluated(Money& sum, const RowAmounts& amounts) const;
    void SetPeriodAmount(std::size_t column, Money amount);
    void setTypeLabel(int kind);
    void setTags(int kind);
    void showEvaluation();
    void setSubTotalCaption();
    void compareCustomer();
    void compareCurrency();
    void stretchFooter();

    Section& ghCustId = section("ghCustId");
    Section& gfForCurr = section("gfForCurr");
    Section& Detail = section("Detail");
    Label& lblCurrencyName = label("lblCurrencyName");
    Field& fldCustId = field("fldCustId");
    Label& lblType = label("lblType");
    Field& fldInvoiDate = field("fldInvoiDate");
    AgeFields rowFields = amountFields("");
    Field& txtCurrEqual = field("txtCurrEqual");
    Label& lblSubTotal = label("lblSubTotal");
    AgeFields customerFields = amountFields("Total");
    Label& lblSubTotalEval = label("lblSubTotalEval");
    AgeFields customerEvalFields = amountFields("TotalEval");
    Label& lblAdjustmentsCurrency = label("lblAdjustmentsCurrency");
    Field& txtAdjustmentsCurrency = field("txtAdjustmentsCurrency");
    Label& lblSubTotalForeign = label("lblSubTotalForeign");
    AgeFields currencyFields = amountFields("TotalForeign");
    Label& lblAdjustmentsTotal = label("lblAdjustmentsTotal");
    Field& txtAdjustmentsTotal = field("txtAdjustmentsTotal");
    AgeFields grandFields = amountFields("GrTotal");
    Label& lblGrandTotalEval = label("lblGrandTotalEval");
    AgeFields grandEvalFields = amountFields("GrTotalEval");
    Label& lblEnd = label("lblEnd");

    int m_CustomerKey = 0;
    AgeAmounts m_EvalPeriods, m_EvalGrandPeriods;
    int m_PrintedHeight = 0;   // below the customer's header since its start
    float m_footerHeight = 0;  // of gfCustId, by its design
};

}  // namespace quillo
