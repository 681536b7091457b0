#pragma once

#include "framework/run_frame.h"

namespace quillo {

// The values of ReportType.
namespace ExpectedPayments {
inline constexpr int detail = 1, summary = 2;
}

// What the payment terms of open documents ask for in a period, against what was received in it, and what is still to
// come: a line a document, or a line a customer. Documents of which nothing was expected and nothing received are left
// out. The amounts are no columns: they are computed for each row of the query as it comes.
class dsrExpectAndExceedPmtByCust final : public SegmentReport, public IReportConfig {
public:
    explicit dsrExpectAndExceedPmtByCust(HostContext& context);

    int CustId = 0;  // one customer alone, by key; 0: all
    // Detail or summary; a form that is neither throws InputError.
    void ReportType(int type);

    void IReportConfig_ShowConfigurationScreen(DialogService& dialogs) override;

private:
    // What the term asks for in the period, what was paid in it, and what is left of that.
    struct Amounts {
        Money expected, received, overdue;
        bool isZero() const { return expected.isZero() && received.isZero() && overdue.isZero(); }
    };

    bool isDetail() const { return m_lngReportType == ExpectedPayments::detail; }
    int titleId() const override { return isDetail() ? 6054 : 6189; }
    void ActiveReport_ReportStart() override;
    void ActiveReport_DataInitialize() override;
    void ActiveReport_FetchData(bool& eof);
    void ghCustomer_Format();
    void Detail_Format();
    void ReportFooter_Format();

    std::string query() const;
    std::string order() const;
    bool readRow();
    Amounts amountsOfRow();
    Money expectedOfRow() const;
    Money expectedByInstalments(bool byDays) const;
    Money expectedAtOnce() const;
    int documentOfRow() const { return rsEEPmtByCust.Collect("InvoiHdrInInvoiId").toInt32(); }
    double rateOfRow() const;
    std::string customerOfRow() const;
    Date dayBeforeStart() const;

    Section& ghCustomer = section("ghCustomer");
    Section& gfCustomer = section("gfCustomer");
    Section& Detail = section("Detail");
    Label& lblInvoice = label("lblInvoice");
    Field& fldCustName = field("fldCustName");
    Field& fldOverdue = field("fldOverdue");
    DataControl& rsEEPmtByCust = data("rsEEPmtByCust");
    Line& LineCustTotal = line("LineCustTotal");
    Field& fldSumCustName = field("fldSumCustName");
    Field& fldSumCustExpected = field("fldSumCustExpected");
    Field& fldSumCustReceived = field("fldSumCustReceived");
    Field& fldSumCustOverdue = field("fldSumCustOverdue");

    PaymentSchedule& m_schedule;
    int m_lngReportType = ExpectedPayments::detail;
    int m_lngHomeCurrencyId = 0;
    bool m_bCustomerCodes = true;
    bool m_bShowZeroTransactions = false;
    Money m_curOverdue;  // of the row
};

}  // namespace quillo
