#include <gtest/gtest.h>

#include "tests/company/demo_file.h"
#include "tests/support/report_runner.h"

namespace quillo::test {
namespace {

using Texts = std::vector<std::string>;

// Ash has one document of each kind and settles an invoice with a discount; Birch pays in US dollars, once without a
// rate and once at a rate of 0; Cedar has no currency of its own; Dogwood has nothing in January.
constexpr const char* rows =
    "UPDATE CompanyFact SET Value = '1' WHERE Name = 'UsesForeignCurrency';"
    "INSERT INTO WorldCurrency VALUES (2, 'USD', 'US dollar');"
    "INSERT INTO Cust (InCustId, CustId, Name, ExCurrencyId) VALUES (10, 'A', 'Ash', 1), (11, 'B', 'Birch', 2),"
    " (12, 'C', 'Cedar', NULL), (13, 'D', 'Dogwood', 1);"
    "INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, ExCustId, ExCurrencyId, ExchangeRate, TotAmnt,"
    " RecAmnt, RecCheqNo) VALUES (1, 'F1', 1, '2024-01-10', 10, 1, 1, 100, 20, '55'),"
    " (2, 'S1', 2, '2024-01-11', 10, 1, 1, 7, 7, NULL), (3, 'N1', 3, '2024-01-12', 10, 1, 1, -5, 0, NULL),"
    " (4, 'I1', 4, '2024-01-13', 10, 1, 1, 3, NULL, NULL), (50, 'Q1', 50, '2024-01-14', 10, 1, 1, 11, 0, NULL),"
    " (51, 'O1', 51, '2024-01-31', 10, 1, 1, 13, 0, NULL), (9, 'X', 9, '2024-01-16', 10, 1, 1, NULL, 0, NULL),"
    " (21, 'U1', 1, '2024-01-10', 11, 2, 1.3, 40, 0, NULL), (22, 'U2', 1, '2024-01-01', 11, 2, NULL, 8, 0, NULL),"
    " (23, 'U3', 1, '2024-01-12', 11, 2, 0, 2, 0, NULL), (31, 'C1', 1, '2024-01-10', 12, 1, 1, 6, 0, NULL),"
    " (41, 'D1', 1, '2023-12-31', 13, 1, 1, 9, 9, NULL), (42, 'D2', 1, '2024-02-01', 13, 1, 1, 9, 9, NULL);"
    "INSERT INTO PmtHdr (InPmtId, PmtDate, ChqNo, ExCustId, ExCurrencyId, ExchangeRate, PmtTotAmnt, DiscTotAmnt) VALUES"
    " (101, '2024-01-20', 'P1', 10, 1, 1, 70, 10), (102, '2024-01-20', 'P2', 11, 2, 1.4, 40, 0);"
    "INSERT INTO PmtDet (ExPmtId, ExInvoiId, PmtAmnt, PmtDisc) VALUES (101, 1, 70, 10), (102, 21, 40, 0);";

ReportRun january(const TestCompany& company) {
    return {.member = "CustTransHistoryRepNova",
            .company = company.path(),
            .from = "2024-01-01",
            .to = "2024-01-31",
            .language = "ids"};
}

TEST(CustomerHistory, ListsWhatHappenedWithEachCustomerByKindAndDay) {
    const TestCompany company(rows);
    for (const int dialect : {0, 1}) {
        ReportRun run = january(company);
        run.dialect = dialect;
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        EXPECT_EQ(result.texts("lblDocNumber"), Texts{"#3082"});
        EXPECT_EQ(result.texts("lblDocDate"), Texts{"#3083"});
        EXPECT_EQ(result.texts("lblDocType"), Texts{"#1372"});
        EXPECT_EQ(result.texts("lblDocAmnt"), Texts{"#1914"});
        EXPECT_EQ(result.texts("lblCustInfo"), (Texts{"A - Ash", "B - Birch", "C - Cedar"}));
        EXPECT_EQ(result.texts("txtDocNumber"),
                  (Texts{"F1", "S1", "N1", "I1", "X", "Q1", "O1", "55", "", "P1", "P1", "U2", "U1", "U3", "P2", "C1"}));
        EXPECT_EQ(result.texts("txtDocType"),
                  (Texts{"#2916", "#2907", "#2860", "#2912", "#2907", "#2779", "#2780", "#2788", "#2788", "#2788",
                         "#2853", "#2916", "#2916", "#2916", "#2788", "#2916"}));
        // A rate of 0 counts as 1 on the one server and as 0 on the other.
        EXPECT_EQ(result.texts("txtAmount"),
                  (Texts{"$100.00", "$7.00", "-$5.00", "$3.00", "", "$11.00", "$13.00", "-$20.00", "-$7.00", "-$70.00",
                         "$10.00", "$8.00", "$52.00", dialect == 1 ? "$2.00" : "$0.00", "-$56.00", "$6.00"}));
        EXPECT_EQ(result.texts("txtTotalTypeAmount"), (Texts{"$42.00", dialect == 1 ? "$6.00" : "$4.00", "$6.00"}));
        EXPECT_EQ(result.texts("lblCustTotal"),
                  (Texts{"#2710 #1573: A - Ash", "#2710 #1573: B - Birch", "#2710 #1573: C - Cedar"}));
        EXPECT_EQ(first(result.texts("txtDocDate")), "2024-01-10");
        EXPECT_TRUE(result.texts("txtCurrencyDescr").empty());
        EXPECT_EQ(result.only("lblEnd"), "3 #7622");
    }
}

TEST(CustomerHistory, LeadsToTheDocumentAndFromADiscountToItsPaymentToo) {
    const TestCompany company(rows);
    const auto result = runReport(january(company));
    const Texts tags = {"INV|1", "INV|2",   "INV|3",     "INV|4",  "INV|9",  "INV|50", "INV|51",  "INV|1",
                        "INV|2", "PMT|101", "PMT|1|101", "INV|22", "INV|21", "INV|23", "PMT|102", "INV|31"};
    EXPECT_EQ(result.links("txtDocNumber"), tags);
    EXPECT_EQ(result.links("txtDocDate"), tags);
    EXPECT_EQ(result.links("txtDocType"), tags);
    EXPECT_EQ(result.links("txtAmount"), tags);
}

TEST(CustomerHistory, ShowsForeignAmountsByTheCurrencyOfTheCustomer) {
    const TestCompany company(rows);
    for (const int dialect : {0, 1}) {
        ReportRun run = january(company);
        run.dialect = dialect;
        run.foreign = true;
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        EXPECT_EQ(result.texts("txtCurrencyDescr"),
                  (Texts{"CAD - Canadian dollar", "CAD - Canadian dollar", "USD - US dollar"}))
            << "a customer without a currency has the home currency";
        EXPECT_EQ(result.texts("lblCustInfo"), (Texts{"C - Cedar", "A - Ash", "B - Birch"}));
        EXPECT_EQ(result.texts("txtTotalTypeAmount"), (Texts{"$6.00", "$42.00", "$10.00"}));
        EXPECT_EQ(last(result.texts("txtAmount")), "-$40.00");
        EXPECT_EQ(result.only("lblEnd"), "3 #7622");
    }
}

TEST(CustomerHistory, NamesCustomersAloneWhereTheyHaveNoCodes) {
    const TestCompany company(rows);
    ReportRun run = january(company);
    run.settings[Setting::customerCodes] = "0";
    const auto result = runReport(run);
    EXPECT_EQ(result.texts("lblCustInfo"), (Texts{"Ash", "Birch", "Cedar"}));
    EXPECT_EQ(first(result.texts("lblCustTotal")), "#2710 #1573: Ash");
    run.from = run.to = "";
    const auto always = runReport(run);
    EXPECT_EQ(always.texts("lblCustInfo"), (Texts{"Ash", "Birch", "Cedar", "Dogwood"}));
    run.from = run.to = "2030-01-01";
    EXPECT_EQ(runReport(run).only("lblEnd"), "0 #7622");
}

// What the ledger's receivables accounts hold of a customer, in the currencies of its documents; offers, which are not
// posted; and discounts twice, since the history shows them with the other sign. A customer who paid all at once has 0.
constexpr const char* totals =
    "SELECT Cust.InCustId, ROUND(SUM(A), 2) FROM (SELECT COALESCE(InvoiHdr.ExCustId, PmtHdr.ExCustId) AS C,"
    "  CASE WHEN GLDet.ExCurrencyId = 1 THEN GLDet.DetAmnt ELSE GLDet.ForeignAmnt END AS A FROM GLDet"
    "  LEFT JOIN InvoiHdr ON InInvoiId = ExSrcKeyVal LEFT JOIN PmtHdr ON InPmtId = ExSrcKeyVal"
    "  WHERE ExAcctId IN (SELECT ExGLAcctId FROM AccountGroup WHERE Code = 'CustGLAR')"
    " UNION ALL SELECT ExCustId, TotAmnt - COALESCE(RecAmnt, 0) FROM InvoiHdr WHERE InvoiType IN (50, 51)"
    " UNION ALL SELECT ExCustId, 2 * DiscTotAmnt FROM PmtHdr UNION ALL SELECT ExCustId, 0 FROM InvoiHdr)"
    " INNER JOIN Cust ON InCustId = C LEFT JOIN WorldCurrency ON InCurrencyId = Cust.ExCurrencyId"
    " GROUP BY Cust.InCustId ORDER BY CurrencyCode, Cust.InCustId";

TEST(CustomerHistory, AgreesWithTheLedgerCustomerByCustomer) {
    const DemoFile company;
    const sqlite::Database database(company.path(), sqlite::Open::readOnly);
    sqlite::Statement ledger(database, totals);
    Texts expected;
    ListedMessages messages;
    SessionOptions options;
    options.company = company.path(), options.locale = "en_CA";
    HostSession session(options, messages);
    while (ledger.step()) expected.push_back(session.locale().currency(Money::fromDouble(ledger.real(1))));
    const auto result = runReport({.member = "CustTransHistoryRepNova", .company = company.path(), .foreign = true});
    EXPECT_GT(expected.size(), 150U);
    EXPECT_EQ(result.texts("txtTotalTypeAmount"), expected);
}

}  // namespace
}  // namespace quillo::test
