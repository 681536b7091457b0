#include "reports/day_end/balance.h"

#include "dialogs/frmAdvFilters.h"
#include "framework/drill_tags.h"
#include "reports/shared/account_texts.h"

namespace quillo {

DayEndBalance::DayEndBalance(std::string name, HostContext& context, const ContractRow& contract,
                             std::string_view keyColumn)
    : FilterableReport(std::move(name), context, contract), keyColumn_(keyColumn) {
    onFormat("ReportHeader", &DayEndBalance::ReportHeader_Format);
    onFormat("ghGLAcct", &DayEndBalance::ghGLAcct_Format);
    onFormat("Detail", &DayEndBalance::Detail_Format);
    onFormat("gfGLAcct", &DayEndBalance::gfGLAcct_Format);
}

void DayEndBalance::ActiveReport_ReportStart() {
    bool numbers = true;
    STEP(numbers = usesAccountNumbers(context()));
    if (!numbers) takePlaceOf(txtGLAcctId, txtDescr);
    STEP(m_bForeignUsed = currencies().CieIsForeignCurrencyUsed());
    if (!askFilter()) return;
    Till::Query lines;
    STEP(lines = salesLines(filterParts()));
    STEP(rsDayEndBal.Recordset = execute(lines.text, lines.values));
    STEP(Translate());
    STEP(setDateCaption());
    STEP(fillFilterInfo());
    m_methods = makeMethodTotals();
    m_drawer = std::make_shared<dsrDayEndBalanceSubRepVent>(context());
    dsrSubreportPmt.Object = m_methods;
    dsrSubreportVentilation.Object = m_drawer;
}

void DayEndBalance::ReportHeader_Format() {
    m_ReportTotal = Money();
}

std::string DayEndBalance::rounded(const char* expression) const {
    return context().utils().RoundExpression(expression, false);
}

void DayEndBalance::addCash(Till::Query& query, const char* condition) {
    const int cash = CashParams(context()).CashPmtMethId();
    if (cash != 0) query.add(condition, {cash});
}

// All that a till's footer prints is asked for here, ahead of the till's first row.
void DayEndBalance::enterTill() {
    m_UserSum = Money();
    txtSumTotAmnt.Text = txtSumTaxAmnt.Text = txtDifference.Text = locale().currency(Money());
    std::string key;
    STEP(key = keyOf(rsDayEndBal.atEnd() ? Variant() : rsDayEndBal.Collect(keyColumn_)));
    fillMethods(key);
    fillDrawer(key);
    fillTotals(key);
    Money received;
    STEP(received = sumOf(m_receiptCommand, receiptsTotal(key), "SumRecAmnt"));
    // What was sold and not collected: a sale on account stands here.
    STEP(txtDifference.Text =
             locale().currency(locale().readMoney(txtSumTotAmnt.Text.empty() ? "0" : txtSumTotAmnt.Text) - received));
    STEP(m_CashTotal = sumOf(m_cashCommand, cashSales(key), "TotCashAmnt"));
}

void DayEndBalance::fillMethods(const std::string& key) {
    m_methods->rsDayEndBal.Recordset.reset();
    Till::Query rows;
    STEP(rows = receiptsByMethod(key));
    STEP(m_methods->rsDayEndBal.Recordset = execute(m_methodCommand, rows.text, rows.values));
    STEP(m_methods->clsApplicationInitialise(application()));
}

void DayEndBalance::fillDrawer(const std::string& key) {
    m_drawer->rsDayEndBal.Recordset.reset();
    Till::Query rows;
    STEP(rows = drawerRows(key));
    STEP(m_drawer->rsDayEndBal.Recordset = execute(m_drawerCommand, rows.text, rows.values));
    STEP(m_drawer->clsApplicationInitialise(application()));
    STEP(m_drawer->CashParams = &CashParams(context()));
    m_drawer->DateFrom = m_dtDateFrom;
    m_drawer->DateTo = m_dtDateTo;
    m_drawer->IncludePaiementReceipt = m_bIncludeReceipts;
    STEP(tellDrawer(*m_drawer, key));
}

void DayEndBalance::fillTotals(const std::string& key) {
    Till::Query query;
    STEP(query = salesTotals(key));
    std::shared_ptr<Recordset> totals;
    STEP(totals = execute(m_totalCommand, query.text, query.values));
    if (!totals || totals->atEnd()) return;
    STEP(txtSumTaxAmnt.Text = locale().currency(totals->Collect("TotTaxAmnt").moneyOrZero()));
    STEP(txtSumTotAmnt.Text = locale().currency(totals->Collect("TotalAmnt").moneyOrZero()));
    STEP(m_ReportTotal += totals->Collect("TotalAmnt").moneyOrZero());
}

Money DayEndBalance::sumOf(std::unique_ptr<Command>& command, const Till::Query& query, std::string_view column) {
    Money sum;
    const auto rows = execute(command, query.text, query.values);
    for (; !rows->atEnd(); rows->moveNext()) sum += rows->Collect(column).moneyOrZero();
    return sum;
}

void DayEndBalance::printSales() {
    txtSum.Text = locale().currency(m_UserSum);
}

void DayEndBalance::ghGLAcct_Format() {
    m_AcctSum = Money();
    if (rsDayEndBal.atEnd()) return;
    std::string tag;
    STEP(tag = "Invoice|" + rsDayEndBal.Collect("ExSaleAcctId").textOrEmpty() + "|" +
               rsDayEndBal.Collect(keyColumn_).textOrEmpty());
    link(tag, {&txtPrice, &txtGLAcctId, &txtDescr});
}

void DayEndBalance::Detail_Format() {
    if (rsDayEndBal.atEnd()) return;
    bool discounted = false;
    STEP(discounted = rsDayEndBal.Collect("DiscPercent").doubleOrZero() != 0);
    Money price;
    STEP(price = rsDayEndBal.Collect(discounted ? "Price" : "Price1").moneyOrZero());
    STEP(m_AcctSum += price);
    STEP(m_UserSum += price);
}

void DayEndBalance::gfGLAcct_Format() {
    txtPrice.Text = locale().currency(m_AcctSum);
}

void DayEndBalance::IReportConfig_ShowConfigurationScreen(DialogService& dialogs) {
    frmAdvFilters form(context());
    form.Properties(Option::includePaymentReceipt, m_bIncludeReceipts);
    STEP(form.PrepareInvConfigDialog(application(), Option::includePaymentReceipt, 7222));
    STEP(dialogs.ShowModal(form));
    m_bIncludeReceipts = form.Properties(Option::includePaymentReceipt);
}

}  // namespace quillo
