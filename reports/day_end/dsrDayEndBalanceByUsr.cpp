#include "reports/day_end/dsrDayEndBalanceByUsr.h"

namespace quillo {

dsrDayEndBalanceByUsr::dsrDayEndBalanceByUsr(HostContext& context)
    : DayEndBalance(
          "dsrDayEndBalanceByUsr", context,
          {.dateOptions = DateDisplay::range, .titleId = 6026, .tables = "InvoiHdr.ExUsrKey", .orderBehindComma = true},
          "ExUsrKey") {
    onFormat("ghTrxUsrKey", &dsrDayEndBalanceByUsr::ghTrxUsrKey_Format);
    onFormat("gfTrxUsrKey", &dsrDayEndBalanceByUsr::printSales);
}

std::shared_ptr<DayEndMethodTotals> dsrDayEndBalanceByUsr::makeMethodTotals() {
    return std::make_shared<dsrDayEndBalanceByUsrSubRep>(context());
}

std::string dsrDayEndBalanceByUsr::keyOf(const Variant& value) const {
    return value.isNull() ? "0" : value.toText();
}

void dsrDayEndBalanceByUsr::tellDrawer(dsrDayEndBalanceSubRepVent& drawer, const std::string& key) {
    drawer.UserKey = key;
    if (!rsDayEndBal.atEnd()) drawer.TrxSerNo = rsDayEndBal.Collect("TrxSerNo").textOrEmpty();
}

void dsrDayEndBalanceByUsr::ghTrxUsrKey_Format() {
    enterTill();
    if (rsDayEndBal.atEnd()) return;
    if (rsDayEndBal.Collect("UserName").isNull()) STEP(txtUsrName.Text = GetText(2369));
}

Till::Query dsrDayEndBalanceByUsr::salesLines(const FilterParts& filter) {
    Till::Query query{"SELECT GLAcct.GLAcctId, GLAcct.Descr, InvoiHdr.*, InvoiDet.ExInvoiId, InvoiDet.ExSaleAcctId, "};
    query
        .add(rounded("((InvoiDet.Qty * InvoiDet.UnitPrice * (1 - InvoiDet.DiscPercent/100))  * InvoiHdr.ExchangeRate)"))
        .add(" As Price, ")
        .add(rounded("(InvoiDet.Qty * InvoiDet.UnitPrice  * InvoiHdr.ExchangeRate)"))
        .add(
            " AS Price1,"
            " InvoiDet.DiscPercent, InvoiHdr.ExchangeRate, InvoiHdr.ExUsrKey as UserName "
            " FROM ((InvoiHdr INNER JOIN InvoiDet ON "
            " InvoiHdr.InInvoiId = InvoiDet.ExInvoiId) LEFT JOIN GLAcct "
            " ON GLAcct.InGLAcctId = InvoiDet.ExSaleAcctId) "
            " WHERE InvoiHdr.CashierSale <> 0 AND InvoiHdr.InvoiType NOT IN(")
        .add(Till::uncounted)
        .add(")  AND InvoiHdr.InvoiDate BETWEEN ? AND ? ", {m_dtDateFrom, m_dtDateTo})
        .add(whereClause(filter, OwnWhere::yes))
        .add(" ORDER BY InvoiHdr.ExUsrKey, InvoiDet.ExSaleAcctId" + filter.order);
    return query;
}

// An amount in home currency, converted where it is not in it.
std::string dsrDayEndBalanceByUsr::inHomeCurrency(const char* currency, const char* amount,
                                                  const char* converted) const {
    const std::string home = std::to_string(currencies().CieHomeCurrencyId());
    return isJet(context()) ? " IIF(" + std::string(currency) + " <> " + home + ", " + rounded(converted) + ", " +
                                  amount + ") as RecAmntReCalcul"
                            : " (CASE WHEN " + std::string(currency) + " <> " + home + " THEN " + rounded(converted) +
                                  " ELSE " + amount + " END) as RecAmntReCalcul";
}

// Payments count by the user of the document that they pay.
Till::Query dsrDayEndBalanceByUsr::receiptsByMethod(const std::string& key) {
    Till::Query query{
        "SELECT InvoiHdr.InInvoiId, InvoiHdr.InvoiDate, InvoiHdr.ExUsrKey,"
        " InvoiRecDet.RecAmnt, InvoiRecDet.ExCurrencyId, "
        " WorldCurrency.CurrencyCode, WorldCurrency.Descr, "};
    query.add(rounded("(InvoiRecDet.RecAmnt * InvoiRecDet.ExchangeRate)"))
        .add(" as TotalRecAmnt, PmtMeth.PmtMeth AS RecMeth, ")
        .add(inHomeCurrency("InvoiRecDet.ExCurrencyId", "InvoiRecDet.RecAmnt",
                            "(InvoiRecDet.RecAmnt * InvoiRecDet.ExchangeRate)"))
        .add(
            " FROM ((InvoiRecDet "
            " LEFT JOIN InvoiHdr ON InvoiRecDet.ExInvoiId = InvoiHdr.InInvoiId) "
            " LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = InvoiRecDet.ExPmtMethId) "
            " LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = InvoiRecDet.ExCurrencyId "
            " WHERE InvoiHdr.ExUsrKey = ? AND InvoiHdr.CashierSale <> 0 AND InvoiHdr.InvoiType NOT IN(",
            {key})
        .add(Till::uncounted)
        .add(
            ") AND "
            " InvoiHdr.InvoiDate BETWEEN ? AND ? "
            "UNION ALL "
            "SELECT ExInvoiId As InInvoiId,PmtDate AS InvoiDate, PmtDet.ExUsrKey As ExUsrKey, PmtAmnt As RecAmnt, "
            "PmtHdr.ExCurrencyId AS ExCurrencyId, WorldCurrency.CurrencyCode, WorldCurrency.Descr, ",
            {m_dtDateFrom, m_dtDateTo})
        .add(rounded("(PmtAmnt * PmtHdr.ExchangeRate)"))
        .add(" AS TotalRecAmnt, PmtMeth.PmtMeth As RecMeth, ")
        .add(inHomeCurrency("PmtHdr.ExCurrencyId", "PmtAmnt", "(PmtAmnt * PmtHdr.ExchangeRate)"))
        .add(
            " FROM (((PmtHdr "
            "INNER JOIN PmtDet ON PmtHdr.InPmtId = PmtDet.ExPmtId) "
            "INNER JOIN InvoiHdr ON InvoiHdr.InInvoiId = PmtDet.ExInvoiId) "
            "LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = PmtHdr.ExPmtMethId) "
            "LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = PmtHdr.ExCurrencyId "
            "WHERE PmtDet.CashierPayment <> 0 AND PmtDate BETWEEN ? AND ? AND InvoiHdr.ExUsrKey = ? ",
            {m_dtDateFrom, m_dtDateTo, key})
        .add(m_bForeignUsed ? " ORDER BY CurrencyCode, RecMeth" : " ORDER BY RecMeth");
    return query;
}

// The drawer counts payments by the payment's own user.
Till::Query dsrDayEndBalanceByUsr::drawerRows(const std::string& key) {
    Till::Query query{
        "SELECT InvoiHdr.ExCustid, InvoiHdr.ExUsrKey, InvoiHdr.InvoiDate, InvoiRecDet.ExCurrencyId, "
        "InvoiHdr.InInvoiId, InvoiHdr.InvoiId,"
        " InvoiHdr.TrxSerNo, PmtMeth.PmtMeth AS RecMeth, "};
    query.add(rounded("(InvoiRecDet.RecAmnt * InvoiRecDet.ExchangeRate)"))
        .add(
            " AS RecAmnt, "
            " InvoiRecDet.RecAmnt As RecAmntFor, WorldCurrency.CurrencyCode, WorldCurrency.Descr, 'Cashier' as "
            "RecType, InvoiHdr.InInvoiId as paimentID  "
            " FROM InvoiHdr "
            " INNER JOIN ((InvoiRecDet "
            " LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = InvoiRecDet.ExPmtMethId) "
            " LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = InvoiRecDet.ExCurrencyId) "
            " ON InvoiHdr.InInvoiId = InvoiRecDet.ExInvoiId"
            " WHERE InvoiHdr.ExUsrKey = ? AND InvoiHdr.CashierSale <> 0 AND InvoiHdr.InvoiType NOT IN(",
            {key})
        .add(Till::uncounted)
        .add(
            ") AND"
            " InvoiHdr.InvoiDate BETWEEN ? AND ? ",
            {m_dtDateFrom, m_dtDateTo});
    addCash(query, " AND InvoiRecDet.ExPmtMethId = ? ");
    addPaymentRows(query, "(PmtAmnt * PmtHdr.ExchangeRate)", " AS RecAmnt, PmtAmnt As RecAmntFor, ",
                   "WHERE PmtDet.CashierPayment <> 0 AND PmtDate BETWEEN ? AND ? AND PmtDet.ExUsrKey = ? ", "", key);
    if (m_bIncludeReceipts)
        addPaymentRows(query, "(PmtDet.PmtAmnt * PmtHdr.ExchangeRate)", " AS RecAmnt, PmtDet.PmtAmnt As RecAmntFor, ",
                       "WHERE PmtDet.CashierPayment = 0 AND PmtDate BETWEEN ? AND ? AND PmtDet.ExUsrKey = ? ",
                       "AND NOT PmtDet.ExUsrKey IS NULL ", key);
    return query.add(" ORDER BY CurrencyCode, RecMeth");
}

void dsrDayEndBalanceByUsr::addPaymentRows(Till::Query& query, const char* amount, const char* amountText,
                                           const char* condition, const char* more, const std::string& key) {
    query
        .add(
            "UNION ALL "
            "SELECT InvoiHdr.ExCustid, PmtDet.ExUsrKey AS ExUsrKey, PmtDate As InvoiDate, PmtHdr.ExCurrencyId AS "
            "ExCurrencyId, ExInvoiId As InInvoiId, "
            "InvoiHdr.InvoiId As InvoiId, PmtDet.TrxSerNo As TrxSerNo, PmtMeth.PmtMeth As RecMeth, ")
        .add(rounded(amount))
        .add(amountText)
        .add(
            "WorldCurrency.CurrencyCode, WorldCurrency.Descr, 'Receipt' as RecType, PmtHdr.InPmtId as paimentID "
            "FROM (((PmtHdr INNER JOIN PmtDet ON PmtHdr.InPmtId = PmtDet.ExPmtId) "
            "INNER JOIN InvoiHdr ON InvoiHdr.InInvoiId = PmtDet.ExInvoiId) "
            "LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = PmtHdr.ExPmtMethId) "
            "LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = PmtHdr.ExCurrencyId ")
        .add(condition, {m_dtDateFrom, m_dtDateTo, key})
        .add(more);
    addCash(query, " AND PmtHdr.ExPmtMethId = ? ");
}

Till::Query dsrDayEndBalanceByUsr::salesTotals(const std::string& key) {
    Till::Query query{"SELECT Sum("};
    query.add(rounded("(InvoiHdr.TaxAmnt* InvoiHdr.ExchangeRate)"))
        .add(") as TotTaxAmnt,  Sum(")
        .add(rounded("(InvoiHdr.TotAmnt * InvoiHdr.ExchangeRate)"))
        .add(
            ") as TotalAmnt FROM "
            " InvoiHdr WHERE InvoiHdr.CashierSale <> 0 AND InvoiHdr.InvoiType NOT IN(")
        .add(Till::uncounted)
        .add(
            ") AND "
            " InvoiHdr.InvoiDate BETWEEN ? AND ? AND InvoiHdr.ExUsrKey = ?",
            {m_dtDateFrom, m_dtDateTo, key});
    return query;
}

Till::Query dsrDayEndBalanceByUsr::receiptsTotal(const std::string& key) {
    Till::Query query{"SELECT Sum("};
    query.add(rounded("(InvoiRecDet.RecAmnt * InvoiRecDet.ExchangeRate)"))
        .add(
            ") AS SumRecAmnt"
            " FROM InvoiRecDet Left Join InvoiHdr ON "
            " InvoiHdr.InInvoiId = InvoiRecDet.ExInvoiId WHERE "
            " InvoiHdr.ExUsrKey = ? AND InvoiHdr.CashierSale <> 0 AND InvoiHdr.InvoiType NOT IN(",
            {key})
        .add(Till::uncounted)
        .add(
            ") AND "
            " InvoiHdr.InvoiDate BETWEEN ? AND ?",
            {m_dtDateFrom, m_dtDateTo});
    return query;
}

Till::Query dsrDayEndBalanceByUsr::cashSales(const std::string& key) {
    Till::Query query{"SELECT Sum("};
    query.add(rounded("(InvoiRecDet.RecAmnt * InvoiRecDet.ExchangeRate)"))
        .add(
            ") as TotCashAmnt"
            " FROM InvoiHdr INNER JOIN InvoiRecDet ON"
            " InvoiHdr.InInvoiId = InvoiRecDet.ExInvoiId"
            " WHERE InvoiHdr.ExUsrKey = ? "
            " AND InvoiHdr.CashierSale <> 0 AND InvoiHdr.InvoiType NOT IN(",
            {key})
        .add(Till::uncounted)
        .add(
            ") AND"
            " InvoiHdr.InvoiDate BETWEEN ? AND ?",
            {m_dtDateFrom, m_dtDateTo});
    addCash(query, " AND InvoiRecDet.ExPmtMethId = ?");
    return query.add(" GROUP BY ExUsrKey");
}

}  // namespace quillo
