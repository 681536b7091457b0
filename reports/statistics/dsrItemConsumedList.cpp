#include "reports/statistics/dsrItemConsumedList.h"

#include "dialogs/frmAdvFilters.h"
#include "framework/drill_tags.h"
#include "framework/query_builder.h"

namespace quillo {
namespace {

constexpr int assembly = 6, sale = 7;  // values of TrxType
constexpr int creditNote = 3;          // an InvoiType

}  // namespace

dsrItemConsumedList::dsrItemConsumedList(HostContext& context)
    : ItemListReport("dsrItemConsumedList", context,
                     {.dateOptions = DateDisplay::range,
                      .titleId = 9469,
                      .tables = "WorldCurrency.Descr, WorldCurrency.CurrencyCode, Item, Category.Descr, "
                                "Category_Sub.Descr AS Category_SubDescr ",
                      .filterFlagA = false,
                      .orderBehindComma = true,
                      .endTextId = 7625},
                     Option::includeKit) {
    property("InItemId", InItemId);
    onFormat("ghInItemId", &dsrItemConsumedList::ghInItemId_Format);
    onFormat("Detail", &dsrItemConsumedList::Detail_Format);
    onFormat("gfInItemId", &dsrItemConsumedList::gfInItemId_Format);
    onFormat("ReportFooter", &dsrItemConsumedList::ReportFooter_Format);
}

void dsrItemConsumedList::ActiveReport_ReportStart() {
    m_grand = {};
    m_lngRecordCount = 0;
    if (!askFilter()) return;
    STEP(rsItemTrx.Recordset = execute(query(), {m_dtDateFrom, m_dtDateTo}));
    STEP(Translate());
    STEP(setDateCaption());
    STEP(fillFilterInfo());
}

// An item that stands twice on a document meets both of its lines, each time: meant, so that its sales agree with those
// that were printed before.
std::string dsrItemConsumedList::query() const {
    return "SELECT ItemConsumedUnits_View.TrxDate, ItemConsumedUnits_View.TrxType, ItemConsumedUnits_View.ID, "
           "ItemConsumedUnits_View.ExSrcKeyVal, ItemConsumedUnits_View.Qty, Item.InItemId, Item.ItemId, Item.Descr1, "
           "Item.IsKit, Category.Descr, Category_Sub.Descr AS Category_SubDescr, Warehouse.WarehouseId, "
           "Warehouse.Name AS WarehouseName, " +
           amounts() +
           "FROM (((((((ItemConsumedUnits_View LEFT JOIN Item ON Item.InItemId = ItemConsumedUnits_View.InItemId) "
           "LEFT JOIN InvoiHdr ON InvoiHdr.InInvoiId = ItemConsumedUnits_View.ExSrcKeyVal) "
           "LEFT JOIN InvoiDet ON InvoiDet.ExInvoiId = ItemConsumedUnits_View.ExSrcKeyVal "
           "AND InvoiDet.ExitemId = ItemConsumedUnits_View.InItemId) "
           "LEFT JOIN AssemblyDet ON AssemblyDet.ExId = ItemConsumedUnits_View.ExSrcKeyVal "
           "AND AssemblyDet.ExitemId = ItemConsumedUnits_View.InItemId) "
           "LEFT JOIN Warehouse ON Warehouse.InWarehouseId = ItemConsumedUnits_View.ExWarehouseId) "
           "LEFT JOIN Category ON Category.InCategoryId = Item.ExCategoryId) "
           "LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = InvoiHdr.ExCurrencyId) "
           "LEFT JOIN Category_Sub ON Category_Sub.InSubCategoryId = Item.ExSubCategoryId "
           "WHERE ItemConsumedUnits_View.TrxDate BETWEEN ? AND ?" +
           (InItemId > 0 ? " AND ItemConsumedUnits_View.InItemId = " + std::to_string(InItemId) : "") +
           (isOptionOn() ? "" : " AND (Item.IsKit IS NULL OR Item.IsKit=0)") +
           segments("ItemConsumedUnits_View.ExSegmentId") + whereClause(filterParts(), OwnWhere::yes) +
           orderBehind("Item.ItemId", ", ItemConsumedUnits_View.TrxDate, ItemConsumedUnits_View.TrxType");
}

// The cost of an assembly's row, and the sales of a document's in home currency.
std::string dsrItemConsumedList::amounts() const {
    if (isJet(context()))
        return "IIF(ItemConsumedUnits_View.TrxType=6, (AssemblyDet.UnitCost * AssemblyDet.Qty),0) AS ExtAmnt, "
               "IIF(ItemConsumedUnits_View.TrxType=7, IIf(ISNULL(InvoiDet.BaseRowTotal*InvoiHdr.ExchangeRate), 0, "
               "IIF(IType=3, (-(InvoiDet.BaseRowTotal*InvoiHdr.ExchangeRate)), "
               "(InvoiDet.BaseRowTotal*InvoiHdr.ExchangeRate))), 0) AS SalesAmnt ";
    return "CASE ItemConsumedUnits_View.TrxType WHEN 6 THEN (AssemblyDet.UnitCost * AssemblyDet.Qty) ELSE 0 END AS "
           "ExtAmnt,"
           "CASE ItemConsumedUnits_View.TrxType WHEN 7 THEN CASE WHEN "
           "(InvoiDet.BaseRowTotal*InvoiHdr.ExchangeRate) IS NULL THEN 0 ELSE (CASE WHEN IType=3 THEN "
           "(-(InvoiDet.BaseRowTotal*InvoiHdr.ExchangeRate)) ELSE (InvoiDet.BaseRowTotal*InvoiHdr.ExchangeRate) END) "
           "END ELSE 0 END AS SalesAmnt ";
}

void dsrItemConsumedList::ghInItemId_Format() {
    m_item = {};
    if (rsItemTrx.atEnd()) return;
    STEP(showItem(rsItemTrx.Collect("ItemId").textOrEmpty(), rsItemTrx.Collect("Descr1").textOrEmpty()));
}

void dsrItemConsumedList::Detail_Format() {
    if (rsItemTrx.atEnd()) return;
    for (Field* control : {&txtTrxType, &txtQty, &txtExtAmnt, &txtSalesAmnt}) control->Text.clear();
    STEP(txtTrxType.Text = GetTrxTypeDesc());
    STEP(txtQty.Text = locale().plainNumber(Variant(rsItemTrx.Collect("Qty").moneyOrZero())));
    STEP(txtExtAmnt.Text = locale().currency(rsItemTrx.Collect("ExtAmnt").moneyOrZero()));
    STEP(txtSalesAmnt.Text = locale().currency(rsItemTrx.Collect("SalesAmnt").moneyOrZero()));
    ++m_lngRecordCount;
    for (Sums* sums : {&m_item, &m_grand}) {
        STEP(sums->quantity += rsItemTrx.Collect("Qty").moneyOrZero());
        STEP(sums->sold += rsItemTrx.Collect("SalesAmnt").moneyOrZero());
        STEP(sums->assembled += rsItemTrx.Collect("ExtAmnt").moneyOrZero());
    }
    std::string tag;
    STEP(tag = tagOfRow());
    link(tag, {&txtTrxType, &txtTrxDate, &txtNoDoc, &txtQty, &txtSalesAmnt, &txtExtAmnt});
}

std::string dsrItemConsumedList::tagOfRow() const {
    const Variant key = rsItemTrx.Collect("ExSrcKeyVal");
    switch (rsItemTrx.Collect("TrxType").int32OrZero()) {
        case assembly:
            return drillTag(Drill::assembly, key);
        case sale:
            return drillTag(Drill::invoice, key);
        default:
            return {};
    }
}

std::string dsrItemConsumedList::GetTrxTypeDesc() {
    switch (rsItemTrx.Collect("TrxType").int32OrZero()) {
        case assembly:
            return context().GetText(4416);
        case sale:
            return GetInvoiTypeDesc();
        default:
            return {};
    }
}

std::string dsrItemConsumedList::GetInvoiTypeDesc() {
    const auto document = context().company().Database().OpenRecordset(
        "SELECT InvoiType FROM InvoiHdr WHERE InInvoiId = ?", 4, 0, rsItemTrx.Collect("ExSrcKeyVal"));
    if (document->atEnd()) return {};
    return GetText(document->Value("InvoiType", ValueType::integer).int32OrZero() == creditNote ? 2860 : 2916);
}

void dsrItemConsumedList::gfInItemId_Format() {
    STEP(field("txtQtyTotal").Text = locale().plainNumber(Variant(m_item.quantity)));
    STEP(field("txtSoldTotal").Text = locale().currency(m_item.sold));
    STEP(field("txtExtTotal").Text = locale().currency(m_item.assembled));
}

void dsrItemConsumedList::ReportFooter_Format() {
    STEP(field("txtQtyGTotal").Text = locale().plainNumber(Variant(m_grand.quantity)));
    STEP(field("txtSoldGTotal").Text = locale().currency(m_grand.sold));
    STEP(field("txtExtGTotal").Text = locale().currency(m_grand.assembled));
}

}  // namespace quillo
