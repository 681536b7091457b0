#include <gtest/gtest.h>

#include "framework/values/errors.h"
#include "tests/host/test_company.h"

namespace quillo {
namespace {

const char* const trade =
    "UPDATE CompanyFact SET Value = '1' WHERE Name = 'UsesForeignCurrency';"
    "INSERT INTO WorldCurrency VALUES (2, 'USD', 'US dollar');"
    "INSERT INTO Dictionary VALUES ('US dollar', 'fr', 'Dollar américain');"
    "INSERT INTO Country VALUES (1, 'CA', 'Canada');"
    "INSERT INTO Cust (InCustId, CustId, Name) VALUES (1, 'A', 'Ash'), (2, 'B', 'Birch'), (3, 'C', 'Cedar');"
    "INSERT INTO Addr (InAddrId, ExCustId, AddrKind, AddrLine1, AddrLine2, City, Province, PostalCode, ExCountryId) "
    "VALUES"
    " (1, 1, 1, 'Dock 4', NULL, NULL, NULL, NULL, NULL), (2, 1, 0, '1 Main St', '', 'Hull', 'QC', 'J8X 1A1', 1),"
    " (3, 2, 0, '2 Elm St', 'Suite 3', 'Laval', NULL, NULL, NULL);"
    "INSERT INTO InvoiHdr (InInvoiId, InvoiType, InvoiDate, ExCustId) VALUES (1, 1, '2024-01-05', 1), (2, 3, "
    "'2024-03-01', 1),"
    " (3, 51, '2024-09-09', 1), (4, 50, '2024-02-02', 2);"
    "INSERT INTO ProjInfo (InProjId, ProjId) VALUES (1, '~Inconnu~');"
    "INSERT INTO GLAcct VALUES (10, '1000', 'Bank', 1), (11, '1100', 'Receivables', 0), (12, '4000', 'Sales', 0);"
    "INSERT INTO AccountGroup VALUES ('CustGLAR', 1, 11), ('CustGLAR', 2, 10), ('CustGLAR', 2, 11), ('Other', 1, 12);"
    "INSERT INTO GLDet (SeqNo, DetDate, ExAcctId, DetAmnt) VALUES (1, '2024-01-01', 10, 0.1), (1, '2024-01-31', 10, "
    "0.2),"
    " (2, '2024-02-01', 10, 5), (2, '2024-01-15', 12, -0.3);"
    "INSERT INTO CustomField VALUES (1, 'Cust', 'Route', 2), (2, 'Cust', 'Region', 1), (3, 'Item', 'Shelf', 1);"
    "INSERT INTO CustomFieldValue VALUES (1, 1, 'North'), (3, 1, 'B4');"
    "INSERT INTO Setting VALUES (200, 'True'); UPDATE Setting SET Value = '0' WHERE Number = 113; DELETE FROM Setting "
    "WHERE Number = 114;"
    "INSERT INTO Parameter VALUES ('S', 'CostCalculMeth', '1');"
    "INSERT INTO TextOverride VALUES ('fr', 1911, 'Modalités')";

SessionOptions french() {
    SessionOptions options;
    options.language = "fr";
    options.locale = "fr_CA";
    options.sessionDate = Date::fromCivil(2024, 6, 30);
    return options;
}

TEST(Services, CurrenciesAreNamedInTheUsersLanguage) {
    test::TestSession session(trade, french());
    CurrencyInfo& info = session->currencyInfo();
    EXPECT_TRUE(info.CieIsForeignCurrencyUsed());
    EXPECT_EQ(info.CieHomeCurrencyId(), 1);
    EXPECT_EQ(info.currencies().Count(), 2);
    EXPECT_EQ(info.currencies().Item("2").CurrencyCode, "USD");
    EXPECT_EQ(info.currencies().Item("2").CurrencyDescr, "Dollar américain");
    EXPECT_THROW(info.currencies().Item("3"), NameError);
    EXPECT_EQ(session->company().dictionary().Translate("invoice"), "Facture");
    EXPECT_EQ(session->company().dictionary().Translate("Sketch"), "Sketch");
}

TEST(Services, LastSalesCountOnlySales) {
    test::TestSession session(trade);
    CustomerStatistics& statistics = session->company().customerStatistics();
    for (const bool cached : {false, true}) {
        statistics.setCached(cached);
        EXPECT_EQ(statistics.LastSaleDate(1), Date::fromCivil(2024, 3, 1));
        EXPECT_EQ(statistics.LastSaleDate(2), noDate);
        EXPECT_EQ(statistics.LastSaleDate(99), noDate);
    }
}

TEST(Services, AddressesLeaveOutEmptyLines) {
    test::TestSession session(trade);
    AddressBook& book = session->company().addressBook();
    EXPECT_EQ(book.AddressOf(1), "1 Main St\nHull, QC  J8X 1A1\nCanada");
    EXPECT_EQ(book.AddressOf(2), "2 Elm St\nSuite 3\nLaval");
    EXPECT_EQ(book.AddressOf(3), "");
}

TEST(Services, LookUpsOfTheCompany) {
    test::TestSession session(trade);
    Company& company = session->company();
    EXPECT_TRUE(company.projects().Exists("~Inconnu~"));
    EXPECT_FALSE(company.projects().Exists("P1"));
    EXPECT_EQ(company.accountGroups().Accounts("CustGLAR"), (std::vector<int>{10, 11}));
    EXPECT_EQ(company.accountGroups().Accounts("CustGLAR", 1), std::vector<int>{11});
    EXPECT_TRUE(company.accountGroups().Accounts("None").empty());
    const auto fields = company.customFields().Values("cust", 1);
    ASSERT_EQ(fields.size(), 2U);
    EXPECT_EQ(fields[0].caption + "=" + fields[0].value + ";" + fields[1].caption + "=" + fields[1].value,
              "Region=;Route=North");
}

TEST(Services, BalancesOfARangeOfAccounts) {
    test::TestSession session(trade);
    const auto rows = session->generalLedger().OpenGLAcctBalanceRange("1000", "1999", Date::fromCivil(2024, 1, 1),
                                                                      Date::fromCivil(2024, 1, 31));
    EXPECT_EQ(rows->Value("GLAcctId", ValueType::text).toText(), "1000");
    EXPECT_EQ(rows->Value("Balance", ValueType::currency).toMoney(), Money::fromRaw(3000));
    rows->MoveNext();
    EXPECT_EQ(rows->Value("InGLAcctId", ValueType::integer).toInt32(), 11);
    EXPECT_TRUE(rows->Value("Balance", ValueType::currency).toMoney().isZero());
    rows->MoveNext();
    EXPECT_TRUE(rows->atEnd());
}

TEST(Services, SettingsAndParametersTakeTheirDefaults) {
    SessionOptions options;
    options.settings = {{104, "False"}, {300, "maybe"}};
    options.parameters = {{"custpriod1", "15"}};
    test::TestSession session(trade, options);
    const Settings& settings = session->company().settings();
    EXPECT_FALSE(settings.Item(104).toBool());  // this run's
    EXPECT_FALSE(settings.Item(113).toBool());  // the company's
    EXPECT_TRUE(settings.Item(114).toBool());   // the default
    EXPECT_TRUE(settings.Item(200).toBool());
    EXPECT_FALSE(settings.Item(201).toBool());
    EXPECT_THROW(settings.Item(300), ConversionError);
    const Company& company = session->company();
    EXPECT_EQ(company.GetParameter("CustPriod1", "30"), "15");
    EXPECT_EQ(company.GetParameter("CustPriod2", "60"), "60");
    EXPECT_EQ(company.GetParameter("CostCalculMeth", "0"), "1");
    EXPECT_EQ(company.GetParameter("CostCalculMeth", "0", "T"), "0");
}

TEST(Services, UtilitiesSpeakTheDialectAndTheLanguage) {
    SessionOptions options = french();
    options.dialect = 1;
    test::TestSession jet(trade, options);
    options.dialect = 2;
    options.language = "en";
    test::TestSession server(trade, options);
    EXPECT_EQ(jet->company().DatabaseKind(), 1);
    EXPECT_EQ(jet->utils().NullExpression("A.B", "0", true), "IIF(IsNull(A.B), 0, A.B)");
    EXPECT_EQ(server->utils().NullExpression("A.B", "0", true), "COALESCE(A.B, 0)");
    EXPECT_EQ(jet->utils().NumberText(ValueView::ofDouble(1.35)), "1,35");
    EXPECT_EQ(jet->utils().DateText(ValueView::ofDate(Date::fromCivil(2024, 2, 9))), "2024-02-09");
    EXPECT_EQ(jet->utils().NumberText({}) + jet->utils().DateText({}), "");
    EXPECT_EQ(jet->utils().SourceText("PMT"), "Paiement");
    EXPECT_EQ(server->utils().SourceText("inv"), "Invoice");
    EXPECT_EQ(server->utils().SourceText("XYZ"), "XYZ");
    for (HostSession* session : {&*jet.session, &*server.session}) {
        const auto text = "SELECT " + session->utils().RoundExpression("2.675", true) + " + " +
                          session->utils().NullExpression("NULL", "1", true) + " AS X";
        EXPECT_EQ(session->company().Database().OpenRecordset(text, 4, 0)->Value("X", ValueType::currency).toMoney(),
                  Money::fromRaw(36800));
        const auto command = session->company().Database().newCommand();
        session->utils().SetCommandParameters(*command, {1, "a"});
        session->utils().SetCommandParameters(*command, {noEndLimit});
        EXPECT_EQ(command->Parameters.size(), 3U);
    }
}

TEST(HostSession, TakesFromTheCompanyWhatIsNotAskedFor) {
    test::TestSession session(trade);
    EXPECT_EQ(session->GetText(1911), "Terms");
    EXPECT_EQ(session->locale().currency(Money::fromRaw(12345000)), "$1,234.50");
    EXPECT_EQ(session->CieCountry(), "CA");
    EXPECT_EQ(session->DefaultWarehouseID(), 0);
    EXPECT_EQ(session->company().DatabaseKind(), 0);
    EXPECT_GT(session->SessionDate(), Date::fromCivil(2024, 1, 1));
    test::TestSession asked(trade, french());
    EXPECT_EQ(asked->GetText(1911), "Modalités");
    EXPECT_EQ(asked->SessionDate(), Date::fromCivil(2024, 6, 30));
    EXPECT_THROW(asked->GetText(3), NameError);
}

TEST(HostSession, MessagesTakeTheirArguments) {
    test::TestSession session(trade, french());
    EXPECT_EQ(session->GetMessage(12802, "korva", {"2024-05-31"}),
              "L'inventaire n'est à jour qu'au 2024-05-31; lancez la mise à jour pour obtenir des coûts exacts.");
    EXPECT_EQ(session->GetMessage(12944, "Korva", {}), "Totaux par projet");
    EXPECT_THROW(session->GetMessage(12944, "Other", {}), NameError);
    EXPECT_THROW(session->GetMessage(1911, "Korva", {}), NameError) << "a text is no message";
}

TEST(HostSession, WrongChoicesAreErrors) {
    SessionOptions language;
    language.language = "xx";
    EXPECT_THROW(test::TestSession("", language), InputError);
    SessionOptions locale;
    locale.locale = "xx_YY";
    EXPECT_THROW(test::TestSession("", locale), InputError);
    EXPECT_THROW(test::TestSession("UPDATE CompanyFact SET Value = '77' WHERE Name = 'HomeCurrencyId'"), InputError);
}

}  // namespace
}  // namespace quillo
