#include "reports/statistics/dsrSalesStatistic.h"

#include <algorithm>
#include <utility>

#include "dialogs/FSalesStatsFilter.h"
#include "framework/drill_tags.h"

namespace quillo {
namespace {

constexpr float captionsTop = 2551;  // of the page header
constexpr std::string_view boldLeft = "font-size: 8pt; text-align: left; font-weight: bold;";
constexpr std::string_view boldRight = "font-size: 8pt; text-align: right; font-weight: bold;";

// Where something stands in its section, twips.
struct Box {
    float left, top, width, height;
};

template <class T>
T& place(Section& section, const char* name, const Box& box, std::string_view style) {
    T& control = section.add<T>(name);
    control.Left = box.left;
    control.Top = box.top;
    control.Width = box.width;
    control.Height = box.height;
    control.Style = style;
    return control;
}

void place(Label& control, float left, float top, float width) {
    control.Left = left;
    control.Top = top;
    control.Width = width;
}

float bottomOf(const Control& control) {
    return control.Top + control.Height;
}

void placeAt(Line& line, float y) {
    line.Y1 = line.Y2 = y;
}

}  // namespace

dsrSalesStatistic::dsrSalesStatistic(HostContext& context)
    : SegmentReport("dsrSalesStatistic", context,
                    {.dateOptions = DateDisplay::range, .titleId = 6309, .endTextId = 7626}),
      thisYearCaps_(
          labels({"lblQtyThisYearCap", "lblSalesThisYearCap", "lblPriceThisYearCap", "lblMargeDolCap", "lblMargeCap"})),
      lastYearCaps_(labels({"lblQtyLastYearCap", "lblSalesLastYearCap", "lblPriceLastYearCap", nullptr, nullptr})),
      thisYear_(labels({"lblQtyThisYear", "lblSalesThisYear", "lblPriceThisYear", "lblMargeDol1", "lblMarge1"})),
      lastYear_(labels({"lblQtyLastYear", "lblSalesLastYear", "lblPriceLastYear", "lblMargeDol2", "lblMarge2"})),
      thisYearTotals_(labels({"lblQtyThisYearTot", "lblSalesThisYearTot", "lblTotalPriceCurrent",
                              "lblTotalProfitCurrent", "lblTotalPercentCurrent"})),
      lastYearTotals_(labels({"lblQtyLastYearTot", "lblSalesLastYearTot", "lblTotalPriceLast", "lblTotalProfitLast",
                              "lblTotalPercentLast"})) {
    property("SubReportVisible", SubReportVisible);
    onFormat("PageHeader", &dsrSalesStatistic::PageHeader_Format);
    onFormat("Detail", &dsrSalesStatistic::Detail_Format);
    onFormat("PageFooter", &dsrSalesStatistic::PageFooter_Format);
    onFormat("ReportFooter", &dsrSalesStatistic::ReportFooter_Format);
}

dsrSalesStatistic::Labels dsrSalesStatistic::labels(const std::array<const char*, 5>& names) const {
    Labels found{};
    std::ranges::transform(names, found.begin(),
                           [this](const char* name) { return name == nullptr ? nullptr : &label(name); });
    return found;
}

// ---- the sections of a company with warehouses

void dsrSalesStatistic::IReport_Initialize() {
    STEP(wish_.byWarehouse = application().DefaultWarehouseID() != 0);
    if (wish_.byWarehouse) STEP(addWarehouseSections());
}

void dsrSalesStatistic::addWarehouseSections() {
    m_objItemHeaderSection = &addSection("ghItem", SectionKind::groupHeader, 2, 300);
    m_objWarehouseHeaderSection = &addSection("ghWarehouse", SectionKind::groupHeader, 3, 500);
    addSection("gfWarehouse", SectionKind::groupFooter, 5, 0);
    m_objItemFooterSection = &addSection("gfItem", SectionKind::groupFooter, 6, 500);
    addItemHeading();
    addWarehouseHeading();
    addItemTotals();
    onFormat("ghItem", &dsrSalesStatistic::m_objItemHeaderSection_Format);
    onFormat("ghWarehouse", &dsrSalesStatistic::m_objWarehouseHeaderSection_Format);
    onFormat("gfItem", &dsrSalesStatistic::m_objItemFooterSection_Format);
    fldItem.Visible = fldDescr.Visible = false;  // the item's heading names it
}

void dsrSalesStatistic::addItemHeading() {
    m_objItemHeaderSection->DataField = "InItemId";
    m_objItemHeaderSection->GrpKeepTogether = GroupKeep::firstDetail;
    m_objItemHeaderSection->Repeat = true;
    place<Field>(*m_objItemHeaderSection, "ItemNameGH", {0, 0, 10000, 240}, boldLeft).DataField = "FullItemDescr";
}

void dsrSalesStatistic::addWarehouseHeading() {
    m_objWarehouseHeaderSection->DataField = "InWarehouseId";
    m_objWarehouseHeaderSection->GrpKeepTogether = GroupKeep::firstDetail;
    Label& caption = place<Label>(*m_objWarehouseHeaderSection, "LabelWarehouseNameGH", {1000, 0, 1620, 240}, boldLeft);
    STEP_OF(IReport_Initialize, caption.Caption = GetText(4606) + " : ");
    place<Field>(*m_objWarehouseHeaderSection, "WarehouseNameGH", {caption.Width + 500, 0, 10000, 240}, boldLeft)
        .DataField = "=WarehouseId & \" - \" & Name";
}

void dsrSalesStatistic::addItemTotals() {
    Section& footer = *m_objItemFooterSection;
    Label& caption = place<Label>(footer, "LabelWarehouseNameGF", {0, 180, 1260, 240}, boldLeft);
    STEP_OF(IReport_Initialize, caption.Caption = GetText(2710) + " " + GetText(1780) + ": ");
    Field& code = place<Field>(footer, "ItemNameGF", {caption.Width, 180, 1947, 240}, boldLeft);
    code.DataField = "ItemId";
    code.CanGrow = true;
    Line& rule = footer.add<Line>("");
    rule.X1 = 3420;
    rule.X2 = 10530;
    placeAt(rule, 100);
    itemThisYear_ = addTotalFields(180, {"ItemQtyThisYearTot", "ItemSalesThisYearTot", "ItemPriceThisYearTot",
                                         "ItemMargeDol1Tot", "ItemMarge1Tot"});
    itemLastYear_ = addTotalFields(450, {"ItemQtyLastYearTot", "ItemSalesLastYearTot", "ItemPriceLastYearTot",
                                         "ItemMargeDol2Tot", "ItemMarge2Tot"});
}

dsrSalesStatistic::Fields dsrSalesStatistic::addTotalFields(float top, const std::array<const char*, 5>& names) {
    constexpr std::array<std::pair<float, float>, 5> columns = {
        {{3327, 1417}, {4740, 1559}, {6303, 1559}, {7862, 1276}, {9138, 1275}}};
    Fields fields{};
    for (std::size_t i = 0; i < names.size(); ++i)
        fields[i] = &place<Field>(*m_objItemFooterSection, names[i], {columns[i].first, top, columns[i].second, 270},
                                  boldRight);
    return fields;
}

// ---- the options and the filter

void dsrSalesStatistic::IReportConfig_ShowConfigurationScreen(DialogService& dialogs) {
    FSalesStatsFilter form(context());
    form.SortOption = wish_.SortOption;
    form.SortType = wish_.SortType;
    form.FilterType = wish_.FilterType;
    form.HideLastYearInfo = wish_.HideLastYearInfo;
    STEP(form.Form_Load());
    STEP(dialogs.ShowModal(form));
    if (form.HasCancel()) return;
    wish_.SortOption = form.SortOption;
    wish_.SortType = form.SortType;
    wish_.FilterType = form.FilterType;
    wish_.HideLastYearInfo = form.HideLastYearInfo;
}

std::string dsrSalesStatistic::filterTables() const {
    return wish_.byWarehouse ? "Item, Warehouse.WarehouseId, Warehouse.Name, Category.Descr, Category_Sub.Descr"
                             : "Item, Category.Descr, Category_Sub.Descr";
}

// ---- the start

void dsrSalesStatistic::ActiveReport_ReportStart() {
    checkInventory();
    STEP(m_objKitCost = &context().company().itemCosts());
    if (m_objKitCost != nullptr) STEP(m_objKitCost->setCached(true));
    setDetailHeight();
    ClearControls();
    STEP(comparePeriods());
    if (!askFilter()) return;
    openRows();
    m_thisYear = m_lastYear = {};
    m_lngRecordCount = 0;
    STEP(Translate());
    STEP(setDateCaption());
    STEP(fillFilterInfo());
}

void dsrSalesStatistic::checkInventory() {
    STEP_OF(ActiveReport_ReportStart, m_objInventoryUpdate = context().company().newInventoryUpdateAgent());
    if (!m_objInventoryUpdate) return;
    bool updateFirst = false;
    STEP_OF(ActiveReport_ReportStart, updateFirst = Setting(Setting::stockUpdateFirst));
    bool upToDate = !updateFirst;
    if (updateFirst)
        STEP_OF(ActiveReport_ReportStart, upToDate = m_objInventoryUpdate->Update(0, true));
    else
        STEP_OF(ActiveReport_ReportStart, upToDate = m_objInventoryUpdate->IsUpToDate());
    m_bInventoryWarning = !upToDate;
    if (m_bInventoryWarning)
        STEP_OF(ActiveReport_ReportStart, m_dtInventoryDate = m_objInventoryUpdate->LastUpdateDate());
}

// Code and description take the room of both lines, so that a description of two lines moves nothing; one of more lines
// pushes some room down below it.
void dsrSalesStatistic::setDetailHeight() {
    Section& detail = section("Detail");
    detail.Height = thisYear_[share]->Height + (wish_.HideLastYearInfo ? 0 : lastYear_[share]->Height);
    fldItem.Height = fldDescr.Height = detail.Height - 30;
    label("lblRoom").Top = detail.Height - 15;
}

// The shares of profit keep what their design says: each row writes them, and a report without rows prints none.
void dsrSalesStatistic::ClearControls() {
    for (const Labels& line : {thisYearTotals_, lastYearTotals_})
        for (Label* control : line) control->Caption.clear();
    for (const Labels& line : {thisYear_, lastYear_})
        for (const Place column : {units, sales, cost, profit}) line[column]->Caption.clear();
    lblEnd.Caption.clear();
    fldDescr.Text.clear();
    if (!wish_.byWarehouse) return;
    for (const Fields& line : {itemThisYear_, itemLastYear_})
        for (Field* control : line) control->Text.clear();
}

// Without both days there is no year before: the same period stands against itself.
void dsrSalesStatistic::comparePeriods() {
    wish_.from = wish_.lastFrom = m_dtDateFrom;
    wish_.to = wish_.lastTo = m_dtDateTo;
    if (m_dtDateFrom == noStartLimit || m_dtDateTo == noEndLimit) return;
    wish_.lastFrom = yearBefore(m_dtDateFrom);
    wish_.lastTo = yearBefore(m_dtDateTo);
}

void dsrSalesStatistic::openRows() {
    constexpr int cursorKind = 6;
    wish_.filter = m_strFilter;
    wish_.segments = firstSegments("ExSegmentId");
    const SalesStatisticQuery query(*this, wish_);
    SalesStatisticQuery::Params params;
    std::string text = wish_.byWarehouse ? query.MainQueryWarehouse(params) : query.MainQuery(params);
    query.ManageFilters(text);
    STEP_OF(ActiveReport_ReportStart,
            rsItem.Recordset = context().company().Database().OpenRecordset(text, cursorKind, 0, params)->inner());
}

// ---- the captions

// Below the filter's text, for which the header keeps room: a text of many lines moves none of them.
void dsrSalesStatistic::ReplacePageHeaderControls() {
    const SubReport& filter = subReport("dsrFilterAndSortByInfoSubreport");
    const float top = std::max(captionsTop, bottomOf(filter) + 90);
    placeAt(line("Line1"), top - 30);
    lblCodeItemCap.Top = lblDescrCap.Top = top;
    for (Label* caption : thisYearCaps_) caption->Top = top;
    for (const Place column : {units, sales, cost}) lastYearCaps_[column]->Top = bottomOf(*thisYearCaps_[column]);
    placeAt(line("Line2"), bottomOf(*lastYearCaps_[units]));
    section("PageHeader").Height = line("Line2").Y1;
}

void dsrSalesStatistic::PageHeader_Format() {
    ReplacePageHeaderControls();
    STEP(thisYearCaps_[profit]->Caption = GetText(2407) + " $");
    STEP(thisYearCaps_[share]->Caption = GetText(2407) + " %");
    for (Label* control : lastYear_) control->Visible = !wish_.HideLastYearInfo;
    for (const Place column : {cost, profit, share}) thisYearCaps_[column]->Visible = true;
    for (const Place column : {units, sales, cost}) lastYearCaps_[column]->Visible = !wish_.HideLastYearInfo;
    // Units and sales stand at a fixed height whatever the filter's text needs: meant, so that a reader finds them in
    // the same place of each report.
    place(*thisYearCaps_[units], 3402, captionsTop, 1417);
    place(*lastYearCaps_[units], 3402, bottomOf(*thisYearCaps_[units]), 1417);
    place(*thisYearCaps_[sales], 4819, captionsTop, 1559);
    place(*lastYearCaps_[sales], 4819, bottomOf(*thisYearCaps_[sales]), 1559);
}

// ---- the rows

void dsrSalesStatistic::Detail_Format() {
    if (rsItem.atEnd()) return;
    const Figures now = readFigures("Current", wish_.to);
    const Figures before = wish_.HideLastYearInfo ? Figures() : readFigures("Last", wish_.lastTo);
    addToTotals(m_thisYear, now);
    addToTotals(m_lastYear, before);
    ++m_lngRecordCount;
    printFigures(now, thisYear_);
    printFigures(before, lastYear_);
    std::string tag;
    STEP(tag = drillTag(Drill::item, rsItem.Collect("InItemId")));
    link(tag, {&fldDescr, &fldItem});
    for (const Labels& line : {thisYear_, lastYear_})
        for (Label* control : line) control->Hyperlink = tag;
    if (wish_.byWarehouse)
        addToItem(now, before);
    else
        placeFigures();
}

void dsrSalesStatistic::addToTotals(Figures& totals, const Figures& figures) {
    STEP_OF(Detail_Format, totals.units += figures.units);
    STEP_OF(Detail_Format, totals.sales += figures.sales);
    STEP_OF(Detail_Format, totals.cost += figures.cost);
}

// A kit has no running cost: its parts tell what one unit costs. That it is not multiplied by the units is meant: the
// column of a kit shows what one costs, and its profit is what the sales leave above that.
dsrSalesStatistic::Figures dsrSalesStatistic::readFigures(const std::string& period, Date day) {
    Figures figures;
    bool isKit = false;
    STEP_OF(Detail_Format, isKit = rsItem.Collect("IsKit").boolOrFalse());
    STEP_OF(Detail_Format, figures.units = rsItem.Collect("SumTotalUnitsSold" + period).moneyOrZero());
    STEP_OF(Detail_Format, figures.sales = rsItem.Collect("SumTotalSales" + period).moneyOrZero());
    if (isKit && m_objKitCost != nullptr)
        STEP_OF(Detail_Format,
                figures.cost = m_objKitCost->ItemCost(rsItem.Collect("InItemId").toInt32(), day, 0, 0, true));
    else
        STEP_OF(Detail_Format, figures.cost = rsItem.Collect("ItemPrice" + period).moneyOrZero());
    return figures;
}

void dsrSalesStatistic::printFigures(const Figures& figures, const Labels& line) {
    for (Label* control : line) control->Caption.clear();  // a figure that fails shows none
    STEP_OF(Detail_Format, line[share]->Caption = figures.sales.isZero() ? "--" : shareOf(figures));
    STEP_OF(Detail_Format, line[units]->Caption = locale().plainNumber(Variant(figures.units)));
    STEP_OF(Detail_Format, line[sales]->Caption = locale().currency(figures.sales));
    STEP_OF(Detail_Format, line[cost]->Caption = locale().currency(figures.cost));
    STEP_OF(Detail_Format, line[profit]->Caption = locale().currency(figures.profit()));
}

std::string dsrSalesStatistic::shareOf(const Figures& figures) const {
    return locale().percent(figures.profit().toDouble() / figures.sales.toDouble());
}

void dsrSalesStatistic::placeFigures() {
    for (const Place column : {cost, profit, share}) thisYear_[column]->Visible = true;
    place(*thisYear_[units], 3327, 0, 1417);
    place(*lastYear_[units], 3327, 283, 1417);
    place(*thisYear_[sales], 4740, 0, 1559);
    place(*lastYear_[sales], 4740, 283, 1559);
}

// ---- the subtotal of an item

void dsrSalesStatistic::addToItem(const Figures& now, const Figures& before) {
    int item = 0;
    STEP_OF(Detail_Format, item = rsItem.Collect("InItemId").int32OrZero());
    const bool begins = item != m_lngCurrentItemId;
    m_lngCurrentItemId = item;
    addToLine(now, itemThisYear_, begins);
    addToLine(before, itemLastYear_, begins);
}

// The subtotal is what its line reads, so that units lose their fraction with each warehouse: meant, a subtotal agrees
// with the one that was printed above it.
void dsrSalesStatistic::addToLine(const Figures& figures, const Fields& line, bool begins) {
    Money gain;
    STEP_OF(Detail_Format, gain = figures.profit());
    const std::array<Money, 4> values = {figures.units, figures.sales, figures.cost, gain};
    for (const Place column : {units, sales, cost, profit}) {
        std::string& text = line[column]->Text;
        const auto written = [&](Money value) {
            return column == units ? locale().number(value, 0) : locale().currency(value);
        };
        STEP_OF(Detail_Format,
                text = begins ? written(Money()) : context().utils().NumberText(Variant(readBack(text))));
        STEP_OF(Detail_Format, text = written(readBack(text) + values[column]));
    }
    STEP_OF(Detail_Format, line[share]->Text = shareOfItem(line));
}

Money dsrSalesStatistic::readBack(const std::string& text) const {
    return text.empty() ? Money() : locale().readMoney(text);
}

std::string dsrSalesStatistic::shareOfItem(const Fields& line) const {
    const Money sold = readBack(line[sales]->Text);
    return sold.isZero() ? "--" : locale().percent(readBack(line[profit]->Text).toDouble() / sold.toDouble());
}

void dsrSalesStatistic::m_objItemHeaderSection_Format() {
    if (rsItem.atEnd()) return;
    STEP(field("ItemNameGH").Hyperlink = drillTag(Drill::item, rsItem.Collect("InItemId")));
}

void dsrSalesStatistic::m_objWarehouseHeaderSection_Format() {
    if (rsItem.atEnd()) return;
    STEP(field("WarehouseNameGH").Hyperlink = drillTag(Drill::warehouseItem, rsItem.Collect("InWarehouseId")));
}

void dsrSalesStatistic::m_objItemFooterSection_Format() {
    for (Field* control : itemLastYear_) control->Visible = !wish_.HideLastYearInfo;
}

// ---- the ends

void dsrSalesStatistic::PageFooter_Format() {
    if (m_bInventoryWarning)
        STEP(lblWarningInvMaj.Caption = context().GetMessage(12802, "Korva", {locale().shortDate(m_dtInventoryDate)}));
    lblWarningInvMaj.Visible = section("PageFooter").Visible = m_bInventoryWarning;
}

void dsrSalesStatistic::ReportFooter_Format() {
    section("ReportFooter").Visible = !SubReportVisible;
    printTotals(m_thisYear, thisYearTotals_);
    for (Label* control : lastYearTotals_) control->Visible = !wish_.HideLastYearInfo;
    if (!wish_.HideLastYearInfo) printTotals(m_lastYear, lastYearTotals_);
    placeTotals();
}

// A total without sales has a share of 0, where a row has none.
void dsrSalesStatistic::printTotals(const Figures& totals, const Labels& line) {
    STEP_OF(ReportFooter_Format, line[units]->Caption = locale().number(totals.units));
    STEP_OF(ReportFooter_Format, line[sales]->Caption = locale().currency(totals.sales));
    STEP_OF(ReportFooter_Format, line[cost]->Caption = locale().currency(totals.cost));
    STEP_OF(ReportFooter_Format, line[profit]->Caption = locale().currency(totals.profit()));
    STEP_OF(ReportFooter_Format, line[share]->Caption = totals.sales.isZero() ? locale().percent(0) : shareOf(totals));
}

void dsrSalesStatistic::placeTotals() {
    place(*thisYearTotals_[units], 3402, 180, 1417);
    place(*lastYearTotals_[units], 3402, 450, 1417);
    place(*thisYearTotals_[sales], 4819, 180, 1559);
    place(*lastYearTotals_[sales], 4819, 450, 1559);
    // The rules below stand under the last line that prints.
    const float bottom = bottomOf(wish_.HideLastYearInfo ? *thisYearTotals_[units] : *lastYearTotals_[units]);
    line("LineTotalYears").Visible = !wish_.HideLastYearInfo;
    placeAt(line("LineTotal1"), bottom + 15);
    placeAt(line("LineTotal2"), bottom + 45);
}

}  // namespace quillo
