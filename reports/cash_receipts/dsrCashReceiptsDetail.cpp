#include "reports/cash_receipts/dsrCashReceiptsDetail.h"

#include "reports/cash_receipts/dsrCashReceiptsDetailSubreport.h"
#include "reports/shared/MUtils.h"
#include "reports/shared/account_texts.h"
#include "reports/shared/journal_columns.h"

namespace quillo {

dsrCashReceiptsDetail::dsrCashReceiptsDetail(HostContext& context)
    : SegmentReport("dsrCashReceiptsDetail", context,
                    {.dateOptions = DateDisplay::range,
                     .titleId = 6082,
                     .companyCurrency = true,
                     .foreign = Foreign::kept,
                     .filterFlagA = false,
                     .ownOrder = true}) {
    property("SeqNo", SeqNo);
    property("SubReportVisible", SubReportVisible);
    onFormat("PageHeader", &dsrCashReceiptsDetail::PageHeader_Format);
    onFormat("ghSeqNo", &dsrCashReceiptsDetail::ghSeqNo_Format);
    onFormat("ghForeignCurrency", &dsrCashReceiptsDetail::ghForeignCurrency_Format);
    onFormat("Detail", &dsrCashReceiptsDetail::Detail_Format);
    onFormat("gfSeqNo", &dsrCashReceiptsDetail::gfSeqNo_Format);
    onFormat("ReportFooter", &dsrCashReceiptsDetail::ReportFooter_Format);
}

std::string dsrCashReceiptsDetail::filterTables() const {
    return MUtils::HasUnknownProject(context()) ? "GLDet, GLAcct, ProjInfo, WorldCurrency"
                                                : "GLDet, GLAcct, WorldCurrency";
}

void dsrCashReceiptsDetail::ActiveReport_ReportStart() {
    // The footer's two page breaks leave an empty page. The journal of one transaction keeps it: meant.
    RemovesEmptyPages = SeqNo == 0;
    STEP(m_lngHomeCurrencyId = currencies().CieHomeCurrencyId());
    STEP(m_bUsesProjects = MUtils::HasUnknownProject(context()));
    STEP(m_bAccountNumbers = usesAccountNumbers(context()));
    m_distribution = std::make_shared<quillo::dsrCashReceiptsDetailSubreport>(context());
    placeColumns();
    if (!askFilter()) return;
    STEP(rsInvoiJournal.Recordset = execute(journalQuery(), queryValues()));
    STEP(Translate());
    STEP(m_distribution->Application(application()));
    STEP(m_distribution->rsInvoiJournal.Recordset = execute(m_distributionCommand, distributionQuery(), queryValues()));
    dsrCashReceiptsDetailSubreport.Object = m_distribution;
    STEP(setDateCaption());
    STEP(fillFilterInfo());
}

// With foreign amounts the columns stand closer.
void dsrCashReceiptsDetail::placeColumns() {
    const bool foreign = m_bDisplayForeignCurrency;
    const JournalColumns columns{{&lblDebitCap, &txtDebit, &txtDebitTotal, &txtDebitGrandTotal},
                                 {&lblCreditCap, &txtCredit, &txtCreditTotal, &txtCreditGrandTotal},
                                 {&LineSubTotal, &LineGrandTotal1, &LineGrandTotal2, &LineGrandTotal3}};
    const JournalColumns::Place debit = foreign ? JournalColumns::Place{6930, 1170} : JournalColumns::Place{6390, 1440};
    const JournalColumns::Place credit =
        foreign ? JournalColumns::Place{8190, 1170} : JournalColumns::Place{7920, 1440};
    columns.place(debit, credit);
    m_distribution->amounts().place(debit, credit);
    lblAcctCap.Width = lblAcctIdDescr.Width = foreign ? 2610.0F : 3330.0F;
    lblCurrencyCap.Visible = txtCurrency.Visible = foreign;
    lblProjCap.Visible = txtProjId.Visible = m_bUsesProjects;
}

std::string dsrCashReceiptsDetail::journalQuery() const {
    std::string sql =
        "SELECT CashReceiptJournal_View.*, CashReceiptJournal_View.DetAmnt as CashReceiptJournalDetAmnt, "
        " CashReceiptJournal_View.ExCurrencyId as CashReceiptJournalExCurrencyId, "
        " CashReceiptJournal_View.ExchangeRate as CashReceiptJournalExchangeRate, "
        " GLAcct.GLAcctId, GLAcct.Descr as GLAcctDescr, ";
    sql += Setting(Setting::projectCodes) ? "ProjInfo.ProjId" : "ProjInfo.Descr as ProjId";
    sql +=
        ", InvoiHdr.* FROM"
        " ((((CashReceiptJournal_View INNER JOIN GLAcct ON GLAcct.InGLAcctId = CashReceiptJournal_View.ExAcctId)"
        " LEFT JOIN InvoiHdr ON CashReceiptJournal_View.ExSrcKeyVal = InvoiHdr.InInvoiId)"
        " LEFT JOIN ProjInfo ON CashReceiptJournal_View.ExProjId = ProjInfo.InProjId)"
        " LEFT JOIN GLDet ON CashReceiptJournal_View.InGLDetId = GLDet.InGlDetId) "
        " LEFT JOIN WorldCurrency ON CashReceiptJournal_View.ExCurrencyId = WorldCurrency.InCurrencyId "
        " WHERE CashReceiptJournal_View.DetAmnt <> 0 AND (CashReceiptJournal_View.Source='INV'"
        " OR CashReceiptJournal_View.Source='PMT' OR CashReceiptJournal_View.Source='TAX' OR GLDet.Source = 'DEP') AND"
        " CashReceiptJournal_View.DetDate BETWEEN ? AND ? ";
    if (SeqNo != 0) sql += " AND  GLDet.SeqNo = ?";
    sql += segments("GLDet.ExSegmentId");
    sql += whereClause(filterParts(), OwnWhere::yes);
    sql += orderClauseBehind(filterParts(), "CashReceiptJournal_View.SeqNo, ",
                             " ORDER BY CashReceiptJournal_View.DetDate, CashReceiptJournal_View.DetRef,"
                             " CashReceiptJournal_View.SeqNo, GLAcct.GLAcctId");
    return sql;
}

// Deposits stay outside of the distribution's sources, and the choice of rows without segment has no effect on it:
// both are meant, so that its totals may differ from those of the body.
std::string dsrCashReceiptsDetail::distributionQuery() const {
    std::string sql =
        "SELECT CashReceiptJournal_View.DetAmnt, GLAcct.GLAcctId, GLAcct.Descr as GLAcctDescr FROM"
        " ((((GLAcct INNER JOIN CashReceiptJournal_View ON GLAcct.InGLAcctId = CashReceiptJournal_View.ExAcctId)"
        " LEFT JOIN InvoiHdr ON CashReceiptJournal_View.ExSrcKeyVal = InvoiHdr.InInvoiId)"
        " LEFT JOIN ProjInfo ON CashReceiptJournal_View.ExProjId = ProjInfo.InProjId)"
        " LEFT JOIN GLDet ON CashReceiptJournal_View.InGLDetId = GLDet.InGlDetId) "
        " LEFT JOIN WorldCurrency ON CashReceiptJournal_View.ExCurrencyId = WorldCurrency.InCurrencyId "
        " WHERE (CashReceiptJournal_View.Source='INV' OR"
        " CashReceiptJournal_View.Source='PMT' OR CashReceiptJournal_View.Source='TAX') AND"
        " CashReceiptJournal_View.DetDate BETWEEN ? AND ? ";
    if (SeqNo != 0) sql += " AND  GLDet.SeqNo = ?";
    sql += segmentListClause("GLDet.ExSegmentId", m_strSegmentFilter);
    sql += whereClause(filterParts(), OwnWhere::yes);
    sql += orderClauseBehind(filterParts(), "GLAcctId, ", " ORDER BY GLAcct.GLAcctId");
    return sql;
}

std::vector<Variant> dsrCashReceiptsDetail::queryValues() const {
    std::vector<Variant> values = {m_dtDateFrom, m_dtDateTo};
    if (SeqNo != 0) values.emplace_back(SeqNo);
    return values;
}

// The distribution behind the journal has captions of its own.
void dsrCashReceiptsDetail::PageHeader_Format() {
    if (m_distribution && m_distribution->begun()) hideCaptions();
}

void dsrCashReceiptsDetail::ghSeqNo_Format() {
    if (rsInvoiJournal.atEnd()) return;
    // Counts groups: a sequence that the order splits counts more than once, meant.
    ++m_lngRecordCount;
    STEP(enterSequence(rsInvoiJournal.Collect("SeqNo").toInt32()));
    STEP(m_lngRowCurrencyId = rsInvoiJournal.Collect("CashReceiptJournalExCurrencyId").int32OrZero());
    m_bRowIsForeign = m_lngRowCurrencyId != m_lngHomeCurrencyId;
    m_curRowRate = m_bRowIsForeign ? Money() : Money::fromInteger(1);
    if (m_bRowIsForeign) STEP(m_curRowRate = rsInvoiJournal.Collect("CashReceiptJournalExchangeRate").toMoney());
    STEP(txtSource.Text = context().utils().SourceText(rsInvoiJournal.Collect("Source").textOrEmpty()));
    txtDetRef.Text = reference();
}

void dsrCashReceiptsDetail::enterSequence(int seqNo) {
    if (seqNo == m_lngCurrentSeqNo) return;
    m_subtotal = {};
    m_lngCurrentSeqNo = seqNo;
}

// The document's reference and the number of its cheque.
std::string dsrCashReceiptsDetail::reference() const {
    std::string text = rsInvoiJournal.Collect("DetRef").textOrEmpty();
    const std::string cheque = rsInvoiJournal.Collect("RecCheqNo").textOrEmpty();
    if (!text.empty() && !cheque.empty()) text += " - ";
    return text + cheque;
}

void dsrCashReceiptsDetail::ghForeignCurrency_Format() {
    gfForeignCurrency.Visible = false;
    if (rsInvoiJournal.atEnd()) return;
    STEP(gfForeignCurrency.Visible =
             m_bRowIsForeign && m_bDisplayForeignCurrency && currencies().CieIsForeignCurrencyUsed());
    if (!gfForeignCurrency.Visible) return;
    lblEstEgalA.Caption.clear();
    STEP(lblEstEgalA.Caption = rateLine(m_lngRowCurrencyId, m_curRowRate));
}

void dsrCashReceiptsDetail::Detail_Format() {
    if (rsInvoiJournal.atEnd()) return;
    Money amount;
    STEP(amount = rsInvoiJournal.Collect("CashReceiptJournalDetAmnt").toMoney());
    // A line prints what is stored, the totals take it rounded to cents: meant, a total is an amount that can be paid.
    DebitCredit sides;
    sides.add(amount);
    txtDebit.Text = sideText(locale(), sides.debit);
    txtCredit.Text = sideText(locale(), sides.credit);
    STEP(m_subtotal.add(roundAmount(amount, 2)));
    STEP(m_grandTotal.add(roundAmount(amount, 2)));
    if (amount.isZero()) LayoutAction = LayoutActions::dropRow;
    lblAcctIdDescr.Text = accountText();
    if (txtProjId.Text == "0") txtProjId.Text.clear();
    txtCurrency.Text.clear();
    STEP(txtCurrency.Text = foreignText());
}

std::string dsrCashReceiptsDetail::accountText() const {
    const std::string description = rsInvoiJournal.Collect("GLAcctDescr").textOrEmpty();
    return m_bAccountNumbers ? rsInvoiJournal.Collect("GLAcctId").textOrEmpty() + " - " + description : description;
}

// Prints whatever the row's own currency, meant: a foreign amount on a home-currency row is a slip to be seen.
std::string dsrCashReceiptsDetail::foreignText() const {
    const Money foreign = rsInvoiJournal.Collect("ForeignAmnt").moneyOrZero();
    if (foreign.isZero()) return "";
    const std::string id = rsInvoiJournal.Collect("CashReceiptJournalExCurrencyId").textOrEmpty();
    return locale().currency(foreign) + " " + currencies().currencies().Item(id).CurrencyCode;
}

void dsrCashReceiptsDetail::gfSeqNo_Format() {
    txtDebitTotal.Text = locale().currency(m_subtotal.debit);
    txtCreditTotal.Text = locale().currency(m_subtotal.credit);
}

void dsrCashReceiptsDetail::ReportFooter_Format() {
    txtDebitGrandTotal.Text = locale().currency(m_grandTotal.debit);
    txtCreditGrandTotal.Text = locale().currency(m_grandTotal.credit);
    STEP(txtEndTotal.Text = std::to_string(m_lngRecordCount) + " " + GetText(5860));
    // The flag says the opposite of its name, meant: hosts set it to print the body alone.
    section("ReportFooter").Visible = !SubReportVisible;
}

void dsrCashReceiptsDetail::ActiveReport_ReportEnd() {
    dsrCashReceiptsDetailSubreport.Object.reset();
}

}  // namespace quillo
