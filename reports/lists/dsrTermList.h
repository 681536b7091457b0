#pragma once

#include "framework/run_frame.h"

namespace quillo {

// The payment terms of the company: mode in words, due and discount figures where the mode makes them meaningful.
class dsrTermList final : public FilterableReport {
public:
    explicit dsrTermList(HostContext& context);

private:
    void ActiveReport_ReportStart() override;
    void Detail_Format();

    DataControl& rsTerms = data("rsTerms");
    Field& txtTermMode = field("txtTermMode");
    Field& txtDue = field("txtDue");
    Field& txtDiscPercent = field("txtDiscPercent");
    Field& txtDiscDelay = field("txtDiscDelay");
    Field& txtDueNxtMonth = field("txtDueNxtMonth");
};

}  // namespace quillo
