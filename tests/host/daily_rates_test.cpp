#include <gtest/gtest.h>

#include "framework/report_contract.h"
#include "framework/values/errors.h"
#include "tests/host/test_company.h"

namespace quillo {
namespace {

// The home currency is 1; 3 has its first rate late, 4 none that counts.
const char* const rates =
    "INSERT INTO WorldCurrency VALUES (2, 'USD', ''), (3, 'EUR', ''), (4, 'GBP', '');"
    "INSERT INTO ExchangeRateByDay VALUES (1, '2024-01-01', 9), (2, '2024-01-05', 1.35), (2, '2024-01-02', 1.34),"
    " (2, '2024-01-09', NULL), (2, '2024-01-10', 1.36), (3, '2024-01-10', 1.5), (4, '2024-01-02', 0)";

TEST(DailyRates, ADayTakesTheLastRateBeforeIt) {
    test::TestSession session(rates);
    DailyRates& service = session->company().dailyRates();
    struct Case {
        const char* day;
        double usd, eur;  // 0: none
    };
    const Case cases[] = {
        {"1899-12-31", 0, 0},    {"2024-01-01", 0, 0},    {"2024-01-02", 1.34, 0},   {"2024-01-04", 1.34, 0},
        {"2024-01-05", 1.35, 0}, {"2024-01-09", 1.35, 0}, {"2024-01-10", 1.36, 1.5}, {"9999-12-31", 1.36, 1.5},
    };
    for (const Case& one : cases) {
        const Date day = Date::parseIso(one.day).value();
        const auto all = service.RatesAt(day);
        EXPECT_EQ(all->Count(), 1 + (one.usd > 0) + (one.eur > 0)) << one.day;
        EXPECT_EQ(service.Rate(1, day), 1);
        EXPECT_EQ(all->Item("1"), 1);
        for (const auto& [id, rate] : {std::pair(2, one.usd), std::pair(3, one.eur), std::pair(4, 0.0)}) {
            if (rate > 0) {
                EXPECT_EQ(service.Rate(id, day), rate) << one.day << " " << id;
                EXPECT_EQ(all->Item(std::to_string(id)), rate) << one.day << " " << id;
            } else {
                EXPECT_THROW(service.Rate(id, day), NameError) << one.day << " " << id;
                EXPECT_THROW(all->Item(std::to_string(id)), NameError) << one.day << " " << id;
            }
        }
    }
}

TEST(DailyRates, TheFailureNamesCurrencyAndDay) {
    test::TestSession session(rates);
    const auto failureOf = [&](int currency) -> std::string {
        try {
            session->company().dailyRates().Rate(currency, Date::fromCivil(2024, 1, 1));
        } catch (const NameError& failure) {
            return failure.what();
        }
        return "";
    };
    EXPECT_EQ(failureOf(2), "The currency USD has no rate on 2024-01-01 or before it");
    EXPECT_EQ(failureOf(77), "There is no currency with the key 77");
}

}  // namespace
}  // namespace quillo
