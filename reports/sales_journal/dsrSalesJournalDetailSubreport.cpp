#include "reports/sales_journal/dsrSalesJournalDetailSubreport.h"

#include "framework/run_frame.h"
#include "framework/shared/account_texts.h"
#include "framework/values/errors.h"

namespace quillo {
dsrSalesJournalDetailSubreport::dsrSalesJournalDetailSubreport(HostContext& context)
    : Report("dsrSalesJournalDetailSubreport", context) {
    STEP(if (!usesAccountNumbers(context)) hideAccountNumbers());
    onFormat("ReportHeader", &dsrSalesJournalDetailSubreport::ReportHeader_Format);
    onFormat("ghGLAcct", &dsrSalesJournalDetailSubreport::ghGLAcct_Format);
    onFormat("Detail", &dsrSalesJournalDetailSubreport::Detail_Format);
    onFormat("gfGLAcct", &dsrSalesJournalDetailSubreport::gfGLAcct_Format);
    onFormat("ReportFooter", &dsrSalesJournalDetailSubreport::ReportFooter_Format);
}

void dsrSalesJournalDetailSubreport::hideAccountNumbers() {
    takePlaceOf(lblCompteCap, lblDescrCap);
    takePlaceOf(fldAccount, fldDescr);
}

void dsrSalesJournalDetailSubreport::ActiveReport_ReportStart() {
    m_grandTotal = {};
}

// Nothing translates a sub-report as a whole: its captions are set one by one.
void dsrSalesJournalDetailSubreport::ReportHeader_Format() {
    STEP(m_grandTotal = {});
    STEP(lblCompteCap.Caption = GetText(2810));
    STEP(lblDescrCap.Caption = GetText(1789));
    STEP(lblDebitCap.Caption = GetText(2656));
    STEP(lblCreditCap.Caption = GetText(2657));
    STEP(DistributionGL.Caption = GetText(2690));
}

void dsrSalesJournalDetailSubreport::ghGLAcct_Format() {
    m_account = {};
}

void dsrSalesJournalDetailSubreport::Detail_Format() {
    if (rsInvoiJournal.atEnd()) return;
    STEP(const Money amount = rsInvoiJournal.Collect("DetAmnt").toMoney(); m_account.add(amount);
         if (amount.isZero()) LayoutAction = LayoutActions::dropRow);
}

// An account whose sides are equal keeps its line, with both amounts blank.
void dsrSalesJournalDetailSubreport::gfGLAcct_Format() {
    const DebitCredit net = m_account.net();
    STEP(txtTotalDebit.Text = sideText(context().locale(), net.debit));
    STEP(txtTotalCredit.Text = sideText(context().locale(), net.credit));
    STEP(m_grandTotal.add(net));
}

void dsrSalesJournalDetailSubreport::ReportFooter_Format() {
    STEP(txtGrTotalDebit.Text = context().locale().currency(m_grandTotal.debit));
    STEP(txtGrTotalCredit.Text = context().locale().currency(m_grandTotal.credit));
}

std::string dsrSalesJournalDetailSubreport::GetText(int id) const {
    if (m_objApplication == nullptr) throw NameError("The report has no application object");
    return m_objApplication->GetText(id);
}

}  // namespace quillo
