#include "reports/ageing/dsrCustAgingGraphic.h"

#include <algorithm>
#include <cmath>

#include "framework/engine/chart_palette.h"

namespace quillo {
namespace {

constexpr int periodText = 2899, otherText = 2369;
constexpr std::size_t ownRows = 10, legendRows = 11;
constexpr double thousand = 1000;

std::string numbered(const char* name, std::size_t row) {
    return name + std::to_string(row + 1);
}

// Shares of a whole in per cent with two decimals, which add up to 100: each is what its part adds to the sum so far.
std::vector<Money> sharesOf(const std::vector<Money>& parts, Money whole) {
    std::vector<Money> shares;
    Money sum, told;
    for (const Money part : parts) {
        sum += part;
        const Money upTo = Money::fromDouble(std::round(sum.toDouble() / whole.toDouble() * 10000) / 100);
        shares.push_back(upTo - told);
        told = upTo;
    }
    return shares;
}

}  // namespace

dsrCustAgingGraphic::dsrCustAgingGraphic(HostContext& context)
    : ReportFrame("dsrCustAgingGraphic", context, {.dateOptions = DateDisplay::closingDate, .titleId = 6146}) {
    onFetchData(&dsrCustAgingGraphic::ActiveReport_FetchData);
    onFormat("GroupHeader1", &dsrCustAgingGraphic::GroupHeader1_Format);
    onFormat("Detail", &dsrCustAgingGraphic::Detail_Format);
}

void dsrCustAgingGraphic::ActiveReport_ReportStart() {
    STEP(m_periods.Period1 = agePeriod(context().company(), "CustPriod1", "30"));
    STEP(m_periods.Period2 = agePeriod(context().company(), "CustPriod2", "60"));
    STEP(m_periods.Period3 = agePeriod(context().company(), "CustPriod3", "90"));
    STEP(m_bForeignUsed = currencies().CieIsForeignCurrencyUsed());
    STEP(m_lngHomeCurrencyId = currencies().CieHomeCurrencyId());
    STEP(m_list = context().company().customers().GetCustAgingList(false, 0, m_dtDateTo, "", ageingOrder({}, false), "",
                                                                   "", true, 0));
    if (m_list) STEP(m_list->setFilter("DocType <> 3 Or InvoiType <> 99 Or InInvoiId = NULL"));
    STEP(Translate());
    STEP(setDateCaption());
}

void dsrCustAgingGraphic::ActiveReport_FetchData(bool& eof) {
    eof = ++m_counter > ageColumns;
}

void dsrCustAgingGraphic::GroupHeader1_Format() {
    if (m_list) STEP(readList());
    ChartData::Series totals;
    for (std::size_t column = 0; column < ageColumns; ++column)
        if (m_totals[column] > Money())
            totals.points.push_back({m_periods.caption(column), m_totals[column].toDouble() / thousand});
    MSCCustAgeGrap.Data.series = {totals};
}

void dsrCustAgingGraphic::readList() {
    for (m_list->MoveFirst(); !m_list->atEnd(); m_list->MoveNext()) {
        const Date day = m_list->Value("DocOrderDate", ValueType::date).toDate();
        const std::size_t column = m_periods.columnOf(ageInDays(day, m_dtDateTo, application().SessionDate()));
        m_totals[column] += FillDataStructure(m_customers[column]);
    }
}

Money dsrCustAgingGraphic::FillDataStructure(Customers& customers) const {
    const auto [found, added] = customers.try_emplace(m_list->Value("Name", ValueType::text).textOrEmpty());
    if (added) found->second.key = m_list->Value("ExCustId", ValueType::integer).int32OrZero();
    Money amount = m_list->Value("Balance", ValueType::currency).moneyOrZero();
    if (m_bForeignUsed && m_list->Value("ExCurrencyId", ValueType::integer).int32OrZero() != m_lngHomeCurrencyId)
        amount = roundProduct(amount, m_list->Value("ExchangeRate", ValueType::real).doubleOrZero(), 2);
    found->second.amount += amount;
    return amount;
}

void dsrCustAgingGraphic::Detail_Format() {
    STEP(AgingGraphDetailByPeriod(m_counter - 1));
}

std::string dsrCustAgingGraphic::periodName(std::size_t column) const {
    const std::string caption =
        column + 1 < ageColumns ? m_periods.caption(column) : std::to_string(m_periods.Period3 + 1) + " +";
    return GetText(periodText) + ": " + caption;
}

void dsrCustAgingGraphic::AgingGraphDetailByPeriod(std::size_t column) {
    MSCPeriod.Data.title = lblPeriodName.Caption = periodName(column);
    Customers drawn = m_customers[column];
    std::erase_if(drawn, [](const auto& customer) { return customer.second.amount < Money(); });
    lblNotice.Visible = drawn.size() < m_customers[column].size();
    Money total;
    for (const auto& [name, customer] : drawn) total += customer.amount;
    const std::vector<Slice> slices = slicesOf(std::move(drawn));
    showLegend(slices, total);
    showPie(slices);
    txtTotPer.Text = locale().currency(total);
}

// The ten largest, and then the one that is left or the sum of those that are.
std::vector<dsrCustAgingGraphic::Slice> dsrCustAgingGraphic::slicesOf(Customers customers) {
    std::vector<Slice> slices;
    for (const auto& [name, customer] : customers) slices.push_back({name, customer.amount, customer.key});
    std::ranges::stable_sort(slices, std::greater(), &Slice::amount);
    if (slices.size() <= legendRows) return slices;
    Slice rest{"Other", {}, std::nullopt};
    for (std::size_t i = ownRows; i < slices.size(); ++i) rest.amount += slices[i].amount;
    slices.resize(ownRows);
    slices.push_back(rest);
    return slices;
}

void dsrCustAgingGraphic::showLegend(const std::vector<Slice>& slices, Money total) {
    std::vector<Money> amounts;
    for (const Slice& slice : slices) amounts.push_back(slice.amount);
    const std::vector<Money> shares = total > Money() ? sharesOf(amounts, total) : amounts;
    for (std::size_t row = 0; row < legendRows; ++row) {
        Field& text = field(numbered("Per", row));
        Shape& mark = shape(numbered("PerCol", row));
        text.Visible = mark.Visible = row < slices.size();
        text.Text.clear();
        text.Hyperlink.clear();
        if (!text.Visible) continue;
        const Slice& slice = slices[row];
        mark.BackColor = chartColor(row);
        const std::string amount = locale().currency(slice.amount);
        if (slice.key) {
            text.Text = slice.name + ":   " + amount + "  (" + locale().number(shares[row], 2) + "%)";
            text.Hyperlink = std::to_string(*slice.key);
        } else {
            text.Text = GetText(otherText) + ": " + amount;
        }
    }
}

// A slice a row, so that each row keeps its colour; a row of no amount is not seen.
void dsrCustAgingGraphic::showPie(const std::vector<Slice>& slices) {
    MSCPeriod.Visible = !slices.empty();
    ChartData::Series series;
    for (std::size_t row = 0; row < legendRows; ++row) {
        const bool told = row < slices.size() && !slices[row].amount.isZero();
        series.points.push_back({told ? slices[row].name : "Empty", told ? slices[row].amount.toDouble() : 0});
    }
    MSCPeriod.Data.kind = ChartKind::pie;
    MSCPeriod.Data.series = {series};
}

}  // namespace quillo
