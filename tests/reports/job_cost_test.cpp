#include <gtest/gtest.h>

#include <map>
#include <set>

#include "host/comparable/comparable_tables.h"
#include "host/database/sqlite_handle.h"
#include "host/drill/drill_target.h"
#include "host/drill/record_card.h"
#include "tests/company/demo_file.h"
#include "tests/support/report_runner.h"

namespace quillo::test {
namespace {

using Texts = std::vector<std::string>;

// Three projects in March 2024, with a clearing account (8) that only a balance brought forward knows.
//
//   Quay  before: Ash -300, Birch -7, Oak 120 and 50 on clearing, Ann 20 on a slip without a mark, hours on clearing
//   33;
//         in March: Oak 80, Birch -500, Elm 40.50, Ann 100, a cancelled slip of hers
//   Mill  in March: Birch -75, and 75 of somebody who is gone, who had 5 and -5 before
//   Yard  before: Oak 60
constexpr const char* projects = R"(
    INSERT OR REPLACE INTO Parameter (Section, Name, Value) VALUES ('KorvaAcctParams', 'WIPGLBankAccount', '8'),
        ('KorvaAcctParams', 'WIPGLUnrecordedServiceAccount', '9');
    INSERT INTO Segment (InSegmentId, Descr) VALUES (1, 'East'), (2, 'West');
    INSERT INTO GLAcct (InGLAcctId, GLAcctId, Descr) VALUES (1, '4000', 'Sales'), (2, '5000', 'Cost'),
        (8, '1310', 'Time bank'), (9, '2310', 'Unrecorded');
    INSERT INTO ProjInfo (InProjId, ProjId, Descr) VALUES (1, 'P1', ' Quay '), (2, 'P2', 'Mill'), (3, 'P3', 'Yard');
    INSERT INTO Cust (InCustId, CustId, Name) VALUES (10, 'A', 'Ash'), (11, 'B', 'Birch');
    INSERT INTO Supp (InSuppId, SuppId, Name) VALUES (20, 'E', 'Elm'), (21, 'O', 'Oak');
    INSERT INTO Empl (InEmplId, EmplId, FirstName, LastName) VALUES (30, 'AB', 'Ann', 'Bly');
    INSERT INTO InvoiHdr (InInvoiId, ExCustId) VALUES (101, 10), (102, 11);
    INSERT INTO PurcHdr (InPurcId, ExSuppId) VALUES (201, 21), (202, 20);
    INSERT INTO TrxPay (InTrxPayId, ExEmplId, Canceled) VALUES (301, 30, 0), (302, NULL, 0), (303, 30, 1), (304, 30, NULL);
    INSERT INTO GLDet (SeqNo, DetDate, Source, ExSrcKeyVal, ExAcctId, DetAmnt, ExProjId, ExSegmentId) VALUES
        (1, '2024-02-10', 'INV', 101, 1, -300, 1, 1), (2, '2024-02-11', 'INV', 102, 1, -7, 1, NULL),
        (3, '2024-02-20', 'PUR', 201, 2, 120, 1, 1), (4, '2024-02-20', 'PUR', 201, 8, 50, 1, 1),
        (5, '2024-02-25', 'GEN', NULL, 9, 33, 1, 1), (6, '2024-02-28', 'PAY', 304, 2, 20, 1, 1),
        (7, '2024-03-01', 'PUR', 201, 2, 80, 1, 1), (8, '2024-03-10', 'INV', 102, 1, -500, 1, 2),
        (9, '2024-03-12', 'EXP', 202, 2, 40.5, 1, NULL), (10, '2024-03-31', 'PAY', 301, 2, 100, 1, 1),
        (11, '2024-03-31', 'PAY', 303, 2, 9, 1, 1), (11, '2024-03-31', 'PAY', 303, 2, -9, 1, 1),
        (12, '2024-04-01', 'INV', 101, 1, -999, 1, 1), (13, '2024-03-05', 'INV', 101, 1, -88, 0, 1),
        (14, '2024-03-05', 'INV', 101, 1, 0, 2, 1), (15, '2024-03-05', 'INV', 102, 1, -75, 2, 1),
        (16, '2024-03-06', 'PAY', 302, 2, 75, 2, 1), (17, '2024-02-02', 'PAY', 302, 2, 5, 2, 1),
        (18, '2024-02-03', 'PAY', 302, 2, -5, 2, 1), (19, '2024-02-01', 'PUR', 201, 2, 60, 3, 1))";

ReportRun march(const TestCompany& company, const char* member) {
    return {.member = member, .company = company.path(), .from = "2024-03-01", .to = "2024-03-31", .language = "ids"};
}

// Texts of two controls that stand beside one another: "80.00 DT".
Texts pairs(const ReportResult& result, const char* amount, const char* mark) {
    const Texts amounts = result.texts(amount), marks = result.texts(mark);
    Texts both;
    for (std::size_t i = 0; i < std::max(amounts.size(), marks.size()); ++i)
        both.push_back(nth(amounts, i) + " " + nth(marks, i));
    return both;
}

TEST(JobCost, ByProjectBringsForwardRunsAndTotals) {
    const TestCompany company(projects);
    for (const int dialect : {0, 1}) {
        auto asked = march(company, "JobCustByProject");
        asked.dialect = dialect;
        const auto result = runReport(asked);
        EXPECT_EQ(result.boxes, Texts{});
        EXPECT_EQ(result.texts("fldProject"), (Texts{"P1-Quay", "P2-Mill", "P3-Yard"}));
        EXPECT_EQ(result.links("fldProject"), (Texts{"PRJ|1", "PRJ|2", "PRJ|3"}));
        EXPECT_EQ(pairs(result, "fldBalForward", "lblCT"), (Texts{"84.00 CT", "60.00 DT"})) << "with the clearing";
        EXPECT_EQ(result.texts("txtDetDate"), (Texts{"2024-03-01", "2024-03-10", "2024-03-12", "2024-03-31",
                                                     "2024-03-31", "2024-03-31", "2024-03-05", "2024-03-06"}));
        EXPECT_EQ(result.texts("txtDebit"), (Texts{"80.00", "", "40.50", "100.00", "9.00", "", "", "75.00"}));
        EXPECT_EQ(result.texts("txtCredit"), (Texts{"", "500.00", "", "", "", "9.00", "75.00", ""}));
        EXPECT_EQ(pairs(result, "txtBalance", "CT1"), (Texts{"87.00 CT", "587.00 CT", "546.50 CT", "446.50 CT",
                                                             "437.50 CT", "446.50 CT", "75.00 CT", "0.00 .."}));
        EXPECT_EQ(nth(result.links("txtCredit"), 1), "INV|102");
        EXPECT_EQ(nth(result.texts("lblSourceCaption"), 2), "#20007");
        EXPECT_EQ(result.texts("txtTotDbt"), (Texts{"229.50", "75.00", "0.00"}));
        EXPECT_EQ(result.texts("txtTotCrdt"), (Texts{"509.00", "75.00", "0.00"}));
        EXPECT_EQ(pairs(result, "txtTotBal", "CT3"), (Texts{"446.50 CT", "0.00 ..", "60.00 DT"}));
        EXPECT_EQ(result.only("txtGrandTotDebt"), "304.50");
        EXPECT_EQ(result.only("txtGrandTotCrdt"), "584.00");
        EXPECT_EQ(pairs(result, "txtBalGrandTot", "CT4"), Texts{"386.50 CT"});
        EXPECT_EQ(result.only("lblEnd"), "3 #5861");
    }
}

// What a report by party prints, a line a head, a posting and a total: as a reader goes down the page.
std::string told(const ReportResult& result) {
    std::string lines;
    for (const auto& page : result.kept.pages)
        for (const PlacedSection& section : page->sections) {
            if (section.info->kind == SectionKind::pageHeader) continue;
            std::string line;
            for (const PlacedControl& control : section.controls) {
                const std::string_view name = control.info->name;
                if (control.text.empty() || name == "txtDetDate" || name == "txtGLAcctId") continue;
                line.append(line.empty() ? "" : " ").append(control.text);
                if (name == "txtName" || name == "txtBalance") line.append(" (").append(control.link).append(")");
            }
            if (!line.empty()) lines += line + "\n";
        }
    return lines;
}

TEST(JobCost, ByPartySubtotalsEachProjectOfEachParty) {
    const TestCompany company(projects);
    const std::map<const char*, const char*> expected = {
        {"JobCustByCust",
         "Ash (CUS|10) #1388\nP1-Quay #1389 #3011 300.00 CT\n#1642 0.00 0.00 300.00 CT\n#2710 0.00 0.00 300.00 CT\n"
         "Birch (CUS|11) #1388\nP1-Quay #1389 #3011 7.00 CT\n#20001 500.00 507.00 (INV|102) CT\n"
         "#1642 0.00 500.00 507.00 CT\nP2-Mill #1389\n#20001 75.00 75.00 (INV|102) CT\n#1642 0.00 75.00 75.00 CT\n"
         "#2710 0.00 575.00 582.00 CT\n#1641 0.00 575.00 882.00 CT 3 #5861\n"},
        {"JobCustBySupp",
         "Elm (SUP|20) #20285\nP1-Quay #1389\n#20007 40.50 40.50 (EXP|202) DT\n#1642 40.50 0.00 40.50 DT\n"
         "#2710 40.50 0.00 40.50 DT\nOak (SUP|21) #20285\nP1-Quay #1389 #3011 170.00 DT\n"
         "#20006 80.00 200.00 (PUR|201) DT\n#1642 80.00 0.00 200.00 DT\nP3-Yard #1389 #3011 60.00 DT\n"
         "#1642 0.00 0.00 60.00 DT\n#2710 80.00 0.00 260.00 DT\n#1641 120.50 0.00 300.50 DT 3 #5861\n"},
        {"JobCustByEmpl",
         "  (EMP|) #20286\nP2-Mill #1389\n#20008 75.00 75.00 (PAY|302) DT\n#1642 75.00 0.00 75.00 DT\n"
         "#2710 75.00 0.00 75.00 DT\nAnn Bly (EMP|30) #20286\nP1-Quay #1389\n#20008 100.00 120.00 (PAY|301) DT\n"
         "#1642 100.00 0.00 120.00 DT\n#2710 100.00 0.00 120.00 DT\n#1641 175.00 0.00 195.00 DT 2 #5861\n"}};
    for (const auto& [member, pages] : expected)
        for (const int dialect : {0, 1}) {
            auto asked = march(company, member);
            asked.dialect = dialect;
            const auto result = runReport(asked);
            EXPECT_EQ(result.boxes, Texts{}) << member;
            EXPECT_EQ(told(result), pages) << member;
        }
}

TEST(JobCost, ProjectAndPartyAreNamedAgainOnThePagesThatTheyGoOnTo) {
    const TestCompany company(std::string(projects) +
                              ";INSERT INTO GLDet (SeqNo, DetDate, Source, ExSrcKeyVal, ExAcctId, DetAmnt, ExProjId) "
                              "WITH RECURSIVE Line (N) AS (SELECT 100 UNION SELECT N + 1 FROM Line WHERE N < 150) "
                              "SELECT N, '2024-03-20', 'PUR', 201, 2, 1, 1 FROM Line");
    auto asked = march(company, "JobCustBySupp");
    asked.pageHeight = 8000;
    const auto result = runReport(asked);
    EXPECT_GT(result.texts("lblContinued").size(), 1U);
    EXPECT_GT(result.texts("lblContinuedProject").size(), 1U);
    EXPECT_EQ(last(pairs(result, "txtBalance", "CT1")), "251.00 DT");
    EXPECT_EQ(result.only("lblEnd"), "3 #5861") << "a head that stands again counts once";
    constexpr float forwardTop = 330;
    for (const auto& page : result.kept.pages)
        for (const PlacedSection& section : page->sections)
            for (const PlacedControl& control : section.controls)
                if (section.repeat && section.info->kind == SectionKind::groupHeader) {
                    EXPECT_LT(control.top, forwardTop) << control.info->name << " of the balance brought forward";
                }
}

TEST(JobCost, SegmentsAndTheUsersFilterNarrowThePostings) {
    const TestCompany company(projects);
    auto asked = march(company, "JobCustByProject");
    asked.segments = "2";
    asked.noSegment = true;
    const auto segments = runReport(asked);
    EXPECT_EQ(segments.texts("txtBalance"), (Texts{"507.00", "466.50"})) << "with a hidden row without segment";
    EXPECT_TRUE(segments.texts("fldBalForward").empty()) << "what is brought forward knows segment 2 alone";
    asked.segments = "";
    EXPECT_EQ(runReport(asked).texts("fldBalForward"), Texts{"84.00"});

    asked = march(company, "JobCustBySupp");
    asked.where = "ProjInfo.ProjId = 'P1'";
    asked.order = "Supp.SuppId DESC, GLDet.DetAmnt DESC";
    const auto filtered = runReport(asked);
    EXPECT_EQ(filtered.only("lblEnd"), "2 #5861");
    EXPECT_NE(
        first(filtered.sql).find("<> ?  AND (ProjInfo.ProjId = 'P1')  ORDER BY SuppId, ProjId, GLDet.DetAmnt DESC"),
        std::string::npos)
        << first(filtered.sql);
}

TEST(JobCost, AnAmountThatCannotBeReadCostsItselfAlone) {
    const TestCompany company(std::string(projects) + ";UPDATE GLDet SET DetAmnt = 1e300 WHERE SeqNo IN (3, 8)");
    const auto result = runReport(march(company, "JobCustByProject"));
    Texts procedures;
    for (const std::string& box : result.boxes) {
        const auto from = box.find("Quillo."), to = box.find(" at line");
        procedures.push_back(box.substr(from, to - from));
    }
    EXPECT_EQ(procedures,
              (Texts{"Quillo.dsrJobCostByProject.ForwardBalance", "Quillo.dsrJobCostByProject.Detail_Format",
                     "Quillo.dsrJobCostByProject.Detail_Format"}));
    EXPECT_EQ(result.texts("fldBalForward"), Texts{"60.00"}) << "a balance that failed is none";
    EXPECT_EQ(first(pairs(result, "txtTotBal", "CT3")), "66.50 CT");
}

// The tables of a run: title, rows with their cells, and whether the report closed them.
std::string tablesOf(const ReportRun& run) {
    ComparableCollector collector;
    runReport(run, [&](Report& report) {
        dynamic_cast<IComparableReport&>(report).IComparableReport_ComparableReportGen(&collector);
    });
    std::string text;
    for (const ComparableTable& table : collector.tables()) {
        text += "[" + table.title + "]";
        for (const ComparableRow& row : table.rows) {
            text += " " + row.title + row.value + ":";
            for (const ComparableCell& cell : row.cells) text += " " + cell.name + " " + cell.value;
        }
    }
    return text + (collector.closed() ? ", closed" : "");
}

TEST(JobCost, TellsAComparisonWhatEachProjectComesTo) {
    const TestCompany company(projects);
    EXPECT_EQ(tablesOf(march(company, "JobCustByProject")),
              "[#12944] P1-Quay: #2710 -446.50 P2-Mill: #2710 0.00 P3-Yard: #2710 60.00, closed");
    EXPECT_EQ(tablesOf(march(company, "JobCustBySupp")),
              "[#12944] P1-Quay: #1642 40.50 #1642 200.00 P3-Yard: #1642 60.00, closed");
}

// --- against the ledger ------------------------------------------------------------------------------

std::int64_t cents(const std::string& amount, const std::string& mark = "DT") {
    const std::int64_t value = LocaleFormat().readMoney(amount).raw() / (Money::scale / 100);
    return mark == "CT" ? -value : value;
}

struct Sums {
    std::int64_t debit, credit, balance, forward;
    bool operator==(const Sums&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Sums& sums) {
    return out << sums.debit << " " << sums.credit << " " << sums.balance << " " << sums.forward;
}

// By project, as the ledger has it; the clearing accounts count in what is brought forward alone.
std::map<std::string, Sums> ledgerSums(const std::string& company) {
    const sqlite::Database file(company, sqlite::Open::readOnly);
    sqlite::Statement rows(file,
                           "WITH Posting AS (SELECT ExProjId, DetDate, CAST(ROUND(100 * DetAmnt) AS INTEGER) AS Cents, "
                           "ExAcctId IN (SELECT "
                           "CAST(Value AS INTEGER) FROM Parameter WHERE Name LIKE 'WIPGL%') AS Clearing, DetDate >= "
                           "'2025-07-01' AS InPeriod "
                           "FROM GLDet WHERE DetDate <= '2025-09-30') SELECT ProjId, SUM(CASE WHEN Clearing = 0 AND "
                           "InPeriod AND Cents > 0 "
                           "THEN Cents ELSE 0 END), SUM(CASE WHEN Clearing = 0 AND InPeriod AND Cents < 0 THEN -Cents "
                           "ELSE 0 END), SUM(CASE "
                           "WHEN Clearing = 0 THEN Cents ELSE 0 END), SUM(CASE WHEN InPeriod THEN 0 ELSE Cents END) "
                           "FROM Posting INNER JOIN "
                           "ProjInfo ON InProjId = ExProjId GROUP BY ProjId");
    std::map<std::string, Sums> sums;
    while (rows.step())
        sums[std::string(rows.text(0))] = {rows.integer(1), rows.integer(2), rows.integer(3), rows.integer(4)};
    return sums;
}

ReportResult quarter(const DemoFile& company, const char* member) {
    return runReport({.member = member, .company = company.path(), .from = "2025-07-01", .to = "2025-09-30"});
}

TEST(JobCost, ByProjectAgreesWithTheLedger) {
    const DemoFile company;
    const auto result = quarter(company, "JobCustByProject");
    EXPECT_EQ(result.boxes, Texts{});
    std::map<std::string, Sums> printed;
    std::string project;
    const auto textOf = [](const PlacedSection& section, std::string_view name) {
        for (const PlacedControl& control : section.controls)
            if (control.info->name == name) return std::string(control.text);
        return std::string();
    };
    for (const auto& page : result.kept.pages)
        for (const PlacedSection& section : page->sections) {
            if (section.info->name == "GrpHeaderPrj" && !section.repeat) {
                const std::string name = textOf(section, "fldProject"), forward = textOf(section, "fldBalForward");
                project = name.substr(0, name.find_last_of('-', name.find(' ')));
                if (!forward.empty()) printed[project].forward = cents(forward, textOf(section, "lblCT"));
            }
            if (section.info->name != "GroupFooter1") continue;
            Sums& sums = printed[project];
            sums.debit = cents(textOf(section, "txtTotDbt")), sums.credit = cents(textOf(section, "txtTotCrdt"));
            sums.balance = cents(textOf(section, "txtTotBal"), textOf(section, "CT3"));
        }
    EXPECT_GT(printed.size(), 3U);
    EXPECT_EQ(printed, ledgerSums(company.path()));
}

// Cancelled pay slips, which no employee has and each project has.
std::int64_t cancelledCents(const std::string& company) {
    sqlite::Database file(company, sqlite::Open::readOnly);
    return file.integer(
        "SELECT SUM(CAST(ROUND(100 * DetAmnt) AS INTEGER)) FROM GLDet INNER JOIN TrxPay ON InTrxPayId = ExSrcKeyVal "
        "WHERE "
        "Source = 'PAY' AND ExProjId <> 0 AND Canceled <> 0 AND DetDate <= '2025-09-30'");
}

TEST(JobCost, WhatPartiesCostAddsUpToTheProjects) {
    const DemoFile company;
    const auto balance = [&](const char* member) {
        const auto result = quarter(company, member);
        EXPECT_EQ(result.boxes, Texts{}) << member;
        std::set<std::string> asked;
        for (const std::string& query : result.sql)
            if (query.find("AmntSum") != std::string::npos) asked.insert(query.substr(0, query.find(" <> 0 \"")));
        EXPECT_EQ(asked.size(), 1U) << "one text for all projects, that is prepared once";
        return cents(result.only("txtBalGrandTot"), result.only("CT4"));
    };
    EXPECT_EQ(balance("JobCustByCust") + balance("JobCustBySupp") + balance("JobCustByEmpl"),
              balance("JobCustByProject") - cancelledCents(company.path()));
}

TEST(JobCost, EachLinkLeadsToARecord) {
    const DemoFile company;
    ListedMessages messages;
    SessionOptions options;
    options.company = company.path();
    HostSession session(options, messages);
    std::set<std::string> kinds;
    for (const char* member : {"JobCustByProject", "JobCustByCust", "JobCustBySupp", "JobCustByEmpl"}) {
        const auto result = quarter(company, member);
        for (const char* control : {"txtName", "fldProject", "lblSourceCaption"})
            for (const std::string& tag : result.links(control)) {
                if (tag == "EMP|") continue;  // somebody who is gone
                const RecordTarget target = readDrillTag(tag, [](std::string_view) { return TillKey::user; }).records;
                kinds.insert(target.kind);
                EXPECT_NO_THROW(readRecordCards(target, session.file(), session)) << tag;
            }
    }
    EXPECT_EQ(kinds, (std::set<std::string>{"CUS", "EMP", "EXP", "INV", "PAY", "PRJ", "PUR", "SUP"}));
}

}  // namespace
}  // namespace quillo::test
