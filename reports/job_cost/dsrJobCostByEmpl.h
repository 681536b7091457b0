#pragma once

#include "reports/job_cost/job_cost.h"

namespace quillo {

// The postings of payroll, by employee and project. An employee who is gone heads a group without a name.
class dsrJobCostByEmpl final : public JobCostByParty {
public:
    explicit dsrJobCostByEmpl(HostContext& context);

private:
    std::vector<Variant> forwardValues() const override;
};

}  // namespace quillo
