#include "reports/sales_journal/dsrSalesJournalCompGraphMonth.h"

#include <algorithm>

namespace quillo {
namespace {

constexpr int january = 4250;  // the text of the first month; the others follow
constexpr int monthsInYear = 12;

Date lastOfMonth(int year, int month) {
    if (month == monthsInYear) return Date::fromCivil(year, month, 31);
    return Date{Date::fromCivil(year, month + 1, 1).days - 1};
}

std::string numbered(const char* name, int number) {
    return name + std::to_string(number);
}

}  // namespace

dsrSalesJournalCompGraphMonth::dsrSalesJournalCompGraphMonth(HostContext& context)
    : SalesComparison("dsrSalesJournalCompGraphMonth", context, 9107) {
    onFormat("Detail", &dsrSalesJournalCompGraphMonth::Detail_Format);
}

// As the text stands: no menu underlines a letter of it.
std::string dsrSalesJournalCompGraphMonth::IReport_ReportTitle() {
    std::string title;
    STEP(title = GetText(titleId()));
    return title;
}

void dsrSalesJournalCompGraphMonth::Detail_Format() {
    int count = 0;
    STEP(m_year = m_dtDateTo.civil().year);
    STEP(count = m_dtDateTo.civil().month);
    m_vChartData.clear();
    m_curLastYearTotal = m_curCurrentYearTotal = {};
    const Date start = Date::fromCivil(m_year, 1, 1);
    STEP(openSales("InvoiHdr.InvoiDate", {lessOneYear(start), lessOneYear(m_dtDateTo)}, {start, m_dtDateTo}));
    for (int month = 1; month <= count; ++month) STEP(addMonth(month));
    STEP(lblCurrYear.Caption = fiscalYear(m_dtDateTo));
    STEP(lblLastYear.Caption = fiscalYear(lessOneYear(m_dtDateTo)));
    STEP(showChart(lblLastYear.Caption, lblCurrYear.Caption));
    STEP(showTotals());
    hideRows(count + 1);
    placeTotals(count);
    Detail.Height = txtTotalLastYear.Top + txtTotalLastYear.Height;
}

void dsrSalesJournalCompGraphMonth::addMonth(int month) {
    const Days last = monthOfLastYear(month), current = monthOfThisYear(month);
    m_vChartData.push_back({MonthDescription(month), CalculateTotal(last), CalculateTotal(current)});
    m_curLastYearTotal += m_vChartData.back().lastYear;
    m_curCurrentYearTotal += m_vChartData.back().currentYear;
    FillAmounts(month, last, current);
}

SalesComparison::Days dsrSalesJournalCompGraphMonth::monthOfLastYear(int month) const {
    const Date last = lastOfMonth(m_year - 1, month);
    return {Date::fromCivil(m_year - 1, month, 1), plusOneYear(last) > m_dtDateTo ? lessOneYear(m_dtDateTo) : last};
}

SalesComparison::Days dsrSalesJournalCompGraphMonth::monthOfThisYear(int month) const {
    return {Date::fromCivil(m_year, month, 1), std::min(lastOfMonth(m_year, month), m_dtDateTo)};
}

std::string dsrSalesJournalCompGraphMonth::MonthDescription(int month) const {
    return GetText(january + month - 1);
}

void dsrSalesJournalCompGraphMonth::FillAmounts(int month, const Days& lastYear, const Days& currentYear) {
    const ChartRow& row = m_vChartData.back();
    const Difference difference = rowDifference(row.lastYear, row.currentYear);
    Label& name = label(numbered("Label", month));
    Field &last = field(numbered("txtLastYear", month)), &current = field(numbered("txtCurrYear", month)),
          &money = field(numbered("txtDiffDol", month)), &percent = field(numbered("txtDiffPer", month));
    for (Control* control : std::initializer_list<Control*>{&name, &last, &current, &money, &percent})
        control->Visible = true;
    name.Caption = row.label;
    last.Text = locale().currency(row.lastYear);
    last.Hyperlink = lastYear.tag();
    current.Text = locale().currency(row.currentYear);
    current.Hyperlink = currentYear.tag();
    money.Text = difference.money;
    percent.Text = difference.percent;
}

void dsrSalesJournalCompGraphMonth::showTotals() {
    const Difference difference = totalDifference();
    txtTotalCurYear.Text = locale().currency(m_curCurrentYearTotal);
    txtTotalLastYear.Text = locale().currency(m_curLastYearTotal);
    txtDiffDolTotal.Text = difference.money;
    txtDiffPerTotal.Text = difference.percent;
}

void dsrSalesJournalCompGraphMonth::hideRows(int from) {
    for (int month = from; month <= monthsInYear; ++month) {
        label(numbered("Label", month)).Visible = false;
        for (const char* name : {"txtLastYear", "txtCurrYear", "txtDiffDol", "txtDiffPer"})
            field(numbered(name, month)).Visible = false;
    }
}

void dsrSalesJournalCompGraphMonth::placeTotals(int count) {
    const Label& last = label(numbered("Label", std::max(count, 1)));
    const float top = last.Top + last.Height + 120;
    for (Field* total : {&txtTotalLastYear, &txtTotalCurYear, &txtDiffDolTotal, &txtDiffPerTotal}) total->Top = top;
    line("LineTotal").Y1 = line("LineTotal").Y2 = top - 45;
}

std::string dsrSalesJournalCompGraphMonth::fiscalYear(Date day) const {
    const FiscalYear* year = context().company().fiscalCalendar().FiscalYearAt(day);
    return year != nullptr ? year->name : "";
}

}  // namespace quillo
