#include <gtest/gtest.h>

#include "tests/support/report_runner.h"

namespace quillo::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* terms =
    "INSERT INTO Term (InTermId, TermId, Descr, TermMode, Due, DiscPercent, DiscDelay, DueNxtMonth) VALUES"
    " (1, 'N30', 'a net', 1, 30, 2, 10, 0), (2, 'COD', 'b cash', 2, 5, 0, 0, 0), (3, 'ODD', 'c odd', 9, 6, 0, 0, 0),"
    " (4, 'NUL', 'd null', NULL, 7, 0, 0, 0), (5, 'DOM', 'e day', 4, 15, 0, 0, 25), (6, 'REC', 'f receipt', 3, 1, 0, "
    "0, 0);";

TEST(TermList, WritesTheModeInWordsAndShowsFiguresWhereTheyMeanSomething) {
    const TestCompany company(terms);
    for (const int dialect : {0, 1}) {
        const auto result =
            runReport({.member = "TermList", .company = company.path(), .language = "ids", .dialect = dialect});
        EXPECT_TRUE(result.boxes.empty());
        EXPECT_EQ(result.texts("lblDescr"), Texts{"#1911"});
        EXPECT_EQ(result.texts("lblTermMode"), Texts{"#2493"});
        // An unknown mode prints as it stands, a missing one empty; both keep the figures as the row before left them.
        EXPECT_EQ(result.texts("txtTermMode"), (Texts{"#1817", "#5717", "9", "", "#1815", "#5727"}));
        EXPECT_EQ(result.texts("txtDue"), (Texts{"30", "15"}));
        EXPECT_EQ(result.links("txtTermMode"), (Texts{"1", "2", "3", "4", "5", "6"}));
        EXPECT_EQ(result.only("lblEnd"), "6 #7629");
    }
}

TEST(TermList, FilterOrderAndCancel) {
    const TestCompany company(terms);
    ReportRun run{.member = "TermList", .company = company.path(), .language = "ids"};
    run.where = "Due > 5";
    EXPECT_EQ(runReport(run).texts("txtDescr"), (Texts{"a net", "c odd", "d null", "e day"}));
    run.order = "Due DESC";
    EXPECT_EQ(runReport(run).texts("txtDescr"), (Texts{"a net", "e day", "d null", "c odd"}));
    EXPECT_NE(last(runReport(run).sql).find(" WHERE (Term.Due > 5)  ORDER BY Term.Due DESC"), std::string::npos);

    run = {.member = "TermList", .company = company.path(), .language = "ids", .cancelFilter = true};
    const auto cancelled = runReport(run);
    EXPECT_EQ(cancelled.texts("lblDescr"), Texts{"Description"}) << "a cancelled run is not translated";
    EXPECT_EQ(cancelled.only("lblEnd"), "0 #7629");
    EXPECT_TRUE(cancelled.texts("txtDescr").empty());
    EXPECT_TRUE(cancelled.boxes.empty());
}

TEST(TermList, AFailingStatementShowsOneBoxAndTheNextOneRuns) {
    const TestCompany company("DROP TABLE Term");
    const auto result = runReport({.member = "TermList", .company = company.path(), .language = "ids"});
    ASSERT_EQ(result.boxes.size(), 1U);
    EXPECT_TRUE(result.boxes.front().starts_with(
        "no such table: Term\r\nin Quillo.dsrTermList.ActiveReport_ReportStart at line "))
        << result.boxes.front();
    EXPECT_EQ(result.texts("lblDescr"), Texts{"#1911"}) << "the translation comes behind the query";
    EXPECT_EQ(result.only("lblEnd"), "0 #7629");
}

constexpr const char* customers =
    "INSERT INTO TaxGroup (InTaxGroupId, TaxGroupId, TaxGroupDescr) VALUES (1, 'QC', 'Quebec');"
    "INSERT INTO Term (InTermId, TermId, Descr) VALUES (1, 'N30', 'Net 30');"
    "INSERT INTO Cust (InCustId, CustId, Name, Contact, Tel1, Fax, Web, Email, NameLang, ExTermId, ExTaxGroupId, "
    "CreditLim, CustInactive) VALUES"
    " (10, 'B', 'Birch', 'Bo', '1', '99', 'HTTP://birch.example', 'b@x.example', 2, 1, 1, 1234567.5, 0),"
    " (11, 'a', 'Ash', 'Al', '2', NULL, NULL, NULL, 1, NULL, NULL, NULL, NULL),"
    " (12, 'C', 'Cedar', 'Cy', '3', '', 'cedar.example', NULL, NULL, 1, 7, 0, 1);"
    "INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, ExCustId, InvoiDate, TotAmnt) VALUES"
    " (1, 'F1', 1, 10, '2024-03-01', 5), (2, 'F2', 1, 10, '2024-02-01', 5), (3, 'O1', 51, 11, '2024-05-01', 5);"
    "INSERT INTO Addr (InAddrId, ExCustId, AddrKind, AddrName, AddrLine1, City) VALUES"
    " (1, 10, 0, NULL, '1 Main', 'Laval'), (2, 10, 1, 'Dock', '2 Port', 'Levis'), (3, 10, 1, 'Shop', '3 Mall', NULL);"
    "INSERT INTO CustomField (InFieldId, ForTable, Caption, Position) VALUES (1, 'Cust', 'Route', 2), (2, 'Cust', "
    "'Licence', 1);"
    "INSERT INTO CustomFieldValue (ExFieldId, RecordId, Value) VALUES (1, 10, 'North'), (2, 10, 'L-1'), (1, 11, '');";

TEST(CustList, PrintsTheActiveCustomersWithWhatTheHostKnowsOfThem) {
    const TestCompany company(customers);
    const auto result = runReport({.member = "CustList", .company = company.path(), .language = "ids"});
    EXPECT_TRUE(result.boxes.empty()) << result.boxes.front();
    EXPECT_EQ(result.texts("fldName"), (Texts{"Ash", "Birch"}))
        << "an inactive customer is left out, and case does not sort";
    EXPECT_EQ(result.texts("fldTermes"), (Texts{"", "N30"}));
    EXPECT_EQ(result.texts("fldTaxGroupId"), (Texts{"", "QC"}));
    EXPECT_EQ(result.texts("txtCreditLim"), (Texts{"", "$1,234,567.50"}));
    EXPECT_EQ(result.texts("fldLastSale").size(), 1U) << "an order is no sale, and without one no date prints";
    EXPECT_EQ(result.links("fldWeb"), (Texts{"http://", "HTTP://birch.example"}));
    EXPECT_EQ(result.links("fldEmail"), (Texts{"mailto:", "mailto:b@x.example"}));
    EXPECT_EQ(result.links("fldTaxGroupId"), (Texts{"11", "10"}));
    EXPECT_EQ(result.only("lblEnd"), "2 #7622");

    ReportRun coded{.member = "CustList", .company = company.path(), .settings = {{104, "0"}, {113, "0"}, {114, "0"}}};
    const auto described = runReport(coded);
    EXPECT_TRUE(described.texts("fldCustId").empty());
    EXPECT_EQ(described.texts("fldTermes"), (Texts{"", "Net 30"}));
    EXPECT_EQ(described.texts("fldTaxGroupId"), (Texts{"", "Quebec"}));
    EXPECT_EQ(described.texts("fldNameLang"), (Texts{"English", "French"}));
}

TEST(CustPhoneList, CaptionsAreNumberedAndAFaxCaptionNeedsAFax) {
    const TestCompany company(customers);
    const auto result = runReport({.member = "CustPhoneList", .company = company.path(), .language = "ids"});
    EXPECT_EQ(result.only("lblPhone1"), "#1898 1");
    EXPECT_EQ(result.only("lblPhone2"), "#1898 2");
    EXPECT_EQ(result.only("lblPhone3"), "#1899");
    EXPECT_EQ(result.only("lblPoste2"), "#1907 2");
    EXPECT_EQ(result.texts("lblFAX").size(), 1U);
    EXPECT_EQ(result.texts("fldName"), (Texts{"Ash", "Birch"}));
    EXPECT_EQ(result.only("lblEnd"), "2 #7622");
}

TEST(CustListShipAddr, ShipsUnderEachActiveCustomer) {
    const TestCompany company(customers);
    const auto result = runReport({.member = "CustListShipAddr", .company = company.path(), .language = "ids"});
    EXPECT_TRUE(result.boxes.empty());
    EXPECT_EQ(result.texts("fldName"), (Texts{"Ash", "Birch"}));
    EXPECT_EQ(result.texts("fldAddrName"), (Texts{"Dock", "Shop"}));
    EXPECT_EQ(result.texts("fldShipAddr"), (Texts{"2 Port, Levis", "3 Mall"}));
    EXPECT_EQ(result.links("fldShipAddr"), (Texts{"10", "10"}));
    EXPECT_EQ(result.only("lblEnd"), "2 #7622") << "customers count, not addresses";
}

TEST(CustListShipAddr, ACustomerWhomTheOrderSplitsCountsOnce) {
    const TestCompany company(std::string(customers) +
                              "INSERT INTO Cust (InCustId, CustId, Name) VALUES (13, 'D', 'Dogwood');"
                              "INSERT INTO Addr (InAddrId, ExCustId, AddrKind, City) VALUES (4, 13, 1, 'Kanata');");
    ReportRun run{.member = "CustListShipAddr", .company = company.path(), .language = "ids"};
    run.order = "City";
    const auto result = runReport(run);
    EXPECT_EQ(result.texts("fldName"), (Texts{"Birch", "Ash", "Dogwood", "Birch"}));
    EXPECT_EQ(result.texts("fldShipAddr"), (Texts{"3 Mall", "Kanata", "2 Port, Levis"}));
    EXPECT_EQ(result.only("lblEnd"), "3 #7622");
    run.order = "Cust.InCustId DESC";
    EXPECT_NE(last(runReport(run).sql).find(" ORDER BY Cust.InCustId DESC, Addr.InAddrId\""), std::string::npos)
        << "no column is sorted by twice";
}

TEST(CustCustomFieldList, FeedsTheValuesOfEachCustomerInTheirOrder) {
    const TestCompany company(customers);
    const auto result = runReport({.member = "CustCustomFieldList", .company = company.path(), .language = "ids"});
    EXPECT_TRUE(result.boxes.empty()) << result.boxes.front();
    EXPECT_EQ(result.texts("fldName"), (Texts{"Ash", "Birch"})) << "also a customer without any value";
    EXPECT_EQ(result.texts("fldCaption"), (Texts{"Licence", "Route"}));
    EXPECT_EQ(result.texts("fldValue"), (Texts{"L-1", "North"}));
    EXPECT_EQ(result.only("lblEnd"), "2 #7622");
}

TEST(ProjectPriceList, EstimatesThatAreMissingPrintZeroAndAddNothing) {
    const TestCompany company(
        "INSERT INTO ProjInfo (InProjId, ProjId, Descr, BegDate, EndDate, EstSales, EstPurch, EstHours, Inactive) "
        "VALUES"
        " (1, 'P1', 'One', '2024-01-02', NULL, 1000.5, 20, 7.25, 0), (2, 'P2', 'Two', NULL, NULL, NULL, NULL, NULL, "
        "NULL),"
        " (3, 'P3', 'Old', NULL, NULL, 9, 9, 9, 1)");
    const auto result = runReport({.member = "ProjectPriceList", .company = company.path(), .language = "ids"});
    EXPECT_EQ(result.texts("txtEstSale"), (Texts{"$1,000.50", "$0.00"}));
    EXPECT_EQ(result.texts("txtEstHours"), (Texts{"7.25", "0.00"}));
    EXPECT_EQ(result.only("txtTotalEstSale"), "$1,000.50");
    EXPECT_EQ(result.only("txtTotalEstHours"), "7.25");
    EXPECT_EQ(result.only("txtProjCount"), "2 #4766(s)");
    EXPECT_EQ(result.links("fldEndDate"), (Texts{"1", "2"}));

    const auto none = runReport({.member = "ProjectPriceList",
                                 .company = company.path(),
                                 .where = "ProjId = 'none'",
                                 .settings = {{111, "0"}}});
    EXPECT_EQ(none.only("txtTotalEstPurch"), "$0.00");
    EXPECT_TRUE(none.texts("lblCode").empty());
}

// Orders in two currencies; the customer's groups, the document's converts. One in home currency has no rate.
constexpr const char* orders =
    "UPDATE CompanyFact SET Value = '1' WHERE Name = 'UsesForeignCurrency';"
    "INSERT INTO WorldCurrency (InCurrencyId, CurrencyCode, Descr) VALUES (2, 'USD', 'US dollar'), (3, 'EUR', 'Euro');"
    "INSERT INTO Cust (InCustId, CustId, Name, ExCurrencyId) VALUES (1, 'H', 'Home', 1), (2, 'U', 'Uncle', 2), (3, "
    "'E', 'Europa', 3);"
    "INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, ExCustId, InvoiDate, RecDate, ShipDate, TotAmnt, "
    "ExCurrencyId, ExchangeRate, ToApprove) VALUES"
    " (1, 'O1', 51, 1, '2024-01-05', '2024-01-05', '2024-01-09', 100, 1, NULL, 1),"
    " (2, 'O2', 51, 2, '2024-01-06', '2024-01-06', NULL, 10.05, 2, 1.3, 1),"
    " (3, 'O3', 51, 2, '2024-01-07', '2024-01-07', NULL, 50, 1, 1, 0),"
    " (4, 'O4', 51, 1, '2024-01-08', '2024-01-08', NULL, -5, 1, 1, NULL),"
    " (5, 'O5', 51, 1, '2024-01-09', '2024-01-09', NULL, NULL, 1, 1, 2),"
    " (6, 'Q1', 50, 3, '2024-01-10', '2024-01-10', NULL, 20, 3, 1.5, 1),"
    " (7, 'X1', 2, 1, '2024-01-10', '2024-01-10', NULL, 20, 1, 1, 1);";

ReportRun orderRun(const TestCompany& company) {
    return {
        .member = "OpenOrders", .company = company.path(), .from = "2024-01-01", .to = "2024-12-31", .language = "ids"};
}

TEST(OpenOrders, GroupsByTheCustomersCurrencyAndConvertsByTheDocuments) {
    const TestCompany company(orders);
    for (const int dialect : {0, 1}) {
        ReportRun run = orderRun(company);
        run.dialect = dialect;
        run.foreign = true;
        const auto foreign = runReport(run);
        EXPECT_TRUE(foreign.boxes.empty()) << foreign.boxes.front();
        EXPECT_EQ(foreign.texts("txtCurrencyDescr"), (Texts{"CAD - Canadian dollar", "USD - US dollar"}));
        EXPECT_EQ(foreign.texts("txtTotAmnt"), (Texts{"$100.00", "$0.00", "", "$10.05", "$50.00"}));
        EXPECT_EQ(foreign.texts("txtCurrencyTotalCode"), (Texts{"CAD", "USD"}))
            << "a footer shows its own group, also the last one";
        // The total is reset by the document's currency: the home-currency order of the US customer starts it anew only
        // where a group begins.
        EXPECT_EQ(foreign.texts("txtCurrencyTotal"), (Texts{"$100.00", "$60.05"}));
        EXPECT_TRUE(foreign.texts("txtGrandTotal").empty()) << "a sum over currencies means nothing";
        EXPECT_EQ(foreign.only("lblEnd"), "5 #5860");

        run.foreign = false;
        const auto home = runReport(run);
        EXPECT_TRUE(home.texts("txtCurrencyDescr").empty());
        EXPECT_EQ(home.texts("txtTotAmnt"), (Texts{"$100.00", "$0.00", "", "$13.07", "$50.00"}));
        EXPECT_EQ(home.only("txtGrandTotal"), "$163.07");
        EXPECT_EQ(home.links("txtInvoiId"), (Texts{"INV|1", "INV|4", "INV|5", "INV|2", "INV|3"}));
        EXPECT_EQ(first(home.links("txtName")), "CUS|1");
        EXPECT_EQ(home.only("lblDateFromDateTo").substr(0, 5), "#3013");
    }
}

TEST(OpenOrders, RowsAtZeroAreDroppedOnWishAndStillCount) {
    for (const char* amount : {"-5", "0"}) {
        const TestCompany company(std::string(orders) + "UPDATE InvoiHdr SET TotAmnt = " + amount +
                                  " WHERE InvoiId = 'O4'");
        ReportRun run = orderRun(company);
        run.options = {{"chkIncludeZeroOrders", false}};
        const auto result = runReport(run);
        EXPECT_EQ(result.texts("txtInvoiId"), (Texts{"O1", "O5", "O2", "O3"})) << "a missing amount is no zero";
        EXPECT_EQ(result.only("lblEnd"), "5 #5860");
    }
}

TEST(OpenOrders, ACustomerOfAnUnknownCurrencyIsListedAllTheSame) {
    const TestCompany company(std::string(orders) + "UPDATE Cust SET ExCurrencyId = 9 WHERE InCustId = 2");
    const auto result = runReport(orderRun(company));
    EXPECT_EQ(result.boxes, Texts{});
    EXPECT_EQ(result.texts("txtInvoiId"), (Texts{"O2", "O3", "O1", "O4", "O5"}));
}

TEST(OpenOrders, TheCurrencyLeadsTheOrderUnlessTheUserNamesIt) {
    const TestCompany company(orders);
    ReportRun run = orderRun(company);
    run.order = "InvoiHdr.InvoiDate DESC";
    EXPECT_EQ(runReport(run).texts("txtInvoiId"), (Texts{"O5", "O4", "O1", "O3", "O2"}));
    run.order = "worldcurrency.currencycode DESC, InvoiHdr.InvoiDate";
    EXPECT_EQ(runReport(run).texts("txtInvoiId"), (Texts{"O2", "O3", "O1", "O4", "O5"}));
}

TEST(OpenOrders, ACompanyWithoutForeignCurrencyHasNoGroupsButKeepsTheWish) {
    const TestCompany company(std::string(orders) +
                              "UPDATE CompanyFact SET Value = '0' WHERE Name = 'UsesForeignCurrency'");
    ReportRun run = orderRun(company);
    run.foreign = true;
    const auto result = runReport(run);
    EXPECT_TRUE(result.texts("txtCurrencyDescr").empty());
    EXPECT_TRUE(result.texts("txtGrandTotal").empty()) << "the stored wish still hides the grand total";
    run.properties = {{"InvoiceType", "50"}};
    EXPECT_EQ(runReport(run).texts("txtInvoiId"), Texts{"Q1"});
}

TEST(Lists, DatesAtTheirLimitsSayAllDates) {
    const TestCompany company(orders);
    const struct {
        const char *from, *to, *caption;
    } cases[] = {{"2024-01-05", "2024-01-06", "From 2024-01-05 to 2024-01-06"},
                 {"", "2024-01-06", "All dates"},
                 {"2024-01-05", "", "All dates"},
                 {"", "", "All dates"}};
    for (const auto& [from, to, caption] : cases) {
        const auto result = runReport({.member = "OpenOrders", .company = company.path(), .from = from, .to = to});
        EXPECT_EQ(result.only("lblDateFromDateTo"), caption);
    }
}

TEST(DocumentsToApprove, ListsOnlyWhatWaitsAndFollowsTheUsersOrder) {
    const TestCompany company(orders);
    ReportRun run{.member = "DocumentsToApprove",
                  .company = company.path(),
                  .from = "2024-01-01",
                  .to = "2024-12-31",
                  .foreign = true};
    const auto result = runReport(run);
    EXPECT_TRUE(result.boxes.empty()) << result.boxes.front();
    EXPECT_EQ(result.texts("txtInvoiId"), (Texts{"O1", "O5", "Q1", "O2"}));
    EXPECT_EQ(result.texts("txtType"), (Texts{"Order", "Order", "Quote", "Order"}));
    EXPECT_EQ(result.texts("txtCurrencyTotal"), (Texts{"$100.00", "$20.00", "$10.05"}));
    EXPECT_EQ(result.only("lblEnd").substr(0, 2), "4 ");
    run.order = "InvoiHdr.InvoiDate";
    EXPECT_EQ(runReport(run).texts("txtFullCurrencyDescr"),
              (Texts{"CAD - Canadian dollar", "USD - US dollar", "CAD - Canadian dollar", "EUR - Euro"}))
        << "an order without the currency breaks the groups";
    run.language = "fr";
    EXPECT_EQ(first(runReport(run).texts("txtType")), "Commande");
}

}  // namespace
}  // namespace quillo::test
