#include "reports/cash_receipts/dsrCashReceiptsDetail.h"

#include "framework/drill_tags.h"
#include "framework/shared/MUtils.h"
#include "framework/shared/account_texts.h"
#include "reports/cash_receipts/dsrCashReceiptsDetailSubreport.h"

namespace quillo {

dsrCashReceiptsDetail::dsrCashReceiptsDetail(HostContext& context)
    : SegmentReport(
          "dsrCashReceiptsDetail", context,
          {.dateOptions = DateDisplay::range, .titleId = 6082, .companyCurrency = true, .foreign = Foreign::kept}) {
    property("SeqNo", SeqNo);
    property("SubReportVisible", SubReportVisible);
    onFormat("PageHeader", &dsrCashReceiptsDetail::PageHeader_Format);
    onFormat("ghSeqNo", &dsrCashReceiptsDetail::ghSeqNo_Format);
    onFormat("ghForeignCurrency", &dsrCashReceiptsDetail::ghForeignCurrency_Format);
    onFormat("Detail", &dsrCashReceiptsDetail::Detail_Format);
    onFormat("gfSeqNo", &dsrCashReceiptsDetail::gfSeqNo_Format);
    onFormat("ReportFooter", &dsrCashReceiptsDetail::ReportFooter_Format);
}

void dsrCashReceiptsDetail::ActiveReport_ReportStart() {
    // The footer's two page breaks leave an empty page. The journal of one transaction keeps it: meant.
    RemovesEmptyPages = SeqNo == 0;
    STEP(m_lngHomeCurrencyId = currencies().CieHomeCurrencyId());
    STEP(m_bUsesProjects = MUtils::HasUnknownProject(context()));
    STEP(m_bAccountNumbers = usesAccountNumbers(context()));
    if (!askFilter(m_bUsesProjects ? "GLDet, GLAcct, ProjInfo, WorldCurrency" : "GLDet, GLAcct, WorldCurrency", false))
        return;
    STEP(rsInvoiJournal.Recordset = execute(journalQuery(), queryValues()));
    STEP(Translate());
    STEP(startDistribution());
    STEP(setDateCaption(lblDateFromDateTo));
    STEP(fillFilterInfo(dsrFilterAndSortByInfoSubreport, m_strSegmentFilterDisplay));
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

void dsrCashReceiptsDetail::startDistribution() {
    const auto distribution = std::make_shared<quillo::dsrCashReceiptsDetailSubreport>(context());
    STEP(distribution->Application(application()));
    STEP(distribution->rsInvoiJournal.Recordset = execute(m_distributionCommand, distributionQuery(), queryValues()));
    dsrCashReceiptsDetailSubreport.Object = distribution;
}

void dsrCashReceiptsDetail::PageHeader_Format() {
    STEP(lblCurrencyCap.Visible = m_bDisplayForeignCurrency);
    STEP(placeAmounts(lblDebitCap, lblCreditCap));
    STEP(lblAcctCap.Width = accountWidth());
    STEP(lblProjCap.Visible = m_bUsesProjects);
    STEP(replaceCaptions(
        dsrFilterAndSortByInfoSubreport, lblSourceCap,
        {&lbldateCap, &lblNoDocCap, &lblAcctCap, &lblCurrencyCap, &lblDebitCap, &lblCreditCap, &lblProjCap}));
}

void dsrCashReceiptsDetail::ghSeqNo_Format() {
    if (rsInvoiJournal.atEnd()) return;
    // Counts groups: a sequence that the order splits counts more than once, meant.
    STEP(++m_lngRecordCount);
    STEP(enterSequence());
    STEP(fldDetDate.Text = context().utils().DateText(rsInvoiJournal.Collect("DetDate")));
    STEP(readCurrency());
    STEP(txtSource.Text = context().utils().SourceText(rsInvoiJournal.Collect("Source").textOrEmpty()));
    STEP(txtDetRef.Text = reference());
    STEP(link(tag(), {&fldDetDate, &txtDetRef, &fldDetDescr, &txtSource}));
}

void dsrCashReceiptsDetail::enterSequence() {
    const int seqNo = rsInvoiJournal.Collect("SeqNo").toInt32();
    if (seqNo == m_lngCurrentSeqNo) return;
    m_subtotal = {};
    m_lngCurrentSeqNo = seqNo;
}

void dsrCashReceiptsDetail::readCurrency() {
    m_lngRowCurrencyId = rsInvoiJournal.Collect("CashReceiptJournalExCurrencyId").int32OrZero();
    m_bRowIsForeign = m_lngRowCurrencyId != m_lngHomeCurrencyId;
    m_curRowRate =
        m_bRowIsForeign ? rsInvoiJournal.Collect("CashReceiptJournalExchangeRate").toMoney() : Money::fromInteger(1);
}

// The document's reference and the number of its cheque.
std::string dsrCashReceiptsDetail::reference() const {
    std::string text = rsInvoiJournal.Collect("DetRef").textOrEmpty();
    const std::string cheque = rsInvoiJournal.Collect("RecCheqNo").textOrEmpty();
    if (!text.empty() && !cheque.empty()) text += " - ";
    return text + cheque;
}

std::string dsrCashReceiptsDetail::tag() const {
    return drillTag(rsInvoiJournal.Collect("Source").textOrEmpty(), rsInvoiJournal.Collect("ExSrcKeyVal")) + "|" +
           rsInvoiJournal.Collect("InvoiType").textOrEmpty();
}

void dsrCashReceiptsDetail::ghForeignCurrency_Format() {
    bool shown = false;
    STEP(shown = !rsInvoiJournal.atEnd() && m_bRowIsForeign && m_bDisplayForeignCurrency &&
                 currencies().CieIsForeignCurrencyUsed());
    STEP(section("gfForeignCurrency").Visible = shown);
    if (shown) STEP(lblEstEgalA.Caption = rateLine(m_lngRowCurrencyId, m_curRowRate));
}

void dsrCashReceiptsDetail::Detail_Format() {
    if (rsInvoiJournal.atEnd()) return;
    STEP(showAmount());
    STEP(lblAcctIdDescr.Text = accountText());
    STEP(if (txtProjId.Text == "0") txtProjId.Text.clear());
    STEP(txtCurrency.Text = foreignText());
    STEP(link(tag(), {&txtDebit, &txtCredit, &lblAcctIdDescr}));
    STEP(placeAmounts(txtDebit, txtCredit));
    STEP(txtCurrency.Visible = m_bDisplayForeignCurrency);
    STEP(lblAcctIdDescr.Width = accountWidth());
    STEP(txtProjId.Visible = m_bUsesProjects);
}

// A line prints what is stored, the totals take it rounded to cents: meant, a total is an amount that can be paid.
void dsrCashReceiptsDetail::showAmount() {
    const Money amount = rsInvoiJournal.Collect("CashReceiptJournalDetAmnt").toMoney();
    if (amount.isZero()) {
        LayoutAction = LayoutActions::dropRow;
        return;
    }
    const bool isDebit = amount > Money();
    txtDebit.Text = isDebit ? locale().currency(amount) : "";
    txtCredit.Text = isDebit ? "" : locale().currency(-amount);
    m_subtotal.add(roundAmount(amount, 2));
    m_grandTotal.add(roundAmount(amount, 2));
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

// The amounts make room for the foreign column when it is shown.
void dsrCashReceiptsDetail::placeAmounts(Control& debit, Control& credit) const {
    debit.Left = m_bDisplayForeignCurrency ? 6930.0F : 6390.0F;
    credit.Left = m_bDisplayForeignCurrency ? 8190.0F : 7920.0F;
    debit.Width = credit.Width = m_bDisplayForeignCurrency ? 1170.0F : 1440.0F;
}

void dsrCashReceiptsDetail::gfSeqNo_Format() {
    STEP(txtDebitTotal.Text = locale().currency(m_subtotal.debit));
    STEP(txtCreditTotal.Text = locale().currency(m_subtotal.credit));
    STEP(placeAmounts(txtDebitTotal, txtCreditTotal));
}

void dsrCashReceiptsDetail::ReportFooter_Format() {
    STEP(txtDebitGrandTotal.Text = locale().currency(m_grandTotal.debit));
    STEP(txtCreditGrandTotal.Text = locale().currency(m_grandTotal.credit));
    STEP(txtEndTotal.Text = std::to_string(m_lngRecordCount) + " " + GetText(5860));
    // The flag says the opposite of its name, meant: hosts set it to print the body alone.
    STEP(section("ReportFooter").Visible = !SubReportVisible);
    STEP(placeAmounts(txtDebitGrandTotal, txtCreditGrandTotal));
}

void dsrCashReceiptsDetail::ActiveReport_ReportEnd() {
    dsrCashReceiptsDetailSubreport.Object.reset();
}

}  // namespace quillo
