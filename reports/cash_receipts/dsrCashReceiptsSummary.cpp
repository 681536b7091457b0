#include "reports/cash_receipts/dsrCashReceiptsSummary.h"

#include "framework/drill_tags.h"
#include "reports/cash_receipts/dsrCashReceiptsGLSubReport.h"
#include "reports/cash_receipts/dsrCashReceiptsPmtSubReport.h"
#include "reports/cash_receipts/dsrCashReceiptsSummarySubReport.h"
#include "reports/cash_receipts/receipt_queries.h"
#include "reports/shared/account_texts.h"
#include "reports/shared/currency_texts.h"

namespace quillo {

dsrCashReceiptsSummary::dsrCashReceiptsSummary(HostContext& context)
    : SegmentReport("dsrCashReceiptsSummary", context,
                    {.dateOptions = DateDisplay::range,
                     .companyCurrency = true,
                     .foreign = Foreign::kept,
                     .tables = "GLDet, WorldCurrency",
                     .filterFlagA = false,
                     .ownOrder = true,
                     .endTextId = 5860}) {
    property("IsWithPayments", IsWithPayments);
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
    ghCurrency.Visible = section("gfCurrency").Visible = m_bDisplayForeignCurrency;
    section("ReportFooter").Visible = !m_bDisplayForeignCurrency;
    STEP(m_bAccountNumbers = usesAccountNumbers(context()));
    if (!askFilter()) return;
    STEP(rsCashDisbJournal.Recordset =
             execute(receiptsQuery(segments("GLDet.ExSegmentId"), m_strFilter, context().company().DatabaseKind()),
                     {m_dtDateFrom, m_dtDateTo, m_dtDateFrom, m_dtDateTo}));
    m_payments = std::make_shared<dsrCashReceiptsPmtSubReport>(context());
    m_ledger = std::make_shared<dsrCashReceiptsGLSubReport>(context());
    STEP(Translate());
    if (m_bDisplayForeignCurrency)
        STEP(lblCurrencyName.Caption = currencyHeading(currencies().currencies(), m_lngCurrentCurrencyId));
    dicPmtMeth = std::make_shared<PaymentMethods>();
    STEP(setDateCaption());
    STEP(fillFilterInfo());
}

// The home currency is current from the start, and heads its part since then.
void dsrCashReceiptsSummary::ghCurrency_Format() {
    if (rsCashDisbJournal.atEnd()) {
        ghCurrency.Visible = false;
        return;
    }
    if (!m_bDisplayForeignCurrency || rowCurrency() == m_lngCurrentCurrencyId) return;
    m_lngCurrentCurrencyId = rowCurrency();
    dicPmtMeth = std::make_shared<PaymentMethods>();
    lblCurrencyName.Caption = rsCashDisbJournal.Collect("CurrencyCode").textOrEmpty() + " - " +
                              rsCashDisbJournal.Collect("WorldCurrencyDescr").textOrEmpty();
}

void dsrCashReceiptsSummary::Detail_Format() {
    if (rsCashDisbJournal.atEnd()) return;
    Receipt receipt;
    STEP(m_lngCurrentKey = rsCashDisbJournal.Collect("ExSrcKeyVal").toInt32());
    bool foreignUsed = false;
    STEP(foreignUsed = currencies().CieIsForeignCurrencyUsed());
    if (!foreignUsed) receipt.rate = Money::fromInteger(1);
    if (foreignUsed) STEP(receipt.rate = rsCashDisbJournal.Collect("ExchangeRate").toMoney());
    const std::string source = rsCashDisbJournal.Collect("Source").textOrEmpty();
    if (source == Drill::payment) {
        readPayment(receipt);
    } else if (const MethodQuery* methods = methodQueryOf(source)) {
        dsrCashReceiptsPmtSR.Object.reset();
        STEP(receipt.amount = ledgerAmount(receipt.rate));
        readMethods(receipt, *methods);
    }
    if (receipt.showLedger) fillLedger(receipt);
    SetSubReportsControlsState(receipt.showLedger, receipt.showPayments);
    ++m_lngRecordCount;
    STEP(txtSource.Text = context().utils().SourceText(source));
    STEP(m_curGrandTotal += receipt.amount + receipt.discount);
    STEP(m_curDiscountTotal += receipt.discount);
    txtAmount.Text = locale().currency(receipt.amount);
    txtDisc.Text = locale().currency(receipt.discount);
}

// The ledger is in home currency: meant, while the methods' amounts are taken as they are stored.
Money dsrCashReceiptsSummary::ledgerAmount(Money rate) const {
    const Money amount = rsCashDisbJournal.Collect("DetAmnt").toMoney();
    return m_bDisplayForeignCurrency ? amount / rate : amount;
}

// The short form of the condition, without rows that have no segment.
std::string dsrCashReceiptsSummary::segmentList(std::string_view opening) const {
    return m_strSegmentFilter.empty() ? "" : std::string(opening) + m_strSegmentFilter + ")";
}

std::unique_ptr<HostRecordset> dsrCashReceiptsSummary::lookUp(const std::string& sql) const {
    return context().company().Database().OpenRecordset(sql, 4, 0, m_lngCurrentKey);
}

void dsrCashReceiptsSummary::readPayment(Receipt& receipt) {
    std::unique_ptr<HostRecordset> payment;
    STEP_OF(Detail_Format, payment = lookUp("SELECT PmtTotAmnt, DiscTotAmnt, PmtMeth.PmtMeth, PmtDate, InPmtId "
                                            "FROM (PmtHdr "
                                            "LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = PmtHdr.ExPmtMethId) "
                                            "WHERE PmtHdr.InPmtId = ?" +
                                            segmentList(" AND PmtHdr.ExSegmentId IN (")));
    if (!payment || !payment->hasRows()) return;
    const Money rate = m_bDisplayForeignCurrency ? Money::fromInteger(1) : receipt.rate;
    const auto amount = [&](const char* column) {
        return roundAmount(payment->Value(column, ValueType::currency).moneyOrZero(), 2) * rate;
    };
    STEP_OF(Detail_Format, receipt.amount = amount("PmtTotAmnt"));
    STEP_OF(Detail_Format, receipt.discount = amount("DiscTotAmnt"));
    STEP_OF(Detail_Format, SetDictionary(payment->Value("PmtMeth", ValueType::text).textOrEmpty(), {receipt.amount}));
    if (IsWithPayments) fillPayments(receipt);
}

void dsrCashReceiptsSummary::fillPayments(Receipt& receipt) {
    m_payments->rsPayments.Recordset.reset();  // a query that fails shows no lines, not those of the receipt before
    STEP_OF(Detail_Format, m_payments->rsPayments.Recordset =
                               subQuery("SELECT PmtHdr.PmtDate, InvoiHdr.InvoiId, PmtDet.PmtDisc, PmtDet.PmtAmnt"
                                        " FROM InvoiHdr INNER JOIN (PmtHdr INNER JOIN PmtDet ON (PmtHdr.InPmtId = "
                                        "PmtDet.ExPmtId)) ON "
                                        "InvoiHdr.InInvoiId = PmtDet.ExInvoiId"
                                        " WHERE PmtHdr.InPmtId = ?" +
                                            segmentList(" AND PmtHdr.ExSegmentId IN ("),
                                        m_lngCurrentKey));
    tellRow(*m_payments, receipt);
    dsrCashReceiptsPmtSR.Object = m_payments;
    lblPaymentApplication.Top = dsrCashReceiptsPmtSR.Top;
    receipt.showPayments = receipt.showLedger = true;
}

// A receipt of which nothing is recorded shows no ledger lines even with payments, meant: there is nothing to explain
// its amount by.
void dsrCashReceiptsSummary::readMethods(Receipt& receipt, const MethodQuery& query) {
    std::unique_ptr<HostRecordset> methods;
    STEP_OF(Detail_Format, methods = lookUp(query.text));
    if (methods && !methods->hasRows() && query.otherwise != nullptr)
        STEP_OF(Detail_Format, methods = lookUp(query.otherwise));
    if (!methods) return;
    if (!methods->hasRows()) STEP_OF(Detail_Format, SetDictionary(GetText(2369), {receipt.amount}));
    receipt.showLedger = IsWithPayments && methods->hasRows();
    const Money rate = m_bDisplayForeignCurrency ? Money::fromInteger(1) : receipt.rate;
    for (; !methods->atEnd(); methods->MoveNext())
        STEP_OF(Detail_Format, SetDictionary(methods->Value("PmtMeth", ValueType::text).textOrEmpty(),
                                             {methods->Value("TotAmnt", ValueType::currency).toMoney() * rate}));
}

void dsrCashReceiptsSummary::fillLedger(const Receipt& receipt) {
    std::string sql = m_bAccountNumbers ? "SELECT (GLAcct.GLAcctId + ' - ' + GLAcct.Descr) AS GLDescr"
                                        : "SELECT GLAcct.Descr AS GLDescr";
    sql +=
        ", GLDet.DetAmnt "
        "FROM GLAcct INNER JOIN GLDet ON GLAcct.InGLAcctId = GLDet.ExAcctId "
        "WHERE GLDet.SeqNo = ?";
    sql += segmentList(" AND GLDet.ExSegmentId IN (");
    m_ledger->rsAccount.Recordset.reset();
    STEP_OF(Detail_Format, m_ledger->rsAccount.Recordset = subQuery(sql, rsCashDisbJournal.Collect("SeqNo")));
    tellRow(*m_ledger, receipt);
    fldSeq.Text = m_ledger->SeqNo;
    dsrCashReceiptsGLSR.Object = m_ledger;
    lblGLDistribution.Top = dsrCashReceiptsGLSR.Top;
}

// One command for both sub-reports of a row, made once.
std::shared_ptr<Recordset> dsrCashReceiptsSummary::subQuery(const std::string& sql, const Variant& value) {
    return execute(m_subQuery, sql, {value});
}

void dsrCashReceiptsSummary::tellRow(ReceiptRow& target, const Receipt& receipt) const {
    target.ExchangeRate = receipt.rate;
    target.DisplayWithForeignCurrency = m_bDisplayForeignCurrency;
    target.SeqNo = rsCashDisbJournal.Collect("SeqNo").textOrEmpty();
}

// What has no method, and a method without a name, are one line under one name: "Other".
void dsrCashReceiptsSummary::SetDictionary(const std::string& key, const clsPmtMeth& method) {
    const std::string name = key.empty() ? GetText(2369) : key;
    if (clsPmtMeth* known = dicPmtMeth->find(name)) {
        known->Amount += method.Amount;
    } else {
        dicPmtMeth->Add(name, method);
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

std::shared_ptr<Report> dsrCashReceiptsSummary::methodTotals() const {
    const auto totals = std::make_shared<quillo::dsrCashReceiptsSummarySubReport>(context());
    totals->dicPmtMeth = dicPmtMeth;
    return totals;
}

void dsrCashReceiptsSummary::gfCurrency_Format() {
    bool shown = false;
    STEP(shown = m_bDisplayForeignCurrency && currencies().CieIsForeignCurrencyUsed());
    if (!shown) return;
    STEP(lblForeignTotalCap.Caption =
             GetText(1641) + " " + currencies().currencies().Item(std::to_string(m_lngCurrentCurrencyId)).CurrencyCode);
    txtForeignTransaction.Text = locale().number(Money::fromInteger(m_lngRecordCount), 0);
    txtForeignDiscount.Text = locale().currency(m_curDiscountTotal);
    txtForeignGrTotal.Text = locale().currency(m_curGrandTotal);
    dsrForeignCashReceiptsSummarySubReport.Object = methodTotals();
    // The recordset stands on the next currency's first row already.
    if (rsCashDisbJournal.atEnd() || rowCurrency() == m_lngCurrentCurrencyId) return;
    m_curGrandTotal = m_curDiscountTotal = Money();
    m_lngRecordCount = 0;
}

void dsrCashReceiptsSummary::ReportFooter_Format() {
    txtTransaction.Text = locale().number(Money::fromInteger(m_lngRecordCount), 0);
    txtDiscount.Text = locale().currency(m_curDiscountTotal);
    txtGrTotal.Text = locale().currency(m_curGrandTotal);
    dsrCashReceiptsSummarySubReport.Object = methodTotals();
}

}  // namespace quillo
