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
    void ghCustId_Format();
    void Detail_Format();
    bool nextCustomer();
    void readValues();

    Label& lblCode = label("lblCode");
    Label& lblName = label("lblName");
    Field& fldCustId = field("fldCustId");
    Field& fldName = field("fldName");
    Field& fldValue = field("fldValue");
    DataControl& rcsCustCustomFieldList = data("rcsCustCustomFieldList");

    std::shared_ptr<Recordset> m_customers;
    std::vector<CustomFieldValue> m_values;  // of the customer that is being fed
    std::size_t m_next = 0;                  // the value to feed next
    bool m_started = false;                  // the first customer was read
};

}  // namespace quillo
