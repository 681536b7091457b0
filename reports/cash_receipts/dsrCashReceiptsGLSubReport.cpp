#include "reports/cash_receipts/dsrCashReceiptsGLSubReport.h"

#include "framework/drill_tags.h"
#include "framework/run_frame.h"

namespace quillo {

dsrCashReceiptsGLSubReport::dsrCashReceiptsGLSubReport(HostContext& context)
    : Report("dsrCashReceiptsGLSubReport", context) {
    onFormat("Detail", &dsrCashReceiptsGLSubReport::Detail_Format);
}

void dsrCashReceiptsGLSubReport::ActiveReport_ReportStart() {
    STEP(context().localizer().Translate(*this));
}

void dsrCashReceiptsGLSubReport::Detail_Format() {
    if (rsAccount.atEnd()) return;
    STEP(fldAccount.Text = rsAccount.Collect("GLDescr").textOrEmpty());
    STEP(showAmount());
    STEP(link(SeqNo, {&fldAccount, &fldAmount}));
}

// The ledger is kept in home currency: a foreign amount is divided back by the rate, meant, where the payment's lines
// are taken as they are stored.
void dsrCashReceiptsGLSubReport::showAmount() {
    Money amount = rsAccount.Collect("DetAmnt").moneyOrZero();
    if (DisplayWithForeignCurrency) amount = amount / ExchangeRate;
    fldAmount.Text = context().locale().currency(amount < Money() ? -amount : amount, 2);
    txtBalanceType.Text = amount.isZero() ? ".." : amount > Money() ? "DT" : "CT";
}

}  // namespace quillo
