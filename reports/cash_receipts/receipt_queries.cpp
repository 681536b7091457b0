#include "reports/cash_receipts/receipt_queries.h"

#include <algorithm>
#include <iterator>

#include "framework/query_builder.h"

namespace quillo {
namespace {

// What reached the cash accounts.
std::string ledgerBranch() {
    return "SELECT Sum(GLDet.DetAmnt) as DetAmnt, "
           " Min(GLDet.DetRef) as DetRef, Min(GLDet.Source) as Source, "
           " Min(GLDet.DetDesc) as DetDesc, Min(GLDet.DetDate) as DetDate, "
           " GLDet.SeqNo, Min(GLDet.ExSrcKeyVal) as ExSrcKeyVal, "
           " Min(GLDet.ExCurrencyId) as ExCurrencyId, Min(GLDet.ExchangeRate) "
           " as ExchangeRate, WorldCurrency.CurrencyCode, Min(WorldCurrency.Descr) as WorldCurrencyDescr "
           "FROM ((GLDet "
           "INNER JOIN CashReceiptSequences_View ON "
           "CashReceiptSequences_View.SeqNo = GLDet.SeqNo) "
           "LEFT JOIN GLAcct ON GLAcct.InGLAcctId = GLDet.ExAcctId) "
           "LEFT JOIN WorldCurrency ON GLDet.ExCurrencyId = WorldCurrency.InCurrencyId "
           "WHERE GLDet.DetDate BETWEEN ? AND ? "
           "AND GLAcct.ChqAcct <> 0 AND (GLDet.Source = 'INV' "
           "OR GLDet.Source = 'PMT' OR GLDet.Source = 'TAX') ";
}

// Deposits that are receipts themselves. They know no segments and no filter, meant.
std::string depositsBranch(int databaseKind) {
    std::string sql =
        " UNION"
        " SELECT Sum(DepDet.RecAmnt) as DetAmnt,"
        " ";
    sql += databaseKind == 0 ? "CAST(DepHdr.InDepID AS VARCHAR(8000))" : "CStr(DepHdr.InDepID)";
    sql +=
        " as DetRef,"
        " 'DEP' as Source,"
        " MIN(DepHdr.DepNo) as DetDesc,"
        " MIN(DepHdr.DepDate) as DetDate,"
        " MIN(GL.SeqNo) as SeqNo,"
        " DepHdr.InDepID as ExSrcKeyVal,"
        " Min(DepHdr.ExCurrencyId) as ExCurrencyId,"
        " Min(DepHdr.ExchangeRate)  as ExchangeRate,"
        " Min(WorldCurrency.CurrencyCode),"
        " Min(WorldCurrency.Descr) As WorldCurrencyDescr"
        " FROM ((DepHdr INNER JOIN DepDet ON DepDet.ExDepID = DepHdr.InDepID)"
        " INNER JOIN (SELECT ExSrcKeyVal, MIN(SeqNo) as SeqNo FROM GlDet WHERE SOURCE = 'DEP' GROUP BY ExSrcKeyVal) GL"
        " ON GL.ExSrcKeyVal = DepHdr.InDepID )"
        " LEFT JOIN WorldCurrency ON DepHdr.ExCurrencyId = WorldCurrency.InCurrencyId"
        " WHERE DepHdr.DepDate BETWEEN ? AND ? AND RecExSrcKeyVal IS NULL"
        " GROUP BY DepHdr.InDepID HAVING Sum(DepDet.RecAmnt) >= 0 ";
    return sql;
}

}  // namespace

std::string receiptsQuery(const std::string& segments, const std::string& filter, int databaseKind) {
    const std::string ledger = ledgerBranch() + segments;
    if (filter.empty())
        return "SELECT * FROM (" + ledger +
               " "
               "GROUP BY WorldCurrency.CurrencyCode, GLDet.SeqNo "
               "HAVING "
               "Sum(GLDet.DetAmnt) >= 0" +
               depositsBranch(databaseKind) +
               ") as MainRecodset "
               "ORDER BY CurrencyCode, DetDate, DetRef, SeqNo";
    return "SELECT * FROM (" + ledger + whereClause(splitFilter(filter), OwnWhere::yes) +
           " GROUP BY WorldCurrency.CurrencyCode, GLDet.SeqNo  HAVING "
           "Sum(GLDet.DetAmnt) >= 0 " +
           depositsBranch(databaseKind) +
           ") AS MainRecodset "
           "ORDER BY CurrencyCode, DetDate, DetRef, SeqNo";
}

const MethodQuery* methodQueryOf(std::string_view source) {
    static constexpr MethodQuery all[] = {
        {"INV",
         "SELECT PmtMeth.PmtMeth, Sum(RecAmnt) as TotAmnt "
         " FROM (InvoiRecDet "
         " LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = InvoiRecDet.ExPmtMethId) "
         " WHERE InvoiRecDet.ExInvoiId = ?"
         " GROUP BY PmtMeth.PmtMeth",
         "SELECT PmtMeth.PmtMeth, Sum(RecAmnt) as TotAmnt "
         " FROM (InvoiHdr "
         " LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = InvoiHdr.ExPmtMethId) "
         " WHERE InvoiHdr.InInvoiId = ?"
         " GROUP BY PmtMeth.PmtMeth"},
        {"DEP",
         "SELECT PmtMeth.PmtMeth, Sum(RecAmnt) As TotAmnt "
         "FROM (DepDet LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = DepDet.ExPmtMethId) "
         "WHERE DepDet.ExDepID = ? AND RecExSrcKeyVal IS NULL "
         "GROUP BY PmtMeth.PmtMeth "},
        {"TAX",
         "SELECT PmtMeth.PmtMeth, Sum(Amnt) As TotAmnt "
         "FROM (TaxTrxHdr LEFT JOIN PmtMeth ON PmtMeth.InPmtMethId = TaxTrxHdr.ExPmtMethId) "
         "LEFT JOIN TaxTrxDet ON TaxTrxDet.ExTaxTrxID = TaxTrxHdr.InTaxTrxID "
         "WHERE TaxTrxHdr.InTaxTrxID = ? "
         "GROUP BY PmtMeth.PmtMeth "}};
    const auto* found =
        std::find_if(std::begin(all), std::end(all), [&](const MethodQuery& query) { return query.source == source; });
    return found == std::end(all) ? nullptr : found;
}

}  // namespace quillo
