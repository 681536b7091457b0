#include "reports/lists/dsrDocumentsToApprove.h"

#include "dialogs/frmAdvFilters.h"

namespace quillo {
namespace {

// The document kinds that are approved before they count.
namespace InvoiceType {
constexpr int invoice = 1, quote = 50, order = 51;
}

}  // namespace

dsrDocumentsToApprove::dsrDocumentsToApprove(HostContext& context)
    : FilterableReport("dsrDocumentsToApprove", context,
                       {.dateOptions = DateDisplay::range,
                        .titleId = 7568,
                        .companyCurrency = true,
                        .foreign = Foreign::keptGatesSections,
                        .tables = "InvoiHdr, InvoiType, Cust",
                        .endTextId = 7633}) {
    onFormat("ghCurrency", &dsrDocumentsToApprove::ghCurrency_Format);
    onFormat("Detail", &dsrDocumentsToApprove::Detail_Format);
    onFormat("gfCurrency", &dsrDocumentsToApprove::gfCurrency_Format);
    onFormat("ReportFooter", &dsrDocumentsToApprove::ReportFooter_Format);
}

void dsrDocumentsToApprove::ActiveReport_ReportStart() {
    const std::string kinds = std::to_string(InvoiceType::invoice) + "," + std::to_string(InvoiceType::order) + "," +
                              std::to_string(InvoiceType::quote);
    // One text for both kinds of database: "+" joins the currency's description also on Jet.
    const std::string sql =
        "SELECT InvoiHdr.InInvoiId, InvoiHdr.InvoiDate, InvoiHdr.InvoiId, InvoiHdr.ExCurrencyId, "
        "InvoiHdr.ExchangeRate, "
        "Cust.InCustId, Cust.CustId, Cust.Name, InvoiHdr.TotAmnt, "
        "Cust.ExCurrencyId AS CustExCurrencyId, WorldCurrency.CurrencyCode, "
        "WorldCurrency.Descr, (WorldCurrency.CurrencyCode + ' - ' + WorldCurrency.Descr) as FullCurrencyDescr, "
        "InvoiType.Description as DocType "
        "FROM ((InvoiHdr INNER JOIN Cust ON InvoiHdr.ExCustId = Cust.InCustId) "
        "INNER JOIN InvoiType ON InvoiHdr.InvoiType = InvoiType.ID) "
        "LEFT JOIN WorldCurrency ON "
        "WorldCurrency.InCurrencyId = Cust.ExCurrencyId "
        "WHERE InvoiHdr.InvoiType IN (" +
        kinds +
        ") "
        "AND NOT ((InvoiHdr.ToApprove = 0) OR (InvoiHdr.ToApprove Is Null)) "
        "AND InvoiHdr.InvoiDate BETWEEN ? AND ? ";
    // The user's order stands alone, also where it breaks the currency groups: meant, the list is worked off in
    // the order that the approver asks for.
    const bool asked = FilterableReport::ActiveReport_ReportStart(
        {.text = sql,
         .order = " Order By CurrencyCode, CustId, InvoiHdr.InvoiDate, InvoiHdr.InvoiId ASC",
         .values = {m_dtDateFrom, m_dtDateTo}});
    if (!asked) return;
    if (m_bDisplayForeignCurrency) txtCurrencyTotalCode.Text.clear();
    STEP(m_documents.setHomeCurrency(currencies().CieHomeCurrencyId()));
}

void dsrDocumentsToApprove::ghCurrency_Format() {
    if (rsDocument.atEnd()) {
        txtFullCurrencyDescr.Text.clear();
        return;
    }
    STEP(m_documents.enterCurrency(rsDocument.Collect("ExCurrencyId").int32OrZero()));
}

void dsrDocumentsToApprove::Detail_Format() {
    if (rsDocument.atEnd()) return;
    txtTotAmnt.Text.clear();  // an amount that cannot be converted shows none
    txtType.Text.clear();
    std::optional<double> factor;
    STEP(factor = m_documents.factor(rsDocument, currencies(), m_bDisplayForeignCurrency));
    STEP(txtType.Text = context().company().dictionary().Translate(rsDocument.Collect("DocType").textOrEmpty()));
    bool listed = true;
    if (factor) STEP(listed = m_documents.show(rsDocument, *factor, txtTotAmnt, locale()));
    if (!listed) LayoutAction = LayoutActions::dropRow;
    // A row that is given up counts too, as in the list of open orders.
    ++m_lngRecordCount;
}

void dsrDocumentsToApprove::gfCurrency_Format() {
    STEP(txtCurrencyTotal.Text = locale().currency(m_documents.currencyTotal()));
}

void dsrDocumentsToApprove::ReportFooter_Format() {
    txtGrandTotal.Visible = Label6.Visible = Label11.Visible = !m_bDisplayForeignCurrency;
    for (Line* rule : {&LineGrandTotal1, &LineGrandTotal2, &LineGrandTotal3}) rule->Visible = txtGrandTotal.Visible;
    STEP(txtGrandTotal.Text = locale().currency(m_documents.grandTotal()));
}

void dsrDocumentsToApprove::IReportConfig_ShowConfigurationScreen(DialogService& dialogs) {
    frmAdvFilters form(context());
    form.Properties(Option::includeZeroOrders, m_documents.includesZero());
    STEP(form.PrepareInvConfigDialog(application(), Option::includeZeroOrders, 7222));
    STEP(dialogs.ShowModal(form));
    m_documents.includeZero(form.Properties(Option::includeZeroOrders));
}

}  // namespace quillo
