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

Money ledgerSum(const std::string& company, const std::string& condition, const std::string& column = "DetAmnt") {
    sqlite::Database file(company, sqlite::Open::readOnly);
    return Money::fromRaw(100 * file.integer("SELECT SUM(CAST(ROUND(100 * " + column + ") AS INTEGER)) " + condition));
}

// Sequence 1 is in home currency, with an account that it clears; 2 is a credit note with postings that round away; 3
// adjusts that credit note; 4 is in US dollars.
constexpr const char* postings =
    "UPDATE CompanyFact SET Value = '1' WHERE Name = 'UsesForeignCurrency';"
    "INSERT INTO WorldCurrency VALUES (2, 'USD', 'US dollar');"
    "INSERT INTO Segment VALUES (1, 'S1', 'One'), (2, 'S2', 'Two');"
    "INSERT INTO GLAcct (InGLAcctId, GLAcctId, Descr) VALUES (1, '1100', 'Receivables'), (2, '2310', 'Tax'), (3, "
    "'4000', 'Sales'), (4, '9000', 'Clearing');"
    "INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType) VALUES (101, 'F1', 1), (102, 'NC1', 3), (103, 'U1', 1);"
    "INSERT INTO GLDet (SeqNo, DetDate, Source, ExSrcKeyVal, DetDesc, ExAcctId, DetAmnt, ForeignAmnt, ExCurrencyId, "
    "ExchangeRate, ExSegmentId) VALUES"
    " (1, '2024-01-05', 'INV', 101, 'Ash', 1, 115, 77, 1, 1, 1), (1, '2024-01-05', 'INV', 101, 'Ash', 2, -15, 0, 1, 1, "
    "1), (1, '2024-01-05', 'INV', 101, 'Ash', 3, -100, 0, 1, 1, 1), (1, '2024-01-05', 'INV', 101, 'Ash', 4, 7, 0, 1, "
    "1, 1), (1, '2024-01-05', 'INV', 101, 'Ash', 4, -7, 0, 1, 1, 1),"
    " (2, '2024-01-06', 'INV', 102, 'Ash', 1, -20.005, 0, 1, 1, 1), (2, '2024-01-06', 'INV', 102, 'Ash', 2, 0.004, 0, "
    "1, 1, 1), (2, '2024-01-06', 'INV', 102, 'Ash', 3, 20.005, 0, 1, 1, 1),"
    " (3, '2024-01-07', 'ADM', 102, 'Ash', 1, -5, NULL, 1, 1, NULL), (3, '2024-01-07', 'ADM', 102, 'Ash', 3, 5, NULL, "
    "1, 1, NULL),"
    " (4, '2024-01-08', 'INV', 103, 'Birch', 1, 135, 100, 2, 1.35, 2), (4, '2024-01-08', 'INV', 103, 'Birch', 3, -135, "
    "-100, 2, 1.35, 2),"
    " (5, '2024-01-08', 'PMT', 103, 'Birch', 1, 135, 100, 2, 1.35, 2);";

ReportRun journal(const TestCompany& company) {
    return {.member = "SalesJournalDetail", .company = company.path(), .language = "ids"};
}

TEST(SalesJournalDetail, ShowsEachPostingOnItsSideAndAddsWhatItShows) {
    const TestCompany company(postings);
    auto run = journal(company);
    for (const int dialect : {0, 1}) {
        run.dialect = dialect;
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        // The adjustment of a credit note is no credit note.
        EXPECT_EQ(result.texts("lblSource"), (Texts{"#2916", "#2657", "#2916", "#2916"}));
        EXPECT_EQ(result.links("fldDetRef"), (Texts{"INV|101|1", "INV|102|3", "ADM|102|3", "INV|103|1"}));
        // The posting of 0.004 gives up its row.
        EXPECT_EQ(result.texts("txtDebit"),
                  (Texts{"$115.00", "", "", "$7.00", "", "", "$20.01", "", "$5.00", "$135.00", ""}));
        EXPECT_EQ(result.texts("txtCredit"),
                  (Texts{"", "$15.00", "$100.00", "", "$7.00", "$20.01", "", "$5.00", "", "", "$135.00"}));
        EXPECT_EQ(result.texts("txtDebitTotal"), (Texts{"$122.00", "$20.01", "$5.00", "$135.00"}));
        EXPECT_EQ(result.texts("txtCreditTotal"), (Texts{"$122.00", "$20.01", "$5.00", "$135.00"}));
        EXPECT_EQ(result.only("txtDebitGrandTotal"), "$282.01");
        EXPECT_EQ(result.only("txtCreditGrandTotal"), "$282.01");
        EXPECT_EQ(result.texts("lbl1USDestEgalA"), Texts{});
        EXPECT_EQ(result.texts("txtCurrency"), Texts{});
    }
}

// 4000 is 100 - 20.005 - 5 + 135: the distribution nets unrounded amounts, and an account that clears keeps its line.
TEST(SalesJournalDetail, DistributesUnroundedNetsByAccount) {
    const TestCompany company(postings);
    const auto result = runReport(journal(company));
    ASSERT_EQ(result.pageCount(), 2U);
    EXPECT_EQ(result.texts("fldAccount"), (Texts{"1100", "2310", "4000", "9000"}));
    EXPECT_EQ(result.texts("txtTotalDebit"), (Texts{"$225.00", "", "", ""}));
    EXPECT_EQ(result.texts("txtTotalCredit"), (Texts{"", "$15.00", "$210.00", ""}));
    EXPECT_EQ(result.only("txtGrTotalDebit"), "$225.00");
    EXPECT_EQ(result.only("txtGrTotalCredit"), "$224.99");
    EXPECT_EQ(result.only("DistributionGL"), "#2690") << "what code translates";
}

TEST(SalesJournalDetail, ForeignDisplayAddsAmountsAndRateOfForeignTransactionsOnly) {
    const TestCompany company(postings);
    auto run = journal(company);
    run.foreign = true;
    const auto result = runReport(run);
    Texts foreign = result.texts("txtCurrency");
    EXPECT_EQ(foreign.size(), 11U);
    std::erase(foreign, "");
    EXPECT_EQ(foreign, (Texts{"$100.00 USD", "-$100.00 USD"}));
    EXPECT_EQ(result.texts("lbl1USDestEgalA"), Texts{"1 USD #1849 1.35 CAD"});
    EXPECT_EQ(result.only("txtDebitGrandTotal"), "$282.01");
}

struct Span {
    float left, right;
};

Span placeOf(const ReportResult& result, std::string_view name) {
    for (const auto& section : result.kept.pages.at(0)->sections)
        for (const auto& control : section.controls)
            if (control.info->name == name) return {control.left, control.left + control.width};
    ADD_FAILURE() << "there is no " << name;
    return {};
}

TEST(SalesJournalDetail, ColumnsStandUnderTheirCaptionsAndSideBySide) {
    const TestCompany company(std::string(postings) +
                              "INSERT INTO ProjInfo (InProjId, ProjId) VALUES (1, '~Inconnu~')");
    for (const bool foreign : {false, true}) {
        auto run = journal(company);
        run.foreign = foreign;
        const auto result = runReport(run);
        float end = 0;
        for (const char* name : {"txtAcctId", "txtCurrency", "txtDebit", "txtCredit", "lblProject"}) {
            if (!foreign && std::string_view(name) == "txtCurrency") continue;
            const auto [left, right] = placeOf(result, name);
            EXPECT_LE(end, left) << name;
            end = right;
        }
        EXPECT_LE(end, 10800);
        for (const auto& [caption, total, amount] : {std::tuple{"lblDebitCap", "txtDebitTotal", "txtDebit"},
                                                     std::tuple{"lblCreditCap", "txtCreditTotal", "txtCredit"}}) {
            EXPECT_EQ(placeOf(result, caption).right, placeOf(result, amount).right) << caption;
            EXPECT_EQ(placeOf(result, total).right, placeOf(result, amount).right) << total;
        }
    }
}

struct Narrowing {
    const char* name;
    void (*narrow)(ReportRun&);
    Texts documents;    // of the body
    const char* whole;  // what the distribution's receivables come to
};

void oneDocument(ReportRun& run) {
    run.properties = {{"ExInvoiId", "102"}};
}

TEST(SalesJournalDetail, NarrowsBodyAndDistributionEachByItsOwnRules) {
    const TestCompany company(postings);
    const Narrowing narrowings[] = {
        {"one document", oneDocument, {"NC1", "NC1"}, "$225.00"},
        {"one document, sorted",
         [](ReportRun& run) { oneDocument(run), run.order = "GLDet.DetDate DESC"; },
         {"NC1", "NC1"},
         "$225.00"},
        {"one document, filtered",
         [](ReportRun& run) { oneDocument(run), run.where = "GLDet.DetAmnt > 6"; },
         {"NC1"},
         "$250.00"},
        {"rows without segment", [](ReportRun& run) { run.noSegment = true; }, {"NC1"}, "$225.00"},
        {"a segment", [](ReportRun& run) { run.segments = "2"; }, {"U1"}, "$135.00"},
        {"a segment and rows without",
         [](ReportRun& run) { run.segments = "2", run.noSegment = true; },
         {"NC1", "U1"},
         "$135.00"},
        {"dates", [](ReportRun& run) { run.from = "2024-01-08", run.to = "2024-01-31"; }, {"U1"}, "$135.00"},
        {"an order of the user's",
         [](ReportRun& run) { run.order = "GLAcct.GLAcctId DESC"; },
         {"F1", "NC1", "NC1", "U1"},
         "$225.00"},
    };
    for (const Narrowing& narrowing : narrowings) {
        ReportRun run = journal(company);
        narrowing.narrow(run);
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{}) << narrowing.name;
        EXPECT_EQ(result.texts("fldDetRef"), narrowing.documents) << narrowing.name;
        EXPECT_EQ(first(result.texts("txtTotalDebit")), narrowing.whole) << narrowing.name;
        // One document alone leaves the page that the breaks make.
        EXPECT_EQ(result.pageCount(), run.properties.empty() ? 2U : 3U) << narrowing.name;
    }
}

TEST(SalesJournalDetail, WithoutFooterItEndsWithItsLastTransaction) {
    const TestCompany company(postings);
    auto run = journal(company);
    const auto queries = runReport(run).sql;
    run.properties = {{"SubReportVisible", "True"}};
    const auto result = runReport(run);
    EXPECT_EQ(result.texts("lblSource").size(), 4U);
    EXPECT_EQ(result.texts("txtDebitGrandTotal"), Texts{});
    EXPECT_EQ(result.texts("fldAccount"), Texts{});
    EXPECT_EQ(result.pageCount(), 1U);
    EXPECT_EQ(result.sql, queries) << "the distribution is asked for all the same";
}

// Accounts with postings of zero stand in the distribution alone, so that it fills three pages behind a short body.
TEST(SalesJournalDetail, ALongDistributionLosesNothingButTheEmptyPageBeforeIt) {
    std::string rows = postings;
    Texts accounts{"1100", "2310", "4000"};
    for (int i = 5001; i <= 5130; ++i) {
        const std::string number = std::to_string(i);
        rows += "INSERT INTO GLAcct (InGLAcctId, GLAcctId, Descr) VALUES (" + number + ", '" + number + "', 'Shelf');";
        rows += "INSERT INTO GLDet (SeqNo, DetDate, Source, ExAcctId, DetAmnt) VALUES (9, '2024-01-09', 'INV', " +
                number + ", 0);";
        accounts.push_back(number);
    }
    accounts.emplace_back("9000");
    const TestCompany company(rows);
    const auto result = runReport(journal(company));
    ASSERT_EQ(result.pageCount(), 4U);
    EXPECT_EQ(result.texts("fldAccount"), accounts);
    EXPECT_NE(result.page(0).find("$282.01"), std::string::npos) << "the totals end the first page";
    EXPECT_NE(result.page(3).find("$224.99"), std::string::npos) << "those of the distribution end the last";
    for (std::size_t i = 1; i < 4; ++i) EXPECT_NE(result.page(i).find("Shelf"), std::string::npos) << i;
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(result.kept.pages[i]->number, static_cast<int>(i) + 1);
}

TEST(SalesJournalDetail, CompaniesWithoutAccountNumbersNameTheAccountAlone) {
    const TestCompany company(postings);
    auto run = journal(company);
    EXPECT_EQ(first(runReport(run).texts("txtAcctId")), "1100 - Receivables");
    run.parameters = {{"UseAccountNumbers", "False"}};
    const auto result = runReport(run);
    EXPECT_EQ(first(result.texts("txtAcctId")), "Receivables");
    EXPECT_EQ(result.texts("fldAccount"), Texts{});
    EXPECT_EQ(result.texts("fldDescr"), (Texts{"Receivables", "Tax", "Sales", "Clearing"}));
}

TEST(SalesJournalDetail, AMissingCurrencyIsToldOnceAndTheRunGoesOn) {
    const TestCompany company(std::string(postings) + "UPDATE GLDet SET ExCurrencyId = NULL WHERE SeqNo = 3");
    const auto result = runReport(journal(company));
    ASSERT_EQ(result.boxes.size(), 1U);
    EXPECT_TRUE(
        result.boxes.front().starts_with("Invalid use of Null\r\nin Quillo.dsrSalesJournalDetail.ghSeqNo_Format"))
        << result.boxes.front();
    EXPECT_EQ(result.only("txtDebitGrandTotal"), "$282.01");
}

TEST(SalesJournalDetail, ACancelledFilterAsksTheDatabaseNothing) {
    const TestCompany company(postings);
    auto run = journal(company);
    run.cancelFilter = true;
    const auto result = runReport(run);
    EXPECT_EQ(result.sql, Texts{});
    EXPECT_EQ(result.boxes, Texts{});
    EXPECT_EQ(result.texts("lblSource"), Texts{});
    EXPECT_EQ(result.pageCount(), 1U);
    EXPECT_EQ(result.only("lblAcctCap"), "Compte du GL") << "a cancelled run is not translated";
}

// Documents of all kinds: in home currency, in US dollars, one of them without a rate; amounts that round.
constexpr const char* documents =
    "UPDATE CompanyFact SET Value = '1' WHERE Name = 'UsesForeignCurrency';"
    "INSERT INTO WorldCurrency VALUES (2, 'USD', 'US dollar');"
    "INSERT INTO Cust (InCustId, Name, ExCurrencyId) VALUES (1, 'Ash', 2), (2, 'Birch', 1);"
    "INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, ExCustId, ExCurrencyId, ExchangeRate, DetAmnt, "
    "DiscTotAmnt, ShipAmnt, TaxAmnt, TotAmnt) VALUES"
    " (1, 'F1', 1, '2024-01-05', 2, 1, 1, 1100, 10, 5, 15, 1120), (2, 'K1', 2, '2024-01-06', 1, 1, 1, 50, NULL, 0, "
    "NULL, 50), (3, 'NC1', 3, '2024-01-07', 1, 1, 1, -20.005, 0, NULL, -3, -23.005), (4, 'FI1', 4, '2024-01-08', 1, 2, "
    "1.35, 10, 0, 0, 0, 10), (5, 'U1', 1, '2024-01-09', 2, 2, NULL, 70, 0, 1, 0, 71), (6, 'Q1', 50, '2024-01-09', 2, "
    "2, 1, 1, 1, 1, 1, 1);";

ReportRun summary(const TestCompany& company) {
    return {.member = "SalesJournalSummary", .company = company.path(), .language = "ids"};
}

TEST(SalesJournalSummary, ListsDocumentsInHomeCurrencyWithTheirTotalsAndCounts) {
    const TestCompany company(documents);
    auto run = summary(company);
    for (const int dialect : {0, 1}) {
        run.dialect = dialect;
        const auto result = runReport(run);
        EXPECT_EQ(result.boxes, Texts{});
        EXPECT_EQ(result.texts("fldDocNo"), (Texts{"F1", "K1", "NC1", "FI1", "U1"}));
        EXPECT_EQ(result.texts("txtSource"), (Texts{"#2735", "#2735", "#2874", "#1394", "#2735"}));
        // Before discount; without a rate everything is zero, while an amount that is not there prints blank.
        EXPECT_EQ(result.texts("txtInvAmnt"), (Texts{"$1,110.00", "$50.00", "-$20.01", "$13.50", "$0.00"}));
        EXPECT_EQ(result.texts("txtShipAmnt"), (Texts{"$5.00", "", "", "", "$0.00"}));
        EXPECT_EQ(result.texts("txtTaxAmnt"), (Texts{"$15.00", "", "-$3.00", "", ""}));
        EXPECT_EQ(result.texts("txtDiscAmnt"), (Texts{"$10.00", "", "", "", ""}));
        EXPECT_EQ(result.texts("txtTotal"), (Texts{"$1,120.00", "$50.00", "-$23.01", "$13.50", "$0.00"}));
        EXPECT_EQ(first(result.links("fldName")), "INV|1");
        EXPECT_EQ(first(result.links("txtDiscAmnt")), "");
        EXPECT_EQ(result.only("txtVente"), "$1,153.49");
        EXPECT_EQ(result.only("txtGrTotal"), "$1,160.49");
        EXPECT_EQ((Texts{result.only("txtInvoices"), result.only("txtCredits"), result.only("txtTotal1")}),
                  (Texts{"4", "1", "5"}));
        EXPECT_EQ(result.texts("lblForeignCurrency"), Texts{});
        EXPECT_EQ(result.texts("lbl1USDestEgalA"), Texts{});
    }
}

// The counts go on from currency to currency, the amounts begin anew; the document's currency counts, not the
// customer's.
TEST(SalesJournalSummary, ForeignDisplayTotalsEachCurrency) {
    const TestCompany company(documents);
    auto run = summary(company);
    run.foreign = true;
    const auto result = runReport(run);
    EXPECT_EQ(result.boxes, Texts{});
    EXPECT_EQ(result.texts("lblCurrencyName"), (Texts{"CAD - Canadian dollar", "USD - US dollar"}));
    EXPECT_EQ(result.texts("txtTotal"), (Texts{"$1,120.00", "$50.00", "-$23.01", "$10.00", "$71.00"}));
    EXPECT_EQ(result.texts("lbl1USDestEgalA"), (Texts{"1 USD #1849 1.35 CAD", "1 USD #1849 0 CAD"}));
    EXPECT_EQ(result.texts("lblForeignCurrency"), (Texts{"#1641 CAD", "#1641 USD"}));
    EXPECT_EQ(result.texts("txtVenteForeign"), (Texts{"$1,139.99", "$80.00"}));
    EXPECT_EQ(result.texts("txtGrForeignTotal"), (Texts{"$1,146.99", "$81.00"}));
    EXPECT_EQ(result.texts("txtInvoicesForeign"), (Texts{"2", "4"}));
    EXPECT_EQ(result.texts("txtTotalForeign"), (Texts{"3", "5"}));
    EXPECT_EQ(result.texts("txtVente"), Texts{}) << "there is no report footer";
}

TEST(SalesJournalSummary, TheCurrencyLeadsTheUsersOrderUnlessTheUserNamesIt) {
    const TestCompany company(documents);
    auto run = summary(company);
    run.order = "Cust.Name, InvoiHdr.InvoiId DESC";
    EXPECT_EQ(runReport(run).texts("fldDocNo"), (Texts{"NC1", "K1", "F1", "FI1", "U1"}));
    run.order = "worldcurrency.currencycode DESC, InvoiHdr.InvoiId";
    EXPECT_EQ(runReport(run).texts("fldDocNo"), (Texts{"FI1", "U1", "F1", "K1", "NC1"}));
}

// Amounts are kept by way of the locale's text: grouping, decimal comma and sign must come back as they went.
TEST(SalesJournalSummary, TotalsSurviveALocaleOfItsOwnSigns) {
    const TestCompany company(documents);
    auto run = summary(company);
    run.locale = "fr_CA";
    const auto result = runReport(run);
    EXPECT_EQ(result.boxes, Texts{});
    EXPECT_EQ(result.only("txtGrTotal"), "1\u00A0160,49\u00A0$");
}

TEST(SalesJournals, DemoTotalsAreThoseOfTheBooksInBothDialects) {
    const DemoFile demo;
    const std::string period = " BETWEEN '2024-02-01' AND '2024-02-29'";
    const std::string posted = "FROM GLDet WHERE Source IN ('INV', 'ADM') AND DetDate" + period;
    const std::string invoiced = "FROM InvoiHdr WHERE InvoiType < 5 AND ExCurrencyId = 1 AND InvoiDate" + period;
    ReportRun run{.member = "SalesJournalDetail", .company = demo.path(), .from = "2024-02-01", .to = "2024-02-29"};
    run.foreign = true;
    const auto detail = runReport(run);
    EXPECT_EQ(read(detail.only("txtDebitGrandTotal")), ledgerSum(demo.path(), posted + " AND DetAmnt > 0"));
    EXPECT_EQ(-read(detail.only("txtCreditGrandTotal")), ledgerSum(demo.path(), posted + " AND DetAmnt < 0"));
    EXPECT_EQ(detail.only("txtDebitGrandTotal"), detail.only("txtCreditGrandTotal"));
    EXPECT_EQ(detail.only("txtGrTotalDebit"), detail.only("txtGrTotalCredit"));
    EXPECT_FALSE(detail.texts("lbl1USDestEgalA").empty());

    run.member = "SalesJournalSummary";
    const auto listed = runReport(run);
    ASSERT_EQ(first(listed.texts("lblForeignCurrency")), "Grand total CAD");
    EXPECT_EQ(read(first(listed.texts("txtGrForeignTotal"))), ledgerSum(demo.path(), invoiced, "TotAmnt"));

    run.dialect = 1;
    EXPECT_EQ(runReport(run).text(), listed.text());
    run.member = "SalesJournalDetail";
    EXPECT_EQ(runReport(run).text(), detail.text());
}

}  // namespace
}  // namespace quillo::test
