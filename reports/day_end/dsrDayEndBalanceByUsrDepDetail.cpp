#include "reports/day_end/dsrDayEndBalanceByUsrDepDetail.h"

#include "reports/day_end/till.h"

namespace quillo {

dsrDayEndBalanceByUsrDepDetail::dsrDayEndBalanceByUsrDepDetail(HostContext& context)
    : ReportFrame("dsrDayEndBalanceByUsrDepDetail", context, {.dateOptions = DateDisplay::range, .titleId = 6025}) {
    property("UsrNo", UsrNo);
    property("CurrencyID", CurrencyID);
    onFormat("ghTrxSerNo", &dsrDayEndBalanceByUsrDepDetail::ghTrxSerNo_Format);
}

void dsrDayEndBalanceByUsrDepDetail::ActiveReport_ReportStart() {
    STEP(Translate());
    STEP(setDateCaption());
    Till::Query query{
        "SELECT InvoiCashDeposit.*, InvoiCashDeposit.ICDOperatorKey as UserName "
        "FROM InvoiCashDeposit "
        "WHERE InvoiCashDeposit.ICDOperatorKey = ? AND InvoiCashDeposit.ICDDate BETWEEN ? AND ?",
        {UsrNo, m_dtDateFrom, m_dtDateTo}};
    if (CurrencyID != 0) query.add(" AND ExCurrencyId=" + std::to_string(CurrencyID));
    query.add(" ORDER BY ICDDate, ICDTime");
    STEP(rsDayEndBal.Recordset = execute(query.text, query.values));
}

void dsrDayEndBalanceByUsrDepDetail::ghTrxSerNo_Format() {
    if (rsDayEndBal.atEnd()) return;
    STEP(txtICDOperatorKey.Text = rsDayEndBal.Collect("UserName").textOrEmpty());
}

}  // namespace quillo
