#include "reports/cash_receipts/dsrCashReceiptsGLSubReport.h"

#include "framework/drill_tags.h"

namespace quillo {

dsrCashReceiptsGLSubReport::dsrCashReceiptsGLSubReport(HostContext& context)
    : SubReportFrame("dsrCashReceiptsGLSubReport", context) {
    onFormat("Detail", &dsrCashReceiptsGLSubReport::Detail_Format);
}

void dsrCashReceiptsGLSubReport::ActiveReport_ReportStart() {
    STEP(Translate());
}

// The ledger is kept in home currency: a foreign amount is divided back by the rate, meant, where the payment's lines
// are taken as they are stored.
void dsrCashReceiptsGLSubReport::Detail_Format() {
    if (rsAccount.atEnd()) return;
    fldAccount.Text = rsAccount.Collect("GLDescr").textOrEmpty();
    fldAmount.Text.clear();  // an amount that cannot be told shows none
    txtBalanceType.Text.clear();
    std::optional<Money> amount;
    STEP(amount = rsAccount.Collect("DetAmnt").moneyOrZero() /
                  (DisplayWithForeignCurrency ? ExchangeRate : Money::fromInteger(1)));
    if (amount) {
        STEP(fldAmount.Text = locale().currency(*amount < Money() ? -*amount : *amount, 2));
        txtBalanceType.Text = amount->isZero() ? ".." : *amount > Money() ? "DT" : "CT";
    }
    link(SeqNo, {&fldAccount, &fldAmount});
}

}  // namespace quillo
