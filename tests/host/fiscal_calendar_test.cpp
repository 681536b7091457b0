#include <gtest/gtest.h>

#include "framework/values/errors.h"
#include "tests/host/test_company.h"

namespace quillo {
namespace {

// Thirteen periods of four weeks, the last one longer by a day or two, from the first of April on.
std::string yearOfThirteen(int key, int year) {
    std::string rows = "INSERT INTO FiscalYear VALUES (" + std::to_string(key) + ", '" + std::to_string(year) + "-" +
                       std::to_string(year + 1) + "', '" + std::to_string(year) + "-04-01', '" +
                       std::to_string(year + 1) + "-03-31');";
    const double start = Date::fromCivil(year, 4, 1).days;
    for (int period = 1; period <= 13; ++period) {
        const Date first{start + 28 * (period - 1)};
        const Date last = period == 13 ? Date::fromCivil(year + 1, 3, 31) : Date{first.days + 27};
        rows += "INSERT INTO FiscalPeriod VALUES (" + std::to_string(key) + ", " + std::to_string(period) + ", '" +
                first.isoText() + "', '" + last.isoText() + "');";
    }
    return rows;
}

// The keys are against the order of the years; 2026 is a short year behind a gap, without periods.
const std::string years = yearOfThirteen(9, 2023) + yearOfThirteen(4, 2024) +
                          "INSERT INTO FiscalYear VALUES (1, 'Short 2026', '2026-01-01', '2026-06-30')";

std::string nameOf(const FiscalYear* year) {
    return year == nullptr ? "none" : year->name;
}

TEST(FiscalCalendar, FindsTheYearOfADayAndItsNeighbours) {
    test::TestSession session(years);
    FiscalCalendar& calendar = session->company().fiscalCalendar();
    struct Case {
        const char* day;
        const char* before;
        const char* at;
        const char* after;
    };
    const Case cases[] = {
        {"1899-12-31", "none", "none", "2023-2024"},
        {"2023-03-31", "none", "none", "2023-2024"},
        {"2023-04-01", "none", "2023-2024", "2024-2025"},
        {"2024-03-31", "none", "2023-2024", "2024-2025"},
        {"2024-04-01", "2023-2024", "2024-2025", "Short 2026"},
        {"2025-01-01", "2023-2024", "2024-2025", "Short 2026"},
        {"2025-08-15", "2024-2025", "none", "Short 2026"},
        {"2026-06-30", "2024-2025", "Short 2026", "none"},
        {"9999-12-31", "Short 2026", "none", "none"},
    };
    for (const Case& one : cases) {
        const Date day = Date::parseIso(one.day).value();
        EXPECT_EQ(nameOf(calendar.FiscalYearBefore(day)), one.before) << one.day;
        EXPECT_EQ(nameOf(calendar.FiscalYearAt(day)), one.at) << one.day;
        EXPECT_EQ(nameOf(calendar.FiscalYearAfter(day)), one.after) << one.day;
    }
}

TEST(FiscalCalendar, PeriodsCoverTheirYearInOrder) {
    test::TestSession session(years);
    FiscalCalendar& calendar = session->company().fiscalCalendar();
    const FiscalYear* year = calendar.FiscalYearAt(Date::fromCivil(2024, 2, 29));
    ASSERT_NE(year, nullptr);
    EXPECT_EQ(year->id, 9);
    ASSERT_EQ(year->periods.size(), 13U);
    EXPECT_EQ(year->periods[1].StartDate, Date::fromCivil(2023, 4, 29));
    EXPECT_EQ(year->periods[12].StartDate, Date::fromCivil(2024, 3, 2));
    Date next = year->StartDate;
    for (const FiscalPeriod& period : year->periods) {
        EXPECT_EQ(period.StartDate, next);
        next = Date{period.EndDate.days + 1};
    }
    EXPECT_EQ(next, calendar.FiscalYearAfter(year->StartDate)->StartDate);
    EXPECT_TRUE(calendar.FiscalYearAt(Date::fromCivil(2026, 1, 1))->periods.empty());
}

TEST(FiscalCalendar, DamagedYearsAreNamed) {
    struct Case {
        const char* damage;
        const char* failure;
    };
    const Case cases[] = {
        {"UPDATE FiscalYear SET EndDate = NULL WHERE InFiscalYearId = 4",
         "The fiscal year 2024-2025 or one of its periods has no first and last day in that order"},
        {"UPDATE FiscalPeriod SET EndDate = '2023-04-01' WHERE ExFiscalYearId = 9 AND PeriodNo = 5",
         "The fiscal year 2023-2024 or one of its periods has no first and last day in that order"},
        {"UPDATE FiscalYear SET StartDate = '2024-03-31' WHERE InFiscalYearId = 4",
         "The fiscal years 2023-2024 and 2024-2025 overlap"},
    };
    for (const Case& one : cases) {
        test::TestSession session(years + ";" + one.damage);
        for (int asked = 0; asked < 2; ++asked) {
            try {
                session->company().fiscalCalendar().FiscalYearAt(Date::fromCivil(2023, 5, 1));
                ADD_FAILURE() << one.damage;
            } catch (const InputError& failure) {
                EXPECT_STREQ(failure.what(), one.failure);
            }
        }
    }
}

}  // namespace
}  // namespace quillo
