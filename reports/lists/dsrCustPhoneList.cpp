#include "reports/lists/dsrCustPhoneList.h"

namespace quillo {

dsrCustPhoneList::dsrCustPhoneList(HostContext& context)
    : FilterableReport("dsrCustPhoneList", context, {.titleId = 6216, .tables = "Cust", .endTextId = 7622}) {
    onFormat("PageHeader", &dsrCustPhoneList::PageHeader_Format);
    onFormat("Detail", &dsrCustPhoneList::Detail_Format);
    const float lineBelow = fldName.Top - fldCustId.Top;
    if (ActiveReport_Initialize(Setting::customerCodes, {{lblCode, lblName}, {fldCustId, fldName}})) return;
    // The name takes the whole of the first line, the contact the line below it.
    lblContact.Left = lblName.Left;
    fldContact.Left = fldName.Left;
    lblContact.Top += lineBelow;
    fldContact.Top += lineBelow;
}

void dsrCustPhoneList::ActiveReport_ReportStart() {
    FilterableReport::ActiveReport_ReportStart(
        {.text = "SELECT Cust.* FROM Cust WHERE (Cust.CustInactive = 0 OR Cust.CustInactive IS NULL) ",
         .order = " ORDER BY CustId"});
}

// The telephones stand twice under the same text and get numbers; the third is the fax and needs none.
void dsrCustPhoneList::PageHeader_Format() {
    STEP(lblPhone1.Caption = GetText(1898) + " 1");
    STEP(lblPhone2.Caption = GetText(1898) + " 2");
    STEP(lblPhone3.Caption = GetText(1899));
    STEP(lblPoste1.Caption = GetText(1907) + " 1");
    STEP(lblPoste2.Caption = GetText(1907) + " 2");
}

void dsrCustPhoneList::Detail_Format() {
    if (rcsCustPhoneList.atEnd()) return;
    lblFAX.Visible = !txtFax.Text.empty();
    ++m_lngRecordCount;
}

}  // namespace quillo
