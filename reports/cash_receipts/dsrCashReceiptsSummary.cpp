#include "reports/cash_receipts/dsrCashReceiptsSummary.h"

#include "framework/drill_tags.h"
#include "framework/shared/account_texts.h"
#include "reports/cash_receipts/dsrCashReceiptsGLSubReport.h"
#include "reports/cash_receipts/dsrCashReceiptsPmtSubReport.h"
#include "reports/cash_receipts/dsrCashReceiptsSummarySubReport.h"
#include "reports/cash_receipts/receipt_queries.h"

namespace quillo {

dsrCashReceiptsSummary::dsrCashReceiptsSummary(HostContext& context)
    : SegmentReport("dsrCashReceiptsSummary", context,
                    {.dateOptions = DateDisplay::range, .companyCurrency = true, .foreign = Foreign::kept}) {
    property("IsWithPayments", IsWithPayments);
    onFormat("PageHeader", &dsrCashReceiptsSummary::PageHeader_Format);
    onFormat("ghCurrency", &dsrCashReceiptsSummary::ghCurrency_Format);
    onFormat("Detail", &dsrCashReceiptsSummary::Detail_Format);
    onFormat("gfCurrency", &dsrCashReceiptsSummary::gfCurrency_Format);
    onFormat("ReportFooter", &dsrCashReceiptsSummary::ReportFooter_Format);
}

dsrCashReceiptsSummary::~dsrCashReceiptsSummary() = default;

std::string dsrCashReceiptsSummary::IReport_ReportTitle() {
    std::string title;
    STEP(title = withoutMarks(context().GetText(titleId())));
    return title;
}

void dsrCashReceiptsSummary::ActiveReport_ReportStart() {
    STEP(m_lngCurrentCurrencyId = currencies().CieHomeCurrencyId());
    STEP(section("ghCurrency").Visible = section("gfCurrency").Visible = m_bDisplayForeignCurrency);
    STEP(section("ReportFooter").Visible = !m_bDisplayForeignCurrency);
    STEP(m_bAccountNumbers = usesAccountNumbers(context()));
    if (!askFilter("GLDet, WorldCurrency", false)) return;
    STEP(rsCashDisbJournal.Recordset =
             execute(receiptsQuery(segments("GLDet.ExSegmentId"), m_strFilter, context().company().DatabaseKind()),
                     {m_dtDateFrom, m_dtDateTo, m_dtDateFrom, m_dtDateTo}));
    STEP(createSubReports());
    STEP(Translate());
    dicPmtMeth = std::make_shared<PaymentMethods>();
    STEP(setDateCaption(lblDateFromDateTo));
    STEP(fillFilterInfo(dsrFilterAndSortByInfoSubreport, m_strSegmentFilterDisplay));
}

void dsrCashReceiptsSummary::createSubReports() {
    m_subQuery = context().company().Database().newCommand();
    m_subQuery->CommandTimeout = 0;
    m_subQuery->ActiveConnection = context().company().Database().ConnectionString();
    m_payments = std::make_shared<dsrCashReceiptsPmtSubReport>(context());
    m_ledger = std::make_shared<dsrCashReceiptsGLSubReport>(context());
}

void dsrCashReceiptsSummary::PageHeader_Format() {
    STEP(replaceCaptions(dsrFilterAndSortByInfoSubreport, lblDateCap,
                         {&lblNoDocCap, &lblSourceCap, &lblReferenceCap, &lblAmountCap, &lblEscompteCap}));
}

void dsrCashReceiptsSummary::ghCurrency_Format() {
    if (rsCashDisbJournal.atEnd()) {
        section("ghCurrency").Visible = false;
        return;
    }
    if (!m_bDisplayForeignCurrency) return;
    STEP(enterCurrency());
}

// The home currency is current from the start, so that its part keeps the general caption, meant.
void dsrCashReceiptsSummary::enterCurrency() {
    if (rowCurrency() == m_lngCurrentCurrencyId) return;
    m_lngCurrentCurrencyId = rowCurrency();
    dicPmtMeth = std::make_shared<PaymentMethods>();
    lblCurrencyName.Caption = rsCashDisbJournal.Collect("CurrencyCode").textOrEmpty() + " - " +
                              rsCashDisbJournal.Collect("WorldCurrencyDescr").textOrEmpty();
}

void dsrCashReceiptsSummary::Detail_Format() {
    if (rsCashDisbJournal.atEnd()) return;
    Receipt receipt;
    std::string source;
    STEP(m_lngCurrentKey = rsCashDisbJournal.Collect("ExSrcKeyVal").toInt32());
    STEP(fldDate.Text = context().utils().DateText(rsCashDisbJournal.Collect("DetDate")));
    STEP(if (currencies().CieIsForeignCurrencyUsed()) receipt.rate =
             rsCashDisbJournal.Collect("ExchangeRate").toMoney());
    STEP(source = rsCashDisbJournal.Collect("Source").textOrEmpty());
    if (source == Drill::payment) {
        STEP(readPayment(receipt));
    } else if (const MethodQuery* methods = methodQueryOf(source)) {
        dsrCashReceiptsPmtSR.Object.reset();
        STEP(receipt.amount = rsCashDisbJournal.Collect("DetAmnt").toMoney());
        // The ledger is in home currency: meant, while the methods' amounts are taken as they are stored.
        STEP(if (m_bDisplayForeignCurrency) receipt.amount = receipt.amount / receipt.rate);
        STEP(readMethods(receipt, *methods));
    }
    if (receipt.showLedger) STEP(fillLedger(receipt));
    STEP(SetSubReportsControlsState(receipt.showLedger, receipt.showPayments));
    STEP(++m_lngRecordCount);
    STEP(txtSource.Text = context().utils().SourceText(source));
    STEP(addToTotals(receipt));
    STEP(txtAmount.Text = locale().currency(receipt.amount));
    STEP(txtDisc.Text = locale().currency(receipt.discount));
    STEP(fldName.Text = rsCashDisbJournal.Collect("DetDesc").textOrEmpty());
    STEP(link(drillTag(source, Variant(m_lngCurrentKey)),
              {&txtAmount, &txtDisc, &fldName, &fldDate, &txtSource, &fldDocNo}));
}

// The short form of the condition, without rows that have no segment.
std::string dsrCashReceiptsSummary::segmentList(std::string_view opening) const {
    return m_strSegmentFilter.empty() ? "" : std::string(opening) + m_strSegmentFilter + ")";
}

std::unique_ptr<HostRecordset> dsrCashReceiptsSummary::lookUp(const std::string& sql) const {
    return context().company().Database().OpenRecordset(sql, 4, 0, m_lngCurrentKey);
}

void dsrCashReceiptsSummary::readPayment(Receipt& receipt) {
    const auto payment = lookUp(
        "SELECT PmtTotAmnt, DiscTotAmnt, PmtMeth.PmtMeth, PmtDate, InPmtId "
        "FROM (PmtHdr "
        "LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = PmtHdr.ExPmtMethId) "
        "WHERE PmtHdr.InPmtId = ?" +
        segmentList(" AND PmtHdr.ExSegmentId IN ("));
    if (!payment->hasRows()) return;
    receipt.amount = roundAmount(payment->Value("PmtTotAmnt", ValueType::currency).toMoney(), 2);
    receipt.discount = roundAmount(payment->Value("DiscTotAmnt", ValueType::currency).moneyOrZero(), 2);
    if (!m_bDisplayForeignCurrency) {
        receipt.amount = receipt.amount * receipt.rate;
        receipt.discount = receipt.discount * receipt.rate;
    }
    SetDictionary(payment->Value("PmtMeth", ValueType::text).textOrEmpty(), {receipt.amount});
    if (IsWithPayments) fillPayments(receipt);
}

void dsrCashReceiptsSummary::fillPayments(Receipt& receipt) {
    m_payments->rsPayments.Recordset = subQuery(
        "SELECT PmtHdr.PmtDate, InvoiHdr.InvoiId, PmtDet.PmtDisc, PmtDet.PmtAmnt"
        " FROM InvoiHdr INNER JOIN (PmtHdr INNER JOIN PmtDet ON (PmtHdr.InPmtId = PmtDet.ExPmtId)) ON "
        "InvoiHdr.InInvoiId = PmtDet.ExInvoiId"
        " WHERE PmtHdr.InPmtId = ?" +
            segmentList(" AND PmtHdr.ExSegmentId IN ("),
        m_lngCurrentKey);
    tellRow(*m_payments, receipt);
    dsrCashReceiptsPmtSR.Object = m_payments;
    lblPaymentApplication.Top = dsrCashReceiptsPmtSR.Top;
    receipt.showPayments = receipt.showLedger = true;
}

// What came in without a method falls under "Other". A receipt of which nothing is recorded shows no ledger lines even
// with payments, meant: there is nothing to explain its amount by.
void dsrCashReceiptsSummary::readMethods(Receipt& receipt, const MethodQuery& query) {
    auto methods = lookUp(query.text);
    if (!methods->hasRows() && query.otherwise != nullptr) methods = lookUp(query.otherwise);
    if (!methods->hasRows()) return SetDictionary(GetText(2369), {receipt.amount});
    for (; !methods->atEnd(); methods->MoveNext()) {
        const Variant method = methods->Value("PmtMeth", ValueType::text);
        const Money total = methods->Value("TotAmnt", ValueType::currency).toMoney();
        SetDictionary(method.isNull() ? GetText(2369) : method.toText(),
                      {m_bDisplayForeignCurrency ? total : total * receipt.rate});
    }
    receipt.showLedger = IsWithPayments;
}

void dsrCashReceiptsSummary::fillLedger(const Receipt& receipt) {
    std::string sql = m_bAccountNumbers ? "SELECT (GLAcct.GLAcctId + ' - ' + GLAcct.Descr) AS GLDescr"
                                        : "SELECT GLAcct.Descr AS GLDescr";
    sql +=
        ", GLDet.DetAmnt "
        "FROM GLAcct INNER JOIN GLDet ON GLAcct.InGLAcctId = GLDet.ExAcctId "
        "WHERE GLDet.SeqNo = ?";
    sql += segmentList(" AND GLDet.ExSegmentId IN (");
    m_ledger->rsAccount.Recordset = subQuery(sql, rsCashDisbJournal.Collect("SeqNo"));
    tellRow(*m_ledger, receipt);
    fldSeq.Text = m_ledger->SeqNo;
    dsrCashReceiptsGLSR.Object = m_ledger;
    lblGLDistribution.Top = dsrCashReceiptsGLSR.Top;
}

std::shared_ptr<Recordset> dsrCashReceiptsSummary::subQuery(const std::string& sql, const Variant& value) {
    m_subQuery->CommandText = sql;
    ClearCommandParam(*m_subQuery);
    context().utils().SetCommandParameters(*m_subQuery, {value});
    return m_subQuery->Execute();
}

void dsrCashReceiptsSummary::ClearCommandParam(Command& command) {
    command.Parameters.clear();
}

void dsrCashReceiptsSummary::tellRow(ReceiptRow& target, const Receipt& receipt) const {
    target.ExchangeRate = receipt.rate;
    target.DisplayWithForeignCurrency = m_bDisplayForeignCurrency;
    target.SeqNo = rsCashDisbJournal.Collect("SeqNo").textOrEmpty();
}

void dsrCashReceiptsSummary::SetDictionary(const std::string& key, const clsPmtMeth& method) {
    if (clsPmtMeth* known = dicPmtMeth->find(key)) {
        known->Amount += method.Amount;
    } else {
        dicPmtMeth->Add(key, method);
    }
}

void dsrCashReceiptsSummary::SetSubReportsControlsState(bool showLedger, bool showPayments) {
    fldSeq.Visible = lblGLDistribution.Visible = dsrCashReceiptsGLSR.Visible = showLedger && IsWithPayments;
    lblPaymentApplication.Visible = dsrCashReceiptsPmtSR.Visible = showPayments && IsWithPayments;
    // They stand below the edge of a row without ledger lines, where the next row prints.
    lblSequence.Visible = lblOffSet.Visible = fldSeq.Visible;
    Section& detail = section("Detail");
    detail.Height = !IsWithPayments ? 330.0F : showPayments ? 1275.0F : 450.0F;
    if (!IsWithPayments) return;
    placeLedger(showPayments ? dsrCashReceiptsPmtSR.Top + dsrCashReceiptsPmtSR.Height + 60
                             : fldDate.Top + fldDate.Height);
}

void dsrCashReceiptsSummary::placeLedger(float top) {
    lblGLDistribution.Top = dsrCashReceiptsGLSR.Top = top;
    lblSequence.Top = fldSeq.Top = lblGLDistribution.Top + lblGLDistribution.Height + 30;
    lblOffSet.Top = lblSequence.Top + lblSequence.Height;
}

void dsrCashReceiptsSummary::addToTotals(const Receipt& receipt) {
    m_curGrandTotal += receipt.amount + receipt.discount;
    m_curDiscountTotal += receipt.discount;
}

void dsrCashReceiptsSummary::giveMethods(SubReport& control) const {
    const auto totals = std::make_shared<quillo::dsrCashReceiptsSummarySubReport>(context());
    totals->dicPmtMeth = dicPmtMeth;
    control.Object = totals;
}

void dsrCashReceiptsSummary::gfCurrency_Format() {
    bool shown = false;
    STEP(shown = m_bDisplayForeignCurrency && currencies().CieIsForeignCurrencyUsed());
    if (!shown) return;
    STEP(lblForeignTotalCap.Caption =
             GetText(1641) + " " + currencies().currencies().Item(std::to_string(m_lngCurrentCurrencyId)).CurrencyCode);
    STEP(txtForeignTransaction.Text = locale().number(Money::fromInteger(m_lngRecordCount), 0));
    STEP(txtForeignDiscount.Text = locale().currency(m_curDiscountTotal));
    STEP(txtForeignGrTotal.Text = locale().currency(m_curGrandTotal));
    STEP(giveMethods(dsrForeignCashReceiptsSummarySubReport));
    // The recordset stands on the next currency's first row already.
    STEP(if (!rsCashDisbJournal.atEnd() && rowCurrency() != m_lngCurrentCurrencyId) leaveCurrency());
}

void dsrCashReceiptsSummary::leaveCurrency() {
    m_curGrandTotal = m_curDiscountTotal = Money();
    m_lngRecordCount = 0;
}

void dsrCashReceiptsSummary::ReportFooter_Format() {
    STEP(txtTransaction.Text = locale().number(Money::fromInteger(m_lngRecordCount), 0));
    STEP(txtDiscount.Text = locale().currency(m_curDiscountTotal));
    STEP(txtGrTotal.Text = locale().currency(m_curGrandTotal));
    STEP(giveMethods(dsrCashReceiptsSummarySubReport));
    STEP(setEndLine(lblEnd, 5860));
}

}  // namespace quillo
