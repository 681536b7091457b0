#pragma once

#include "framework/engine/report.h"
#include "framework/shared/debit_credit.h"

namespace quillo {

// The distribution of the cash receipts journal by account: one line an account, netted to one side.
class dsrCashReceiptsDetailSubreport final : public Report {
public:
    explicit dsrCashReceiptsDetailSubreport(HostContext& context);

    void Application(quillo::Application& application) { m_objApplication = &application; }
    int ExGLAcctId = 0;  // kept for the host, of no effect

    DataControl& rsInvoiJournal = data("rsInvoiJournal");

private:
    void ActiveReport_ReportStart() override;
    void ReportHeader_Format();
    void ghGLAcct_Format();
    void Detail_Format();
    void gfGLAcct_Format();
    void ReportFooter_Format();
    void hideAccountNumbers();
    void addAmount();

    Label& lblCompteCap = label("lblCompteCap");
    Label& lblDescrCap = label("lblDescrCap");
    Field& fldAccount = field("fldAccount");
    Field& fldDescr = field("fldDescr");
    Field& txtTotalDebit = field("txtTotalDebit");
    Field& txtTotalCredit = field("txtTotalCredit");
    Field& txtGrTotalDebit = field("txtGrTotalDebit");
    Field& txtGrTotalCredit = field("txtGrTotalCredit");

    quillo::Application* m_objApplication = nullptr;
    DebitCredit m_account;
    DebitCredit m_grandTotal;
};

}  // namespace quillo
