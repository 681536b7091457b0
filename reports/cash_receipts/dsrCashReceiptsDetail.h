#pragma once

#include "framework/run_frame.h"
#include "reports/shared/debit_credit.h"

namespace quillo {

class dsrCashReceiptsDetailSubreport;

// The ledger postings of the cash receipts journal in a period, a block a transaction, with the distribution by
// account at the end.
class dsrCashReceiptsDetail final : public SegmentReport {
public:
    explicit dsrCashReceiptsDetail(HostContext& context);

    int SeqNo = 0;                  // not 0: only that sequence
    bool SubReportVisible = false;  // hides the footer with its totals and the distribution

    std::string filterTables() const override;

private:
    void ActiveReport_ReportStart() override;
    void ActiveReport_ReportEnd() override;
    void PageHeader_Format();
    void ghSeqNo_Format();
    void ghForeignCurrency_Format();
    void Detail_Format();
    void gfSeqNo_Format();
    void ReportFooter_Format();
    std::string journalQuery() const;
    std::string distributionQuery() const;
    std::vector<Variant> queryValues() const;
    void enterSequence(int seqNo);
    void placeColumns();
    std::string reference() const;
    std::string foreignText() const;
    std::string accountText() const;

    Label& lblAcctCap = label("lblAcctCap");
    Label& lblCurrencyCap = label("lblCurrencyCap");
    Label& lblDebitCap = label("lblDebitCap");
    Label& lblCreditCap = label("lblCreditCap");
    Label& lblProjCap = label("lblProjCap");
    Field& txtSource = field("txtSource");
    Field& txtDetRef = field("txtDetRef");
    Field& lblAcctIdDescr = field("lblAcctIdDescr");
    Field& txtCurrency = field("txtCurrency");
    Field& txtDebit = field("txtDebit");
    Field& txtCredit = field("txtCredit");
    Field& txtProjId = field("txtProjId");
    DataControl& rsInvoiJournal = data("rsInvoiJournal");
    Section& gfForeignCurrency = section("gfForeignCurrency");
    Label& lblEstEgalA = label("lblEstEgalA");
    Field& txtDebitTotal = field("txtDebitTotal");
    Field& txtCreditTotal = field("txtCreditTotal");
    Field& txtDebitGrandTotal = field("txtDebitGrandTotal");
    Field& txtCreditGrandTotal = field("txtCreditGrandTotal");
    Line& LineSubTotal = line("LineSubTotal");
    Line& LineGrandTotal1 = line("LineGrandTotal1");
    Line& LineGrandTotal2 = line("LineGrandTotal2");
    Line& LineGrandTotal3 = line("LineGrandTotal3");
    Field& txtEndTotal = field("txtEndTotal");
    SubReport& dsrCashReceiptsDetailSubreport = subReport("dsrCashReceiptsDetailSubreport");

    std::unique_ptr<Command> m_distributionCommand;
    std::shared_ptr<quillo::dsrCashReceiptsDetailSubreport> m_distribution;
    DebitCredit m_subtotal;  // of the current sequence
    DebitCredit m_grandTotal;
    int m_lngCurrentSeqNo = 0;
    int m_lngHomeCurrencyId = 0;
    bool m_bUsesProjects = false;
    bool m_bAccountNumbers = true;  // asked for once, not for each line
    bool m_bRowIsForeign = false;
    int m_lngRowCurrencyId = 0;  // the home currency when the row is not foreign
    Money m_curRowRate;
};

}  // namespace quillo
