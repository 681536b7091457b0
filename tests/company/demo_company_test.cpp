#include "demo/demo_company.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "host/check/books_check.h"
#include "host/check/company_check.h"
#include "tests/company/demo_file.h"

namespace quillo {
namespace {

using sqlite::Database;
using sqlite::Open;
using test::DemoFile;
using test::TemporaryFile;

std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(DemoCompany, BooksBalanceAtEveryScale) {
    std::int64_t documents = 0;
    for (const int scale : {1, 3}) {
        const DemoFile demo(scale);
        Database company(demo.path(), Open::readOnly);
        const auto count = company.integer("SELECT COUNT(*) FROM InvoiHdr");
        EXPECT_GT(count, documents * 5 / 2) << "the scale multiplies the documents";
        documents = count;
        EXPECT_EQ(checkCompany(company), std::vector<std::string>{});
        const auto lines = checkBooks(company);
        EXPECT_EQ(lines.size(), 23u);
        for (const auto& line : lines) {
            EXPECT_EQ(line.left.toText(), line.right.toText()) << line.name << " at scale " << scale;
            EXPECT_FALSE(line.left.isZero()) << line.name << " compares nothing";
        }
    }
}

TEST(DemoCompany, TheSeedAloneDecidesTheBytes) {
    const DemoFile first(1, 7), again(1, 7), other(1, 8);
    EXPECT_TRUE(bytesOf(first.path()) == bytesOf(again.path()));
    EXPECT_FALSE(bytesOf(first.path()) == bytesOf(other.path()));
}

// Rows of a kind, and how many of them there are at least, so that a page shows them.
struct Case {
    const char* what;
    int least;
    const char* rows;
};

void expectCases(Database& company, std::initializer_list<Case> cases) {
    for (const Case& one : cases)
        EXPECT_GE(company.integer(std::string("SELECT COUNT(*) FROM ") + one.rows), one.least) << one.what;
}

TEST(DemoCompany, HoldsWhatListsAndJournalsAreAbout) {
    const DemoFile demo;
    Database company(demo.path(), Open::readOnly);
    // clang-format off
    expectCases(company, {
        {"customers", 200, "Cust"},
        {"customers in US dollars", 8, "Cust WHERE ExCurrencyId = 2"},
        {"customers in euros", 4, "Cust WHERE ExCurrencyId = 3"},
        {"customers without currency", 1, "Cust WHERE ExCurrencyId IS NULL"},
        {"inactive customers with documents", 3, "Cust WHERE CustInactive <> 0 AND InCustId IN (SELECT ExCustId FROM InvoiHdr)"},
        {"customers without salesperson", 10, "Cust WHERE SalesPerson IS NULL OR SalesPerson = ''"},
        {"web addresses in capitals", 1, "Cust WHERE substr(Web, 1, 7) = 'HTTP://' COLLATE BINARY"},
        {"customers without fax, web or e-mail", 20, "Cust WHERE Fax IS NULL AND (Web IS NULL OR Email IS NULL)"},
        {"document kinds", 6, "(SELECT DISTINCT InvoiType FROM InvoiHdr)"},
        {"years", 4, "(SELECT DISTINCT substr(InvoiDate, 1, 4) FROM InvoiHdr WHERE InvoiDate BETWEEN '2022-04-01' AND '2025-12-31')"},
        {"documents to approve", 30, "InvoiHdr WHERE ToApprove <> 0"},
        {"segments on documents", 3, "(SELECT DISTINCT ExSegmentId FROM InvoiHdr WHERE ExSegmentId IS NOT NULL)"},
        {"documents without segment", 100, "InvoiHdr WHERE ExSegmentId IS NULL"},
        {"shipping addresses", 50, "Addr WHERE AddrKind = 1"},
        {"added field values", 100, "CustomFieldValue"},
        {"long names", 1, "Cust WHERE length(Name) > 80"},
    });
    // clang-format on
    EXPECT_FALSE(sqlite::Statement(company, "PRAGMA foreign_key_check").step()) << "a key leads nowhere";
}

TEST(DemoCompany, HoldsWhatTheAgeingIsAbout) {
    const DemoFile demo;
    Database company(demo.path(), Open::readOnly);
    // clang-format off
    expectCases(company, {
        {"term modes", 4, "(SELECT DISTINCT TermMode FROM InvoiHdr JOIN Term ON InTermId = ExTermId WHERE TermMode IS NOT NULL)"},
        {"payments with discount", 20, "PmtHdr WHERE DiscTotAmnt > 0"},
        {"invoices paid in parts", 20, "(SELECT 1 FROM PmtDet GROUP BY ExInvoiId HAVING COUNT(*) > 1)"},
        {"credit applications", 20, "PmtHdr WHERE PaymentCreditApplication <> 0 AND PmtTotAmnt = 0"},
        {"payments by cheque", 100, "PmtHdr WHERE ExPmtMethId = 2 AND ChqNo IS NOT NULL"},
        {"deposits without document", 20, "DepDet WHERE RecExSrcKeyVal IS NULL"},
        {"open credit notes", 3, "InvoiOutstandingAll_View JOIN InvoiHdr USING (InInvoiId) WHERE Outstanding < 0 AND InvoiType = 3"},
        {"adjustments of receivables", 10, "GLDet WHERE ARAPAdjustmentEntry <> 0"},
        {"home-currency corrections", 5, "CustHomeAdjustment"},
        {"documents on days without a rate", 300, "InvoiHdr WHERE InvoiDate NOT IN (SELECT RateDate FROM ExchangeRateByDay)"},
        {"big amounts", 1, "InvoiHdr WHERE TotAmnt >= 50000"},
        {"open documents over 90 days old", 20, "InvoiOutstandingAll_View JOIN InvoiHdr USING (InInvoiId) WHERE Outstanding > 0 AND InvoiDate < '2025-10-01'"},
        {"open documents over a year old", 8, "InvoiOutstandingAll_View JOIN InvoiHdr USING (InInvoiId) WHERE Outstanding > 0 AND InvoiDate < '2024-12-31'"},
        {"payments on account", 40, "PmtDet JOIN PmtHdr ON InPmtId = ExPmtId WHERE ExInvoiId IS NULL AND PmtAmnt > 0"},
        {"payments on account in US dollars", 2, "PmtDet JOIN PmtHdr ON InPmtId = ExPmtId WHERE ExInvoiId IS NULL AND PmtAmnt > 0 AND ExCurrencyId = 2"},
        {"money on account applied later", 30, "PmtDet JOIN PmtHdr ON InPmtId = ExPmtId WHERE ExInvoiId IS NULL AND PaymentCreditApplication <> 0 AND PmtTotAmnt = 0"},
        {"overpaid invoices", 8, "(SELECT 1 FROM InvoiHdr JOIN PmtDet ON ExInvoiId = InInvoiId WHERE InvoiType = 1 AND PmtAmnt > 0 GROUP BY InInvoiId HAVING ROUND(SUM(PmtAmnt + PmtDisc) + RecAmnt - TotAmnt, 2) > 0)"},
        {"invoices that are overpaid still", 1, "InvoiOutstandingAll_View JOIN InvoiHdr USING (InInvoiId) WHERE InvoiType = 1 AND Outstanding < 0"},
        {"customers beyond their credit limit", 4, "(SELECT 1 FROM InvoiOutstandingAll_View JOIN InvoiHdr USING (InInvoiId) JOIN Cust ON InCustId = ExCustId GROUP BY InCustId HAVING SUM(Outstanding) > CreditLim)"},
        {"documents in another currency than their customer's", 30, "InvoiHdr JOIN Cust ON InCustId = ExCustId WHERE InvoiHdr.ExCurrencyId <> COALESCE(Cust.ExCurrencyId, 1)"},
        {"open ones of these", 3, "InvoiOutstandingAll_View JOIN InvoiHdr USING (InInvoiId) JOIN Cust ON InCustId = ExCustId WHERE InvoiHdr.ExCurrencyId <> COALESCE(Cust.ExCurrencyId, 1) AND Outstanding <> 0"},
        {"foreign documents on days without a rate", 3, "InvoiHdr WHERE ExCurrencyId <> 1 AND NOT EXISTS (SELECT 1 FROM ExchangeRateByDay WHERE RateDate = InvoiDate AND ExchangeRateByDay.ExCurrencyId = InvoiHdr.ExCurrencyId)"},
        {"interest charges", 50, "InvoiHdr WHERE InvoiType = 4"},
        {"currencies adjusted at a year's end", 3, "(SELECT DISTINCT ExCurrencyId FROM GLDet WHERE ARAPAdjustmentEntry <> 0 AND substr(DetDate, 6) = '12-31')"},
        {"documents ahead of all dates of their instalments", 100, "InvoiHdr WHERE InvoiDate < (SELECT MIN(PaymentSchedule.DueDate) FROM PaymentSchedule WHERE PaymentSchedule.ExTermId = InvoiHdr.ExTermId)"},
        {"payments ahead of all dates of the instalments", 10, "PmtDet JOIN PmtHdr ON InPmtId = ExPmtId JOIN InvoiHdr ON InInvoiId = ExInvoiId WHERE PmtAmnt > 0 AND PmtDate < (SELECT MIN(PaymentSchedule.DueDate) FROM PaymentSchedule WHERE PaymentSchedule.ExTermId = InvoiHdr.ExTermId)"},
        {"open documents by instalments of either mode", 10, "InvoiOutstandingAll_View JOIN InvoiHdr USING (InInvoiId) JOIN Term ON InTermId = ExTermId WHERE Outstanding > 0 AND TermMode IN (2, 3)"},
    });
    // clang-format on
}

TEST(DemoCompany, HoldsWhatTheDayEndIsAbout) {
    const DemoFile demo;
    Database company(demo.path(), Open::readOnly);
    // clang-format off
    expectCases(company, {
        {"payments at registers", 50, "PmtDet WHERE CashierPayment <> 0 AND TrxSerNo IS NOT NULL"},
        {"receipts that users entered at the office", 20, "PmtDet WHERE CashierPayment = 0 AND ExUsrKey IS NOT NULL"},
        {"operators", 6, "(SELECT DISTINCT ExUsrKey FROM InvoiHdr WHERE CashierSale <> 0 AND ExUsrKey IS NOT NULL)"},
        {"registers", 3, "(SELECT DISTINCT TrxSerNo FROM InvoiHdr WHERE CashierSale <> 0 AND TrxSerNo IS NOT NULL)"},
        {"change given back", 500, "InvoiRecDet WHERE RecAmnt < 0"},
        {"foreign notes at a register", 10, "InvoiRecDet WHERE ExCurrencyId = 2"},
        {"sales on account at a register", 20, "InvoiHdr WHERE CashierSale <> 0 AND InvoiType = 1"},
        {"drawer deposits", 500, "InvoiCashDeposit"},
        {"days of thirty documents and more", 15, "(SELECT 1 FROM InvoiHdr WHERE CashierSale <> 0 GROUP BY InvoiDate HAVING COUNT(*) >= 30)"},
        {"registers with two shifts a day", 700, "(SELECT 1 FROM InvoiHdr WHERE CashierSale <> 0 GROUP BY InvoiDate, TrxSerNo HAVING COUNT(DISTINCT ExUsrKey) = 2)"},
        {"operators at two registers a day", 200, "(SELECT 1 FROM InvoiHdr WHERE CashierSale <> 0 GROUP BY InvoiDate, ExUsrKey HAVING COUNT(DISTINCT TrxSerNo) = 2)"},
        {"change given back for foreign notes", 10, "InvoiRecDet AS Note JOIN InvoiRecDet AS Change USING (ExInvoiId) WHERE Note.ExCurrencyId = 2 AND Change.RecAmnt < 0"},
        {"drawer deposits in US dollars", 20, "InvoiCashDeposit WHERE ExCurrencyId = 2"},
        {"counts that differ from the drawer's notes", 50, "(SELECT 1 FROM InvoiCashDeposit JOIN InvoiHdr ON ICDDate = InvoiDate AND ICDOperatorKey = ExUsrKey AND ICDCashReg = TrxSerNo JOIN InvoiRecDet ON InInvoiId = ExInvoiId AND InvoiRecDet.ExPmtMethId = 1 AND InvoiRecDet.ExCurrencyId = InvoiCashDeposit.ExCurrencyId WHERE InvoiCashDeposit.ExCurrencyId = 1 AND ICDOperatorKey || ICDDate NOT IN (SELECT PmtDet.ExUsrKey || PmtDate FROM PmtDet JOIN PmtHdr ON InPmtId = ExPmtId WHERE CashierPayment <> 0) GROUP BY InInvoiCashDepositId HAVING ICDAmnt > SUM(InvoiRecDet.RecAmnt) OR ICDAmnt <= SUM(InvoiRecDet.RecAmnt) - 5)"},
        {"deposits by the method of the header", 30, "InvoiHdr WHERE CashierSale <> 0 AND InvoiType = 51 AND RecAmnt > 0 AND ExPmtMethId IS NOT NULL"},
        {"methods of such deposits", 3, "(SELECT DISTINCT ExPmtMethId FROM InvoiHdr WHERE CashierSale <> 0 AND InvoiType = 51 AND RecAmnt > 0)"},
        {"credit notes of a register", 5, "InvoiHdr WHERE CashierSale <> 0 AND InvoiType = 3"},
        {"sales without a sales account", 50, "InvoiDet JOIN InvoiHdr ON InInvoiId = ExInvoiId WHERE CashierSale <> 0 AND ExSaleAcctId IS NULL AND BaseRowTotal <> 0"},
        {"sales without operator", 5, "InvoiHdr WHERE CashierSale <> 0 AND ExUsrKey IS NULL"},
    });
    // clang-format on
}

TEST(DemoCompany, HoldsWhatProjectsAndCommissionsAreAbout) {
    const DemoFile demo;
    Database company(demo.path(), Open::readOnly);
    // clang-format off
    expectCases(company, {
        {"purchases on the ledger", 100, "GLDet WHERE Source = 'PUR'"},
        {"expenses on projects", 30, "GLDet WHERE Source = 'EXP' AND ExProjId <> 0"},
        {"payroll on projects", 30, "GLDet WHERE Source = 'PAY' AND ExProjId <> 0"},
        {"sales on projects", 100, "GLDet WHERE Source = 'INV' AND ExProjId <> 0"},
        {"cancelled pay slips", 1, "TrxPay WHERE Canceled <> 0"},
        {"commissions unlike the employee's", 50, "InvoiHdr JOIN Empl ON SalesPerson = FirstName || ' ' || LastName WHERE CommissionPercent <> COALESCE(SalesComm, 0)"},
        {"documents of a salesperson who left later", 10, "InvoiHdr WHERE SalesPerson = 'Maude Tessier' AND InvoiDate < '2023-09-30'"},
        {"salespersons who are no employees", 1, "(SELECT DISTINCT SalesPerson FROM InvoiHdr WHERE SalesPerson <> '' AND SalesPerson NOT IN (SELECT FirstName || ' ' || LastName FROM Empl))"},
        {"suppliers with purchases for projects", 12, "(SELECT DISTINCT ExSuppId FROM PurcHdr JOIN GLDet ON ExSrcKeyVal = InPurcId AND Source IN ('PUR', 'EXP') WHERE ExProjId <> 0)"},
        {"purchases of goods for projects", 20, "GLDet WHERE Source = 'PUR' AND ExProjId <> 0"},
        {"hours on projects of an employee who left", 10, "GLDet JOIN TrxPay ON InTrxPayId = ExSrcKeyVal JOIN Empl ON InEmplId = ExEmplId WHERE Source = 'PAY' AND ExProjId <> 0 AND EmplInactive <> 0"},
        {"hours on projects of somebody without a file", 10, "GLDet JOIN TrxPay ON InTrxPayId = ExSrcKeyVal WHERE Source = 'PAY' AND ExProjId <> 0 AND ExEmplId IS NULL"},
        {"hours on projects without a cancel mark", 10, "GLDet JOIN TrxPay ON InTrxPayId = ExSrcKeyVal WHERE Source = 'PAY' AND ExProjId <> 0 AND Canceled IS NULL"},
        {"postings on the unknown project", 3, "GLDet JOIN ProjInfo ON InProjId = ExProjId WHERE ProjId = '~Inconnu~'"},
        {"postings on work in progress", 50, "GLDet JOIN GLAcct ON InGLAcctId = ExAcctId WHERE GLAcctId = '1250' AND ExProjId <> 0"},
        {"salespersons whose rate changed", 3, "(SELECT 1 FROM InvoiHdr JOIN Empl ON SalesPerson = FirstName || ' ' || LastName WHERE InvoiDate BETWEEN '2022-04-01' AND '2023-03-31' GROUP BY InEmplId HAVING MIN(CommissionPercent) <> SalesComm AND MAX(CommissionPercent) <> MIN(CommissionPercent) AND SalesComm <> 0)"},
    });
    // clang-format on
}

TEST(DemoCompany, HoldsWhatTheStatisticsAreAbout) {
    const DemoFile demo;
    Database company(demo.path(), Open::readOnly);
    // clang-format off
    expectCases(company, {
        {"kit lines with components", 50, "InvoiDet WHERE IsKit <> 0 AND InInvoiDetId IN (SELECT ExKitInvoiDetId FROM InvoiDet)"},
        {"service lines", 100, "InvoiDet WHERE Servc <> 0"},
        {"lines without item or price", 50, "InvoiDet WHERE ExItemId IS NULL AND UnitPrice IS NULL"},
        {"scrapped returns", 3, "InvoiDet WHERE QtyScrap > 0"},
        {"assemblies", 50, "AssemblyHdr"},
        {"active warehouses", 3, "Warehouse WHERE WarehouseInactive = 0 OR WarehouseInactive IS NULL"},
        {"sales of the closed warehouse", 10, "InvoiDet JOIN Warehouse ON InWarehouseId = ExWarehouseId WHERE WarehouseInactive <> 0"},
        {"items sold in fiscal 2023 alone", 1, "(SELECT 1 FROM InvoiDet JOIN InvoiHdr ON InInvoiId = ExInvoiId WHERE ExItemId <> 0 GROUP BY ExItemId HAVING MIN(InvoiDate) >= '2023-04-01' AND MAX(InvoiDate) < '2024-04-01')"},
        {"items sold in fiscal 2024 alone", 1, "(SELECT 1 FROM InvoiDet JOIN InvoiHdr ON InInvoiId = ExInvoiId WHERE ExItemId <> 0 GROUP BY ExItemId HAVING MIN(InvoiDate) >= '2024-04-01' AND MAX(InvoiDate) < '2025-04-01')"},
        {"items sold since 2025 alone", 1, "(SELECT 1 FROM InvoiDet JOIN InvoiHdr ON InInvoiId = ExInvoiId WHERE ExItemId <> 0 GROUP BY ExItemId HAVING MIN(InvoiDate) >= '2025-04-01')"},
        {"items never sold and in stock", 2, "Item WHERE InItemId NOT IN (SELECT ExItemId FROM InvoiDet WHERE ExItemId <> 0) AND InItemId IN (SELECT ExItemId FROM InvenDet)"},
        {"items that never moved", 2, "Item WHERE IsKit = 0 AND InItemId NOT IN (SELECT ExItemId FROM InvoiDet WHERE ExItemId <> 0) AND InItemId NOT IN (SELECT ExItemId FROM InvenDet)"},
        {"inactive items", 2, "Item WHERE ItemInactive <> 0"},
        {"inactive items that were sold", 1, "Item WHERE ItemInactive <> 0 AND InItemId IN (SELECT ExItemId FROM InvoiDet)"},
        {"negative stock", 1, "(SELECT 1 FROM InvenDet GROUP BY ExItemId HAVING SUM(Qty) < 0)"},
        {"kits that print alone", 100, "InvoiDet AS Kit WHERE IsKit <> 0 AND (SELECT SUM(ComputeKitOption = 2 OR AllowKitModification <> 0) FROM InvoiDet AS Part JOIN Item ON InItemId = Part.ExItemId WHERE Part.ExKitInvoiDetId = Kit.InInvoiDetId) = 0"},
        {"kits whose parts print alone", 100, "InvoiDet AS Kit WHERE IsKit <> 0 AND (SELECT SUM(ComputeKitOption <> 2) FROM InvoiDet AS Part JOIN Item ON InItemId = Part.ExItemId WHERE Part.ExKitInvoiDetId = Kit.InInvoiDetId) = 0"},
        {"kits that print with their parts", 100, "InvoiDet AS Kit WHERE IsKit <> 0 AND (SELECT SUM(AllowKitModification = 0) FROM InvoiDet AS Part JOIN Item ON InItemId = Part.ExItemId WHERE Part.ExKitInvoiDetId = Kit.InInvoiDetId) = 0"},
        {"documents in the year before the first compared one", 800, "InvoiHdr WHERE InvoiDate BETWEEN '2022-04-01' AND '2023-03-31'"},
        {"months of that year", 12, "(SELECT DISTINCT substr(InvoiDate, 1, 7) FROM InvoiHdr WHERE InvoiDate BETWEEN '2022-04-01' AND '2023-03-31')"},
    });
    // clang-format on
}

TEST(DemoCompany, LooksLikeAFileThatPeopleKeep) {
    const DemoFile demo(3);
    Database company(demo.path(), Open::readOnly);
    const auto count = [&](const char* rows) { return company.integer(std::string("SELECT COUNT(*) FROM ") + rows); };
    ASSERT_GT(count("Addr WHERE ExCountryId = 1"), 200);
    EXPECT_EQ(count("Cust WHERE Name GLOB '*[0-9]*'"), 0);
    EXPECT_EQ(count("InvoiHdr WHERE SalesPerson = 'Maude Tessier' AND InvoiDate > '2023-09-29'"), 0);
    EXPECT_EQ(count("(SELECT 1 FROM Cust GROUP BY Name HAVING COUNT(*) > 1)"), 0);
    EXPECT_EQ(count("Addr WHERE ExCountryId = 1 AND PostalCode NOT GLOB '[A-CEGHJ-NPR-TVXY][0-9][A-CEGHJ-NPR-TV-Z] "
                    "[0-9][A-CEGHJ-NPR-TV-Z][0-9]'"),
              0);
    EXPECT_EQ(count("(SELECT 1 FROM Addr GROUP BY City HAVING COUNT(DISTINCT ExCountryId) > 1)"), 0);
    EXPECT_EQ(count("Addr WHERE ExCountryId > 1 AND (AddrLine1 LIKE '%rang %' OR AddrLine1 LIKE '%boul.%')"), 0);
    EXPECT_EQ(count("(SELECT DISTINCT ExCountryId FROM Addr WHERE ExCustId <> 0)"), 5);
    EXPECT_EQ(count("Cust JOIN Addr ON ExCustId = InCustId AND AddrKind = 0 WHERE Tel1 IS NOT NULL AND "
                    "(ExCountryId > 2) <> (Tel1 GLOB '+*')"),
              0);
    EXPECT_EQ(count("Addr AS Later JOIN Addr AS First USING (ExCustId, AddrKind) WHERE AddrKind = 1 AND "
                    "Later.InAddrId > First.InAddrId AND Later.AddrName <= First.AddrName"),
              0)
        << "the sites of a customer count upwards";
    EXPECT_GT(count("InvoiHdr WHERE InvoiType = 51 AND InvoiDate >= '2025-10-01'"),
              count("InvoiHdr WHERE InvoiType = 51 AND InvoiDate < '2025-10-01'"));
}

// The two companies are each other's translation, and each one's dictionary says so.
TEST(DemoCompany, SpeaksTheLanguageOfItsOwner) {
    const TemporaryFile file;
    writeDemoCompany(file.path(), {.french = true});
    const DemoFile demo;
    Database company(demo.path(), Open::readWrite);
    company.execute("ATTACH '" + file.path() + "' AS French");
    struct List {
        const char* table;
        const char* key;
        const char* word;
    };
    const List lists[] = {{"GLAcct", "InGLAcctId", "Descr"},
                          {"PmtMeth", "InPmtMethId", "PmtMeth"},
                          {"WorldCurrency", "InCurrencyId", "Descr"},
                          {"Category", "InCategoryId", "Descr"},
                          {"Category_Sub", "InSubCategoryId", "Descr"},
                          {"Country", "InCountryId", "CountryName"},
                          {"Term", "InTermId", "Descr"},
                          {"CustomField", "InFieldId", "Caption"},
                          {"InvoiType", "ID", "Description"},
                          {"KorvaLanguages", "ID", "DisplayName"}};
    for (const List& list : lists) {
        const std::string table = list.table, key = list.key, word = list.word;
        const std::string both =
            " FROM main." + table + " AS Mine INNER JOIN French." + table + " AS Theirs USING (" + key + ")";
        const auto rows = company.integer("SELECT COUNT(*)" + both);
        EXPECT_GT(rows, 0) << table;
        EXPECT_EQ(rows, company.integer("SELECT COUNT(*) FROM main." + table)) << table;
        EXPECT_EQ(company.integer("SELECT COUNT(*)" + both +
                                  " INNER JOIN main.Dictionary AS D ON D.Language = 'fr' AND "
                                  "D.Word = Mine." +
                                  word + " AND D.Translation = Theirs." + word),
                  rows)
            << table << " for a French user of the English company";
        EXPECT_EQ(company.integer("SELECT COUNT(*)" + both +
                                  " INNER JOIN French.Dictionary AS D ON D.Language = 'en' AND "
                                  "D.Word = Theirs." +
                                  word + " AND D.Translation = Mine." + word),
                  rows)
            << table << " for an English user of the French company";
    }
    EXPECT_EQ(
        company.integer("SELECT COUNT(*) FROM French.GLDet WHERE DetDesc IN ('Bank deposit', 'Opening balances')"), 0);
    EXPECT_EQ(company.integer("SELECT COUNT(*) FROM main.GLDet INNER JOIN French.GLDet AS Theirs USING (InGLDetId) "
                              "WHERE GLDet.DetAmnt = Theirs.DetAmnt"),
              company.integer("SELECT COUNT(*) FROM main.GLDet"))
        << "the language changes no amount";
    EXPECT_EQ(company.integer("SELECT COUNT(*) FROM French.CompanyFact WHERE Name = 'Locale' AND Value = 'fr_CA'"), 1);
}

TEST(DemoCompany, NeverTakesThePlaceOfAnotherFile) {
    const TemporaryFile file;
    file.write("somebody's books");
    EXPECT_THROW(writeDemoCompany(file.path(), {}), std::runtime_error);
    EXPECT_EQ(bytesOf(file.path()), "somebody's books");
    EXPECT_THROW(writeDemoCompany(file.path() + "x", {0, 1}), std::invalid_argument);
    EXPECT_THROW(writeDemoCompany("/no/such/folder/company.db", {}), std::system_error);
    EXPECT_FALSE(std::filesystem::exists(file.path() + "x"));
}

}  // namespace
}  // namespace quillo
