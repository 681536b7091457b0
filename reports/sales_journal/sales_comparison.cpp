#include "reports/sales_journal/sales_comparison.h"

#include <algorithm>

#include "framework/engine/chart_layout.h"

namespace quillo {
namespace {

constexpr int upTo = 4264, noLimit = 1376, lastYearLegend = 4248, currentYearLegend = 4249;
constexpr double thousand = 1000;

double share(Money lastYear, Money currentYear) {
    return (currentYear - lastYear).toDouble() / lastYear.toDouble() * 100;
}

}  // namespace

SalesComparison::SalesComparison(std::string name, HostContext& context, int titleId)
    : ReportFrame(std::move(name), context, {.dateOptions = DateDisplay::closingDate, .titleId = titleId}) {}

void SalesComparison::ActiveReport_ReportStart() {
    STEP(Translate());
    const bool limited = m_dtDateTo != noEndLimit;
    STEP(label("lblDateFromDateTo").Caption =
             limited ? GetText(upTo) + " " + locale().shortDate(m_dtDateTo) : GetText(noLimit));
}

void SalesComparison::openSales(std::string_view dayColumn, const Days& lastYear, const Days& currentYear) {
    const std::string sql = "SELECT Sum(" +
                            context().utils().RoundExpression("(InvoiHdr.DetAmnt * InvoiHdr.ExchangeRate)", true) +
                            ") AS Amount, " + std::string(dayColumn) +
                            " FROM Cust INNER JOIN InvoiHdr ON Cust.InCustId = InvoiHdr.ExCustId "
                            "WHERE InvoiHdr.InvoiType IN(1,2,3,4) AND "
                            "((InvoiHdr.InvoiDate BETWEEN ? AND ? ) OR "
                            "(InvoiHdr.InvoiDate BETWEEN ? AND ? )) "
                            "GROUP BY InvoiDate";
    const std::vector<Variant> days{lastYear.first, lastYear.last, currentYear.first, currentYear.last};
    m_sales = context().company().Database().OpenRecordset(sql, 4, 0, days);
}

Money SalesComparison::CalculateTotal(const Days& days) const {
    Money sum;
    m_sales->setFilter("InvoiDate >= " + days.first.isoText() + " AND InvoiDate <= " + days.last.isoText());
    for (; !m_sales->atEnd(); m_sales->MoveNext()) sum += m_sales->Value("Amount", ValueType::currency).moneyOrZero();
    return sum;
}

SalesComparison::Difference SalesComparison::rowDifference(Money lastYear, Money currentYear) const {
    return difference(lastYear, currentYear,
                      lastYear > Money() ? locale().number(share(lastYear, currentYear), 2) : "0");
}

SalesComparison::Difference SalesComparison::totalDifference() const {
    const double percent = m_curLastYearTotal > Money() ? share(m_curLastYearTotal, m_curCurrentYearTotal) : 0;
    return difference(m_curLastYearTotal, m_curCurrentYearTotal, locale().number(percent, 2));
}

// What the two texts say never contradicts: a percentage takes the sign of the money beside it, however the locale
// writes what is below zero.
SalesComparison::Difference SalesComparison::difference(Money lastYear, Money currentYear, std::string percent) const {
    Difference texts{locale().currency(currentYear - lastYear), std::move(percent)};
    const Money money = locale().readMoney(texts.money), share = locale().readMoney(texts.percent);
    const bool contradict = (money < Money() && share > Money()) || (money > Money() && share < Money());
    if (contradict) texts.percent = locale().number(-share, 2);
    texts.percent += "%";
    return texts;
}

void SalesComparison::showChart(const std::string& lastYear, const std::string& currentYear) {
    Label &lastLegend = label("lblLastYearLegend"), &currentLegend = label("lblCurrYearLegend");
    lastLegend.Caption = GetText(lastYearLegend) + " (" + lastYear + ")";
    currentLegend.Caption = GetText(currentYearLegend) + " (" + currentYear + ")";
    ChartData& chart = MSCCustGrap.Data;
    chart.series = {{lastLegend.Caption, {}}, {currentLegend.Caption, {}}};
    for (const ChartRow& row : m_vChartData) {
        chart.series[0].points.push_back({row.label, row.lastYear.toDouble() / thousand});
        chart.series[1].points.push_back({row.label, row.currentYear.toDouble() / thousand});
    }
    shape("LastYear").BackColor = seriesColor(chart, 0);
    shape("CurYear").BackColor = seriesColor(chart, 1);
}

namespace {

Date movedByYears(Date day, int years) {
    const Date::Civil date = day.civil();
    return Date::fromCivil(date.year + years, date.month, date.month == 2 ? std::min(date.day, 28) : date.day);
}

}  // namespace

Date plusOneYear(Date day) {
    return movedByYears(day, 1);
}

Date lessOneYear(Date day) {
    return movedByYears(day, -1);
}

}  // namespace quillo
