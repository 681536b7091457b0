#include "reports/statistics/invoiced_items.h"

#include <optional>

#include "dialogs/frmAdvFilters.h"
#include "framework/query_builder.h"

namespace quillo {
namespace {

constexpr int creditNote = 3;  // an InvoiType

}  // namespace

// A credit note's discount lowers its price: meant, so that a price agrees with those that were printed before.
Money InvoicedLine::unitPrice(Money rate) const {
    if (quantity.isZero()) return {};
    return roundAmount((rowTotal + discount).toDouble() / quantity.toDouble() * rate.toDouble(), 2);
}

InvoicedItems::InvoicedItems(std::string name, HostContext& context, const ContractRow& contract, const Own& own)
    : ItemListReport(std::move(name), context, contract, Option::showZeroTransaction),
      discount_(field(own.discount)),
      party_(field(own.party)),
      m_objReport(context) {
    onFormat("ghCurrency", &InvoicedItems::ghCurrency_Format);
    onFormat(own.header, &InvoicedItems::header_Format);
    onFormat("Detail", &InvoicedItems::Detail_Format);
    onFormat(own.footer, &InvoicedItems::footer_Format);
    onFormat("gfCurrency", &InvoicedItems::gfCurrency_Format);
    onFormat("ReportFooter", &InvoicedItems::ReportFooter_Format);
}

void InvoicedItems::IReport_Initialize() {
    ItemListReport::IReport_Initialize();
    STEP(m_lngHomeCurrencyId = currencies().CieHomeCurrencyId());
}

void InvoicedItems::ActiveReport_ReportStart() {
    m_grand = {};
    m_lngRecordCount = 0;
    if (m_bDisplayForeignCurrency) {
        m_currency = {};
        txtCurrencyTotalCode.Text.clear();
    }
    m_lngCurrencyId = m_lngHomeCurrencyId;
    if (!askFilter()) return;
    STEP(rsInvoiStat.Recordset = execute(query(), {m_dtDateFrom, m_dtDateTo}));
    STEP(Translate());
    STEP(setDateCaption());
    STEP(fillFilterInfo());
}

std::string InvoicedItems::orZero(std::string_view column) const {
    return context().utils().NullExpression(column, "0", true);
}

std::string InvoicedItems::query() const {
    const std::string quantity = "(" + orZero("InvoiDet.Qty") + " - " + orZero("InvoiDet.QtyScrap") + ")";
    const std::string price = orZero("InvoiDet.UnitPrice");
    return columns() +
           "        Warehouse.WarehouseId, Warehouse.Name AS WarehouseName, "
           "        WorldCurrency.CurrencyCode, WorldCurrency.Descr as WorldCurrencyDescr, "
           "(WorldCurrency.CurrencyCode + ' - ' + WorldCurrency.Descr) As FullCurrencyDescr, "
           "        " +
           quantity + " As Quantity, " + price + " AS UnitPrice, " + orZero("InvoiDet.BaseRowTotal") +
           " AS BaseRowTotal "
           " FROM ((((((InvoiDet INNER JOIN InvoiHdr ON InvoiDet.ExInvoiId = InvoiHdr.InInvoiId)"
           " INNER JOIN Cust ON InvoiHdr.ExCustId = Cust.InCustId)"
           " LEFT JOIN Item ON InvoiDet.ExItemId = Item.InItemId) "
           " LEFT JOIN Category ON Category.InCategoryId = Item.ExCategoryId) "
           " LEFT JOIN Category_Sub ON Item.ExSubCategoryId = Category_Sub.InSubCategoryId) "
           " LEFT JOIN Warehouse ON Warehouse.InWarehouseId = InvoiDet.ExWarehouseId) "
           " LEFT JOIN WorldCurrency ON WorldCurrency.InCurrencyId = Cust.ExCurrencyId "
           " WHERE " +
           std::string(condition()) +
           "InvoiHdr.InvoiDate BETWEEN ? AND ? "
           " AND (InvoiHdr.InvoiType = 1 OR InvoiHdr.InvoiType = 2 OR InvoiHdr.InvoiType = 3"
           " OR InvoiHdr.InvoiType = 4) " +
           (isOptionOn() ? "" : " AND (" + quantity + " * " + price + ") > 0 ") + segments("InvoiDet.ExSegmentId") +
           whereClause(filterParts(), OwnWhere::yes) + orderBy();
}

std::string InvoicedItems::customerOfRow() const {
    const std::string name = rsInvoiStat.Collect("Name").textOrEmpty();
    return Setting(Setting::customerCodes) ? codeAndName(rsInvoiStat.Collect("CustId").textOrEmpty(), name) : name;
}

// A group of the same currency goes on with its sums.
void InvoicedItems::ghCurrency_Format() {
    if (rsInvoiStat.atEnd()) {
        txtCurrencyDescr.Text.clear();
        return;
    }
    int currency = 0;
    STEP(currency = rsInvoiStat.Collect("ExCurrencyId").int32OrZero());
    if (currency == m_lngCurrencyId) return;
    m_currency = {};
    m_lngCurrencyId = currency;
}

void InvoicedItems::Detail_Format() {
    if (rsInvoiStat.atEnd()) return;
    bool shown = true;
    STEP(shown = isShown());
    if (!shown) {
        LayoutAction = LayoutActions::skipRow;
        return;
    }
    ++m_lngRecordCount;
    for (Field* control : {&fldQty, &txtUnitPrice, &txtExt, &discount_, &party_}) control->Text.clear();
    STEP(party_.Text = partyOfRow());
    Money quantity;
    STEP(quantity = rsInvoiStat.Collect("Quantity").moneyOrZero());
    STEP(fldQty.Text = plainText(quantity));
    addQuantity(quantity);
    std::optional<InvoicedLine> line;
    STEP(line = readLine(quantity));
    std::optional<Money> rate;
    STEP(rate = rateOfRow());
    if (line && rate) printLine(*line, *rate);
}

bool InvoicedItems::isShown() {
    const int kit = rsInvoiStat.Collect("ExKitInvoiDetId").int32OrZero();
    return m_objReport.isShown(kit, rsInvoiStat.Collect("IsKit").boolOrFalse());
}

Money InvoicedItems::rateOfRow() const {
    if (m_bDisplayForeignCurrency || !currencies().CieIsForeignCurrencyUsed()) return Money::fromInteger(1);
    return rsInvoiStat.Collect("ExchangeRate").toMoney();
}

InvoicedLine InvoicedItems::readLine(Money quantity) const {
    const double price = rsInvoiStat.Collect("UnitPrice").doubleOrZero();
    const double percent = rsInvoiStat.Collect("DiscPercent").doubleOrZero();
    const Money total = rsInvoiStat.Collect("BaseRowTotal").moneyOrZero();
    const bool credit = rsInvoiStat.Collect("InvoiType").int32OrZero() == creditNote;
    return {quantity, credit ? -total : total, Money::fromDouble(quantity.toDouble() * price * (percent / 100))};
}

void InvoicedItems::printLine(const InvoicedLine& line, Money rate) {
    STEP_OF(Detail_Format, addAmount(line.extended(rate)));
    STEP_OF(Detail_Format, txtExt.Text = locale().currency(line.extended(rate)));
    STEP_OF(Detail_Format, txtUnitPrice.Text = locale().currency(line.unitPrice(rate)));
    if (line.discount.isZero()) return;
    STEP_OF(Detail_Format, discount_.Text = locale().currency(line.discountAt(rate)));
}

void InvoicedItems::addQuantity(Money quantity) {
    for (Sums* sums : {&m_group, &m_currency, &m_grand}) STEP_OF(Detail_Format, sums->quantity += quantity);
}

// Amounts of several currencies are never summed.
void InvoicedItems::addAmount(Money amount) {
    for (Sums* sums : {&m_group, m_bDisplayForeignCurrency ? &m_currency : &m_grand})
        STEP_OF(Detail_Format, sums->amount += amount);
}

void InvoicedItems::footer_Format() {
    STEP(txtExtTotal.Text = locale().currency(m_group.amount));
}

void InvoicedItems::gfCurrency_Format() {
    STEP(txtCurrencyTotal.Text = locale().currency(m_currency.amount));
}

void InvoicedItems::ReportFooter_Format() {
    label("lblGrandTotal").Visible = txtExtGrandTotal.Visible = !m_bDisplayForeignCurrency;
    for (const char* name : {"LineGrandTotal1", "LineGrandTotal2", "LineGrandTotal3"})
        line(name).Visible = !m_bDisplayForeignCurrency;
    STEP(txtExtGrandTotal.Text = locale().currency(m_grand.amount));
}

}  // namespace quillo
