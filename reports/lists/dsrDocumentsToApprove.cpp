#include "reports/lists/dsrDocumentsToApprove.h"

#include "dialogs/frmAdvFilters.h"
#include "framework/drill_tags.h"

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
                        .foreign = Foreign::keptGatesSections}) {
    onFormat("PageHeader", &dsrDocumentsToApprove::PageHeader_Format);
    onFormat("ghCurrency", &dsrDocumentsToApprove::ghCurrency_Format);
    onFormat("Detail", &dsrDocumentsToApprove::Detail_Format);
    onFormat("gfCurrency", &dsrDocumentsToApprove::gfCurrency_Format);
    onFormat("ReportFooter", &dsrDocumentsToApprove::ReportFooter_Format);
}

void dsrDocumentsToApprove::ActiveReport_ReportStart() {
    if (!askFilter("InvoiHdr, InvoiType, Cust")) return;
    const std::string kinds = std::to_string(InvoiceType::invoice) + "," + std::to_string(InvoiceType::order) + "," +
                              std::to_string(InvoiceType::quote);
    // One text for both kinds of database: "+" joins the currency's description also on Jet.
    std::string sql =
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
    STEP(sql += whereClause(filterParts(), OwnWhere::yes));
    // The user's order stands alone, also where it breaks the currency groups: meant, the list is worked off in
    // the order that the approver asks for.
    STEP(sql += orderClause(filterParts(), " Order By CurrencyCode, CustId, InvoiHdr.InvoiDate, InvoiHdr.InvoiId ASC"));
    STEP(rsDocument.Recordset = execute(sql, {m_dtDateFrom, m_dtDateTo}));
    STEP(if (m_bDisplayForeignCurrency) dynamic_cast<Field&>(*section("gfCurrency").find("txtCurrencyTotalCode")).Text =
             "");
    STEP(Translate());
    STEP(m_lngHomeCurrencyId = currencies().CieHomeCurrencyId());
    STEP(setDateCaption(lblDateFromDateTo));
    STEP(fillFilterInfo(dsrFilterAndSortByInfoSubreport));
}

void dsrDocumentsToApprove::PageHeader_Format() {
    STEP(ReplacePageHeaderControls());
}

void dsrDocumentsToApprove::ReplacePageHeaderControls() {
    replaceCaptions(dsrFilterAndSortByInfoSubreport, lblDateCap,
                    {&lblDocNoCap, &lblTotAmntCap, &lblNameCap, &lblDocType});
}

void dsrDocumentsToApprove::ghCurrency_Format() {
    if (rsDocument.atEnd()) {
        STEP(txtFullCurrencyDescr.Text = "");
        return;
    }
    STEP(m_amounts.enterCurrency(rsDocument.Collect("ExCurrencyId").int32OrZero()));
}

void dsrDocumentsToApprove::showAmount() {
    const auto amount = documentAmount(rsDocument, currencies(), m_lngHomeCurrencyId, m_bDisplayForeignCurrency);
    if (amount && !m_amounts.show(*amount, m_bIncludeZeroOrders, txtTotAmnt, locale()))
        LayoutAction = LayoutActions::dropRow;
}

void dsrDocumentsToApprove::Detail_Format() {
    if (rsDocument.atEnd()) return;
    STEP(txtType.Text = context().company().dictionary().Translate(rsDocument.Collect("DocType").textOrEmpty()));
    STEP(txtDate.Text = context().utils().DateText(rsDocument.Collect("InvoiDate")));
    STEP(showAmount());
    // A row that is given up counts too, as in the list of open orders.
    STEP(++m_lngRecordCount);
    STEP(link(drillTag(Drill::invoice, rsDocument.Collect("InInvoiId")), {&txtTotAmnt, &txtInvoiId, &txtDate}));
    STEP(link(drillTag(Drill::customer, rsDocument.Collect("InCustId")), {&txtName}));
}

void dsrDocumentsToApprove::gfCurrency_Format() {
    STEP(txtCurrencyTotal.Text = locale().currency(m_amounts.currencyTotal()));
}

void dsrDocumentsToApprove::ReportFooter_Format() {
    STEP(txtGrandTotal.Visible = Label6.Visible = Label11.Visible = !m_bDisplayForeignCurrency);
    STEP(txtGrandTotal.Text = locale().currency(m_amounts.grandTotal()));
    STEP(setEndLine(lblEnd, 7633));
}

void dsrDocumentsToApprove::IReportConfig_ShowConfigurationScreen(DialogService& dialogs) {
    frmAdvFilters form(context());
    STEP(form.Properties(Option::includeZeroOrders, m_bIncludeZeroOrders));
    STEP(form.PrepareInvConfigDialog(application(), Option::includeZeroOrders, 7222));
    STEP(dialogs.ShowModal(form));
    STEP(m_bIncludeZeroOrders = form.Properties(Option::includeZeroOrders));
}

}  // namespace quillo
