#include "reports/lists/dsrOpenOrders.h"

#include "dialogs/frmAdvFilters.h"
#include "framework/drill_tags.h"

namespace quillo {
namespace {

constexpr int orders = 51;  // the InvoiType of an order

}  // namespace

dsrOpenOrders::dsrOpenOrders(HostContext& context)
    : FilterableReport("dsrOpenOrders", context,
                       {.dateOptions = DateDisplay::range,
                        .titleId = 6314,
                        .companyCurrency = true,
                        .foreign = Foreign::keptGatesSections}) {
    property("InvoiceType", InvoiceType);
    onFormat("PageHeader", &dsrOpenOrders::PageHeader_Format);
    onFormat("ghCurrency", &dsrOpenOrders::ghCurrency_Format);
    onFormat("Detail", &dsrOpenOrders::Detail_Format);
    onFormat("gfCurrency", &dsrOpenOrders::gfCurrency_Format);
    onFormat("ReportFooter", &dsrOpenOrders::ReportFooter_Format);
}

int dsrOpenOrders::titleId() const {
    return InvoiceType == orders ? 6089 : 6314;
}

void dsrOpenOrders::ActiveReport_ReportStart() {
    if (!askFilter("InvoiHdr, Cust, WorldCurrency")) return;
    std::string sql =
        "SELECT InvoiHdr.InInvoiId, InvoiHdr.InvoiId, InvoiHdr.ExCurrencyId, "
        " InvoiHdr.ExchangeRate, InvoiHdr.ShipDate, InvoiHdr.TotAmnt, "
        " Cust.ExCurrencyId AS CustExCurrencyId, Cust.Name, Cust.InCustId, WorldCurrency.CurrencyCode, "
        " WorldCurrency.Descr, ";
    STEP(sql +=
         isJet(context())
             ? " (WorldCurrency.CurrencyCode & ' - ' & WorldCurrency.Descr) as FullCurrencyDescr, InvoiHdr.InvoiType "
             : " (WorldCurrency.CurrencyCode + ' - ' + WorldCurrency.Descr) as FullCurrencyDescr, InvoiHdr.InvoiType ");
    // The currency is the customer's, while the amounts convert by the document's: meant, a group is the
    // currency in which the customer is dealt with.
    sql +=
        " FROM (InvoiHdr INNER JOIN Cust ON InvoiHdr.ExCustId = Cust.InCustId)"
        " LEFT JOIN WorldCurrency ON "
        " WorldCurrency.InCurrencyId = Cust.ExCurrencyId "
        " WHERE InvoiHdr.InvoiType = ? "
        " AND InvoiHdr.InvoiDate BETWEEN ? AND ? ";
    STEP(sql += whereClause(filterParts(), OwnWhere::yes));
    STEP(sql += orderClauseKeeping(filterParts(), "WorldCurrency.CurrencyCode",
                                   " Order By CurrencyCode, InvoiHdr.RecDate, InvoiHdr.InvoiId ASC"));
    STEP(rsOrder.Recordset = execute(sql, {InvoiceType, m_dtDateFrom, m_dtDateTo}));
    STEP(if (m_bDisplayForeignCurrency) dynamic_cast<Field&>(*section("gfCurrency").find("txtCurrencyTotalCode")).Text =
             "");
    STEP(Translate());
    STEP(m_lngHomeCurrencyId = currencies().CieHomeCurrencyId());
    STEP(setDateCaption(lblDateFromDateTo));
    STEP(fillFilterInfo(dsrFilterAndSortByInfoSubreport));
}

void dsrOpenOrders::PageHeader_Format() {
    STEP(ReplacePageHeaderControls());
}

void dsrOpenOrders::ReplacePageHeaderControls() {
    replaceCaptions(dsrFilterAndSortByInfoSubreport, lblNo, {&lblName, &lblDateCap, &lblTotAmnt});
}

void dsrOpenOrders::ghCurrency_Format() {
    if (rsOrder.atEnd()) {
        STEP(txtCurrencyDescr.Text = "");
        return;
    }
    STEP(m_amounts.enterCurrency(rsOrder.Collect("ExCurrencyId").int32OrZero()));
}

void dsrOpenOrders::showAmount() {
    const auto amount = documentAmount(rsOrder, currencies(), m_lngHomeCurrencyId, m_bDisplayForeignCurrency);
    if (amount && !m_amounts.show(*amount, m_bIncludeZeroOrders, txtTotAmnt, locale()))
        LayoutAction = LayoutActions::dropRow;
}

void dsrOpenOrders::Detail_Format() {
    if (rsOrder.atEnd()) return;
    STEP(txtShipDate.Text = context().utils().DateText(rsOrder.Collect("ShipDate")));
    STEP(showAmount());
    // A row that is given up counts too: meant, the end line tells how many documents were looked at.
    STEP(++m_lngRecordCount);
    STEP(link(drillTag(Drill::invoice, rsOrder.Collect("InInvoiId")), {&txtTotAmnt, &txtInvoiId, &txtShipDate}));
    STEP(link(drillTag(Drill::customer, rsOrder.Collect("InCustId")), {&txtName}));
}

void dsrOpenOrders::gfCurrency_Format() {
    STEP(txtCurrencyTotal.Text = locale().currency(m_amounts.currencyTotal()));
}

void dsrOpenOrders::ReportFooter_Format() {
    // A sum over several currencies means nothing.
    STEP(txtGrandTotal.Visible = Label6.Visible = Label11.Visible = !m_bDisplayForeignCurrency);
    STEP(txtGrandTotal.Text = locale().currency(m_amounts.grandTotal()));
    STEP(setEndLine(lblEnd, 5860));
}

void dsrOpenOrders::IReportConfig_ShowConfigurationScreen(DialogService& dialogs) {
    frmAdvFilters form(context());
    STEP(form.Properties(Option::includeZeroOrders, m_bIncludeZeroOrders));
    STEP(form.PrepareInvConfigDialog(application(), Option::includeZeroOrders, InvoiceType == orders ? 7145 : 7222));
    STEP(dialogs.ShowModal(form));
    STEP(m_bIncludeZeroOrders = form.Properties(Option::includeZeroOrders));
}

}  // namespace quillo
