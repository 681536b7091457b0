#include "reports/lists/dsrCustPhoneList.h"

#include "framework/drill_tags.h"

namespace quillo {

dsrCustPhoneList::dsrCustPhoneList(HostContext& context)
    : FilterableReport("dsrCustPhoneList", context, {.titleId = 6216}) {
    onFormat("PageHeader", &dsrCustPhoneList::PageHeader_Format);
    onFormat("Detail", &dsrCustPhoneList::Detail_Format);
    onFormat("ReportFooter", &dsrCustPhoneList::ReportFooter_Format);
    if (Setting(Setting::customerCodes)) return;
    lblCode.Visible = fldCustId.Visible = false;
    lblName.Top = lblCode.Top;
    fldName.Top = fldCustId.Top;
}

void dsrCustPhoneList::ActiveReport_ReportStart() {
    std::string sql = "SELECT Cust.* FROM Cust WHERE (Cust.CustInactive = 0 OR Cust.CustInactive IS NULL) ";
    if (!askFilter("Cust")) return;
    STEP(sql += whereClause(filterParts(), OwnWhere::yes));
    STEP(sql += orderClause(filterParts(), " ORDER BY CustId"));
    STEP(rcsCustPhoneList.Recordset = execute(sql));
    STEP(Translate());
    STEP(fillFilterInfo(dsrFilterAndSortByInfoSubreport));
}

void dsrCustPhoneList::PageHeader_Format() {
    STEP(numberCaptions());
    STEP(ReplacePageHeaderControls());
}

// The telephones stand twice under the same text and get numbers; the third is the fax and needs none.
void dsrCustPhoneList::numberCaptions() {
    lblPhone1.Caption = GetText(1898) + " 1";
    lblPhone2.Caption = GetText(1898) + " 2";
    lblPhone3.Caption = GetText(1899);
    lblPoste1.Caption = GetText(1907) + " 1";
    lblPoste2.Caption = GetText(1907) + " 2";
}

void dsrCustPhoneList::ReplacePageHeaderControls() {
    Line1.Y1 = Line1.Y2 = belowFilter(dsrFilterAndSortByInfoSubreport);
    lblCode.Top = Line1.Y1 + 90;
    lblContact.Top = lblPhone1.Top = lblPoste1.Top = lblCode.Top;
    lblName.Top = lblPhone2.Top = lblPoste2.Top = lblPhone3.Top = lblCode.Top + 270;
    if (!lblCode.Visible) lblName.Top = lblCode.Top;
    Line2.Y1 = Line2.Y2 = lblPhone2.Top + lblPhone2.Height + 30;
    section("PageHeader").Height = Line2.Y1;
}

void dsrCustPhoneList::Detail_Format() {
    if (rcsCustPhoneList.atEnd()) return;
    STEP(link(plainTag(rcsCustPhoneList.Collect("InCustId")),
              {&fldCustId, &fldName, &fldContact, &fldTel1, &fldTelExt1, &txtTel2, &txtTelExt2, &txtFax}));
    STEP(lblFAX.Visible = !txtFax.Text.empty());
    STEP(++m_lngRecordCount);
}

void dsrCustPhoneList::ReportFooter_Format() {
    STEP(setEndLine(lblEnd, 7622));
}

}  // namespace quillo
