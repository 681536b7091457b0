#pragma once

#include "framework/run_frame.h"
#include "reports/lists/document_amounts.h"

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
    void PageHeader_Format();
    void ghCurrency_Format();
    void Detail_Format();
    void gfCurrency_Format();
    void ReportFooter_Format();
    void ReplacePageHeaderControls();
    void showAmount();

    SubReport& dsrFilterAndSortByInfoSubreport = subReport("dsrFilterAndSortByInfoSubreport");
    Label& lblDateFromDateTo = label("lblDateFromDateTo");
    Label& lblNo = label("lblNo");
    Label& lblName = label("lblName");
    Label& lblDateCap = label("lblDateCap");
    Label& lblTotAmnt = label("lblTotAmnt");
    Field& txtCurrencyDescr = field("txtCurrencyDescr");
    Field& txtTotAmnt = field("txtTotAmnt");
    Field& txtName = field("txtName");
    Field& txtShipDate = field("txtShipDate");
    Field& txtInvoiId = field("txtInvoiId");
    DataControl& rsOrder = data("rsOrder");
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
