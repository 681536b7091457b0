#pragma once

#include <unordered_set>

#include "framework/run_frame.h"

namespace quillo {

// The active customers, and under each its shipping addresses.
class dsrCustListShipAddr final : public FilterableReport {
public:
    explicit dsrCustListShipAddr(HostContext& context);

private:
    void ActiveReport_ReportStart() override;
    void ghCustId_Format();
    void Detail_Format();
    std::string addressText() const;

    Label& lblCode = label("lblCode");
    Label& lblName = label("lblName");
    Field& fldCustId = field("fldCustId");
    Field& fldName = field("fldName");
    Field& fldWeb = field("fldWeb");
    Field& fldEmail = field("fldEmail");
    Field& fldNameLang = field("fldNameLang");
    Label& fldShipAddr = label("fldShipAddr");
    DataControl& rcsCustListShipAddr = data("rcsCustListShipAddr");
    std::unordered_set<int> m_customers;  // those that printed
};

}  // namespace quillo
