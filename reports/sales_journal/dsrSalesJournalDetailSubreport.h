#pragma once

#include "framework/engine/report.h"
#include "framework/shared/debit_credit.h"

namespace quillo {

// The ledger distribution at the end of the sales journal: each account with what its postings net to. Unlike the
// journal it sums unrounded amounts, so that its totals need not show the journal's figures: meant, they are the
// ledger's own.
class dsrSalesJournalDetailSubreport final : public Report {
public:
    explicit dsrSalesJournalDetailSubreport(HostContext& context);

    void HomeCurrencyInitialise(int currencyId) { m_lngHomeCurrencyId = currencyId; }
    void clsApplicationInitialise(Application& application) { m_objApplication = &application; }
    void give(std::shared_ptr<Recordset> postings) { rsInvoiJournal.Recordset = std::move(postings); }

private:
    void ActiveReport_ReportStart() override;
    void ReportHeader_Format();
    void ghGLAcct_Format();
    void Detail_Format();
    void gfGLAcct_Format();
    void ReportFooter_Format();
    void hideAccountNumbers();
    std::string GetText(int id) const;

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

    Application* m_objApplication = nullptr;
    int m_lngHomeCurrencyId = 0;
    DebitCredit m_account;
    DebitCredit m_grandTotal;
};

}  // namespace quillo
