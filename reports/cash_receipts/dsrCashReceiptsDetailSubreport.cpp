#include "reports/cash_receipts/dsrCashReceiptsDetailSubreport.h"

#include "reports/shared/account_texts.h"

namespace quillo {

dsrCashReceiptsDetailSubreport::dsrCashReceiptsDetailSubreport(HostContext& context)
    : SubReportFrame("dsrCashReceiptsDetailSubreport", context) {
    property("ExGLAcctId", ExGLAcctId);
    onFormat("ReportHeader", &dsrCashReceiptsDetailSubreport::ReportHeader_Format);
    onFormat("ghGLAcct", &dsrCashReceiptsDetailSubreport::ghGLAcct_Format);
    onFormat("Detail", &dsrCashReceiptsDetailSubreport::Detail_Format);
    onFormat("gfGLAcct", &dsrCashReceiptsDetailSubreport::gfGLAcct_Format);
    onFormat("ReportFooter", &dsrCashReceiptsDetailSubreport::ReportFooter_Format);
    ActiveReport_Initialize();
}

void dsrCashReceiptsDetailSubreport::ActiveReport_Initialize() {
    bool numbers = true;
    STEP(numbers = usesAccountNumbers(context()));
    if (numbers) return;
    takePlaceOf(lblCompteCap, lblDescrCap);
    takePlaceOf(fldAccount, fldDescr);
}

void dsrCashReceiptsDetailSubreport::ActiveReport_ReportStart() {
    STEP(Translate());
}

JournalColumns dsrCashReceiptsDetailSubreport::amounts() {
    return {{&lblDebitCap, &txtTotalDebit, &txtGrTotalDebit},
            {&lblCreditCap, &txtTotalCredit, &txtGrTotalCredit},
            {&LineTotal1, &LineTotal2, &LineTotal3}};
}

void dsrCashReceiptsDetailSubreport::ReportHeader_Format() {
    m_distribution.start();
}

void dsrCashReceiptsDetailSubreport::ghGLAcct_Format() {
    m_distribution.openAccount();
}

void dsrCashReceiptsDetailSubreport::Detail_Format() {
    if (rsInvoiJournal.atEnd()) return;
    Money amount;
    STEP(amount = rsInvoiJournal.Collect("DetAmnt").moneyOrZero());
    STEP(m_distribution.add(amount));
    if (amount.isZero()) LayoutAction = LayoutActions::dropRow;
}

void dsrCashReceiptsDetailSubreport::gfGLAcct_Format() {
    STEP(m_distribution.showAccount(txtTotalDebit, txtTotalCredit, locale()));
}

void dsrCashReceiptsDetailSubreport::ReportFooter_Format() {
    m_distribution.showTotal(txtGrTotalDebit, txtGrTotalCredit, locale());
}

}  // namespace quillo
