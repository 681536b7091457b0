#pragma once

#include "reports/job_cost/job_cost.h"

namespace quillo {

// The postings of each project, from any source.
class dsrJobCostByProject final : public JobCostReport {
public:
    explicit dsrJobCostByProject(HostContext& context);

private:
    std::vector<Variant> forwardValues() const override;
    void GroupFooter1_Format();

    Label& Label23 = label("Label23");
    JobCostLine projectLine = lineOf("txtTotDbt", "txtTotCrdt", "txtTotBal", "CT3");
};

}  // namespace quillo
