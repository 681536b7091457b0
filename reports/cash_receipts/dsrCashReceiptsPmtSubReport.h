#pragma once

#include "framework/hosted_report.h"
#include "reports/cash_receipts/receipt_row.h"

namespace quillo {

// The invoices that one payment settled. Its parent gives it the rows and what the row of the payment tells, and
// uses it again for the next payment.
class dsrCashReceiptsPmtSubReport final : public SubReportFrame, public ReceiptRow {
public:
    explicit dsrCashReceiptsPmtSubReport(HostContext& context);

    DataControl& rsPayments = data("rsPayments");

private:
    void ActiveReport_ReportStart() override;
    void Detail_Format();
    Money amountOf(std::string_view column) const;

    Field& fldNumber = field("fldNumber");
    Field& fldDate = field("fldDate");
    Field& fldPayment = field("fldPayment");
    Field& fldDiscount = field("fldDiscount");
};

}  // namespace quillo
