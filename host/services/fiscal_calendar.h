#pragma once

#include <optional>
#include <vector>

#include "framework/services/services.h"
#include "host/database/sqlite_handle.h"

namespace quillo {

// The fiscal years of a company, read at the first question. Every call throws InputError when a year or a period
// lacks a day or ends before it starts, or when two years overlap.
class SqliteFiscalCalendar final : public FiscalCalendar {
public:
    explicit SqliteFiscalCalendar(const sqlite::Database& database) : database_(database) {}

    const FiscalYear* FiscalYearAt(Date day) override;
    const FiscalYear* FiscalYearBefore(Date day) override;
    const FiscalYear* FiscalYearAfter(Date day) override;

private:
    const std::vector<FiscalYear>& years();

    const sqlite::Database& database_;
    std::optional<std::vector<FiscalYear>> years_;  // by their days
};

}  // namespace quillo
