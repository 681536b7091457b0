#include "reports/statistics/dsrConsumedStatsByPeriod.h"

#include <algorithm>

#include "dialogs/frmAdvFilters.h"
#include "framework/drill_tags.h"
#include "framework/query_builder.h"

namespace quillo {
namespace {

bool lies(Date day, Date first, Date last) {
    return first <= day && day <= last;
}

}  // namespace

dsrConsumedStatsByPeriod::dsrConsumedStatsByPeriod(HostContext& context)
    : ItemListReport("dsrConsumedStatsByPeriod", context,
                     {.dateOptions = DateDisplay::range,
                      .titleId = 9470,
                      .tables = "Item, Category.Descr, Category_Sub.Descr AS Category_SubDescr ",
                      .filterFlagA = false,
                      .orderBehindComma = true,
                      .endTextId = 7625},
                     Option::includeKit) {
    property("InItemId", InItemId);
    onFetchData(&dsrConsumedStatsByPeriod::ActiveReport_FetchData);
    onFormat("ghInItemId", &dsrConsumedStatsByPeriod::ghInItemId_Format);
    onFormat("Detail", &dsrConsumedStatsByPeriod::Detail_Format);
    onFormat("gfInItemId", &dsrConsumedStatsByPeriod::gfInItemId_Format);
    onFormat("ReportFooter", &dsrConsumedStatsByPeriod::ReportFooter_Format);
}

void dsrConsumedStatsByPeriod::ActiveReport_ReportStart() {
    if (!askFilter()) return;
    STEP(m_items = context().company().Database().OpenRecordset(itemQuery(), 4, 0));
    STEP(InitializePeriods());
    m_grand = {};
    m_lngRecordCount = 0;
    STEP(Translate());
    STEP(setDateCaption());
    STEP(fillFilterInfo());
}

std::string dsrConsumedStatsByPeriod::itemQuery() const {
    const FilterParts filter = filterParts();
    std::string conditions = isOptionOn() ? "" : "WHERE (Item.IsKit IS NULL OR Item.IsKit = 0) ";
    const auto add = [&](const std::string& condition) {
        conditions += (conditions.empty() ? "WHERE " : " AND ") + condition;
    };
    if (InItemId > 0) add("Item.InItemId = " + std::to_string(InItemId));
    if (!filter.where.empty()) add("(" + filter.where + ") ");
    return "SELECT Item.InItemId, Item.ItemId, Item.Descr1, Item.IsKit "
           "FROM (Item LEFT JOIN Category ON Category.InCategoryId = Item.ExCategoryId) "
           "LEFT JOIN Category_Sub ON Category_Sub.InSubCategoryId = Item.ExSubCategoryId " +
           conditions + (filter.order.empty() ? " ORDER BY Item.ItemId" : " ORDER BY Item.ItemId " + filter.order);
}

// ---- the periods

dsrConsumedStatsByPeriod::MovementDays dsrConsumedStatsByPeriod::GetFirstLastTrxDate() {
    const auto row = context().company().Database().OpenRecordset(
        "SELECT MAX(DetDate) AS MaxTrxDate, MIN(DetDate) AS MinTrxDate FROM InvenDet WHERE Source IN ('INV','ASB')", 4,
        0);
    MovementDays days;
    if (row->atEnd()) return days;
    const auto dayOf = [&](const char* column) -> std::optional<Date> {
        const Variant value = row->Value(column, ValueType::date);
        return value.isNull() ? std::nullopt : std::optional(value.toDate());
    };
    STEP(days.last = dayOf("MaxTrxDate"));
    STEP(days.first = dayOf("MinTrxDate"));
    return days;
}

// The fiscal years from the first movement to the last, as far as the dates of the report go; from the first year on
// where they begin before it. Days between two years belong to the next one.
void dsrConsumedStatsByPeriod::InitializePeriods() {
    m_periods.clear();
    m_lngCurrentPeriod = 0;
    STEP(m_objItem = &context().company().itemCosts());
    // A report of many items has all of them summed up at once, period by period.
    if (m_objItem != nullptr) STEP(m_objItem->setCached(InItemId <= 0));
    MovementDays days;
    STEP(days = GetFirstLastTrxDate());
    const Date low = std::max(m_dtDateFrom, days.first.value_or(m_dtDateFrom));
    Date high = std::min(m_dtDateTo, days.last.value_or(m_dtDateTo));
    FiscalCalendar& calendar = context().company().fiscalCalendar();
    const FiscalYear* year = calendar.FiscalYearAt(low);
    if (year == nullptr) year = calendar.FiscalYearAfter(low);
    if (year != nullptr) high = std::max(high, year->StartDate);
    for (; year != nullptr && year->StartDate <= high; year = calendar.FiscalYearAfter(year->EndDate))
        RetreivePeriods(*year);
}

// Those that meet the range, clipped to it.
void dsrConsumedStatsByPeriod::RetreivePeriods(const FiscalYear& year) {
    for (const auto& [start, end] : year.periods) {
        const bool meets = lies(start, m_dtDateFrom, m_dtDateTo) || lies(end, m_dtDateFrom, m_dtDateTo) ||
                           (lies(m_dtDateFrom, start, end) && lies(m_dtDateTo, start, end));
        if (meets) m_periods.push_back({std::max(start, m_dtDateFrom), std::min(end, m_dtDateTo)});
    }
}

// ---- the figures of an item in a period

std::string dsrConsumedStatsByPeriod::GetAdditionalCriterias(std::string_view view) const {
    return firstSegments(std::string(view) + ".ExSegmentId");
}

Money dsrConsumedStatsByPeriod::GetCurrentPeriodQtyConsumed() const {
    return m_objItem->GetCurrentPeriodQtyConsumed(itemOfRow(), period().StartDate, period().EndDate,
                                                  GetAdditionalCriterias("ItemConsumedUnits_View"));
}

Money dsrConsumedStatsByPeriod::GetCurrentPeriodSaleAmnt() const {
    return m_objItem->GetCurrentPeriodSaleAmnt(itemOfRow(), period().StartDate, period().EndDate,
                                               GetAdditionalCriterias("ItemSoldAmounts_View"));
}

Money dsrConsumedStatsByPeriod::GetCurrentPeriodSaleQty() const {
    return m_objItem->GetCurrentPeriodSaleQty(itemOfRow(), period().StartDate, period().EndDate,
                                              GetAdditionalCriterias("ItemSoldUnits_View"));
}

Money dsrConsumedStatsByPeriod::GetCurrentPeriodAssembly() const {
    const std::string segments = GetAdditionalCriterias("AssemblyDet");
    const auto row = context().company().Database().OpenRecordset(
        "SELECT SUM(AssemblyDet.Qty) AS AssQty "
        "FROM AssemblyHdr INNER JOIN AssemblyDet ON AssemblyDet.ExId=AssemblyHdr.Id "
        "WHERE AssemblyHdr.AssemblyDate BETWEEN ? AND ? AND AssemblyDet.ExItemId = ?" +
            (segments.empty() ? "" : " AND " + segments),
        4, 0, {period().StartDate, period().EndDate, itemOfRow()});
    return row->atEnd() ? Money() : row->Value("AssQty", ValueType::currency).moneyOrZero();
}

// ---- the rows

void dsrConsumedStatsByPeriod::ActiveReport_DataInitialize() {
    for (const char* name :
         {"InItemId", "ItemId", "Descr1", "PeriodFrom", "PeriodTo", "SaleQty", "SalesAmnt", "AssQty", "Qty"})
        Fields.Add(name);
}

void dsrConsumedStatsByPeriod::ActiveReport_FetchData(bool& eof) {
    eof = m_items == nullptr || m_periods.empty();
    if (!eof) nextRow();
    eof = eof || m_items->atEnd();
    if (!eof) fillRow();
}

// All periods of an item, then those of the next one.
void dsrConsumedStatsByPeriod::nextRow() {
    if (m_lngCurrentPeriod < m_periods.size()) {
        ++m_lngCurrentPeriod;
        return;
    }
    m_lngCurrentPeriod = 1;
    ++m_lngRecordCount;
    m_items->MoveNext();
}

// What fails shows nothing, and counts nowhere.
void dsrConsumedStatsByPeriod::fillRow() {
    const auto set = [this](const char* name, Variant value) { Fields.Item(name).Value = std::move(value); };
    for (const char* name : {"SaleQty", "SalesAmnt", "AssQty", "Qty"}) set(name, Variant());
    for (const char* name : {"InItemId", "ItemId", "Descr1"})
        STEP_OF(ActiveReport_FetchData,
                set(name,
                    m_items->Value(name, name == std::string_view("InItemId") ? ValueType::integer : ValueType::text)));
    set("PeriodFrom", period().StartDate);
    set("PeriodTo", period().EndDate);
    if (m_objItem == nullptr) return;
    STEP_OF(ActiveReport_FetchData, set("SaleQty", GetCurrentPeriodSaleQty()));
    STEP_OF(ActiveReport_FetchData, set("SalesAmnt", GetCurrentPeriodSaleAmnt()));
    STEP_OF(ActiveReport_FetchData, set("AssQty", GetCurrentPeriodAssembly()));
    STEP_OF(ActiveReport_FetchData, set("Qty", GetCurrentPeriodQtyConsumed()));
}

void dsrConsumedStatsByPeriod::ghInItemId_Format() {
    m_item = {};
    STEP(showItem(Fields.Item("ItemId").Value.textOrEmpty(), Fields.Item("Descr1").Value.textOrEmpty()));
}

void dsrConsumedStatsByPeriod::Detail_Format() {
    txtSalesAmnt.Text.clear();
    for (Figures* sums : {&m_item, &m_grand}) {
        STEP(sums->sales += figure("SalesAmnt"));
        STEP(sums->sold += figure("SaleQty"));
        STEP(sums->assembled += figure("AssQty"));
        STEP(sums->consumed += figure("Qty"));
    }
    if (!Fields.Item("SalesAmnt").Value.isNull()) STEP(txtSalesAmnt.Text = locale().currency(figure("SalesAmnt")));
    const std::string tag = Fields.Item("InItemId").Value.textOrEmpty() + "|" + period().StartDate.isoText() + "|" +
                            period().EndDate.isoText();
    link(tag, {&field("txtFromDate"), &field("txtToDate"), &txtSalesAmnt, &field("txtSaleQty"), &field("txtAssQty"),
               &field("txtConQty")});
}

void dsrConsumedStatsByPeriod::gfInItemId_Format() {
    STEP(field("txtSoldTotal").Text = locale().currency(m_item.sales));
    STEP(field("txtSaleQtyTotal").Text = plainText(m_item.sold));
    STEP(field("txtAssQtyTotal").Text = plainText(m_item.assembled));
    STEP(field("txtConQtyTotal").Text = plainText(m_item.consumed));
}

void dsrConsumedStatsByPeriod::ReportFooter_Format() {
    STEP(field("txtSoldGTotal").Text = locale().currency(m_grand.sales));
    STEP(field("txtSaleQtyGTotal").Text = plainText(m_grand.sold));
    STEP(field("txtAssQtyGTotal").Text = plainText(m_grand.assembled));
    STEP(field("txtConQtyGTotal").Text = plainText(m_grand.consumed));
}

}  // namespace quillo
