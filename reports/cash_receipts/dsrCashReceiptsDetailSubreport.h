#pragma once

#include "framework/hosted_report.h"
#include "reports/shared/account_distribution.h"

namespace quillo {

// The distribution of the cash receipts journal by account: one line an account, netted to one side.
class dsrCashReceiptsDetailSubreport final : public SubReportFrame {
public:
    explicit dsrCashReceiptsDetailSubreport(HostContext& context);

    void Application(quillo::Application& application) { clsApplicationInitialise(application); }
    int ExGLAcctId = 0;  // kept for the host, of no effect

    DataControl& rsInvoiJournal = data("rsInvoiJournal");

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
    Field& fldAccount = field("fldAccount");
    Field& fldDescr = field("fldDescr");
    Field& txtTotalDebit = field("txtTotalDebit");
    Field& txtTotalCredit = field("txtTotalCredit");
    Field& txtGrTotalDebit = field("txtGrTotalDebit");
    Field& txtGrTotalCredit = field("txtGrTotalCredit");

    AccountDistribution m_distribution;
};

}  // namespace quillo
