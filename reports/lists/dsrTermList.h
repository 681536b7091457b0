#pragma once

#include "framework/run_frame.h"

namespace quillo {

// The payment terms of the company: a line a term, its mode in words, and the due and discount figures where the
// mode makes them meaningful.
class dsrTermList final : public FilterableReport {
public:
    explicit dsrTermList(HostContext& context);

private:
    void ActiveReport_ReportStart() override;
    void PageHeader_Format();
    void Detail_Format();
    void ReportFooter_Format();
    void ReplacePageHeaderControls();
    void showMode(const Variant& mode);
    void showFigures(bool shown);

    SubReport& dsrFilterAndSortByInfoSubreport = subReport("dsrFilterAndSortByInfoSubreport");
    Label& lblDescr = label("lblDescr");
    Label& lblTermMode = label("lblTermMode");
    Label& lblDue = label("lblDue");
    Label& lblEscomptePers = label("lblEscomptePers");
    Label& lblEscompteDelay = label("lblEscompteDelay");
    Label& lblNextDue = label("lblNextDue");
    Field& txtDescr = field("txtDescr");
    Field& txtTermMode = field("txtTermMode");
    Field& txtDue = field("txtDue");
    Field& txtDiscPercent = field("txtDiscPercent");
    Field& txtDiscDelay = field("txtDiscDelay");
    Field& txtDueNxtMonth = field("txtDueNxtMonth");
    DataControl& rsTerms = data("rsTerms");
    Label& lblEnd = label("lblEnd");
};

}  // namespace quillo
