#include "reports/day_end/dsrDayEndBalanceByCashDepDetail.h"

#include "reports/day_end/till.h"

namespace quillo {

dsrDayEndBalanceByCashDepDetail::dsrDayEndBalanceByCashDepDetail(HostContext& context)
    : ReportFrame("dsrDayEndBalanceByCashDepDetail", context, {.dateOptions = DateDisplay::range, .titleId = 6025}) {
    property("TrxSerNo", TrxSerNo);
    property("CurrencyID", CurrencyID);
}

void dsrDayEndBalanceByCashDepDetail::ActiveReport_ReportStart() {
    STEP(Translate());
    STEP(setDateCaption());
    Till::Query query{"SELECT * FROM InvoiCashDeposit"};
    if (TrxSerNo.empty()) {
        query.add(" WHERE InvoiCashDeposit.ICDDate BETWEEN ? AND ?", {m_dtDateFrom, m_dtDateTo});
    } else {
        query.add(" WHERE InvoiCashDeposit.ICDCashReg = ? AND InvoiCashDeposit.ICDDate BETWEEN ? AND ?",
                  {TrxSerNo, m_dtDateFrom, m_dtDateTo});
    }
    if (CurrencyID != 0) query.add(" AND ExCurrencyId=" + std::to_string(CurrencyID));
    query.add(" ORDER BY ICDDate, ICDTime");
    STEP(rsDayEndBal.Recordset = execute(query.text, query.values));
}

}  // namespace quillo
