#include "reports/day_end/dsrDayEndBalanceByUsrInvDetail.h"

namespace quillo {

dsrDayEndBalanceByUsrInvDetail::dsrDayEndBalanceByUsrInvDetail(HostContext& context)
    : DayEndInvoiceDetail("dsrDayEndBalanceByUsrInvDetail", context) {
    property("UsrNo", UsrNo);
}

Till::Query dsrDayEndBalanceByUsrInvDetail::query() {
    Till::Query query{codeColumn("code")};
    query
        .add(
            "GLAcct.GLAcctId, GLAcct.Descr as GLAcctDescr, InvoiHdr.*, InvoiDet.ExInvoiId, InvoiDet.ExSaleAcctId, "
            " (InvoiDet.UnitPrice * InvoiHdr.ExchangeRate) AS UnitPrice,"
            " InvoiDet.Descr as InvoiDetDescr, InvoiDet.Qty, Item.ItemId, "
            " ((InvoiDet.Qty * InvoiDet.UnitPrice * (1 - InvoiDet.DiscPercent/100)) * InvoiHdr.ExchangeRate) As "
            "Price, ")
        .add(context().utils().RoundExpression("(InvoiDet.Qty*InvoiDet.UnitPrice * InvoiHdr.ExchangeRate)", false))
        .add(
            " AS Price1,"
            " InvoiDet.DiscPercent, InvoiHdr.ExUsrKey As UserName"
            " FROM ((InvoiHdr INNER JOIN (InvoiDet LEFT JOIN Item ON InvoiDet.ExItemId = Item.InItemId) ON "
            " InvoiHdr.InInvoiId = InvoiDet.ExInvoiId) LEFT JOIN GLAcct ON "
            " GLAcct.InGLAcctId = InvoiDet.ExSaleAcctId)"
            " WHERE "
            " InvoiDet.ExSaleAcctId = ?"
            " AND InvoiHdr.ExUsrKey = ? AND InvoiHdr.CashierSale <> 0 AND InvoiHdr.InvoiType NOT IN(",
            {GLAcctId, UsrNo})
        .add(Till::uncounted)
        .add(
            ")"
            " AND InvoiHdr.InvoiDate BETWEEN ? AND ?"
            " ORDER BY InvoiHdr.InvoiDate, InvoiHdr.InvoiTime",
            {m_dtDateFrom, m_dtDateTo});
    return query;
}

}  // namespace quillo
