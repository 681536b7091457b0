#pragma once

#include "framework/hosted_report.h"
#include "reports/cash_receipts/payment_methods.h"

namespace quillo {

// The total of each payment method, a line a method, fed from the methods that its parent met. Made anew for each
// place where it prints.
class dsrCashReceiptsSummarySubReport final : public SubReportFrame {
public:
    explicit dsrCashReceiptsSummarySubReport(HostContext& context);

    std::shared_ptr<const PaymentMethods> dicPmtMeth = std::make_shared<PaymentMethods>();

private:
    void ActiveReport_ReportStart() override { m_position = 0; }
    void ActiveReport_FetchData(bool& eof);

    Label& lblPmtMethCap = label("lblPmtMethCap");
    Field& txtPmtMeth = field("txtPmtMeth");

    int m_position = 0;
};

}  // namespace quillo
