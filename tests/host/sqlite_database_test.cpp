#include "host/database/sqlite_database.h"

#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <optional>
#include <sstream>
#include <thread>

#include "framework/values/errors.h"
#include "host/database/decimal_sum.h"
#include "host/database/like.h"
#include "tests/host/temporary_file.h"

namespace quillo {
namespace {

class SqliteDatabaseTest : public testing::Test {
protected:
    SqliteDatabaseTest() {
        sqlite::Database writer(file_.path(), sqlite::Open::create);
        writer.execute(
            "CREATE TABLE T (Id INTEGER PRIMARY KEY, Code TEXT COLLATE QUILLO, Amount MONEY REAL, Day DATE TEXT, Flag "
            "BOOLEAN INT, "
            "Rate REAL, Time TIME TEXT);"
            "INSERT INTO T VALUES (1, 'A1', 12.34, '2024-02-29', 1, 1.3579, '08:30:00'),"
            "(2, 'a2', -0.005, '1899-12-30', 0, 2, NULL), (5000000000, NULL, NULL, NULL, NULL, NULL, NULL);"
            "CREATE VIEW V AS SELECT Id, Day AS D, Amount FROM T;");
        database_.emplace(file_.path());
    }

    std::shared_ptr<Recordset> query(const std::string& text, std::vector<Variant> parameters = {}) {
        const auto command = database_->newCommand();
        command->ActiveConnection = database_->ConnectionString();
        command->CommandText = text;
        command->Parameters = std::move(parameters);
        return command->Execute();
    }
    std::string failure(const std::string& text, std::vector<Variant> parameters = {}) {
        try {
            const auto rows = query(text, std::move(parameters));
            while (!rows->atEnd()) rows->moveNext();
        } catch (const DatabaseError& error) {
            return error.what();
        }
        return "";
    }

    test::TemporaryFile file_;
    std::optional<SqliteDatabase> database_;
};

TEST_F(SqliteDatabaseTest, ColumnsHaveTheKindsOfTheirDeclarations) {
    struct Case {
        const char* column;
        ValueKind kind;
        const char* text;
    };
    const Case cases[] = {
        {"Id", ValueKind::int32, "1"},
        {"Code", ValueKind::text, "A1"},
        {"Amount", ValueKind::money, "12.34"},
        {"Day", ValueKind::date, "2024-02-29"},
        {"Flag", ValueKind::boolean, "True"},
        {"Rate", ValueKind::real, "1.3579"},
        {"Time", ValueKind::text, "08:30:00"},
        {"MAX(Amount)", ValueKind::real, "12.34"},
        {"MIN(Day) AS MinTrxDate", ValueKind::date, "1899-12-30"},
        {"'2024-13-01' AS OddDate", ValueKind::text, "2024-13-01"},
        {"MAX(Day) AS LastDay", ValueKind::text, "2024-02-29"},
        {"Id = 1", ValueKind::int32, "0"},
        {"COUNT(*) * 5000000000", ValueKind::int64, "15000000000"},
        {"(SELECT D FROM V) AS X", ValueKind::date, "2024-02-29"},
    };
    for (const Case& one : cases) {
        const auto rows = query("SELECT " + std::string(one.column) + " FROM T");
        const ValueView value = rows->value(0);
        EXPECT_EQ(value.kind(), one.kind) << one.column;
        EXPECT_EQ(value.toText(), std::string(one.column) == "Id = 1" ? "1" : one.text) << one.column;
    }
    const auto derived =
        query("SELECT X.D, X.Amount FROM (SELECT D, Amount FROM V UNION ALL SELECT Day, Amount FROM T) AS X");
    EXPECT_EQ(derived->value(0).kind(), ValueKind::date);
    EXPECT_EQ(derived->value(1).kind(), ValueKind::money);
}

TEST_F(SqliteDatabaseTest, WalksRowsOnceAndForward) {
    const auto rows = query("SELECT Id, Code, Amount, Id AS ID FROM T ORDER BY T.Id");
    EXPECT_EQ(rows->find("ID"), 0);
    EXPECT_EQ(rows->find("T.code"), 1);
    EXPECT_EQ(rows->find("None"), -1);
    rows->moveNext();
    EXPECT_EQ(rows->Collect("Amount").toMoney(), Money::fromRaw(-50));
    rows->moveNext();
    EXPECT_EQ(rows->value(0).kind(), ValueKind::int64);
    EXPECT_TRUE(rows->value(1).isNull());
    rows->moveNext();
    EXPECT_TRUE(rows->atEnd());
    rows->moveNext();
    EXPECT_THROW(rows->value(0), DatabaseError);
}

TEST_F(SqliteDatabaseTest, BindsByKind) {
    const auto found = [&](const char* condition, Variant value) {
        const auto rows = query("SELECT Id FROM T WHERE " + std::string(condition), {std::move(value)});
        std::string ids;
        for (; !rows->atEnd(); rows->moveNext()) ids += rows->value(0).toText() + " ";
        return ids;
    };
    EXPECT_EQ(found("Day = ?", Date::fromCivil(2024, 2, 29)), "1 ");
    EXPECT_EQ(found("Day <= ?", noEndLimit), "1 2 ");
    EXPECT_EQ(found("Day || ' 18:00:00' = ?", Date{Date::fromCivil(2024, 2, 29).days + 0.75}), "1 ");
    EXPECT_EQ(found("Amount = ?", Money::fromRaw(123400)), "1 ");
    EXPECT_EQ(found("Flag = ?", true), "1 ");
    EXPECT_EQ(found("Code = ?", "A2"), "2 ");
    EXPECT_EQ(found("Id = ?", std::int64_t{5000000000}), "5000000000 ");
    EXPECT_EQ(found("Code IS ?", Variant()), "5000000000 ");
    EXPECT_NE(failure("SELECT ? + ?", {1}), "");
    EXPECT_NE(failure("SELECT 1", {1}), "");
}

TEST_F(SqliteDatabaseTest, OnlyReads) {
    for (const char* text :
         {"DELETE FROM T", "INSERT INTO T (Id) VALUES (9)", "UPDATE T SET Code = 'x'", "DROP TABLE T",
          "CREATE TEMP TABLE X (A)", "ATTACH ':memory:' AS other", "PRAGMA user_version = 7", "VACUUM",
          "SELECT load_extension('x')", "BEGIN", "SELECT * FROM pragma_table_info('T')"})
        EXPECT_NE(failure(text), "") << text;
    EXPECT_EQ(failure("WITH RECURSIVE N(X) AS (SELECT 1 UNION ALL SELECT X + 1 FROM N WHERE X < 3) SELECT X FROM N"),
              "");
    EXPECT_EQ(failure("SELECT Absent FROM T"), "no such column: Absent");
    EXPECT_EQ(failure("SELECT \"Absent\" FROM T"), "no such column: Absent");
    EXPECT_NE(failure("SELECT 1; DELETE FROM T"), "");
    EXPECT_NE(failure(""), "");
    EXPECT_EQ(query("SELECT COUNT(*) FROM T")->value(0).toInt32(), 3);
}

TEST_F(SqliteDatabaseTest, ACommandNeedsItsConnection) {
    const auto command = database_->newCommand();
    command->CommandText = "SELECT 1";
    EXPECT_THROW(command->Execute(), DatabaseError);
}

TEST_F(SqliteDatabaseTest, RecordsetsOfOneCommandWalkByThemselvesAndOutliveTheDatabase) {
    auto command = database_->newCommand();
    command->ActiveConnection = database_->ConnectionString();
    command->CommandText = "SELECT Id FROM T WHERE Id >= ? ORDER BY T.Id";
    command->Parameters = {1};
    const auto first = command->Execute();
    command->Parameters = {2};
    const auto second = command->Execute();
    command.reset();
    database_.reset();
    first->moveNext();
    EXPECT_EQ(first->value(0).toInt32(), 2);
    EXPECT_EQ(second->value(0).toInt32(), 2);
}

const char* const endless = "WITH RECURSIVE N(X) AS (SELECT 1 UNION ALL SELECT X + 1 FROM N) SELECT MAX(X) FROM N";

// Runs of the statements that are compiled on a connection, each with how often it ran.
std::vector<int> runsOfStatements(sqlite3* connection) {
    std::vector<int> runs;
    for (auto* at = sqlite3_next_stmt(connection, nullptr); at != nullptr; at = sqlite3_next_stmt(connection, at))
        runs.push_back(sqlite3_stmt_status(at, SQLITE_STMTSTATUS_RUN, 0));
    std::sort(runs.begin(), runs.end());
    return runs;
}

TEST_F(SqliteDatabaseTest, ACommandThatAlternatesBetweenTextsCompilesEachOnce) {
    const auto command = database_->newCommand();
    command->ActiveConnection = database_->ConnectionString();
    const auto ask = [&](const char* text, int id) {
        command->CommandText = text;
        command->Parameters = {id};
        return command->Execute();
    };
    const char* code = "SELECT Code FROM T WHERE Id = ?";
    const char* amount = "SELECT Amount FROM T WHERE Id = ?";
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(ask(code, 1 + round % 2)->view("Code").toText(), round % 2 == 0 ? "A1" : "a2");
        EXPECT_EQ(ask(amount, 1)->view("Amount").toText(), "12.34");
    }
    EXPECT_EQ(runsOfStatements(database_->handle().get()), (std::vector<int>{3, 3}));
    // A row that is still read keeps its own statement.
    const auto held = ask(code, 1);
    EXPECT_EQ(ask(code, 2)->view("Code").toText(), "a2");
    EXPECT_EQ(held->view("Code").toText(), "A1");
    for (int id = 0; id < 20; ++id) ask(("SELECT " + std::to_string(id) + " FROM T WHERE Id = ?").c_str(), 1);
    EXPECT_LE(runsOfStatements(database_->handle().get()).size(), 5U) << "only the last few stay, and the held one";
}

TEST_F(SqliteDatabaseTest, ALongQueryCanBeStopped) {
    std::atomic<bool> stop = false;
    database_->setStopFlag(&stop);
    std::thread user([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        stop = true;
    });
    EXPECT_THROW(failure(endless), RunStopped) << "no failure, so that no step shows a box";
    user.join();
    stop = false;
    EXPECT_EQ(failure("SELECT 1"), "");
}

TEST_F(SqliteDatabaseTest, AHardPatternAndALockEndWithTheStopFlagToo) {
    std::atomic<bool> stop = false;
    sqlite::Watch watch;
    watch.setStopFlag(&stop);
    const auto stoppedSoon = [&](const auto& work) {
        stop = false;
        std::thread user([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            stop = true;
        });
        const auto since = sqlite::Watch::Clock::now();
        EXPECT_THROW(work(), RunStopped);
        user.join();
        return sqlite::Watch::Clock::now() - since < std::chrono::seconds(1);
    };
    const std::string text(1 << 20, 'a'), pattern = "%" + std::string(1 << 18, 'a') + "b";
    EXPECT_TRUE(stoppedSoon([&] { matchesLike(text, pattern, "", &watch); }));
    sqlite::Database writer(file_.path(), sqlite::Open::readWrite);
    writer.execute("BEGIN EXCLUSIVE");
    EXPECT_TRUE(
        stoppedSoon([&] { sqlite::Database(file_.path(), sqlite::Open::readOnly, &stop).integer("SELECT 1 FROM T"); }));
}

// Two programs that take turns: nobody is refused, in either way of writing.
TEST(SqliteLocks, AWriterAndReadersTakeTurns) {
    for (const char* mode : {"DELETE", "WAL"}) {
        const test::TemporaryFile file;
        sqlite::Database(file.path(), sqlite::Open::create)
            .execute(std::string("PRAGMA journal_mode = ") + mode +
                     "; CREATE TABLE T (N); INSERT INTO T VALUES (1), (1)");
        std::atomic<bool> over = false;
        std::thread other([&] {
            for (int i = 2; !over; ++i) {
                sqlite::Database writer(file.path(), sqlite::Open::readWrite);
                writer.execute("PRAGMA synchronous = OFF; BEGIN EXCLUSIVE; UPDATE T SET N = " + std::to_string(i));
                std::this_thread::sleep_for(std::chrono::milliseconds(i % 5));
                writer.execute("COMMIT");
            }
        });
        for (int i = 0; i < 300; ++i) {
            const sqlite::Database reader(file.path(), sqlite::Open::readOnly);
            EXPECT_NO_THROW({
                sqlite::Statement rows(reader, "SELECT MIN(N) = MAX(N) FROM T");
                ASSERT_TRUE(rows.step());
                EXPECT_EQ(rows.integer(0), 1) << "half of a change was read";
            }) << mode;
        }
        over = true;
        other.join();
        EXPECT_FALSE(std::filesystem::exists(file.path() + "-shm")) << "the writer was the last, and found no reader";
    }
}

// A reader makes nothing beside a company in WAL mode, whether its log was left, half written, or went without its
// index.
TEST(SqliteLocks, AReaderLeavesNothingBehind) {
    namespace fs = std::filesystem;
    const test::TemporaryFile file, copy;
    const auto read = [&](const std::string& path) {
        return sqlite::Database(path, sqlite::Open::readOnly).integer("SELECT SUM(N) FROM T");
    };
    sqlite::Database writer(file.path(), sqlite::Open::create);
    writer.execute(
        "PRAGMA journal_mode = WAL; PRAGMA wal_autocheckpoint = 0; CREATE TABLE T (N); INSERT INTO T VALUES (1)");
    writer.execute(
        "INSERT INTO T WITH RECURSIVE C(N) AS (VALUES(1) UNION ALL SELECT N + 1 FROM C WHERE N < 3000) SELECT 2 FROM "
        "C");
    EXPECT_EQ(read(file.path()), 6001) << "what is in the log of an open company";
    fs::copy_file(file.path(), copy.path());
    fs::copy_file(file.path() + "-wal", copy.path() + "-wal");
    EXPECT_EQ(read(copy.path()), 6001) << "the same from a copy without the index";
    fs::resize_file(copy.path() + "-wal", fs::file_size(copy.path() + "-wal") - 5000);
    EXPECT_EQ(read(copy.path()), 1) << "a transaction that is not whole does not count";
    EXPECT_FALSE(fs::exists(copy.path() + "-shm"));
    fs::remove(copy.path() + "-wal");
    writer = sqlite::Database(":memory:", sqlite::Open::create);
    EXPECT_EQ(read(file.path()), 6001);
    for (const char* ending : {"-wal", "-shm"}) EXPECT_FALSE(fs::exists(file.path() + ending)) << ending;
}

TEST_F(SqliteDatabaseTest, ACommandKeepsToItsTimeLimit) {
    const auto command = database_->newCommand();
    command->ActiveConnection = database_->ConnectionString();
    command->CommandText = endless;
    command->CommandTimeout = 1;
    EXPECT_THROW(command->Execute(), DatabaseError);
}

TEST_F(SqliteDatabaseTest, TracesTextsAsTheyWereWritten) {
    std::ostringstream trace;
    database_->setTrace(&trace);
    query("SELECT Code & '\"' FROM T WHERE Day < ? AND Id = ? AND Code <> ?", {noEndLimit, 1, Variant()});
    database_->OpenRecordset("SELECT 1 WHERE ? > 0.1", 2, 0, Money::fromRaw(12500));
    EXPECT_EQ(trace.str(),
              "{\"text\":\"SELECT Code & '\\\"' FROM T WHERE Day < ? AND Id = ? AND Code <> "
              "?\",\"parameters\":[\"9999-12-31\",1,null]}\n"
              "{\"text\":\"SELECT 1 WHERE ? > 0.1\",\"parameters\":[1.25]}\n");
}

TEST_F(SqliteDatabaseTest, LookUpsFilterConvertAndWalkAgain) {
    const auto rows = database_->OpenRecordset("SELECT * FROM T WHERE Id < ?", 4, 0, 10);
    EXPECT_EQ(rows->Value("code", ValueType::text).toText(), "A1");
    EXPECT_EQ(rows->Value("T.Amount", ValueType::currency).kind(), ValueKind::money);
    EXPECT_EQ(rows->Value("Flag", ValueType::boolean).kind(), ValueKind::boolean);
    EXPECT_EQ(rows->Value("Rate", ValueType::integer).toInt32(), 1);
    EXPECT_EQ(rows->Value("Day", ValueType::date).toDate(), Date::fromCivil(2024, 2, 29));
    rows->MoveNext();
    EXPECT_TRUE(rows->Value("Time", ValueType::longText).isNull());
    EXPECT_THROW(rows->Value("None", ValueType::text), NameError);
    EXPECT_THROW(rows->Value("Code", 99), ConversionError);
    rows->MoveNext();
    EXPECT_TRUE(rows->atEnd());
    EXPECT_THROW(rows->Value("Code", ValueType::text), DatabaseError);
    rows->setFilter("Code = 'A2'");
    const auto inner = rows->inner();
    rows->setFilter("Id > 1");
    EXPECT_EQ(inner->Collect("Id").toInt32(), 2);
    inner->moveNext();
    EXPECT_TRUE(inner->atEnd());
    EXPECT_FALSE(database_->OpenRecordset("SELECT 1 WHERE 'a?' = ''", 2, 0)->hasRows());
}

TEST_F(SqliteDatabaseTest, LookUpsTakeAsManyValuesAsTheyHaveMarks) {
    const auto rows = database_->OpenRecordset("SELECT Id FROM T WHERE Id BETWEEN ? AND ? AND Code = ?", 4, 0,
                                               {Variant(1), Variant(9), Variant("A2")});
    ASSERT_FALSE(rows->atEnd());
    EXPECT_EQ(rows->Value("Id", ValueType::integer).toInt32(), 2);
    EXPECT_FALSE(database_->OpenRecordset("SELECT 1 WHERE 1 = ?", 4, 0, Variant())->hasRows()) << "Null is a value too";
    EXPECT_THROW(database_->OpenRecordset("SELECT ?", 4, 0), DatabaseError);
}

TEST_F(SqliteDatabaseTest, RowsInMemoryKeepEveryKindOfValue) {
    const std::string text =
        "SELECT NULL AS N, Flag, Id, 5000000000 + Id AS Long, Amount, Rate, Day, Code, '' AS Empty FROM T WHERE Id < 9 "
        "UNION ALL SELECT 1, 1, 3, 4, -0.01, 1e300, '2024-01-01', 'long enough to stand outside of any small text', "
        "'x'";
    const auto read = query(text);
    const auto held = database_->OpenRecordset(text, 4, 0)->inner();
    for (; !read->atEnd(); read->moveNext(), held->moveNext()) {
        ASSERT_FALSE(held->atEnd());
        for (int i = 0; i < read->columnCount(); ++i) {
            EXPECT_EQ(held->value(i).kind(), read->value(i).kind()) << read->columnName(i);
            EXPECT_TRUE(sameValue(held->value(i), read->value(i))) << read->columnName(i);
        }
    }
    EXPECT_TRUE(held->atEnd());
}

TEST_F(SqliteDatabaseTest, AColumnIsReadOnEveryRowWithoutItsName) {
    const std::shared_ptr<Recordset> rows = query("SELECT T.* FROM T ORDER BY Id");
    const Column code(rows, "T.CODE");
    EXPECT_EQ(code.view().toText(), "A1");
    rows->moveNext();
    EXPECT_EQ(code.view().toText(), "a2");
    while (!rows->atEnd()) rows->moveNext();
    EXPECT_THROW(code.view(), DatabaseError);
    EXPECT_THROW(Column(rows, "None"), NameError);
    EXPECT_THROW(Column(nullptr, "Code"), DatabaseError);
    EXPECT_THROW(Column().view(), DatabaseError);
}

TEST(DecimalSums, WhatOverflowsKeepsItsSum) {
    DecimalSum sum;
    sum.add(std::numeric_limits<std::int64_t>::max());
    EXPECT_THROW(sum.add(std::int64_t{1}), OverflowError);
    EXPECT_THROW(sum.add(1.5), OverflowError);
    EXPECT_THROW(sum.add(std::numeric_limits<double>::infinity()), OverflowError);
    EXPECT_EQ(sum.integer(), std::numeric_limits<std::int64_t>::max());
    EXPECT_TRUE(sum.onlyIntegers());
}

TEST_F(SqliteDatabaseTest, FiltersOfLookUps) {
    const auto rows = database_->OpenRecordset("SELECT * FROM T", 4, 0);
    struct Case {
        const char* filter;
        const char* ids;
    };
    const Case cases[] = {
        {"", "1 2 5000000000 "},
        {"Code = 'a1'", "1 "},
        {"T.Code LIKE 'A%'", "1 2 "},
        {"Code = Null", "5000000000 "},
        {"Code <> NULL AND Id <> 1", "2 "},
        {"Id <> 1 Or Flag <> 1 Or Code = Null", "2 5000000000 "},
        {"NOT Amount > 0", "2 "},
        {"NOT (Amount > 0 OR Code IS NULL)", "2 "},
        {"Day >= #2000-01-01# AND Amount >= 12.34", "1 "},
        {"Day >= 1899-12-30 AND Day <= 2024-02-28", "2 "},
        {"NOT (Day<2024-02-29)", "1 "},
        {"Amount = -0.005", "2 "},
        {"Id = 1 OR Id = 2 AND Code = 'x'", "1 "},
        {"Code IS NOT NULL", "1 2 "},
    };
    for (const Case& one : cases) {
        rows->setFilter(one.filter);
        std::string ids;
        for (; !rows->atEnd(); rows->MoveNext()) ids += rows->Value("Id", ValueType::text).toText() + " ";
        EXPECT_EQ(ids, one.ids) << one.filter;
    }
    for (const char* wrong : {"Code", "Code =", "Code = 'a", "None = 1", "Code = 1 2", "(Code = 1",
                              "Day = #2024-99-01#", "Day = 2024-99-01", "Code < NULL", "= 1", "Code = Id"})
        EXPECT_THROW(rows->setFilter(wrong), InputError) << wrong;
}

TEST(SqliteDatabaseFile, AMissingFileIsAnError) {
    EXPECT_THROW(SqliteDatabase("/no/such/company.db"), DatabaseError);
}

}  // namespace
}  // namespace quillo
