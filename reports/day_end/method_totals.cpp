#include "reports/day_end/method_totals.h"

#include "framework/drill_tags.h"

namespace quillo {

DayEndMethodTotals::DayEndMethodTotals(std::string name, HostContext& context, std::string_view keyColumn)
    : SubReportFrame(std::move(name), context), keyColumn_(keyColumn) {
    onFormat("ghCurrency", &DayEndMethodTotals::ghCurrency_Format);
    onFormat("ghRecMeth", &DayEndMethodTotals::ghRecMeth_Format);
    onFormat("gfRecMeth", &DayEndMethodTotals::gfRecMeth_Format);
}

void DayEndMethodTotals::ActiveReport_ReportStart() {
    STEP(Translate());
    STEP(m_bForeignUsed = currencies().CieIsForeignCurrencyUsed());
    txtGrTotal.DataField = txtCurrTotal.DataField = m_bForeignUsed ? "RecAmntReCalcul" : "RecAmnt";
}

void DayEndMethodTotals::ghCurrency_Format() {
    ghCurrency.Visible = gfCurrency.Visible = m_bForeignUsed;
    if (!m_bForeignUsed || rsDayEndBal.atEnd()) return;
    STEP(lblForAmnt.Visible = rsDayEndBal.Collect("ExCurrencyId").int32OrZero() != currencies().CieHomeCurrencyId());
    STEP(txtCurrencyDescr.Text =
             rsDayEndBal.Collect("CurrencyCode").textOrEmpty() + " - " + rsDayEndBal.Collect("Descr").textOrEmpty());
}

void DayEndMethodTotals::ghRecMeth_Format() {
    if (rsDayEndBal.atEnd()) return;
    STEP(txtRecAmnt.Visible =
             m_bForeignUsed && rsDayEndBal.Collect("ExCurrencyId").int32OrZero() != currencies().CieHomeCurrencyId());
    std::string tag;
    STEP(tag = "Payment|" + rsDayEndBal.Collect("RecMeth").textOrEmpty() + "|" +
               rsDayEndBal.Collect(keyColumn_).textOrEmpty() + "|" + rsDayEndBal.Collect("ExCurrencyId").textOrEmpty() +
               "| ");
    link(tag, {&txtRecMeth, &txtRecAmnt, &txtRecAmntRecalc});
}

// Where the company uses one currency, the amounts stand in the column of what they are worth, and nothing beside them.
void DayEndMethodTotals::gfRecMeth_Format() {
    Money amount;
    STEP(amount = locale().readMoney(txtRecAmnt.Text.empty() ? "0" : txtRecAmnt.Text));
    if (amount.isZero()) {
        txtRecAmnt.Visible = false;
        return;
    }
    txtRecAmntRecalc.Visible = m_bForeignUsed;
    if (m_bForeignUsed) {
        place(5490, 100, 460);
        STEP(txtRecAmnt.Text = context().utils().NumberText(Variant(amount)));
    } else {
        txtRecAmnt.Visible = true;
        place(7830, 0, 360);
        txtRecAmnt.Text = locale().currency(amount);
    }
}

void DayEndMethodTotals::place(float amount, float box, float method) {
    txtRecAmnt.Left = amount;
    shpCase.Left = box;
    txtRecMeth.Left = method;
}

}  // namespace quillo
