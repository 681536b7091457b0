#pragma once

#include "reports/day_end/payment_detail.h"

namespace quillo {

// The receipts of one user: what stands behind a payment method of the day end by user, or a line of its drawer.
class dsrDayEndBalanceByUsrPmtDetail final : public DayEndPaymentDetail {
public:
    explicit dsrDayEndBalanceByUsrPmtDetail(HostContext& context);

private:
    Taker taker() const override;

    std::string UsrNo;  // the user's key
};

}  // namespace quillo
