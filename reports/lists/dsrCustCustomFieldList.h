#pragma once

#include "framework/run_frame.h"

namespace quillo {

// The active customers with what the company's own fields say of them. The rows are fed by hand: a customer's
// values come from the host, one after the other.
class dsrCustCustomFieldList final : public FilterableReport {
public:
    explicit dsrCustCustomFieldList(HostContext& context);

private:
    void ActiveReport_ReportStart() override;
    void ActiveReport_DataInitialize() override;
    void ActiveReport_FetchData(bool& eof);
    void PageHeader_Format();
    void ghCustId_Format();
    void Detail_Format();
    void ReportFooter_Format();
    void ReplacePageHeaderControls();
    bool nextCustomer();
    void readValues();
    const Variant& customerKey() { return Fields.Item("InCustId").Value; }

    SubReport& dsrFilterAndSortByInfoSubreport = subReport("dsrFilterAndSortByInfoSubreport");
    Line& Line1 = line("Line1");
    Line& Line2 = line("Line2");
    Label& lblCode = label("lblCode");
    Label& lblName = label("lblName");
    Field& fldCustId = field("fldCustId");
    Field& fldName = field("fldName");
    Field& fldValue = field("fldValue");
    Label& lblEnd = label("lblEnd");

    std::shared_ptr<Recordset> m_customers;
    std::vector<CustomFieldValue> m_values;  // of the customer that is being fed
    std::size_t m_next = 0;                  // the value to feed next
    bool m_started = false;                  // the first customer was read
};

}  // namespace quillo
