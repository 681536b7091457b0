#include "reports/lists/dsrCustListShipAddr.h"

#include "framework/drill_tags.h"

namespace quillo {

dsrCustListShipAddr::dsrCustListShipAddr(HostContext& context)
    : FilterableReport("dsrCustListShipAddr", context, {.titleId = 5991}) {
    onFormat("PageHeader", &dsrCustListShipAddr::PageHeader_Format);
    onFormat("ghCustId", &dsrCustListShipAddr::ghCustId_Format);
    onFormat("Detail", &dsrCustListShipAddr::Detail_Format);
    onFormat("ReportFooter", &dsrCustListShipAddr::ReportFooter_Format);
    if (Setting(Setting::customerCodes)) return;
    lblCode.Visible = fldCustId.Visible = false;
    lblName.Left = lblCode.Left;
    fldName.Left = fldCustId.Left;
}

void dsrCustListShipAddr::ActiveReport_ReportStart() {
    STEP(m_customers.clear());
    std::string sql =
        "SELECT Cust.*, KorvaLanguages.DisplayName, Addr.InAddrId, Addr.AddrName, Addr.AddrLine1, Addr.AddrLine2, "
        "Addr.City, Addr.Province, Addr.PostalCode, Country.CountryName "
        "FROM ((Cust LEFT JOIN KorvaLanguages ON KorvaLanguages.ID = Cust.NameLang) "
        "LEFT JOIN Addr ON (Addr.ExCustId = Cust.InCustId AND Addr.AddrKind = 1)) "
        "LEFT JOIN Country ON Country.InCountryId = Addr.ExCountryId "
        "WHERE (Cust.CustInactive = 0 OR Cust.CustInactive IS NULL) ";
    if (!askFilter("Cust,Addr")) return;
    STEP(sql += whereClause(filterParts(), OwnWhere::yes));
    // A customer's addresses stand together behind whatever the user sorts by.
    STEP(sql += orderClauseBefore(filterParts(), "CustId", {"Cust.InCustId", "Addr.InAddrId"}));
    STEP(rcsCustListShipAddr.Recordset = execute(sql));
    STEP(Translate());
    STEP(fillFilterInfo(dsrFilterAndSortByInfoSubreport));
}

void dsrCustListShipAddr::PageHeader_Format() {
    STEP(ReplacePageHeaderControls());
}

void dsrCustListShipAddr::ReplacePageHeaderControls() {
    constexpr float lineDistance = 270;
    Line1.Y1 = Line1.Y2 = belowFilter(dsrFilterAndSortByInfoSubreport);
    lblCode.Top = Line1.Y1 + 90;
    lblName.Top = lblContact.Top = lblTel1.Top = lblFax.Top = lblCode.Top;
    lblShipAddr.Top = lblWebSite.Top = lblEmail.Top = lblLang.Top = lblCode.Top + lineDistance;
    Line2.Y1 = Line2.Y2 = lblShipAddr.Top + lblShipAddr.Height + 30;
    section("PageHeader").Height = Line2.Y1;
}

void dsrCustListShipAddr::ghCustId_Format() {
    if (rcsCustListShipAddr.atEnd()) return;
    STEP(link(plainTag(rcsCustListShipAddr.Collect("InCustId")), {&fldCustId, &fldName, &fldContact}));
    STEP(fldWeb.Hyperlink = webTag(fldWeb.Text));
    STEP(fldEmail.Hyperlink = mailTag(fldEmail.Text));
    STEP(fldNameLang.Text =
             context().company().dictionary().Translate(rcsCustListShipAddr.Collect("DisplayName").textOrEmpty()));
    // An order by city or the like splits a customer's addresses: it prints again, and counts once.
    STEP(m_customers.insert(rcsCustListShipAddr.Collect("InCustId").toInt32()));
}

void dsrCustListShipAddr::Detail_Format() {
    if (rcsCustListShipAddr.atEnd()) return;
    // A customer without shipping addresses prints its own line alone.
    STEP(if (rcsCustListShipAddr.Collect("InAddrId").isNull()) LayoutAction = LayoutActions::dropRow);
    STEP(fldShipAddr.Caption = addressText());
    STEP(link(plainTag(rcsCustListShipAddr.Collect("InCustId")), {&fldAddrName, &fldShipAddr}));
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

void dsrCustListShipAddr::ReportFooter_Format() {
    m_lngRecordCount = static_cast<int>(m_customers.size());
    STEP(setEndLine(lblEnd, 7622));
}

}  // namespace quillo
