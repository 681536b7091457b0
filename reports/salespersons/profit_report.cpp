#include "reports/salespersons/profit_report.h"

namespace quillo {
namespace {

constexpr int creditNote = 3;      // the InvoiType
constexpr int localesDigits = -1;  // as many decimals as the locale's numbers have

}  // namespace

ProfitReport::ProfitReport(std::string name, HostContext& context, const ContractRow& contract)
    : ComparableReport<FilterableReport>(std::move(name), context, contract) {
    onFormat("ReportHeader", &ProfitReport::ReportHeader_Format);
    onFormat("PageHeader", &ProfitReport::PageHeader_Format);
}

void ProfitReport::IReport_Initialize() {
    STEP(m_lngHomeCurrencyId = context().company().HomeCurrencyId());
}

bool ProfitReport::ActiveReport_ReportStart(const ListQuery& query) {
    m_lngSalesPersonCount = 0;
    STEP(context().company().itemCosts().setCached(true));
    return FilterableReport::ActiveReport_ReportStart(query);
}

void ProfitReport::ReportHeader_Format() {
    m_grand = {};
}

void ProfitReport::PageHeader_Format() {
    STEP(lblProfitDoll.Caption = GetText(4946) + " $");
    STEP(lblProfitPerc.Caption = GetText(4946) + " %");
}

ProfitSum ProfitReport::readRow() {
    Money rate, base;
    ProfitSum row;
    STEP_OF(Detail_Format, rate = rowRate());
    STEP_OF(Detail_Format, base = rowBase());
    STEP_OF(Detail_Format, row.sale = roundProduct(base, rate.toDouble(), 2));
    STEP_OF(Detail_Format, row.cost = rowCost());
    return row;
}

Money ProfitReport::rowRate() const {
    if (rsSales.Collect("ExCurrencyId").int32OrZero() == m_lngHomeCurrencyId) return Money::fromInteger(1);
    return rsSales.Collect("ExchangeRate").moneyOrZero();
}

Money ProfitReport::rowBase() const {
    const Money base = rsSales.Collect("BaseRowTotal").moneyOrZero();
    return rsSales.Collect("InvoiType").int32OrZero() == creditNote ? -base : base;
}

Money ProfitReport::rowCost() const {
    const Variant item = rsSales.Collect("ExItemId");
    if (item.isNull() || rsSales.Collect("Servc").boolOrFalse()) return {};
    const Date day = rsSales.Collect("InvoiDate").toDate();
    return context().company().itemCosts().ItemCost(item.toInt32(), day, 0, 0, true) *
           rsSales.Collect("Qty").doubleOrZero();
}

void ProfitReport::add(const ProfitSum& row, std::initializer_list<ProfitSum*> sums) {
    for (ProfitSum* sum : sums) {
        STEP_OF(Detail_Format, sum->sale += row.sale);
        STEP_OF(Detail_Format, sum->cost += row.cost);
    }
}

void ProfitReport::show(const char* procedure, const ProfitFields& fields, const ProfitSum& sum) {
    for (Field* field : {&fields.sale, &fields.cost, &fields.profit, &fields.percent}) field->Text.clear();
    QUILLO_STEP(procedure, fields.sale.Text = locale().currency(sum.sale));
    QUILLO_STEP(procedure, fields.cost.Text = locale().currency(sum.cost));
    QUILLO_STEP(procedure, fields.profit.Text = locale().currency(sum.profit()));
}

std::optional<double> ProfitReport::percentOf(Money profit, Money sale) {
    if (sale.isZero()) return std::nullopt;
    return profit.toDouble() / sale.toDouble() * 100;
}

// The percent takes the sign of the profit, so that a loss on a credit note does not read as a gain.
void ProfitReport::showPercent(const char* procedure, const ProfitFields& fields, const std::optional<double>& percent,
                               int digits) {
    fields.percent.Text = "NA";
    if (!percent) return;
    QUILLO_STEP(procedure, fields.percent.Text = locale().number(*percent, digits));
    Money told;
    QUILLO_STEP(procedure, told = shown(fields.percent));
    bool opposed = false;
    QUILLO_STEP(procedure, opposed = shown(fields.profit).toDouble() * told.toDouble() < 0);
    if (opposed) QUILLO_STEP(procedure, fields.percent.Text = locale().number(-told, digits));
}

// Another formula and other decimals than on the levels below: meant, so the percent may differ in its last digit.
void ProfitReport::showGrandTotal(const ProfitFields& fields) {
    constexpr const char* procedure = "ReportFooter_Format";
    STEP_OF(ReportFooter_Format, lblGrTotal.Caption = GetText(1641) + ":");
    show(procedure, fields, m_grand);
    std::optional<double> percent;
    if (!m_grand.sale.isZero()) percent = (1 - m_grand.cost.toDouble() / m_grand.sale.toDouble()) * 100;
    showPercent(procedure, fields, percent, localesDigits);
    STEP_OF(ReportFooter_Format, lblEnd.Caption = std::to_string(m_lngSalesPersonCount) + " " + GetText(7627));
}

void ProfitReport::compare(const std::string& table, const std::string& row, const Cells& cells) {
    constexpr std::string_view mode = "PurgeIncl";
    ComparableReportGen& generator = *m_objComparableReportGen;
    if (!m_objTable) m_objTable = generator.AddTable(table, mode);
    m_objRow = generator.AddRow(*m_objTable, row, "", mode);
    for (const auto& [caption, value] : cells) generator.AddCell(*m_objRow, caption.Caption, value.Text, mode);
}

}  // namespace quillo
