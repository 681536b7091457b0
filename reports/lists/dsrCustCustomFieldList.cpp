#include "reports/lists/dsrCustCustomFieldList.h"

#include <algorithm>
#include <utility>

namespace quillo {

dsrCustCustomFieldList::dsrCustCustomFieldList(HostContext& context)
    : FilterableReport("dsrCustCustomFieldList", context,
                       {.titleId = 6217, .keepsDateFrom = false, .tables = "Cust", .endTextId = 7622}) {
    onFetchData(&dsrCustCustomFieldList::ActiveReport_FetchData);
    onFormat("ghCustId", &dsrCustCustomFieldList::ghCustId_Format);
    onFormat("Detail", &dsrCustCustomFieldList::Detail_Format);
    ActiveReport_Initialize(Setting::customerCodes, {{lblCode, lblName}, {fldCustId, fldName}});
}

// The customers are walked by hand: each gives as many rows as it has values.
void dsrCustCustomFieldList::ActiveReport_ReportStart() {
    FilterableReport::ActiveReport_ReportStart(
        {.text = "SELECT Cust.* FROM Cust WHERE (Cust.CustInactive = 0 OR Cust.CustInactive IS NULL) ",
         .order = " ORDER BY CustId"});
    m_customers = std::exchange(rcsCustCustomFieldList.Recordset, nullptr);
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
    m_values = context().company().customFields().Values("Cust", Fields.Item("InCustId").Value.toInt32());
    std::erase_if(m_values, [](const CustomFieldValue& field) { return field.value.empty(); });
}

void dsrCustCustomFieldList::ghCustId_Format() {
    ++m_lngRecordCount;
}

void dsrCustCustomFieldList::Detail_Format() {
    if (fldValue.Text.empty()) LayoutAction = LayoutActions::dropRow;
}

}  // namespace quillo
