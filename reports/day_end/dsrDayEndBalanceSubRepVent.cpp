#include "reports/day_end/dsrDayEndBalanceSubRepVent.h"

#include "framework/drill_tags.h"

namespace quillo {

dsrDayEndBalanceSubRepVent::dsrDayEndBalanceSubRepVent(HostContext& context)
    : SubReportFrame("dsrDayEndBalanceSubRepVent", context),
      m_sngHomeLeft(txtToDayAmnt.Left),
      m_sngForeignLeft(txtToDayAmntFor.Left) {
    onFormat("ghCurrency", &dsrDayEndBalanceSubRepVent::ghCurrency_Format);
    onFormat("ghTrxSerNo", &dsrDayEndBalanceSubRepVent::ghTrxSerNo_Format);
    onFormat("Detail", &dsrDayEndBalanceSubRepVent::Detail_Format);
    onFormat("gfTrxSerNo", &dsrDayEndBalanceSubRepVent::gfTrxSerNo_Format);
}

void dsrDayEndBalanceSubRepVent::ActiveReport_ReportStart() {
    STEP(Translate());
    STEP(m_bForeignUsed = currencies().CieIsForeignCurrencyUsed());
    STEP(m_lngHomeCurrencyId = currencies().CieHomeCurrencyId());
    m_CurrencyId = m_lngHomeCurrencyId;
    // A user has one drawer, at whatever registers.
    section("ghTrxSerNo").DataField = UserKey.empty() ? "TrxSerNo" : "";
}

void dsrDayEndBalanceSubRepVent::ghCurrency_Format() {
    section("ghCurrency").Visible = m_bForeignUsed;
    if (rsDayEndBal.atEnd()) return;
    STEP(txtCurrencyDescr.Text =
             rsDayEndBal.Collect("CurrencyCode").textOrEmpty() + " - " + rsDayEndBal.Collect("Descr").textOrEmpty());
    if (m_bForeignUsed) STEP(m_CurrencyId = rsDayEndBal.Collect("ExCurrencyId").int32OrZero());
    lblForAmnt.Visible = m_CurrencyId != m_lngHomeCurrencyId;
}

std::string dsrDayEndBalanceSubRepVent::methodName() const {
    const int cash = CashParams->CashPmtMethId();
    if (cash == 0) return {};
    const auto method =
        context().company().Database().OpenRecordset("SELECT PmtMeth FROM PmtMeth WHERE InPmtMethId=?", 4, 0, cash);
    return method->atEnd() ? "" : method->Value("PmtMeth", ValueType::text).textOrEmpty();
}

std::string dsrDayEndBalanceSubRepVent::receiptTag(const std::string& method, std::string_view sign) const {
    const std::string key = rsDayEndBal.Collect(UserKey.empty() ? "TrxSerNo" : "ExUsrKey").textOrEmpty();
    return "Payment|" + method + "|" + key + "|" + std::to_string(rsDayEndBal.Collect("ExCurrencyId").int32OrZero()) +
           "|" + std::string(sign) + "|";
}

void dsrDayEndBalanceSubRepVent::ghTrxSerNo_Format() {
    m_AmntNeg = m_RecAmnt = m_Receipt = {};
    m_ReceiptIds.clear();
    std::string method;
    STEP(method = methodName());
    if (rsDayEndBal.atEnd()) return;
    STEP(link(receiptTag(method, "Pos"), {&txtRecAmnt, &Label1}));
    STEP(link(receiptTag(method, "Neg"), {&txtAmntNeg, &lblAmntNeg}));
}

// What is below zero is change given back, whatever the row is.
void dsrDayEndBalanceSubRepVent::Detail_Format() {
    if (rsDayEndBal.atEnd()) return;
    if (m_bForeignUsed) STEP(m_CurrencyId = rsDayEndBal.Collect("ExCurrencyId").int32OrZero());
    const Variant amount = rsDayEndBal.Collect("RecAmnt");
    if (amount.isNull()) return;
    Money home, foreign;
    STEP(home = amount.toMoney());
    STEP(foreign = rsDayEndBal.Collect("RecAmntFor").moneyOrZero());
    const bool cashier = rsDayEndBal.Collect("RecType").textOrEmpty() == "Cashier";
    Both& sum = home < Money() ? m_AmntNeg : cashier ? m_RecAmnt : m_Receipt;
    STEP(sum.add(home, foreign));
    if (home < Money() || cashier) return;
    STEP(m_ReceiptIds += "," + rsDayEndBal.Collect("paimentID").textOrEmpty());
}

dsrDayEndBalanceSubRepVent::Both dsrDayEndBalanceSubRepVent::GetDeposit() {
    const std::string rate = context().utils().NullExpression("InvoiCashDeposit.ExchangeRate", "1", false);
    const std::string currency = m_bForeignUsed ? " AND ExCurrencyId=" + std::to_string(m_CurrencyId) : "";
    Till::Query query;
    if (!UserKey.empty()) {
        query.add("SELECT Sum(Round(InvoiCashDeposit.ICDAmnt * " + rate +
                      ", 2)) AS TotDepAmnt, Sum(InvoiCashDeposit.ICDAmnt) As TotDepAmntFor FROM InvoiCashDeposit WHERE "
                      " InvoiCashDeposit.ICDOperatorKey = ? AND InvoiCashDeposit.ICDDate BETWEEN ? AND ?" +
                      currency,
                  {UserKey, DateFrom, DateTo});
    } else {
        query.add("SELECT Sum(Round(InvoiCashDeposit.ICDAmnt * " + rate +
                      ", 2)) as TotDepAmnt, Sum(InvoiCashDeposit.ICDAmnt) As TotDepAmntFor FROM InvoiCashDeposit "
                      "WHERE InvoiCashDeposit.ICDDate BETWEEN ? AND ? " +
                      currency,
                  {DateFrom, DateTo});
        if (!TrxSerNo.empty()) query.add(" AND InvoiCashDeposit.ICDCashReg = ?", {TrxSerNo});
    }
    const auto sums = execute(m_depositCommand, query.text, query.values);
    if (sums->atEnd()) return {};
    return {sums->Collect("TotDepAmnt").moneyOrZero(), sums->Collect("TotDepAmntFor").moneyOrZero()};
}

// The day's rate of the company makes the home amount of a foreign float.
dsrDayEndBalanceSubRepVent::Both dsrDayEndBalanceSubRepVent::opening(bool foreign) const {
    const Money amount = CashParams->OpeningAmount(m_CurrencyId);
    if (!foreign || amount.isZero()) return {amount, amount};
    return {roundProduct(amount, context().company().dailyRates().Rate(m_CurrencyId, DateTo), 2), amount};
}

void dsrDayEndBalanceSubRepVent::show(Field& home, Field& foreign, const Both& amount) {
    home.Text = locale().currency(amount.home);
    foreign.Text = locale().currency(amount.foreign);
}

// Without foreign amounts the home ones take their column.
void dsrDayEndBalanceSubRepVent::showColumns(bool foreign) {
    for (Field* field : {&txtToDayAmntFor, &txtRecAmntFor, &txtPaiementReceiptFor, &txtAmntNegFor, &txtDepositFor})
        field->Visible = foreign;
    lblForAmnt.Visible = foreign;
    for (Field* field : {&txtToDayAmnt, &txtRecAmnt, &txtPaiementReceipt, &txtAmntNeg, &txtDeposit, &txtBalance})
        field->Left = foreign ? m_sngHomeLeft : m_sngForeignLeft;
}

// Once for the report: the part of the payment receipts is gone, and what stands below it moves up.
void dsrDayEndBalanceSubRepVent::closeUp() {
    lblPaiementReceipt.Visible = Label14.Visible = txtPaiementReceipt.Visible = txtPaiementReceiptFor.Visible = false;
    if (m_bClosedUp) return;
    m_bClosedUp = true;
    for (Control* control : std::initializer_list<Control*>{&lblAmntNeg, &txtAmntNeg, &txtAmntNegFor, &lblDeposit,
                                                            &txtDeposit, &txtDepositFor, &Label3, &Label12})
        control->Top -= 300;
}

Money dsrDayEndBalanceSubRepVent::read(const Field& field) const {
    return field.Text.empty() ? Money() : locale().readMoney(field.Text);
}

// The balance is made of what is printed: meant, so that who counts the drawer can add it up.
void dsrDayEndBalanceSubRepVent::gfTrxSerNo_Format() {
    const bool foreign = m_bForeignUsed && m_CurrencyId != m_lngHomeCurrencyId;
    showColumns(foreign);
    Both morning, deposit;
    STEP(morning = opening(foreign));
    show(txtToDayAmnt, txtToDayAmntFor, morning);
    show(txtRecAmnt, txtRecAmntFor, m_RecAmnt);
    show(txtPaiementReceipt, txtPaiementReceiptFor, m_Receipt);
    show(txtAmntNeg, txtAmntNegFor, {-m_AmntNeg.home, -m_AmntNeg.foreign});
    STEP(deposit = GetDeposit());
    show(txtDeposit, txtDepositFor, deposit);
    if (!IncludePaiementReceipt) closeUp();
    STEP(txtBalance.Text = locale().currency(read(txtToDayAmnt) + read(txtRecAmnt) + read(txtPaiementReceipt) -
                                             read(txtAmntNeg) - read(txtDeposit)));
    const std::string receipts = m_ReceiptIds.empty() ? "" : "ReceiptPayment|" + m_ReceiptIds.substr(1);
    link(receipts, {&lblPaiementReceipt, &txtPaiementReceipt});
    const std::string& key = UserKey.empty() ? TrxSerNo : UserKey;
    link(key.empty() ? "" : "Deposit| |" + key + "|", {&txtDeposit, &lblDeposit});
}

}  // namespace quillo
