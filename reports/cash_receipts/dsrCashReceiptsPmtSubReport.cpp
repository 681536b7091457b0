#include "reports/cash_receipts/dsrCashReceiptsPmtSubReport.h"

#include "framework/drill_tags.h"
#include "framework/run_frame.h"

namespace quillo {

dsrCashReceiptsPmtSubReport::dsrCashReceiptsPmtSubReport(HostContext& context)
    : Report("dsrCashReceiptsPmtSubReport", context) {
    onFormat("Detail", &dsrCashReceiptsPmtSubReport::Detail_Format);
}

void dsrCashReceiptsPmtSubReport::ActiveReport_ReportStart() {
    STEP(context().localizer().Translate(*this));
}

// Payments are kept in their own currency.
Money dsrCashReceiptsPmtSubReport::amountOf(std::string_view column) const {
    const Money amount = rsPayments.Collect(column).moneyOrZero();
    return DisplayWithForeignCurrency ? amount : amount * ExchangeRate;
}

void dsrCashReceiptsPmtSubReport::Detail_Format() {
    if (rsPayments.atEnd()) return;
    const LocaleFormat& locale = context().locale();
    STEP(fldNumber.Text = rsPayments.Collect("InvoiId").textOrEmpty());
    STEP(fldDate.Text = context().utils().DateText(rsPayments.Collect("PmtDate")));
    STEP(fldPayment.Text = locale.currency(amountOf("PmtAmnt"), 2));
    STEP(fldDiscount.Text = locale.currency(amountOf("PmtDisc"), 2));
    STEP(link(SeqNo, {&fldNumber, &fldDate, &fldPayment, &fldDiscount}));
}

}  // namespace quillo
