#pragma once

#include "framework/run_frame.h"

namespace quillo {

// The telephone list of the active customers, two lines each.
class dsrCustPhoneList final : public FilterableReport {
public:
    explicit dsrCustPhoneList(HostContext& context);

private:
    void ActiveReport_ReportStart() override;
    void PageHeader_Format();
    void Detail_Format();

    Label& lblCode = label("lblCode");
    Label& lblName = label("lblName");
    Label& lblContact = label("lblContact");
    Label& lblPhone1 = label("lblPhone1");
    Label& lblPoste1 = label("lblPoste1");
    Label& lblPhone2 = label("lblPhone2");
    Label& lblPoste2 = label("lblPoste2");
    Label& lblPhone3 = label("lblPhone3");
    Field& fldCustId = field("fldCustId");
    Field& fldName = field("fldName");
    Field& fldContact = field("fldContact");
    Field& txtFax = field("txtFax");
    Label& lblFAX = label("lblFAX");
    DataControl& rcsCustPhoneList = data("rcsCustPhoneList");
};

}  // namespace quillo
