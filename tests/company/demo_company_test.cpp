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
        EXPECT_EQ(lines.size(), 22u);
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

// Each case that the reports are about occurs often enough to be seen on a page.
TEST(DemoCompany, HoldsWhatTheReportsAreAbout) {
    const DemoFile demo;
    Database company(demo.path(), Open::readOnly);
    struct Case {
        const char* what;
        int least;
        const char* rows;
    };
    // clang-format off
    const Case cases[] = {
        {"customers", 200, "Cust"},
        {"customers in US dollars", 8, "Cust WHERE ExCurrencyId = 2"},
        {"customers in euros", 4, "Cust WHERE ExCurrencyId = 3"},
        {"customers without currency", 1, "Cust WHERE ExCurrencyId IS NULL"},
        {"inactive customers with documents", 3, "Cust WHERE CustInactive <> 0 AND InCustId IN (SELECT ExCustId FROM InvoiHdr)"},
        {"customers without salesperson", 10, "Cust WHERE SalesPerson IS NULL OR SalesPerson = ''"},
        {"web addresses in capitals", 1, "Cust WHERE substr(Web, 1, 7) = 'HTTP://' COLLATE BINARY"},
        {"customers without fax, web or e-mail", 20, "Cust WHERE Fax IS NULL AND (Web IS NULL OR Email IS NULL)"},
        {"term modes", 4, "(SELECT DISTINCT TermMode FROM InvoiHdr JOIN Term ON InTermId = ExTermId WHERE TermMode IS NOT NULL)"},
        {"document kinds", 6, "(SELECT DISTINCT InvoiType FROM InvoiHdr)"},
        {"years", 3, "(SELECT DISTINCT substr(InvoiDate, 1, 4) FROM InvoiHdr WHERE InvoiDate BETWEEN '2023-01-01' AND '2025-12-31')"},
        {"payments with discount", 20, "PmtHdr WHERE DiscTotAmnt > 0"},
        {"invoices paid in parts", 20, "(SELECT 1 FROM PmtDet GROUP BY ExInvoiId HAVING COUNT(*) > 1)"},
        {"credit applications", 20, "PmtHdr WHERE PaymentCreditApplication <> 0 AND PmtTotAmnt = 0"},
        {"payments by cheque", 100, "PmtHdr WHERE ExPmtMethId = 2 AND ChqNo IS NOT NULL"},
        {"payments at registers", 50, "PmtDet WHERE CashierPayment <> 0 AND TrxSerNo IS NOT NULL"},
        {"receipts that users entered at the office", 20, "PmtDet WHERE CashierPayment = 0 AND ExUsrKey IS NOT NULL"},
        {"operators", 4, "(SELECT DISTINCT ExUsrKey FROM InvoiHdr WHERE CashierSale <> 0 AND ExUsrKey IS NOT NULL)"},
        {"registers", 3, "(SELECT DISTINCT TrxSerNo FROM InvoiHdr WHERE CashierSale <> 0 AND TrxSerNo IS NOT NULL)"},
        {"change given back", 500, "InvoiRecDet WHERE RecAmnt < 0"},
        {"foreign notes at a register", 10, "InvoiRecDet WHERE ExCurrencyId = 2"},
        {"sales on account at a register", 20, "InvoiHdr WHERE CashierSale <> 0 AND InvoiType = 1"},
        {"deposits without document", 20, "DepDet WHERE RecExSrcKeyVal IS NULL"},
        {"drawer deposits", 500, "InvoiCashDeposit"},
        {"documents to approve", 30, "InvoiHdr WHERE ToApprove <> 0"},
        {"open invoices over 90 days old", 5, "InvoiOutstandingAll_View JOIN InvoiHdr USING (InInvoiId) WHERE Outstanding > 0 AND InvoiDate < '2025-10-01'"},
        {"open credit notes", 3, "InvoiOutstandingAll_View JOIN InvoiHdr USING (InInvoiId) WHERE Outstanding < 0 AND InvoiType = 3"},
        {"adjustments of receivables", 10, "GLDet WHERE ARAPAdjustmentEntry <> 0"},
        {"home-currency corrections", 5, "CustHomeAdjustment"},
        {"kit lines with components", 50, "InvoiDet WHERE IsKit <> 0 AND InInvoiDetId IN (SELECT ExKitInvoiDetId FROM InvoiDet)"},
        {"service lines", 100, "InvoiDet WHERE Servc <> 0"},
        {"lines without item or price", 50, "InvoiDet WHERE ExItemId IS NULL AND UnitPrice IS NULL"},
        {"scrapped returns", 3, "InvoiDet WHERE QtyScrap > 0"},
        {"assemblies", 50, "AssemblyHdr"},
        {"active warehouses", 3, "Warehouse WHERE WarehouseInactive = 0 OR WarehouseInactive IS NULL"},
        {"sales of the closed warehouse", 10, "InvoiDet JOIN Warehouse ON InWarehouseId = ExWarehouseId WHERE WarehouseInactive <> 0"},
        {"segments on documents", 3, "(SELECT DISTINCT ExSegmentId FROM InvoiHdr WHERE ExSegmentId IS NOT NULL)"},
        {"documents without segment", 100, "InvoiHdr WHERE ExSegmentId IS NULL"},
        {"purchases on the ledger", 100, "GLDet WHERE Source = 'PUR'"},
        {"expenses on projects", 30, "GLDet WHERE Source = 'EXP' AND ExProjId <> 0"},
        {"payroll on projects", 30, "GLDet WHERE Source = 'PAY' AND ExProjId <> 0"},
        {"sales on projects", 100, "GLDet WHERE Source = 'INV' AND ExProjId <> 0"},
        {"cancelled pay slips", 1, "TrxPay WHERE Canceled <> 0"},
        {"commissions unlike the employee's", 50, "InvoiHdr JOIN Empl ON SalesPerson = FirstName || ' ' || LastName WHERE CommissionPercent <> COALESCE(SalesComm, 0)"},
        {"salespersons who are no employees", 1, "(SELECT DISTINCT SalesPerson FROM InvoiHdr WHERE SalesPerson <> '' AND SalesPerson NOT IN (SELECT FirstName || ' ' || LastName FROM Empl))"},
        {"documents on days without a rate", 300, "InvoiHdr WHERE InvoiDate NOT IN (SELECT RateDate FROM ExchangeRateByDay)"},
        {"shipping addresses", 50, "Addr WHERE AddrKind = 1"},
        {"added field values", 100, "CustomFieldValue"},
        {"long names", 1, "Cust WHERE length(Name) > 80"},
        {"big amounts", 1, "InvoiHdr WHERE TotAmnt >= 50000"},
    };
    // clang-format on
    for (const auto& one : cases)
        EXPECT_GE(company.integer(std::string("SELECT COUNT(*) FROM ") + one.rows), one.least) << one.what;
    EXPECT_FALSE(sqlite::Statement(company, "PRAGMA foreign_key_check").step()) << "a key leads nowhere";
}

TEST(DemoCompany, NeverTakesThePlaceOfAnotherFile) {
    const TemporaryFile file;
    file.write("somebody's books");
    EXPECT_THROW(writeDemoCompany(file.path(), {}), std::runtime_error);
    EXPECT_EQ(bytesOf(file.path()), "somebody's books");
    EXPECT_THROW(writeDemoCompany(file.path() + "x", {0, 1}), std::invalid_argument);
    EXPECT_THROW(writeDemoCompany("/no/such/folder/company.db", {}), sqlite::Error);
    EXPECT_FALSE(std::filesystem::exists(file.path() + "x"));
}

}  // namespace
}  // namespace quillo
