#pragma once

#include "framework/run_frame.h"
#include "reports/lists/document_amounts.h"

namespace quillo {

// The documents that wait for approval within a date range, grouped by currency, with a subtotal a currency and a
// grand total.
class dsrDocumentsToApprove final : public FilterableReport, public IReportConfig {
public:
    explicit dsrDocumentsToApprove(HostContext& context);

    void IReportConfig_ShowConfigurationScreen(DialogService& dialogs) override;

private:
    void ActiveReport_ReportStart() override;
    void PageHeader_Format();
    void ghCurrency_Format();
    void Detail_Format();
    void gfCurrency_Format();
    void ReportFooter_Format();
    void ReplacePageHeaderControls();
    void showAmount();

    SubReport& dsrFilterAndSortByInfoSubreport = subReport("dsrFilterAndSortByInfoSubreport");
    Label& lblDateFromDateTo = label("lblDateFromDateTo");
    Label& lblDateCap = label("lblDateCap");
    Label& lblDocNoCap = label("lblDocNoCap");
    Label& lblTotAmntCap = label("lblTotAmntCap");
    Label& lblNameCap = label("lblNameCap");
    Label& lblDocType = label("lblDocType");
    Field& txtFullCurrencyDescr = field("txtFullCurrencyDescr");
    DataControl& rsDocument = data("rsDocument");
    Field& txtTotAmnt = field("txtTotAmnt");
    Field& txtInvoiId = field("txtInvoiId");
    Field& txtDate = field("txtDate");
    Field& txtName = field("txtName");
    Field& txtType = field("txtType");
    Field& txtCurrencyTotal = field("txtCurrencyTotal");
    Label& Label6 = label("Label6");
    Label& Label11 = label("Label11");
    Field& txtGrandTotal = field("txtGrandTotal");
    Label& lblEnd = label("lblEnd");

    bool m_bIncludeZeroOrders = true;
    int m_lngHomeCurrencyId = 0;
    DocumentAmounts m_amounts;
};

}  // namespace quillo
