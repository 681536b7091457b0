#include "reports/sales_journal/dsrSalesJournalDetail.h"

#include "framework/drill_tags.h"
#include "reports/sales_journal/dsrSalesJournalDetailSubreport.h"
#include "reports/shared/MUtils.h"
#include "reports/shared/account_texts.h"
#include "reports/shared/journal_columns.h"

namespace quillo {
namespace {

constexpr int creditNote = 3;  // an InvoiType

// Where a column stands beside a column of foreign amounts, and without one.
struct Column {
    JournalColumns::Place beside, alone;
};
constexpr Column accounts{{3165, 2235}, {3180, 2880}};
constexpr Column accountCaption{{3165, 2080}, {3180, 2880}};
constexpr Column debits{{6690, 1260}, {6150, 1510}};
constexpr Column credits{{8010, 1260}, {7750, 1510}};

void place(Control& control, const Column& column, bool foreign) {
    const auto& [left, width] = foreign ? column.beside : column.alone;
    control.Left = left;
    control.Width = width;
}

}  // namespace

dsrSalesJournalDetail::dsrSalesJournalDetail(HostContext& context)
    : SegmentReport("dsrSalesJournalDetail", context,
                    {.dateOptions = DateDisplay::range,
                     .titleId = 6325,
                     .companyCurrency = true,
                     .foreign = Foreign::kept,
                     .filterFlagA = false,
                     .ownOrder = true}) {
    property("ExInvoiId", ExInvoiId);
    property("SubReportVisible", SubReportVisible);
    onFormat("PageHeader", &dsrSalesJournalDetail::PageHeader_Format);
    onFormat("ghSeqNo", &dsrSalesJournalDetail::ghSeqNo_Format);
    onFormat("ghForCurr", &dsrSalesJournalDetail::ghForCurr_Format);
    onFormat("Detail", &dsrSalesJournalDetail::Detail_Format);
    onFormat("gfSeqNo", &dsrSalesJournalDetail::gfSeqNo_Format);
    onFormat("ReportFooter", &dsrSalesJournalDetail::ReportFooter_Format);
}

std::string dsrSalesJournalDetail::filterTables() const {
    return MUtils::HasUnknownProject(context()) ? "GLDet, InvoiHdr, GLAcct, ProjInfo, Cust, WorldCurrency"
                                                : "GLDet, InvoiHdr, GLAcct, Cust, WorldCurrency";
}

void dsrSalesJournalDetail::ActiveReport_ReportStart() {
    // The footer's two page breaks leave an empty page. The journal of one document keeps it: meant.
    RemovesEmptyPages = ExInvoiId == 0;
    STEP(m_lngHomeCurrencyId = currencies().CieHomeCurrencyId());
    STEP(m_bAccountNumbers = usesAccountNumbers(context()));
    STEP(m_bProjects = MUtils::HasUnknownProject(context()));
    m_distribution = std::make_shared<dsrSalesJournalDetailSubreport>(context());
    placeColumns();
    if (!askFilter()) return;
    std::string sql;
    STEP(sql = journalQuery());
    STEP(Translate());
    STEP(setDateCaption());
    std::vector<Variant> values{m_dtDateFrom, m_dtDateTo};
    if (ExInvoiId != 0) values.emplace_back(ExInvoiId);
    STEP(rsInvoiJournal.Recordset = execute(sql, values));
    STEP(m_distribution->give(execute(m_distributionCommand, distributionQuery(), {m_dtDateFrom, m_dtDateTo})));
    m_distribution->HomeCurrencyInitialise(m_lngHomeCurrencyId);
    STEP(m_distribution->clsApplicationInitialise(application()));
    dsrPurchJournalDetailSubreport.Object = m_distribution;
    STEP(fillFilterInfo());
}

// With foreign amounts the columns stand closer.
void dsrSalesJournalDetail::placeColumns() {
    lblCurrencyCap.Visible = txtCurrency.Visible = m_bDisplayForeignCurrency;
    lblProjCap.Visible = lblProject.Visible = m_bProjects;
    const auto& debit = m_bDisplayForeignCurrency ? debits.beside : debits.alone;
    const auto& credit = m_bDisplayForeignCurrency ? credits.beside : credits.alone;
    const JournalColumns columns{{&lblDebitCap, &txtDebit, &txtDebitTotal, &txtDebitGrandTotal},
                                 {&lblCreditCap, &txtCredit, &txtCreditTotal, &txtCreditGrandTotal},
                                 {&LineSubTotal, &LineGrandTotal1, &LineGrandTotal2, &LineGrandTotal3}};
    columns.place(debit, credit);
    m_distribution->amounts().place(debit, credit);
    place(lblAcctCap, accountCaption, m_bDisplayForeignCurrency);
    place(txtAcctId, accounts, m_bDisplayForeignCurrency);
}

std::string dsrSalesJournalDetail::journalQuery() const {
    std::string sql =
        "SELECT GLDet.*, GLDet.DetAmnt as GLDetDetAmnt, "
        "GLDet.ExchangeRate as GLDetExchangeRate, "
        "GLDet.ExCurrencyId as GLDetExCurrencyId, GLAcct.InGLAcctId, "
        "GLAcct.GLAcctId, GLAcct.Descr as GLAcctDescr, InvoiHdr.*, "
        "Cust.*, ";
    sql += Setting(Setting::projectCodes) ? "ProjInfo.ProjId" : "ProjInfo.Descr as ProjId";
    sql +=
        ", WorldCurrency.* FROM"
        " ((((GLDet INNER JOIN GLAcct ON GLAcct.InGLAcctId = GLDet.ExAcctId)"
        " LEFT JOIN InvoiHdr ON GLDet.ExSrcKeyVal = InvoiHdr.InInvoiId) "
        " LEFT JOIN Cust ON Cust.InCustId = InvoiHdr.ExCustId)"
        " LEFT JOIN ProjInfo ON GLDet.ExProjId = ProjInfo.InProjId) "
        " LEFT JOIN WorldCurrency ON GLDet.ExCurrencyId = WorldCurrency.InCurrencyId "
        " WHERE GLDet.DetAmnt <> 0 AND (GLDet.Source='INV' OR GLDet.Source='ADM') AND"
        " GLDet.DetDate BETWEEN ? AND ? ";
    if (ExInvoiId != 0) sql += " AND ExSrcKeyVal = ? ";
    sql += segments("GLDet.ExSegmentId");
    sql += whereClause(filterParts(), OwnWhere::yes);
    const char* order = " ORDER BY GLDet.DetDate, InvoiId, GLDet.SeqNo, GLAcct.GLAcctId";
    if (ExInvoiId != 0)
        order = m_strFilter.empty()
                    ? " ORDER BY GLDet.ExSrcKeyVal, GLDet.SeqNo, GLDet.DetDate, GLDet.DetRef, GLAcct.GLAcctId"
                    : " ORDER BY GLDet.ExSrcKeyVal, GLDet.SeqNo, GLDet.DetDate, GLDet.DetRef,GLAcct.GLAcctId";
    return sql + orderClauseBehind(filterParts(), "SeqNo, ", order);
}

// The distribution knows neither ExInvoiId nor rows without a segment, and takes rows of amount zero: meant, it tells
// what the whole period did to the accounts, whatever part of it the body shows.
std::string dsrSalesJournalDetail::distributionQuery() const {
    std::string sql =
        "SELECT GLAcct.*, GLDet.* FROM"
        " ((((GLAcct INNER JOIN GLDet ON GLAcct.InGLAcctId = GLDet.ExAcctId)"
        " LEFT JOIN InvoiHdr On InvoiHdr.InInvoiId = GLDet.ExSrcKeyVal) "
        " LEFT JOIN Cust ON Cust.InCustId = InvoiHdr.ExCustId)"
        " LEFT JOIN ProjInfo ON GLDet.ExProjId = ProjInfo.InProjId) "
        " LEFT JOIN WorldCurrency ON GLDet.ExCurrencyId = WorldCurrency.InCurrencyId "
        " WHERE (GLDet.Source='INV' OR GLDet.Source='ADM') AND"
        " GLDet.DetDate BETWEEN ? AND ?";
    sql += segmentListClause("GLDet.ExSegmentId", m_strSegmentFilter);
    sql += whereClause(filterParts(), OwnWhere::yes);
    return sql + orderClauseBehind(filterParts(), "GLAcctId, ", " ORDER BY  GLAcct.GLAcctId");
}

// The distribution behind the journal has captions of its own.
void dsrSalesJournalDetail::PageHeader_Format() {
    if (m_distribution && m_distribution->begun()) hideCaptions();
}

void dsrSalesJournalDetail::ghSeqNo_Format() {
    if (rsInvoiJournal.atEnd()) return;
    STEP(enterTransaction(rsInvoiJournal.Collect("SeqNo").toInt32()));
    // A posting without a currency counts as foreign and its conversion fails: meant, so that nobody takes its amounts
    // for home currency unwarned.
    const Variant currency = rsInvoiJournal.Collect("GLDetExCurrencyId");
    m_bForeignRow = currency.int32OrZero() != m_lngHomeCurrencyId;
    m_lngRowCurrencyId = m_lngHomeCurrencyId;
    if (m_bForeignRow) STEP(m_lngRowCurrencyId = currency.toInt32());
    STEP(lblSource.Caption = GetText(isCreditNote() ? 2657 : 2916));
    STEP(link(documentTag(), {&fldDetDate, &fldDetRef, &fldDetDescr, &lblSource}));
}

bool dsrSalesJournalDetail::isCreditNote() const {
    return rsInvoiJournal.Collect("Source").textOrEmpty() == Drill::invoice &&
           rsInvoiJournal.Collect("InvoiType").int32OrZero() == creditNote;
}

std::string dsrSalesJournalDetail::documentTag() const {
    return drillTag(rsInvoiJournal.Collect("Source").textOrEmpty(), rsInvoiJournal.Collect("ExSrcKeyVal")) + "|" +
           std::to_string(rsInvoiJournal.Collect("InvoiType").int32OrZero());
}

void dsrSalesJournalDetail::enterTransaction(int sequence) {
    if (sequence == m_lngSequence) return;
    m_subtotal = {};
    m_lngSequence = sequence;
}

void dsrSalesJournalDetail::ghForCurr_Format() {
    gfForCurr.Visible = false;
    if (rsInvoiJournal.atEnd()) return;
    STEP(gfForCurr.Visible = m_bForeignRow && m_bDisplayForeignCurrency && currencies().CieIsForeignCurrencyUsed());
    if (!gfForCurr.Visible) return;
    lbl1USDestEgalA.Caption.clear();
    STEP(lbl1USDestEgalA.Caption =
             rateLine(m_lngRowCurrencyId, rsInvoiJournal.Collect("GLDetExchangeRate").moneyOrZero()));
}

void dsrSalesJournalDetail::Detail_Format() {
    if (rsInvoiJournal.atEnd()) return;
    Money amount, foreign;
    STEP(amount = roundAmount(rsInvoiJournal.Collect("GLDetDetAmnt").toMoney(), 2));
    STEP(foreign = roundAmount(rsInvoiJournal.Collect("ForeignAmnt").moneyOrZero(), 2));
    DebitCredit sides;
    sides.add(amount);
    txtDebit.Text = sideText(locale(), sides.debit);
    txtCredit.Text = sideText(locale(), sides.credit);
    STEP(m_subtotal.add(sides));
    STEP(m_grandTotal.add(sides));
    // An amount that rounds away gives up its row.
    if (amount.isZero()) LayoutAction = LayoutActions::dropRow;
    txtCurrency.Text.clear();
    STEP(txtCurrency.Text = foreignAmount(foreign));
    txtAcctId.Text = rsInvoiJournal.Collect("GLAcctDescr").textOrEmpty();
    if (m_bAccountNumbers) txtAcctId.Text = rsInvoiJournal.Collect("GLAcctId").textOrEmpty() + " - " + txtAcctId.Text;
}

std::string dsrSalesJournalDetail::foreignAmount(Money amount) const {
    if (amount.isZero() || !m_bForeignRow) return {};
    return locale().currency(amount) + " " +
           currencies().currencies().Item(std::to_string(m_lngRowCurrencyId)).CurrencyCode;
}

void dsrSalesJournalDetail::gfSeqNo_Format() {
    txtDebitTotal.Text = locale().currency(m_subtotal.debit);
    txtCreditTotal.Text = locale().currency(m_subtotal.credit);
}

void dsrSalesJournalDetail::ReportFooter_Format() {
    txtDebitGrandTotal.Text = locale().currency(m_grandTotal.debit);
    txtCreditGrandTotal.Text = locale().currency(m_grandTotal.credit);
    section("ReportFooter").Visible = !SubReportVisible;
}

void dsrSalesJournalDetail::ActiveReport_ReportEnd() {
    dsrPurchJournalDetailSubreport.Object = nullptr;
}

}  // namespace quillo
