#include "reports/day_end/payment_detail.h"

namespace quillo {

DayEndPaymentDetail::DayEndPaymentDetail(std::string name, HostContext& context)
    : ReportFrame(std::move(name), context, {.dateOptions = DateDisplay::range, .titleId = 6025}) {
    property("PmtMeth", PmtMeth);
    property("AmountIs", AmountIs);
    property("CashPmt", CashPmt);
    property("CurrencyID", CurrencyID);
}

void DayEndPaymentDetail::ActiveReport_ReportStart() {
    STEP(Translate());
    STEP(setDateCaption());
    STEP(txtTotRecAmnt.DataField = currencies().CieIsForeignCurrencyUsed() ? "RecAmntRecalc" : "RecAmnt");
    STEP(m_lngMethodId = findMethod());
    Till::Query receipts;
    STEP(receipts = query());
    STEP(rsDayEndBal.Recordset = execute(receipts.text, receipts.values));
}

// A name that the company does not know narrows nothing.
int DayEndPaymentDetail::findMethod() {
    const int cash = CashPmt ? CashParams(context()).CashPmtMethId() : 0;
    if (PmtMeth.empty()) return cash;
    const auto method =
        context().company().Database().OpenRecordset("SELECT InPmtMethId FROM PmtMeth WHERE PmtMeth=?", 4, 0, PmtMeth);
    return method->atEnd() ? cash : method->Value("InPmtMethId", ValueType::integer).int32OrZero();
}

Till::Query DayEndPaymentDetail::query() const {
    Till::Query query;
    if (AmountIs == "Pos" || AmountIs == "Neg") {
        const std::string sign = AmountIs == "Pos" ? ">=0" : "<=0";
        addSignedReceipts(query, sign);
        addSignedHeaderReceipts(query, sign);
    } else {
        addReceipts(query);
        addPayments(query);
        addHeaderReceipts(query);
    }
    return query.add(" ORDER BY " + std::string(taker().column) + ", RecMeth, InvoiDate, InvoiTime");
}

std::string DayEndPaymentDetail::rounded(const char* expression) const {
    return context().utils().RoundExpression(expression, false);
}

// The user's or register's column of a table.
std::string DayEndPaymentDetail::of(const char* table) const {
    return table + ("." + std::string(taker().column));
}

// The beginning of a block's conditions; another one follows.
void DayEndPaymentDetail::open(Till::Query& query, const char* table) const {
    if (taker().all) {
        query.add(" WHERE");
    } else {
        query.add(" WHERE " + of(table) + " = ? AND", {taker().key});
    }
}

// A condition on a key that was asked for.
void DayEndPaymentDetail::narrow(Till::Query& query, const char* condition, int key) const {
    if (key != 0) query.add(condition, {key});
}

std::string DayEndPaymentDetail::receiptColumns() const {
    return "(SELECT 1 as Code, InvoiHdr.InvoiDate, InvoiHdr.InvoiType , InvoiHdr.InvoiTime,"
           " InvoiHdr.InInvoiId, InvoiHdr.InvoiId, " +
           of("InvoiHdr") + ", PmtMeth.PmtMeth AS RecMeth, " +
           rounded("(InvoiRecDet.RecAmnt * InvoiRecDet.ExchangeRate)") +
           " as RecAmntRecalc,"
           " InvoiRecDet.RecAmnt, InvoiRecDet.RecCheqNo, InvoiHdr.ExUsrKey As UserName,WorldCurrency.CurrencyCode "
           " FROM ((InvoiRecDet "
           " LEFT JOIN InvoiHdr ON InvoiRecDet.ExInvoiId = InvoiHdr.InInvoiId) "
           " LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = InvoiRecDet.ExPmtMethId) "
           " LEFT JOIN WorldCurrency ON InvoiRecDet.ExCurrencyId = WorldCurrency.InCurrencyId";
}

// The currency is the document's here, while the drawer counts by the receipt's: meant, a document in one currency that
// was paid in another is listed where its document is.
void DayEndPaymentDetail::addSignedReceipts(Till::Query& query, const std::string& sign) const {
    query.add(receiptColumns());
    open(query, "InvoiHdr");
    query.add(" InvoiHdr.InvoiDate BETWEEN ? AND ? ", {m_dtDateFrom, m_dtDateTo})
        .add(" AND InvoiHdr.CashierSale <> 0 AND InvoiHdr.InvoiType NOT IN(")
        .add(Till::uncounted)
        .add(") AND InvoiRecDet.RecAmnt " + sign);
    narrow(query, " AND InvoiRecDet.ExPmtMethId = ?", m_lngMethodId);
    narrow(query, " AND InvoiHdr.ExCurrencyId = ?", CurrencyID);
    query.add(" ) UNION ALL ");
}

void DayEndPaymentDetail::addSignedHeaderReceipts(Till::Query& query, const std::string& sign) const {
    query.add(
        "(SELECT 2 as Code, InvoiHdr.InvoiDate, InvoiHdr.InvoiType , InvoiHdr.InvoiTime, InvoiHdr.InInvoiId, "
        " InvoiHdr.InvoiId, " +
        of("InvoiHdr") + ", PmtMeth.PmtMeth AS RecMeth," + rounded("(InvoiHdr.RecAmnt * InvoiHdr.ExchangeRate)") +
        " as RecAmntRecalc,"
        " InvoiHdr.RecAmnt,"
        " InvoiHdr.RecCheqNo, InvoiHdr.ExUsrKey As UserName,WorldCurrency.CurrencyCode "
        " FROM (InvoiHdr"
        " INNER JOIN WorldCurrency ON InvoiHdr.ExCurrencyId = WorldCurrency.InCurrencyId) "
        " LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = InvoiHdr.ExPmtMethId ");
    open(query, "InvoiHdr");
    query.add(" InvoiHdr.InvoiDate BETWEEN ? AND ? ", {m_dtDateFrom, m_dtDateTo})
        .add(" AND InvoiHdr.CashierSale <> 0  AND InvoiHdr.InvoiType = " + std::to_string(Till::order) +
             " AND InvoiHdr.RecAmnt " + sign);
    narrow(query, " AND InvoiHdr.ExPmtMethId = ?", m_lngMethodId);
    query.add(" )");
}

void DayEndPaymentDetail::addReceipts(Till::Query& query) const {
    query.add(receiptColumns());
    open(query, "InvoiHdr");
    query.add(" InvoiHdr.CashierSale <> 0 AND InvoiHdr.InvoiType NOT IN(")
        .add(Till::uncounted)
        .add(") AND InvoiHdr.InvoiDate BETWEEN ? AND ?", {m_dtDateFrom, m_dtDateTo});
    narrow(query, " AND InvoiRecDet.ExCurrencyId = ?", CurrencyID);
    narrow(query, " AND InvoiRecDet.ExPmtMethId = ?", m_lngMethodId);
    query.add(") UNION ALL ");
}

void DayEndPaymentDetail::addPayments(Till::Query& query) const {
    query.add(
        "(SELECT 1 as Code, PmtHdr.PmtDate AS InvoiDate, InvoiHdr.InvoiType , InvoiHdr.InvoiTime,"
        " InvoiHdr.InInvoiId, InvoiHdr.InvoiId, " +
        of("PmtDet") + " AS " + std::string(taker().column) +
        ","
        " PmtMeth.PmtMeth As RecMeth," +
        rounded("(PmtDet.PmtAmnt * PmtHdr.ExchangeRate)") +
        " as RecAmntRecalc,"
        " PmtDet.PmtAmnt AS RecAmnt,"
        " PmtHdr.ChqNo AS RecCheqNo, PmtDet.ExUsrKey As UserName, WorldCurrency.CurrencyCode"
        " FROM (((PmtHdr "
        " INNER JOIN PmtDet ON PmtHdr.InPmtId = PmtDet.ExPmtId) "
        " INNER JOIN InvoiHdr ON PmtDet.ExInvoiId = InvoiHdr.InInvoiId) "
        " LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = PmtHdr.ExPmtMethId) "
        " LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = PmtHdr.ExCurrencyId");
    open(query, "PmtDet");
    query.add(" PmtDet.CashierPayment <> 0 AND InvoiHdr.InvoiType NOT IN(")
        .add(Till::uncounted)
        .add(") AND PmtHdr.PmtDate BETWEEN ? AND ?", {m_dtDateFrom, m_dtDateTo});
    narrow(query, " AND PmtHdr.ExCurrencyId = ?", CurrencyID);
    narrow(query, " AND PmtHdr.ExPmtMethId = ?", m_lngMethodId);
    query.add(") UNION ALL ");
}

// Amount and converted amount stand in the other order than above, so that a deposit on an order prints them so: meant,
// and of no weight, since the balance never counts it.
void DayEndPaymentDetail::addHeaderReceipts(Till::Query& query) const {
    query.add(
        "(SELECT 2 as Code, InvoiHdr.InvoiDate, InvoiHdr.InvoiType , InvoiHdr.InvoiTime, InvoiHdr.InInvoiId,"
        " InvoiHdr.InvoiId, " +
        of("InvoiHdr") +
        ", PmtMeth.PmtMeth AS RecMeth,"
        " InvoiHdr.RecAmnt, " +
        rounded("(InvoiHdr.RecAmnt * InvoiHdr.ExchangeRate)") +
        " as RecAmntRecalc, "
        " InvoiHdr.RecCheqNo, InvoiHdr.ExUsrKey as UserName,WorldCurrency.CurrencyCode "
        " FROM (InvoiHdr "
        " INNER JOIN WorldCurrency ON InvoiHdr.ExCurrencyId = WorldCurrency.InCurrencyId) "
        " LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = InvoiHdr.ExPmtMethId ");
    open(query, "InvoiHdr");
    query.add(" InvoiHdr.CashierSale <> 0 AND InvoiHdr.InvoiDate BETWEEN ? AND ?", {m_dtDateFrom, m_dtDateTo})
        .add(" AND InvoiHdr.InvoiType = " + std::to_string(Till::order));
    narrow(query, " AND InvoiHdr.ExPmtMethId = ?", m_lngMethodId);
    query.add(" )");
}

}  // namespace quillo
