#pragma once

#include "framework/run_frame.h"
#include "reports/shared/debit_credit.h"

namespace quillo {

class dsrSalesJournalDetailSubreport;

// The ledger postings that sales made in a period: a block for each posted transaction, a line for each account with
// its debit or credit, a grand total, and behind it the same postings distributed by account.
class dsrSalesJournalDetail final : public SegmentReport {
public:
    explicit dsrSalesJournalDetail(HostContext& context);

    int ExInvoiId = 0;  // not 0: the postings of that document alone
    // True leaves totals and distribution out. The sense against the name is meant: hosts set it to ask for a journal
    // that ends with its last transaction.
    bool SubReportVisible = false;

    std::string filterTables() const override;

private:
    void ActiveReport_ReportStart() override;
    void ActiveReport_ReportEnd() override;
    void PageHeader_Format();
    void ghSeqNo_Format();
    void ghForCurr_Format();
    void Detail_Format();
    void gfSeqNo_Format();
    void ReportFooter_Format();
    void placeColumns();
    std::string journalQuery() const;
    std::string distributionQuery() const;
    void enterTransaction(int sequence);
    bool isCreditNote() const;
    std::string documentTag() const;
    std::string foreignAmount(Money amount) const;

    Label& lblAcctCap = label("lblAcctCap");
    Label& lblCurrencyCap = label("lblCurrencyCap");
    Label& lblDebitCap = label("lblDebitCap");
    Label& lblCreditCap = label("lblCreditCap");
    Label& lblProjCap = label("lblProjCap");
    Label& lblSource = label("lblSource");
    Field& fldDetDate = field("fldDetDate");
    Field& fldDetRef = field("fldDetRef");
    Field& fldDetDescr = field("fldDetDescr");
    Field& txtAcctId = field("txtAcctId");
    Field& txtCurrency = field("txtCurrency");
    Field& txtDebit = field("txtDebit");
    Field& txtCredit = field("txtCredit");
    Field& lblProject = field("lblProject");
    DataControl& rsInvoiJournal = data("rsInvoiJournal");
    Section& gfForCurr = section("gfForCurr");
    Label& lbl1USDestEgalA = label("lbl1USDestEgalA");
    Field& txtDebitTotal = field("txtDebitTotal");
    Field& txtCreditTotal = field("txtCreditTotal");
    Field& txtDebitGrandTotal = field("txtDebitGrandTotal");
    Field& txtCreditGrandTotal = field("txtCreditGrandTotal");
    Line& LineSubTotal = line("LineSubTotal");
    Line& LineGrandTotal1 = line("LineGrandTotal1");
    Line& LineGrandTotal2 = line("LineGrandTotal2");
    Line& LineGrandTotal3 = line("LineGrandTotal3");
    SubReport& dsrPurchJournalDetailSubreport = subReport("dsrPurchJournalDetailSubreport");

    std::unique_ptr<Command> m_distributionCommand;
    std::shared_ptr<quillo::dsrSalesJournalDetailSubreport> m_distribution;
    DebitCredit m_subtotal;
    DebitCredit m_grandTotal;
    int m_lngSequence = 0;
    int m_lngHomeCurrencyId = 0;
    int m_lngRowCurrencyId = 0;
    bool m_bForeignRow = false;
    bool m_bProjects = false;
    bool m_bAccountNumbers = true;
};

}  // namespace quillo
