#pragma once

#include "framework/hosted_report.h"

namespace quillo {

// The receipts of one user or one cash register by payment method: what the two sub-reports have in common. The balance
// gives the rows; the two differ in the column that holds whose receipts they are.
class DayEndMethodTotals : public SubReportFrame {
public:
    DataControl& rsDayEndBal = data("rsDayEndBal");

protected:
    DayEndMethodTotals(std::string name, HostContext& context, std::string_view keyColumn);

private:
    void ActiveReport_ReportStart() override;
    void ghCurrency_Format();
    void ghRecMeth_Format();
    void gfRecMeth_Format();
    void place(float amount, float box, float method);

    Section& ghCurrency = section("ghCurrency");
    Section& gfCurrency = section("gfCurrency");
    Field& txtCurrencyDescr = field("txtCurrencyDescr");
    Label& lblForAmnt = label("lblForAmnt");
    Shape& shpCase = shape("shpCase");
    Field& txtRecMeth = field("txtRecMeth");
    Field& txtRecAmnt = field("txtRecAmnt");
    Field& txtRecAmntRecalc = field("txtRecAmntRecalc");
    Field& txtCurrTotal = field("txtCurrTotal");
    Field& txtGrTotal = field("txtGrTotal");

    std::string_view keyColumn_;
    bool m_bForeignUsed = false;
};

// Of one user.
class dsrDayEndBalanceByUsrSubRep final : public DayEndMethodTotals {
public:
    explicit dsrDayEndBalanceByUsrSubRep(HostContext& context)
        : DayEndMethodTotals("dsrDayEndBalanceByUsrSubRep", context, "ExUsrKey") {}
};

// Of one cash register.
class dsrDayEndBalanceByCashSubRep final : public DayEndMethodTotals {
public:
    explicit dsrDayEndBalanceByCashSubRep(HostContext& context)
        : DayEndMethodTotals("dsrDayEndBalanceByCashSubRep", context, "TrxSerNo") {}
};

}  // namespace quillo
