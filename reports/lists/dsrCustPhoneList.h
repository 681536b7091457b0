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
    void ReportFooter_Format();
    void numberCaptions();
    void ReplacePageHeaderControls();

    SubReport& dsrFilterAndSortByInfoSubreport = subReport("dsrFilterAndSortByInfoSubreport");
    Line& Line1 = line("Line1");
    Line& Line2 = line("Line2");
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
    Field& fldTel1 = field("fldTel1");
    Field& fldTelExt1 = field("fldTelExt1");
    Field& txtTel2 = field("txtTel2");
    Field& txtTelExt2 = field("txtTelExt2");
    Field& txtFax = field("txtFax");
    Label& lblFAX = label("lblFAX");
    DataControl& rcsCustPhoneList = data("rcsCustPhoneList");
    Label& lblEnd = label("lblEnd");
};

}  // namespace quillo
