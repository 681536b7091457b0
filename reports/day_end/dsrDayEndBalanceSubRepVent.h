#pragma once

#include "framework/hosted_report.h"
#include "reports/day_end/till.h"

namespace quillo {

// The drawer of one user or one cash register: what it held in the morning, what came in, what was given back and taken
// out, and what should be in it. The balance gives the rows and says whose drawer it is.
class dsrDayEndBalanceSubRepVent final : public SubReportFrame {
public:
    explicit dsrDayEndBalanceSubRepVent(HostContext& context);

    CashierParameters* CashParams = nullptr;  // the parent's
    Date DateFrom, DateTo;
    std::string TrxSerNo;  // the register; empty: all of them
    std::string UserKey;   // the user; empty: the drawer is a register's
    bool IncludePaiementReceipt = false;
    DataControl& rsDayEndBal = data("rsDayEndBal");

private:
    // An amount in home currency and in the currency of the drawer's part.
    struct Both {
        Money home, foreign;
        void add(Money homeAmount, Money foreignAmount) {
            home += homeAmount;
            foreign += foreignAmount;
        }
    };
    void ActiveReport_ReportStart() override;
    void ghCurrency_Format();
    void ghTrxSerNo_Format();
    void Detail_Format();
    void gfTrxSerNo_Format();
    void closeUp();
    void showColumns(bool foreign);
    void show(Field& home, Field& foreign, const Both& amount);
    Both opening(bool foreign) const;
    Both GetDeposit();
    std::string methodName() const;
    std::string receiptTag(const std::string& method, std::string_view sign) const;
    Money read(const Field& field) const;

    Field& txtCurrencyDescr = field("txtCurrencyDescr");
    Label& lblForAmnt = label("lblForAmnt");
    Field& txtToDayAmntFor = field("txtToDayAmntFor");
    Field& txtToDayAmnt = field("txtToDayAmnt");
    Label& Label1 = label("Label1");
    Field& txtRecAmntFor = field("txtRecAmntFor");
    Field& txtRecAmnt = field("txtRecAmnt");
    Label& Label14 = label("Label14");
    Label& lblPaiementReceipt = label("lblPaiementReceipt");
    Field& txtPaiementReceiptFor = field("txtPaiementReceiptFor");
    Field& txtPaiementReceipt = field("txtPaiementReceipt");
    Label& Label3 = label("Label3");
    Label& lblAmntNeg = label("lblAmntNeg");
    Field& txtAmntNegFor = field("txtAmntNegFor");
    Field& txtAmntNeg = field("txtAmntNeg");
    Label& Label12 = label("Label12");
    Label& lblDeposit = label("lblDeposit");
    Field& txtDepositFor = field("txtDepositFor");
    Field& txtDeposit = field("txtDeposit");
    Field& txtBalance = field("txtBalance");

    std::unique_ptr<Command> m_depositCommand;
    Both m_AmntNeg, m_RecAmnt, m_Receipt;
    std::string m_ReceiptIds;  // each with a "," in front
    int m_CurrencyId = 0;
    int m_lngHomeCurrencyId = 0;
    bool m_bForeignUsed = false;
    bool m_bClosedUp = false;
    float m_sngHomeLeft = 0, m_sngForeignLeft = 0;  // of the two columns, by the design
};

}  // namespace quillo
