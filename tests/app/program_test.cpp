#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "tests/app/program_run.h"
#include "tests/host/test_company.h"
#include "tests/support/member_runs.h"

namespace quillo::test {
namespace {

std::string bytesOf(const std::string& path) {
    std::ifstream input(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(input), {});
}

class Program : public testing::Test {
protected:
    const TestCompany company{
        "INSERT INTO Term (InTermId, TermId, Descr, TermMode, Due) VALUES (5, 'N', 'Net', 1, 30)"};
    const TemporaryFile file{""};

    Outcome run(std::vector<std::string> more) const {
        std::vector<std::string> arguments = {"run", "TermList", "--company", company.path()};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return program(arguments);
    }
};

TEST_F(Program, GivesPagesAsJson) {
    const auto outcome = run({"--language", "ids", "--format", "json"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const auto json = nlohmann::json::parse(outcome.out);
    EXPECT_EQ(json["report"], "dsrTermList");
    EXPECT_EQ(json["member"], "TermList");
    EXPECT_EQ(json["title"], "#6127");
    EXPECT_TRUE(json["failures"].empty());
    ASSERT_EQ(json["pages"].size(), 1U);
    const auto& sections = json["pages"][0]["sections"];
    ASSERT_FALSE(sections.empty());
    EXPECT_EQ(sections.front()["name"], "PageHeader") << "the host's own frame is no part of the pages";
    EXPECT_EQ(sections.back()["controls"].at(0)["text"], "1 #7629");
}

TEST_F(Program, WritesAFileWholeAndTheSameBytesTwice) {
    const TemporaryFile first(".pdf"), second(".pdf");
    EXPECT_EQ(run({"--session-date", "2024-02-03", "-o", first.path()}).status, 0);
    EXPECT_EQ(run({"--session-date", "2024-02-03", "-o", second.path()}).status, 0);
    EXPECT_EQ(bytesOf(first.path()).substr(0, 5), "%PDF-");
    EXPECT_EQ(bytesOf(first.path()), bytesOf(second.path()));
    EXPECT_FALSE(run({"--session-date", "2024-02-04", "-o", second.path()}).status);
    EXPECT_NE(bytesOf(first.path()), bytesOf(second.path())) << "the date is printed";
}

TEST(AllReports, PrintOnTwoThreadsAsOneByOne) {
    const GoldenCompany company;
    const TemporaryFile folder("");
    // Alone a report is given the dates that it takes, with the others all.
    const auto printed = [&](std::vector<std::string> arguments, int dates) {
        const std::vector<std::string> wish = {"--company", company.path(), "--session-date", "2024-02-03",
                                               "--foreign"};
        arguments.insert(arguments.end(), wish.begin(), wish.end());
        if (dates == DateDisplay::range) arguments.insert(arguments.end(), {"--from", "2024-01-01"});
        if (dates != DateDisplay::none) arguments.insert(arguments.end(), {"--to", "2024-01-31"});
        return program(arguments);
    };
    const auto outcome = printed({"run", "--all", "-o", folder.path()}, DateDisplay::range);
    EXPECT_LE(outcome.status, 1) << outcome.err;
    const TemporaryFile alone(".pdf");
    std::size_t lines = 0;
    for (const char letter : outcome.out) lines += letter == '\n';
    EXPECT_EQ(lines, writtenMembers().size()) << outcome.out;
    for (const std::string& member : writtenMembers()) {
        const bool failed =
            printed({"run", member, "-o", alone.path()}, traitsOf(member, company.path()).dates).status != 0;
        EXPECT_EQ(outcome.err.find(member + ":\n") != std::string::npos, failed) << member << '\n' << outcome.err;
        const std::string bytes = bytesOf(folder.path() + "/" + member + ".pdf");
        EXPECT_EQ(bytes.substr(0, 5), "%PDF-") << member;
        EXPECT_TRUE(bytes == bytesOf(alone.path())) << member << " has other bytes alone";
    }
    EXPECT_NE(outcome.out.find("1/" + std::to_string(lines) + " "), std::string::npos);
    std::filesystem::remove_all(folder.path());
}

TEST(AllReports, TellWhichFailedAndRefuseWhatOneReportAloneTakes) {
    const TestCompany company(
        "DROP VIEW CustAgingPmtsDiscounts_View; INSERT INTO GLAcct (InGLAcctId, GLAcctId) VALUES (1, '1100');"
        "INSERT INTO AccountGroup VALUES ('CustGLAR', 1, 1)");
    const TemporaryFile folder("");
    const auto outcome =
        program({"run", "--all", "--company", company.path(), "-o", folder.path(), "--format", "json"});
    EXPECT_EQ(outcome.status, 3) << "the company lacks what one of them asks";
    EXPECT_NE(outcome.err.find("CustTransHistoryRepNova:\n"), std::string::npos) << outcome.err;
    EXPECT_NE(outcome.err.find("quillo: 1 of " + std::to_string(writtenMembers().size()) + " reports had failures"),
              std::string::npos)
        << outcome.err;
    EXPECT_TRUE(std::filesystem::exists(folder.path() + "/TermList.json")) << "the others are printed";
    std::filesystem::remove_all(folder.path());
    const auto refusal = [&](std::vector<std::string> more) {
        std::vector<std::string> arguments = {"run", "--all", "--company", company.path()};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const auto refused = program(arguments);
        EXPECT_EQ(refused.status, 2);
        return refused.err;
    };
    EXPECT_EQ(refusal({}), "quillo: --all needs the folder that takes the reports: -o FOLDER\n");
    EXPECT_EQ(refusal({"-o", folder.path(), "--where", "A = 1"}),
              "quillo: --all prints every report and takes no --where\n");
    EXPECT_EQ(program({"run", "--company", company.path()}).status, 2);
}

// By its name, another spelling, a link of either kind, and the files that the database keeps beside it.
TEST_F(Program, WritesNothingOverWhatItReads) {
    namespace fs = std::filesystem;
    const std::string before = bytesOf(company.path());
    const TemporaryFile symbolic(".db"), hard(".db"), twice(".pdf");
    fs::create_symlink(company.path(), symbolic.path());
    fs::create_hard_link(company.path(), hard.path());
    const std::string spelled =
        fs::path(company.path()).parent_path().string() + "/./" + fs::path(company.path()).filename().string();
    for (const std::string& target : {company.path(), spelled, symbolic.path(), hard.path(), company.path() + "-wal",
                                      company.path() + "-journal"}) {
        for (const char* option : {"-o", "--trace-sql", "--comparable"}) {
            const auto outcome = run({option, target, "--format", "json"});
            EXPECT_EQ(outcome.status, 2) << option << ' ' << target;
            EXPECT_NE(outcome.err.find(target + " would be written over "), std::string::npos) << outcome.err;
        }
        EXPECT_EQ(program({"drill", "CUS|1", "--company", company.path(), "--format", "pdf", "-o", target}).status, 2);
        EXPECT_EQ(program({"compare", company.path(), company.path(), "-o", target}).status, 2);
    }
    EXPECT_TRUE(bytesOf(company.path()) == before);
    EXPECT_EQ(run({"-o", twice.path(), "--trace-sql", twice.path()}).status, 2);
    EXPECT_FALSE(fs::exists(twice.path()));
    EXPECT_FALSE(fs::exists(company.path() + "-wal"));
}

// Nor where the company is told by a link, nor over another database, nor where a picture's pages would lie.
TEST_F(Program, WritesNothingOverADatabaseNorOneOverAnotherOutput) {
    namespace fs = std::filesystem;
    const TemporaryFile link(".db"), other(".db"), dangling(".pdf"), pages("-1.png");
    fs::create_symlink(company.path(), link.path());
    fs::create_symlink(company.path() + "-wal", dangling.path());
    ASSERT_EQ(program({"new", other.path()}).status, 0);
    fs::copy_file(company.path(), pages.path());
    const std::string picture = pages.path().substr(0, pages.path().size() - 6) + ".png";
    const auto refused = [](const std::vector<std::string>& arguments) { return program(arguments).status == 2; };
    const auto onto = [&](const std::string& company_, const std::string& output) {
        return refused({"run", "TermList", "--company", company_, "--format", "json", "-o", output});
    };
    EXPECT_TRUE(onto(link.path(), company.path() + "-shm")) << "the database lies where the link leads";
    EXPECT_TRUE(onto(company.path(), dangling.path()));
    EXPECT_TRUE(onto(company.path(), other.path()));
    EXPECT_TRUE(onto(company.path(), other.path() + "-journal"));
    EXPECT_TRUE(refused({"run", "TermList", "--company", pages.path(), "-o", picture}));
    EXPECT_TRUE(refused({"new", company.path() + "-wal"}));
    EXPECT_TRUE(refused({"demo", company.path() + "-journal"}));
    const TemporaryFile orphan(".db");
    std::ofstream(orphan.path() + "-wal") << "of a company that was here";
    EXPECT_TRUE(refused({"new", orphan.path()}));
    const TemporaryFile folder("");
    fs::create_directory(folder.path());
    const std::string inside = folder.path() + "/TermList.pdf";
    fs::copy_file(company.path(), inside);
    EXPECT_TRUE(refused({"run", "--all", "--company", inside, "-o", folder.path()}));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1) << "before the first is printed";
    fs::remove_all(folder.path());
}

TEST_F(Program, LeavesAFileOfTheUsersBesideANewCompany) {
    const TemporaryFile made;
    const std::string own = made.path() + ".part";
    std::ofstream(own) << "mine";
    EXPECT_EQ(program({"demo", made.path()}).status, 0);
    EXPECT_EQ(bytesOf(own), "mine");
    std::filesystem::remove(own);
}

TEST_F(Program, TracesWhatTheReportAsked) {
    const TemporaryFile trace(".jsonl");
    EXPECT_EQ(run({"--where", "Due = 30", "--trace-sql", trace.path()}).status, 0);
    std::ifstream input(trace.path());
    std::string line;
    ASSERT_TRUE(std::getline(input, line));
    EXPECT_EQ(nlohmann::json::parse(line)["text"],
              "SELECT InTermId, TermId, Descr, TermMode, Due, DiscPercent, DiscDelay, DueNxtMonth FROM Term WHERE "
              "(Term.Due = 30)  ORDER BY Descr");
}

TEST_F(Program, RefusesWhatCannotBeInOneLineAndWritesNothing) {
    const struct {
        std::vector<std::string> arguments;
        int status;
        const char* says;
    } cases[] = {
        {{"run", "NoSuchList", "--company", company.path()}, 2, "there is no report \"NoSuchList\""},
        {{"run", "TermList"}, 2, "--company is required"},
        {{"run", "TermList", "--company", "/nowhere/c.db"}, 3, "/nowhere/c.db"},
        {{"run", "TermList", "--company", company.path(), "--frm", "x"}, 2, "--frm"},
        {{"run", "TermList", "--company", company.path(), "--from", "2024-02-30"},
         2,
         "--from is a date such as 2024-12-31, not \"2024-02-30\""},
        {{"run", "TermList", "--company", company.path(), "--from", "2024-02-01", "--to", "2024-01-01"},
         2,
         "--from is later than --to"},
        {{"run", "TermList", "--company", company.path(), "--to", "2024-02-01"}, 2, "TermList takes no --to"},
        {{"run", "CustAgingGraphic", "--company", company.path(), "--from", "2024-02-01"}, 2, "takes no --from"},
        {{"run", "OpenOrders", "--company", company.path(), "--from", ""}, 2, "--from: takes a value, not nothing"},
        {{"run", "OpenOrders", "--company", company.path(), "--to", "0099-01-01"}, 2, "--to is a date"},
        {{"run", "OpenOrders", "--company", company.path(), "--resolution", "nan"}, 2, "not \"nan\""},
        {{"run", "OpenOrders", "--company", company.path(), "--set", "InvoiceType=1.5"}, 2, "not a whole number"},
        {{"run", "OpenOrders", "--company", company.path(), "--option", "chkIncludeZroOrders=1"},
         2,
         "(did you mean chkIncludeZeroOrders?)"},
        {{"run", "SalesJournalSummary", "--company", company.path(), "--segments", "1 2"}, 2, "ids joined by commas"},
        {{"run", "SalesJournalSummary", "--company", company.path(), "--segments", "1,2,"}, 2, "ids joined by commas"},
        {{"run", "OpnOrders", "--company", company.path()}, 2, "(did you mean OpenOrders?)"},
        {{"run", "OpenOrders", "--compny", company.path()}, 2, "(did you mean --company?)"},
        {{"rum", "OpenOrders"}, 2, "there is no command \"rum\" (did you mean run?)"},
        {{"run", "OpenOrders", "--company", company.path(), "--language", "/dev/zero"}, 2, "/dev/zero is not a file"},
        {{"run", "TermList", "--company", company.path(), "--max-pages", "0"}, 2, "--max-pages"},
        {{"run", "TermList", "--company", company.path(), "--trace-sql", "/dev/full", "-o", "/dev/null", "--format",
          "json"},
         1,
         "Cannot write /dev/full"},
        {{"demo", "/nowhere/c.db", "--seed", "-1"}, 2, "--seed: takes a whole number"},
        {{"compare", "/tmp", "/tmp"}, 2, "there is no such file"},
        {{"run", "TermList", "--company", "/tmp"}, 3, "/tmp is not a file"},
        {{"run", "TermList", "--company", company.path(), "--where", "Name = 'x'"}, 2, "Name"},
        {{"run", "TermList", "--company", company.path(), "--where", "Due = 1; DROP TABLE Term"}, 2, ";"},
        {{"run", "TermList", "--company", company.path(), "--where", "Descr = 'x"}, 2, "'x"},
        {{"run", "TermList", "--company", company.path(), "--set", "InvoiceType=51"},
         2,
         "dsrTermList has no property \"InvoiceType\""},
        {{"run", "TermList", "--company", company.path(), "--option", "chkIncludeKit=true"},
         2,
         "TermList has no options"},
        {{"run", "OpenOrders", "--company", company.path(), "--option", "chkIncludeKit=true"},
         2,
         "there is no option \"chkIncludeKit\"; the form has chkIncludeZeroOrders"},
        {{"run", "OpenOrders", "--company", company.path(), "--option", "chkIncludeZeroOrders=maybe"},
         2,
         "is true or false"},
        {{"run", "TermList", "--company", company.path(), "--segments", "1"}, 2, "does not select segments"},
        {{"run", "TermList", "--company", company.path(), "--rate", "USD=1.3"}, 2, "does not re-evaluate"},
        {{"run", "TermList", "--company", company.path(), "--format", "pdf"}, 2, "needs a file"},
        {{"run", "TermList", "--company", company.path(), "-o", "x.xlsx"}, 2, "comes with a later version"},
        {{"run", "TermList", "--company", company.path(), "-o", "x.doc"}, 2, "there is no format \"doc\""},
        {{"run", "TermList", "--company", company.path(), "-o", "/nowhere/x.pdf"}, 2, "/nowhere/x.pdf"},
        {{"run", "TermList", "--company", company.path(), "--language", "xx"}, 2, "xx"},
        {{"run", "TermList", "--company", company.path(), "--dialect", "oracle"}, 2, "--dialect is sqlserver or jet"},
        {{"new", company.path()}, 2, "is there already"},
        {{"demo", company.path()}, 2, "is there already"},
        {{"demo", "/nowhere/c.db", "--language", "de"}, 2, "--language of the demo company is en or fr"},
        {{"check", "/nowhere/c.db"}, 3, "there is no such file"},
    };
    for (const auto& [arguments, status, says] : cases) {
        const auto outcome = program(arguments);
        EXPECT_EQ(outcome.status, status) << outcome.err;
        EXPECT_NE(outcome.err.find(says), std::string::npos) << outcome.err;
        EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
        EXPECT_EQ(outcome.out, "") << outcome.out;
    }
    EXPECT_FALSE(std::filesystem::exists("x.xlsx") || std::filesystem::exists("x.doc"));
}

TEST_F(Program, ACompanyNamesNoPathAsItsLanguage) {
    for (const char* language : {"/dev/zero", "../fr", "", "./ids.txt"}) {
        sqlite::Database(company.path(), sqlite::Open::readWrite)
            .execute(std::string("UPDATE CompanyFact SET Value = '") + language + "' WHERE Name = 'Language'");
        EXPECT_EQ(run({}).status, 3) << language;
        EXPECT_EQ(run({"--language", "fr"}).status, 0);
    }
}

TEST_F(Program, ATerminalIsNotCommandedByACompany) {
    sqlite::Database database(company.path(), sqlite::Open::readWrite);
    database.execute(
        "CREATE TABLE \"\x1B[2J\" (a); DROP TABLE Country; UPDATE CompanyFact SET Value = 'x\u202E\x1B[31m' "
        "WHERE Name = 'HomeCurrencyId'");
    for (const auto& outcome : {run({}), program({"check", company.path()}), run({"--from", "\x1B[2J"})}) {
        EXPECT_NE(outcome.status, 0);
        EXPECT_EQ((outcome.out + outcome.err).find_first_of("\x1B\x07\x7F"), std::string::npos) << outcome.err;
        EXPECT_EQ(outcome.err.find("\u202E"), std::string::npos) << outcome.err;
    }
}

TEST_F(Program, TakesANameForAName) {
    std::filesystem::copy_file(company.path(), "file:words-test.db");
    EXPECT_EQ(program({"check", "file:words-test.db"}).status, 0);
    EXPECT_EQ(program({"check", "file:words-test.db?mode=memory"}).status, 3);
    std::filesystem::remove("file:words-test.db");
}

TEST_F(Program, MakesADemoCompanyWhoseWordsAreFrench) {
    const TemporaryFile french;
    ASSERT_EQ(program({"demo", french.path(), "--language", "fr"}).status, 0);
    const auto terms = program({"run", "TermList", "--company", french.path(), "--format", "json"});
    EXPECT_EQ(terms.status, 0) << terms.err;
    EXPECT_NE(terms.out.find("Payable à la livraison"), std::string::npos);
    EXPECT_EQ(program({"check", french.path(), "--books"}).status, 0);
}

TEST_F(Program, ShowsFailuresAndEndsWithStatusOne) {
    const TestCompany wrong(
        "INSERT INTO Cust (InCustId, CustId) VALUES (1, 'A'); INSERT INTO InvoiHdr (InInvoiId, "
        "InvoiType, ExCustId, InvoiDate, RecDate, TotAmnt) VALUES (1, 51, 1, '2024-01-01', "
        "'2024-01-01', 'much')");
    const auto outcome = program({"run", "OpenOrders", "--company", wrong.path()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err.find("quillo: Type mismatch: \"much\" is not a number in Quillo.dsrOpenOrders."), 0U)
        << outcome.err;
}

TEST_F(Program, EndsWithStatusThreeWhereTheCompanyIsToBlame) {
    sqlite::Database database(company.path(), sqlite::Open::readWrite);
    database.execute("ALTER TABLE Term DROP COLUMN Due");
    const auto outcome = run({"--format", "json"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_NE(outcome.err.find("The company file " + company.path() + " is damaged or lacks what the report asks"),
              std::string::npos)
        << outcome.err;
    EXPECT_NE(outcome.err.find("no such column: Due in Quillo.dsrTermList.ActiveReport_ReportStart at line"),
              std::string::npos)
        << outcome.err;
    const auto json = nlohmann::json::parse(outcome.out);
    ASSERT_EQ(json["failures"].size(), 1U);
    ASSERT_EQ(json["pages"].size(), 2U);
    EXPECT_EQ(json["pages"][0]["sections"].back()["controls"].at(0)["text"], "0 payment term(s)");
    EXPECT_EQ(json["pages"][1]["sections"].at(0)["controls"].at(0)["text"], "Failures of this report");
}

TEST_F(Program, WritesAReportWithFailuresUnlessItIsStrict) {
    sqlite::Database(company.path(), sqlite::Open::readWrite).execute("ALTER TABLE Term DROP COLUMN Due");
    const TemporaryFile folder("");
    std::filesystem::create_directory(folder.path());
    for (const char* name : {"a.pdf", "a.png", "a.json", "TermList.pdf"}) {
        const std::string path = folder.path() + "/" + name;
        std::ofstream(path) << "before";
        const bool all = std::string_view(name).starts_with("Term");
        std::vector<std::string> arguments = {"--company", company.path(), "--strict", "-o",
                                              all ? folder.path() : path};
        arguments.insert(arguments.begin(), {"run", all ? "--all" : "TermList"});
        const auto strict = program(arguments);
        EXPECT_EQ(strict.status, 3);
        EXPECT_NE(strict.err.find("quillo: nothing was written, since the report has failures\n"), std::string::npos)
            << strict.err;
        EXPECT_EQ(bytesOf(path), "before");
    }
    EXPECT_TRUE(std::filesystem::exists(folder.path() + "/CustList.pdf")) << "what has no failures is written";
    EXPECT_EQ(run({"--strict", "--format", "json"}).out, "");
    EXPECT_EQ(run({"-o", folder.path() + "/a.pdf"}).status, 3);
    EXPECT_TRUE(bytesOf(folder.path() + "/a.pdf").starts_with("%PDF-"));
    std::filesystem::remove_all(folder.path());
}

TEST_F(Program, TellsWhatTheOutputsOwnThreadMet) {
    const auto full = run({"--format", "pdf", "-o", "/dev/full"});
    EXPECT_EQ(full.status, 1);
    EXPECT_EQ(full.err, "quillo: Cannot write /dev/full: No space left on device\n");
    sqlite::Database(company.path(), sqlite::Open::readWrite)
        .execute("UPDATE Term SET Descr = 'Net \xF3\xA0\x82\x80\xF3\xA0\x82\x80'");  // U+E0080, which no font has
    const TemporaryFile pdf(".pdf");
    const auto outcome = run({"-o", pdf.path()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.err.starts_with("quillo: No installed font has U+E0080 (")) << outcome.err;
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << "once, whatever asks for it";
    EXPECT_GT(std::filesystem::file_size(pdf.path()), 1000U) << "a box stands for the character";
}

TEST_F(Program, MakesAndChecksCompanies) {
    const TemporaryFile made;
    EXPECT_EQ(program({"new", made.path()}).status, 0);
    EXPECT_EQ(program({"check", made.path()}).status, 0);
    EXPECT_EQ(program({"run", "CustList", "--company", made.path()}).status, 0);
    sqlite::Database(made.path(), sqlite::Open::readWrite).execute("ALTER TABLE Cust DROP COLUMN Fax");
    const auto lacking = program({"check", made.path()});
    EXPECT_EQ(lacking.status, 3);
    EXPECT_NE(lacking.out.find("Fax"), std::string::npos) << lacking.out;
}

TEST_F(Program, HelpTeaches) {
    const auto help = program({"run", "OpenOrders", "--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("--set InvoiceType="), std::string::npos) << help.out;
    EXPECT_NE(help.out.find("--option chkIncludeZeroOrders=true|false  Include orders at zero"), std::string::npos);
    EXPECT_NE(help.out.find("InvoiHdr, Cust, WorldCurrency"), std::string::npos);
    const auto list = program({"list", "--language", "fr"});
    EXPECT_NE(list.out.find("Liste des clients"), std::string::npos) << list.out;
    EXPECT_NE(list.out.find("SalesStatistic"), std::string::npos);
}

}  // namespace
}  // namespace quillo::test
