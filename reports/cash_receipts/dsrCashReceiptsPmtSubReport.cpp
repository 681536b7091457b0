#include "reports/cash_receipts/dsrCashReceiptsPmtSubReport.h"

#include "framework/drill_tags.h"

namespace quillo {

dsrCashReceiptsPmtSubReport::dsrCashReceiptsPmtSubReport(HostContext& context)
    : SubReportFrame("dsrCashReceiptsPmtSubReport", context) {
    onFormat("Detail", &dsrCashReceiptsPmtSubReport::Detail_Format);
}

void dsrCashReceiptsPmtSubReport::ActiveReport_ReportStart() {
    STEP(Translate());
}

// Payments are kept in their own currency.
Money dsrCashReceiptsPmtSubReport::amountOf(std::string_view column) const {
    const Money amount = rsPayments.Collect(column).moneyOrZero();
    return DisplayWithForeignCurrency ? amount : amount * ExchangeRate;
}

void dsrCashReceiptsPmtSubReport::Detail_Format() {
    if (rsPayments.atEnd()) return;
    for (Field* text : {&fldNumber, &fldDate, &fldPayment, &fldDiscount}) text->Text.clear();
    STEP(fldNumber.Text = rsPayments.Collect("InvoiId").textOrEmpty());
    STEP(fldDate.Text = context().utils().DateText(rsPayments.Collect("PmtDate")));
    STEP(fldPayment.Text = locale().currency(amountOf("PmtAmnt"), 2));
    STEP(fldDiscount.Text = locale().currency(amountOf("PmtDisc"), 2));
    link(SeqNo, {&fldNumber, &fldDate, &fldPayment, &fldDiscount});
}

}  // namespace quillo
