#include "reports/ageing/dsrCustAgingDetail.h"

#include <cmath>

#include "framework/drill_tags.h"

namespace quillo {

dsrCustAgingDetail::dsrCustAgingDetail(HostContext& context)
    : AgeingReport("dsrCustAgingDetail", context, 6084), m_footerHeight(gfCustId.Height) {
    property("CustId", CustId);
    ActiveReport_Initialize(Setting::customerCodes, {{fldCustId, field("fldName")}});
    onFormat("ghCurrency", &dsrCustAgingDetail::ghCurrency_Format);
    onFormat("ghCustId", &dsrCustAgingDetail::ghCustId_Format);
    onFormat("ghForCurr", &dsrCustAgingDetail::ghForCurr_Format);
    onFormat("Detail", &dsrCustAgingDetail::Detail_Format);
    onAfterPrint("Detail", &dsrCustAgingDetail::Detail_AfterPrint);
    onAfterPrint("gfForCurr", &dsrCustAgingDetail::gfForCurr_AfterPrint);
    onFormat("gfCustId", &dsrCustAgingDetail::gfCustId_Format);
    onFormat("gfCurrency", &dsrCustAgingDetail::gfCurrency_Format);
    onFormat("ReportFooter", &dsrCustAgingDetail::ReportFooter_Format);
}

void dsrCustAgingDetail::ActiveReport_ReportStart() {
    ListWish wish{.customer = CustId, .rowFilter = "DocType <> 3 Or InvoiType <> 99 Or InInvoiId = Null"};
    STEP(wish.includePaid = Variant(context().company().GetParameter("CustIncPaidInv", "0")).toBool());
    AgeingReport::ActiveReport_ReportStart(wish);
}

void dsrCustAgingDetail::ghCurrency_Format() {
    ghCurrency.Visible = gfCurrency.Visible = false;
    if (rsInvoiJournal.atEnd()) return;
    STEP(enterCurrency());
    if (!m_bDisplayForeignCurrency) return;
    // A customer may stand under several currencies: their amounts are not added up.
    m_CustomerKey = 0;
    m_CustomerTotal = {};
    m_CustomerPeriods = {};
    STEP(ghCurrency.Visible = gfCurrency.Visible = isForeignUsed() && !m_row.ExCurrencyId.view().isNull());
    if (!ghCurrency.Visible) return;
    STEP(lblCurrencyName.Caption = currencies().currencies().Item(std::to_string(m_CurrentCurrencyId)).CurrencyDescr);
}

void dsrCustAgingDetail::enterCurrency() {
    const ValueView currency = m_row.ExCurrencyId.view();
    if (!currency.isNull() && isForeignUsed()) m_CurrentCurrencyId = currency.toInt32();
}

void dsrCustAgingDetail::ghCustId_Format() {
    if (!rsInvoiJournal.atEnd()) STEP(ghCustId.Visible = gfCustId.Visible = !m_row.InInvoiId.view().isNull());
}

void dsrCustAgingDetail::ghForCurr_Format() {
    gfForCurr.Visible = false;
    if (rsInvoiJournal.atEnd()) return;
    STEP(enterCurrency());
    STEP(gfForCurr.Visible = tellsRate());
    if (gfForCurr.Visible) STEP(txtCurrEqual.Text = rateLine(m_CurrentCurrencyId, rowRate()));
}

// A correction in home currency has no rate to tell of.
bool dsrCustAgingDetail::tellsRate() const {
    const bool inHomeCurrency = m_CurrentCurrencyId == m_HomeCurrencyId ||
                                m_row.InvoiType.view().int32OrZero() == ReceivableKind::homeAdjustment;
    return !m_row.InInvoiId.view().isNull() && isForeignUsed() && !inHomeCurrency && !m_bDisplayForeignCurrency &&
           !m_bReevaluate;
}

void dsrCustAgingDetail::Detail_Format() {
    if (rsInvoiJournal.atEnd()) return;
    if (m_row.InInvoiId.view().isNull()) {
        LayoutAction = LayoutActions::dropRow;
        return;
    }
    STEP(enterCustomer());
    int kind = 0;
    Money balance;
    std::size_t column = 0;
    STEP(kind = m_row.InvoiType.view().int32OrZero());
    STEP(balance = rowBalance(kind));
    if (kind == ReceivableKind::creditNote && balance.isZero()) {
        LayoutAction = LayoutActions::dropRow;
        gfForCurr.Visible = false;
    }
    STEP(column = rowColumn());
    STEP(fldInvoiDate.Text = context().utils().DateText(m_row.InvoiDate.view()));
    STEP(setTypeLabel(kind));
    RowAmounts amounts;
    STEP(amounts = rowAmounts(kind, balance));
    STEP(m_CustomerTotal += amounts.shown);
    STEP(m_GrandTotal += amounts.shown);
    STEP(addEvaluated(m_EvalPeriods[column], amounts));
    STEP(SetPeriodAmount(column, amounts.shown));
    STEP(setTags(kind));
}

void dsrCustAgingDetail::enterCustomer() {
    const int customer = m_row.ExCustId.view().int32OrZero();
    if (customer == m_CustomerKey) return;
    m_CustomerKey = customer;
    m_CustomerTotal = {};
    m_CustomerPeriods = {};
    ++m_CustomerCount;
}

dsrCustAgingDetail::RowAmounts dsrCustAgingDetail::rowAmounts(int kind, Money balance) const {
    if (kind == ReceivableKind::homeAdjustment) return {m_bDisplayForeignCurrency ? Money() : balance, Money()};
    if (m_bDisplayForeignCurrency) return {balance, balance};
    return {roundProduct(balance, rowRate().toDouble(), 2), balance};
}

void dsrCustAgingDetail::addEvaluated(Money& sum, const RowAmounts& amounts) const {
    if (m_bDisplayForeignCurrency) {
        sum += amounts.own;
    } else if (m_bReevaluate) {
        sum += currencies().EvaluateValueWithExchangeRate(rowRate().toDouble(), m_CurrentCurrencyId, amounts.own,
                                                          m_objExchangeRates.get());
    } else {
        sum += amounts.shown;
    }
}

void dsrCustAgingDetail::SetPeriodAmount(std::size_t column, Money amount) {
    for (std::size_t i = 0; i < ageColumns; ++i) rowFields.column(i).Text.clear();
    m_CustomerPeriods[column] += amount;
    m_GrandPeriods[column] += amount;
    locale().appendCurrency(rowFields.column(column).Text, amount);
    rowFields.total().Text = locale().currency(m_CustomerTotal);
}

void dsrCustAgingDetail::setTypeLabel(int kind) {
    switch (kind) {
        case ReceivableKind::invoice:
            lblType.Caption = GetText(1413);
            break;
        case ReceivableKind::creditNote:
            lblType.Caption = "(" + GetText(1415) + ")";
            break;
        case ReceivableKind::interest:
            lblType.Caption = GetText(1394);
            break;
        case ReceivableKind::settlement:
            lblType.Caption = GetText(m_row.PaymentCreditApplication.view().int32OrZero() == 0 ? 1414 : 1415);
            break;
        case ReceivableKind::discount:
            lblType.Caption = GetText(4025);
            break;
        case ReceivableKind::homeAdjustment:
            lblType.Caption = GetText(4509);
            break;
        default:
            break;  // the label stays as it stood
    }
}

void dsrCustAgingDetail::setTags(int kind) {
    switch (kind) {
        case ReceivableKind::invoice:
        case ReceivableKind::creditNote:
        case ReceivableKind::interest:
            return rowFields.link(drillTag(Drill::invoice, m_row.DocOrderId.view()));
        case ReceivableKind::settlement:
            return rowFields.link(drillTag(Drill::payment, m_row.InInvoiId.view()));
        case ReceivableKind::discount:
            rowFields.link(drillTag(Drill::payment, m_row.InInvoiId.view()));
            rowFields.total().Hyperlink += "|" + std::to_string(kind);
            return;
        default:
            return rowFields.link("");
    }
}

void dsrCustAgingDetail::Detail_AfterPrint() {
    m_PrintedHeight += static_cast<int>(std::lround(Detail.Height));
}

void dsrCustAgingDetail::gfForCurr_AfterPrint() {
    m_PrintedHeight += static_cast<int>(std::lround(gfForCurr.Height));
}

void dsrCustAgingDetail::gfCustId_Format() {
    customerFields.show(locale(), m_CustomerPeriods, m_CustomerTotal);
    lblSubTotalEval.Visible = false;
    customerEvalFields.setVisible(false);
    if (!m_bDisplayForeignCurrency) {
        STEP(showEvaluation());
        STEP(customerEvalFields.show(locale(), m_EvalPeriods, sumOf(m_EvalPeriods)));
        STEP(m_EvalGrandPeriods += m_EvalPeriods);
        m_EvalPeriods = {};
    }
    STEP(setSubTotalCaption());
    if (isComparing() && gfCustId.Visible && !m_CustomerTotal.isZero()) STEP(compareCustomer());
    stretchFooter();
    m_PrintedHeight = 0;
}

void dsrCustAgingDetail::showEvaluation() {
    if (!m_bReevaluate || !isForeignUsed() || m_CurrentCurrencyId == m_HomeCurrencyId) return;
    lblSubTotalEval.Visible = true;
    customerEvalFields.setVisible(true);
    lblSubTotalEval.Caption = GetText(5850) + " ";
    if (m_objExchangeRates)
        lblSubTotalEval.Caption +=
            context().utils().NumberText(Variant(m_objExchangeRates->Item(std::to_string(m_CurrentCurrencyId))));
}

void dsrCustAgingDetail::setSubTotalCaption() {
    if (m_bDisplayForeignCurrency || !isForeignUsed() || currencies().currencies().Count() == 0) {
        lblSubTotal.Caption = GetText(2710);
        return;
    }
    constexpr std::string_view place = "{0}";
    lblSubTotal.Caption = GetText(5852);
    if (const auto at = lblSubTotal.Caption.find(place); at != std::string::npos)
        lblSubTotal.Caption.replace(at, place.size(), codeOf(m_HomeCurrencyId));
}

void dsrCustAgingDetail::compareCustomer() {
    ComparableReportGen& generator = *m_objComparableReportGen;
    if (!m_objTable) m_objTable = generator.AddTable(fldCustId.Name(), comparableMode);
    m_objRow = generator.AddRow(*m_objTable, lblSubTotal.Name(), std::to_string(m_CustomerKey), comparableMode);
    generator.AddCell(*m_objRow, lblTotalCap.Name(), m_CustomerTotal.toText(), comparableMode);
}

void dsrCustAgingDetail::compareCurrency() {
    ComparableReportGen& generator = *m_objComparableReportGen;
    const auto table = generator.AddTable(lblCurrencyName.Name(), comparableMode);
    const auto row = generator.AddRow(table, lblSubTotalForeign.Name(), "-1", comparableMode);
    generator.AddCell(row, lblTotalCap.Name(), currencyFields.total().Text, comparableMode);
    // The customers of the next currency are a table of their own.
    m_objTable.reset();
}

// The next customer begins below this one's stacked fields. A footer that is hardly too low takes the whole height of
// the header: meant, a customer who nearly fills it is set off as clearly as one who does not.
void dsrCustAgingDetail::stretchFooter() {
    constexpr float hardly = 20, distance = 50;
    gfCustId.Height = m_footerHeight;
    const float missing = ghCustId.Height - static_cast<float>(m_PrintedHeight);
    if (missing <= 0) return;
    gfCustId.Height = (missing > hardly ? missing : ghCustId.Height) + distance;
}

void dsrCustAgingDetail::gfCurrency_Format() {
    Money adjustment;
    bool byCurrency = false;
    STEP(byCurrency = m_bDisplayForeignCurrency && isForeignUsed());
    if (byCurrency) STEP(adjustment = showAdjustments(lblAdjustmentsCurrency, txtAdjustmentsCurrency, true));
    STEP(m_GrandTotal += adjustment);
    STEP(lblSubTotalForeign.Caption = GetText(1641) + " " + codeOf(m_CurrentCurrencyId));
    STEP(currencyFields.show(locale(), m_EvalPeriods, sumOf(m_EvalPeriods) + adjustment));
    m_EvalPeriods = {};
    if (m_bDisplayForeignCurrency && isComparing()) STEP(compareCurrency());
}

void dsrCustAgingDetail::ReportFooter_Format() {
    if (!m_bDisplayForeignCurrency) {
        Money adjustment;
        STEP(adjustment = showAdjustments(lblAdjustmentsTotal, txtAdjustmentsTotal, false));
        STEP(m_GrandTotal += adjustment);
    }
    STEP(grandFields.show(locale(), m_GrandPeriods, m_GrandTotal));
    lblGrandTotalEval.Visible = m_bReevaluate;
    grandEvalFields.setVisible(m_bReevaluate);
    bool evaluated = false;
    STEP(evaluated = m_bReevaluate && isForeignUsed() && currencies().currencies().Count() > 0);
    if (evaluated) STEP(grandEvalFields.show(locale(), m_EvalGrandPeriods, sumOf(m_EvalGrandPeriods)));
    STEP(lblEnd.Caption = std::to_string(m_CustomerCount) + " " + GetText(7622));
    if (isComparing()) STEP(m_objComparableReportGen->Close());
}

}  // namespace quillo
