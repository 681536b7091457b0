#include "reports/lists/dsrCustListShipAddr.h"

#include "framework/drill_tags.h"

namespace quillo {

dsrCustListShipAddr::dsrCustListShipAddr(HostContext& context)
    : FilterableReport("dsrCustListShipAddr", context, {.titleId = 5991, .tables = "Cust,Addr", .endTextId = 7622}) {
    onFormat("ghCustId", &dsrCustListShipAddr::ghCustId_Format);
    onFormat("Detail", &dsrCustListShipAddr::Detail_Format);
    ActiveReport_Initialize(Setting::customerCodes, {{lblCode, lblName}, {fldCustId, fldName}});
}

void dsrCustListShipAddr::ActiveReport_ReportStart() {
    m_customers.clear();
    FilterableReport::ActiveReport_ReportStart(
        {.text =
             "SELECT Cust.*, KorvaLanguages.DisplayName, Addr.InAddrId, Addr.AddrName, Addr.AddrLine1, Addr.AddrLine2, "
             "Addr.City, Addr.Province, Addr.PostalCode, Country.CountryName "
             "FROM ((Cust LEFT JOIN KorvaLanguages ON KorvaLanguages.ID = Cust.NameLang) "
             "LEFT JOIN Addr ON (Addr.ExCustId = Cust.InCustId AND Addr.AddrKind = 1)) "
             "LEFT JOIN Country ON Country.InCountryId = Addr.ExCountryId "
             "WHERE (Cust.CustInactive = 0 OR Cust.CustInactive IS NULL) ",
         .order = " ORDER BY CustId",
         // A customer's addresses stand together behind whatever the user sorts by.
         .ties = {"Cust.InCustId", "Addr.InAddrId"}});
}

void dsrCustListShipAddr::ghCustId_Format() {
    if (rcsCustListShipAddr.atEnd()) return;
    fldWeb.Hyperlink = webTag(fldWeb.Text);
    fldEmail.Hyperlink = mailTag(fldEmail.Text);
    STEP(fldNameLang.Text =
             context().company().dictionary().Translate(rcsCustListShipAddr.Collect("DisplayName").textOrEmpty()));
    // An order by city or the like splits a customer's addresses: it prints again, and counts once.
    STEP(m_customers.insert(rcsCustListShipAddr.Collect("InCustId").toInt32()));
    m_lngRecordCount = static_cast<int>(m_customers.size());
}

void dsrCustListShipAddr::Detail_Format() {
    if (rcsCustListShipAddr.atEnd()) return;
    // A customer without shipping addresses prints its own line alone.
    if (rcsCustListShipAddr.Collect("InAddrId").isNull()) LayoutAction = LayoutActions::dropRow;
    STEP(fldShipAddr.Caption = addressText());
}

// The address in one line, without what is missing.
std::string dsrCustListShipAddr::addressText() const {
    std::string text;
    for (const char* column : {"AddrLine1", "AddrLine2", "City", "Province", "PostalCode", "CountryName"}) {
        const std::string part = rcsCustListShipAddr.Collect(column).textOrEmpty();
        if (!part.empty()) text += (text.empty() ? "" : ", ") + part;
    }
    return text;
}

}  // namespace quillo
