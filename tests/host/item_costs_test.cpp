#include <gtest/gtest.h>

#include <cstdlib>

#include "framework/values/errors.h"
#include "tests/company/demo_file.h"
#include "tests/host/test_company.h"

namespace quillo {
namespace {

// 1 goods that move; 2 goods with standard costs alone; 3 a kit of both; 4 a kit with that kit; 5 and 6 kits of each
// other; 7 a service; 8 goods whose first movement tells its costs; 9 a kit of nothing; 10 a kit of 3 and 4. Movements
// stand against their days.
const char* const stock =
    "INSERT INTO Item (InItemId, ItemId, Servc, IsKit) VALUES (1, 'A', 0, 0), (2, 'B', NULL, NULL), (3, 'K', 0, 1),"
    " (4, 'KK', 0, 1), (5, 'LOOP', 0, 1), (6, 'POOL', 0, 1), (7, 'HOUR', 1, 0), (8, 'C', 0, 0), (9, 'NONE', 0, 1), "
    "(10, 'PAIR', 0, 1);"
    "INSERT INTO ItemCost VALUES (1, '2024-01-01', 4.5), (2, '2024-01-01', 10), (2, '2024-02-01', 12), (2, "
    "'2024-03-01', NULL);"
    "INSERT INTO ItemComponent VALUES (3, 1, 2), (3, 2, 0.5), (4, 3, 1), (4, 2, 3), (5, 6, 1), (6, 5, 1), (10, 3, 1), "
    "(10, 4, 1), (1, 2, 1);"
    "INSERT INTO InvenDet (InTrxId, ExItemId, DetDate, Source, Qty, CostAmnt) VALUES"
    " (1, 1, '2024-01-02', 'INV', -1, NULL), (2, 1, '2024-01-10', 'ADJ', 12, 66), (3, 1, '2024-01-20', 'PUR', 6, 48),"
    " (4, 1, '2024-01-20', 'INV', -2, NULL), (5, 1, '2024-02-01', 'INV', 1, 6.65), (6, 1, '2024-02-10', 'PUR', 3, 22),"
    " (7, 1, '2024-03-01', 'INV', -14, NULL), (8, 1, '2024-03-05', 'INV', -2, NULL), (9, 1, '2024-03-10', 'ASB', 5, "
    "20),"
    " (10, 1, '2024-01-15', 'INV', -5, -27.5), (11, 77, '2024-01-15', 'PUR', 1, 9), (12, 1, NULL, 'PUR', 1, 9);"
    "INSERT INTO InvenDet (InTrxId, ExItemId, DetDate, Source, Qty, CostAmnt, RunningAvgCost, RunningLastCost) VALUES"
    " (20, 8, '2024-01-10', 'PUR', 10, 50, 5.1, 5.05), (21, 8, '2024-01-11', 'INV', -4, NULL, NULL, NULL),"
    " (22, 8, '2024-01-12', 'PUR', 4, 24, NULL, NULL)";

struct Cost {
    int item;
    const char* day;
    const char* average;
    const char* last;
};

// Item 1: one leaves before any came; 12 at 5.50; less 5: 6 for 33; and 6 at 8: 12 for 81 is 6.75; less 2: 10 for
// 67.50; 1 back at 6.65: 11 for 74.15 is 6.7409; and 3 for 22: 14 for 96.15 is 6.8679; all of them and two more leave;
// 5 for 20 come into the overdrawn stock.
constexpr Cost costs[] = {
    {1, "2023-12-31", "0", "0"},      {1, "2024-01-01", "4.5", "4.5"},       {1, "2024-01-09", "4.5", "4.5"},
    {1, "2024-01-10", "5.5", "5.5"},  {1, "2024-01-19", "5.5", "5.5"},       {1, "2024-01-20", "6.75", "8"},
    {1, "2024-02-01", "6.7409", "8"}, {1, "2024-02-10", "6.8679", "7.3333"}, {1, "2024-03-05", "6.8679", "7.3333"},
    {1, "9999-12-31", "4", "4"},      {2, "2024-01-31", "10", "10"},         {2, "2024-05-01", "12", "12"},
    {3, "2023-12-31", "0", "0"},      {3, "2024-01-31", "18.5", "21"},       {3, "2024-02-10", "19.7358", "20.6666"},
    {4, "2024-01-31", "48.5", "51"},  {7, "2024-01-31", "0", "0"},           {8, "2024-01-11", "5.1", "5.05"},
    {8, "2024-01-12", "5.46", "6"},   {9, "2024-01-31", "0", "0"},           {10, "2024-01-31", "67", "72"},
};

TEST(ItemCosts, FollowTheMovementsByEitherMethod) {
    for (const bool byAverage : {true, false}) {
        SessionOptions options;
        if (!byAverage) options.parameters = {{"CostCalculMeth", "1"}};
        test::TestSession session(stock, options);
        ItemCostService& service = session->company().itemCosts();
        for (const bool cached : {false, true}) {
            service.setCached(cached);
            for (const Cost& one : costs)
                EXPECT_EQ(service.ItemCost(one.item, Date::parseIso(one.day).value(), 0, 0, true).toText(),
                          byAverage ? one.average : one.last)
                    << one.item << " " << one.day << " " << cached;
        }
    }
}

TEST(ItemCosts, FailuresNameTheItem) {
    test::TestSession session(stock);
    ItemCostService& service = session->company().itemCosts();
    service.setCached(true);
    const auto failureOf = [&](int item) -> std::string {
        try {
            service.ItemCost(item, Date::fromCivil(2024, 1, 31), 0, 0, true);
        } catch (const std::runtime_error& failure) {
            return failure.what();
        }
        return "";
    };
    EXPECT_EQ(failureOf(99), "There is no item with the key 99");
    EXPECT_EQ(failureOf(6), "The kit POOL contains itself");
    EXPECT_EQ(failureOf(3), "") << "a failure is no lasting one";
}

TEST(ItemCosts, AreKeptUntilToldToForget) {
    test::TestSession session(stock);
    ItemCostService& service = session->company().itemCosts();
    const Date day = Date::fromCivil(2024, 2, 1);
    const auto cost = [&] { return service.ItemCost(2, day, 0, 0, true).toText(); };
    service.setCached(true);
    EXPECT_EQ(cost(), "12");
    sqlite::Database file(session.company.path(), sqlite::Open::readWrite);
    file.execute("UPDATE ItemCost SET UnitCost = 15");
    EXPECT_EQ(cost(), "12");
    service.setCached(true);
    EXPECT_EQ(cost(), "15");
    service.setCached(false);
    EXPECT_EQ(cost(), "15");
    file.execute("UPDATE ItemCost SET UnitCost = 16");
    EXPECT_EQ(cost(), "16");
}

// Over all items that moved, at four days.
struct DemoCosts {
    int item;
    Date day;
    Money average, last;
};

std::vector<DemoCosts> costsBesideMovements(const sqlite::Database& file) {
    std::vector<DemoCosts> found;
    for (const char* day : {"2023-01-31", "2023-09-15", "2024-07-01", "2025-12-31"}) {
        sqlite::Statement rows(file,
                               "SELECT InItemId, RunningAvgCost, RunningLastCost FROM Item INNER JOIN InvenDet ON "
                               "InTrxId = (SELECT InTrxId FROM InvenDet WHERE ExItemId = InItemId AND DetDate <= ? "
                               "ORDER BY DetDate DESC, InTrxId DESC LIMIT 1)");
        rows.bind(1, day);
        while (rows.step())
            found.push_back({static_cast<int>(rows.integer(0)), Date::parseIso(day).value(),
                             Money::fromDouble(rows.real(1)), Money::fromDouble(rows.real(2))});
    }
    return found;
}

// What the demo company wrote beside each movement is what the service says, and what it reckons by itself when the
// movements tell their costs no longer.
TEST(ItemCosts, AgreeWithTheDemoCompanysOwnStock) {
    const test::DemoFile demo;
    sqlite::Database file(demo.path(), sqlite::Open::readWrite);
    const auto expected = costsBesideMovements(file);
    ASSERT_GT(expected.size(), 100U);
    for (const bool told : {true, false}) {
        if (!told) file.execute("UPDATE InvenDet SET RunningAvgCost = NULL, RunningLastCost = NULL");
        for (const char* method : {"0", "1"}) {
            SessionOptions options;
            options.company = demo.path();
            options.parameters = {{"CostCalculMeth", method}};
            test::ListedMessages messages;
            HostSession session(options, messages);
            ItemCostService& service = session.company().itemCosts();
            service.setCached(true);
            for (const DemoCosts& one : expected) {
                const Money cost = service.ItemCost(one.item, one.day, 0, 0, true);
                const Money difference = cost - (*method == '0' ? one.average : one.last);
                EXPECT_LE(std::abs(difference.raw()), told ? 0 : 1) << one.item << " " << one.day.isoText();
            }
        }
    }
}

}  // namespace
}  // namespace quillo
