#include "reports/lists/dsrCustCustomFieldList.h"

#include <algorithm>

#include "framework/drill_tags.h"

namespace quillo {

dsrCustCustomFieldList::dsrCustCustomFieldList(HostContext& context)
    : FilterableReport("dsrCustCustomFieldList", context, {.titleId = 6217, .keepsDateFrom = false}) {
    onFetchData(&dsrCustCustomFieldList::ActiveReport_FetchData);
    onFormat("PageHeader", &dsrCustCustomFieldList::PageHeader_Format);
    onFormat("ghCustId", &dsrCustCustomFieldList::ghCustId_Format);
    onFormat("Detail", &dsrCustCustomFieldList::Detail_Format);
    onFormat("ReportFooter", &dsrCustCustomFieldList::ReportFooter_Format);
    if (Setting(Setting::customerCodes)) return;
    lblCode.Visible = fldCustId.Visible = false;
    lblName.Left = lblCode.Left;
    fldName.Left = fldCustId.Left;
}

void dsrCustCustomFieldList::ActiveReport_ReportStart() {
    STEP(m_lngRecordCount = 0);
    std::string sql = "SELECT Cust.* FROM Cust WHERE (Cust.CustInactive = 0 OR Cust.CustInactive IS NULL) ";
    if (!askFilter("Cust")) return;
    STEP(sql += whereClause(filterParts(), OwnWhere::yes));
    STEP(sql += orderClause(filterParts(), " ORDER BY CustId"));
    STEP(rcsCustCustomFieldList.Recordset = execute(sql));
    STEP(Translate());
    STEP(fillFilterInfo(dsrFilterAndSortByInfoSubreport));
}

void dsrCustCustomFieldList::ActiveReport_DataInitialize() {
    STEP(Fields.Add("FieldCaption"));
    STEP(Fields.Add("FieldValue"));
}

void dsrCustCustomFieldList::readValues() {
    m_next = 0;
    m_values = context().company().customFields().Values("Cust", rcsCustCustomFieldList.Collect("InCustId").toInt32());
    std::erase_if(m_values, [](const CustomFieldValue& field) { return field.value.empty(); });
}

// One fetch a value; a customer without values gives one empty row, so that its line prints.
void dsrCustCustomFieldList::ActiveReport_FetchData(bool& eof) {
    const bool moreValues = m_next < m_values.size();
    if (!moreValues) {
        if (m_started && !rcsCustCustomFieldList.atEnd()) rcsCustCustomFieldList.Recordset->moveNext();
        m_started = true;
        eof = rcsCustCustomFieldList.atEnd();
        if (eof) return;
        m_values.clear();
        STEP(readValues());
    }
    const CustomFieldValue field = m_next < m_values.size() ? m_values[m_next++] : CustomFieldValue();
    STEP(Fields.Item("FieldCaption").Value = field.caption);
    STEP(Fields.Item("FieldValue").Value = field.value);
}

void dsrCustCustomFieldList::PageHeader_Format() {
    STEP(ReplacePageHeaderControls());
}

void dsrCustCustomFieldList::ReplacePageHeaderControls() {
    Line1.Y1 = Line1.Y2 = belowFilter(dsrFilterAndSortByInfoSubreport);
    lblCode.Top = lblName.Top = Line1.Y1 + 90;
    Line2.Y1 = Line2.Y2 = lblCode.Top + lblCode.Height + 30;
    section("PageHeader").Height = Line2.Y1;
}

void dsrCustCustomFieldList::ghCustId_Format() {
    if (rcsCustCustomFieldList.atEnd()) return;
    STEP(link(plainTag(rcsCustCustomFieldList.Collect("InCustId")), {&fldCustId, &fldName}));
    STEP(++m_lngRecordCount);
}

void dsrCustCustomFieldList::Detail_Format() {
    STEP(if (fldValue.Text.empty()) LayoutAction = LayoutActions::dropRow);
    STEP(link(plainTag(rcsCustCustomFieldList.Collect("InCustId")), {&fldValue}));
}

void dsrCustCustomFieldList::ReportFooter_Format() {
    STEP(setEndLine(lblEnd, 7622));
}

}  // namespace quillo
