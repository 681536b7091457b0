#include "host/filter/filter_tool.h"

#include <gtest/gtest.h>

#include "framework/values/errors.h"
#include "tests/host/test_company.h"

namespace quillo {
namespace {

class FilterToolTest : public testing::Test {
protected:
    FilterToolTest() : session_("INSERT INTO Cust (InCustId, CustId, Name, CreditLim) VALUES (1, 'A', 'Ash', 100)") {}

    // The filter string, or the refusal; "cancel" when the user cancelled.
    std::string filter(const FilterChoice& choice, const std::string& tables = "Cust, InvoiHdr ,WorldCurrency.Descr") {
        return filter(choice, tables, *session_);
    }
    std::string filter(const FilterChoice& choice, const std::string& tables, HostSession& session) {
        std::string delivered = "nothing";
        HeadlessFilterTool tool(choice, session.file().catalogue(), session,
                                [&](const std::string& text) { delivered = text; });
        bool cancel = false;
        tool.GetFilter(tables, true, true, cancel, true, true);
        if (!tool.failure().empty()) {
            EXPECT_TRUE(cancel);
            EXPECT_EQ(delivered, "nothing");
            return tool.failure();
        }
        info_ = tool.GetFilterInfo();
        return cancel ? "cancel" : delivered;
    }

    test::TestSession session_;
    FilterInfo info_;
};

TEST_F(FilterToolTest, DeliversWhatTheUserAskedFor) {
    EXPECT_EQ(filter({.where = " CustId = 'A' ", .order = " Name DESC "}), "Cust.CustId = 'A'|Cust.Name DESC");
    EXPECT_EQ(filter({.where = "cust . custid = 'A'"}), "Cust.CustId = 'A'|");
    EXPECT_EQ(filter({.where = "NOT (Name LIKE 'O''H%'  or CreditLim >= 1000.50) and InvoiDate = ShipDate"}),
              "NOT (Cust.Name LIKE 'O''H%'  or Cust.CreditLim >= 1000.50) and InvoiHdr.InvoiDate = InvoiHdr.ShipDate|")
        << "values and all else as they were written";
    EXPECT_EQ(filter({.order = "Name"}), "|Cust.Name");
    EXPECT_EQ(filter({.order = "Name,CUSTID desc, Cust.Name DESC"}), "|Cust.Name, Cust.CustId DESC")
        << "a column sorts once";
    EXPECT_EQ(filter({.order = "Name", .leadingSeparator = true}), "|, Cust.Name");
    EXPECT_EQ(filter({.where = "Name = 'x'", .leadingSeparator = true}), "Cust.Name = 'x'|");
    EXPECT_EQ(filter({.where = "  ", .order = ""}), "");
    EXPECT_EQ(filter({.where = "nonsense ((", .cancel = true}), "cancel");
}

TEST_F(FilterToolTest, AcceptsConditionsThatTheDatabaseRuns) {
    for (const char* where :
         {"CustId BETWEEN 'A' AND 'M'", "Cust.Name LIKE 'A%' AND NOT (CreditLim >= 1000.50 OR CreditLim < -3)",
          "CustId IN ('A', 'B')", "CustId NOT IN (1, -2)", "Contact IS NULL OR Contact IS NOT NULL",
          "Name NOT LIKE '%''%'", "CreditLim NOT BETWEEN 1 AND 2", "CustId = Name", "cust.custid <> 'x'",
          "((Name = 'O''Hara; -- no comment'))", "NOT NOT Name = ''", "InCustId=1"}) {
        std::string delivered = filter({.where = where}, "Cust");
        ASSERT_TRUE(delivered.ends_with("|")) << delivered;
        delivered.pop_back();
        EXPECT_NO_THROW(
            session_->company().Database().OpenRecordset("SELECT 1 FROM Cust WHERE (" + delivered + ") ", 4, 0))
            << delivered;
        EXPECT_FALSE(info_.where.empty()) << where;
    }
    EXPECT_EQ(filter({.order = "Category_Sub.Descr ASC, Category.Descr"},
                     "Item, Category.Descr, Category_Sub.Descr AS Category_SubDescr "),
              "|Category_Sub.Descr, Category.Descr");
}

TEST_F(FilterToolTest, AValueIsWhatItsColumnHolds) {
    const struct {
        const char* where;
        const char* delivered;  // or the refusal
    } cases[] = {
        {"InvoiDate >= '2024-6-1'", "InvoiHdr.InvoiDate >= '2024-06-01'|"},
        {"InvoiDate IN ('2024-06-01', ' 2024-12-9 ')", "InvoiHdr.InvoiDate IN ('2024-06-01', '2024-12-09')|"},
        {"InvoiDate >= '2024-02-30'", "character 14: a date such as '2024-12-31' is expected at \"'2024-02-30'\""},
        {"InvoiDate >= 'abc'", "character 14: a date such as"},
        {"InvoiDate BETWEEN '2024-01-01' AND '20240601'", "character 36: a date such as"},
        {"InvoiDate >= 20240601", "character 14: a date such as"},
        {"InvoiDate >= '06/01/2024'", "character 14: a date such as"},
        {"InvoiDate LIKE '2024-06-%'", "InvoiHdr.InvoiDate LIKE '2024-06-%'|"},
        {"CreditLim >= '1,000.50' AND CreditLim <> '-7'", "Cust.CreditLim >= 1000.5 AND Cust.CreditLim <> -7|"},
        {"CreditLim >= '1.000,50'", "character 14: an amount such as 1000.50 is expected"},
        {"CreditLim LIKE '1%'", "character 11: CreditLim holds numbers, and LIKE looks at texts"},
        {"InCustId = '12' OR ExchangeRate < '1,35'", "character 35: a number is expected"},
        {"CustId = 007", "Cust.CustId = '007'|"},
        {"ToApprove = -1 AND CustInactive <> '1'", "InvoiHdr.ToApprove <> 0 AND Cust.CustInactive = 0|"},
        {"InvoiDate = Cust.Name", "character 13: InvoiHdr.InvoiDate and Cust.Name hold values of two kinds"},
        {"InvoDate = '2024-06-01'", "WorldCurrency (did you mean InvoiDate?)"},
    };
    for (const auto& one : cases)
        EXPECT_NE(filter({.where = one.where}).find(one.delivered), std::string::npos) << one.where << "\n"
                                                                                       << filter({.where = one.where});
    SessionOptions options;
    options.locale = "en_US";
    test::TestSession american("", options);
    EXPECT_EQ(filter({.where = "InvoiDate >= '6/1/2024'"}, "InvoiHdr", *american),
              "InvoiHdr.InvoiDate >= '2024-06-01'|");
}

TEST_F(FilterToolTest, RefusesEverythingElseWithItsPlace) {
    struct Case {
        const char* where;
        const char* place;  // what the refusal must say
    };
    const Case cases[] = {
        {"Name = 'x'; DELETE FROM Cust", "character 11: AND, OR or the end is expected at \"; DELETE FROM Cust\""},
        {"Name = 'x' -- y", "character 12: AND, OR or the end is expected at \"-- y\""},
        {"Name = 'x' /* y */", "character 12"},
        {"Name = \"x\"", "character 8: a value or a column is expected at \"\"x\"\""},
        {"[Name] = 'x'", "character 1: a column is expected"},
        {"Name = 'x", "character 8: the quote has no end at \"'x\""},
        {"Name LIKE 'it's'", "character 15"},
        {"Name = 'x' UNION SELECT 1", "character 12"},
        {"Name IN (SELECT Name FROM Cust)", "character 10: a value is expected"},
        {"Name IN ()", "character 10: a value is expected"},
        {"EXISTS (SELECT 1)", "character 1: there is no column EXISTS in Cust, InvoiHdr, WorldCurrency"},
        {"LOWER(Name) = 'x'", "character 1: there is no column LOWER"},
        {"Name = LOWER('x')", "character 8: there is no column LOWER"},
        {"Name = ?", "character 8"},
        {"Name = 'a|b'", "character 10: \"|\" cannot stand in a filter"},
        {"Salary = 1", "character 1: there is no column Salary"},
        {"Name = 'x' AND Supp.Name = 'y'",
         "character 16: this report filters by Cust, InvoiHdr, WorldCurrency, not by a table Supp"},
        {"WorldCurrency.CurrencyCode = 'CAD'", "character 1: there is no column CurrencyCode in WorldCurrency"},
        {"ExTermId = 1", "character 1: both Cust and InvoiHdr have a column ExTermId"},
        {"(Name = 'x'", "character 12: \")\" is expected at its end"},
        {"Name = 'x')", "character 11"},
        {"Name", "character 5: a comparison is expected at its end"},
        {"Name =", "character 7"},
        {"= 'x'", "character 1"},
        {"Name BETWEEN 'a'", "character 17: AND is expected"},
        {"Name IS 'x'", "character 9: NULL is expected"},
        {"Name NOT 'x'", "character 10: BETWEEN, LIKE or IN is expected"},
        {"Name LIKE 5", "character 11: a text in single quotes is expected"},
        {"CreditLim = 1 + 1", "character 15"},
        {"CreditLim = 1.2.3", "character 16"},
        {"Name COLLATE BINARY = 'x'", "character 6: a comparison is expected"},
    };
    for (const Case& one : cases) {
        const std::string refusal = filter({.where = one.where});
        EXPECT_NE(refusal.find(std::string("The filter's condition, ") + one.place), std::string::npos)
            << one.where << "\n"
            << refusal;
    }
    const std::string deep = std::string(100000, '(') + "Name = 'x'";
    EXPECT_NE(filter({.where = deep}).find("character 22: more than 20 parentheses or NOTs"), std::string::npos);
    std::string wide = "Name = 'x'";
    for (int i = 0; i < 800; ++i) wide += " OR Name = 'x'";
    EXPECT_NE(filter({.where = wide}).find("character 11201: more than 800 comparisons"), std::string::npos)
        << filter({.where = wide});
    for (const char* order : {"Name,", ",Name", "Name DOWN", "Name; DROP TABLE Cust", "1", "Name DESC ASC", "(Name)",
                              "LEN(Name)", "Name|CustId", "Name COLLATE BINARY", "'Name'", "Supp.Name"})
        EXPECT_NE(filter({.order = order}).find("The filter's order, character "), std::string::npos) << order;
    EXPECT_NE(filter({.where = "A = 1"}, "Nowhere").find("no table Nowhere"), std::string::npos);
    EXPECT_NE(filter({.where = "A = 1"}, "Cust.Salary").find("no column Cust.Salary"), std::string::npos);
}

// A reader of a report knows no names of columns.
TEST_F(FilterToolTest, EachColumnOfTheReportsHasACaption) {
    const std::string tables = "GLDet, InvoiHdr, GLAcct, ProjInfo, Cust, WorldCurrency, Term";
    for (const char* table : {"GLDet", "InvoiHdr", "GLAcct", "ProjInfo", "Cust", "WorldCurrency", "Term"}) {
        const auto& columns = session_->file().catalogue().columns(table);
        ASSERT_FALSE(columns.empty()) << table;
        for (const std::string& column : columns) {
            filter({.order = table + ("." + column)}, tables);
            const bool ownWord =
                column == "Contact" || column == "Fax" || column == "Source" || column == "Due" || column == "Inactive";
            EXPECT_TRUE(ownWord || info_.order != column) << table << "." << column;
        }
    }
}

TEST_F(FilterToolTest, TellsTheFilterInWords) {
    struct Case {
        const char* where;
        const char* english;
        const char* french;
    };
    const Case cases[] = {
        {"CustId BETWEEN 'A' AND 'M'", "Code from A to M", "Code de A à M"},
        {"CustId NOT BETWEEN 'A' AND 'M'", "Code not from A to M", "Code sauf de A à M"},
        {"Name LIKE 'A%' OR Name LIKE '%Ltd%' AND Name LIKE '_x'",
         "Company starting with A or (Company containing Ltd and Company like _x)",
         "Entreprise commençant par A ou (Entreprise contenant Ltd et Entreprise de la forme _x)"},
        {"Name NOT LIKE '%Ltd'", "Company not like %Ltd", "Entreprise sauf de la forme %Ltd"},
        {"CreditLim >= 1000.5 AND NOT Contact IS NULL", "Credit limit from $1,000.50 and not (Contact empty)",
         "Limite de crédit à partir de 1\u00A0000,50\u00A0$ et sauf (Contact vide)"},
        {"CreditLim <= 5 OR CreditLim > 9 AND Contact IS NOT NULL",
         "Credit limit up to $5.00 or (Credit limit above $9.00 and Contact not empty)",
         "Limite de crédit jusqu'à 5,00\u00A0$ ou (Limite de crédit au-delà de 9,00\u00A0$ et Contact non vide)"},
        {"CustId IN ('A', 'B') AND CustId <> 'C'", "Code one of A, B and Code is not C",
         "Code parmi A, B et Code n'est pas C"},
        {"CustId NOT IN ('A', 'B')", "Code none of A, B", "Code autre que A, B"},
        {"InvoiDate < '2024-02-09'", "Date below 2024-02-09", "Date en deçà de 2024-02-09"},
        {"TelExt1 = Tel1", "Ext. is Telephone", "Poste est Téléphone"},
        {"CustInactive <> 0 AND ToApprove = -1", "Inactive is not no and To approve is yes",
         "Inactif n'est pas non et À approuver est oui"},
    };
    SessionOptions options;
    options.language = "fr";
    options.locale = "fr_CA";
    test::TestSession french("", options);
    for (const Case& one : cases) {
        filter({.where = one.where, .order = "Name, CustId DESC, ToApprove"});
        EXPECT_EQ(info_.where, one.english);
        EXPECT_EQ(info_.order, "Company, Code (descending), To approve");
        filter({.where = one.where, .order = "Name, CustId DESC"}, "Cust, InvoiHdr", *french);
        EXPECT_EQ(info_.where, one.french);
        EXPECT_EQ(info_.order, "Entreprise, Code (ordre décroissant)");
    }
}

}  // namespace
}  // namespace quillo
