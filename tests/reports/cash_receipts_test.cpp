#include <gtest/gtest.h>

#include <algorithm>

#include "tests/company/demo_file.h"
#include "tests/support/report_runner.h"

namespace quillo::test {
namespace {

using Texts = std::vector<std::string>;

Money read(const std::string& amount) {
    return LocaleFormat().readMoney(amount);
}

Money sum(const Texts& amounts) {
    Money total;
    for (const std::string& amount : amounts)
        if (!amount.empty()) total += read(amount);
    return total;
}

// A sum of amounts in the company file, exact to the cent.
Money sumOf(const std::string& company, const std::string& amount, const std::string& rows) {
    sqlite::Database file(company, sqlite::Open::readOnly);
    return Money::fromRaw(100 * file.integer("SELECT SUM(CAST(ROUND(100 * " + amount + ") AS INTEGER)) " + rows));
}

// Sequence 1 is a sale paid by two methods, 2 a payment with a discount, 3 a sale without reference, 4 a payment in US
// dollars, 5 a refund, 6 a deposit whose 300 were received before, 7 a tax refund, and 8 the posting of a sale of which
// no document is left.
constexpr const char* receipts =
    "UPDATE CompanyFact SET Value = '1' WHERE Name = 'UsesForeignCurrency';"
    "INSERT INTO WorldCurrency VALUES (2, 'USD', 'US dollar');"
    "INSERT INTO Segment VALUES (1, 'S1', 'One'), (2, 'S2', 'Two');"
    "INSERT INTO PmtMeth VALUES (1, 'Visa'), (2, 'VISA'), (3, 'Cheque'), (4, 'Cash');"
    "INSERT INTO ProjInfo (InProjId, ProjId) VALUES (1, '~Inconnu~'), (2, '0'), (3, 'P3');"
    "INSERT INTO GLAcct (InGLAcctId, GLAcctId, Descr, ChqAcct) VALUES (1, '1010', 'Bank', 1), (2, '1020', 'Drawer', "
    "1), (3, '1100', 'Receivables', 0), (4, '4000', 'Sales', 0), (5, '4200', 'Discounts', 0), (6, '4900', 'Other', 0);"
    "INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, RecCheqNo, ExPmtMethId, RecAmnt) VALUES (101, 'F1', 2, '55', "
    "NULL, NULL), (102, 'F2', 2, '66', 2, 40), (103, 'F3', 3, NULL, 4, -20);"
    "INSERT INTO InvoiRecDet (ExInvoiId, ExPmtMethId, RecAmnt) VALUES (101, 1, 60), (101, 4, 15), (101, 1, 40);"
    "INSERT INTO PmtHdr (InPmtId, PmtDate, ExPmtMethId, PmtTotAmnt, DiscTotAmnt, ExSegmentId) VALUES (201, "
    "'2024-01-06', 3, 90, 10, 1), (202, '2024-01-07', 1, 100, NULL, 2);"
    "INSERT INTO PmtDet (ExPmtId, ExInvoiId, PmtAmnt, PmtDisc) VALUES (201, 101, 50, 10), (201, 102, 40, NULL), (202, "
    "102, 100, 0);"
    "INSERT INTO DepHdr VALUES (301, 'D1', '2024-01-09', 1, 1);"
    "INSERT INTO DepDet (ExDepID, ExPmtMethId, RecAmnt, RecExSrcKeyVal) VALUES (301, 3, 300, 101), (301, NULL, 200, "
    "NULL), (301, 4, 25, NULL);"
    "INSERT INTO TaxTrxHdr VALUES (401, 'T1', '2024-01-10', 3);"
    "INSERT INTO TaxTrxDet (ExTaxTrxID, ExAcctId, Amnt) VALUES (401, 3, 30);"
    "INSERT INTO GLDet (SeqNo, DetDate, Source, ExSrcKeyVal, DetRef, DetDesc, ExAcctId, DetAmnt, ForeignAmnt, "
    "ExCurrencyId, ExchangeRate, ExProjId, ExSegmentId) VALUES"
    " (1, '2024-01-05', 'INV', 101, 'F1', 'Ash', 1, 115, 77, 1, 1, 2, 1), (1, '2024-01-05', 'INV', 101, 'F1', 'Ash', "
    "4, -100.005, 0, 1, 1, 3, 1), (1, '2024-01-05', 'INV', 101, 'F1', 'Ash', 6, -14.995, NULL, 1, 1, NULL, 1),"
    " (2, '2024-01-06', 'PMT', 201, 'P1', 'Ash', 1, 90, 0, 1, 1, NULL, 1), (2, '2024-01-06', 'PMT', 201, 'P1', 'Ash', "
    "5, 10, 0, 1, 1, NULL, 1), (2, '2024-01-06', 'PMT', 201, 'P1', 'Ash', 3, -100, 0, 1, 1, NULL, 1),"
    " (3, '2024-01-07', 'INV', 102, NULL, 'Birch', 2, 40, 0, 1, 1, NULL, NULL), (3, '2024-01-07', 'INV', 102, NULL, "
    "'Birch', 4, -40, 0, 1, 1, NULL, NULL),"
    " (4, '2024-01-07', 'PMT', 202, 'P2', 'Cedar', 1, 135, 100, 2, 1.35, NULL, 2), (4, '2024-01-07', 'PMT', 202, "
    "'P2', 'Cedar', 3, -135, -100, 2, 1.35, NULL, 2),"
    " (5, '2024-01-08', 'INV', 103, 'F3', 'Ash', 2, -20, 0, 1, 1, NULL, 1), (5, '2024-01-08', 'INV', 103, 'F3', "
    "'Ash', 4, 20, 0, 1, 1, NULL, 1),"
    " (6, '2024-01-09', 'DEP', 301, 'D1', 'Bank deposit', 1, 525, 0, 1, 1, NULL, 1), (6, '2024-01-09', 'DEP', 301, "
    "'D1', 'Bank deposit', 2, -300, 0, 1, 1, NULL, 1), (6, '2024-01-09', 'DEP', 301, 'D1', 'Bank deposit', 4, -225, "
    "0, 1, 1, NULL, 1),"
    " (7, '2024-01-10', 'TAX', 401, 'T1', 'Refund', 1, 30, 0, 1, 1, NULL, 1), (7, '2024-01-10', 'TAX', 401, 'T1', "
    "'Refund', 3, -30, 0, 1, 1, NULL, 1),"
    " (8, '2024-01-11', 'INV', 999, 'F9', 'Lost', 1, 7, 0, 1, 1, NULL, 1), (8, '2024-01-11', 'INV', 999, 'F9', "
    "'Lost', 4, -7, 0, 1, 1, NULL, 1);";

ReportRun detail(const std::string& company) {
    return {.member = "CashReceiptsDetail", .company = company, .language = "ids"};
}

ReportRun summary(const std::string& company, bool foreign = false, const char* withPayments = "False") {
    return {.member = "CashReceiptsSummary",
            .company = company,
            .foreign = foreign,
            .properties = {{"IsWithPayments", withPayments}},
            .language = "ids"};
}

TEST(CashReceiptsDetail, PrintsABlockATransactionAndSumsItRoundedToCents) {
    const TestCompany company(receipts);
    auto run = detail(company.path());
    for (const int dialect : {0, 1}) {
        run.dialect = dialect;
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        EXPECT_EQ(result.texts("txtDetRef"), (Texts{"F1 - 55", "P1", "66", "P2", "F3", "D1", "T1", "F9"}));
        EXPECT_EQ(result.links("txtSource"), (Texts{"INV|101|2", "PMT|201|", "INV|102|2", "PMT|202|", "INV|103|3",
                                                    "DEP|301|", "TAX|401|", "INV|999|"}));
        EXPECT_EQ(nth(result.links("txtCredit"), 3), "PMT|201|");
        Texts projects = result.texts("txtProjId");
        projects.resize(3);
        EXPECT_EQ(projects, (Texts{"", "P3", ""})) << "project \"0\" is none";
        // 100.005 and 14.995 are 115, and come to 115.01 when each is rounded.
        EXPECT_EQ(result.texts("txtDebitTotal"),
                  (Texts{"$115.00", "$100.00", "$40.00", "$135.00", "$20.00", "$525.00", "$30.00", "$7.00"}));
        EXPECT_EQ(result.texts("txtCreditTotal"),
                  (Texts{"$115.01", "$100.00", "$40.00", "$135.00", "$20.00", "$525.00", "$30.00", "$7.00"}));
        EXPECT_EQ(result.only("txtDebitGrandTotal"), "$972.00");
        EXPECT_EQ(result.only("txtCreditGrandTotal"), "$972.01");
        EXPECT_EQ(result.only("txtEndTotal"), "8 #5860");
    }
}

// 1010 is 115 + 90 + 135 + 30 + 7 without the deposit's 525.
TEST(CashReceiptsDetail, DistributesWhatIsStoredWithoutDeposits) {
    const TestCompany company(receipts);
    auto run = detail(company.path());
    auto result = runReport(run);
    ASSERT_EQ(result.pageCount(), 2U) << "no empty page stays before the distribution";
    EXPECT_EQ(result.texts("fldAccount"), (Texts{"1010", "1020", "1100", "4000", "4200", "4900"}));
    EXPECT_EQ(result.texts("txtTotalDebit"), (Texts{"$377.00", "$20.00", "", "", "$10.00", ""}));
    EXPECT_EQ(result.texts("txtTotalCredit"), (Texts{"", "", "$265.00", "$127.01", "", "$15.00"}));
    EXPECT_EQ(result.only("txtGrTotalDebit"), "$407.00");
    EXPECT_EQ(result.only("txtGrTotalCredit"), "$407.00");
    EXPECT_EQ(result.only("DistributionGL"), "#2690");

    run.parameters["UseAccountNumbers"] = "False";
    result = runReport(run);
    EXPECT_EQ(result.texts("fldAccount"), Texts{});
    EXPECT_EQ(first(result.texts("fldDescr")), "Bank");
    EXPECT_EQ(first(result.texts("lblAcctIdDescr")), "Bank");
}

TEST(CashReceiptsDetail, ForeignDisplayShowsEveryForeignAmountAndTheRateOfForeignTransactions) {
    const TestCompany company(receipts);
    auto run = detail(company.path());
    EXPECT_EQ(runReport(run).texts("txtCurrency"), Texts{});
    run.foreign = true;
    const auto result = runReport(run);
    Texts foreign = result.texts("txtCurrency");
    std::erase(foreign, "");
    EXPECT_EQ(foreign, (Texts{"$77.00 CAD", "$100.00 USD", "-$100.00 USD"}));
    EXPECT_EQ(result.texts("lblEstEgalA"), Texts{"1 USD #1849 1.35 CAD"});
}

struct Narrowing {
    const char* name;
    void (*narrow)(ReportRun&);
    Texts references;
    Money distributed;  // of the debits
};

void oneSequence(ReportRun& run) {
    run.properties["SeqNo"] = "4";
}
void oneSegment(ReportRun& run) {
    run.segments = "2";
}
void segmentAndNone(ReportRun& run) {
    run.segments = "2";
    run.noSegment = true;
}
void noneAlone(ReportRun& run) {
    run.noSegment = true;
}
void whereDate(ReportRun& run) {
    run.where = "GLDet.DetAmnt > 100";
    run.order = "GLDet.DetAmnt";
}
void untilTheSixth(ReportRun& run) {
    run.from = "2024-01-06";
    run.to = "2024-01-06";
}

TEST(CashReceiptsDetail, NarrowsBodyAndDistributionEachInItsOwnWay) {
    const TestCompany company(receipts);
    const Narrowing cases[] = {
        {"sequence", oneSequence, {"P2"}, Money::fromInteger(135)},
        {"segment", oneSegment, {"P2"}, Money::fromInteger(135)},
        {"segment or none", segmentAndNone, {"66", "P2"}, Money::fromInteger(135)},
        {"none, of which the distribution knows nothing", noneAlone, {"66"}, Money::fromInteger(407)},
        {"condition and order", whereDate, {"F1 - 55", "P2", "D1"}, Money::fromInteger(250)},
        {"dates", untilTheSixth, {"P1"}, Money::fromInteger(100)},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        auto run = detail(company.path());
        one.narrow(run);
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        EXPECT_EQ(result.texts("txtDetRef"), one.references);
        EXPECT_EQ(read(result.only("txtGrTotalDebit")), one.distributed);
        // The empty page between the breaks stays for a single sequence.
        EXPECT_EQ(result.pageCount(), run.properties.contains("SeqNo") ? 3U : 2U);
    }
}

TEST(CashReceiptsDetail, CountsASequenceAgainWhenItsLinesAreApart) {
    const TestCompany company(std::string(receipts) +
                              "UPDATE GLDet SET DetDate = '2024-01-20' WHERE SeqNo = 1 AND ExAcctId = 6;");
    const auto result = runReport(detail(company.path()));
    EXPECT_EQ(result.only("txtEndTotal"), "9 #5860");
    EXPECT_EQ(first(result.texts("txtCreditTotal")), "$100.01");
    EXPECT_EQ(last(result.texts("txtCreditTotal")), "$15.00") << "each part has its own subtotal";
}

TEST(CashReceiptsDetail, TheFlagOfTheSubReportHidesItWithTheTotals) {
    const TestCompany company(receipts);
    auto run = detail(company.path());
    run.properties["SubReportVisible"] = "True";
    const auto result = runReport(run);
    EXPECT_EQ(result.texts("txtDebitGrandTotal"), Texts{});
    EXPECT_EQ(result.texts("fldAccount"), Texts{});
    EXPECT_EQ(result.sql.size(), 2U) << "the distribution was asked for all the same";
    EXPECT_EQ(result.texts("txtDetRef").size(), 8U) << "no page with content is taken out";
}

const std::string month = " BETWEEN '2024-01-01' AND '2024-01-31' ";

TEST(CashReceiptsDetail, TheDemoCompanysJournalBalancesWithItsLedger) {
    const DemoFile demo;
    auto run = detail(demo.path());
    run.from = "2024-01-01";
    run.to = "2024-01-31";
    std::string pages;
    for (const int dialect : {0, 1}) {
        run.dialect = dialect;
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        const Money debit = read(result.only("txtDebitGrandTotal"));
        EXPECT_EQ(debit, read(result.only("txtCreditGrandTotal")));
        EXPECT_EQ(debit, sumOf(demo.path(), "DetAmnt",
                               "FROM CashReceiptJournal_View WHERE Source IN ('INV', 'PMT', 'TAX', 'DEP') AND DetAmnt "
                               "> 0 AND DetDate" +
                                   month));
        EXPECT_EQ(debit, sum(result.texts("txtDebitTotal")));
        EXPECT_EQ(result.only("txtGrTotalDebit"), result.only("txtGrTotalCredit"));
        if (dialect == 1) {
            EXPECT_EQ(result.text(), pages);
        }
        pages = result.text();
    }
}

TEST(CashReceiptsSummary, ListsTheReceiptsAndTotalsTheirMethodsInOrderOfAppearance) {
    const TestCompany company(receipts);
    auto run = summary(company.path());
    for (const int dialect : {0, 1}) {
        run.dialect = dialect;
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        // By currency and date, without the refund; the deposit is its own part that was not received before.
        EXPECT_EQ(result.texts("fldDocNo"), (Texts{"F1", "P1", "", "301", "T1", "F9", "P2"}));
        EXPECT_EQ(result.texts("txtAmount"),
                  (Texts{"$115.00", "$90.00", "$40.00", "$225.00", "$30.00", "$7.00", "$135.00"}));
        EXPECT_EQ(nth(result.texts("txtDisc"), 1), "$10.00");
        EXPECT_EQ(nth(result.links("txtAmount"), 3), "DEP|301");
        EXPECT_EQ(first(result.texts("fldDate")), "2024-01-05");
        // "Visa" and "VISA" are two methods; Visa is 100 of the sale and 100 US dollars of the payment.
        EXPECT_EQ(result.texts("lblPmtMethCap"), (Texts{"Cash", "Visa", "Cheque", "VISA", "#2369"}));
        EXPECT_EQ(result.texts("txtPmtMeth"), (Texts{"$40.00", "$235.00", "$120.00", "$40.00", "$207.00"}));
        EXPECT_EQ(result.only("txtGrTotal"), "$652.00");
        EXPECT_EQ(result.only("txtDiscount"), "$10.00");
        EXPECT_EQ(result.only("txtTransaction"), "7");
        EXPECT_EQ(result.only("lblEnd"), "7 #5860");
        EXPECT_EQ(sum(result.texts("txtPmtMeth")) + read(result.only("txtDiscount")), read(result.only("txtGrTotal")));
        EXPECT_EQ(result.texts("dsrCashReceiptsPmtSR"), Texts{});
    }
}

TEST(CashReceiptsSummary, ForeignDisplayTotalsEachCurrencyInItsOwnMoney) {
    const TestCompany company(std::string(receipts) +
                              "INSERT INTO InvoiHdr (InInvoiId, ExPmtMethId, RecAmnt) VALUES (104, 1, 50);"
                              "INSERT INTO GLDet (SeqNo, DetDate, Source, ExSrcKeyVal, DetRef, ExAcctId, DetAmnt, "
                              "ForeignAmnt, ExCurrencyId, ExchangeRate) VALUES (9, '2024-01-12', 'INV', 104, 'U1', 1, "
                              "67.5, 50, 2, 1.35), (9, '2024-01-12', 'INV', 104, 'U1', 4, -67.5, -50, 2, 1.35);");
    const auto result = runReport(summary(company.path(), true, "True"));
    EXPECT_EQ(result.boxes, Texts{});
    EXPECT_EQ(result.texts("lblCurrencyName"), (Texts{"CAD - Canadian dollar", "USD - US dollar"}));
    EXPECT_EQ(result.texts("lblForeignTotalCap"), (Texts{"#1641 CAD", "#1641 USD"}));
    EXPECT_EQ(result.texts("txtForeignTransaction"), (Texts{"6", "2"}));
    EXPECT_EQ(result.texts("txtForeignDiscount"), (Texts{"$10.00", "$0.00"}));
    EXPECT_EQ(result.texts("txtForeignGrTotal"), (Texts{"$517.00", "$150.00"}));
    EXPECT_EQ(result.texts("lblEnd"), Texts{}) << "a grand total over currencies is none";
    // The ledger's 67.50 is divided back, what the documents tell is taken as it stands.
    EXPECT_EQ(last(result.texts("txtAmount")), "$50.00");
    EXPECT_EQ(result.texts("lblPmtMethCap"), (Texts{"Cash", "Visa", "Cheque", "VISA", "#2369", "Visa"}));
    EXPECT_EQ(last(result.texts("txtPmtMeth")), "$150.00");
    EXPECT_EQ(last(result.texts("fldAmount")), "$50.00");
    EXPECT_EQ(last(result.texts("fldPayment")), "$100.00");
}

TEST(CashReceiptsSummary, AMissingRateShowsABoxAndTheOtherReceiptsPrint) {
    const TestCompany company(std::string(receipts) + "UPDATE GLDet SET ExchangeRate = 0 WHERE SeqNo = 1;");
    const auto result = runReport(summary(company.path(), true, "True"));
    // The row itself, and each of its three ledger lines.
    ASSERT_EQ(result.boxes.size(), 4U);
    EXPECT_NE(result.boxes.front().find("in Quillo.dsrCashReceiptsSummary.Detail_Format at line "), std::string::npos);
    EXPECT_NE(result.boxes.back().find("in Quillo.dsrCashReceiptsGLSubReport.Detail_Format at line "),
              std::string::npos);
    EXPECT_EQ(result.texts("fldDocNo").size(), 7U);
    EXPECT_EQ(nth(result.texts("txtAmount"), 1), "$90.00");
}

// No section is lower than what stands in it, and none begins above the end of the one before.
void expectNothingOverlaps(std::span<const PlacedSection> sections) {
    float end = 0;
    for (const PlacedSection& section : sections) {
        EXPECT_GE(section.top + 0.5F, end) << section.info->name;
        end = section.top + section.height;
        for (const PlacedControl& control : section.controls) {
            EXPECT_LE(control.top + control.height, section.height + 0.5F) << control.info->name;
            expectNothingOverlaps(control.sections);
        }
    }
}

TEST(CashReceiptsSummary, WithPaymentsShowsWhatEachSettledAndItsLedgerLines) {
    const TestCompany company(
        std::string(receipts) +
        "INSERT INTO GLDet (SeqNo, Source, ExSrcKeyVal, ExAcctId, DetAmnt) VALUES (2, 'PMT', 201, "
        "6, NULL); UPDATE GLDet SET DetDesc = '" +
        std::string(300, 'w') + "' WHERE SeqNo IN (1, 8);");
    const auto result = runReport(summary(company.path(), false, "True"));
    EXPECT_EQ(result.boxes, Texts{});
    EXPECT_EQ(result.texts("fldNumber"), (Texts{"F1", "F2", "F2"}));
    EXPECT_EQ(result.texts("fldPayment"), (Texts{"$50.00", "$40.00", "$135.00"}));
    EXPECT_EQ(result.texts("fldDiscount"), (Texts{"$10.00", "$0.00", "$0.00"}));
    EXPECT_EQ(result.links("fldPayment"), (Texts{"2", "2", "4"}));
    // The sale that left no document has no lines, though its posting is there.
    EXPECT_EQ(result.texts("fldSeq"), (Texts{"1", "2", "3", "6", "7", "4"}));
    EXPECT_EQ(result.texts("lblSequence").size(), 6U);
    const auto payment = std::size_t{3};  // its lines come behind the three of the sale
    const Texts amounts = result.texts("fldAmount"), marks = result.texts("txtBalanceType");
    std::map<std::string, int> lines;
    for (std::size_t i = payment; i < payment + 4; ++i) ++lines[amounts.at(i) + " " + marks.at(i)];
    EXPECT_EQ(lines,
              (std::map<std::string, int>{{"$90.00 DT", 1}, {"$10.00 DT", 1}, {"$100.00 CT", 1}, {"$0.00 ..", 1}}));
    for (const auto& page : result.kept.pages) expectNothingOverlaps(page->sections);
}

TEST(CashReceiptsSummary, SegmentsLeaveDepositsInAndPaymentsOfOthersOut) {
    const TestCompany company(std::string(receipts) + "UPDATE PmtHdr SET ExSegmentId = 2 WHERE InPmtId = 201;");
    auto run = summary(company.path(), false, "True");
    run.segments = "1";
    run.noSegment = true;
    const auto result = runReport(run);
    EXPECT_EQ(result.boxes, Texts{});
    EXPECT_EQ(result.texts("fldDocNo"), (Texts{"F1", "P1", "", "301", "T1", "F9"}));
    EXPECT_EQ(nth(result.texts("txtAmount"), 1), "$0.00") << "its payment is another segment's";
    EXPECT_EQ(result.only("txtTransaction"), "6");
    EXPECT_EQ(result.texts("lblPmtMethCap"), (Texts{"Cash", "Visa", "VISA", "#2369", "Cheque"}));
    // Ledger lines without a segment are not shown, whatever the choice.
    EXPECT_EQ(result.texts("fldAccount").size(), 3U + 3U + 2U);
    for (const auto& page : result.kept.pages) expectNothingOverlaps(page->sections);
}

TEST(CashReceiptsSummary, AFilterNarrowsTheLedgerAndNeverOrders) {
    const TestCompany company(receipts);
    auto run = summary(company.path());
    run.where = "GLDet.DetAmnt > 50";
    run.order = "GLDet.DetAmnt";
    const auto result = runReport(run);
    EXPECT_EQ(result.texts("fldDocNo"), (Texts{"F1", "P1", "301", "P2"}));
    run.where.clear();
    EXPECT_EQ(runReport(run).texts("fldDocNo"), runReport(summary(company.path())).texts("fldDocNo"));
}

TEST(CashReceipts, ACancelledFilterAsksNothingAndStillEndsTheReport) {
    const TestCompany company(receipts);
    for (auto run : {detail(company.path()), summary(company.path()), summary(company.path(), true, "True")}) {
        run.cancelFilter = true;
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        EXPECT_EQ(result.sql, Texts{});
        EXPECT_EQ(result.pageCount(), 1U);
        const auto end = result.texts(run.member == "CashReceiptsDetail" ? "txtEndTotal" : "lblEnd");
        EXPECT_EQ(end, run.foreign ? Texts{} : Texts{"0 #5860"});
    }
}

TEST(CashReceiptsSummary, WithoutReceiptsThereIsNoMethod) {
    const TestCompany company(receipts);
    auto run = summary(company.path());
    run.from = run.to = "2023-01-01";
    const auto result = runReport(run);
    EXPECT_EQ(result.boxes, Texts{});
    EXPECT_EQ(result.texts("lblPmtMethCap"), Texts{});
    EXPECT_EQ(result.only("lblEnd"), "0 #5860");
}

// What reached the cash accounts in a currency, in its own money: the net of each transaction that is a receipt, the
// deposits that are receipts themselves, and the discounts that payments granted.
Money receivedIn(const std::string& company, int currency) {
    const std::string id = std::to_string(currency), amount = currency == 1 ? "DetAmnt" : "ForeignAmnt";
    const std::string own = "ExCurrencyId = " + id;
    return sumOf(company, "Net",
                 "FROM (SELECT SUM(" + amount +
                     ") AS Net FROM GLDet JOIN GLAcct ON InGLAcctId = ExAcctId WHERE ChqAcct "
                     "AND Source IN ('INV', 'PMT', 'TAX') AND DetDate" +
                     month + "AND " + own + " GROUP BY SeqNo HAVING SUM(DetAmnt) >= 0)") +
           sumOf(company, "RecAmnt",
                 "FROM DepDet JOIN DepHdr ON InDepID = ExDepID WHERE RecExSrcKeyVal IS NULL AND DepDate" + month +
                     "AND " + own) +
           sumOf(company, "DiscTotAmnt", "FROM PmtHdr WHERE PmtDate" + month + "AND " + own);
}

TEST(CashReceiptsSummary, TheDemoCompanysReceiptsAreWhatReachedItsCashAccounts) {
    const DemoFile demo;
    for (const bool foreign : {false, true}) {
        std::string pages;
        for (const int dialect : {0, 1}) {
            auto run = summary(demo.path(), foreign, "True");
            run.from = "2024-01-01";
            run.to = "2024-01-31";
            run.dialect = dialect;
            const auto result = runReport(run);
            EXPECT_EQ(result.boxes, Texts{});
            for (const auto& page : result.kept.pages) expectNothingOverlaps(page->sections);
            if (dialect == 1) {
                EXPECT_EQ(result.text(), pages);
            }
            pages = result.text();
            const Texts totals = result.texts(foreign ? "txtForeignGrTotal" : "txtGrTotal");
            const Texts discounts = result.texts(foreign ? "txtForeignDiscount" : "txtDiscount");
            if (!foreign) {
                // A foreign receipt prints rounded to the cent, and adds what it is worth to the totals.
                const Money printed = sum(result.texts("txtAmount")) + sum(result.texts("txtDisc"));
                const Money foreignReceipts =
                    sumOf(demo.path(), "1", "FROM PmtHdr WHERE ExCurrencyId <> 1 AND PmtDate" + month);
                EXPECT_LE(std::abs((printed - sum(totals)).raw()), foreignReceipts.raw() / 200);
                continue;
            }
            // Methods count US dollars that were given for a sale in home currency as they are.
            const Money exchanged = sumOf(demo.path(), "RecAmnt * (ExchangeRate - 1)",
                                          "FROM InvoiRecDet WHERE ExCurrencyId = 2 AND ExInvoiId IN (SELECT InInvoiId "
                                          "FROM InvoiHdr WHERE ExCurrencyId = 1 AND InvoiDate" +
                                              month + ")");
            EXPECT_EQ(sum(result.texts("txtPmtMeth")) + sum(discounts) + exchanged, sum(totals));
            ASSERT_EQ(totals.size(), 3U);
            const int cad = 1, usd = 2, eur = 3;
            EXPECT_EQ(read(totals[0]), receivedIn(demo.path(), cad));
            EXPECT_EQ(read(totals[1]), receivedIn(demo.path(), eur));
            EXPECT_EQ(read(totals[2]), receivedIn(demo.path(), usd));
        }
    }
}

TEST(CashReceiptsSummary, IsCalledByWhatItShows) {
    TestSession session;
    clsReport factory(*session);
    const auto report = factory.CashReceiptsSummary();
    auto& contract = dynamic_cast<IReport&>(*report);
    EXPECT_EQ(contract.IReport_ReportTitle(), "Cash Receipts Summary") << "also before the application is given";
    report->setProperty("IsWithPayments", true);
    EXPECT_EQ(contract.IReport_ReportTitle(), "Cash Receipts Summary with Payments");
}

}  // namespace
}  // namespace quillo::test
