#pragma once

#include "framework/services/services.h"
#include "host/company/company_file.h"

namespace quillo {

// The one service that writes into a company file: over a connection and in a transaction of its own, which live no
// longer than the update.
class SqliteInventoryUpdate final : public InventoryUpdateAgent {
public:
    // Both must outlive it. The company tells up to which day its costs are right (the parameter StockUpToDate).
    SqliteInventoryUpdate(CompanyFile& file, const Company& company) : file_(file), company_(company) {}

    bool Update(int argumentA, bool argumentB) override;
    bool IsUpToDate() override;
    // What the company tells, yet never a day on which a movement lacks its costs.
    Date LastUpdateDate() override;

private:
    CompanyFile& file_;
    const Company& company_;
};

}  // namespace quillo
