#include "demo/treasury.h"

namespace quillo::demo {

Treasury::Treasury(Trade& trade, Purchasing& purchasing)
    : trade_(trade),
      random_(trade.random),
      purchasing_(purchasing),
      deposits_(trade.database, "DepHdr"),
      depositLines_(trade.database, "DepDet"),
      taxes_(trade.database, "TaxTrxHdr"),
      taxLines_(trade.database, "TaxTrxDet"),
      slips_(trade.database, "TrxPay") {}

// The drawer's receipts go to the bank; at a month's end the rent of the upper floor goes with them.
void Treasury::deposit(Day day) {
    const Id key = trade_.newDocument();
    const std::string number = "DEP-" + std::to_string(1000 + ++lastDeposit_);
    deposits_.add(key, number, day, Id{cad}, Rate{});
    Cents moved;
    for (const auto& receipt : trade_.undepositedReceipts) {
        moved += receipt.amount;
        depositLines_.add(++lastDepositLine_, key, Id{receipt.method}, receipt.amount, receipt.key);
    }
    trade_.undepositedReceipts.clear();
    const Cents rented = day.dayOfMonth() > 24 ? Cents{185000} : Cents{};
    if (rented != Cents{}) depositLines_.add(++lastDepositLine_, key, Id{cheque}, rented, nullptr);
    trade_.ledger.line(bankCad, moved + rented);
    trade_.ledger.line(undeposited, -moved);
    trade_.ledger.line(otherIncome, -rented);
    trade_.ledger.post({day, "DEP", key, number, trade_.words.say({"Bank deposit", "Dépôt bancaire"})});
    if (day.month() % 3 == 0 && rented != Cents{}) depositForeign(day);
}

void Treasury::depositForeign(Day day) {
    const Id key = trade_.newDocument();
    const std::string number = "DEP-" + std::to_string(1000 + ++lastDeposit_);
    const Cents rebate{random_.between(30, 180) * 1000};
    deposits_.add(key, number, day, Id{usd}, trade_.usdRate);
    depositLines_.add(++lastDepositLine_, key, Id{wire}, rebate, nullptr);
    trade_.ledger.line(bankUsd, rebate * trade_.usdRate, rebate);
    trade_.ledger.line(otherIncome, -(rebate * trade_.usdRate), -rebate);
    trade_.ledger.post({day, "DEP", key, number,
                        trade_.words.say({"Volume rebate from a supplier", "Ristourne d'un fournisseur"}), usd,
                        trade_.usdRate});
}

void Treasury::settleTaxes(Day day) {
    settle(day, "TPS", {"GST/HST return", "Déclaration de TPS/TVH"}, {gstCharged, hstCharged, gstPaid});
    settle(day, "TVQ", {"QST return", "Déclaration de TVQ"}, {qstCharged, qstPaid});
}

void Treasury::settle(Day day, const char* reference, const Words& text, std::initializer_list<Account> taxAccounts) {
    const Id key = trade_.newDocument();
    const std::string number = std::string(reference) + "-" + std::to_string(++lastTax_);
    taxes_.add(key, number, day, Id{wire});
    Cents sum;
    for (const Account account : taxAccounts) {
        const Cents balance = trade_.ledger.balance(account);
        if (balance == Cents{}) continue;
        sum += balance;
        taxLines_.add(++lastTaxLine_, key, Id{account}, balance);
        trade_.ledger.line(account, -balance);
    }
    trade_.ledger.line(bankCad, sum);
    trade_.ledger.post({day, "TAX", key, number, trade_.words.say(text)});
}

std::vector<Id> Treasury::activeProjects(Day day) const {
    std::vector<Id> active;
    Id key = 0;
    for (const auto& project : projects()) {
        ++key;
        if (project.runsOn(day)) active.push_back(key);
    }
    return active;
}

void Treasury::payWages(Day day) {
    const auto active = activeProjects(day);
    Id employee = 0;
    for (const auto& person : employees()) {
        ++employee;
        if (day > person.left) continue;
        const bool onSite = !person.sells || employee % 3 == 0;
        slip(day, employee, onSite && !active.empty() && random_.chance(650) ? random_.pick(active) : 0);
    }
}

void Treasury::slip(Day day, Id employee, Id project) {
    const auto& person = employees()[static_cast<std::size_t>(employee - 1)];
    const Id key = trade_.newDocument();
    const Qty hours{random_.between(68, 76) * 100};
    const Cents gross = hours * Cents{person.hourly};
    const Cents withheld = gross * Percent{26500};
    const Cents employer = gross * Percent{11200};
    const std::string number = "P" + std::to_string(20000 + ++lastSlip_);
    const auto canceled = day.year() == 2023 && day.month() <= 3 ? std::nullopt : std::optional(random_.chance(8));
    slips_.add(key, number, day, orNull(person.onFile ? employee : 0), hours, gross, gross - withheld, canceled);
    // A cancelled slip is reversed under its own key.
    for (const int sign : canceled.value_or(false) ? std::vector{1, -1} : std::vector{1}) {
        const Cents onProject = project == 0 ? Cents{} : Cents{gross.n * random_.between(3, 9) / 1000 * 100};
        trade_.ledger.line(wages, times(gross - onProject, sign));
        trade_.ledger.line(wages, times(onProject, sign), {}, project);
        trade_.ledger.line(employerCosts, times(employer, sign));
        trade_.ledger.line(deductions, times(-(withheld + employer), sign));
        trade_.ledger.line(bankCad, times(-(gross - withheld), sign));
        trade_.ledger.post({day, "PAY", key, number, person.name()});
    }
}

void Treasury::expense(Day day, Account account, Id supplier, Cents amount, Id project) {
    const Cents total = Purchasing::withTaxes(amount);
    const Id key = purchasing_.document(day, 2, supplier, total);
    trade_.ledger.line(account, amount, {}, project);
    purchasing_.taxLines(amount);
    trade_.ledger.line(bankCad, -total);
    trade_.ledger.post(
        {day, "EXP", key, purchasing_.lastNumber(), suppliers()[static_cast<std::size_t>(supplier - 1)]});
}

void Treasury::payCosts(Day day) {
    expense(day, rent, 9, {640000}, 0);
    expense(day, utilities, 10, {random_.between(9, 24) * 10000 + 37}, 0);
    expense(day, advertising, 11, {random_.between(4, 30) * 10000}, 0);
    expense(day, vehicles, 12, {random_.between(15, 40) * 10000 + 85}, 0);
    for (const Id project : activeProjects(day)) payProject(day, project);
    if (const Cents owed = trade_.ledger.balance(deductions); owed != Cents{}) {
        trade_.ledger.line(deductions, -owed);
        trade_.ledger.line(bankCad, owed);
        trade_.ledger.post({day, "CHQ", 0, "DAS-" + day.iso(),
                            trade_.words.say({"Payroll deductions remitted", "Retenues sur salaires remises"})});
    }
}

// Each supplier has its turn: goods on account from the first six, expenses paid at once to the others.
void Treasury::payProject(Day day, Id project) {
    if (random_.chance(500)) expense(day, subcontractors, 8, {random_.between(60, 620) * 1000 + 75}, project);
    if (random_.chance(200)) return;
    const auto supplierCount = static_cast<Id>(suppliers().size());
    const Id supplier = lastProjectSupplier_ = lastProjectSupplier_ % supplierCount + 1;
    const Cents amount{random_.between(20, 260) * 1000 + 50};
    if (supplier <= 6)
        purchasing_.buyForProject(day, supplier, amount, project);
    else
        expense(day, subcontractors, supplier, amount, project);
}

void Treasury::recordWorkInProgress(Day day) {
    for (const Id project : activeProjects(day)) {
        const Cents value{random_.between(8, 90) * 5000};
        trade_.ledger.line(timeBank, value, {}, project);
        trade_.ledger.line(unrecordedService, -value, {}, project);
        trade_.ledger.post(
            {day, "GEN", 0, "TEC-" + day.iso(), trade_.words.say({"Hours not billed yet", "Heures non facturées"})});
    }
}

}  // namespace quillo::demo
