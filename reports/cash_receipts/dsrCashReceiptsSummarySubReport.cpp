#include "reports/cash_receipts/dsrCashReceiptsSummarySubReport.h"

#include "framework/run_frame.h"

namespace quillo {

dsrCashReceiptsSummarySubReport::dsrCashReceiptsSummarySubReport(HostContext& context)
    : Report("dsrCashReceiptsSummarySubReport", context) {
    onFetchData(&dsrCashReceiptsSummarySubReport::ActiveReport_FetchData);
}

void dsrCashReceiptsSummarySubReport::ActiveReport_FetchData(bool& eof) {
    eof = m_position == dicPmtMeth->Count();
    if (eof) return;
    STEP(lblPmtMethCap.Caption = dicPmtMeth->Key(m_position));
    STEP(txtPmtMeth.Text = context().locale().currency(dicPmtMeth->Item(m_position).Amount));
    ++m_position;
}

}  // namespace quillo
