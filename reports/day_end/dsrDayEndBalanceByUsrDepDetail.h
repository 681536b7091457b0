#pragma once

#include "framework/run_frame.h"

namespace quillo {

// What one user took out of the drawer: what stands behind the deposits of the day end by user.
class dsrDayEndBalanceByUsrDepDetail final : public ReportFrame {
public:
    explicit dsrDayEndBalanceByUsrDepDetail(HostContext& context);

private:
    void ActiveReport_ReportStart() override;
    void ghTrxSerNo_Format();

    std::string UsrNo;   // the user's key
    int CurrencyID = 0;  // 0: all currencies

    Field& txtICDOperatorKey = field("txtICDOperatorKey");
    DataControl& rsDayEndBal = data("rsDayEndBal");
};

}  // namespace quillo
