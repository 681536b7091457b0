#pragma once

#include "framework/services/services.h"

namespace quillo {

class SqliteInvoiceService final : public InvoiceService {
public:
    // database must outlive it.
    explicit SqliteInvoiceService(HostDatabase& database) : database_(database) {}
    std::unique_ptr<HostRecordset> BalanceAtDate(int invoiceId, Date day) override;

private:
    HostDatabase& database_;
};

}  // namespace quillo
