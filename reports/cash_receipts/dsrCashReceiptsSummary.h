#pragma once

#include "framework/run_frame.h"
#include "reports/cash_receipts/payment_methods.h"
#include "reports/cash_receipts/receipt_row.h"

namespace quillo {

class dsrCashReceiptsGLSubReport;
class dsrCashReceiptsPmtSubReport;
struct MethodQuery;

// The cash receipts of a period, a line a transaction, with the total of each payment method at the end: sales paid
// on the spot, customer payments, tax transactions and deposits. With foreign display a part a currency.
class dsrCashReceiptsSummary final : public SegmentReport {
public:
    explicit dsrCashReceiptsSummary(HostContext& context);
    ~dsrCashReceiptsSummary() override;

    bool IsWithPayments = false;  // shows what each payment settled, and the ledger lines of each transaction

    std::string IReport_ReportTitle() override;

private:
    // What a transaction came to.
    struct Receipt {
        Money amount, discount;
        Money rate;
        bool showLedger = false, showPayments = false;
    };

    int titleId() const override { return IsWithPayments ? 7615 : 6326; }
    void ActiveReport_ReportStart() override;
    void ghCurrency_Format();
    void Detail_Format();
    void gfCurrency_Format();
    void ReportFooter_Format();

    std::string segmentList(std::string_view opening) const;
    int rowCurrency() const { return rsCashDisbJournal.Collect("ExCurrencyId").int32OrZero(); }
    std::unique_ptr<HostRecordset> lookUp(const std::string& sql) const;
    void readPayment(Receipt& receipt);
    void fillPayments(Receipt& receipt);
    void readMethods(Receipt& receipt, const MethodQuery& query);
    void fillLedger(const Receipt& receipt);
    std::shared_ptr<Recordset> subQuery(const std::string& sql, const Variant& value);
    void tellRow(ReceiptRow& target, const Receipt& receipt) const;
    void SetDictionary(const std::string& key, const clsPmtMeth& method);
    void SetSubReportsControlsState(bool showLedger, bool showPayments);
    void placeLedger(float top);
    Money ledgerAmount(Money rate) const;
    std::shared_ptr<Report> methodTotals() const;

    Section& ghCurrency = section("ghCurrency");
    Label& lblCurrencyName = label("lblCurrencyName");
    Field& fldDate = field("fldDate");
    Field& txtSource = field("txtSource");
    Field& txtAmount = field("txtAmount");
    Field& txtDisc = field("txtDisc");
    DataControl& rsCashDisbJournal = data("rsCashDisbJournal");
    Label& lblPaymentApplication = label("lblPaymentApplication");
    SubReport& dsrCashReceiptsPmtSR = subReport("dsrCashReceiptsPmtSR");
    Label& lblGLDistribution = label("lblGLDistribution");
    SubReport& dsrCashReceiptsGLSR = subReport("dsrCashReceiptsGLSR");
    Label& lblSequence = label("lblSequence");
    Field& fldSeq = field("fldSeq");
    Label& lblOffSet = label("lblOffSet");
    Label& lblForeignTotalCap = label("lblForeignTotalCap");
    SubReport& dsrForeignCashReceiptsSummarySubReport = subReport("dsrForeignCashReceiptsSummarySubReport");
    Field& txtForeignTransaction = field("txtForeignTransaction");
    Field& txtForeignDiscount = field("txtForeignDiscount");
    Field& txtForeignGrTotal = field("txtForeignGrTotal");
    SubReport& dsrCashReceiptsSummarySubReport = subReport("dsrCashReceiptsSummarySubReport");
    Field& txtTransaction = field("txtTransaction");
    Field& txtDiscount = field("txtDiscount");
    Field& txtGrTotal = field("txtGrTotal");

    std::unique_ptr<Command> m_subQuery;                      // of both sub-reports of a row
    std::shared_ptr<dsrCashReceiptsPmtSubReport> m_payments;  // made once, filled again for each row
    std::shared_ptr<dsrCashReceiptsGLSubReport> m_ledger;
    std::shared_ptr<PaymentMethods> dicPmtMeth = std::make_shared<PaymentMethods>();
    int m_lngCurrentCurrencyId = 0;
    bool m_bAccountNumbers = true;  // asked for once, not for each line
    int m_lngCurrentKey = 0;
    Money m_curGrandTotal;
    Money m_curDiscountTotal;
};

}  // namespace quillo
