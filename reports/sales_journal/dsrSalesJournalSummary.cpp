#include "reports/sales_journal/dsrSalesJournalSummary.h"

#include "framework/drill_tags.h"

namespace quillo {
namespace {

// The document kinds that are told apart; all others are invoices.
namespace InvoiceType {
constexpr int creditNote = 3, interest = 4;
}

}  // namespace

dsrSalesJournalSummary::dsrSalesJournalSummary(HostContext& context)
    : SegmentReport(
          "dsrSalesJournalSummary", context,
          {.dateOptions = DateDisplay::range, .titleId = 6324, .companyCurrency = true, .foreign = Foreign::kept}) {
    onFormat("PageHeader", &dsrSalesJournalSummary::PageHeader_Format);
    onFormat("ghCurrency", &dsrSalesJournalSummary::ghCurrency_Format);
    onFormat("ghForCurr", &dsrSalesJournalSummary::ghForCurr_Format);
    onFormat("Detail", &dsrSalesJournalSummary::Detail_Format);
    onFormat("gfCurrency", &dsrSalesJournalSummary::gfCurrency_Format);
    onFormat("ReportFooter", &dsrSalesJournalSummary::ReportFooter_Format);
}

void dsrSalesJournalSummary::ActiveReport_ReportStart() {
    STEP(m_lngHomeCurrencyId = m_lngCurrencyId = currencies().CieHomeCurrencyId());
    if (!askFilter("Cust, InvoiHdr, WorldCurrency")) return;
    STEP(rsInvoiJournal.Recordset = execute(query(), {m_dtDateFrom, m_dtDateTo}));
    STEP(Translate());
    STEP(setDateCaption(lblDateFromDateTo));
    STEP(ghCurrency.Visible = gfCurrency.Visible = m_bDisplayForeignCurrency);
    STEP(section("ReportFooter").Visible = !m_bDisplayForeignCurrency);
    STEP(m_totals = {});
    STEP(m_counts = {});
    STEP(fillFilterInfo(dsrFilterAndSortByInfoSubreport, m_strSegmentFilterDisplay));
}

std::string dsrSalesJournalSummary::query() const {
    std::string sql =
        "SELECT *, InvoiHdr.ExCurrencyId as InvoiHdrExCurrencyId, WorldCurrency.CurrencyCode as WorldCurrencyCode, "
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
        " InvoiHdr.InvoiDate BETWEEN ? AND ?";
    sql += segments("InvoiHdr.ExSegmentId");
    sql += whereClause(filterParts(), OwnWhere::yes);
    // The currency leads whatever the user chose, so that its groups hold together.
    return sql + orderClauseKeeping(filterParts(), "WorldCurrency.CurrencyCode",
                                    " ORDER BY WorldCurrency.CurrencyCode, InvoiHdr.InvoiDate, InvoiHdr.InvoiId");
}

void dsrSalesJournalSummary::PageHeader_Format() {
    STEP(ReplacePageHeaderControls());
}

// Captions of two lines and their rules keep their distances.
void dsrSalesJournalSummary::ReplacePageHeaderControls() {
    const float down = belowFilter(dsrFilterAndSortByInfoSubreport) - lblDateCap.Top;
    for (Label* caption : {&lblDateCap, &lblSourceCap, &lblNoDocCap, &lblClientCap, &lblVenteCap, &lblFreignCap,
                           &lblTaxCap, &lblDiscountCap, &lblTotalCap})
        caption->Top += down;
    for (Line* rule : {&Line1, &Line2}) rule->Y1 = rule->Y2 = rule->Y1 + down;
    section("PageHeader").Height += down;
}

// The current currency starts as home, so that a home currency that comes first goes without its name: meant, only
// foreign amounts are announced there.
void dsrSalesJournalSummary::ghCurrency_Format() {
    if (rsInvoiJournal.atEnd()) {
        ghCurrency.Visible = false;
        return;
    }
    if (!m_bDisplayForeignCurrency) return;
    STEP(ghCurrency.Visible = true);
    STEP(if (rowCurrency() != m_lngCurrencyId) enterCurrency(rowCurrency()));
}

void dsrSalesJournalSummary::enterCurrency(int currencyId) {
    m_lngCurrencyId = currencyId;
    lblCurrencyName.Caption = rsInvoiJournal.Collect("WorldCurrencyCode").textOrEmpty() + " - " +
                              rsInvoiJournal.Collect("WorldCurrencyDescr").textOrEmpty();
}

void dsrSalesJournalSummary::ghForCurr_Format() {
    STEP(gfForCurr.Visible = false);
    if (rsInvoiJournal.atEnd()) return;
    STEP(gfForCurr.Visible = currencies().CieIsForeignCurrencyUsed() && m_bDisplayForeignCurrency &&
                             rowCurrency() != m_lngHomeCurrencyId);
    if (!gfForCurr.Visible) return;
    STEP(lbl1USDestEgalA.Caption = rateLine(m_lngCurrencyId, amount("ExchangeRate")));
}

void dsrSalesJournalSummary::Detail_Format() {
    if (rsInvoiJournal.atEnd()) return;
    STEP(fldDate.Text = context().utils().DateText(rsInvoiJournal.Collect("InvoiDate")));
    STEP(fldName.Text = rsInvoiJournal.Collect("Name").textOrEmpty());
    Money rate;
    STEP(rate = rowRate());
    STEP(txtInvAmnt.Text = locale().currency(salesAmount() * rate));
    STEP(txtShipAmnt.Text = amountOrBlank(amount("ShipAmnt"), rate));
    STEP(txtTaxAmnt.Text = amountOrBlank(amount("TaxAmnt"), rate));
    STEP(txtDiscAmnt.Text = amountOrBlank(amount("DiscTotAmnt"), rate));
    STEP(txtTotal.Text = locale().currency(converted(amount("TotAmnt"), rate)));
    STEP(countDocument(rsInvoiJournal.Collect("InvoiType").int32OrZero()));
    STEP(addToTotals(rate));
    STEP(link(drillTag(Drill::invoice, rsInvoiJournal.Collect("InInvoiId")),
              {&txtInvAmnt, &txtShipAmnt, &txtTaxAmnt, &txtTotal, &fldName, &txtSource, &fldDocNo, &fldDate}));
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

void dsrSalesJournalSummary::countDocument(int type) {
    const bool credit = type == InvoiceType::creditNote;
    txtSource.Text = GetText(credit ? 2874 : type == InvoiceType::interest ? 1394 : 2735);
    ++(credit ? m_counts.credits : m_counts.invoices);
    ++m_counts.documents;
}

void dsrSalesJournalSummary::addToTotals(Money rate) {
    m_totals.sales += converted(salesAmount(), rate);
    m_totals.freight += converted(amount("ShipAmnt"), rate);
    m_totals.tax += converted(amount("TaxAmnt"), rate);
    m_totals.discount += converted(amount("DiscTotAmnt"), rate);
}

std::string dsrSalesJournalSummary::countText(int count) const {
    return locale().number(Money::fromInteger(count), 0);
}

void dsrSalesJournalSummary::gfCurrency_Format() {
    if (!m_bDisplayForeignCurrency || !currencies().CieIsForeignCurrencyUsed()) return;
    STEP(lblForeignCurrency.Caption =
             GetText(1641) + " " + currencies().currencies().Item(std::to_string(m_lngCurrencyId)).CurrencyCode);
    STEP(txtVenteForeign.Text = locale().currency(m_totals.sales));
    STEP(txtTaxForeign.Text = locale().currency(m_totals.tax));
    STEP(txtFreightForeign.Text = locale().currency(m_totals.freight));
    STEP(txtDiscountForeignTotal.Text = locale().currency(m_totals.discount));
    STEP(txtGrForeignTotal.Text = locale().currency(m_totals.grand()));
    // Each footer counts the documents so far, not those of its currency alone: meant, the last one tells them all.
    STEP(txtInvoicesForeign.Text = countText(m_counts.invoices));
    STEP(txtCreditsForeign.Text = countText(m_counts.credits));
    STEP(txtTotalForeign.Text = countText(m_counts.documents));
    STEP(if (!rsInvoiJournal.atEnd() && rowCurrency() != m_lngCurrencyId) m_totals = {});
}

void dsrSalesJournalSummary::ReportFooter_Format() {
    STEP(txtVente.Text = locale().currency(m_totals.sales));
    STEP(txtTax.Text = locale().currency(m_totals.tax));
    STEP(txtFreign.Text = locale().currency(m_totals.freight));
    STEP(txtDiscountTotal.Text = locale().currency(m_totals.discount));
    STEP(txtGrTotal.Text = locale().currency(m_totals.grand()));
    STEP(txtInvoices.Text = countText(m_counts.invoices));
    STEP(txtCredits.Text = countText(m_counts.credits));
    STEP(txtTotal1.Text = countText(m_counts.documents));
}

}  // namespace quillo
