#include "reports/sales_journal/dsrSalesJournalDetailSubreport.h"

#include "framework/run_frame.h"
#include "framework/values/errors.h"

namespace quillo {
namespace {

// The description takes the room of the number in front of it.
void takePlaceOf(Control& number, Control& description) {
    number.Visible = false;
    description.Width += description.Left - number.Left;
    description.Left = number.Left;
}

}  // namespace

dsrSalesJournalDetailSubreport::dsrSalesJournalDetailSubreport(HostContext& context)
    : Report("dsrSalesJournalDetailSubreport", context) {
    STEP(if (!Variant(context.company().GetParameter("UseAccountNumbers", "True")).toBool()) hideAccountNumbers());
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
    STEP(txtTotalDebit.Text = amountText(net.debit));
    STEP(txtTotalCredit.Text = amountText(net.credit));
    STEP(m_grandTotal.add(net));
}

void dsrSalesJournalDetailSubreport::ReportFooter_Format() {
    STEP(txtGrTotalDebit.Text = context().locale().currency(m_grandTotal.debit));
    STEP(txtGrTotalCredit.Text = context().locale().currency(m_grandTotal.credit));
}

std::string dsrSalesJournalDetailSubreport::amountText(Money amount) const {
    return amount.isZero() ? std::string() : context().locale().currency(amount);
}

std::string dsrSalesJournalDetailSubreport::GetText(int id) const {
    if (m_objApplication == nullptr) throw NameError("The report has no application object");
    return m_objApplication->GetText(id);
}

}  // namespace quillo
