#include "reports/sales_journal/dsrSalesJournalSummary.h"

#include "reports/shared/currency_texts.h"

namespace quillo {
namespace {

// The document kinds that are told apart; all others are invoices.
namespace InvoiceType {
constexpr int creditNote = 3, interest = 4;
}

}  // namespace

dsrSalesJournalSummary::dsrSalesJournalSummary(HostContext& context)
    : SegmentReport("dsrSalesJournalSummary", context,
                    {.dateOptions = DateDisplay::range,
                     .titleId = 6324,
                     .companyCurrency = true,
                     .foreign = Foreign::kept,
                     .tables = "Cust, InvoiHdr, WorldCurrency",
                     .ownOrder = true}) {
    onFormat("ghCurrency", &dsrSalesJournalSummary::ghCurrency_Format);
    onFormat("ghForCurr", &dsrSalesJournalSummary::ghForCurr_Format);
    onFormat("Detail", &dsrSalesJournalSummary::Detail_Format);
    onFormat("gfCurrency", &dsrSalesJournalSummary::gfCurrency_Format);
    onFormat("ReportFooter", &dsrSalesJournalSummary::ReportFooter_Format);
}

void dsrSalesJournalSummary::ActiveReport_ReportStart() {
    STEP(m_lngHomeCurrencyId = m_lngCurrencyId = currencies().CieHomeCurrencyId());
    const bool asked = FilterableReport::ActiveReport_ReportStart(
        {.text = query(),
         .order = " ORDER BY WorldCurrency.CurrencyCode, InvoiHdr.InvoiDate, InvoiHdr.InvoiId",
         .values = {m_dtDateFrom, m_dtDateTo},
         // The currency leads whatever the user chose, so that its groups hold together.
         .keeping = "WorldCurrency.CurrencyCode"});
    if (!asked) return;
    ghCurrency.Visible = gfCurrency.Visible = m_bDisplayForeignCurrency;
    section("ReportFooter").Visible = !m_bDisplayForeignCurrency;
    // The home currency is current from the start, and heads its part since then.
    if (m_bDisplayForeignCurrency)
        STEP(lblCurrencyName.Caption = currencyHeading(currencies().currencies(), m_lngHomeCurrencyId));
}

std::string dsrSalesJournalSummary::query() const {
    return std::string(
               "SELECT *, InvoiHdr.ExCurrencyId as InvoiHdrExCurrencyId, WorldCurrency.CurrencyCode as "
               "WorldCurrencyCode, "
               "WorldCurrency.Descr as WorldCurrencyDescr FROM"
               " ((Cust INNER JOIN InvoiHdr ON Cust.InCustId = InvoiHdr.ExCustId) "
               " LEFT JOIN WorldCurrency ON InvoiHdr.ExCurrencyId = WorldCurrency.InCurrencyId) "
               " WHERE InvoiHdr.InvoiType IN("
               "1"
               ","
               "2"
               ","
               "3"
               ","
               "4"
               ") AND"
               " InvoiHdr.InvoiDate BETWEEN ? AND ?") +
           segments("InvoiHdr.ExSegmentId");
}

// The current currency starts as home, so that a home currency that comes first goes without its name: meant, only
// foreign amounts are announced there.
void dsrSalesJournalSummary::ghCurrency_Format() {
    if (rsInvoiJournal.atEnd()) {
        ghCurrency.Visible = false;
        return;
    }
    if (!m_bDisplayForeignCurrency) return;
    ghCurrency.Visible = true;
    if (rowCurrency() == m_lngCurrencyId) return;
    m_lngCurrencyId = rowCurrency();
    lblCurrencyName.Caption = rsInvoiJournal.Collect("WorldCurrencyCode").textOrEmpty() + " - " +
                              rsInvoiJournal.Collect("WorldCurrencyDescr").textOrEmpty();
}

void dsrSalesJournalSummary::ghForCurr_Format() {
    gfForCurr.Visible = false;
    if (rsInvoiJournal.atEnd()) return;
    STEP(gfForCurr.Visible = currencies().CieIsForeignCurrencyUsed() && m_bDisplayForeignCurrency &&
                             rowCurrency() != m_lngHomeCurrencyId);
    if (!gfForCurr.Visible) return;
    lbl1USDestEgalA.Caption.clear();
    STEP(lbl1USDestEgalA.Caption = rateLine(m_lngCurrencyId, amount("ExchangeRate")));
}

void dsrSalesJournalSummary::Detail_Format() {
    if (rsInvoiJournal.atEnd()) return;
    for (Field* amountText : {&txtInvAmnt, &txtShipAmnt, &txtTaxAmnt, &txtDiscAmnt, &txtTotal})
        amountText->Text.clear();
    Money rate;  // a row whose rate cannot be read counts nothing
    STEP(rate = rowRate());
    STEP(txtInvAmnt.Text = locale().currency(salesAmount() * rate));
    STEP(txtShipAmnt.Text = amountOrBlank(amount("ShipAmnt"), rate));
    STEP(txtTaxAmnt.Text = amountOrBlank(amount("TaxAmnt"), rate));
    STEP(txtDiscAmnt.Text = amountOrBlank(amount("DiscTotAmnt"), rate));
    STEP(txtTotal.Text = locale().currency(converted(amount("TotAmnt"), rate)));
    int type = 0;
    STEP(type = rsInvoiJournal.Collect("InvoiType").int32OrZero());
    const bool credit = type == InvoiceType::creditNote;
    STEP(txtSource.Text = GetText(credit ? 2874 : type == InvoiceType::interest ? 1394 : 2735));
    ++(credit ? m_counts.credits : m_counts.invoices);
    ++m_counts.documents;
    STEP(m_totals.sales += converted(salesAmount(), rate));
    STEP(m_totals.freight += converted(amount("ShipAmnt"), rate));
    STEP(m_totals.tax += converted(amount("TaxAmnt"), rate));
    STEP(m_totals.discount += converted(amount("DiscTotAmnt"), rate));
}

Money dsrSalesJournalSummary::rowRate() const {
    return m_bDisplayForeignCurrency ? Money::fromInteger(1) : amount("ExchangeRate");
}

// What a total keeps of an amount is what the page shows of it: through the locale's text and back.
Money dsrSalesJournalSummary::converted(Money value, Money rate) const {
    return locale().readMoney(locale().number(value * rate));
}

std::string dsrSalesJournalSummary::amountOrBlank(Money value, Money rate) const {
    return value.isZero() ? std::string() : locale().currency(value * rate);
}

std::string dsrSalesJournalSummary::countText(int count) const {
    return locale().number(Money::fromInteger(count), 0);
}

void dsrSalesJournalSummary::gfCurrency_Format() {
    bool foreignUsed = false;
    STEP(foreignUsed = currencies().CieIsForeignCurrencyUsed());
    if (!m_bDisplayForeignCurrency || !foreignUsed) return;
    STEP(lblForeignCurrency.Caption =
             GetText(1641) + " " + currencies().currencies().Item(std::to_string(m_lngCurrencyId)).CurrencyCode);
    showTotals({txtVenteForeign, txtTaxForeign, txtFreightForeign, txtDiscountForeignTotal, txtGrForeignTotal});
    STEP(txtGrForeignTotal.Text = locale().currency(m_totals.grand()));
    // Each footer counts the documents so far, not those of its currency alone: meant, the last one tells them all.
    showCounts(txtInvoicesForeign, txtCreditsForeign, txtTotalForeign);
    if (!rsInvoiJournal.atEnd() && rowCurrency() != m_lngCurrencyId) m_totals = {};
}

void dsrSalesJournalSummary::ReportFooter_Format() {
    showTotals({txtVente, txtTax, txtFreign, txtDiscountTotal, txtGrTotal});
    STEP(txtGrTotal.Text = locale().currency(m_totals.grand()));
    showCounts(txtInvoices, txtCredits, txtTotal1);
}

void dsrSalesJournalSummary::showTotals(const TotalFields& fields) const {
    fields.sales.Text = locale().currency(m_totals.sales);
    fields.tax.Text = locale().currency(m_totals.tax);
    fields.freight.Text = locale().currency(m_totals.freight);
    fields.discount.Text = locale().currency(m_totals.discount);
    fields.grand.Text.clear();
}

void dsrSalesJournalSummary::showCounts(Field& invoices, Field& credits, Field& documents) const {
    invoices.Text = countText(m_counts.invoices);
    credits.Text = countText(m_counts.credits);
    documents.Text = countText(m_counts.documents);
}

}  // namespace quillo
