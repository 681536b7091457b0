#include "reports/ageing/dsrCustTransHistoryRepNova.h"

#include "framework/drill_tags.h"
#include "reports/shared/currency_texts.h"

namespace quillo {
namespace {

// The selects' own texts of the amount. The two servers round differently, and a discount is positive where a payment
// is negative: both meant, a customer's total is compared with histories that were printed before.
struct AmountTexts {
    std::string_view invoice, receipt, payment, discount;
};

constexpr AmountTexts foreignJet{
    " DocDate, InvoiHdr.InvoiType AS Type, CCur(InvoiHdr.TotAmnt) AS Amount, InvoiHdr.ExchangeRate as Rate,",
    " DocDate, 99 AS Type, -CCur(InvoiHdr.RecAmnt) AS Amount, InvoiHdr.ExchangeRate as Rate,",
    " '' as DiscDrillId, PmtHdr.ChqNo AS DocNumber, PmtHdr.PmtDate AS DocDate,99 AS Type, -CCur(PmtHdr.PmtTotAmnt) ",
    " CustAgingPmtsDiscounts_View.PmtDate AS DocDate, 100 AS Type, CCur(CustAgingPmtsDiscounts_View.DetAmnt) AS "
    "Amount, ExchangeRate as Rate,"};

constexpr AmountTexts foreignServer{
    " DocDate, InvoiHdr.InvoiType AS Type, ROUND(InvoiHdr.TotAmnt, 2) AS Amount, InvoiHdr.ExchangeRate as Rate,",
    " DocDate, 99 AS Type, - ROUND(InvoiHdr.RecAmnt, 2) AS Amount, InvoiHdr.ExchangeRate as Rate,",
    " '' as DiscDrillId, PmtHdr.ChqNo AS DocNumber, PmtHdr.PmtDate AS DocDate,99 AS Type, - ROUND(PmtHdr.PmtTotAmnt, "
    "2) ",
    " CustAgingPmtsDiscounts_View.PmtDate AS DocDate, 100 AS Type, ROUND(CustAgingPmtsDiscounts_View.DetAmnt, 2) AS "
    "Amount, ExchangeRate as Rate,"};

constexpr AmountTexts homeJet{
    " DocDate, InvoiHdr.InvoiType AS Type, CCur(InvoiHdr.TotAmnt * IIf(InvoiHdr.ExchangeRate <> 0 AND "
    "InvoiHdr.ExchangeRate <> Null,"
    " InvoiHdr.ExchangeRate, 1)) AS Amount, InvoiHdr.ExchangeRate as Rate,",
    " DocDate, 99 AS Type, -CCur(InvoiHdr.RecAmnt * IIf(InvoiHdr.ExchangeRate <> 0 AND InvoiHdr.ExchangeRate <> Null,"
    " InvoiHdr.ExchangeRate, 1)) AS Amount, InvoiHdr.ExchangeRate as Rate,",
    " '' as DiscDrillId, PmtHdr.ChqNo AS DocNumber, PmtHdr.PmtDate AS DocDate,99 AS Type, CCur(-(PmtHdr.PmtTotAmnt) * "
    " IIF(PmtHdr.ExchangeRate <> 0 AND PmtHdr.ExchangeRate <> Null, PmtHdr.ExchangeRate, 1)) ",
    " CustAgingPmtsDiscounts_View.PmtDate AS DocDate, 100 AS Type, CCur(CustAgingPmtsDiscounts_View.DetAmnt * "
    " IIF(ExchangeRate <> 0 AND ExchangeRate <> Null, ExchangeRate, 1)) AS Amount, ExchangeRate as Rate,"};

constexpr AmountTexts homeServer{
    " DocDate, InvoiHdr.InvoiType AS Type, ROUND(InvoiHdr.TotAmnt * COALESCE(InvoiHdr.ExchangeRate, 1), 2) AS Amount, "
    "InvoiHdr.ExchangeRate as Rate,",
    " DocDate, 99 AS Type, -ROUND(InvoiHdr.RecAmnt * COALESCE(InvoiHdr.ExchangeRate, 1), 2) AS Amount, "
    "InvoiHdr.ExchangeRate as Rate,",
    " '' as DiscDrillId, PmtHdr.ChqNo AS DocNumber, PmtHdr.PmtDate AS DocDate,99 AS Type, ROUND(-(PmtHdr.PmtTotAmnt) * "
    " COALESCE(PmtHdr.ExchangeRate, 1), 2) ",
    " CustAgingPmtsDiscounts_View.PmtDate AS DocDate, 100 AS Type, ROUND(CustAgingPmtsDiscounts_View.DetAmnt * "
    " COALESCE(CustAgingPmtsDiscounts_View.ExchangeRate, 1), 2) AS Amount, ExchangeRate as Rate,"};

const AmountTexts& amountTexts(bool foreign, bool jet) {
    if (foreign) return jet ? foreignJet : foreignServer;
    return jet ? homeJet : homeServer;
}

constexpr std::string_view invoiceColumns =
    "SELECT 'INV' AS Doc, 'InvDrill' as DrillType, InvoiHdr.ExCustId AS CustId, Cust.CustId AS CustCode, Cust.Name ";
constexpr std::string_view currencyColumns = " WorldCurrency.CurrencyCode, WorldCurrency.Descr ";
constexpr std::string_view invoiceTables =
    " FROM (InvoiHdr INNER JOIN Cust ON "
    " InvoiHdr.ExCustId = Cust.InCustId) LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = Cust.ExCurrencyId ";
constexpr std::string_view unionAll = " UNION ALL ";

std::string join(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) text += part;
    return text;
}

std::string invoices(std::string_view amount) {
    return join(
        {invoiceColumns,
         " AS CustName, Cust.ExCurrencyId, InvoiHdr.InInvoiId AS DocId, '' as DiscDrillId,  InvoiHdr.InvoiId AS "
         "DocNumber, InvoiHdr.InvoiDate AS ",
         amount, currencyColumns, invoiceTables, " WHERE InvoiHdr.InvoiDate BETWEEN ? AND ? "});
}

std::string receipts(std::string_view amount) {
    return join({invoiceColumns,
                 " AS CustName, Cust.ExCurrencyId, InvoiHdr.InInvoiId AS DocId, '' as DiscDrillId,  InvoiHdr.RecCheqNo "
                 "AS DocNumber, InvoiHdr.InvoiDate AS ",
                 amount, currencyColumns, invoiceTables,
                 " WHERE InvoiHdr.RecAmnt <> 0 AND InvoiHdr.InvoiDate BETWEEN ? AND ? "});
}

std::string payments(std::string_view amount) {
    return join(
        {"SELECT 'PMT' AS Doc, 'PmtDrill' as DrillType, "
         " PmtHdr.ExCustId AS CustId, Cust.CustId AS CustCode, Cust.Name AS CustName, Cust.ExCurrencyId, "
         " PmtHdr.InPmtId AS DocId, ",
         amount, " As Amount, PmtHdr.ExchangeRate as Rate,", currencyColumns,
         " FROM (PmtHdr INNER JOIN Cust ON PmtHdr.ExCustId = Cust.inCustId) LEFT JOIN WorldCurrency ON "
         "WorldCurrency.InCurrencyId = Cust.ExCurrencyId "
         " WHERE PmtHdr.PmtDate BETWEEN ? AND ? "});
}

std::string discounts(std::string_view amount) {
    return join(
        {"SELECT 'PMT' AS Doc, 'DiscDrill' as DrillType, "
         " CustAgingPmtsDiscounts_View.ExCustId AS CustId, Cust.CustId AS CustCode, Cust.Name AS CustName, "
         "Cust.ExCurrencyId, "
         " CustAgingPmtsDiscounts_View.DocOrderId AS DocId, CustAgingPmtsDiscounts_View.ExPmtId as "
         "DiscDrillId, CustAgingPmtsDiscounts_View.ChqNo AS DocNumber, ",
         amount, currencyColumns,
         " FROM (CustAgingPmtsDiscounts_View INNER JOIN Cust ON CustAgingPmtsDiscounts_View.ExCustId = "
         "Cust.InCustId) LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = Cust.ExCurrencyId "
         " WHERE CustAgingPmtsDiscounts_View.PmtDate BETWEEN ? AND ? "});
}

// The text of a row's kind.
int typeText(const Variant& type) {
    constexpr int cashSale = 2907;
    switch (type.int32OrZero()) {
        case 100:
            return 2853;
        case 99:
            return 2788;
        case 4:
            return 2912;
        case 1:
            return 2916;
        case 51:
            return 2780;
        case 50:
            return 2779;
        case 3:
            return 2860;
        default:
            return cashSale;
    }
}

}  // namespace

dsrCustTransHistoryRepNova::dsrCustTransHistoryRepNova(HostContext& context)
    : ReportFrame("dsrCustTransHistoryRepNova", context,
                  {.dateOptions = DateDisplay::range,
                   .titleId = 6265,
                   .companyCurrency = true,
                   .foreign = Foreign::kept,
                   .endTextId = 7622}) {
    onFormat("ghCurrency", &dsrCustTransHistoryRepNova::ghCurrency_Format);
    onFormat("ghCust", &dsrCustTransHistoryRepNova::ghCust_Format);
    onFormat("Detail", &dsrCustTransHistoryRepNova::Detail_Format);
}

void dsrCustTransHistoryRepNova::ActiveReport_ReportStart() {
    STEP(m_bCustomerCodes = Setting(Setting::customerCodes));
    std::vector<Variant> values;
    for (int select = 0; select < 4; ++select) values.insert(values.end(), {m_dtDateFrom, m_dtDateTo});
    STEP(rcsCustHistory.Recordset = execute(query(), values));
    STEP(Translate());
    STEP(setDateCaption());
}

std::string dsrCustTransHistoryRepNova::query() {
    const AmountTexts& amount = amountTexts(m_bDisplayForeignCurrency, isJet(context()));
    return join({invoices(amount.invoice), unionAll, receipts(amount.receipt), unionAll, payments(amount.payment),
                 unionAll, discounts(amount.discount),
                 m_bDisplayForeignCurrency ? " ORDER BY WorldCurrency.CurrencyCode, CustId, Type, DocDate"
                                           : " ORDER BY CustId, Type, DocDate"});
}

void dsrCustTransHistoryRepNova::ghCurrency_Format() {
    ghCurrency.Visible = m_bDisplayForeignCurrency;
    // A customer without a currency is dealt with in the home currency.
    const bool unknown = !rcsCustHistory.atEnd() && rcsCustHistory.Collect("CurrencyCode").isNull();
    if (unknown)
        STEP(txtCurrencyDescr.Text = currencyHeading(currencies().currencies(), currencies().CieHomeCurrencyId()));
}

void dsrCustTransHistoryRepNova::ghCust_Format() {
    ghCust.Visible = !rcsCustHistory.atEnd();
    if (!ghCust.Visible) return;
    std::string customer;
    if (m_bCustomerCodes) STEP(customer = rcsCustHistory.Collect("CustCode").textOrEmpty() + " - ");
    STEP(customer += rcsCustHistory.Collect("CustName").textOrEmpty());
    lblCustInfo.Caption = customer;
    STEP(lblCustTotal.Caption = GetText(2710) + " " + GetText(1573) + ": " + customer);
    ++m_lngRecordCount;
}

void dsrCustTransHistoryRepNova::Detail_Format() {
    if (rcsCustHistory.atEnd()) return;
    STEP(txtDocType.Caption = GetText(typeText(rcsCustHistory.Collect("Type"))));
    std::string tag;
    STEP(tag = drillTagOfRow());
    link(tag, {&txtDocNumber, &txtDocDate, &txtDocType, &txtAmount});
}

// A discount leads to its document and to the payment that granted it.
std::string dsrCustTransHistoryRepNova::drillTagOfRow() const {
    const std::string tag = drillTag(rcsCustHistory.Collect("Doc").textOrEmpty(), rcsCustHistory.Collect("DocId"));
    const bool isDiscount = rcsCustHistory.Collect("DrillType").textOrEmpty() == "DiscDrill";
    return isDiscount ? tag + "|" + plainTag(rcsCustHistory.Collect("DiscDrillId")) : tag;
}

}  // namespace quillo
