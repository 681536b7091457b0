#include "reports/cash_receipts/dsrCashReceiptsDetailSubreport.h"

#include "framework/run_frame.h"
#include "framework/shared/account_texts.h"

namespace quillo {

dsrCashReceiptsDetailSubreport::dsrCashReceiptsDetailSubreport(HostContext& context)
    : Report("dsrCashReceiptsDetailSubreport", context) {
    property("ExGLAcctId", ExGLAcctId);
    onFormat("ReportHeader", &dsrCashReceiptsDetailSubreport::ReportHeader_Format);
    onFormat("ghGLAcct", &dsrCashReceiptsDetailSubreport::ghGLAcct_Format);
    onFormat("Detail", &dsrCashReceiptsDetailSubreport::Detail_Format);
    onFormat("gfGLAcct", &dsrCashReceiptsDetailSubreport::gfGLAcct_Format);
    onFormat("ReportFooter", &dsrCashReceiptsDetailSubreport::ReportFooter_Format);
    STEP(if (!usesAccountNumbers(context)) hideAccountNumbers());
}

void dsrCashReceiptsDetailSubreport::hideAccountNumbers() {
    takePlaceOf(lblCompteCap, lblDescrCap);
    takePlaceOf(fldAccount, fldDescr);
}

void dsrCashReceiptsDetailSubreport::ActiveReport_ReportStart() {
    m_grandTotal = {};
    STEP(context().localizer().Translate(*this));
}

void dsrCashReceiptsDetailSubreport::ReportHeader_Format() {
    m_grandTotal = {};
}

void dsrCashReceiptsDetailSubreport::ghGLAcct_Format() {
    m_account = {};
}

void dsrCashReceiptsDetailSubreport::Detail_Format() {
    if (rsInvoiJournal.atEnd()) return;
    STEP(addAmount());
}

// Sums what is stored, unlike the body, which sums rounded amounts: meant, an account shows its books.
void dsrCashReceiptsDetailSubreport::addAmount() {
    const Money amount = rsInvoiJournal.Collect("DetAmnt").moneyOrZero();
    if (amount.isZero()) {
        LayoutAction = LayoutActions::dropRow;
    } else {
        m_account.add(amount);
    }
}

void dsrCashReceiptsDetailSubreport::gfGLAcct_Format() {
    const DebitCredit net = m_account.net();
    STEP(txtTotalDebit.Text = sideText(context().locale(), net.debit));
    STEP(txtTotalCredit.Text = sideText(context().locale(), net.credit));
    STEP(m_grandTotal.add(net));
}

void dsrCashReceiptsDetailSubreport::ReportFooter_Format() {
    STEP(txtGrTotalDebit.Text = context().locale().currency(m_grandTotal.debit));
    STEP(txtGrTotalCredit.Text = context().locale().currency(m_grandTotal.credit));
}

}  // namespace quillo
