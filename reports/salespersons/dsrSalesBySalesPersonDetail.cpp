#include "reports/salespersons/dsrSalesBySalesPersonDetail.h"

#include "framework/drill_tags.h"
#include "reports/salespersons/sales_texts.h"

namespace quillo {
namespace {

constexpr float discountLeft = 4500, saleLeft = 6510;  // twips

namespace InvoiceType {
constexpr int invoice = 1, cashSale = 2;
}

int textOfType(int type) {
    return type == InvoiceType::invoice ? 2916 : type == InvoiceType::cashSale ? 2907 : 2863;
}

}  // namespace

dsrSalesBySalesPersonDetail::dsrSalesBySalesPersonDetail(HostContext& context)
    : CommissionReport("dsrSalesBySalesPersonDetail", context, 6086, 7786) {
    property("ExCurrencyId", ExCurrencyId);
    property("SalesPerson", SalesPerson);
    onFetchData(&dsrSalesBySalesPersonDetail::ActiveReport_FetchData);
    onFormat("ghSalesPerson", &dsrSalesBySalesPersonDetail::ghSalesPerson_Format);
    onFormat("ghCurrency", &dsrSalesBySalesPersonDetail::ghCurrency_Format);
    onFormat("ghDate", &dsrSalesBySalesPersonDetail::ghDate_Format);
    onFormat("Detail", &dsrSalesBySalesPersonDetail::Detail_Format);
    onFormat("gfDate", &dsrSalesBySalesPersonDetail::gfDate_Format);
    onFormat("gfCurrency", &dsrSalesBySalesPersonDetail::gfCurrency_Format);
    onFormat("gfSalesPerson", &dsrSalesBySalesPersonDetail::gfSalesPerson_Format);
    onFormat("ReportFooter", &dsrSalesBySalesPersonDetail::ReportFooter_Format);
}

void dsrSalesBySalesPersonDetail::ActiveReport_ReportStart() {
    txtDateTotal.Caption = txtCurrTotal.Caption = lblTotalName.Caption = "";
    m_lngSalesPersonCount = 0;
    // In home currency a day is one group, also with documents in several currencies.
    ghCurrency.DataField = m_bDisplayForeignCurrency ? "CurrencyCode" : "";
    ListQuery documents;
    STEP(documents = query());
    if (!FilterableReport::ActiveReport_ReportStart(documents)) return;
    // Behind the translation, so that it stays.
    if (IsCommissionVariances) STEP(lblComm.Caption = GetText(4396));
}

ListQuery dsrSalesBySalesPersonDetail::query() const {
    const std::string salesPerson = salesPersonExpression(isJet(context()));
    const int kind = context().company().DatabaseKind();
    ListQuery query;
    query.text = "SELECT InvoiHdr.*, " + salesPerson +
                 " As SalesPersonGrp, "
                 " Cust.Name, WorldCurrency.CurrencyCode, WorldCurrency.Descr," +
                 (IsCommissionVariances ? " EmplSalesPerson.SalesComm," : "") + amounts(kind) + tables() +
                 varianceCondition(kind) + narrowing();
    query.values = {m_dtDateFrom, m_dtDateTo};
    if (namesSalesPerson(SalesPerson)) query.values.emplace_back(SalesPerson);
    if (m_bDisplayForeignCurrency) {
        query.order = " Order By " + salesPerson +
                      " ASC, WorldCurrency.CurrencyCode, InvoiHdr.InvoiDate, "
                      "InvoiHdr.InvoiId ";
        query.leading = {salesPerson, "WorldCurrency.CurrencyCode", "InvoiHdr.InvoiDate"};
    } else {
        query.order = " Order By " + salesPerson +
                      " ASC, InvoiHdr.InvoiDate, "
                      "InvoiHdr.InvoiId ";
        query.leading = {salesPerson, "InvoiHdr.InvoiDate"};
    }
    return query;
}

// Nothing for a kind of database that is neither: the query then fails, and its box tells so.
std::string dsrSalesBySalesPersonDetail::amounts(int databaseKind) const {
    if (databaseKind != 0 && databaseKind != 1) return {};
    if (m_bDisplayForeignCurrency)
        return amountColumns("(InvoiHdr.DetAmnt)", "(InvoiHdr.DiscTotAmnt)", " InvoiHdr.CommissionAmount As CommAmnt ");
    const bool jet = databaseKind == 1;
    return jet ? amountColumns(
                     saleInHomeCurrency(jet),
                     "(InvoiHdr.DiscTotAmnt * IIF(InvoiHdr.ExchangeRate <> 0, InvoiHdr.ExchangeRate, 1))",
                     " InvoiHdr.CommissionAmount * IIF(InvoiHdr.ExchangeRate <> 0, InvoiHdr.ExchangeRate, 1) As "
                     "CommAmnt ")
               : amountColumns(saleInHomeCurrency(jet), "(InvoiHdr.DiscTotAmnt * COALESCE(InvoiHdr.ExchangeRate, 1))",
                               " InvoiHdr.CommissionAmount * COALESCE(InvoiHdr.ExchangeRate, 1) As CommAmnt ");
}

// A commission is not rounded here as sale and discount are: meant, its total is what is paid.
std::string dsrSalesBySalesPersonDetail::amountColumns(const char* sale, const char* discount,
                                                       const char* commission) const {
    const ReportUtils& utils = context().utils();
    return " (" + utils.RoundExpression(sale, true) + ") As SaleAmnt, " + " " + utils.RoundExpression(discount, true) +
           " As DiscAmnt, " + commission;
}

std::string dsrSalesBySalesPersonDetail::tables() const {
    const std::string joins = IsCommissionVariances
                                  ? " FROM ((InvoiHdr LEFT JOIN Cust ON Cust.InCustId = InvoiHdr.ExCustId)"
                                    " LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = InvoiHdr.ExCurrencyId)" +
                                        employeeJoin()
                                  : " FROM (InvoiHdr LEFT JOIN Cust ON Cust.InCustId = InvoiHdr.ExCustId)"
                                    " LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = InvoiHdr.ExCurrencyId";
    return joins +
           " WHERE "
           " InvoiHdr.InvoiType IN(" +
           saleKinds +
           ")"
           " AND InvoiHdr.InvoiDate BETWEEN ? AND ?" +
           (IsCommissionVariances ? " AND InvoiHdr.SalesPerson <> ''" : "");
}

std::string dsrSalesBySalesPersonDetail::narrowing() const {
    std::string conditions;
    if (SalesPerson == Drill::blankSalesPerson)
        conditions = " AND (InvoiHdr.SalesPerson = '' OR InvoiHdr.SalesPerson IS NULL) ";
    if (namesSalesPerson(SalesPerson)) conditions = " AND InvoiHdr.SalesPerson = ? ";
    conditions += zeroCondition();
    if (ExCurrencyId != 0) conditions += " AND InvoiHdr.ExCurrencyId = " + std::to_string(ExCurrencyId);
    return conditions;
}

void dsrSalesBySalesPersonDetail::ActiveReport_DataInitialize() {
    Fields.Add("FmtInvoiType");
}

void dsrSalesBySalesPersonDetail::ActiveReport_FetchData(bool& eof) {
    if (eof || rsSales.atEnd()) return;
    STEP(Fields.Item("FmtInvoiType").Value = GetText(textOfType(rsSales.Collect("InvoiType").int32OrZero())));
}

void dsrSalesBySalesPersonDetail::ghSalesPerson_Format() {
    if (rsSales.atEnd()) return;
    STEP(fldSalesPerson.Text = salesPersonName(rsSales, context()));
    lblTotalName.Caption = "Total " + fldSalesPerson.Text + ":";
    ++m_lngSalesPersonCount;
}

void dsrSalesBySalesPersonDetail::ghCurrency_Format() {
    ghCurrency.Visible = !rsSales.atEnd() && m_bDisplayForeignCurrency;
    if (rsSales.atEnd()) return;
    std::string code;
    STEP(code = rsSales.Collect("CurrencyCode").textOrEmpty());
    STEP(txtCurrTotal.Caption = GetText(1641) + " " + code);
    STEP(txtCurrencyFullDescr.Text = code + " - " + rsSales.Collect("Descr").textOrEmpty());
}

void dsrSalesBySalesPersonDetail::ghDate_Format() {
    ghDate.Visible = !rsSales.atEnd();
    if (rsSales.atEnd()) return;
    STEP(txtDateTotal.Caption = GetText(2710) + " " + context().utils().DateText(rsSales.Collect("InvoiDate")) + ":");
}

void dsrSalesBySalesPersonDetail::Detail_Format() {
    if (rsSales.atEnd()) return;
    txtDisc.Left = discountLeft;
    txtSale.Left = saleLeft;
    if (!IsCommissionVariances) return;
    txtComm.Text.clear();
    Money variance;
    STEP(variance = rowVariance("SaleAmnt"));
    for (Money* total : {&m_variances.date, &m_variances.currency, &m_variances.salesPerson, &m_variances.grand})
        STEP(*total += variance);
    STEP(txtComm.Text = locale().currency(variance));
}

void dsrSalesBySalesPersonDetail::gfDate_Format() {
    txtSaleDateTot.Left = saleLeft;
    if (IsCommissionVariances) showVariance(txtCommDateTot, m_variances.date);
}

void dsrSalesBySalesPersonDetail::gfCurrency_Format() {
    gfCurrency.Visible = m_bDisplayForeignCurrency;
    if (IsCommissionVariances) showVariance(txtCommDateTotCurr, m_variances.currency);
}

// Amounts of several currencies cannot be added, so that with foreign display salespersons have no totals.
void dsrSalesBySalesPersonDetail::gfSalesPerson_Format() {
    gfSalesPerson.Visible = !m_bDisplayForeignCurrency;
    txtSaleTot.Left = saleLeft;
    if (!IsCommissionVariances) return;
    showVariance(txtCommTot, m_variances.salesPerson);
    m_variances.currency = Money();
}

void dsrSalesBySalesPersonDetail::ReportFooter_Format() {
    ReportFooter.Visible = !m_bDisplayForeignCurrency;
    txtSaleGrTot.Left = saleLeft;
    if (IsCommissionVariances) showVariance(txtCommGrTot, m_variances.grand);
    STEP(showEnd());
}

}  // namespace quillo
