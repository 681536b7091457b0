#include "reports/ageing/ageing_report.h"

#include "framework/drill_tags.h"
#include "reports/shared/MUtils.h"

namespace quillo {

AgeingRow::AgeingRow(const std::shared_ptr<Recordset>& rows)
    : ExCustId(rows, "ExCustId"),
      ExCurrencyId(rows, "ExCurrencyId"),
      InInvoiId(rows, "InInvoiId"),
      InvoiDate(rows, "InvoiDate"),
      InvoiType(rows, "InvoiType"),
      DocOrderDate(rows, "DocOrderDate"),
      DocOrderId(rows, "DocOrderId"),
      Balance(rows, "Balance"),
      ExchangeRate(rows, "ExchangeRate"),
      PaymentCreditApplication(rows, "PaymentCreditApplication") {}

void AgeFields::show(const LocaleFormat& locale, const AgeAmounts& amounts, Money total, Zero zero) {
    for (std::size_t i = 0; i < ageColumns; ++i)
        columns_[i]->Text = zero == Zero::blank && amounts[i].isZero() ? "" : locale.currency(amounts[i]);
    total_.Text = locale.currency(total);
}

void AgeFields::setVisible(bool visible) {
    for (Field* field : columns_) field->Visible = visible;
    total_.Visible = visible;
}

void AgeFields::link(std::string_view tag) {
    for (Field* field : columns_) field->Hyperlink = tag;
    total_.Hyperlink = tag;
}

AgeingReport::AgeingReport(std::string name, HostContext& context, int titleId)
    : ComparableReport<SegmentReport>(std::move(name), context,
                                      {.dateOptions = DateDisplay::closingDate,
                                       .titleId = titleId,
                                       .companyCurrency = true,
                                       .foreign = Foreign::kept,
                                       .filterOptional = true}) {
    onFormat("PageHeader", &AgeingReport::PageHeader_Format);
}

AgeFields AgeingReport::amountFields(std::string_view line) const {
    const std::string ending(line);
    return {{&field("txtPer1" + ending), &field("txtPer2" + ending), &field("txtPer3" + ending),
             &field("txtPer4" + ending)},
            field(ending.empty() ? "txtTotal" : "txtTot" + ending)};
}

std::string AgeingReport::filterTables() const {
    CustomerService& customers = context().company().customers();
    std::string tables = customers.AgingFilterFields("ExCurrencyID,InCustID");
    if (isForeignUsed()) tables += "," + customers.CurrencyFilterFields();
    return tables;
}

void AgeingReport::ActiveReport_ReportStart(const ListWish& wish) {
    STEP(m_HomeCurrencyId = m_CurrentCurrencyId = currencies().CieHomeCurrencyId());
    ghCurrency.Visible = gfCurrency.Visible = m_bDisplayForeignCurrency;
    section("ReportFooter").Visible = !m_bDisplayForeignCurrency;
    // In home currency a customer stays one group, also with documents in several currencies.
    if (!m_bDisplayForeignCurrency) ghCurrency.DataField.clear();
    STEP(m_periods.Period1 = agePeriod(context().company(), "CustPriod1", "30"));
    STEP(m_periods.Period2 = agePeriod(context().company(), "CustPriod2", "60"));
    STEP(m_periods.Period3 = agePeriod(context().company(), "CustPriod3", "90"));
    if (!askFilter()) return;
    bool configures = false;
    STEP(configures = !m_bDisplayForeignCurrency && isForeignUsed());
    if (configures) STEP(currencies().ConfigureExchangeRates(m_dtDateTo, *this));
    std::unique_ptr<HostRecordset> list;
    STEP(list = ageingList(wish));
    if (list) STEP(list->setFilter(wish.rowFilter));
    if (list) STEP(rsInvoiJournal.Recordset = list->inner());
    if (rsInvoiJournal.Recordset) STEP(m_row = AgeingRow(rsInvoiJournal.Recordset));
    STEP(Translate());
    STEP(setDateCaption());
    STEP(fillFilterInfo());
}

std::unique_ptr<HostRecordset> AgeingReport::ageingList(const ListWish& wish) const {
    const FilterParts filter = filterParts();
    return context().company().customers().GetCustAgingList(
        wish.includePaid, wish.customer, m_dtDateTo, ageingCondition(filter, firstSegments("ExSegmentId")),
        ageingOrder(filter, m_bDisplayForeignCurrency), "", "", true, 0);
}

void AgeingReport::PageHeader_Format() {
    for (std::size_t i = 0; i < ageColumns; ++i) periodCaptions[i]->Caption = m_periods.caption(i);
}

Money AgeingReport::rowBalance(int kind) {
    if (kind != ReceivableKind::creditNote) return m_row.Balance.view().moneyOrZero();
    return InvoiceBalanceAtDate(m_row.InInvoiId.view().toInt32(), m_dtDateTo);
}

Money AgeingReport::rowRate() const {
    if (m_CurrentCurrencyId == m_HomeCurrencyId) return Money::fromInteger(1);
    return m_row.ExchangeRate.view().moneyOrZero();
}

std::size_t AgeingReport::rowColumn() const {
    return m_periods.columnOf(ageInDays(m_row.DocOrderDate.view().toDate(), m_dtDateTo, application().SessionDate()));
}

Money AgeingReport::InvoiceBalanceAtDate(int invoice, Date day) {
    Money balance;
    if (m_objInvoice == nullptr) STEP(m_objInvoice = &context().company().invoices());
    if (m_objInvoice == nullptr) return balance;
    std::unique_ptr<HostRecordset> row;
    STEP(row = m_objInvoice->BalanceAtDate(invoice, day));
    if (row && row->hasRows()) STEP(balance = row->Value("Balance", ValueType::currency).moneyOrZero());
    return balance;
}

Money AgeingReport::showAdjustments(Label& caption, Field& amount, bool byCurrency) {
    caption.Visible = amount.Visible = false;
    std::string key;
    const Money sum = MUtils::GetARAdjustments(context(), m_dtDateTo, m_strSegmentFilter, m_bSegmentNoneFilter,
                                               byCurrency, key, byCurrency ? m_CurrentCurrencyId : 0);
    if (sum.isZero()) return sum;
    amount.Text = locale().currency(sum);
    amount.Hyperlink = drillTag(Drill::receivablesAdjustment, Variant(key));
    caption.Visible = amount.Visible = true;
    return sum;
}

}  // namespace quillo
