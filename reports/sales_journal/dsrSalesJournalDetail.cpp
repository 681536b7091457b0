#include "reports/sales_journal/dsrSalesJournalDetail.h"

#include "framework/drill_tags.h"
#include "framework/shared/MUtils.h"
#include "framework/shared/account_texts.h"
#include "reports/sales_journal/dsrSalesJournalDetailSubreport.h"

namespace quillo {
namespace {

constexpr int creditNote = 3;  // an InvoiType

// Where a column stands beside a column of foreign amounts, and without one.
struct Column {
    struct Place {
        float left, width;
    };
    Place beside, alone;
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
    : SegmentReport(
          "dsrSalesJournalDetail", context,
          {.dateOptions = DateDisplay::range, .titleId = 6325, .companyCurrency = true, .foreign = Foreign::kept}) {
    property("ExInvoiId", ExInvoiId);
    property("SubReportVisible", SubReportVisible);
    onFormat("PageHeader", &dsrSalesJournalDetail::PageHeader_Format);
    onFormat("ghSeqNo", &dsrSalesJournalDetail::ghSeqNo_Format);
    onFormat("ghForCurr", &dsrSalesJournalDetail::ghForCurr_Format);
    onFormat("Detail", &dsrSalesJournalDetail::Detail_Format);
    onFormat("gfSeqNo", &dsrSalesJournalDetail::gfSeqNo_Format);
    onFormat("ReportFooter", &dsrSalesJournalDetail::ReportFooter_Format);
}

void dsrSalesJournalDetail::ActiveReport_ReportStart() {
    // The footer's two page breaks leave an empty page. The journal of one document keeps it: meant.
    RemovesEmptyPages = ExInvoiId == 0;
    STEP(m_lngHomeCurrencyId = currencies().CieHomeCurrencyId());
    STEP(m_grandTotal = {});
    STEP(m_lngSequence = 0);
    STEP(m_bAccountNumbers = usesAccountNumbers(context()));
    STEP(m_bProjects = MUtils::HasUnknownProject(context()));
    if (!askFilter(m_bProjects ? "GLDet, InvoiHdr, GLAcct, ProjInfo, Cust, WorldCurrency"
                               : "GLDet, InvoiHdr, GLAcct, Cust, WorldCurrency",
                   false))
        return;
    std::string sql;
    STEP(sql = journalQuery());
    STEP(Translate());
    STEP(setDateCaption(lblDateFromDateTo));
    std::vector<Variant> values{m_dtDateFrom, m_dtDateTo};
    if (ExInvoiId != 0) values.emplace_back(ExInvoiId);
    STEP(rsInvoiJournal.Recordset = execute(sql, values));
    STEP(giveDistribution());
    STEP(fillFilterInfo(dsrFilterAndSortByInfoSubreport, m_strSegmentFilterDisplay));
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

void dsrSalesJournalDetail::giveDistribution() {
    const auto distribution = std::make_shared<dsrSalesJournalDetailSubreport>(context());
    STEP(distribution->give(execute(m_distributionCommand, distributionQuery(), {m_dtDateFrom, m_dtDateTo})));
    STEP(distribution->HomeCurrencyInitialise(m_lngHomeCurrencyId));
    STEP(distribution->clsApplicationInitialise(application()));
    dsrPurchJournalDetailSubreport.Object = distribution;
}

void dsrSalesJournalDetail::PageHeader_Format() {
    const bool foreign = m_bDisplayForeignCurrency;
    STEP(lblCurrencyCap.Visible = foreign);
    STEP(place(lblCreditCap, credits, foreign));
    STEP(place(lblDebitCap, debits, foreign));
    STEP(place(lblAcctCap, accountCaption, foreign));
    STEP(lblProjCap.Visible = m_bProjects);
    STEP(ReplacePageHeaderControls());
}

void dsrSalesJournalDetail::ReplacePageHeaderControls() {
    replaceCaptions(
        dsrFilterAndSortByInfoSubreport, lblSourceCap,
        {&lbldateCap, &lblNoDocCap, &lblAcctCap, &lblCurrencyCap, &lblDebitCap, &lblCreditCap, &lblProjCap});
}

void dsrSalesJournalDetail::ghSeqNo_Format() {
    if (rsInvoiJournal.atEnd()) return;
    STEP(enterTransaction(rsInvoiJournal.Collect("SeqNo").toInt32()));
    STEP(fldDetDate.Text = context().utils().DateText(rsInvoiJournal.Collect("DetDate")));
    STEP(readCurrency());
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

// A posting without a currency counts as foreign and its conversion fails: meant, so that nobody takes its amounts
// for home currency unwarned.
void dsrSalesJournalDetail::readCurrency() {
    const Variant currency = rsInvoiJournal.Collect("GLDetExCurrencyId");
    m_bForeignRow = currency.int32OrZero() != m_lngHomeCurrencyId;
    m_lngRowCurrencyId = m_bForeignRow ? currency.toInt32() : m_lngHomeCurrencyId;
}

void dsrSalesJournalDetail::ghForCurr_Format() {
    STEP(gfForCurr.Visible = false);
    if (rsInvoiJournal.atEnd()) return;
    STEP(gfForCurr.Visible = m_bForeignRow && m_bDisplayForeignCurrency && currencies().CieIsForeignCurrencyUsed());
    if (!gfForCurr.Visible) return;
    STEP(lbl1USDestEgalA.Caption =
             rateLine(m_lngRowCurrencyId, rsInvoiJournal.Collect("GLDetExchangeRate").moneyOrZero()));
}

void dsrSalesJournalDetail::Detail_Format() {
    if (rsInvoiJournal.atEnd()) return;
    const bool foreign = m_bDisplayForeignCurrency;
    STEP(showAmount(roundAmount(rsInvoiJournal.Collect("GLDetDetAmnt").toMoney(), 2)));
    STEP(txtCurrency.Text = foreignAmount(roundAmount(rsInvoiJournal.Collect("ForeignAmnt").moneyOrZero(), 2)));
    STEP(txtAcctId.Text = rsInvoiJournal.Collect("GLAcctDescr").textOrEmpty());
    if (m_bAccountNumbers)
        STEP(txtAcctId.Text = rsInvoiJournal.Collect("GLAcctId").textOrEmpty() + " - " + txtAcctId.Text);
    STEP(lblProject.Text = rsInvoiJournal.Collect("ProjId").textOrEmpty());
    STEP(txtCurrency.Visible = foreign);
    STEP(place(txtCredit, credits, foreign));
    STEP(place(txtDebit, debits, foreign));
    STEP(place(txtAcctId, accounts, foreign));
    STEP(lblProject.Visible = m_bProjects);
}

// An amount that rounds away gives up its row.
void dsrSalesJournalDetail::showAmount(Money amount) {
    DebitCredit sides;
    sides.add(amount);
    txtDebit.Text = sideText(locale(), sides.debit);
    txtCredit.Text = sideText(locale(), sides.credit);
    m_subtotal.add(sides);
    m_grandTotal.add(sides);
    if (amount.isZero()) LayoutAction = LayoutActions::dropRow;
}

std::string dsrSalesJournalDetail::foreignAmount(Money amount) const {
    if (amount.isZero() || !m_bForeignRow) return {};
    return locale().currency(amount) + " " +
           currencies().currencies().Item(std::to_string(m_lngRowCurrencyId)).CurrencyCode;
}

void dsrSalesJournalDetail::gfSeqNo_Format() {
    STEP(txtDebitTotal.Text = locale().currency(m_subtotal.debit));
    STEP(txtCreditTotal.Text = locale().currency(m_subtotal.credit));
    STEP(place(txtDebitTotal, debits, m_bDisplayForeignCurrency));
    STEP(place(txtCreditTotal, credits, m_bDisplayForeignCurrency));
}

void dsrSalesJournalDetail::ReportFooter_Format() {
    STEP(txtDebitGrandTotal.Text = locale().currency(m_grandTotal.debit));
    STEP(txtCreditGrandTotal.Text = locale().currency(m_grandTotal.credit));
    STEP(section("ReportFooter").Visible = !SubReportVisible);
    STEP(place(txtDebitGrandTotal, debits, m_bDisplayForeignCurrency));
    STEP(place(txtCreditGrandTotal, credits, m_bDisplayForeignCurrency));
}

void dsrSalesJournalDetail::ActiveReport_ReportEnd() {
    dsrPurchJournalDetailSubreport.Object = nullptr;
}

}  // namespace quillo
