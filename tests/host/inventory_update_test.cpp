#include <gtest/gtest.h>

#include <cmath>

#include "tests/company/demo_file.h"
#include "tests/host/test_company.h"
#include "tests/support/member_runs.h"

namespace quillo::test {
namespace {

struct Running {
    std::int64_t key;
    double quantity, average, last;
};

std::vector<Running> runningOf(const std::string& path) {
    const sqlite::Database file(path, sqlite::Open::readOnly);
    sqlite::Statement rows(file,
                           "SELECT InTrxId, RunningQty, RunningAvgCost, RunningLastCost FROM InvenDet ORDER BY 1");
    std::vector<Running> all;
    while (rows.step()) all.push_back({rows.integer(0), rows.real(1), rows.real(2), rows.real(3)});
    return all;
}

std::unique_ptr<HostSession> open(const std::string& path, Messages& messages) {
    SessionOptions options;
    options.company = path;
    return std::make_unique<HostSession>(options, messages);
}

// What the demo company wrote beside each of its movements comes back, whichever of them lose it: all, or every third.
TEST(InventoryUpdate, ReckonsWhatTheDemoCompanyHadWrittenItself) {
    const DemoFile demo;
    const std::vector<Running> before = runningOf(demo.path());
    ListedMessages messages;
    for (const char* some : {"TRUE", "InTrxId % 3 = 0"}) {
        sqlite::Database(demo.path(), sqlite::Open::readWrite)
            .execute(std::string("UPDATE InvenDet SET RunningQty = NULL, RunningAvgCost = NULL, RunningLastCost = NULL "
                                 "WHERE ") +
                     some);
        const auto session = open(demo.path(), messages);
        const auto agent = session->company().newInventoryUpdateAgent();
        EXPECT_FALSE(agent->IsUpToDate());
        EXPECT_EQ(agent->LastUpdateDate().isoText(), "2022-03-31") << "the day before the first movement";
        EXPECT_TRUE(agent->Update(0, true));
        EXPECT_TRUE(agent->IsUpToDate());
        EXPECT_EQ(agent->LastUpdateDate().isoText(), "2025-12-31");
        const std::vector<Running> after = runningOf(demo.path());
        ASSERT_EQ(after.size(), before.size());
        for (std::size_t i = 0; i < after.size(); ++i) {
            EXPECT_EQ(after[i].quantity, before[i].quantity) << after[i].key;
            // An average that the company tells is one of four decimals, from which the next ones go on.
            EXPECT_LE(std::abs(after[i].average - before[i].average), 0.00021) << after[i].key;
            EXPECT_LE(std::abs(after[i].last - before[i].last), 0.00011) << after[i].key;
        }
    }
}

// 1 has a purchase, a sale and one of another warehouse; 2 tells a cost of more decimals than money has.
constexpr const char* stock =
    "INSERT INTO Item (InItemId, ItemId) VALUES (1, 'A'), (2, 'B');"
    "INSERT INTO InvenDet VALUES (1, 1, '2024-01-10', 'PUR', NULL, 10, 50, 10, 5, 5, 1, NULL),"
    " (2, 1, '2024-01-12', 'INV', NULL, -4, NULL, NULL, NULL, NULL, 1, NULL),"
    " (3, 1, '2024-01-12', 'PUR', NULL, 2, 14, NULL, NULL, NULL, 2, NULL),"
    " (4, 2, '2024-01-11', 'PUR', NULL, 3, 10, NULL, 3.33333, NULL, 1, NULL),"
    " (5, NULL, '2024-01-01', 'PUR', NULL, 1, 1, NULL, NULL, NULL, 1, NULL),"
    " (6, 1, NULL, 'PUR', NULL, 1, 1, NULL, NULL, NULL, 1, NULL);";

TEST(InventoryUpdate, FillsInWhatIsMissingAndKeepsWhatIsTold) {
    TestSession session(stock);
    const auto agent = session->company().newInventoryUpdateAgent();
    EXPECT_EQ(agent->LastUpdateDate().isoText(), "2024-01-10");
    EXPECT_TRUE(agent->Update(0, true));
    const std::vector<Running> rows = runningOf(session.company.path());
    const auto told = [&](std::size_t row) {
        return std::to_string(rows[row].quantity) + " " + std::to_string(rows[row].average) + " " +
               std::to_string(rows[row].last);
    };
    EXPECT_EQ(told(1), "6.000000 5.000000 5.000000");
    EXPECT_EQ(told(2), "2.000000 5.500000 7.000000") << "eight units for 44, two of them here";
    EXPECT_EQ(told(3), "3.000000 3.333330 3.333300");
    EXPECT_TRUE(agent->IsUpToDate()) << "a movement without an item or a day is none";
    EXPECT_EQ(agent->LastUpdateDate().isoText(), "2024-01-12");
}

TEST(InventoryUpdate, WritesNothingWhenNothingIsMissingAndNothingWhileTheFileIsHeld) {
    TestSession current("INSERT INTO InvenDet VALUES (1, 1, '2024-01-10', 'PUR', NULL, 10, 50, 10, 5, 5, 1, NULL)");
    const std::string bytes = fileText(current.company.path());
    EXPECT_TRUE(current->company().newInventoryUpdateAgent()->Update(0, true));
    EXPECT_EQ(fileText(current.company.path()), bytes);

    TestSession held(stock);
    sqlite::Database other(held.company.path(), sqlite::Open::readWrite);
    other.execute("BEGIN IMMEDIATE");
    const auto agent = held->company().newInventoryUpdateAgent();
    EXPECT_FALSE(agent->Update(0, true));
    EXPECT_FALSE(agent->IsUpToDate());
    other.execute("COMMIT");
    EXPECT_TRUE(agent->Update(0, true));
}

}  // namespace
}  // namespace quillo::test
