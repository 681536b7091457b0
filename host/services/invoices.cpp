#include "host/services/invoices.h"

namespace quillo {

std::unique_ptr<HostRecordset> SqliteInvoiceService::BalanceAtDate(int invoiceId, Date day) {
    constexpr std::string_view balance =
        "SELECT ROUND(COALESCE(InvoiHdr.TotAmnt, 0) - COALESCE(InvoiHdr.RecAmnt, 0)"
        " - COALESCE((SELECT SUM(COALESCE(PmtDet.PmtAmnt, 0) + COALESCE(PmtDet.PmtDisc, 0))"
        " FROM PmtDet INNER JOIN PmtHdr ON PmtHdr.InPmtId = PmtDet.ExPmtId"
        " WHERE PmtDet.ExInvoiId = InvoiHdr.InInvoiId AND PmtHdr.PmtDate <= ?), 0), 2) AS Balance"
        " FROM InvoiHdr WHERE InvoiHdr.InInvoiId = ? AND InvoiHdr.InvoiType IN (1, 2, 3, 4) AND InvoiHdr.InvoiDate <= "
        "?";
    return database_.OpenRecordset(balance, 4, 0, std::vector<Variant>{day, invoiceId, day});
}

}  // namespace quillo
