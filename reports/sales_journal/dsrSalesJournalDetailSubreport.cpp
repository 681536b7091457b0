#include "reports/sales_journal/dsrSalesJournalDetailSubreport.h"

#include "reports/shared/account_texts.h"

namespace quillo {

dsrSalesJournalDetailSubreport::dsrSalesJournalDetailSubreport(HostContext& context)
    : SubReportFrame("dsrSalesJournalDetailSubreport", context) {
    onFormat("ReportHeader", &dsrSalesJournalDetailSubreport::ReportHeader_Format);
    onFormat("ghGLAcct", &dsrSalesJournalDetailSubreport::ghGLAcct_Format);
    onFormat("Detail", &dsrSalesJournalDetailSubreport::Detail_Format);
    onFormat("gfGLAcct", &dsrSalesJournalDetailSubreport::gfGLAcct_Format);
    onFormat("ReportFooter", &dsrSalesJournalDetailSubreport::ReportFooter_Format);
    ActiveReport_Initialize();
}

void dsrSalesJournalDetailSubreport::ActiveReport_Initialize() {
    bool numbers = true;
    STEP(numbers = usesAccountNumbers(context()));
    if (numbers) return;
    takePlaceOf(lblCompteCap, lblDescrCap);
    takePlaceOf(fldAccount, fldDescr);
}

JournalColumns dsrSalesJournalDetailSubreport::amounts() {
    return {{&lblDebitCap, &txtTotalDebit, &txtGrTotalDebit},
            {&lblCreditCap, &txtTotalCredit, &txtGrTotalCredit},
            {&LineTotal1, &LineTotal2, &LineTotal3}};
}

// Nothing translates a sub-report as a whole: its captions are set one by one.
void dsrSalesJournalDetailSubreport::ReportHeader_Format() {
    m_distribution.start();
    STEP(lblCompteCap.Caption = GetText(2810));
    STEP(lblDescrCap.Caption = GetText(1789));
    STEP(lblDebitCap.Caption = GetText(2656));
    STEP(lblCreditCap.Caption = GetText(2657));
    STEP(DistributionGL.Caption = GetText(2690));
}

void dsrSalesJournalDetailSubreport::ghGLAcct_Format() {
    m_distribution.openAccount();
}

void dsrSalesJournalDetailSubreport::Detail_Format() {
    if (rsInvoiJournal.atEnd()) return;
    Money amount;
    STEP(amount = rsInvoiJournal.Collect("DetAmnt").toMoney());
    STEP(m_distribution.add(amount));
    if (amount.isZero()) LayoutAction = LayoutActions::dropRow;
}

void dsrSalesJournalDetailSubreport::gfGLAcct_Format() {
    STEP(m_distribution.showAccount(txtTotalDebit, txtTotalCredit, locale()));
}

void dsrSalesJournalDetailSubreport::ReportFooter_Format() {
    m_distribution.showTotal(txtGrTotalDebit, txtGrTotalCredit, locale());
}

}  // namespace quillo
