#include "reports/day_end/dsrDayEndBalanceByCash.h"

namespace quillo {

dsrDayEndBalanceByCash::dsrDayEndBalanceByCash(HostContext& context)
    : DayEndBalance(
          "dsrDayEndBalanceByCash", context,
          {.dateOptions = DateDisplay::range, .titleId = 6025, .tables = "InvoiHdr.TrxSerNo", .orderBehindComma = true},
          "TrxSerNo") {
    onFormat("ghTrxSerNo", &dsrDayEndBalanceByCash::enterTill);
    onFormat("gfTrxSerNo", &dsrDayEndBalanceByCash::printSales);
}

std::shared_ptr<DayEndMethodTotals> dsrDayEndBalanceByCash::makeMethodTotals() {
    return std::make_shared<dsrDayEndBalanceByCashSubRep>(context());
}

void dsrDayEndBalanceByCash::addKey(Till::Query& query, const char* condition, const std::string& key) {
    if (!key.empty()) query.add(condition, {key});
}

Till::Query dsrDayEndBalanceByCash::salesLines(const FilterParts& filter) {
    Till::Query query{"SELECT GLAcct.GLAcctId, GLAcct.Descr, InvoiHdr.*, InvoiDet.ExInvoiId, InvoiDet.ExSaleAcctId, "};
    query
        .add(rounded("((InvoiDet.Qty * InvoiDet.UnitPrice * (1 - InvoiDet.DiscPercent/100))  * InvoiHdr.ExchangeRate)"))
        .add(" As Price, ")
        .add(rounded("(InvoiDet.Qty * InvoiDet.UnitPrice * InvoiHdr.ExchangeRate)"))
        .add(
            " AS Price1,"
            " InvoiDet.DiscPercent, InvoiHdr.ExchangeRate "
            " FROM (InvoiHdr INNER JOIN InvoiDet ON "
            " InvoiHdr.InInvoiId = InvoiDet.ExInvoiId) LEFT JOIN GLAcct ON "
            " GLAcct.InGLAcctId = InvoiDet.ExSaleAcctId WHERE "
            " InvoiHdr.InvoiDate BETWEEN ? AND ? "
            " AND InvoiHdr.CashierSale <> 0 AND InvoiHdr.InvoiType NOT IN(",
            {m_dtDateFrom, m_dtDateTo})
        .add(Till::uncounted)
        .add(")")
        .add(whereClause(filter, OwnWhere::yes))
        .add(" ORDER BY InvoiHdr.TrxSerNo, InvoiDet.ExSaleAcctId" + filter.order);
    return query;
}

Till::Query dsrDayEndBalanceByCash::receiptsByMethod(const std::string& key) {
    Till::Query query{
        "SELECT InvoiHdr.InInvoiId, InvoiHdr.InvoiDate, InvoiRecDet.ExCurrencyId, InvoiHdr.TrxSerNo, "
        "InvoiRecDet.ExchangeRate, "
        " Round(InvoiRecDet.RecAmnt * InvoiRecDet.ExchangeRate, 2) as RecAmntReCalcul, InvoiRecDet.RecAmnt, "
        " Round(InvoiRecDet.RecAmnt * InvoiRecDet.ExchangeRate, 2) as TotalRecAmnt, PmtMeth.PmtMeth AS RecMeth, "
        " WorldCurrency.CurrencyCode, WorldCurrency.Descr "
        " FROM ((InvoiRecDet LEFT JOIN InvoiHdr ON InvoiRecDet.ExInvoiId = InvoiHdr.InInvoiId) "
        " LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = InvoiRecDet.ExPmtMethId) "
        " LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = InvoiRecDet.ExCurrencyId "
        " WHERE InvoiHdr.CashierSale <> 0 AND InvoiHdr.InvoiType NOT IN("};
    query.add(Till::uncounted).add(")   AND InvoiHdr.InvoiDate BETWEEN ? AND ?", {m_dtDateFrom, m_dtDateTo});
    addKey(query, " AND InvoiHdr.TrxSerNo = ?", key);
    query.add(
        " UNION ALL "
        "SELECT ExInvoiId As InInvoiId, PmtDate As InvoiDate, ExCurrencyId, TrxSerNo, "
        "ExchangeRate,  Round(PmtAmnt * ExchangeRate, 2) as RecAmntReCalcul, "
        "PmtAmnt,  Round(PmtAmnt  * ExchangeRate, 2) as TotalRecAmnt, PmtMeth.PmtMeth As RecMeth, "
        "WorldCurrency.CurrencyCode, WorldCurrency.Descr "
        "FROM ((PmtHdr INNER JOIN PmtDet ON PmtHdr.InPmtId = PmtDet.ExPmtId) "
        "LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = PmtHdr.ExPmtMethId) "
        "LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = PmtHdr.ExCurrencyId "
        "WHERE PmtDet.CashierPayment <> 0 AND PmtDate BETWEEN ? AND ?",
        {m_dtDateFrom, m_dtDateTo});
    addKey(query, " AND TrxSerNo = ?", key);
    return query.add(m_bForeignUsed ? " ORDER BY CurrencyCode, RecMeth" : " ORDER BY RecMeth");
}

Till::Query dsrDayEndBalanceByCash::drawerRows(const std::string& key) {
    Till::Query query{
        "SELECT InvoiHdr.ExCustid, InvoiHdr.InvoiDate, InvoiRecDet.ExCurrencyId, InvoiHdr.InInvoiId, InvoiHdr.InvoiId,"
        " InvoiHdr.TrxSerNo, PmtMeth.PmtMeth AS RecMeth, Round(InvoiRecDet.RecAmnt * InvoiRecDet.ExchangeRate, 2) AS "
        "RecAmnt, "
        " InvoiRecDet.RecAmnt As RecAmntFor, WorldCurrency.CurrencyCode, WorldCurrency.Descr, 'Cashier' as RecType, "
        "InvoiHdr.InInvoiId as paimentID  "
        " FROM InvoiHdr "
        " INNER JOIN ((InvoiRecDet "
        " LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = InvoiRecDet.ExPmtMethId) "
        " LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = InvoiRecDet.ExCurrencyId) "
        " ON InvoiHdr.InInvoiId = InvoiRecDet.ExInvoiId"
        " WHERE InvoiHdr.CashierSale <> 0 AND InvoiHdr.InvoiType NOT IN("};
    query.add(Till::uncounted).add(") AND InvoiHdr.InvoiDate BETWEEN ? AND ? ", {m_dtDateFrom, m_dtDateTo});
    addCash(query, " AND InvoiRecDet.ExPmtMethId = ? ");
    addKey(query, " AND InvoiHdr.TrxSerNo = ? ", key);
    addPaymentRows(query,
                   "SELECT InvoiHdr.ExCustid, PmtDate As InvoiDate, PmtHdr.ExCurrencyId AS ExCurrencyId, ExInvoiId As "
                   "InInvoiId, ",
                   "Round(PmtAmnt * PmtHdr.ExchangeRate, 2) AS RecAmnt, PmtAmnt As RecAmntFor, ",
                   "WHERE PmtDet.CashierPayment <> 0 AND PmtDate BETWEEN ? AND ? ", key);
    if (m_bIncludeReceipts)
        addPaymentRows(query,
                       "SELECT InvoiHdr.ExCustid, PmtHdr.PmtDate As InvoiDate, PmtHdr.ExCurrencyId AS ExCurrencyId, "
                       "ExInvoiId As InInvoiId, ",
                       "Round(PmtDet.PmtAmnt * PmtHdr.ExchangeRate, 2) AS RecAmnt, PmtDet.PmtAmnt As RecAmntFor, ",
                       "WHERE PmtDet.CashierPayment = 0 AND PmtHdr.PmtDate BETWEEN ? AND ? AND NOT PmtDet.TrxSerNo IS "
                       "NULL ",
                       key);
    return query.add(" ORDER BY CurrencyCode, RecMeth");
}

void dsrDayEndBalanceByCash::addPaymentRows(Till::Query& query, const char* dates, const char* amounts,
                                            const char* condition, const std::string& key) {
    query.add("UNION ALL ")
        .add(dates)
        .add("InvoiHdr.InvoiId As InvoiId, PmtDet.TrxSerNo As TrxSerNo, PmtMeth.PmtMeth As RecMeth, ")
        .add(amounts)
        .add(
            "WorldCurrency.CurrencyCode, WorldCurrency.Descr, 'Receipt' as RecType, PmtHdr.InPmtId as paimentID "
            "FROM (((PmtHdr INNER JOIN PmtDet ON PmtHdr.InPmtId = PmtDet.ExPmtId) "
            "INNER JOIN InvoiHdr ON InvoiHdr.InInvoiId = PmtDet.ExInvoiId) "
            "LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = PmtHdr.ExPmtMethId) "
            "LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = PmtHdr.ExCurrencyId ")
        .add(condition, {m_dtDateFrom, m_dtDateTo});
    addCash(query, " AND PmtHdr.ExPmtMethId = ? ");
    addKey(query, " AND PmtDet.TrxSerNo = ? ", key);
}

Till::Query dsrDayEndBalanceByCash::salesTotals(const std::string& key) {
    Till::Query query{
        "SELECT Sum(Round(InvoiHdr.TaxAmnt* InvoiHdr.ExchangeRate, 2)) as TotTaxAmnt, "
        " Sum(Round(InvoiHdr.TotAmnt * InvoiHdr.ExchangeRate, 2)) as TotalAmnt"
        " FROM InvoiHdr WHERE "
        " InvoiHdr.InvoiDate BETWEEN ? AND ? "
        " AND InvoiHdr.CashierSale <> 0 AND InvoiHdr.InvoiType NOT IN(",
        {m_dtDateFrom, m_dtDateTo}};
    query.add(Till::uncounted).add(")");
    addKey(query, " AND InvoiHdr.TrxSerNo = ?", key);
    return query;
}

Till::Query dsrDayEndBalanceByCash::receiptsTotal(const std::string& key) {
    Till::Query query{
        "SELECT 'CashPmt' as Code, Sum(Round(InvoiRecDet.RecAmnt* InvoiRecDet.ExchangeRate, 2)) as "
        "SumRecAmnt "
        " FROM InvoiRecDet LEFT JOIN InvoiHdr"
        " ON InvoiRecDet.ExInvoiId = InvoiHdr.InInvoiId "
        " WHERE InvoiHdr.InvoiDate BETWEEN ? AND ? AND"
        " InvoiHdr.CashierSale <> 0 AND InvoiHdr.InvoiType NOT IN(",
        {m_dtDateFrom, m_dtDateTo}};
    query.add(Till::uncounted).add(")");
    addKey(query, " AND InvoiHdr.TrxSerNo = ?", key);
    return query;
}

Till::Query dsrDayEndBalanceByCash::cashSales(const std::string& key) {
    Till::Query query{
        "SELECT Sum( Round(InvoiRecDet.RecAmnt * InvoiRecDet.ExchangeRate, 2)) as TotCashAmnt"
        " FROM InvoiHdr INNER JOIN InvoiRecDet ON"
        " InvoiHdr.InInvoiId = InvoiRecDet.ExInvoiId"
        " WHERE InvoiHdr.CashierSale <> 0 AND InvoiHdr.InvoiType NOT IN("};
    query.add(Till::uncounted).add(") AND InvoiHdr.InvoiDate BETWEEN ? AND ?", {m_dtDateFrom, m_dtDateTo});
    addKey(query, " AND InvoiHdr.TrxSerNo = ?", key);
    addCash(query, " AND InvoiRecDet.ExPmtMethId = ?");
    return query.add(" GROUP BY TrxSerNo");
}

}  // namespace quillo
