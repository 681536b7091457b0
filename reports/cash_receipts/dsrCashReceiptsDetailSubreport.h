#pragma once

#include "framework/hosted_report.h"
#include "reports/shared/account_distribution.h"
#include "reports/shared/journal_columns.h"

namespace quillo {

// The distribution of the cash receipts journal by account: one line an account, netted to one side.
class dsrCashReceiptsDetailSubreport final : public SubReportFrame {
public:
    explicit dsrCashReceiptsDetailSubreport(HostContext& context);

    void Application(quillo::Application& application) { clsApplicationInitialise(application); }
    int ExGLAcctId = 0;  // kept for the host, of no effect

    DataControl& rsInvoiJournal = data("rsInvoiJournal");

    bool begun() const { return m_distribution.begun(); }
    // To stand under the columns of the journal.
    JournalColumns amounts();

private:
    void ActiveReport_Initialize();
    void ActiveReport_ReportStart() override;
    void ReportHeader_Format();
    void ghGLAcct_Format();
    void Detail_Format();
    void gfGLAcct_Format();
    void ReportFooter_Format();

    Label& lblCompteCap = label("lblCompteCap");
    Label& lblDescrCap = label("lblDescrCap");
    Label& lblDebitCap = label("lblDebitCap");
    Label& lblCreditCap = label("lblCreditCap");
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
