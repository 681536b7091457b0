#include "host/services/fiscal_calendar.h"

#include <algorithm>

#include "framework/values/errors.h"

namespace quillo {
namespace {

// The first and the last day that two columns tell of a year or one of its periods.
FiscalPeriod span(const sqlite::Statement& row, int column, const std::string& year) {
    const auto first = Date::parseIso(row.text(column));
    const auto last = Date::parseIso(row.text(column + 1));
    if (!first || !last || *last < *first)
        throw InputError("The fiscal year " + year + " or one of its periods has no first and last day in that order");
    return {*first, *last};
}

std::vector<FiscalYear> readYears(const sqlite::Database& database) {
    sqlite::Statement rows(
        database,
        "SELECT InFiscalYearId, YearName, FiscalYear.StartDate, FiscalYear.EndDate, PeriodNo, FiscalPeriod.StartDate, "
        "FiscalPeriod.EndDate "
        "FROM FiscalYear LEFT JOIN FiscalPeriod ON ExFiscalYearId = InFiscalYearId "
        "ORDER BY FiscalYear.StartDate, InFiscalYearId, PeriodNo");
    std::vector<FiscalYear> years;
    while (rows.step()) {
        const int id = static_cast<int>(rows.integer(0));
        if (years.empty() || years.back().id != id) {
            const std::string name(rows.text(1));
            const FiscalPeriod days = span(rows, 2, name);
            if (!years.empty() && days.StartDate <= years.back().EndDate)
                throw InputError("The fiscal years " + years.back().name + " and " + name + " overlap");
            years.push_back({id, name, days.StartDate, days.EndDate, {}});
        }
        if (!rows.isNull(4)) years.back().periods.push_back(span(rows, 5, years.back().name));
    }
    return years;
}

}  // namespace

const std::vector<FiscalYear>& SqliteFiscalCalendar::years() {
    if (!years_) years_ = readYears(database_);
    return *years_;
}

const FiscalYear* SqliteFiscalCalendar::FiscalYearAt(Date day) {
    const auto found = std::ranges::find_if(
        years(), [&](const FiscalYear& year) { return year.StartDate <= day && day <= year.EndDate; });
    return found == years().end() ? nullptr : &*found;
}

const FiscalYear* SqliteFiscalCalendar::FiscalYearBefore(Date day) {
    const auto behind = std::ranges::find_if(years(), [&](const FiscalYear& year) { return year.EndDate >= day; });
    return behind == years().begin() ? nullptr : &*std::prev(behind);
}

const FiscalYear* SqliteFiscalCalendar::FiscalYearAfter(Date day) {
    const auto found = std::ranges::find_if(years(), [&](const FiscalYear& year) { return year.StartDate > day; });
    return found == years().end() ? nullptr : &*found;
}

}  // namespace quillo
