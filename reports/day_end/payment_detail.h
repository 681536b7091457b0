#pragma once

#include "framework/run_frame.h"
#include "reports/day_end/till.h"

namespace quillo {

// The receipts behind a payment method or a line of the drawer: what the two reports have in common. They differ in
// whose receipts they list.
class DayEndPaymentDetail : public ReportFrame {
protected:
    // The column of documents and payments that holds a user or a register, and its key.
    struct Taker {
        std::string_view column, key;
        bool all = false;  // without a condition: everybody's
    };
    DayEndPaymentDetail(std::string name, HostContext& context);

    virtual Taker taker() const = 0;

private:
    void ActiveReport_ReportStart() override;
    int findMethod();
    Till::Query query() const;
    // The blocks of the query. sign: a condition such as ">=0".
    void addSignedReceipts(Till::Query& query, const std::string& sign) const;
    void addSignedHeaderReceipts(Till::Query& query, const std::string& sign) const;
    void addReceipts(Till::Query& query) const;
    void addPayments(Till::Query& query) const;
    void addHeaderReceipts(Till::Query& query) const;
    std::string receiptColumns() const;
    void open(Till::Query& query, const char* table) const;
    void narrow(Till::Query& query, const char* condition, int key) const;
    std::string of(const char* table) const;
    std::string rounded(const char* expression) const;

    std::string PmtMeth;   // the method's name; empty: all methods
    std::string AmountIs;  // "Pos" or "Neg": what went into the drawer, what was given back; empty: all receipts
    bool CashPmt = false;  // the method that is cash alone
    int CurrencyID = 0;    // 0: all currencies

    Field& txtTotRecAmnt = field("txtTotRecAmnt");
    DataControl& rsDayEndBal = data("rsDayEndBal");

    Till::Parameters CashParams;
    int m_lngMethodId = 0;  // 0: all methods
};

}  // namespace quillo
