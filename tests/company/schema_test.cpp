#include <gtest/gtest.h>

#include "host/database/company_schema.h"
#include "host/database/sqlite_handle.h"

namespace quillo {
namespace {

using sqlite::Database;
using sqlite::Statement;

// A new company in memory with a customer, three items (goods, a kit of goods, a service) and an
// account for cash and one for sales.
class SchemaTest : public testing::Test {
protected:
    SchemaTest() {
        company.execute(std::string(companySchema()));
        company.execute(
            "INSERT INTO Cust (InCustId, CustId) VALUES (1, 'A');"
            "INSERT INTO Item (InItemId, ItemId, Servc, IsKit) VALUES (1, 'GOODS', 0, 0), (2, 'KIT', NULL, 1), (3, "
            "'HOUR', 1, 0);"
            "INSERT INTO GLAcct (InGLAcctId, GLAcctId, ChqAcct) VALUES (1, '1010', 1), (2, '4010', NULL)");
    }
    // The rows of a query as text: columns by blanks, rows by bars.
    std::string rows(const std::string& sql) {
        std::string text;
        Statement statement(company, sql);
        while (statement.step()) {
            if (!text.empty()) text += "|";
            for (int i = 0; i < sqlite3_column_count(statement.get()); ++i)
                text += (i == 0 ? "" : " ") + (statement.isNull(i) ? "-" : std::string(statement.text(i)));
        }
        return text;
    }
    Database company{":memory:", sqlite::Open::create};
};

TEST_F(SchemaTest, DatesAreCalendarDaysAndNothingElse) {
    for (const char* good : {"'2024-02-29'", "'1899-12-31'", "'9999-12-31'", "NULL"})
        EXPECT_NO_THROW(company.execute(std::string("INSERT INTO InvoiHdr (InvoiDate) VALUES (") + good + ")")) << good;
    for (const char* bad : {"'2023-02-29'", "'2023-02-30'", "'2023-1-5'", "'20230105'", "'2023-01-05 10:00'",
                            "'2023-01-05T00:00:00'", "'now'", "''", "45000", "'2023-13-01'"})
        EXPECT_THROW(company.execute(std::string("INSERT INTO InvoiHdr (InvoiDate) VALUES (") + bad + ")"),
                     sqlite::Error)
            << bad;
}

TEST_F(SchemaTest, OutstandingIsTheTotalLessWhatCameInByAnyRoad) {
    company.execute(
        "INSERT INTO InvoiHdr (InInvoiId, InvoiType, TotAmnt, RecAmnt) VALUES (1, 1, 100, NULL), (2, 1, 100, 40), (3, "
        "3, -30, 0),"
        " (4, 1, 0.3, 0), (5, 51, 70, 0), (6, 1, NULL, NULL);"
        "INSERT INTO PmtDet (ExPmtId, ExInvoiId, PmtAmnt, PmtDisc) VALUES (9, 1, 95, 2), (9, 2, 60, NULL), (9, 3, -10, "
        "0), (9, 4, 0.1, 0), (9, 4, 0.2, 0)");
    EXPECT_EQ(rows("SELECT InInvoiId, Outstanding FROM InvoiOutstandingAll_View ORDER BY 1"),
              "1 3.0|2 0.0|3 -20.0|4 0.0|6 0.0");
}

TEST_F(SchemaTest, SalesCountAKitOnceAndCreditNotesBack) {
    company.execute(
        "INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, ExchangeRate) VALUES (1, 'F1', 1, "
        "'2025-03-01', 1.5),"
        " (2, 'NC1', 3, '2025-03-02', NULL), (3, 'S1', 50, '2025-03-03', 1), (4, 'K1', 2, '2025-03-04', 1);"
        "INSERT INTO InvoiDet (InInvoiDetId, ExInvoiId, ExItemId, Qty, QtyScrap, BaseRowTotal, ExKitInvoiDetId, "
        "ExWarehouseId) VALUES"
        " (1, 1, 2, 1, NULL, 80, NULL, 1), (2, 1, 1, 4, NULL, 0, 1, 1), (3, 2, 1, 5, 2, 10.05, NULL, 1), (4, 3, 1, 9, "
        "NULL, 99, NULL, 1),"
        " (5, 4, 1, -2, NULL, -6, NULL, 1), (6, 4, 3, 3, NULL, 30, NULL, NULL), (7, 4, NULL, NULL, NULL, NULL, NULL, "
        "NULL);"
        "INSERT INTO AssemblyHdr (Id, AssemblyNo, AssemblyDate) VALUES (8, 'ASM-1', '2025-03-05');"
        "INSERT INTO AssemblyDet (ExId, ExItemId, Qty, ExWarehouseId) VALUES (8, 1, 6, 2)");
    EXPECT_EQ(rows("SELECT InItemId, InvoiType, TotalSales FROM ItemSoldAmounts_View ORDER BY InvoiDate, 1"),
              "2 1 120.0|1 3 -10.05|1 2 -6.0|3 2 30.0");
    EXPECT_EQ(rows("SELECT InItemId, InvoiType, TotalUnitsSold FROM ItemSoldUnits_View ORDER BY InvoiDate, 1"),
              "2 1 1.0|1 3 -3.0|1 2 -2.0|3 2 3.0");
    EXPECT_EQ(rows("SELECT TrxType, ID, InItemId, Qty, IType, ExWarehouseId FROM ItemConsumedUnits_View ORDER BY "
                   "TrxDate, InItemId"),
              "7 F1 1 4.0 1 1|7 F1 2 1.0 1 1|7 NC1 1 -3.0 3 1|7 K1 1 -2.0 2 1|6 ASM-1 1 6.0 - 2");
}

TEST_F(SchemaTest, TheReceiptsJournalTakesWholeTransactionsThatTouchCash) {
    company.execute(
        "INSERT INTO GLDet (InGLDetId, SeqNo, Source, ExAcctId, DetAmnt) VALUES (1, 1, 'INV', 1, 5), (2, 1, 'INV', 1, "
        "6), (3, 1, 'INV', 2, -11),"
        " (4, 2, 'INV', 2, 3), (5, 2, 'INV', 2, -3), (6, 3, 'CHQ', 1, -4), (7, 3, 'CHQ', 2, 4), (8, 4, 'dep', 1, 2), "
        "(9, 4, 'DEP', 2, -2)");
    EXPECT_EQ(rows("SELECT SeqNo FROM CashReceiptSequences_View ORDER BY 1"), "1|4");
    EXPECT_EQ(rows("SELECT InGLDetId FROM CashReceiptJournal_View ORDER BY 1"), "1|2|3|8|9");
}

TEST_F(SchemaTest, DiscountsNameTheirPaymentAndTheirDocument) {
    company.execute(
        "INSERT INTO PmtHdr (InPmtId, PmtDate, ChqNo, ExCustId, ExchangeRate) VALUES (20, '2025-05-01', '77', 1, 1.25);"
        "INSERT INTO PmtDet (ExPmtId, ExInvoiId, PmtAmnt, PmtDisc) VALUES (20, 11, 98, 2), (20, 12, 50, 0), (20, 13, "
        "50, NULL)");
    EXPECT_EQ(rows("SELECT ExCustId, DocOrderId, ExPmtId, ChqNo, PmtDate, DetAmnt, ExchangeRate FROM "
                   "CustAgingPmtsDiscounts_View"),
              "1 11 20 77 2025-05-01 2.0 1.25");
}

// A column that the reports name without its table stands on one of the joined tables alone.
TEST_F(SchemaTest, NamesThatStandAloneAreUnique) {
    const auto tablesWith = [&](const char* column, const char* among) {
        return company.integer(std::string("SELECT COUNT(*) FROM sqlite_master AS m, pragma_table_info(m.name) AS c "
                                           "WHERE lower(c.name) = lower('") +
                               column + "') AND m.name IN (" + among + ")");
    };
    struct Case {
        const char* column;
        const char* among;
    };
    // clang-format off
    const Case cases[] = {
        {"ExchangeRate", "'InvoiHdr', 'WorldCurrency', 'Cust', 'Empl'"},
        {"ExchangeRate", "'PmtHdr', 'PmtDet', 'PmtMeth', 'WorldCurrency'"},
        {"ExchangeRate", "'CustAgingPmtsDiscounts_View', 'Cust', 'WorldCurrency'"},
        {"ExCurrencyId", "'PmtHdr', 'PmtDet', 'PmtMeth', 'WorldCurrency'"},
        {"TrxSerNo", "'PmtHdr', 'PmtDet', 'PmtMeth', 'WorldCurrency'"},
        {"ExInvoiId", "'PmtHdr', 'PmtDet', 'InvoiHdr', 'PmtMeth', 'WorldCurrency'"},
        {"PmtDate", "'PmtHdr', 'PmtDet', 'InvoiHdr', 'PmtMeth', 'WorldCurrency'"},
        {"PmtAmnt", "'PmtHdr', 'PmtDet', 'InvoiHdr', 'PmtMeth', 'WorldCurrency'"},
        {"ExUsrKey", "'InvoiHdr', 'InvoiRecDet'"},
        {"TrxSerNo", "'InvoiHdr', 'InvoiRecDet'"},
        {"RecExSrcKeyVal", "'DepHdr', 'DepDet', 'WorldCurrency', 'PmtMeth'"},
        {"Amnt", "'TaxTrxHdr', 'TaxTrxDet', 'PmtMeth'"},
        {"SeqNo", "'GLDet', 'GLAcct', 'InvoiHdr', 'Cust', 'ProjInfo', 'WorldCurrency'"},
        {"ExSrcKeyVal", "'GLDet', 'GLAcct', 'InvoiHdr', 'Cust', 'ProjInfo', 'WorldCurrency'"},
        {"InvoiId", "'GLDet', 'GLAcct', 'InvoiHdr', 'Cust', 'ProjInfo', 'WorldCurrency'"},
        {"ProjId", "'GLDet', 'GLAcct', 'InvoiHdr', 'Cust', 'ProjInfo', 'PurcHdr', 'Supp', 'TrxPay', 'Empl'"},
        {"SuppId", "'GLDet', 'GLAcct', 'ProjInfo', 'PurcHdr', 'Supp'"},
        {"EmplId", "'GLDet', 'GLAcct', 'ProjInfo', 'TrxPay', 'Empl'"},
        {"CurrencyCode", "'InvoiHdr', 'Cust', 'WorldCurrency', 'InvoiType'"},
        {"CustId", "'Cust', 'Term', 'KorvaLanguages', 'GLAcct', 'InvoiHdr', 'WorldCurrency'"},
        {"IType", "'ItemConsumedUnits_View', 'Item', 'InvoiHdr', 'InvoiDet', 'AssemblyDet', 'Warehouse', 'Category', 'Category_Sub', 'WorldCurrency'"},
        {"Descr1", "'Item', 'Warehouse', 'Category', 'Category_Sub'"},
    };
    // clang-format on
    for (const auto& one : cases)
        EXPECT_EQ(tablesWith(one.column, one.among), 1) << one.column << " among " << one.among;
    EXPECT_EQ(tablesWith("ExSegmentId", "'Item', 'Warehouse', 'Category', 'Category_Sub', 'Cust', 'WorldCurrency'"), 0);
}

}  // namespace
}  // namespace quillo
