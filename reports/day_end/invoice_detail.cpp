#include "reports/day_end/invoice_detail.h"

#include "reports/shared/account_texts.h"

namespace quillo {

DayEndInvoiceDetail::DayEndInvoiceDetail(std::string name, HostContext& context)
    : ReportFrame(std::move(name), context, {.dateOptions = DateDisplay::range, .titleId = 6025}) {
    property("GLAcctId", GLAcctId);
    onFormat("ghGLAcct", &DayEndInvoiceDetail::ghGLAcct_Format);
    onFormat("Detail", &DayEndInvoiceDetail::Detail_Format);
    onFormat("gfGLAcct", &DayEndInvoiceDetail::gfGLAcct_Format);
}

void DayEndInvoiceDetail::ActiveReport_ReportStart() {
    STEP(Translate());
    STEP(setDateCaption());
    bool numbers = true;
    STEP(numbers = usesAccountNumbers(context()));
    if (!numbers) takePlaceOf(txtGLAcctId, Field2);
    Till::Query lines;
    STEP(lines = query());
    STEP(rsDayEndBal.Recordset = execute(lines.text, lines.values));
}

std::string DayEndInvoiceDetail::codeColumn(std::string_view jetName) const {
    return isJet(context()) ? "SELECT IIF(InvoiHdr.InvoiType = 3, 2, 1) as " + std::string(jetName) + ","
                            : "SELECT (CASE WHEN InvoiHdr.InvoiType = 3 THEN 2 ELSE 1 END) as Code,";
}

void DayEndInvoiceDetail::ghGLAcct_Format() {
    m_curAccountSum = Money();
}

// The query does not round a discounted line, as the balance does: the total may differ from it by a cent a line.
void DayEndInvoiceDetail::Detail_Format() {
    if (rsDayEndBal.atEnd()) return;
    txtUnitPrice.Text.clear();
    STEP(txtUnitPrice.Text = locale().currency(rsDayEndBal.Collect("UnitPrice").toMoney()));
    double percent = 0;
    STEP(percent = rsDayEndBal.Collect("DiscPercent").doubleOrZero());
    txtDisc.Text.clear();
    Money price;
    if (percent != 0) {
        STEP(price = rsDayEndBal.Collect("Price").toMoney());
        STEP(txtDisc.Text = locale().currency(rsDayEndBal.Collect("Price1").toMoney() * (percent / 100)));
    } else {
        STEP(price = rsDayEndBal.Collect("Price1").toMoney());
    }
    txtPriceInv.Text = locale().currency(price);
    STEP(m_curAccountSum += price);
}

void DayEndInvoiceDetail::gfGLAcct_Format() {
    txtPrice.Text = locale().currency(m_curAccountSum);
}

}  // namespace quillo
