#include "reports/statistics/dsrInvStatByItem.h"

namespace quillo {

dsrInvStatByItem::dsrInvStatByItem(HostContext& context)
    : InvoicedItems(
          "dsrInvStatByItem", context,
          {.dateOptions = DateDisplay::range,
           .titleId = 6088,
           .companyCurrency = true,
           .foreign = Foreign::keptWhereUsed,
           .tables = "WorldCurrency.Descr, WorldCurrency.CurrencyCode, InvoiHdr, "
                     "InvoiDet.IsKit, InvoiDet.UnitPrice, Cust.ExCurrencyId, Cust.InCustId, Cust.CustId, "
                     "Cust.Name, Item, Category.Descr, Category_Sub.Descr AS Category_SubDescr ",
           .filterFlagA = false,
           .orderBehindComma = true,
           .endTextId = 7625},
          {.header = "ghInItemId", .footer = "gfInItemId", .discount = "txtDiscount", .party = "txtCustName"}) {
    onFormat("ghInItemId", &dsrInvStatByItem::ghInItemId_Format);
    onFormat("gfInItemId", &dsrInvStatByItem::gfInItemId_Format);
    onFormat("gfCurrency", &dsrInvStatByItem::gfCurrency_Format);
    onFormat("ReportFooter", &dsrInvStatByItem::ReportFooter_Format);
}

std::string dsrInvStatByItem::columns() const {
    return " SELECT Item.*, InvoiDet.DiscPercent, InvoiDet.TaxIncluded, InvoiDet.ExTaxGroupId, " +
           orZero("InvoiDet.ExKitInvoiDetId") + " AS ExKitInvoiDetId, " + orZero("InvoiDet.IsKit") +
           " AS IsKit, "
           "        InvoiHdr.InvoiDate, InvoiHdr.ExchangeRate, InvoiHdr.InInvoiId, InvoiHdr.InvoiId, "
           "InvoiHdr.InvoiType, "
           "        Cust.ExCurrencyId, Cust.CustId, Cust.Name, Category.Descr, "
           "Category_Sub.Descr AS Category_SubDescr, ";
}

std::string dsrInvStatByItem::orderBy() const {
    return orderBehind("WorldCurrency.CurrencyCode, Item.ItemId", ", InvoiHdr.InvoiDate");
}

void dsrInvStatByItem::ghInItemId_Format() {
    if (rsInvoiStat.atEnd()) return;
    STEP(showItem(rsInvoiStat.Collect("ItemId").textOrEmpty(), rsInvoiStat.Collect("Descr1").textOrEmpty()));
}

void dsrInvStatByItem::gfInItemId_Format() {
    STEP(lblQtyTotal.Caption = plainText(m_group.quantity));
}

void dsrInvStatByItem::gfCurrency_Format() {
    STEP(txtQtyTotal.Text = plainText(m_currency.quantity));
}

void dsrInvStatByItem::ReportFooter_Format() {
    txtExtQtyTotal.Visible = !m_bDisplayForeignCurrency;
    STEP(txtExtQtyTotal.Text = plainText(m_grand.quantity));
}

}  // namespace quillo
