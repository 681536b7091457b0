#include <gtest/gtest.h>

#include "framework/report_contract.h"
#include "framework/values/errors.h"
#include "tests/host/test_company.h"
#include "tests/support/receivables_company.h"

namespace quillo::test {
namespace {

std::string listed(TestSession& session, bool paid, int customer, Date day, std::string_view where = "") {
    const auto rows = session->company().customers().GetCustAgingList(
        paid, customer, day, where, "CustAgingList.DocOrderDate, CustAgingList.DocOrderId, CustAgingList.InvoiType", "",
        "", true, 0);
    std::string text;
    for (; !rows->atEnd(); rows->MoveNext()) {
        for (const char* column : {"InvoiId", "InvoiType", "DocType", "DocOrderId", "Balance", "ExCurrencyId"})
            text += rows->Value(column, ValueType::text).textOrEmpty() + " ";
        text += rows->Value("ExchangeRate", ValueType::text).textOrEmpty() + "; ";
    }
    return text;
}

TEST(ReceivablesList, IsGrossAndCarriesTheDocumentsCurrencyAndRateOnEachRow) {
    TestSession session(receivables);
    const Date day = Date::fromCivil(2024, 5, 15);
    EXPECT_EQ(listed(session, false, 11, day),
              "U1 1 1 105 1000 2 1.35; 903 99 1 105 -400 2 1.35; AJ-1 101 101 401 7.5 2 1; U2 1 2 106 80 2 1.3333; "
              "77 99 2 106 -30 2 1.3333; ");
    EXPECT_EQ(listed(session, false, 13, day),
              "905 99 99 305 -25 1 1; 905 99 99 305 15 1 1; D1 1 1 109 10 2 1.4; D2 1 1 110 70 1 1; "
              "905 99 1 110 -15 1 1; 907 99 1 110 -10 1 1; ");
    EXPECT_EQ(listed(session, false, 12, day), "");
    EXPECT_EQ(listed(session, true, 12, day),
              "C1 1 1 107 60 1 1; 904 99 1 107 -55 1 1; N2 99 1 107 -5 1 1; N2 3 3 112 -5 1 1; N2 99 3 112 5 1 1; ");
    // A payment is money on account until the day of what it pays; a later one does not count.
    EXPECT_EQ(listed(session, false, 13, Date::fromCivil(2024, 4, 29)),
              "905 99 99 305 -25 1 1; D1 1 1 109 10 2 1.4; 907 99 99 307 -10 1 1; ");
    EXPECT_EQ(listed(session, false, 0, Date::fromCivil(2024, 1, 31), "Cust.Name LIKE 'A%' AND ExSegmentId = 1"),
              "F1 1 1 101 100 1 1; ");
    EXPECT_EQ(listed(session, false, 0, Date::fromCivil(2024, 5, 15),
                     "WorldCurrency.CurrencyCode = 'USD' AND "
                     "Cust.CustId = 'D' OR InvoiType = 4"),
              "D1 1 1 109 10 2 1.4; I1 4 4 104 5 1 1; ");
}

TEST(ReceivablesList, TellsCustomersApartAndTheirCurrencyInTheUsersLanguage) {
    SessionOptions options;
    options.language = "fr";
    TestSession session(receivables, options);
    session.messages.texts.clear();
    CustomerService& customers = session->company().customers();
    const auto rows = customers.GetCustAgingList(false, 0, Date::fromCivil(2024, 2, 20), "", "Name", "", "", true, 0);
    std::string text;
    for (; !rows->atEnd(); rows->MoveNext())
        for (const char* column : {"CustNameID", "Descr", "CurrencyCode", "Contact"})
            text += rows->Value(column, ValueType::text).textOrEmpty() + ";";
    EXPECT_TRUE(text.starts_with("Ash|10;Canadian dollar;CAD;Al;")) << text;
    EXPECT_NE(text.find("Birch|11;Dollar américain;USD;Bo;"), std::string::npos) << text;
    const std::string fields = customers.AgingFilterFields("ExCurrencyID,InCustID");
    EXPECT_TRUE(fields.starts_with("Cust.CustId, Cust.Name, ")) << fields;
    EXPECT_EQ(fields.find("Currency"), std::string::npos);
    EXPECT_EQ(customers.CurrencyFilterFields(), "WorldCurrency");
}

TEST(Invoices, HaveTheBalanceOfADay) {
    TestSession session(receivables);
    const auto balance = [&](int invoice, int month, int day) {
        const auto row = session->company().invoices().BalanceAtDate(invoice, Date::fromCivil(2024, month, day));
        return row->hasRows() ? row->Value("Balance", ValueType::currency).toMoney().toText() : "none";
    };
    EXPECT_EQ(balance(103, 4, 9), "-50");
    EXPECT_EQ(balance(103, 4, 10), "-20");
    EXPECT_EQ(balance(101, 2, 10), "58");
    EXPECT_EQ(balance(106, 3, 10), "50");
    EXPECT_EQ(balance(106, 3, 9), "none");
    EXPECT_EQ(balance(111, 3, 9), "none") << "an order is not owed";
    EXPECT_EQ(balance(999, 3, 9), "none");
}

struct Evaluation final : IExchangeRates {
    std::shared_ptr<ExchangeRates> rates;
    bool reevaluate = true;
    std::string date;
    std::shared_ptr<ExchangeRates> IExchangeRates_ExchangeRates() override { return rates; }
    void IExchangeRates_ExchangeRates(std::shared_ptr<ExchangeRates> given) override { rates = std::move(given); }
    bool IExchangeRates_Reevaluate() override { return reevaluate; }
    void IExchangeRates_Reevaluate(bool value) override { reevaluate = value; }
    std::string IExchangeRates_ExchangeRatesDate() override { return date; }
    void IExchangeRates_ExchangeRatesDate(std::string value) override { date = std::move(value); }
};

TEST(ReevaluationRates, AreThoseOfADayUnderThoseThatAreGiven) {
    SessionOptions options;
    options.locale = "fr_CA";
    options.sessionDate = Date::fromCivil(2024, 5, 1);
    TestSession session(std::string(receivables) +
                            "INSERT INTO WorldCurrency VALUES (3, 'EUR', 'Euro');"
                            "INSERT INTO ExchangeRateByDay VALUES (3, '2024-05-01', 1.6)",
                        options);
    CurrencyInfo& info = session->currencyInfo();
    const auto amount = [&](int currency, const Evaluation& report) {
        return info.EvaluateValueWithExchangeRate(1.3333, currency, Money::fromInteger(-50), report.rates.get())
            .toText();
    };
    Evaluation report;
    info.ConfigureExchangeRates(Date::fromCivil(2024, 3, 31), report);
    EXPECT_EQ(report.date, "2024-03-31");
    EXPECT_EQ(amount(2, report), "-62.5");
    EXPECT_EQ(amount(1, report), "-50");
    EXPECT_THROW(amount(3, report), NameError) << "a currency without a rate is never taken at 1";
    EXPECT_EQ(info.currencies().GetCurrenciesLegend(report.rates), "1 USD = 1,25 CAD");
    report.date.clear();
    info.ConfigureExchangeRates(noEndLimit, report);
    EXPECT_EQ(info.currencies().GetCurrenciesLegend(report.rates), "1 USD = 1,25 CAD; 1 EUR = 1,6 CAD")
        << "what the report held stays";
    report = {};
    report.date = "2024-04-01";
    info.ConfigureExchangeRates(noEndLimit, report);
    EXPECT_EQ(info.currencies().GetCurrenciesLegend(report.rates), "1 USD = 1,5 CAD");
    report.date = "yesterday";
    EXPECT_THROW(info.ConfigureExchangeRates(noEndLimit, report), InputError);
    report.reevaluate = false;
    info.ConfigureExchangeRates(noEndLimit, report);
    EXPECT_EQ(report.rates, nullptr);
    EXPECT_EQ(amount(2, report), "-66.67") << "at the document's own rate, half a cent away from zero";
    EXPECT_EQ(info.currencies().GetCurrenciesLegend(report.rates), "");
}

}  // namespace
}  // namespace quillo::test
