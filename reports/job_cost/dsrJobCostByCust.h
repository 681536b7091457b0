#pragma once

#include "reports/job_cost/job_cost.h"

namespace quillo {

// The postings of invoices, by customer and project.
class dsrJobCostByCust final : public JobCostByParty {
public:
    explicit dsrJobCostByCust(HostContext& context);

private:
    std::vector<Variant> forwardValues() const override;
};

}  // namespace quillo
