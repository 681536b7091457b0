#include "reports/sales_journal/dsrSalesJournalCompGraph.h"

#include <algorithm>

namespace quillo {
namespace {

constexpr float rowStep = 330, rowHeight = 270;  // twips

}  // namespace

SalesComparison::Days dsrSalesJournalCompGraph::ComparedYear::range() const {
    return year != nullptr ? Days{year->StartDate, cutoff} : Days{noEndLimit, noStartLimit};
}

int dsrSalesJournalCompGraph::ComparedYear::lastPeriod() const {
    if (year == nullptr) return 0;
    const auto found = std::ranges::find_if(year->periods, [this](const FiscalPeriod& period) {
        return period.StartDate <= cutoff && cutoff <= period.EndDate;
    });
    return found == year->periods.end() ? 0 : static_cast<int>(found - year->periods.begin()) + 1;
}

SalesComparison::Days dsrSalesJournalCompGraph::ComparedYear::period(int number) const {
    const auto index = static_cast<std::size_t>(number) - 1;
    if (year == nullptr || index >= year->periods.size()) return {};
    const FiscalPeriod& period = year->periods[index];
    if (period.StartDate > cutoff) return {};
    return {period.StartDate, std::min(period.EndDate, cutoff)};
}

dsrSalesJournalCompGraph::dsrSalesJournalCompGraph(HostContext& context)
    : SalesComparison("dsrSalesJournalCompGraph", context, 6149) {
    onFormat("Detail", &dsrSalesJournalCompGraph::Detail_Format);
}

void dsrSalesJournalCompGraph::Detail_Format() {
    FiscalCalendar& calendar = context().company().fiscalCalendar();
    STEP(m_current = {calendar.FiscalYearAt(m_dtDateTo), m_dtDateTo});
    // On a day outside of all years nothing is compared.
    if (m_current.year != nullptr) STEP(m_last = {calendar.FiscalYearBefore(m_dtDateTo), lessOneYear(m_dtDateTo)});
    STEP(openSales("InvoiDate", m_last.range(), m_current.range()));
    STEP(SetYearLabels());
    STEP(ClearControls());
    float row = lblPeriods.Top + rowStep;
    const int count = FindMaxPeriod();
    for (int number = 1; number <= count; ++number, row += rowStep) STEP(addPeriod(number, row));
    if (m_vChartData.empty()) m_vChartData.emplace_back();
    STEP(showChart(lblLastYear.Caption, lblCurrYear.Caption));
    STEP(showTotals());
    SetTotalControlsPosition(row);
    Detail.Height = row + fldTotalLastYear.Height;
}

void dsrSalesJournalCompGraph::SetYearLabels() {
    lblLastYear.Caption = m_last.name();
    lblCurrYear.Caption = m_current.name();
}

void dsrSalesJournalCompGraph::ClearControls() {
    m_vChartData.clear();
    m_curLastYearTotal = m_curCurrentYearTotal = {};
    // The fields are those of an earlier pass.
    for (const auto& control : Detail.controls) control->Visible = control->kind() != ControlKind::field;
}

int dsrSalesJournalCompGraph::FindMaxPeriod() const {
    return std::max(m_last.lastPeriod(), m_current.lastPeriod());
}

void dsrSalesJournalCompGraph::addPeriod(int number, float row) {
    const Days last = m_last.period(number), current = m_current.period(number);
    ChartRow& added = m_vChartData.emplace_back();
    added.label = " " + std::to_string(number);
    added.lastYear = FillArray(last, m_curLastYearTotal);
    added.currentYear = FillArray(current, m_curCurrentYearTotal);
    FillReport(added, last, current, row);
}

Money dsrSalesJournalCompGraph::FillArray(const Days& days, Money& total) const {
    if (days.isEmpty()) return {};
    const Money sum = CalculateTotal(days);
    total += sum;
    return sum;
}

void dsrSalesJournalCompGraph::FillReport(const ChartRow& row, const Days& lastYear, const Days& currentYear,
                                          float top) {
    const std::string number = std::to_string(m_vChartData.size());
    const Difference difference = rowDifference(row.lastYear, row.currentYear);
    CreateControl(number + "Period", lblPeriods, top).Text = row.label;
    Field& last = CreateControl(number + "LastYear", lblLastYear, top);
    last.Text = locale().currency(row.lastYear);
    last.Hyperlink = lastYear.tag();
    Field& current = CreateControl(number + "CurrentYear", lblCurrYear, top);
    current.Text = locale().currency(row.currentYear);
    current.Hyperlink = currentYear.tag();
    CreateControl(number + "DiffMoney", lblDiffMoney, top).Text = difference.money;
    CreateControl(number + "DiffPercentage", lblDiffPercentage, top).Text = difference.percent;
}

// A field below the caption of its column, and aligned as that is.
Field& dsrSalesJournalCompGraph::CreateControl(const std::string& name, const Control& caption, float top) {
    Field& field = Detail.add<Field>(name);
    field.Left = caption.Left;
    field.Top = top;
    field.Width = caption.Width;
    field.Height = rowHeight;
    field.Style = "font-family: Arial";
    field.setAlignment(&caption == &lblPeriods ? Align::left : Align::right);
    return field;
}

void dsrSalesJournalCompGraph::showTotals() {
    const Difference difference = totalDifference();
    fldTotalLastYear.Caption = locale().currency(m_curLastYearTotal);
    fldTotalCurrentYear.Caption = locale().currency(m_curCurrentYearTotal);
    fldDiffMoney.Caption = difference.money;
    fldDiffPercentage.Caption = difference.percent;
}

void dsrSalesJournalCompGraph::SetTotalControlsPosition(float top) {
    for (Label* total : {&fldTotalLastYear, &fldTotalCurrentYear, &fldDiffMoney, &fldDiffPercentage}) total->Top = top;
    line("LineTotal").Y1 = line("LineTotal").Y2 = top - 30;
}

}  // namespace quillo
