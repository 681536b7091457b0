#include <gtest/gtest.h>

#include "framework/richtext/rtf_reader.h"
#include "framework/values/errors.h"
#include "host/letters/letter_writer.h"
#include "tests/host/test_company.h"

namespace quillo::test {
namespace {

// A paragraph a line, the cells of a row between bars.
std::string readBack(const std::string& rtf) {
    std::string text;
    const auto add = [&](const RichParagraph& paragraph) {
        for (const RichRun& run : paragraph.runs) text += run.text;
    };
    for (const RichBlock& block : readRichText(rtf, {})) {
        for (const RichCell& cell : block.row.cells) {
            text += "|";
            for (const RichParagraph& paragraph : cell.paragraphs) add(paragraph);
        }
        if (!block.isRow()) add(block.paragraph);
        text += "\n";
    }
    return text;
}

const LetterFields sample = {{{"Name", "Bo {& Sons} \\ Œuvre 😀"}, {"Address", "1 Main\nLaval"}, {"Balance", "30.00"}},
                             {{{"Document.Number", "F1"}, {"Document.Balance", "10.00"}},
                              {{"Document.Number", "F2"}, {"Document.Balance", "20.00"}}}};

TEST(LetterTemplate, PutsValuesInPlaceOfFields) {
    const struct {
        const char *body, *text;
    } cases[] = {
        {"To \\{Name\\}:\\par", "To Bo {& Sons} \\ Œuvre 😀:\n"},
        {"\\{Address\\}\\{Balance\\}!\\par", "1 Main\nLaval30.00!\n"},
        {"\\uc0\\{Name\\}\\par", "Bo {& Sons} \\ Œuvre 😀\n"},
        {"\\{Na{\\b me}\\lang9 \\} is bold\\par", "Bo {& Sons} \\ Œuvre 😀 is bold\n"},
        {"{\\b\\{Balance\\}}x\\par", "30.00x\n"},
        {"\\{Company\\}nothing\\par", "nothing\n"},
        {"set \\{1, 2\\} and \\{\\par", "set {1, 2} and {\n"},
        {"above\\par \\{Document.Number\\}: \\{Document.Balance\\} of \\{Balance\\}\\par below",
         "above\nF1: 10.00 of 30.00\nF2: 20.00 of 30.00\nbelow\n"},
        {"{\\pard above\\par}{\\pard\\b \\{Document.Number\\}\\par}{\\pard below\\par}", "above\nF1\nF2\nbelow\n"},
        {"\\pard {above}{\\par }\\pard {\\b x\\{Document.Number\\}}{\\par }below", "above\nxF1\nxF2\nbelow\n"},
        {"\\trowd\\cellx9\\intbl No.\\cell\\row\\trowd\\cellx9\\intbl\\{Document.Number\\}\\par\\cell\\row\\pard end",
         "|No.\n|F1\n|F2\nend\n"},
        {"\\trowd\\cellx9\\cellx20\\pard\\intbl{\\{Document.Number\\}\\cell \\{Document.Balance\\}\\cell}"
         "\\pard{\\trowd\\cellx9\\cellx20\\row}\\pard end",
         "|F1|10.00\n|F2|20.00\nend\n"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(readBack(LetterTemplate(std::string("{\\rtf1\\ansi ") + c.body + "}").compose(sample)), c.text)
            << c.body;
}

std::string refusalOf(const std::string& rtf) {
    try {
        LetterTemplate made(rtf);
        return "";
    } catch (const InputError& failure) {
        return failure.what();
    }
}

TEST(LetterTemplate, RefusesWhatCannotBeComposed) {
    EXPECT_NE(refusalOf("{\\rtf1 \\{Nmae\\}}").find("there is no field {Nmae}; there are {Name}, {Address}"),
              std::string::npos);
    EXPECT_NE(refusalOf("Dear {Name}").find("no RTF"), std::string::npos);
    EXPECT_NE(refusalOf("{\\rtf1\\pard{\\b Title\\par \\{Document.Number\\}}\\par}").find("{Document.Number} shares"),
              std::string::npos)
        << "its group began with the title";
}

// Ash: an old invoice paid in part, one not yet due, money on account. Birch: late in home currency but with a larger
// credit note; Cedar: in US dollars. Elm: settled on the last day of January.
constexpr const char* trade =
    "UPDATE CompanyFact SET Value = '1' WHERE Name = 'UsesForeignCurrency';"
    "UPDATE CompanyFact SET Value = 'Quay Ltd' WHERE Name = 'Name';"
    "INSERT INTO WorldCurrency VALUES (2, 'USD', 'US dollar');"
    "INSERT INTO Cust (InCustId, CustId, Name, ExCurrencyId) VALUES (1, 'A', 'Ash', NULL), (2, 'B', 'Birch', 1),"
    " (3, 'C', 'Cedar', 2), (4, 'E', 'Elm', 1);"
    "INSERT INTO Addr (InAddrId, ExCustId, AddrKind, AddrName, AddrLine1, City) VALUES (1, 1, 0, NULL, '1 Main', "
    "'Hull'),"
    " (2, NULL, 0, 'Quay Ltd', '9 Quay', 'Laval');"
    "INSERT INTO InvoiHdr (InInvoiId, InvoiId, InvoiType, InvoiDate, DueDate, ExCustId, ExCurrencyId, TotAmnt, "
    "RecAmnt) "
    "VALUES (10, 'F10', 1, '2024-01-01', '2024-01-11', 1, NULL, 100, NULL),"
    " (11, 'F11', 1, '2024-02-20', '2024-03-20', 1, 1, 50, 10), (12, 'Q1', 50, '2024-01-01', NULL, 1, 1, 99, NULL),"
    " (20, 'F20', 1, '2024-01-01', '2024-01-02', 2, 1, 80, NULL), (21, 'N21', 3, '2024-01-05', NULL, 2, 1, -90, NULL),"
    " (30, 'F30', 1, '2024-01-30', NULL, 3, NULL, 70, NULL), (31, 'F31', 1, '2024-03-05', NULL, 3, 2, 7, NULL),"
    " (40, 'F40', 1, '2024-01-01', '2024-01-02', 4, 1, 60.1, NULL);"
    "INSERT INTO PmtHdr (InPmtId, PmtDate, ChqNo, ExCustId, ExCurrencyId, PaymentCreditApplication) VALUES"
    " (90, '2024-01-20', '77', 1, 1, NULL), (91, '2024-03-02', NULL, 1, 1, NULL), (92, '2024-01-31', NULL, 4, 1, NULL),"
    " (93, '2024-02-10', '88', 1, 1, NULL), (94, '2024-02-15', NULL, 1, 1, 93);"
    "INSERT INTO PmtDet (ExPmtId, ExInvoiId, PmtAmnt, PmtDisc) VALUES (90, 10, 25, 5), (91, 10, 70, NULL),"
    " (92, 40, 60.1, NULL), (93, NULL, 20, NULL), (94, NULL, -5, NULL), (94, 10, 5, NULL)";

std::string tell(TestSession& session, const char* day, int minDays) {
    std::string text;
    for (const OverdueCustomer& customer : overdueCustomers(session->file(), *Date::parseIsoDay(day), minDays)) {
        text += customer.name + " " + std::to_string(customer.oldestDays) + ":";
        for (const OpenDocument& document : customer.documents)
            text += " " + document.number + " " + document.balance.toText();
        for (const auto& [currency, amount] : customer.overdue)
            text += ", overdue " + amount.toText() + " of " + customer.balances.at(currency).toText() + " in " +
                    std::to_string(currency);
        text += "\n";
    }
    return text;
}

TEST(Overdue, CountsWhatWasOpenOnTheDay) {
    TestSession session(trade);
    EXPECT_EQ(tell(session, "2024-01-11", 1), "Elm 9: F40 60.1, overdue 60.1 of 60.1 in 1\n")
        << "due today is not late";
    EXPECT_EQ(tell(session, "2024-01-12", 1),
              "Ash 1: F10 100, overdue 100 of 100 in 1\nElm 10: F40 60.1, overdue 60.1 of 60.1 in 1\n");
    EXPECT_EQ(tell(session, "2024-01-31", 20), "Ash 20: F10 70, overdue 70 of 70 in 1\n");
    EXPECT_EQ(tell(session, "2024-01-31", 21), "");
    EXPECT_EQ(tell(session, "2024-03-01", 30),
              "Ash 50: F10 65 88 -15 F11 40, overdue 50 of 90 in 1\nCedar 31: F30 70, overdue 70 of 70 in 2\n")
        << "in the order in which they were due; Birch's credit note covers its invoice";
    EXPECT_EQ(tell(session, "2024-03-10", 30), "Cedar 40: F30 70 F31 7, overdue 77 of 77 in 2\n")
        << "what is left on account is more than what Ash still owes that long";
}

TEST(Letters, SayWhatTheCompanyKnows) {
    SessionOptions options;
    options.language = "fr";
    options.locale = "fr_CA";
    TestSession session(trade, options);
    const Date day = *Date::parseIsoDay("2024-03-01");
    const auto customers = overdueCustomers(session->file(), day, 30);
    ASSERT_EQ(customers.size(), 2U);
    const LetterFields ash = letterFields(*session, customers[0], day),
                       cedar = letterFields(*session, customers[1], day);
    EXPECT_EQ(ash.values, (FieldValues{{"Name", "Ash"},
                                       {"Address", "1 Main\nHull"},
                                       {"Balance", "90,00\u00A0$"},
                                       {"Overdue", "50,00\u00A0$"},
                                       {"OldestDays", "50"},
                                       {"Date", "2024-03-01"},
                                       {"Company", "Quay Ltd"}}));
    ASSERT_EQ(ash.documents.size(), 3U);
    EXPECT_EQ(ash.documents[0], (FieldValues{{"Document.Number", "F10"},
                                             {"Document.Kind", "Facture"},
                                             {"Document.Date", "2024-01-01"},
                                             {"Document.DueDate", "2024-01-11"},
                                             {"Document.Days", "50"},
                                             {"Document.Balance", "65,00\u00A0$"}}));
    EXPECT_EQ(ash.documents[1], (FieldValues{{"Document.Number", "88"},
                                             {"Document.Kind", "Acompte"},
                                             {"Document.Date", "2024-02-10"},
                                             {"Document.Balance", "-15,00\u00A0$"}}))
        << "was never due";
    EXPECT_FALSE(ash.documents[2].contains("Document.Days")) << "is not due yet";
    const Date due = customers[0].documents[2].dueDate;
    EXPECT_FALSE(letterFields(*session, customers[0], due).documents[2].contains("Document.Days")) << "is due today";
    EXPECT_EQ(cedar.values.at("Balance"), "70,00\u00A0USD");
}

TEST(Letters, TheTemplatesOfTheLibraryHaveEveryFieldOfADocument) {
    for (const char* language : {"en", "fr"}) {
        const LetterTemplate letter(builtInLetter(language));
        LetterFields fields;
        std::string all;
        for (const std::string_view name : LetterTemplate::fields()) {
            fields.values.emplace(name, "<" + std::string(name) + ">");
            all += std::string(name) + " ";
        }
        fields.documents = {fields.values};
        const std::string text = readBack(letter.compose(fields));
        for (const auto& [name, value] : fields.values)
            EXPECT_NE(text.find(value), text.npos) << language << " " << name;
        EXPECT_EQ(text.find('{'), text.npos) << text;
    }
    EXPECT_NE(builtInLetter("en"), builtInLetter("fr"));
    EXPECT_EQ(builtInLetter("en"), builtInLetter("de"));
}

TEST(Letters, TheCompanysAddressHasItsNameAbove) {
    TestSession session(trade);
    EXPECT_EQ(session->company().AddressText(0, 0, 0), "Quay Ltd\n9 Quay\nLaval");
    TestSession bare;
    EXPECT_EQ(bare->company().AddressText(0, 0, 0), "");
}

}  // namespace
}  // namespace quillo::test
