#pragma once

#include "framework/hosted_report.h"
#include "reports/shared/account_distribution.h"
#include "reports/shared/journal_columns.h"

namespace quillo {

// The ledger distribution at the end of the sales journal: each account with what its postings net to. Its totals need
// not show the journal's figures.
class dsrSalesJournalDetailSubreport final : public SubReportFrame {
public:
    explicit dsrSalesJournalDetailSubreport(HostContext& context);

    // The distribution is in home currency alone, whatever its key.
    void HomeCurrencyInitialise(int) {}
    void give(std::shared_ptr<Recordset> postings) { rsInvoiJournal.Recordset = std::move(postings); }

    bool begun() const { return m_distribution.begun(); }
    // To stand under the columns of the journal.
    JournalColumns amounts();

private:
    void ActiveReport_Initialize();
    void ReportHeader_Format();
    void ghGLAcct_Format();
    void Detail_Format();
    void gfGLAcct_Format();
    void ReportFooter_Format();

    Label& DistributionGL = label("DistributionGL");
    Label& lblCompteCap = label("lblCompteCap");
    Label& lblDescrCap = label("lblDescrCap");
    Label& lblDebitCap = label("lblDebitCap");
    Label& lblCreditCap = label("lblCreditCap");
    DataControl& rsInvoiJournal = data("rsInvoiJournal");
    Field& fldAccount = field("fldAccount");
    Field& fldDescr = field("fldDescr");
    Field& txtTotalDebit = field("txtTotalDebit");
    Field& txtTotalCredit = field("txtTotalCredit");
    Field& txtGrTotalDebit = field("txtGrTotalDebit");
    Field& txtGrTotalCredit = field("txtGrTotalCredit");
    Line& LineTotal1 = line("LineTotal1");
    Line& LineTotal2 = line("LineTotal2");
    Line& LineTotal3 = line("LineTotal3");

    AccountDistribution m_distribution;
};

}  // namespace quillo
