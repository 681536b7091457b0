#pragma once

#include "reports/day_end/invoice_detail.h"

namespace quillo {

// The sales lines of one cash register on one account: what stands behind an account of the day end by register.
class dsrDayEndBalanceByCashInvDetail final : public DayEndInvoiceDetail {
public:
    explicit dsrDayEndBalanceByCashInvDetail(HostContext& context);

private:
    Till::Query query() override;

    std::string TrxSerNo;  // the register; empty: all of them
};

}  // namespace quillo
