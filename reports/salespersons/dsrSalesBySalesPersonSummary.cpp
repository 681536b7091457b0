#include "reports/salespersons/dsrSalesBySalesPersonSummary.h"

#include "framework/drill_tags.h"
#include "reports/salespersons/sales_texts.h"

namespace quillo {
namespace {

constexpr float saleLeft = 5990, saleWidth = 2050, nameWidth = 5800, captionLeft = 3720;  // twips

}  // namespace

dsrSalesBySalesPersonSummary::dsrSalesBySalesPersonSummary(HostContext& context)
    : CommissionReport("dsrSalesBySalesPersonSummary", context, 6085, 7785) {
    onFormat("ghSalesPerson", &dsrSalesBySalesPersonSummary::ghSalesPerson_Format);
    onFormat("ghCurrency", &dsrSalesBySalesPersonSummary::ghCurrency_Format);
    onFormat("Detail", &dsrSalesBySalesPersonSummary::Detail_Format);
    onFormat("gfCurrency", &dsrSalesBySalesPersonSummary::gfCurrency_Format);
    onFormat("gfSalesPerson", &dsrSalesBySalesPersonSummary::gfSalesPerson_Format);
    onFormat("ReportFooter", &dsrSalesBySalesPersonSummary::ReportFooter_Format);
}

void dsrSalesBySalesPersonSummary::ActiveReport_ReportStart() {
    for (Field* name : {&txtCurrencyFullDescr, &txtSalesPersonCurr, &txtSalesPerson}) name->Text.clear();
    ListQuery documents;
    STEP(documents = query());
    if (!FilterableReport::ActiveReport_ReportStart(documents)) return;
    // Behind the translation, so that it stays.
    if (IsCommissionVariances) STEP(lblComm.Caption = GetText(4396));
}

ListQuery dsrSalesBySalesPersonSummary::query() const {
    const std::string salesPerson = salesPersonExpression(isJet(context()));
    const int kind = context().company().DatabaseKind();
    ListQuery query;
    query.text = "SELECT InvoiHdr.InInvoiId, " + salesPerson +
                 " As SalesPerson,"
                 " InvoiHdr.ExCurrencyId, InvoiHdr.DetAmnt, InvoiHdr.ExchangeRate,"
                 " InvoiHdr.InvoiDate, InvoiHdr.InvoiType, InvoiHdr.CommissionAmount, InvoiHdr.CommissionPercent,"
                 " WorldCurrency.InCurrencyId, WorldCurrency.CurrencyCode, WorldCurrency.Descr, Cust.CustId, " +
                 (IsCommissionVariances ? " EmplSalesPerson.SalesComm," : "") + amounts(kind) +
                 " FROM ((InvoiHdr"
                 " LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = InvoiHdr.ExCurrencyId)"
                 " LEFT JOIN Cust ON Cust.InCustId = InvoiHdr.ExCustId) " +
                 employeeJoin() +
                 " WHERE"
                 " InvoiHdr.InvoiType IN(" +
                 saleKinds +
                 ") AND"
                 " InvoiHdr.InvoiDate BETWEEN ? AND ? " +
                 varianceCondition(kind) + zeroCondition();
    query.values = {m_dtDateFrom, m_dtDateTo};
    query.order = " ORDER BY " + salesPerson;
    query.leading = {salesPerson};
    if (!m_bDisplayForeignCurrency) return query;
    query.order += ", WorldCurrency.CurrencyCode ";
    query.leading.emplace_back("WorldCurrency.CurrencyCode");
    return query;
}

// Not rounded document by document, as the detail's are: meant, a total may differ from the detail's by cents. Nothing
// for a kind of database that is neither: the query then fails, and its box tells so.
std::string dsrSalesBySalesPersonSummary::amounts(int databaseKind) const {
    if (databaseKind != 0 && databaseKind != 1) return {};
    if (m_bDisplayForeignCurrency) return " InvoiHdr.DetAmnt As TotalAmnt, InvoiHdr.CommissionAmount As CommAmnt";
    return databaseKind == 0 ? " (InvoiHdr.DetAmnt * COALESCE(ExchangeRate, 1)) As TotalAmnt, "
                               " (InvoiHdr.CommissionAmount * COALESCE(ExchangeRate, 1)) As CommAmnt"
                             : " InvoiHdr.DetAmnt * IIF(ExchangeRate = 0, 1, ExchangeRate) As TotalAmnt, "
                               " InvoiHdr.CommissionAmount * IIF(ExchangeRate = 0, 1, ExchangeRate) As CommAmnt";
}

std::string dsrSalesBySalesPersonSummary::tagOf(int currency) const {
    return salesPersonTag(rsSales.Collect("SalesPerson").textOrEmpty(), IsCommissionVariances, currency);
}

int dsrSalesBySalesPersonSummary::rowCurrency() const {
    return m_bDisplayForeignCurrency ? rsSales.Collect("ExCurrencyId").int32OrZero() : 0;
}

// With the lines of currencies shown, the name stands above them, and the salesperson has no total: amounts of several
// currencies cannot be added.
void dsrSalesBySalesPersonSummary::ghSalesPerson_Format() {
    ghSalesPerson.Visible = !rsSales.atEnd() && m_bDisplayForeignCurrency;
    gfSalesPerson.Visible = !rsSales.atEnd() && !m_bDisplayForeignCurrency;
    if (rsSales.atEnd()) return;
    std::string name;
    STEP(name = salesPersonName(rsSales, context()));
    txtSalesPerson.Text = txtSalesPersonCurr.Text = name;
    ++m_lngSalesPersonCount;
    STEP(link(tagOf(0), {&txtSalesPersonCurr, &txtSalesPerson}));
    STEP(link(tagOf(rowCurrency()), {&txtSale, &txtComm}));
}

void dsrSalesBySalesPersonSummary::ghCurrency_Format() {
    gfCurrency.Visible = !rsSales.atEnd() && m_bDisplayForeignCurrency;
    if (rsSales.atEnd()) return;
    STEP(txtCurrencyFullDescr.Text =
             rsSales.Collect("CurrencyCode").textOrEmpty() + " - " + rsSales.Collect("Descr").textOrEmpty());
    STEP(link(tagOf(rowCurrency()), {&txtSaleCurr, &txtCurrencyFullDescr, &txtCommCurr}));
}

void dsrSalesBySalesPersonSummary::Detail_Format() {
    if (rsSales.atEnd() || !IsCommissionVariances) return;
    Money variance;
    STEP(variance = rowVariance("TotalAmnt"));
    STEP(m_curVarianceGroup += variance);
    STEP(m_curVarianceGrand += variance);
}

void dsrSalesBySalesPersonSummary::gfCurrency_Format() {
    if (IsCommissionVariances && m_bDisplayForeignCurrency) showVariance(txtCommCurr, m_curVarianceGroup);
}

void dsrSalesBySalesPersonSummary::gfSalesPerson_Format() {
    txtSale.Width = saleWidth;
    txtSale.Left = saleLeft;
    txtSalesPerson.Width = nameWidth;
    if (IsCommissionVariances) showVariance(txtComm, m_curVarianceGroup);
}

void dsrSalesBySalesPersonSummary::ReportFooter_Format() {
    STEP(showEnd());
    lblGrandTotal.Visible = txtGrandTotal.Visible = txtCommTotal.Visible = !m_bDisplayForeignCurrency;
    for (Line* rule : {&LineGrandTotal1, &LineGrandTotal2, &LineGrandTotal3})
        rule->Visible = !m_bDisplayForeignCurrency;
    txtGrandTotal.Width = saleWidth;
    txtGrandTotal.Left = saleLeft;
    lblGrandTotal.Left = captionLeft;
    if (IsCommissionVariances) showVariance(txtCommTotal, m_curVarianceGrand);
}

}  // namespace quillo
