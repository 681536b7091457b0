#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "framework/values/errors.h"
#include "host/drill/drill_target.h"
#include "tests/app/program_run.h"
#include "tests/host/test_company.h"

namespace quillo::test {
namespace {

using Properties = std::vector<std::pair<std::string, std::string>>;

DrillTarget read(std::string_view tag, TillKey key = TillKey::user) {
    return readDrillTag(tag, [key](std::string_view) { return key; });
}

TEST(DrillTag, OfTheDayEndLeadsToTheReportBehindAFigure) {
    const ReportTarget sales = read("Invoice|7|Nadia").report;
    EXPECT_EQ(sales.member, "DayEndBalanceByUsrInvDetail");
    EXPECT_EQ(sales.properties, (Properties{{"UsrNo", "Nadia"}, {"GLAcctId", "7"}}));
    const ReportTarget method = read("Payment|Debit card|MTL-01|2| ", TillKey::register_).report;
    EXPECT_EQ(method.member, "DayEndBalanceByCashPmtDetail");
    EXPECT_EQ(method.properties, (Properties{{"TrxSerNo", "MTL-01"},
                                             {"PmtMeth", "Debit card"},
                                             {"CurrencyID", "2"},
                                             {"AmountIs", ""},
                                             {"CashPmt", "false"}}));
    const ReportTarget drawer = read("Payment|Cash|Nadia||Neg|").report;
    EXPECT_EQ(
        drawer.properties,
        (Properties{
            {"UsrNo", "Nadia"}, {"PmtMeth", "Cash"}, {"CurrencyID", "0"}, {"AmountIs", "Neg"}, {"CashPmt", "true"}}));
    const ReportTarget deposit = read("Deposit| |MTL-01|", TillKey::register_).report;
    EXPECT_EQ(deposit.member, "DayEndBalanceByCashDepDetail");
    EXPECT_EQ(deposit.properties, (Properties{{"TrxSerNo", "MTL-01"}}));
}

TEST(DrillTag, OfASalespersonLeadsToHisDocumentsOrHisProfit) {
    const struct {
        const char* tag;
        const char* member;
        Properties properties;
        bool foreign;
    } cases[] = {
        {"Ana Roy|0|0", "SalesBySalesPersonDetail", {{"SalesPerson", "Ana Roy"}}, false},
        {"Ana|Roy|-1|2",
         "SalesBySalesPersonDetail",
         {{"SalesPerson", "Ana|Roy"}, {"IsCommissionVariances", "true"}, {"ExCurrencyId", "2"}},
         true},
        {"BLANK SALESPERSON NAME|1",
         "SalesBySalesPersonDetail",
         {{"SalesPerson", "BLANK SALESPERSON NAME"}, {"ExCurrencyId", "1"}},
         true},
        {"BLANK SALESPERSON NAME", "SalesBySalesPersProfDetail", {{"SalesPerson", "BLANK SALESPERSON NAME"}}, false},
        {"Ana Roy", "SalesBySalesPersProfDetail", {{"SalesPerson", "Ana Roy"}}, false}};
    for (const auto& [tag, member, properties, foreign] : cases) {
        const ReportTarget report = read(tag).report;
        EXPECT_EQ(report.member, member) << tag;
        EXPECT_EQ(report.properties, properties) << tag;
        EXPECT_EQ(report.foreign, foreign) << tag;
    }
    for (const char* wrong : {"Ana Roy|1|0", "Ana Roy|0|x", "Ana Roy|0|", "BLANK SALESPERSON NAME|"})
        EXPECT_THROW(read(wrong), InputError) << wrong;
}

TEST(DrillTag, OfAnItemsPeriodLeadsToWhatWasConsumedInIt) {
    const ReportTarget consumed = read("7|2024-01-15|2024-01-31").report;
    EXPECT_EQ(consumed.member, "ConsumedStatisticsByItem");
    EXPECT_EQ(consumed.properties, (Properties{{"InItemId", "7"}}));
    EXPECT_EQ(consumed.from + " " + consumed.to, "2024-01-15 2024-01-31");
}

TEST(DrillTag, OfADocumentOrAMasterLeadsToItsRecord) {
    const auto record = [](std::string_view tag) {
        const RecordTarget target = read(tag).records;
        std::string told = target.kind;
        for (const int key : target.keys) told += " " + std::to_string(key);
        return told;
    };
    EXPECT_EQ(record("INV|1200"), "INV 1200");
    EXPECT_EQ(record("INV|1200|3"), "INV 1200") << "a journal's tag tells the kind of document too";
    EXPECT_EQ(record("17"), "CUS 17") << "a bare key is a customer's";
    EXPECT_EQ(record("ReceiptPayment|4,19"), "PMT 4 19");
    EXPECT_EQ(record("ARAdjust|SELECT SUM(DetAmnt)"), "ARAdjust");
    for (const char* wrong : {"", "INV|", "INV|x", "INV|99999999999", "FOO|1", "|2024-01-01|2024-01-31",
                              "7|2024-01-01|2024-02-30", "mailto:a@b.example", "http://b.example"})
        EXPECT_THROW(read(wrong), InputError) << wrong;
}

constexpr const char* sale = R"(
    INSERT INTO CashierUser VALUES ('Nadia', 'Nadia Roy', 0);
    INSERT INTO Cust (InCustId, CustId, Name, CustInactive) VALUES (5, 'A1', 'Allard inc.', 0);
    INSERT OR REPLACE INTO PmtMeth VALUES (2, 'Cheque');
    INSERT INTO Item (InItemId, ItemId) VALUES (9, 'SCR-3');
    INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, ExCustId, ExchangeRate, TotAmnt)
        VALUES (70, 'F70', 1, '2024-03-05', 5, 1, 1234.5);
    INSERT INTO InvoiDet (InInvoiDetId, ExInvoiId, ExItemId, Descr, Qty, UnitPrice, BaseRowTotal)
        VALUES (1, 70, 9, 'Deck screws', 2.5, 100, 250), (2, 70, NULL, 'Work', 1, 984.5, 984.5);
    INSERT INTO PmtHdr (InPmtId, PmtDate, ChqNo, ExPmtMethId, PmtTotAmnt) VALUES (30, '2024-03-20', '4501', 2, 400);
    INSERT INTO PmtDet (InPmtDetId, ExPmtId, ExInvoiId, PmtAmnt, PmtDisc) VALUES (1, 30, 70, 400, 0))";

Outcome drill(const TestCompany& company, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "drill");
    for (const char* more : {"--company", company.path().c_str(), "--language", "ids"}) arguments.emplace_back(more);
    return program(arguments);
}

// The texts of a card, a line each, their parts joined by bars.
std::string linesOf(const std::string& json) {
    std::string lines;
    const auto parsed = nlohmann::json::parse(json);
    for (const auto& page : parsed["pages"])
        for (const auto& section : page["sections"]) {
            std::string line;
            for (const auto& control : section["controls"])
                if (control.contains("text") && control["text"] != "")
                    line += (line.empty() ? "" : "|") + control["text"].get<std::string>();
            if (!line.empty()) lines += line + "\n";
        }
    return lines;
}

TEST(DrillCommand, PrintsTheCardOfADocumentWithItsLinesAndWhatWasReceived) {
    const TestCompany company(sale);
    const Outcome outcome = drill(company, {"INV|70"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(linesOf(outcome.out),
              "Invoice\n#2781|F70\n#1912|2024-03-05\n#1741|A1\n#3017|Allard inc.\n#20238|1\n#2767|1,234.50\n"
              "#20281\n#1780|#1599|#4022|#2809|#2853|#2710\nSCR-3|Deck screws|2.5|100.00|250.00\nWork|1|984.50|984.50\n"
              "#20282\n#1912|#20240|#2796|#2853|#1914\n2024-03-20|4501|Cheque|0.00|400.00\n");
}

TEST(DrillCommand, PrintsACardAPageAndSaysWhatTheCompanyDoesNotHave) {
    const TestCompany company(sale);
    const Outcome customer = drill(company, {"5"});
    EXPECT_EQ(linesOf(customer.out),
              "#1573\n#1741|A1\n#3017|Allard inc.\n#20284\n#2781|#1372|#1912|#2767\nF70|Invoice|2024-03-05|1,234.50\n");
    const Outcome twice = drill(company, {"ReceiptPayment|30,30"});
    EXPECT_EQ(nlohmann::json::parse(twice.out)["pages"].size(), 2U);
    const Outcome missing = drill(company, {"INV|71"});
    EXPECT_EQ(missing.status, 2);
    EXPECT_NE(missing.err.find("INV with the key 71"), std::string::npos) << missing.err;
    const Outcome nobody = drill(company, {"Invoice|7|Kevin"});
    EXPECT_EQ(nobody.status, 2);
    EXPECT_NE(nobody.err.find("\"Kevin\""), std::string::npos) << nobody.err;
    const Outcome seller = drill(company, {"Ana Roy|0|2"});
    EXPECT_EQ(seller.status, 2);
    EXPECT_NE(seller.err.find("\"Ana Roy\""), std::string::npos) << seller.err;
}

}  // namespace
}  // namespace quillo::test
