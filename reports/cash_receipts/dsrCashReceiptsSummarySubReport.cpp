#include "reports/cash_receipts/dsrCashReceiptsSummarySubReport.h"

namespace quillo {

dsrCashReceiptsSummarySubReport::dsrCashReceiptsSummarySubReport(HostContext& context)
    : SubReportFrame("dsrCashReceiptsSummarySubReport", context) {
    onFetchData(&dsrCashReceiptsSummarySubReport::ActiveReport_FetchData);
}

void dsrCashReceiptsSummarySubReport::ActiveReport_FetchData(bool& eof) {
    eof = m_position == dicPmtMeth->Count();
    if (eof) return;
    lblPmtMethCap.Caption = dicPmtMeth->Key(m_position);
    txtPmtMeth.Text = locale().currency(dicPmtMeth->Item(m_position).Amount);
    ++m_position;
}

}  // namespace quillo
