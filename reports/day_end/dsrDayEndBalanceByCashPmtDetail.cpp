#include "reports/day_end/dsrDayEndBalanceByCashPmtDetail.h"

namespace quillo {

dsrDayEndBalanceByCashPmtDetail::dsrDayEndBalanceByCashPmtDetail(HostContext& context)
    : DayEndPaymentDetail("dsrDayEndBalanceByCashPmtDetail", context) {
    property("TrxSerNo", TrxSerNo);
}

dsrDayEndBalanceByCashPmtDetail::Taker dsrDayEndBalanceByCashPmtDetail::taker() const {
    return {"TrxSerNo", TrxSerNo, TrxSerNo.empty()};
}

}  // namespace quillo
