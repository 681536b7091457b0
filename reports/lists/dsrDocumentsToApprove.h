#pragma once

#include "framework/run_frame.h"
#include "reports/lists/document_list.h"

namespace quillo {

// The documents that wait for approval within a date range, grouped by currency, with a subtotal a currency and a
// grand total.
class dsrDocumentsToApprove final : public FilterableReport, public IReportConfig {
public:
    explicit dsrDocumentsToApprove(HostContext& context);

    void IReportConfig_ShowConfigurationScreen(DialogService& dialogs) override;

private:
    void ActiveReport_ReportStart() override;
    void ghCurrency_Format();
    void Detail_Format();
    void gfCurrency_Format();
    void ReportFooter_Format();

    Field& txtFullCurrencyDescr = field("txtFullCurrencyDescr");
    DataControl& rsDocument = data("rsDocument");
    Field& txtTotAmnt = field("txtTotAmnt");
    Field& txtType = field("txtType");
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
