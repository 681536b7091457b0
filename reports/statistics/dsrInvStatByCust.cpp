#include "reports/statistics/dsrInvStatByCust.h"

#include "framework/query_builder.h"

namespace quillo {

dsrInvStatByCust::dsrInvStatByCust(HostContext& context)
    : InvoicedItems("dsrInvStatByCust", context,
                    {.dateOptions = DateDisplay::range,
                     .titleId = 6087,
                     .companyCurrency = true,
                     .foreign = Foreign::keptWhereUsed,
                     .tables = "WorldCurrency.Descr, WorldCurrency.CurrencyCode, InvoiHdr, "
                               "InvoiDet.IsKit, InvoiDet.UnitPrice, Cust, Item, Category.Descr, "
                               "Category_Sub.Descr AS Category_SubDescr ",
                     .filterFlagA = false,
                     .endTextId = 7625},
                    {.header = "ghInCustId", .footer = "gfInCustId", .discount = "txtDisc", .party = "txtItemName"}) {
    onFormat("ghInCustId", &dsrInvStatByCust::ghInCustId_Format);
}

std::string dsrInvStatByCust::columns() const {
    return " SELECT Item.InItemId, Item.ItemId, " + orZero("InvoiDet.DiscPercent") + " AS DiscPercent, " +
           orZero("InvoiDet.ExKitInvoiDetId") + " AS ExKitInvoiDetId, " + orZero("InvoiDet.IsKit") +
           " AS IsKit, InvoiDet.TaxIncluded, InvoiDet.ExTaxGroupId, "
           "        InvoiHdr.InvoiDate, InvoiHdr.ExchangeRate, InvoiHdr.InInvoiId, InvoiHdr.InvoiId, "
           "InvoiHdr.InvoiType, InvoiDet.Descr AS InvoiDetDescr, "
           "        Cust.ExCurrencyId, Cust.InCustId, Cust.CustId, Cust.Name, Item.Descr1, Category.Descr, "
           "Category_Sub.Descr AS Category_SubDescr, ";
}

std::string_view dsrInvStatByCust::condition() const {
    return "InvoiDet.ExItemID IS NOT NULL AND InvoiDet.UnitPrice IS NOT NULL AND ";
}

std::string dsrInvStatByCust::orderBy() const {
    return orderClauseBehind(filterParts(), "WorldCurrency.CurrencyCode, InCustId, ",
                             " ORDER BY WorldCurrency.CurrencyCode, Cust.CustId, InvoiHdr.InvoiDate, "
                             "InvoiDet.ExKitInvoiDetId, InvoiDet.InInvoiDetId, Item.ItemId");
}

void dsrInvStatByCust::ghInCustId_Format() {
    if (rsInvoiStat.atEnd()) return;
    STEP(lblClientCap.Caption = GetText(1388) + ":");
    lblClient.Caption.clear();
    STEP(lblClient.Caption = customerOfRow());
}

std::string dsrInvStatByCust::partyOfRow() const {
    if (rsInvoiStat.Collect("InItemId").isNull()) return rsInvoiStat.Collect("InvoiDetDescr").textOrEmpty();
    return codeAndName(rsInvoiStat.Collect("ItemId").textOrEmpty(), rsInvoiStat.Collect("Descr1").textOrEmpty());
}

}  // namespace quillo
