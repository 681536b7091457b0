#pragma once

#include "reports/job_cost/job_cost.h"

namespace quillo {

// The postings of purchases and expenses, by supplier and project.
class dsrJobCostBySupp final : public JobCostByParty {
public:
    explicit dsrJobCostBySupp(HostContext& context);

private:
    std::vector<Variant> forwardValues() const override;
};

}  // namespace quillo
