#pragma once

#include "framework/hosted_report.h"
#include "reports/cash_receipts/receipt_row.h"

namespace quillo {

// The ledger lines of one transaction, each marked as debit or credit. Its parent gives it the rows and what the
// row of the transaction tells, and uses it again for the next one.
class dsrCashReceiptsGLSubReport final : public SubReportFrame, public ReceiptRow {
public:
    explicit dsrCashReceiptsGLSubReport(HostContext& context);

    DataControl& rsAccount = data("rsAccount");

private:
    void ActiveReport_ReportStart() override;
    void Detail_Format();

    Field& fldAccount = field("fldAccount");
    Field& fldAmount = field("fldAmount");
    Field& txtBalanceType = field("txtBalanceType");
};

}  // namespace quillo
