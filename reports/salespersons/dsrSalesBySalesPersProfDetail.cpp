#include "reports/salespersons/dsrSalesBySalesPersProfDetail.h"

#include "framework/drill_tags.h"
#include "reports/salespersons/sales_texts.h"

namespace quillo {

dsrSalesBySalesPersProfDetail::dsrSalesBySalesPersProfDetail(HostContext& context)
    : ProfitReport("dsrSalesBySalesPersProfDetail", context,
                   {.dateOptions = DateDisplay::range,
                    .titleId = 6237,
                    .tables = "InvoiHdr, Cust",
                    .filterFlagA = false,
                    .ownOrder = true}) {
    property("SalesPerson", SalesPerson);
    onFormat("ghSalesPerson", &dsrSalesBySalesPersProfDetail::ghSalesPerson_Format);
    onFormat("ghInvoi", &dsrSalesBySalesPersProfDetail::ghInvoi_Format);
    onFormat("Detail", &dsrSalesBySalesPersProfDetail::Detail_Format);
    onFormat("gfInvoi", &dsrSalesBySalesPersProfDetail::gfInvoi_Format);
    onFormat("gfSalesPerson", &dsrSalesBySalesPersProfDetail::gfSalesPerson_Format);
    onFormat("ReportFooter", &dsrSalesBySalesPersProfDetail::ReportFooter_Format);
}

void dsrSalesBySalesPersProfDetail::ActiveReport_ReportStart() {
    m_strInvoice.clear();
    ListQuery lines;
    STEP(lines = query());
    ProfitReport::ActiveReport_ReportStart(lines);
}

// A kit counts by its head line: the lines that belong to it are left out.
ListQuery dsrSalesBySalesPersProfDetail::query() const {
    const std::string salesPerson = salesPersonExpression(isJet(context()));
    const auto orZero = [&](const char* column) { return context().utils().NullExpression(column, "0", true); };
    ListQuery query;
    query.text = "SELECT InvoiHdr.InInvoiId, InvoiHdr.InvoiId, " + salesPerson +
                 " As SalesPerson, "
                 " InvoiHdr.InvoiDate, InvoiHdr.ExCurrencyId, InvoiHdr.ExchangeRate, InvoiHdr.InvoiType, " +
                 orZero("InvoiDet.UnitPrice") + " AS UnitPrice, " + orZero("InvoiDet.BaseRowTotal") +
                 " AS BaseRowTotal, "
                 "InvoiDet.Qty, InvoiDet.QtyScrap, InvoiDet.DiscPercent, " +
                 orZero("InvoiDet.Servc") +
                 " AS InvoiDetServc, InvoiDet.ExItemId, InvoiDet.Descr, "
                 " Item.ItemId, Item.Descr1, Item.Servc, "
                 " Item.IsKit, Item.IsAssembly, "
                 " InvoiHdr.SalesPerson, Cust.Name "
                 "FROM "
                 " ((InvoiHdr INNER JOIN InvoiDet ON InvoiDet.ExInvoiId = InvoiHdr.InInvoiId) "
                 " LEFT JOIN Cust On Cust.InCustId = InvoiHdr.ExCustId) "
                 " LEFT JOIN Item On InvoiDet.ExItemid = Item.InItemId "
                 " WHERE InvoiDet.ExKitInvoiDetId Is Null AND "
                 " InvoiHdr.InvoiType IN(" +
                 saleKinds +
                 ") AND "
                 " InvoiHdr.InvoiDate BETWEEN ? AND ?";
    query.values = {m_dtDateFrom, m_dtDateTo};
    if (namesSalesPerson(SalesPerson)) {
        query.text += " AND InvoiHdr.SalesPerson = ? ";
        query.values.emplace_back(SalesPerson);
    }
    if (SalesPerson == Drill::blankSalesPerson)
        query.text += " AND (InvoiHdr.SalesPerson IS Null OR InvoiHdr.SalesPerson = '') ";
    query.order = " ORDER BY " + salesPerson +
                  " ASC, InvoiHdr.InvoiDate, "
                  "InvoiHdr.InvoiId, InvoiDet.InInvoiDetId ";
    query.leading = {salesPerson, "InvoiHdr.InvoiDate"};
    // Under an order of the user's the lines of a document stay together.
    query.ties = {"InvoiHdr.InvoiId", "InvoiDet.InInvoiDetId"};
    return query;
}

void dsrSalesBySalesPersProfDetail::ghSalesPerson_Format() {
    if (rsSales.atEnd()) return;
    std::string salesPerson;
    STEP(salesPerson = rsSales.Collect("SalesPerson").textOrEmpty());
    if (m_SalesPerson == salesPerson) return;
    m_salesPerson = {};
    m_SalesPerson = salesPerson;
    STEP(fldSalesPerson.Text = salesPersonName(rsSales, context()));
    lblTotalName.Caption = "Total " + fldSalesPerson.Text + ":";
    ++m_lngSalesPersonCount;
}

void dsrSalesBySalesPersProfDetail::ghInvoi_Format() {
    if (rsSales.atEnd()) return;
    std::string invoice;
    STEP(invoice = rsSales.Collect("InvoiId").textOrEmpty());
    if (invoice != m_strInvoice) m_invoice = {};
    m_strInvoice = invoice;
    STEP(TotDate.Caption = GetText(2710) + " " + invoice + ":");
}

void dsrSalesBySalesPersProfDetail::Detail_Format() {
    if (rsSales.atEnd()) return;
    const ProfitSum row = readRow();
    add(row, {&m_invoice, &m_salesPerson, &m_grand});
    show("Detail_Format", lineFields, row);
    // The cost looks at the item, what is printed of it at the line: meant, a service line of a stocked item costs.
    bool service = false;
    STEP(service = rsSales.Collect("InvoiDetServc").boolOrFalse());
    if (service) lineFields.cost.Text = "NA";
    showPercent("Detail_Format", lineFields, percentOf(row.profit(), row.sale), percentDigits);
}

// The percent of a document is that of the figures as they print.
void dsrSalesBySalesPersProfDetail::gfInvoi_Format() {
    show("gfInvoi_Format", invoiceFields, m_invoice);
    std::optional<double> percent;
    if (!invoiceFields.sale.Text.empty())
        STEP(percent = percentOf(shown(invoiceFields.profit), shown(invoiceFields.sale)));
    showPercent("gfInvoi_Format", invoiceFields, percent, percentDigits);
}

void dsrSalesBySalesPersProfDetail::gfSalesPerson_Format() {
    show("gfSalesPerson_Format", salesPersonFields, m_salesPerson);
    showPercent("gfSalesPerson_Format", salesPersonFields, percentOf(m_salesPerson.profit(), m_salesPerson.sale),
                percentDigits);
    if (isComparing()) STEP(compareSalesPerson());
}

void dsrSalesBySalesPersProfDetail::ReportFooter_Format() {
    showGrandTotal(grandFields);
    if (isComparing()) STEP(compareGrandTotal());
}

void dsrSalesBySalesPersProfDetail::enterSection(std::string_view name) {
    if (!m_strLastSection.empty() && m_strLastSection != name) m_objTable.reset();
    m_strLastSection = name;
}

void dsrSalesBySalesPersProfDetail::compareSalesPerson() {
    enterSection("gfSalesPerson_Format");
    compare(GetText(1895), lblTotalName.Caption,
            {{lblSalePrice, salesPersonFields.sale},
             {lblCurrPrice, salesPersonFields.cost},
             {lblProfitDoll, salesPersonFields.profit},
             {lblProfitPerc, salesPersonFields.percent}});
}

// The cell of the sales takes the cost: meant, comparisons that were made with it expect it there.
void dsrSalesBySalesPersProfDetail::compareGrandTotal() {
    enterSection("ReportFooter_Format");
    compare(lblGrTotal.Caption, lblGrTotal.Caption,
            {{lblSalePrice, grandFields.cost},
             {lblCurrPrice, grandFields.cost},
             {lblProfitDoll, grandFields.profit},
             {lblProfitPerc, grandFields.percent}});
    m_objComparableReportGen->Close();
}

}  // namespace quillo
