#include "reports/day_end/dsrDayEndBalanceByCashInvDetail.h"

namespace quillo {

dsrDayEndBalanceByCashInvDetail::dsrDayEndBalanceByCashInvDetail(HostContext& context)
    : DayEndInvoiceDetail("dsrDayEndBalanceByCashInvDetail", context) {
    property("TrxSerNo", TrxSerNo);
}

Till::Query dsrDayEndBalanceByCashInvDetail::query() {
    Till::Query query{codeColumn("Code")};
    query
        .add(
            " GLAcct.GLAcctId, GLAcct.Descr as GLAcctDescr, InvoiHdr.*, InvoiDet.ExInvoiId, "
            " InvoiDet.ExSaleAcctId, "
            " (InvoiDet.UnitPrice * InvoiHdr.ExchangeRate) As UnitPrice,"
            " (InvoiDet.Qty * InvoiDet.UnitPrice * (1 - InvoiDet.DiscPercent/100) * InvoiHdr.ExchangeRate) As Price,")
        .add(context().utils().RoundExpression("(InvoiDet.Qty * InvoiDet.UnitPrice  * InvoiHdr.ExchangeRate)", false))
        .add(
            " as Price1, InvoiDet.DiscPercent"
            " FROM (InvoiHdr INNER JOIN (InvoiDet LEFT JOIN Item ON InvoiDet.ExItemId = Item.InItemId) ON "
            " InvoiHdr.InInvoiId = InvoiDet.ExInvoiId) LEFT JOIN GLAcct ON "
            " GLAcct.InGLAcctId = InvoiDet.ExSaleAcctId WHERE "
            " InvoiDet.ExSaleAcctId = ?"
            " AND InvoiHdr.CashierSale <> 0 AND InvoiHdr.InvoiType NOT IN(",
            {GLAcctId})
        .add(Till::uncounted)
        .add(")");
    if (!TrxSerNo.empty()) query.add(" AND InvoiHdr.TrxSerNo = ?", {TrxSerNo});
    query.add(" AND InvoiHdr.InvoiDate BETWEEN ? AND ? ORDER BY InvoiHdr.InvoiDate, InvoiHdr.InvoiTime",
              {m_dtDateFrom, m_dtDateTo});
    return query;
}

}  // namespace quillo
