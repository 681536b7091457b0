#pragma once

#include "framework/run_frame.h"
#include "reports/lists/document_list.h"

namespace quillo {

// The documents of one type within a date range, grouped by currency, with a subtotal a currency and a grand total.
class dsrOpenOrders final : public FilterableReport, public IReportConfig {
public:
    explicit dsrOpenOrders(HostContext& context);

    int InvoiceType = 0;  // 51: orders

    void IReportConfig_ShowConfigurationScreen(DialogService& dialogs) override;

private:
    int titleId() const override;
    void ActiveReport_ReportStart() override;
    std::string query();
    void ghCurrency_Format();
    void Detail_Format();
    void gfCurrency_Format();
    void ReportFooter_Format();

    Field& txtCurrencyDescr = field("txtCurrencyDescr");
    Field& txtTotAmnt = field("txtTotAmnt");
    DataControl& rsOrder = data("rsOrder");
    Field& txtCurrencyTotalCode = field("txtCurrencyTotalCode");
    Field& txtCurrencyTotal = field("txtCurrencyTotal");
    Label& Label6 = label("Label6");
    Label& Label11 = label("Label11");
    Field& txtGrandTotal = field("txtGrandTotal");
    Line& LineGrandTotal1 = line("LineGrandTotal1");
    Line& LineGrandTotal2 = line("LineGrandTotal2");
    Line& LineGrandTotal3 = line("LineGrandTotal3");

    DocumentList m_documents;
};

}  // namespace quillo
