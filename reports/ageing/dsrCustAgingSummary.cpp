#include "reports/ageing/dsrCustAgingSummary.h"

#include <algorithm>

#include "framework/drill_tags.h"
#include "reports/shared/currency_texts.h"

namespace quillo {

dsrCustAgingSummary::dsrCustAgingSummary(HostContext& context) : AgeingReport("dsrCustAgingSummary", context, 6083) {
    onFormat("PageHeader", &dsrCustAgingSummary::PageHeader_Format);
    onFormat("ghCurrency", &dsrCustAgingSummary::ghCurrency_Format);
    onFormat("ghCustId", &dsrCustAgingSummary::ghCustId_Format);
    onFormat("Detail", &dsrCustAgingSummary::Detail_Format);
    onFormat("gfCustId", &dsrCustAgingSummary::gfCustId_Format);
    onFormat("gfCurrency", &dsrCustAgingSummary::gfCurrency_Format);
    onFormat("ReportFooter", &dsrCustAgingSummary::ReportFooter_Format);
}

void dsrCustAgingSummary::ActiveReport_ReportStart() {
    AgeingReport::ActiveReport_ReportStart({.rowFilter = "DocType <> 3 Or InvoiType <> 99 Or InInvoiId = NULL"});
}

void dsrCustAgingSummary::PageHeader_Format() {
    txtCurrencyRates.Visible = false;
    txtCurrencyRates.Text.clear();
    STEP(txtCurrencyRates.Visible = m_bReevaluate && isForeignUsed());
    if (!txtCurrencyRates.Visible) return;
    STEP(txtCurrencyRates.Text = currencies().currencies().GetCurrenciesLegend(m_objExchangeRates));
}

void dsrCustAgingSummary::ghCurrency_Format() {
    if (rsInvoiJournal.atEnd()) {
        ghCurrency.Visible = false;
        return;
    }
    lblCurrencyName.Caption.clear();
    STEP(enterCurrency());
    if (m_row.ExCurrencyId.view().isNull()) return;
    STEP(lblCurrencyName.Caption = currencyHeading(currencies().currencies(), m_CurrentCurrencyId));
}

void dsrCustAgingSummary::enterCurrency() {
    const ValueView currency = m_row.ExCurrencyId.view();
    m_CurrentCurrencyId = currency.isNull() ? m_HomeCurrencyId : currency.toInt32();
}

void dsrCustAgingSummary::ghCustId_Format() {
    m_CustomerTotal = {};
    m_CustomerPeriods = {};
    if (rsInvoiJournal.atEnd()) return;
    if (!m_row.InInvoiId.view().isNull()) STEP(fldName.Text = customerName());
    bool tellsCurrency = false;
    STEP(tellsCurrency = m_bReevaluate && isForeignUsed());
    if (tellsCurrency) STEP(fldName.Text += " (" + rsInvoiJournal.Collect("CurrencyCode").textOrEmpty() + ")");
    STEP(customerFields.link(plainTag(m_row.ExCustId.view())));
}

std::string dsrCustAgingSummary::customerName() const {
    const std::string name = rsInvoiJournal.Collect("Name").textOrEmpty();
    return Setting(Setting::customerCodes) ? rsInvoiJournal.Collect("CustId").textOrEmpty() + " - " + name : name;
}

void dsrCustAgingSummary::Detail_Format() {
    if (rsInvoiJournal.atEnd()) return;
    if (m_row.InInvoiId.view().isNull()) {
        LayoutAction = LayoutActions::dropRow;
        return;
    }
    int kind = 0;
    Money amount;
    std::size_t column = 0;
    STEP(enterCurrency());
    STEP(kind = m_row.InvoiType.view().int32OrZero());
    STEP(amount = rowAmount(kind, rowBalance(kind)));
    STEP(column = rowColumn());
    STEP(m_CustomerTotal += amount);
    STEP(m_GrandTotal += amount);
    STEP(m_CustomerPeriods[column] += amount);
    STEP(m_GrandPeriods[column] += amount);
}

Money dsrCustAgingSummary::rowAmount(int kind, Money balance) const {
    if (kind == ReceivableKind::homeAdjustment && (m_bDisplayForeignCurrency || m_bReevaluate)) return {};
    const bool converts = isForeignUsed() && !m_bDisplayForeignCurrency && m_CurrentCurrencyId != m_HomeCurrencyId;
    if (converts)
        balance = currencies().EvaluateValueWithExchangeRate(rowRate().toDouble(), m_CurrentCurrencyId, balance,
                                                             m_objExchangeRates.get());
    return roundAmount(balance, 2);
}

void dsrCustAgingSummary::gfCustId_Format() {
    gfCustId.Visible = std::any_of(m_CustomerPeriods.begin(), m_CustomerPeriods.end(),
                                   [](const Money amount) { return !amount.isZero(); });
    if (!gfCustId.Visible) return;
    ++m_CustomerCount;
    STEP(customerFields.show(locale(), m_CustomerPeriods, m_CustomerTotal, AgeFields::Zero::blank));
}

void dsrCustAgingSummary::gfCurrency_Format() {
    bool byCurrency = false;
    STEP(byCurrency = m_bDisplayForeignCurrency && isForeignUsed());
    if (!byCurrency) return;
    Money adjustment;
    STEP(adjustment = showAdjustments(lblAdjustmentsCurrency, txtAdjustmentsCurrency, true));
    STEP(m_GrandTotal += adjustment);
    STEP(currencyFields.show(locale(), m_GrandPeriods, m_GrandTotal, AgeFields::Zero::blank));
    STEP(lblTotalCapForeign.Caption = GetText(1641) + " " + codeOf(m_CurrentCurrencyId));
    if (rsInvoiJournal.atEnd() || m_row.ExCurrencyId.view().int32OrZero() == m_CurrentCurrencyId) return;
    m_GrandTotal = {};
    m_GrandPeriods = {};
}

void dsrCustAgingSummary::ReportFooter_Format() {
    if (m_bDisplayForeignCurrency) return;
    Money adjustment;
    STEP(adjustment = showAdjustments(lblAdjustmentsTotal, txtAdjustmentsTotal, false));
    STEP(m_GrandTotal += adjustment);
    STEP(grandFields.show(locale(), m_GrandPeriods, m_GrandTotal));
    STEP(lblTotalCap2.Caption = GetText(2710));
    STEP(lblEnd.Caption = std::to_string(m_CustomerCount) + " " + GetText(7622));
    if (isComparing()) STEP(compareTotals());
}

void dsrCustAgingSummary::compareTotals() {
    ComparableReportGen& generator = *m_objComparableReportGen;
    m_objTable = generator.AddTable(lblTotalCap2.Name(), comparableMode);
    m_objRow = generator.AddRow(*m_objTable, "", "", comparableMode);
    for (std::size_t i = 0; i < ageColumns; ++i)
        generator.AddCell(*m_objRow, periodCaptions[i]->Name(), grandFields.column(i).Text, comparableMode);
}

}  // namespace quillo
