#pragma once

#include "reports/day_end/invoice_detail.h"

namespace quillo {

// The sales lines of one user on one account: what stands behind an account of the day end by user.
class dsrDayEndBalanceByUsrInvDetail final : public DayEndInvoiceDetail {
public:
    explicit dsrDayEndBalanceByUsrInvDetail(HostContext& context);

private:
    Till::Query query() override;

    std::string UsrNo;  // the user's key
};

}  // namespace quillo
