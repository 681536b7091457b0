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
    STEP(m_customers = execute(sql));
    STEP(Translate());
    STEP(fillFilterInfo(dsrFilterAndSortByInfoSubreport));
}

void dsrCustCustomFieldList::ActiveReport_DataInitialize() {
    for (const char* name : {"InCustId", "CustId", "Name", "FieldCaption", "FieldValue"}) Fields.Add(name);
}

// One fetch a value; a customer without values gives one empty row, so that its line prints.
void dsrCustCustomFieldList::ActiveReport_FetchData(bool& eof) {
    eof = m_next == m_values.size() && !nextCustomer();
    if (eof) return;
    const CustomFieldValue field = m_next < m_values.size() ? m_values[m_next++] : CustomFieldValue();
    Fields.Item("FieldCaption").Value = field.caption;
    Fields.Item("FieldValue").Value = field.value;
}

bool dsrCustCustomFieldList::nextCustomer() {
    if (m_started && m_customers) m_customers->moveNext();
    m_started = true;
    if (!m_customers || m_customers->atEnd()) return false;
    for (const char* column : {"InCustId", "CustId", "Name"}) Fields.Item(column).Value = m_customers->Collect(column);
    m_next = 0;
    m_values.clear();
    STEP(readValues());
    return true;
}

void dsrCustCustomFieldList::readValues() {
    m_values = context().company().customFields().Values("Cust", customerKey().toInt32());
    std::erase_if(m_values, [](const CustomFieldValue& field) { return field.value.empty(); });
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
    STEP(link(plainTag(customerKey()), {&fldCustId, &fldName}));
    ++m_lngRecordCount;
}

void dsrCustCustomFieldList::Detail_Format() {
    if (fldValue.Text.empty()) LayoutAction = LayoutActions::dropRow;
    STEP(link(plainTag(customerKey()), {&fldValue}));
}

void dsrCustCustomFieldList::ReportFooter_Format() {
    STEP(setEndLine(lblEnd, 7622));
}

}  // namespace quillo
