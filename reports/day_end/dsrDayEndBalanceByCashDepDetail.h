#pragma once

#include "framework/run_frame.h"

namespace quillo {

// What was taken out of the drawer of one cash register: what stands behind the deposits of the day end by register.
class dsrDayEndBalanceByCashDepDetail final : public ReportFrame {
public:
    explicit dsrDayEndBalanceByCashDepDetail(HostContext& context);

private:
    void ActiveReport_ReportStart() override;

    std::string TrxSerNo;  // the register; empty: all of them
    int CurrencyID = 0;    // 0: all currencies

    DataControl& rsDayEndBal = data("rsDayEndBal");
};

}  // namespace quillo
