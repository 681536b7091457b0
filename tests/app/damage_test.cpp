#include <fstream>

#include "tests/app/program_run.h"
#include "tests/support/dice.h"
#include "tests/support/member_runs.h"

namespace quillo::test {
namespace {

bool hasControl(const std::string& lines) {
    return std::any_of(lines.begin(), lines.end(),
                       [](char c) { return (c >= 0 && c < ' ' && c != '\n') || c == 0x7F; });
}

// Whatever happened to a file, the program ends as it promises and tells the path of what it cannot read.
void expectPromises(const std::string& path, const std::string& member) {
    const auto run = program({"run", member, "--company", path, "--format", "json"});
    const auto check = program({"check", path});
    EXPECT_TRUE(run.status == 0 || run.status == 1 || run.status == 3) << run.status << run.err;
    EXPECT_TRUE(check.status == 0 || check.status == 3) << check.status << check.err;
    EXPECT_FALSE(hasControl(run.err + check.err + check.out)) << run.err << check.out;
    for (const Outcome& outcome : {run, check}) {
        EXPECT_TRUE(outcome.status != 3 || outcome.err.find(path) != outcome.err.npos) << outcome.err;
    }
}

TEST(Damage, OfBytesEndsAsPromised) {
    const GoldenCompany whole;
    const std::string bytes = fileText(whole.path());
    const auto members = writtenMembers();
    Dice dice(7);
    int damaged = 0;
    for (int i = 0; i < 60; ++i) {
        SCOPED_TRACE("round " + std::to_string(i));
        std::string broken = bytes;
        const int last = static_cast<int>(bytes.size()) - 1;
        if (i % 5 == 0) broken.resize(static_cast<std::size_t>(dice.between(0, last)));
        for (int k = dice.between(0, 40); k > 0 && !broken.empty(); --k)
            broken[static_cast<std::size_t>(dice.between(0, static_cast<int>(broken.size()) - 1))] =
                static_cast<char>(dice.between(0, 255));
        const TemporaryFile file;
        file.write(broken);
        expectPromises(file.path(),
                       members[static_cast<std::size_t>(dice.between(0, static_cast<int>(members.size()) - 1))]);
        damaged += program({"check", file.path()}).status == 3;
    }
    EXPECT_GT(damaged, 20) << "most damage is found";
}

TEST(Damage, OfValuesIsFoundByTheirColumn) {
    Dice dice(11);
    const auto members = writtenMembers();
    for (int i = 0; i < 40; ++i) {
        const GoldenCompany company;
        const Catalogue catalogue = CompanyFile(company.path()).catalogue();
        const auto table =
            dice.oneOf<std::string>({"InvoiHdr", "InvoiDet", "PmtHdr", "PmtDet", "GLDet", "Cust", "InvenDet"});
        const auto& columns = catalogue.columns(table);
        const std::string column =
            columns[static_cast<std::size_t>(dice.between(1, static_cast<int>(columns.size()) - 1))];
        const auto value = dice.oneOf<std::string>({"'\x1B[2J'", "x'00FF'", "9e999", "'2024-02-30'", "-9.9e18"});
        const bool fits =
            catalogue.type(table, column).starts_with("TEXT") || catalogue.type(table, column).starts_with("TIME");
        SCOPED_TRACE(table + "." + column + " = " + value);
        sqlite::Database(company.path(), sqlite::Open::readWrite)
            .execute("PRAGMA ignore_check_constraints = ON; UPDATE " + table + " SET " + column + " = " + value);
        expectPromises(company.path(),
                       members[static_cast<std::size_t>(dice.between(0, static_cast<int>(members.size()) - 1))]);
        const auto check = program({"check", company.path()});
        EXPECT_EQ(check.out.find("column " + table + "." + column + ": ") != check.out.npos,
                  !fits || value == "x'00FF'")
            << check.out;
    }
}

}  // namespace
}  // namespace quillo::test
