#include "reports/salespersons/dsrSalesBySalesPersProfSummary.h"

#include "framework/drill_tags.h"
#include "reports/salespersons/sales_texts.h"

namespace quillo {

dsrSalesBySalesPersProfSummary::dsrSalesBySalesPersProfSummary(HostContext& context)
    : ProfitReport("dsrSalesBySalesPersProfSummary", context,
                   {.dateOptions = DateDisplay::range,
                    .titleId = 6236,
                    .tables = "InvoiHdr",
                    .filterFlagA = false,
                    .ownOrder = true}) {
    onFormat("ghSalesPerson", &dsrSalesBySalesPersProfSummary::ghSalesPerson_Format);
    onFormat("Detail", &dsrSalesBySalesPersProfSummary::Detail_Format);
    onFormat("gfSalesPerson", &dsrSalesBySalesPersProfSummary::gfSalesPerson_Format);
    onFormat("ReportFooter", &dsrSalesBySalesPersProfSummary::ReportFooter_Format);
}

void dsrSalesBySalesPersProfSummary::ActiveReport_ReportStart() {
    ListQuery lines;
    STEP(lines = query());
    ProfitReport::ActiveReport_ReportStart(lines);
}

std::string dsrSalesBySalesPersProfSummary::salesPersonExpression() const {
    return isJet(context()) ? "IIF(IsNull(InvoiHdr.SalesPerson), '', InvoiHdr.SalesPerson)"
                            : "COALESCE(InvoiHdr.SalesPerson,'')";
}

ListQuery dsrSalesBySalesPersProfSummary::query() const {
    const std::string salesPerson = salesPersonExpression();
    const auto orZero = [&](const char* column) { return context().utils().NullExpression(column, "0", true); };
    ListQuery query;
    query.text = "SELECT " + orZero("InvoiDet.UnitPrice") + " AS UnitPrice, " + orZero("InvoiDet.BaseRowTotal") +
                 "AS BaseRowTotal, "
                 " InvoiDet.Qty, InvoiDet.QtyScrap, InvoiDet.DiscPercent, InvoiDet.ExItemId,"
                 " InvoiHdr.InInvoiId,  "
                 " Item.ItemId, Item.Descr1, " +
                 orZero("Item.Servc") + " AS Servc, Item.IsKit, Item.IsAssembly, " + salesPerson +
                 " As SalesPerson, "
                 " InvoiHdr.ExCurrencyId, InvoiHdr.DetAmnt, InvoiHdr.ExchangeRate, "
                 " InvoiHdr.InvoiDate, InvoiHdr.InvoiType, InvoiHdr.CommissionAmount FROM (InvoiHdr "
                 " INNER JOIN InvoiDet ON InvoiHdr.InInvoiId = InvoiDet.ExInvoiId) "
                 " LEFT JOIN Item On InvoiDet.ExItemId = Item.InItemId WHERE"
                 " InvoiHdr.InvoiType IN(" +
                 saleKinds +
                 ")"
                 " And InvoiDet.ExKitInvoiDetId IS NULL"
                 " AND InvoiHdr.InvoiDate BETWEEN ? AND ? ";
    query.values = {m_dtDateFrom, m_dtDateTo};
    query.order = " ORDER BY " + salesPerson + " ASC, InvoiHdr.InvoiDate, InvoiHdr.InvoiId, InvoiDet.InInvoiDetId";
    query.leading = {salesPerson + " ASC", "InvoiHdr.InvoiDate", "InvoiHdr.InvoiId", "InvoiDet.InInvoiDetId"};
    return query;
}

void dsrSalesBySalesPersProfSummary::ghSalesPerson_Format() {
    m_group = {};
    if (rsSales.atEnd()) return;
    STEP(m_strSalesPersonName = salesPersonName(rsSales, context()));
    ++m_lngSalesPersonCount;
    std::string tag;
    STEP(tag = rsSales.Collect("SalesPerson").textOrEmpty());
    if (tag.empty()) tag = Drill::blankSalesPerson;
    link(tag, {&groupFields.sale, &txtSalesPerson, &groupFields.cost, &groupFields.profit, &groupFields.percent});
}

void dsrSalesBySalesPersProfSummary::Detail_Format() {
    if (rsSales.atEnd()) return;
    add(readRow(), {&m_group, &m_grand});
}

void dsrSalesBySalesPersProfSummary::gfSalesPerson_Format() {
    txtSalesPerson.Text = m_strSalesPersonName;
    show("gfSalesPerson_Format", groupFields, m_group);
    std::optional<double> percent;
    STEP(percent = percentOf(shown(groupFields.profit), m_group.sale));
    showPercent("gfSalesPerson_Format", groupFields, percent, percentDigits);
}

void dsrSalesBySalesPersProfSummary::ReportFooter_Format() {
    showGrandTotal(grandFields);
    if (isComparing()) STEP(compareGrandTotal());
}

void dsrSalesBySalesPersProfSummary::compareGrandTotal() {
    compare(lblGrTotal.Caption, lblGrTotal.Caption,
            {{lblSale, grandFields.sale},
             {lblCost, grandFields.cost},
             {lblProfitDoll, grandFields.profit},
             {lblProfitPerc, grandFields.percent}});
    m_objComparableReportGen->Close();
}

}  // namespace quillo
