#pragma once

#include "reports/day_end/payment_detail.h"

namespace quillo {

// The receipts of one cash register: what stands behind a payment method of the day end by register, or a line of its
// drawer.
class dsrDayEndBalanceByCashPmtDetail final : public DayEndPaymentDetail {
public:
    explicit dsrDayEndBalanceByCashPmtDetail(HostContext& context);

private:
    Taker taker() const override;

    std::string TrxSerNo;  // the register; empty: all of them
};

}  // namespace quillo
