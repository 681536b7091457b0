#include "host/services/customers.h"

#include <algorithm>

#include "framework/values/names.h"
#include "framework/values/text.h"
#include "host/database/host_rows.h"

namespace quillo {
namespace {

// Everything below looks at one day; what is asked stands once.
constexpr std::string_view asked =
    "WITH Asked AS (SELECT ? AS Day, ? AS HomeId, ? AS PaidToo, ? AS CustomerId, ? AS Language),"

    // What payments up to the day took off documents.
    " Settlement AS NOT MATERIALIZED (SELECT PmtDet.ExInvoiId, PmtHdr.InPmtId, PmtHdr.ChqNo, PmtHdr.PmtDate,"
    " PmtHdr.PaymentCreditApplication, COALESCE(PmtDet.PmtAmnt, 0) AS Paid, COALESCE(PmtDet.PmtDisc, 0) AS Discount"
    " FROM PmtDet INNER JOIN PmtHdr ON PmtHdr.InPmtId = PmtDet.ExPmtId"
    " WHERE PmtDet.ExInvoiId IS NOT NULL AND PmtHdr.PmtDate <= (SELECT Day FROM Asked)),";

// The documents of the list. A cash sale is one of them only where money lacks.
constexpr std::string_view documents =
    " Document AS MATERIALIZED (SELECT InvoiHdr.InInvoiId, InvoiHdr.InvoiId, InvoiHdr.InvoiType, InvoiHdr.InvoiDate,"
    " InvoiHdr.ExCustId, InvoiHdr.ExCurrencyId, InvoiHdr.ExSegmentId, COALESCE(InvoiHdr.ExchangeRate, 1) AS Rate,"
    " COALESCE(InvoiHdr.TotAmnt, 0) AS Total, COALESCE(InvoiHdr.RecAmnt, 0) AS Received, InvoiHdr.RecCheqNo"
    " FROM InvoiHdr LEFT JOIN"
    " (SELECT ExInvoiId, SUM(Paid + Discount) AS Amount FROM Settlement GROUP BY ExInvoiId) AS Settled"
    " ON Settled.ExInvoiId = InvoiHdr.InInvoiId"
    " WHERE InvoiHdr.InvoiType IN (1, 2, 3, 4) AND InvoiHdr.InvoiDate <= (SELECT Day FROM Asked)"
    " AND (((SELECT PaidToo FROM Asked) <> 0 AND InvoiHdr.InvoiType <> 2) OR"
    " ROUND(COALESCE(InvoiHdr.TotAmnt, 0) - COALESCE(InvoiHdr.RecAmnt, 0) - COALESCE(Settled.Amount, 0), 2) <> 0)";

// What each payment brought beyond the documents that were there by then, and what a later one used of it; both under
// the payment that brought it.
constexpr std::string_view moneyOnAccount =
    " Applied AS (SELECT Settlement.InPmtId,"
    " SUM(CASE WHEN InvoiHdr.InInvoiId IS NULL THEN -Settlement.Discount ELSE Settlement.Paid END) AS Amount"
    " FROM Settlement LEFT JOIN InvoiHdr ON InvoiHdr.InInvoiId = Settlement.ExInvoiId"
    " AND InvoiHdr.InvoiType IN (1, 2, 3, 4) AND InvoiHdr.InvoiDate <= (SELECT Day FROM Asked)"
    " GROUP BY Settlement.InPmtId),"
    " OnAccount AS MATERIALIZED (SELECT PmtHdr.InPmtId, PmtHdr.ChqNo, PmtHdr.PmtDate, PmtHdr.PaymentCreditApplication,"
    " COALESCE(Source.InPmtId, PmtHdr.InPmtId) AS SourceId, ROUND(COALESCE(PmtHdr.PmtTotAmnt,"
    " (SELECT SUM(PmtDet.PmtAmnt) FROM PmtDet WHERE PmtDet.ExPmtId = PmtHdr.InPmtId), 0)"
    " - COALESCE(Applied.Amount, 0), 4) AS Amount"
    " FROM PmtHdr LEFT JOIN Applied ON Applied.InPmtId = PmtHdr.InPmtId"
    " LEFT JOIN PmtHdr AS Source ON Source.InPmtId = PmtHdr.PaymentCreditApplication"
    " WHERE PmtHdr.PmtDate <= (SELECT Day FROM Asked)"
    " AND ROUND(COALESCE(PmtHdr.PmtTotAmnt,"
    " (SELECT SUM(PmtDet.PmtAmnt) FROM PmtDet WHERE PmtDet.ExPmtId = PmtHdr.InPmtId), 0)"
    " - COALESCE(Applied.Amount, 0), 2) <> 0),"
    " Account AS (SELECT SourceId, SUM(Amount) AS Amount FROM OnAccount GROUP BY SourceId),";

// Documents; what was received on the spot; payments and credits; discounts; money on account; corrections. A credit
// note's own discounts stand in its payments: reports leave those out and take its balance whole.
constexpr std::string_view rows =
    " CustAgingList AS (SELECT ExCustId, ExCurrencyId AS OwnCurrencyId, InInvoiId, InvoiId, InvoiDate,"
    " CASE InvoiType WHEN 2 THEN 1 ELSE InvoiType END AS InvoiType, InvoiType AS DocType,"
    " InvoiDate AS DocOrderDate, InInvoiId AS DocOrderId, Total AS Balance, Rate AS ExchangeRate,"
    " NULL AS PaymentCreditApplication, ExSegmentId FROM Document"

    " UNION ALL SELECT ExCustId, ExCurrencyId, InInvoiId, RecCheqNo, InvoiDate, 99, InvoiType, InvoiDate, InInvoiId,"
    " -Received, Rate, NULL, ExSegmentId FROM Document WHERE Received <> 0"

    " UNION ALL SELECT Document.ExCustId, Document.ExCurrencyId, Settlement.InPmtId, Settlement.ChqNo,"
    " Settlement.PmtDate, 99, Document.InvoiType, Document.InvoiDate, Document.InInvoiId,"
    " -Settlement.Paid - CASE Document.InvoiType WHEN 3 THEN Settlement.Discount ELSE 0 END, Document.Rate,"
    " Settlement.PaymentCreditApplication, Document.ExSegmentId"
    " FROM Document INNER JOIN Settlement ON Settlement.ExInvoiId = Document.InInvoiId"
    " WHERE Settlement.Paid <> 0 OR Document.InvoiType = 3"

    " UNION ALL SELECT Document.ExCustId, Document.ExCurrencyId, Settlement.InPmtId, Settlement.ChqNo,"
    " Settlement.PmtDate, 100, Document.InvoiType, Document.InvoiDate, Document.InInvoiId, -Settlement.Discount,"
    " Document.Rate, Settlement.PaymentCreditApplication, Document.ExSegmentId"
    " FROM Document INNER JOIN Settlement ON Settlement.ExInvoiId = Document.InInvoiId"
    " WHERE Settlement.Discount <> 0 AND Document.InvoiType <> 3"

    " UNION ALL SELECT Source.ExCustId, Source.ExCurrencyId, OnAccount.InPmtId, OnAccount.ChqNo, OnAccount.PmtDate, 99,"
    " 99, Source.PmtDate, Source.InPmtId, -OnAccount.Amount, COALESCE(Source.ExchangeRate, 1),"
    " OnAccount.PaymentCreditApplication, Source.ExSegmentId"
    " FROM OnAccount INNER JOIN PmtHdr AS Source ON Source.InPmtId = OnAccount.SourceId"
    " INNER JOIN Account ON Account.SourceId = OnAccount.SourceId"
    " WHERE (SELECT PaidToo FROM Asked) <> 0 OR ROUND(Account.Amount, 2) <> 0"

    " UNION ALL SELECT ExCustId, NULL, InAdjustId, AdjustId, AdjustDate, 101, 101, AdjustDate, InAdjustId, AdjustAmnt, "
    "1,"
    " NULL, ExSegmentId FROM CustHomeAdjustment"
    " WHERE AdjustDate <= (SELECT Day FROM Asked) AND ROUND(AdjustAmnt, 2) <> 0)";

constexpr std::string_view list =
    " SELECT CustAgingList.ExCustId, Cust.CustId, Cust.Name, Cust.Contact, Cust.Tel1,"
    " COALESCE(Cust.Name, '') || '|' || COALESCE(CustAgingList.ExCustId, '') AS CustNameID,"
    " COALESCE(CustAgingList.OwnCurrencyId, Cust.ExCurrencyId, (SELECT HomeId FROM Asked)) AS ExCurrencyId,"
    " WorldCurrency.CurrencyCode, COALESCE((SELECT Dictionary.Translation FROM Dictionary WHERE Dictionary.Word ="
    " WorldCurrency.Descr AND Dictionary.Language = (SELECT Language FROM Asked)), WorldCurrency.Descr) AS Descr,"
    " CustAgingList.InInvoiId, CustAgingList.InvoiId,"
    " CustAgingList.InvoiDate, CustAgingList.InvoiType, CustAgingList.DocType, CustAgingList.DocOrderDate,"
    " CustAgingList.DocOrderId, CustAgingList.Balance, CustAgingList.ExchangeRate,"
    " CustAgingList.PaymentCreditApplication, CustAgingList.ExSegmentId"
    " FROM CustAgingList LEFT JOIN Cust ON Cust.InCustId = CustAgingList.ExCustId"
    " LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId ="
    " COALESCE(CustAgingList.OwnCurrencyId, Cust.ExCurrencyId, (SELECT HomeId FROM Asked))";

constexpr std::string_view ofOneCustomer = " WHERE CustAgingList.ExCustId = (SELECT CustomerId FROM Asked)";

}  // namespace

std::unique_ptr<HostRecordset> SqliteCustomerService::GetCustAgingList(bool includePaid, int customerId, Date day,
                                                                       std::string_view where, std::string_view order,
                                                                       std::string_view, std::string_view, bool, int) {
    std::string sql(asked);
    sql.append(documents);
    // Not left to the list's own condition: the documents of one customer are found by their index.
    if (customerId != 0) sql += " AND InvoiHdr.ExCustId = (SELECT CustomerId FROM Asked)";
    sql.append("),").append(moneyOnAccount).append(rows).append(list);
    if (customerId != 0) sql += ofOneCustomer;
    if (!where.empty()) sql.append(customerId != 0 ? " AND (" : " WHERE (").append(where).append(")");
    // Rows that the order leaves equal always stand in the same one.
    sql.append(" ORDER BY ").append(order).append(order.empty() ? "" : ", ").append("CustAgingList.InInvoiId");
    const std::shared_ptr<Command> command = file_.database().newCommand();
    command->ActiveConnection = file_.database().ConnectionString();
    command->CommandTimeout = 0;
    command->CommandText = std::move(sql);
    command->Parameters = {day, currencies_.CieHomeCurrencyId(), includePaid, customerId, language_};
    return std::make_unique<HostRows>([command] { return command->Execute(); });
}

std::string SqliteCustomerService::AgingFilterFields(std::string_view without) {
    constexpr std::string_view table = "Cust";
    const auto leftOut = [&](std::string_view column) {
        for (std::string_view rest = without; !rest.empty();) {
            const auto comma = std::min(rest.find(','), rest.size());
            if (equalNames(trimmed(rest.substr(0, comma)), column)) return true;
            rest.remove_prefix(std::min(comma + 1, rest.size()));
        }
        return false;
    };
    std::string fields;
    for (const std::string& column : file_.catalogue().columns(table))
        if (!leftOut(column)) fields.append(fields.empty() ? "" : ", ").append(table).append(".").append(column);
    return fields;
}

}  // namespace quillo
