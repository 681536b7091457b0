#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "framework/report_factory.h"
#include "library/quillo.h"
#include "tests/host/test_company.h"

namespace quillo::test {
namespace {

using List = std::vector<const char*>;

constexpr const char* rows =
    "INSERT INTO Term (InTermId, TermId, Descr, TermMode, Due) VALUES (1, 'N30', 'Net 30', 1, 30);";

// A session of the C door, with what it told.
struct Door {
    explicit Door(const std::string& company, List options = {}) {
        options.push_back(nullptr);
        opened = quillo_open(
            &session, company.c_str(), options.data(),
            [](void* caller, const char* text) { static_cast<std::vector<std::string>*>(caller)->push_back(text); },
            &told);
    }
    ~Door() { quillo_close(session); }
    quillo_status run(const char* member, List wishes = {}) {
        wishes.push_back(nullptr);
        return quillo_run(session, member, wishes.data(), pdf.path().c_str());
    }
    std::string error() const { return quillo_last_error(session); }
    bool printed() const { return std::filesystem::exists(pdf.path()); }

    TemporaryFile pdf{".pdf"};
    std::vector<std::string> told;
    quillo_session* session = nullptr;
    quillo_status opened;
};

TEST(Door, RunsReportsOneAfterAnotherAndSeesTheCompanyAsItIs) {
    const TestCompany company(rows);
    Door door(company.path(), {"language=fr", "locale=fr_CA", "session-date=2025-12-31"});
    ASSERT_EQ(door.opened, QUILLO_DONE) << door.error();
    EXPECT_EQ(door.run("TermList", {"where=Due > 5", "order=Due DESC"}), QUILLO_DONE) << door.error();
    ASSERT_TRUE(door.printed());
    const auto small = std::filesystem::file_size(door.pdf.path());

    sqlite::Database(company.path(), sqlite::Open::readWrite)
        .execute(
            "WITH RECURSIVE n(i) AS (SELECT 2 UNION SELECT i + 1 FROM n WHERE i < 400)"
            " INSERT INTO Term (InTermId, TermId, Descr, TermMode, Due) SELECT i, i, 'Term ' || i, 1, i FROM n");
    EXPECT_EQ(door.run("TermList"), QUILLO_DONE) << door.error();
    EXPECT_GT(std::filesystem::file_size(door.pdf.path()), 2 * small);
    EXPECT_EQ(door.run("OpenOrders", {"InvoiceType=50", "from=2025-01-01", "foreign=true"}), QUILLO_DONE);
    EXPECT_EQ(door.told, std::vector<std::string>{});
}

TEST(Door, TellsWhatItRefusesAndWritesNothing) {
    const TestCompany company(rows);
    struct Case {
        const char* member;
        List wishes;
        const char* told;
    };
    const Case cases[] = {{"Nonsense", {}, "there is no report \"Nonsense\""},
                          {nullptr, {}, "there is no report \"\""},
                          {"TermList", {"order"}, "\"order\" is not name=value"},
                          {"TermList", {"from=yesterday"}, "from is a day such as 2025-12-31, not \"yesterday\""},
                          {"TermList", {"foreign=perhaps"}, "foreign is true or false, not \"perhaps\""},
                          {"TermList", {"where=Cust.Name = 'A'"}, "Cust"},
                          {"TermList", {"segments=1"}, "TermList does not select segments"},
                          {"OpenOrders", {"Invoice=51"}, "Invoice"}};
    for (const Case& refused : cases) {
        Door door(company.path());
        EXPECT_EQ(door.run(refused.member, refused.wishes), QUILLO_REFUSED) << refused.told;
        EXPECT_NE(door.error().find(refused.told), std::string::npos) << door.error();
        EXPECT_FALSE(door.printed());
    }
    Door door(company.path());
    EXPECT_EQ(quillo_run(door.session, "TermList", nullptr, company.path().c_str()), QUILLO_REFUSED);
    EXPECT_EQ(door.error(), company.path() + " is the company's own file");
    EXPECT_EQ(quillo_run(door.session, "TermList", nullptr, "/nowhere/terms.pdf"), QUILLO_FAILURES);
    EXPECT_NE(door.error().find("/nowhere/terms.pdf"), std::string::npos) << door.error();
    EXPECT_EQ(door.run("TermList"), QUILLO_DONE) << "a refusal spoils nothing";
    EXPECT_EQ(door.error(), "");
}

TEST(Door, ASessionThatDoesNotOpenTellsWhyAndCanBeClosed) {
    Door none("/nowhere/company.db");
    EXPECT_EQ(none.opened, QUILLO_NO_COMPANY);
    EXPECT_NE(none.error().find("/nowhere/company.db does not exist"), std::string::npos) << none.error();
    EXPECT_EQ(none.run("TermList"), QUILLO_NO_COMPANY);
    EXPECT_EQ(quillo_clsReport(none.session), nullptr);

    const TestCompany company;
    Door strange(company.path(), {"colour=red"});
    EXPECT_EQ(strange.opened, QUILLO_REFUSED);
    EXPECT_NE(strange.error().find("\"colour\""), std::string::npos) << strange.error();
}

TEST(Door, ShowsTheFailuresOfAReportToItsCallerAndPrintsTheRest) {
    const TestCompany company("INSERT INTO Term (InTermId, TermId, Descr, TermMode) VALUES (1, 'BAD', 'Bad', 'odd');");
    Door door(company.path());
    EXPECT_EQ(door.run("TermList"), QUILLO_FAILURES);
    ASSERT_EQ(door.told.size(), 1U);
    EXPECT_NE(door.told.front().find("in Quillo.dsrTermList.Detail_Format"), std::string::npos) << door.told.front();
    EXPECT_EQ(door.error(), door.told.front());
    EXPECT_TRUE(door.printed());
}

TEST(Door, GivesHostsInCppTheFactory) {
    const TestCompany company(rows);
    Door door(company.path());
    auto* factory = static_cast<clsReport*>(quillo_clsReport(door.session));
    ASSERT_NE(factory, nullptr);
    const auto report = factory->TermList();
    ASSERT_NE(report, nullptr);
    EXPECT_EQ(report->name(), "dsrTermList");
}

}  // namespace
}  // namespace quillo::test
