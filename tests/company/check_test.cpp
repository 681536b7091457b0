#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "host/check/books_check.h"
#include "host/check/company_check.h"
#include "host/database/company_schema.h"
#include "tests/company/demo_file.h"

namespace quillo {
namespace {

using sqlite::Database;
using sqlite::Open;

// The schema with a text replaced, as a company of its own in memory.
std::vector<std::string> lacksOf(const std::string& from, const std::string& to) {
    std::string schema(companySchema());
    const auto at = schema.find(from);
    if (at == std::string::npos) return {"no such text: " + from};
    schema.replace(at, from.size(), to);
    Database company(":memory:", Open::create);
    company.execute(schema);
    return checkCompany(company);
}

TEST(CompanyCheck, TellsWhatAFileLacks) {
    using Lines = std::vector<std::string>;
    EXPECT_EQ(lacksOf("Frontier", ""), Lines{"no such text: Frontier"});
    EXPECT_EQ(lacksOf("  ICDTime              TIME TEXT,\n", ""), Lines{"column InvoiCashDeposit.ICDTime is missing"});
    EXPECT_EQ(lacksOf("CREATE TABLE Country (", "CREATE TABLE Countries ("), Lines{"table Country is missing"});
    EXPECT_EQ(lacksOf("CREATE VIEW ItemSoldUnits_View", "CREATE VIEW Other_View"),
              Lines{"view ItemSoldUnits_View is missing"});
    EXPECT_EQ(lacksOf(" AS TotalUnitsSold", " AS Units"), Lines{"column ItemSoldUnits_View.TotalUnitsSold is missing"});
    EXPECT_EQ(lacksOf("('Country', 'CA'), ", ""), Lines{"the company's Country is missing from CompanyFact"});
    EXPECT_EQ(lacksOf("PRAGMA user_version = 1;", "PRAGMA user_version = 9;"),
              Lines{"the company is of version 9, this program reads version 1"});
    EXPECT_EQ(lacksOf("CREATE TABLE Country (", "CREATE TABLE Extra (Own TEXT); CREATE TABLE COUNTRY ("), Lines{})
        << "more than the schema, or other capitals, is no lack";
    const std::string own =
        "CREATE TABLE TextOverride (Language TEXT, Id INTEGER, Text TEXT); INSERT INTO TextOverride ";
    EXPECT_EQ(lacksOf("CREATE TABLE TextOverride (",
                      own + "VALUES ('en', 5, 'a'), ('fr', 5, 'b'), ('fr', 5, 'c'), ('en', NULL, 'd'), ('en', 5, NULL);"
                            "CREATE TABLE Unused ("),
              (Lines{"TextOverride has a text in en without a number", "TextOverride words the text 5 in fr 2 times"}));
}

TEST(CompanyCheck, CountsValuesThatAreNotOfTheirColumn) {
    const test::DemoFile demo;
    Database company(demo.path(), Open::readWrite);
    company.execute(
        "PRAGMA ignore_check_constraints = ON; UPDATE PmtDet SET PmtAmnt = 'x' WHERE InPmtDetId IN (41, 40);"
        "UPDATE Cust SET CreditLim = x'01', Name = x'02' WHERE InCustId = 3;"
        "UPDATE ProjInfo SET BegDate = '2024-2-1' WHERE InProjId = 1");
    auto lacks = checkCompany(Database(demo.path(), Open::readOnly));
    std::ranges::sort(lacks);
    EXPECT_EQ(lacks,
              (std::vector<std::string>{"column Cust.CreditLim: 1 value is not an amount; the first at InCustId 3",
                                        "column Cust.Name: 1 value is not a text; the first at InCustId 3",
                                        "column PmtDet.PmtAmnt: 2 values are not an amount; the first at "
                                        "InPmtDetId 40",
                                        "column ProjInfo.BegDate: 1 value is not a date; the first at InProjId "
                                        "1"}));
}

TEST(CompanyCheck, AnIndexThatLostItsRowsIsToldInWords) {
    const test::DemoFile demo;
    Database company(demo.path(), Open::readWrite);
    company.execute(
        "CREATE INDEX Lost ON Cust (Tel1); PRAGMA writable_schema = ON; "
        "UPDATE sqlite_schema SET sql = 'CREATE INDEX Lost ON Cust (Tel2)' WHERE name = 'Lost'");
    const auto lacks = checkCompany(Database(demo.path(), Open::readOnly));
    ASSERT_FALSE(lacks.empty());
    EXPECT_EQ(lacks[0].find("an index does not agree with its table, and reports may miss rows"), 0U) << lacks[0];
}

TEST(BooksCheck, TellsASumThatCannotBeMade) {
    const test::DemoFile demo;
    Database company(demo.path(), Open::readWrite);
    company.execute("UPDATE GLDet SET DetAmnt = 9e14; UPDATE PmtDet SET PmtDisc = 'x' WHERE InPmtDetId = 40");
    const auto lines = checkBooks(company);
    const auto failureOf = [&](const char* name) {
        return std::ranges::find(lines, std::string(name), &BooksLine::name)->failure;
    };
    EXPECT_EQ(failureOf("Trial balance: debits; credits"), "Overflow: the sum is too large");
    EXPECT_EQ(failureOf("Payments: discounts; lines"), "Type mismatch: \"x\" is not a number");
    EXPECT_EQ(failureOf("Documents: net amounts; lines"), "");
}

TEST(CompanyCheck, NamesAFileThatIsNoCompany) {
    const test::TemporaryFile empty, text, half;
    const test::DemoFile whole;
    text.write(std::string(5000, 'x'));
    std::ifstream file(whole.path(), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    half.write(std::string_view(bytes).substr(0, bytes.size() / 2));
    EXPECT_EQ(checkCompany(Database(empty.path(), Open::create)),
              std::vector<std::string>{"the file is empty: it has no tables"});
    for (const auto* damaged : {&text, &half}) {
        const auto lacks = checkCompany(Database(damaged->path(), Open::readOnly));
        ASSERT_EQ(lacks.size(), 1u);
        EXPECT_EQ(lacks[0].find("the file is damaged"), 0u) << lacks[0];
    }
}

// Each slip in the books shows in the line that is about it.
TEST(BooksCheck, FindsTheSlip) {
    const test::DemoFile demo;
    Database company(demo.path(), Open::readWrite);
    struct Case {
        const char* slip;
        const char* line;
    };
    // clang-format off
    const Case cases[] = {
        {"UPDATE GLDet SET DetAmnt = DetAmnt + 0.01 WHERE InGLDetId = 700", "Transactions; those in balance"},
        {"DELETE FROM GLDet WHERE InGLDetId = 900", "Trial balance: debits; credits"},
        {"UPDATE PmtDet SET PmtAmnt = PmtAmnt - 0.01 WHERE InPmtDetId = 40", "Payments: amounts; lines"},
        {"UPDATE PmtDet SET PmtDisc = PmtDisc + 1 WHERE InPmtDetId = 40", "Payments: discounts; lines"},
        {"UPDATE InvoiHdr SET ExchangeRate = ExchangeRate + 0.01 WHERE ExCurrencyId = 2 AND InvoiType = 1", "Receivables USD: accounts; open documents and adjustments"},
        {"UPDATE GLDet SET ForeignAmnt = 0 WHERE ExAcctId = 7 AND Source = 'PMT'", "Receivables EUR in that currency"},
        {"UPDATE GLDet SET ARAPAdjustmentEntry = 0", "Receivables CAD: accounts; open documents and adjustments"},
        {"UPDATE PmtDet SET PmtAmnt = PmtAmnt * 3 WHERE PmtAmnt > 0", "Documents; those settled within their total, or overpaid by one payment"},
        {"UPDATE PmtDet SET PmtDisc = PmtDisc * 60 WHERE PmtDisc > 0", "Documents; those settled within their total, or overpaid by one payment"},
        {"UPDATE PmtDet SET PmtAmnt = PmtAmnt * 9 WHERE ExInvoiId IS NULL AND PmtAmnt < 0", "Payments on account; those not used beyond their amount"},
        {"DELETE FROM PmtDet WHERE ExInvoiId IS NULL", "Receivables CAD: accounts; open documents and adjustments"},
        {"UPDATE PmtHdr SET ExchangeRate = ExchangeRate + 1 WHERE InPmtId IN (SELECT ExPmtId FROM PmtDet WHERE ExInvoiId IS NULL)", "Receivables CAD: accounts; open documents and adjustments"},
        {"DELETE FROM InvoiRecDet WHERE RecAmnt < 0", "Cash by documents: accounts; receipts"},
        {"DELETE FROM InvoiRecDet WHERE RecAmnt < 0", "Registers: received by header; by method"},
        {"UPDATE PmtHdr SET PmtTotAmnt = 0 WHERE InPmtId = (SELECT MAX(InPmtId) FROM PmtHdr WHERE PmtTotAmnt <> 0)", "Cash by payments: accounts; payments"},
        {"UPDATE DepDet SET RecExSrcKeyVal = NULL WHERE InDepDetId = 5", "Cash by deposits: accounts; receipts without document"},
        {"UPDATE GLAcct SET ChqAcct = 0 WHERE GLAcctId = '1010'", "Cash by sales taxes: accounts; returns"},
        {"UPDATE InvoiHdr SET ShipAmnt = 0", "Documents: totals; net, freight and taxes"},
        {"DELETE FROM InvoiDet WHERE InInvoiDetId = (SELECT MIN(InInvoiDetId) FROM InvoiDet WHERE BaseRowTotal > 0)", "Documents: net amounts; lines"},
        {"DELETE FROM InvenDet WHERE InTrxId = 1000", "Stock: counts after the last movement; movements"},
        {"UPDATE InvoiDet SET QtyScrap = 0 WHERE QtyScrap > 0", "Stock sold: movements; document lines"},
        {"UPDATE AssemblyDet SET Qty = Qty + 1 WHERE InAssemblyDetId = 3", "Assemblies: components used; lines"},
        {"DELETE FROM AssemblyHdr WHERE Id = (SELECT MIN(Id) FROM AssemblyHdr)", "Assemblies: products made; headers"},
        {"UPDATE InvenDet SET CostAmnt = 0 WHERE InTrxId = 3000", "Stock value: accounts; movements"},
    };
    // clang-format on
    for (const auto& one : cases) {
        company.execute("BEGIN");
        company.execute(one.slip);
        const auto lines = checkBooks(company);
        const auto line = std::ranges::find(lines, std::string(one.line), &BooksLine::name);
        ASSERT_NE(line, lines.end()) << one.line;
        EXPECT_FALSE(line->ok()) << one.slip;
        company.execute("ROLLBACK");
    }
}

}  // namespace
}  // namespace quillo
