#include <gtest/gtest.h>

#include <set>

#include "tests/app/program_run.h"
#include "tests/host/test_company.h"
#include "tests/output/output_files.h"

namespace quillo::test {
namespace {

// Two customers with the same code but for what a file's name cannot hold, one of them with documents over two pages.
std::string trade() {
    std::string rows =
        "UPDATE CompanyFact SET Value = 'Quay Ltd' WHERE Name = 'Name';"
        "INSERT INTO Cust (InCustId, CustId, Name) VALUES (1, 'A/1', 'Ash'), (2, 'a_1', 'Birch & Sons'), (3, '3', "
        "'Cedar');"
        "INSERT INTO Addr (InAddrId, ExCustId, AddrKind, AddrName, AddrLine1) VALUES (1, NULL, 0, 'Quay Ltd', '9 "
        "Quay');"
        "INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, DueDate, ExCustId, ExCurrencyId, TotAmnt) "
        "VALUES"
        " (1, 'F1', 1, '2024-01-01', '2024-01-11', 1, 1, 100.5), (2, 'F2', 1, '2024-02-20', '2024-02-25', 3, 1, 7)";
    for (int i = 100; i < 140; ++i)
        rows += ", (" + std::to_string(i) + ", 'B" + std::to_string(i) + "', 1, '2024-01-01', '2024-01-11', 2, 1, 10)";
    return rows;
}

class LettersCommand : public testing::Test {
protected:
    const TestCompany company{trade()};
    const TestFolder folder;

    Outcome letters(const std::vector<std::string>& more) const {
        std::vector<std::string> arguments = {"letters", "--company", company.path(), "--to", "2024-03-01"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return program(arguments);
    }
    std::string textOf(const std::string& name) const { return run("pdftotext -layout " + folder.file(name) + " -"); }
    std::string write(const std::string& name, const std::string& text) const {
        std::ofstream(folder.file(name), std::ios::binary) << text;
        return folder.file(name);
    }
};

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != text.npos;
}

TEST_F(LettersCommand, WritesALetterForEachCustomerWhoOwesThatLong) {
    const auto outcome = letters({"--min-days", "30", "-o", folder.file("")});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, folder.file("A_1.pdf") + "\n" + folder.file("a_1-2.pdf") + "\n");
    EXPECT_EQ(folder.count(), 2U);
    const std::string ash = textOf("A_1.pdf"), birch = textOf("a_1-2.pdf");
    for (const char* part : {"9 Quay", "Ash", "$100.50", "50 days", "F1", "2024-01-11", "Page 1 of 1"})
        EXPECT_TRUE(contains(ash, part)) << part << "\n" << ash;
    EXPECT_FALSE(contains(ash, "Birch"));
    EXPECT_TRUE(contains(birch, "$400.00")) << birch;
    EXPECT_TRUE(contains(birch, "Page 2 of "));
    for (int i = 100; i < 140; ++i) EXPECT_TRUE(contains(birch, "B" + std::to_string(i))) << i;
    EXPECT_NE(birch.find("Due date"), birch.rfind("Due date")) << "the captions stand again on the second page";
    EXPECT_EQ(letters({"--min-days", "3", "-o", folder.file("")}).status, 0);
    EXPECT_EQ(folder.count(), 3U) << "Cedar is five days late";
}

TEST_F(LettersCommand, TakesATemplateALogoAndALanguage) {
    const std::string own = write("own.rtf", "{\\rtf1 Bonjour \\{Name\\}\\par\\{Document.Number\\}\\par}");
    const std::string logo = std::string(QUILLO_SOURCE) + "/host/letters/logo.png";
    EXPECT_EQ(letters({"--template", own, "--no-address", "-o", folder.file("")}).status, 0);
    EXPECT_TRUE(contains(textOf("A_1.pdf"), "Bonjour Ash"));
    EXPECT_FALSE(contains(textOf("A_1.pdf"), "9 Quay"));
    EXPECT_FALSE(contains(run("pdfimages -list " + folder.file("A_1.pdf")), "image "));
    EXPECT_EQ(letters({"--language", "fr", "--locale", "fr_CA", "--logo", logo, "-o", folder.file("")}).status, 0);
    EXPECT_TRUE(contains(textOf("A_1.pdf"), "100,50")) << textOf("A_1.pdf");
    EXPECT_TRUE(contains(textOf("A_1.pdf"), "Solde de votre compte"));
    EXPECT_TRUE(contains(run("pdfimages -list " + folder.file("A_1.pdf")), "image "));
}

TEST_F(LettersCommand, RefusesBeforeItWritesAnything) {
    const std::string bad = write("bad.rtf", "{\\rtf1 \\{Nmae\\}}"), text = write("plain.txt", "Dear {Name}");
    const std::string target = folder.file("");
    const struct {
        std::vector<std::string> arguments;
        int status;
        const char* says;
    } cases[] = {
        {{"--template", bad, "-o", target}, 2, "there is no field {Nmae}"},
        {{"--template", text, "-o", target}, 2, "plain.txt: it is no RTF"},
        {{"--template", folder.file("none.rtf"), "-o", target}, 2, "none.rtf does not exist"},
        {{"--logo", folder.file("none.png"), "-o", target}, 2, "none.png"},
        {{"--logo", text, "-o", target}, 2, "neither PNG nor JPEG"},
        {{"-o", folder.file("none")}, 2, "none does not exist"},
        {{}, 2, "--output"},
        {{"--min-days", "-1", "-o", target}, 2, "--min-days"},
        {{"--min-days", "51", "-o", target}, 1, "no customer has a balance that is past due by 51 days on 2024-03-01"},
    };
    for (const auto& c : cases) {
        const auto outcome = letters(c.arguments);
        EXPECT_EQ(outcome.status, c.status) << c.says;
        EXPECT_TRUE(contains(outcome.err, c.says)) << outcome.err;
        EXPECT_EQ(outcome.out, "");
    }
    EXPECT_EQ(folder.count(), 2U);
    EXPECT_EQ(program({"letters", "--company", "/nowhere/c.db", "-o", target}).status, 3);
    EXPECT_EQ(program({"letters", "--company", company.path(), "--to", "2024-02-30", "-o", target}).status, 2);
}

TEST_F(LettersCommand, WritesNoLetterOverItsTemplate) {
    const std::string own = write("3.pdf", "{\\rtf1 Dear {Name}}");
    const auto outcome = letters({"--template", own, "--min-days", "1", "-o", folder.file("")});
    EXPECT_EQ(outcome.status, 2) << outcome.err;
    EXPECT_EQ(folder.count(), 1U) << "before the first is written";
}

}  // namespace
}  // namespace quillo::test
