#include "reports/salespersons/dsrSalesBySalesPersonGraph.h"

#include "framework/drill_tags.h"
#include "reports/salespersons/sales_texts.h"

namespace quillo {
namespace {

constexpr std::size_t mostBars = 10;
constexpr double thousand = 1000;
constexpr int shareDigits = 1;

}  // namespace

dsrSalesBySalesPersonGraph::dsrSalesBySalesPersonGraph(HostContext& context)
    : FilterableReport("dsrSalesBySalesPersonGraph", context,
                       {.dateOptions = DateDisplay::range,
                        .titleId = 6112,
                        .tables = "InvoiHdr",
                        .filterFlagA = false,
                        .ownOrder = true,
                        .endTextId = 7627}) {
    onFormat("Detail", &dsrSalesBySalesPersonGraph::Detail_Format);
    onFormat("ReportFooter", &dsrSalesBySalesPersonGraph::ReportFooter_Format);
}

void dsrSalesBySalesPersonGraph::ActiveReport_ReportStart() {
    m_lngRecordCount = 0;
    if (!askFilter()) return;
    std::unique_ptr<HostRecordset> sales;
    STEP(sales = context().company().Database().OpenRecordset(query(), 4, 0, {m_dtDateFrom, m_dtDateTo}));
    if (sales) STEP(rsSales.Recordset = sales->inner());
    if (sales) STEP(readSales(*sales));
    ReportHeader.Visible = !rsSales.atEnd();
    STEP(Translate());
    STEP(setDateCaption());
    STEP(fillFilterInfo());
}

std::string dsrSalesBySalesPersonGraph::query() const {
    const bool jet = isJet(context());
    const std::string salesPerson = salesPersonExpression(jet);
    const std::string sale = "SUM(" + context().utils().RoundExpression(saleInHomeCurrency(jet), true) + ")";
    return "SELECT " + salesPerson + " As SalesPerson, " + sale +
           " As SaleAmnt FROM InvoiHdr WHERE InvoiHdr.InvoiType IN(" + saleKinds +
           ") AND InvoiHdr.InvoiDate BETWEEN ? AND ?" + whereClause(filterParts(), OwnWhere::yes) + " GROUP BY " +
           salesPerson + " ORDER BY " + sale + " DESC, " + salesPerson;
}

void dsrSalesBySalesPersonGraph::readSales(HostRecordset& sales) {
    ChartData::Series bars{GetText(1604), {}};
    Money rest;
    bool hasRest = false;
    for (; !sales.atEnd(); sales.MoveNext()) {
        const Money amount = sales.Value("SaleAmnt", ValueType::currency).moneyOrZero();
        m_curTotal += amount;
        hasRest = bars.points.size() == mostBars;
        if (hasRest) {
            rest += amount;
            continue;
        }
        const std::string name = sales.Value("SalesPerson", ValueType::text).textOrEmpty();
        bars.points.push_back({name.empty() ? GetText(2595) : name, amount.toDouble() / thousand});
    }
    if (hasRest) bars.points.push_back({GetText(2369), rest.toDouble() / thousand});
    chtSales.Data = {GetText(1604), {std::move(bars)}};
}

void dsrSalesBySalesPersonGraph::Detail_Format() {
    if (rsSales.atEnd()) return;
    ++m_lngRecordCount;
    txtShare.Text = "NA";
    txtSale.Text.clear();
    STEP(txtSalesPerson.Text = salesPersonName(rsSales, context()));
    Money amount;
    STEP(amount = rsSales.Collect("SaleAmnt").moneyOrZero());
    STEP(txtSale.Text = locale().currency(amount));
    if (!m_curTotal.isZero())
        STEP(txtShare.Text = locale().number(amount.toDouble() / m_curTotal.toDouble() * 100, shareDigits));
    STEP(link(salesPersonTag(rsSales.Collect("SalesPerson").textOrEmpty(), false, 0),
              {&txtSalesPerson, &txtSale, &txtShare}));
}

void dsrSalesBySalesPersonGraph::ReportFooter_Format() {
    STEP(txtSaleTotal.Text = locale().currency(m_curTotal));
}

}  // namespace quillo
