#include "reports/day_end/dsrDayEndBalanceByUsrPmtDetail.h"

namespace quillo {

dsrDayEndBalanceByUsrPmtDetail::dsrDayEndBalanceByUsrPmtDetail(HostContext& context)
    : DayEndPaymentDetail("dsrDayEndBalanceByUsrPmtDetail", context) {
    property("UsrNo", UsrNo);
}

dsrDayEndBalanceByUsrPmtDetail::Taker dsrDayEndBalanceByUsrPmtDetail::taker() const {
    return {"ExUsrKey", UsrNo};
}

}  // namespace quillo
