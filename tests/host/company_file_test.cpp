#include "host/company/company_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "framework/values/errors.h"
#include "tests/host/test_company.h"

namespace quillo {
namespace {

std::string failureOf(const std::string& path) {
    try {
        const CompanyFile file(path);
    } catch (const InputError& failure) {
        std::string text = failure.what();
        const auto at = text.find(path);
        return at == std::string::npos ? text : text.replace(at, path.size(), "F");
    }
    return "";
}

std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(CompanyFile, TellsWhatTheFileSays) {
    const test::TestCompany company(
        "UPDATE CompanyFact SET Value = 'Acme' WHERE Name = 'Name'; UPDATE CompanyFact SET Value = 'x' WHERE Name = "
        "'DatabaseKind';"
        "INSERT INTO Parameter VALUES ('KorvaAcctParams', 'CustPriod1', '45'), ('', 'UseAccountNumbers', 'False');"
        "INSERT INTO Setting VALUES (7, '1'); INSERT INTO TextOverride VALUES ('en', 1911, 'Conditions'), ('fr', 1911, "
        "'Modes')");
    const CompanyFile file(company.path());
    EXPECT_EQ(file.fact("name", ""), "Acme");
    EXPECT_EQ(file.fact("Motto", "none"), "none");
    EXPECT_EQ(file.integerFact("HomeCurrencyId", 9), 1);
    EXPECT_EQ(file.integerFact("Floor", 9), 9);
    EXPECT_THROW(file.integerFact("DatabaseKind", 0), InputError);
    EXPECT_EQ(file.parameter("KorvaAcctParams", "CUSTPRIOD1"), "45");
    EXPECT_EQ(file.parameter("", "CustPriod1"), "45");
    EXPECT_EQ(file.parameter("Other", "CustPriod1"), std::nullopt);
    EXPECT_EQ(file.setting(7), "1");
    EXPECT_EQ(file.setting(8), std::nullopt);
    EXPECT_EQ(file.textOverrides("fr"), (std::vector<std::pair<int, std::string>>{{1911, "Modes"}}));
    EXPECT_EQ(file.catalogue().column("cust", "CUSTID"), "CustId");
    EXPECT_TRUE(file.catalogue().hasTable("InvoiOutstandingAll_View"));
    EXPECT_TRUE(file.catalogue().columns("Nobody").empty());
}

TEST(CompanyFile, ReadsTheVersionThatTheSchemaMakes) {
    const test::TestCompany company;
    sqlite::Database database(company.path(), sqlite::Open::readOnly);
    EXPECT_EQ(database.integer("PRAGMA user_version"), companyVersion);
}

TEST(CompanyFile, FilesThatAreNoCompany) {
    EXPECT_EQ(failureOf("/no/such.db"), "The company file F does not exist");
    EXPECT_EQ(failureOf("/tmp"), "The company file F is not a file");
    const test::TemporaryFile text(".txt");
    text.write(std::string(5000, 'x'));
    EXPECT_EQ(failureOf(text.path()), "The company file F is no company: it is not a database");
    const test::TemporaryFile empty;
    empty.write("");
    EXPECT_EQ(failureOf(empty.path()), "The company file F is not a company: it has no table CompanyFact");

    const test::TestCompany other("PRAGMA user_version = 99");
    EXPECT_EQ(failureOf(other.path()), "The company file F is of version 99; this program reads version 1");
    const test::TestCompany lacking("DROP TABLE Setting");
    EXPECT_EQ(failureOf(lacking.path()), "The company file F lacks the table Setting");
    const test::TestCompany truncated;
    std::filesystem::resize_file(truncated.path(), std::filesystem::file_size(truncated.path()) / 2);
    EXPECT_EQ(failureOf(truncated.path()), "The company file F is damaged: what stands in it does not fit together");
}

// A company that was cut off while it was made, behind each statement up to its facts.
TEST(CompanyFile, HalfMadeFilesAreRefusedUnchanged) {
    const std::string schema(companySchema());
    const auto facts = schema.find("INSERT INTO CompanyFact");
    int refused = 0;
    for (auto end = schema.find(";\n"); end < facts; end = schema.find(";\n", end + 1), ++refused) {
        const test::TemporaryFile half;
        sqlite::Database(half.path(), sqlite::Open::create)
            .execute("PRAGMA synchronous = OFF; BEGIN;" + schema.substr(0, end) + "; COMMIT");
        const std::string before = bytesOf(half.path());
        SessionOptions options;
        options.company = half.path();
        test::ListedMessages messages;
        EXPECT_THROW(HostSession(options, messages), InputError) << "cut off at " << end;
        EXPECT_EQ(bytesOf(half.path()), before);
    }
    EXPECT_GT(refused, 50);
}

TEST(CompanyFile, OwnTextsHaveANumberEachOnce) {
    struct Case {
        const char* rows;
        const char* failure;
    };
    // The table of a company that was connected otherwise may lack the key.
    const std::string keyless =
        "DROP TABLE TextOverride; CREATE TABLE TextOverride (Language TEXT, Id INTEGER, Text TEXT);";
    const Case cases[] = {
        {"('en', 1911, 'a'), ('fr', 1911, 'b'), ('en', 1912, 'c'), ('en', 1911, NULL)", ""},
        {"('en', 1911, 'a'), ('en', 1912, 'c'), ('en', 1911, 'b')", "words the text 1911 twice"},
        {"('en', 1911, 'a'), ('en', NULL, 'b')", "has a text of its own without a number"},
    };
    for (const Case& one : cases) {
        const test::TestCompany company(keyless + "INSERT INTO TextOverride VALUES " + one.rows);
        std::string failure;
        try {
            (void)CompanyFile(company.path()).textOverrides("en");
        } catch (const InputError& error) {
            failure = error.what();
        }
        if (*one.failure == 0)
            EXPECT_EQ(failure, "");
        else
            EXPECT_EQ(failure, "The company file " + company.path() + " " + one.failure);
    }
}

}  // namespace
}  // namespace quillo
