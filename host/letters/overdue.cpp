#include "host/letters/overdue.h"

#include <algorithm>
#include <cmath>

#include "host/database/sql_rewriter.h"

namespace quillo {
namespace {

// One pass over the documents and one over the payments, whatever the number of customers. ?1 is the day, ?2 the home
// currency.
constexpr std::string_view openSql = R"(
WITH Settled AS (
  SELECT PmtDet.ExInvoiId, SUM(COALESCE(PmtDet.PmtAmnt, 0) + COALESCE(PmtDet.PmtDisc, 0)) AS Amount
  FROM PmtDet INNER JOIN PmtHdr ON PmtHdr.InPmtId = PmtDet.ExPmtId
  WHERE PmtHdr.PmtDate <= ?1 AND PmtDet.ExInvoiId IS NOT NULL GROUP BY PmtDet.ExInvoiId),
OnAccount AS (
  SELECT Source.InPmtId, -SUM(COALESCE(PmtDet.PmtAmnt, 0)) AS Amount
  FROM PmtDet INNER JOIN PmtHdr ON PmtHdr.InPmtId = PmtDet.ExPmtId
       INNER JOIN PmtHdr AS Source ON Source.InPmtId = COALESCE(NULLIF(PmtHdr.PaymentCreditApplication, 0), PmtHdr.InPmtId)
  WHERE PmtHdr.PmtDate <= ?1 AND PmtDet.ExInvoiId IS NULL GROUP BY Source.InPmtId),
Open AS (
  SELECT InvoiHdr.ExCustId, InvoiHdr.InvoiId AS Number, InvoiType.Description AS Kind, InvoiHdr.InvoiDate AS DocDate,
         COALESCE(InvoiHdr.DueDate, InvoiHdr.InvoiDate) AS DueDate, InvoiHdr.ExCurrencyId,
         COALESCE(InvoiHdr.TotAmnt, 0) - COALESCE(InvoiHdr.RecAmnt, 0) - COALESCE(Settled.Amount, 0) AS Amount
  FROM InvoiHdr LEFT JOIN Settled ON Settled.ExInvoiId = InvoiHdr.InInvoiId
       LEFT JOIN InvoiType ON InvoiType.ID = InvoiHdr.InvoiType
  WHERE InvoiHdr.InvoiType IN (1, 2, 3, 4) AND InvoiHdr.InvoiDate <= ?1
  UNION ALL
  SELECT PmtHdr.ExCustId, PmtHdr.ChqNo, NULL, PmtHdr.PmtDate, PmtHdr.PmtDate, PmtHdr.ExCurrencyId, OnAccount.Amount
  FROM OnAccount INNER JOIN PmtHdr ON PmtHdr.InPmtId = OnAccount.InPmtId)
SELECT Open.ExCustId, Open.Number, Open.Kind, Open.DocDate, Open.DueDate,
       COALESCE(Open.ExCurrencyId, Cust.ExCurrencyId, ?2), Open.Amount
FROM Open INNER JOIN Cust ON Cust.InCustId = Open.ExCustId
WHERE ROUND(Open.Amount, 2) <> 0 ORDER BY Open.ExCustId, Open.DueDate, Open.DocDate, Open.Number)";

// The sums of the documents, and whether any currency is owed for that long.
bool owesFor(OverdueCustomer& customer, Date at, int minDays) {
    std::map<int, Money> pastDue, late, favour;
    for (const OpenDocument& document : customer.documents) {
        const int days = daysPastDue(document, at);
        customer.balances[document.currencyId] += document.balance;
        if (document.balance < Money()) {
            favour[document.currencyId] += document.balance;
        } else if (days > 0) {
            pastDue[document.currencyId] += document.balance;
            if (days >= minDays) late[document.currencyId] += document.balance;
            customer.oldestDays = std::max(customer.oldestDays, days);
        }
    }
    for (const auto& [currency, amount] : pastDue)
        if (const Money owed = amount + favour[currency]; owed > Money()) customer.overdue[currency] = owed;
    return std::any_of(late.begin(), late.end(),
                       [&](const auto& sum) { return sum.second + favour[sum.first] > Money(); });
}

}  // namespace

int daysPastDue(const OpenDocument& document, Date at) {
    return static_cast<int>(std::floor(at.days) - std::floor(document.dueDate.days));
}

std::vector<OpenDocument> openDocuments(const CompanyFile& company, Date at) {
    sqlite::Statement rows(company.handle(), rewriteSql(openSql));
    const std::string day = at.isoText();
    rows.bind(1, day).bind(2, company.integerFact("HomeCurrencyId", 1));
    std::vector<OpenDocument> documents;
    while (rows.step()) {
        OpenDocument& document = documents.emplace_back();
        document.customerId = static_cast<int>(rows.integer(0));
        document.number = rows.text(1);
        document.kind = rows.text(2);
        document.date = Date::parseIsoDay(rows.text(3)).value_or(noDate);
        document.dueDate = Date::parseIsoDay(rows.text(4)).value_or(document.date);
        document.currencyId = static_cast<int>(rows.integer(5));
        document.balance = Money::fromDouble(rows.real(6));
    }
    return documents;
}

std::vector<OverdueCustomer> overdueCustomers(const CompanyFile& company, Date at, int minDays) {
    std::map<int, OverdueCustomer> byKey;
    for (OpenDocument& document : openDocuments(company, at))
        byKey[document.customerId].documents.push_back(std::move(document));
    std::vector<OverdueCustomer> overdue;
    sqlite::Statement rows(company.handle(), "SELECT InCustId, CustId, Name FROM Cust ORDER BY Name, InCustId");
    while (rows.step()) {
        const auto found = byKey.find(static_cast<int>(rows.integer(0)));
        if (found == byKey.end()) continue;
        OverdueCustomer& customer = found->second;
        if (!owesFor(customer, at, minDays)) continue;
        customer.id = found->first;
        customer.code = rows.text(1);
        customer.name = rows.text(2);
        overdue.push_back(std::move(customer));
    }
    return overdue;
}

}  // namespace quillo
