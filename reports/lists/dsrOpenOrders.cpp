#include "reports/lists/dsrOpenOrders.h"

#include "dialogs/frmAdvFilters.h"

namespace quillo {
namespace {

constexpr int orders = 51;  // the InvoiType of an order

}  // namespace

dsrOpenOrders::dsrOpenOrders(HostContext& context)
    : FilterableReport("dsrOpenOrders", context,
                       {.dateOptions = DateDisplay::range,
                        .titleId = 6314,
                        .companyCurrency = true,
                        .foreign = Foreign::keptGatesSections,
                        .tables = "InvoiHdr, Cust, WorldCurrency",
                        .ownOrder = true,
                        .endTextId = 5860}) {
    property("InvoiceType", InvoiceType);
    onFormat("ghCurrency", &dsrOpenOrders::ghCurrency_Format);
    onFormat("Detail", &dsrOpenOrders::Detail_Format);
    onFormat("gfCurrency", &dsrOpenOrders::gfCurrency_Format);
    onFormat("ReportFooter", &dsrOpenOrders::ReportFooter_Format);
}

int dsrOpenOrders::titleId() const {
    return InvoiceType == orders ? 6089 : 6314;
}

void dsrOpenOrders::ActiveReport_ReportStart() {
    const bool asked = FilterableReport::ActiveReport_ReportStart(
        {.text = query(),
         .order = " Order By CurrencyCode, InvoiHdr.RecDate, InvoiHdr.InvoiId ASC",
         .values = {InvoiceType, m_dtDateFrom, m_dtDateTo},
         .keeping = "WorldCurrency.CurrencyCode"});
    if (!asked) return;
    if (m_bDisplayForeignCurrency) txtCurrencyTotalCode.Text.clear();
    STEP(m_documents.setHomeCurrency(currencies().CieHomeCurrencyId()));
}

// The currency is the customer's, while the amounts convert by the document's: meant, a group is the currency in which
// the customer is dealt with.
std::string dsrOpenOrders::query() {
    bool jet = false;
    STEP(jet = isJet(context()));
    return std::string(
               "SELECT InvoiHdr.InInvoiId, InvoiHdr.InvoiId, InvoiHdr.ExCurrencyId, "
               " InvoiHdr.ExchangeRate, InvoiHdr.ShipDate, InvoiHdr.TotAmnt, "
               " Cust.ExCurrencyId AS CustExCurrencyId, Cust.Name, Cust.InCustId, WorldCurrency.CurrencyCode, "
               " WorldCurrency.Descr, ") +
           (jet ? " (WorldCurrency.CurrencyCode & ' - ' & WorldCurrency.Descr) as FullCurrencyDescr, "
                  "InvoiHdr.InvoiType "
                : " (WorldCurrency.CurrencyCode + ' - ' + WorldCurrency.Descr) as FullCurrencyDescr, "
                  "InvoiHdr.InvoiType ") +
           " FROM (InvoiHdr INNER JOIN Cust ON InvoiHdr.ExCustId = Cust.InCustId)"
           " LEFT JOIN WorldCurrency ON "
           " WorldCurrency.InCurrencyId = Cust.ExCurrencyId "
           " WHERE InvoiHdr.InvoiType = ? "
           " AND InvoiHdr.InvoiDate BETWEEN ? AND ? ";
}

void dsrOpenOrders::ghCurrency_Format() {
    if (rsOrder.atEnd()) {
        txtCurrencyDescr.Text.clear();
        return;
    }
    STEP(m_documents.enterCurrency(rsOrder.Collect("ExCurrencyId").int32OrZero()));
}

void dsrOpenOrders::Detail_Format() {
    if (rsOrder.atEnd()) return;
    txtTotAmnt.Text.clear();  // an amount that cannot be converted shows none
    std::optional<double> factor;
    STEP(factor = m_documents.factor(rsOrder, currencies(), m_bDisplayForeignCurrency));
    bool listed = true;
    if (factor) STEP(listed = m_documents.show(rsOrder, *factor, txtTotAmnt, locale()));
    if (!listed) LayoutAction = LayoutActions::dropRow;
    // A row that is given up counts too: meant, the end line tells how many documents were looked at.
    ++m_lngRecordCount;
}

void dsrOpenOrders::gfCurrency_Format() {
    STEP(txtCurrencyTotal.Text = locale().currency(m_documents.currencyTotal()));
}

void dsrOpenOrders::ReportFooter_Format() {
    // A sum over several currencies means nothing.
    txtGrandTotal.Visible = Label6.Visible = Label11.Visible = !m_bDisplayForeignCurrency;
    for (Line* rule : {&LineGrandTotal1, &LineGrandTotal2, &LineGrandTotal3}) rule->Visible = txtGrandTotal.Visible;
    STEP(txtGrandTotal.Text = locale().currency(m_documents.grandTotal()));
}

void dsrOpenOrders::IReportConfig_ShowConfigurationScreen(DialogService& dialogs) {
    frmAdvFilters form(context());
    form.Properties(Option::includeZeroOrders, m_documents.includesZero());
    STEP(form.PrepareInvConfigDialog(application(), Option::includeZeroOrders, InvoiceType == orders ? 7145 : 7222));
    STEP(dialogs.ShowModal(form));
    m_documents.includeZero(form.Properties(Option::includeZeroOrders));
}

}  // namespace quillo
