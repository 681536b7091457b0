#pragma once

#include "framework/engine/report.h"

namespace quillo {

// The ledger lines of one transaction, each marked as debit or credit. Its parent gives it the rows and what the
// row of the transaction tells, and uses it again for the next one.
class dsrCashReceiptsGLSubReport final : public Report {
public:
    explicit dsrCashReceiptsGLSubReport(HostContext& context);

    DataControl& rsAccount = data("rsAccount");
    Money ExchangeRate;
    bool DisplayWithForeignCurrency = false;
    std::string SeqNo;  // the drill tag of every line

private:
    void ActiveReport_ReportStart() override;
    void Detail_Format();
    void showAmount();

    Field& fldAccount = field("fldAccount");
    Field& fldAmount = field("fldAmount");
    Field& txtBalanceType = field("txtBalanceType");
};

}  // namespace quillo
