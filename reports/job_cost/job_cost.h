#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "framework/report_mixins.h"
#include "reports/shared/debit_credit.h"

namespace quillo {

// What a project, a party or a whole run comes to: its postings of the period by side, and its balance, which takes in
// those before the period too.
struct JobCostTotals {
    DebitCredit sides;
    Money balance;

    void add(const JobCostTotals& other) {
        sides.add(other.sides);
        balance += other.balance;
    }
};

// A balance without its sign, and the mark that stands for it: "DT", "CT", or ".." when it is zero.
void showBalance(Money balance, Field& amount, Label& mark, const LocaleFormat& locale);

// The controls of a line of totals.
struct JobCostLine {
    Field &debit, &credit, &balance;
    Label& mark;

    void show(const JobCostTotals& totals, const LocaleFormat& locale) const;
};

// What the reports of job cost have in common: the ledger's postings that carry a project, with a running balance and
// one brought forward for each project. The postings before the period are read for the running balance and do not
// print. Work-in-progress clearing is left out of the postings. A report states its queries and its groups.
class JobCostReport : public ComparableReport<SegmentReport> {
protected:
    struct Kind {
        int titleId;
        std::string_view tables;          // over which the user may filter
        std::string_view postings;        // the query up to its conditions
        std::vector<std::string> groups;  // columns that lead the user's order
        std::string_view order;           // its own order
        std::string_view forward;         // the query of a balance brought forward, up to the segments
        std::string_view projectHeader;   // name of the section
    };
    JobCostReport(std::string name, HostContext& context, const Kind& kind);

    // The values of the query's marks, for the project on whose first row the rows stand.
    virtual std::vector<Variant> forwardValues() const = 0;

    JobCostLine lineOf(std::string_view debit, std::string_view credit, std::string_view balance,
                       std::string_view mark) const;
    void compareProject(const Label& caption);
    void closeProject();

    DataControl& rows = *dataControl();
    JobCostTotals m_project;

private:
    void ActiveReport_Initialize();
    void ActiveReport_ReportStart() override;
    void GrpHeaderPrj_Format();
    void Detail_Format();
    void ReportFooter_Format();
    Variant clearingAccount(std::string_view parameter) const;
    std::string projectName() const;
    Money ForwardBalance(const std::vector<Variant>& values);
    void showForward(Money forward);
    bool isBeforePeriod() const;

    Kind kind_;
    std::string forwardQuery_;

    Section& GrpHeaderPrj;
    Section& Detail = section("Detail");
    Field& fldProject = field("fldProject");
    Label& lblBalForward = label("lblBalForward");
    Field& fldBalForward = field("fldBalForward");
    Label& lblCT = label("lblCT");
    Label& lblSourceCaption = label("lblSourceCaption");
    Field& txtGLAcctId = field("txtGLAcctId");
    JobCostLine row = lineOf("txtDebit", "txtCredit", "txtBalance", "CT1");
    JobCostLine grandLine = lineOf("txtGrandTotDebt", "txtGrandTotCrdt", "txtBalGrandTot", "CT4");

    JobCostTotals m_grand;
    bool m_bProjectCodes = true;
};

// Job cost by whom the postings are of, and for each of them by project: subtotals of the projects, totals of the
// parties.
class JobCostByParty : public JobCostReport {
protected:
    JobCostByParty(std::string name, HostContext& context, const Kind& kind);

private:
    void GroupFooter2_Format();
    void GroupFooter1_Format();

    Label& Label6 = label("Label6");
    JobCostLine projectLine = lineOf("txtSubTotDebt", "txtSubTotCrdt", "txtSubTotBal", "lblCT2");
    JobCostLine partyLine = lineOf("txtTotDbt", "txtTotCrdt", "txtTotBal", "CT3");

    JobCostTotals m_party;
};

}  // namespace quillo
