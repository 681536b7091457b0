#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "host/drill/drill_target.h"
#include "tests/company/demo_file.h"
#include "tests/support/report_runner.h"

namespace quillo::test {
namespace {

using Texts = std::vector<std::string>;

Money read(const std::string& amount) {
    return LocaleFormat().readMoney(amount);
}

// A day at two registers. Nadia sells for 115 at R1, gets 120 in cash and gives 5 back; at R2 for 207 by card, a tenth
// off. Kevin sells for 92 at R1, gets 100 US dollars and gives 43 of home currency back; at R2 for 46 on account. An
// order and a sale of the office count nowhere. Nadia takes 60 in cash for an old invoice, Kevin 25 by card for his
// sale at R1; Nadia takes 150 out of the drawer.
constexpr const char* day = R"(
    UPDATE CompanyFact SET Value = '1' WHERE Name = 'UsesForeignCurrency';
    INSERT INTO WorldCurrency VALUES (2, 'USD', 'US dollar');
    INSERT INTO ExchangeRateByDay VALUES (2, '2024-03-01', 1.35);
    INSERT OR REPLACE INTO PmtMeth VALUES (1, 'Cash'), (3, 'Debit card');
    INSERT OR REPLACE INTO CashierParameter VALUES (3, 'CashPmtMethId', '1'), (3, 'OpeningAmount', '200'),
        (3, 'OpeningAmount.USD', '50');
    INSERT INTO GLAcct (InGLAcctId, GLAcctId, Descr) VALUES (21, '4010', 'Lumber'), (22, '4020', 'Tools');
    INSERT INTO Item (InItemId, ItemId) VALUES (9, 'SCR-3');
    INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, InvoiTime, ExCurrencyId, ExchangeRate, TaxAmnt,
        TotAmnt, RecAmnt, ExPmtMethId, CashierSale, ExUsrKey, TrxSerNo) VALUES
        (9, 'OLD', 1, '2024-01-05', NULL, 1, 1, 0, 60, NULL, NULL, 0, NULL, NULL),
        (10, 'K10', 1, '2024-03-05', '09:10:00', 1, 1, 15, 115, 115, 1, 1, 'Nadia', 'R1'),
        (11, 'K11', 1, '2024-03-05', '09:20:00', 1, 1, 27, 207, 207, 3, 1, 'Nadia', 'R2'),
        (12, 'K12', 1, '2024-03-05', '09:30:00', 1, 1, 12, 92, 92, 1, 1, 'Kevin', 'R1'),
        (13, 'K13', 1, '2024-03-05', '09:40:00', 1, 1, 6, 46, 0, NULL, 1, 'Kevin', 'R2'),
        (14, 'C14', 51, '2024-03-05', '09:50:00', 1, 1, 0, 500, 30, 1, 1, 'Nadia', 'R1'),
        (15, 'F15', 1, '2024-03-05', '09:55:00', 1, 1, 0, 900, 0, NULL, 0, 'Nadia', 'R1');
    INSERT INTO InvoiDet (InInvoiDetId, ExInvoiId, ExItemId, Descr, Qty, UnitPrice, DiscPercent, ExSaleAcctId) VALUES
        (1, 10, 9, 'Deck screws', 2, 50, NULL, 21), (2, 11, 9, 'Saw', 1, 200, 10, 22), (3, 12, 9, 'Planks', 1, 80, 0, 21),
        (4, 13, NULL, 'Cutting', 1, 40, NULL, 21), (5, 14, 9, 'Ordered', 1, 500, NULL, 21), (6, 15, 9, 'Office', 1, 900,
        NULL, 21);
    INSERT INTO InvoiRecDet (InInvoiRecDetId, ExInvoiId, ExPmtMethId, ExCurrencyId, ExchangeRate, RecAmnt) VALUES
        (1, 10, 1, 1, 1, 120), (2, 10, 1, 1, 1, -5), (3, 11, 3, 1, 1, 207), (4, 12, 1, 2, 1.35, 100),
        (5, 12, 1, 1, 1, -43);
    INSERT INTO PmtHdr (InPmtId, PmtDate, ChqNo, ExPmtMethId, ExCurrencyId, ExchangeRate, PmtTotAmnt) VALUES
        (30, '2024-03-05', 'R-30', 1, 1, 1, 60), (31, '2024-03-05', 'R-31', 3, 1, 1, 25);
    INSERT INTO PmtDet (InPmtDetId, ExPmtId, ExInvoiId, PmtAmnt, CashierPayment, ExUsrKey, TrxSerNo) VALUES
        (1, 30, 9, 60, 0, 'Nadia', 'R1'), (2, 31, 12, 25, 1, 'Kevin', 'R1');
    INSERT INTO InvoiCashDeposit (ICDOperatorKey, ICDCashReg, ICDDate, ICDTime, ICDAmnt, ExCurrencyId, ExchangeRate)
        VALUES ('Nadia', 'R1', '2024-03-05', '17:00:00', 150, 1, 1))";

ReportRun run(const TestCompany& company, const char* member, std::map<std::string, std::string> properties = {}) {
    ReportRun run{.member = member, .company = company.path(), .from = "2024-03-05", .to = "2024-03-05"};
    run.properties = std::move(properties);
    return run;
}

void expectUsers(const ReportResult& result) {
    EXPECT_EQ(result.boxes, Texts{});
    EXPECT_EQ(result.texts("txtUsrName"), (Texts{"Kevin", "Nadia"}));
    EXPECT_EQ(result.texts("txtGLAcctId"), (Texts{"4010", "4010", "4020"}));
    EXPECT_EQ(result.texts("txtPrice"), (Texts{"$120.00", "$100.00", "$180.00"}));
    EXPECT_EQ(result.texts("txtSum"), (Texts{"$120.00", "$280.00"}));
    EXPECT_EQ(result.texts("txtSumTaxAmnt"), (Texts{"$18.00", "$42.00"}));
    EXPECT_EQ(result.texts("txtSumTotAmnt"), (Texts{"$138.00", "$322.00"}));
    EXPECT_EQ(result.texts("txtRecMeth"), (Texts{"Cash", "Debit card", "Cash", "Cash", "Debit card"}));
    EXPECT_EQ(result.texts("txtRecAmntRecalc"), (Texts{"-$43.00", "$25.00", "$135.00", "$115.00", "$207.00"}));
    EXPECT_EQ(result.texts("txtDifference"), (Texts{"$46.00", "$0.00"})) << "the sale on account";
    EXPECT_EQ(result.texts("txtToDayAmnt"), (Texts{"$200.00", "$67.50", "$200.00"}));
    EXPECT_EQ(result.texts("txtToDayAmntFor"), (Texts{"$50.00"}));
    EXPECT_EQ(result.texts("txtPaiementReceipt"), (Texts{"$0.00", "$0.00", "$60.00"}));
    EXPECT_EQ(result.texts("txtAmntNeg"), (Texts{"$43.00", "$0.00", "$5.00"}));
    EXPECT_EQ(result.texts("txtDeposit"), (Texts{"$0.00", "$0.00", "$150.00"}));
    EXPECT_EQ(result.texts("txtBalance"), (Texts{"$157.00", "$202.50", "$225.00"}));
}

TEST(DayEndBalanceByUsr, ClosesTheTillOfEachUser) {
    const TestCompany company(day);
    for (const int dialect : {0, 1}) {
        auto asked = run(company, "DayEndBalanceByUsr");
        asked.dialect = dialect;
        SCOPED_TRACE(dialect);
        const auto result = runReport(asked);
        expectUsers(result);
        EXPECT_EQ(result.links("txtGLAcctId"), (Texts{"Invoice|21|Kevin", "Invoice|21|Nadia", "Invoice|22|Nadia"}));
        EXPECT_EQ(result.links("txtRecMeth"),
                  (Texts{"Payment|Cash|Kevin|1| ", "Payment|Debit card|Kevin|1| ", "Payment|Cash|Kevin|2| ",
                         "Payment|Cash|Nadia|1| ", "Payment|Debit card|Nadia|1| "}));
        EXPECT_EQ(last(result.links("txtPaiementReceipt")), "ReceiptPayment|30");
        EXPECT_EQ(last(result.links("txtDeposit")), "Deposit| |Nadia|");
        EXPECT_EQ(last(result.links("txtAmntNeg")), "Payment|Cash|Nadia|1|Neg|");
    }
}

TEST(DayEndBalanceByCash, ClosesEachRegisterAndAgreesWithTheUsers) {
    const TestCompany company(day);
    for (const int dialect : {0, 1}) {
        auto asked = run(company, "DayEndBalanceByCash");
        asked.dialect = dialect;
        const auto result = runReport(asked);
        EXPECT_EQ(result.boxes, Texts{});
        EXPECT_EQ(result.texts("txtTrxSerNo"), (Texts{"R1", "R2"}));
        EXPECT_EQ(result.texts("txtPrice"), (Texts{"$180.00", "$40.00", "$180.00"}));
        EXPECT_EQ(result.texts("txtSumTaxAmnt"), (Texts{"$27.00", "$33.00"}));
        EXPECT_EQ(result.texts("txtSumTotAmnt"), (Texts{"$207.00", "$253.00"})) << "as much as the users' 460";
        EXPECT_EQ(result.texts("txtRecMeth"), (Texts{"Cash", "Debit card", "Cash", "Debit card"}));
        EXPECT_EQ(result.texts("txtRecAmntRecalc"), (Texts{"$72.00", "$25.00", "$135.00", "$207.00"}));
        EXPECT_EQ(result.texts("txtDifference"), (Texts{"$0.00", "$46.00"}));
        EXPECT_EQ(result.texts("txtBalance"), (Texts{"$182.00", "$202.50"})) << "no cash came to R2";
        EXPECT_EQ(first(result.links("txtGLAcctId")), "Invoice|21|R1");
    }
}

TEST(DayEndBalanceByUsr, LeavesPaymentReceiptsOutAndClosesUpWhenAskedTo) {
    const TestCompany company(day);
    auto asked = run(company, "DayEndBalanceByUsr");
    const auto with = runReport(asked);
    asked.options = {{"chkIncludePaiementReceipt", false}};
    const auto without = runReport(asked);
    EXPECT_EQ(without.texts("lblPaiementReceipt"), Texts{});
    EXPECT_EQ(without.texts("txtBalance"), (Texts{"$157.00", "$202.50", "$165.00"}));
    EXPECT_EQ(with.texts("lblPaiementReceipt").size(), 3U);
}

TEST(DayEndBalance, ReadsItsOwnAmountsInEveryLocale) {
    const TestCompany company(day);
    for (const char* locale : {"fr_CA", "de_CH", "en_IN", "fr_FR"}) {
        auto asked = run(company, "DayEndBalanceByUsr");
        asked.locale = locale;
        const auto result = runReport(asked);
        EXPECT_EQ(result.boxes, Texts{}) << locale;
        EXPECT_EQ(result.texts("txtBalance").size(), 3U);
        EXPECT_EQ(nth(result.texts("txtBalance"), 2).find("225"), last(result.texts("txtBalance")).find("225"));
        EXPECT_NE(last(result.texts("txtBalance")).find("225"), std::string::npos) << locale;
    }
}

TEST(DayEndBalance, TakesWhatHasNoUserAndNoRegister) {
    const TestCompany company(std::string(day) +
                              ";UPDATE InvoiHdr SET ExUsrKey = NULL, TrxSerNo = NULL WHERE InInvoiId = 13");
    const auto users = runReport(run(company, "DayEndBalanceByUsr"));
    EXPECT_EQ(users.boxes, Texts{});
    EXPECT_EQ(users.texts("txtUsrName"), (Texts{"Other", "Kevin", "Nadia"}));
    EXPECT_EQ(first(users.texts("txtSumTotAmnt")), "$0.00") << "a user without a key has no totals";
    EXPECT_EQ(first(users.texts("txtPrice")), "$40.00");
    const auto registers = runReport(run(company, "DayEndBalanceByCash"));
    EXPECT_EQ(registers.texts("txtTrxSerNo"), (Texts{"", "R1", "R2"}));
    EXPECT_EQ(first(registers.texts("txtSumTotAmnt")), "$460.00") << "without a register: all of them";
}

TEST(DayEndDetails, TellWhatAFigureIsMadeOf) {
    const TestCompany company(day);
    const auto sales = runReport(run(company, "DayEndBalanceByUsrInvDetail", {{"UsrNo", "Nadia"}, {"GLAcctId", "22"}}));
    EXPECT_EQ(sales.boxes, Texts{});
    EXPECT_EQ(sales.texts("txtInvoiId"), Texts{"K11"});
    EXPECT_EQ(sales.texts("txtUnitPrice"), Texts{"$200.00"});
    EXPECT_EQ(sales.texts("txtDisc"), Texts{"$20.00"});
    EXPECT_EQ(sales.texts("txtPriceInv"), Texts{"$180.00"});
    EXPECT_EQ(sales.texts("txtPrice"), Texts{"$180.00"});
    EXPECT_EQ(sales.links("txtInvoiId"), Texts{"INV|11"});
    const auto given =
        runReport(run(company, "DayEndBalanceByUsrPmtDetail",
                      {{"UsrNo", "Kevin"}, {"PmtMeth", "Cash"}, {"CurrencyID", "1"}, {"AmountIs", "Neg"}}));
    EXPECT_EQ(given.boxes, Texts{});
    EXPECT_EQ(given.texts("txtRecAmntRecalc"), Texts{"-$43.00"});
    const auto taken = runReport(run(company, "DayEndBalanceByCashDepDetail", {{"TrxSerNo", "R1"}}));
    EXPECT_EQ(taken.texts("txtICDTime"), Texts{"2024-03-05 17:00:00"});
    EXPECT_EQ(taken.only("Field1"), "$150.00");
}

// The orders' receipts stand among those of the till's documents: what a customer left with an order.
TEST(DayEndDetails, ListTheReceiptsOfATillByMethod) {
    const TestCompany company(day);
    for (const int dialect : {0, 1}) {
        auto asked = run(company, "DayEndBalanceByCashPmtDetail", {{"TrxSerNo", "R1"}});
        asked.dialect = dialect;
        const auto result = runReport(asked);
        EXPECT_EQ(result.boxes, Texts{});
        EXPECT_EQ(result.texts("txtRecAmntRecalc"),
                  (Texts{"$120.00", "-$5.00", "$135.00", "-$43.00", "$30.00", "$25.00"}));
        EXPECT_EQ(result.texts("txtTotRecAmnt"), (Texts{"$237.00", "$25.00"}));
        EXPECT_EQ(nth(result.texts("txtRecCheqNo"), 5), "R-31");
        asked.properties["CashPmt"] = "true";
        EXPECT_EQ(runReport(asked).texts("txtTotRecAmnt"), Texts{"$237.00"}) << "cash alone";
    }
}

// Follows each link of a figure; gives the report's total beside it.
struct Followed {
    std::string tag;
    Money figure, total;
};

std::vector<Followed> follow(const ReportRun& balance, const ReportResult& pages, const char* figure,
                             const char* total) {
    const TillKey key = balance.member == "DayEndBalanceByUsr" ? TillKey::user : TillKey::register_;
    std::vector<Followed> all;
    const auto texts = pages.texts(figure), links = pages.links(figure);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (links[i].empty()) continue;
        const ReportTarget target = readDrillTag(links[i], [key](std::string_view) { return key; }).report;
        ReportRun run = balance;
        run.member = target.member;
        run.properties = {target.properties.begin(), target.properties.end()};
        Money sum;
        for (const std::string& text : runReport(run).texts(total)) sum += read(text);
        all.push_back({links[i], read(texts[i]), sum});
    }
    return all;
}

Money distance(const Followed& one) {
    const Money difference = one.figure - one.total;
    return difference < Money() ? -difference : difference;
}

// The beginnings of tags whose figures differ from what they lead to, which is meant: sales without an account, and
// those without a user, have nothing to ask for; a deposit's tag knows no currency; by user, a payment at the till
// counts by the user of its document, and is listed by its own.
std::set<std::string> apart(const std::string& company) {
    std::set<std::string> tags = {"Invoice||"};
    const sqlite::Database file(company, sqlite::Open::readOnly);
    sqlite::Statement rows(
        file,
        "SELECT 'Deposit| |' || ICDOperatorKey || '|' FROM InvoiCashDeposit WHERE ExCurrencyId <> 1 "
        "UNION SELECT 'Deposit| |' || ICDCashReg || '|' FROM InvoiCashDeposit WHERE ExCurrencyId <> "
        "1 UNION SELECT 'Payment|' || PmtMeth || '|' || Taker.UsrKey || '|' FROM PmtDet INNER JOIN "
        "PmtHdr ON InPmtId = ExPmtId INNER JOIN InvoiHdr ON InInvoiId = ExInvoiId INNER JOIN PmtMeth "
        "ON InPmtMethId = PmtHdr.ExPmtMethId INNER JOIN CashierUser AS Taker ON Taker.UsrKey IN "
        "(PmtDet.ExUsrKey, InvoiHdr.ExUsrKey) WHERE CashierPayment <> 0 AND PmtDet.ExUsrKey IS NOT "
        "InvoiHdr.ExUsrKey");
    while (rows.step()) tags.emplace(rows.text(0));
    return tags;
}

TEST(DayEndBalance, EachLinkLeadsToItsFigure) {
    const DemoFile company;
    const auto exceptions = apart(company.path());
    const auto isException = [&](const std::string& tag) {
        if (tag.starts_with("Invoice|") && tag.ends_with("|")) return true;  // nobody's
        return std::any_of(exceptions.begin(), exceptions.end(),
                           [&](const std::string& beginning) { return tag.starts_with(beginning); });
    };
    for (const char* member : {"DayEndBalanceByUsr", "DayEndBalanceByCash"}) {
        ReportRun balance{.member = member, .company = company.path(), .from = "2025-03-01", .to = "2025-03-31"};
        const auto pages = runReport(balance);
        std::size_t compared = 0;
        for (const auto& [figure, total] :
             {std::pair{"txtPrice", "txtPrice"}, {"txtRecAmntRecalc", "txtTotRecAmnt"}, {"txtDeposit", "Field1"}}) {
            // A discounted line is not rounded: an account may be some cents apart.
            const Money allowed = figure == std::string("txtPrice") ? *Money::parse("0.3") : Money();
            for (const Followed& one : follow(balance, pages, figure, total)) {
                if (isException(one.tag)) continue;
                EXPECT_LE(distance(one), allowed) << member << ", " << one.tag;
                ++compared;
            }
        }
        EXPECT_GT(compared, 15U) << member;
    }
}

}  // namespace
}  // namespace quillo::test
