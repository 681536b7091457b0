#include "demo/receivables.h"

#include <algorithm>

namespace quillo::demo {

Receivables::Receivables(Trade& trade)
    : trade_(trade),
      random_(trade.random),
      payments_(trade.database, "PmtHdr"),
      lines_(trade.database, "PmtDet"),
      homeAdjustments_(trade.database, "CustHomeAdjustment") {}

void Receivables::add(const OpenDocument& document) {
    open_.emplace(document.key, document);
    byCustomer_[document.customer->id].push_back(document.key);
    plan(document, firstIntention(document));
}

Day Receivables::firstIntention(const OpenDocument& document) {
    const Customer& customer = *document.customer;
    if (document.open < Cents{}) return document.date + static_cast<int>(random_.between(5, 40));
    const Term& term = *document.term;
    if (customer.takesDiscounts && term.discount && term.discount->n > 0)
        return document.date + *term.discountDays - static_cast<int>(random_.below(3));
    // The first instalment, or the due date.
    Day due = document.due;
    for (const auto& part : term.instalments)
        due = std::min(due, part.date ? std::max(*part.date, document.date) : document.date + part.days);
    const Day meant = due + customer.delay + static_cast<int>(random_.below(6));
    return std::max(meant, document.date + 1);
}

void Receivables::plan(const OpenDocument& document, Day day) {
    if (day <= lastDay) plans_[day].push_back(document.key);
}

void Receivables::close(Id key) {
    const auto found = open_.find(key);
    if (found == open_.end() || found->second.open != Cents{}) return;
    auto& keys = byCustomer_[found->second.customer->id];
    std::erase(keys, key);
    open_.erase(found);
}

void Receivables::payDay(Day day) {
    const auto found = plans_.find(day);
    if (found == plans_.end()) return;
    for (const Id key : found->second) {
        const auto document = open_.find(key);
        if (document == open_.end()) continue;
        if (!day.isWorkday())
            plan(document->second, day + 1);
        else if (document->second.open < Cents{})
            applyCredit(day, document->second);
        else
            pay(day, document->second);
    }
    plans_.erase(day);
}

Cents Receivables::amountAsked(const OpenDocument& document, Day day) const {
    if (document.term->instalments.empty()) return document.open;
    const Cents paid = document.total - document.open;
    return std::clamp(dueUpTo(*document.term, document.date, document.total, day) - paid, Cents{}, document.open);
}

Cents Receivables::discountFor(const OpenDocument& document, Day day) const {
    const Term& term = *document.term;
    const bool inTime = term.discount && term.discountDays && day <= document.date + *term.discountDays;
    return inTime && document.open == document.total ? document.open * *term.discount : Cents{};
}

void Receivables::pay(Day day, OpenDocument& document) {
    const Customer& customer = *document.customer;
    PaymentData payment{.date = day, .customer = &customer};
    Cents asked = amountAsked(document, day);
    if (asked <= Cents{}) return plan(document, day + 15);
    if (random_.chance(55)) return plan(document, day + static_cast<int>(random_.between(60, 300)));  // in dispute
    if (random_.chance(90) && asked > Cents{20000}) asked = {asked.n * random_.between(30, 70) / 10000 * 100};
    const Cents discount = asked == document.open ? discountFor(document, day) : Cents{};
    payment.settled.push_back({&document, asked - discount, discount});
    Cents sum = asked - discount;
    for (const Id key : byCustomer_[customer.id]) {
        OpenDocument& other = open_.at(key);
        if (key == document.key || payment.settled.size() > 12) continue;
        const bool credit = other.open < Cents{} && sum + other.open > Cents{} && random_.chance(600);
        const bool dueSoon =
            other.open > Cents{} && other.term->instalments.empty() && other.due <= day + 5 && random_.chance(700);
        if (!credit && !dueSoon) continue;
        const Cents taken = credit ? Cents{} : discountFor(other, day);
        payment.settled.push_back({&other, other.open - taken, taken});
        sum += other.open - taken;
    }
    payment.method = customer.currency != cad ? wire
                     : random_.chance(480)    ? cheque
                     : random_.chance(800)    ? wire
                                              : preauthorized;
    payment.number = paymentNumber(payment.method);
    if (random_.chance(150)) payment.user = random_.chance(500) ? "Chantal" : "Nadia";
    if (!payment.user.empty() && random_.chance(400)) payment.cashRegister = "MTL-01";
    record(payment, false);
}

void Receivables::applyCredit(Day day, OpenDocument& credit) {
    PaymentData payment{.date = day, .customer = credit.customer};
    Cents left = -credit.open;
    for (const Id key : byCustomer_[credit.customer->id]) {
        OpenDocument& other = open_.at(key);
        if (other.open <= Cents{} || left <= Cents{}) continue;
        const Cents taken = std::min(left, other.open);
        payment.settled.push_back({&other, taken, {}});
        left -= taken;
    }
    if (payment.settled.empty()) return plan(credit, day + static_cast<int>(random_.between(20, 50)));
    payment.settled.push_back({&credit, credit.open + left, {}});
    payment.number = credit.number;
    record(payment, true);
}

void Receivables::payAtCounter(Day day, const std::string& user, const std::string& cashRegister) {
    const auto start = open_.lower_bound(random_.between(1000, trade_.lastDocument));
    for (auto document = start; document != open_.end(); ++document) {
        OpenDocument& chosen = document->second;
        if (chosen.customer->currency != cad || chosen.open <= Cents{} || chosen.open > Cents{250000}) continue;
        PaymentData payment{.date = day, .customer = chosen.customer, .settled = {{&chosen, chosen.open, {}}}};
        payment.method = random_.chance(400) ? cash : random_.chance(500) ? debitCard : cheque;
        payment.number = paymentNumber(payment.method);
        payment.user = user;
        payment.cashRegister = cashRegister;
        payment.atCounter = true;
        return record(payment, false);
    }
}

std::string Receivables::paymentNumber(Method method) {
    if (method == cheque) return std::to_string(++lastCheque_);
    if (method == wire) return "VIR-" + std::to_string(++lastCheque_);
    return {};
}

void Receivables::record(const PaymentData& payment, bool creditApplication) {
    const Id key = trade_.newDocument();
    const Rate rate = trade_.rate(payment.customer->currency);
    Cents total, discounts;
    for (const auto& line : payment.settled) {
        total += line.paid;
        discounts += line.discount;
        lines_.add(++lastLine_, key, line.document->key, line.paid, line.discount, payment.atCounter,
                   orNull(std::string_view(payment.user)), orNull(std::string_view(payment.cashRegister)));
    }
    const Id method = creditApplication || random_.chance(6) ? 0 : Id{payment.method};
    payments_.add(key, payment.date, orNull(std::string_view(payment.number)), payment.customer->id, orNull(method),
                  Id{payment.customer->currency}, rate, total, discounts,
                  creditApplication ? std::optional(payment.settled.back().document->key) : std::nullopt,
                  orNull(Id{payment.settled.front().document->segment}));
    post(payment, key, total, rate);
    std::vector<Id> keys;
    for (const auto& line : payment.settled) keys.push_back(line.document->key);
    for (const Id settled : keys) {
        const OpenDocument& document = open_.at(settled);
        if (document.open != Cents{}) plan(document, payment.date + static_cast<int>(random_.between(18, 45)));
        close(settled);
    }
}

void Receivables::post(const PaymentData& payment, Id key, Cents total, Rate rate) {
    Ledger& ledger = trade_.ledger;
    const Currency currency = payment.customer->currency;
    const Account receivable = receivableAccount(currency);
    for (const auto& line : payment.settled) {
        const Cents settled = line.paid + line.discount;
        const Cents before = line.document->open * line.document->rate;
        line.document->open -= settled;
        ledger.line(receivable, line.document->open * line.document->rate - before, -settled);
        if (line.discount != Cents{}) ledger.line(salesDiscounts, line.discount * rate, line.discount);
    }
    const Account money = currency == cad ? cashAccount(payment.method) : bankAccount(currency);
    if (total != Cents{}) ledger.line(money, total * rate, total);
    ledger.line(exchangeDifferences, ledger.remainder());
    if (money == undeposited && total != Cents{}) trade_.undepositedReceipts.push_back({key, payment.method, total});
    ledger.post({payment.date, "PMT", key, payment.number, payment.customer->name, currency, rate,
                 payment.settled.front().document->segment});
}

std::map<Id, Cents> Receivables::overdue(Day day) const {
    std::map<Id, Cents> sums;
    for (const auto& [key, document] : open_)
        if (document.customer->currency == cad && document.kind == 1 && day - document.due > 30)
            sums[document.customer->id] += document.open;
    return sums;
}

void Receivables::adjust(Day day) {
    const Cents writtenOff{random_.between(150, 4800)};
    const auto writeOff = [&](Currency currency, Cents amount) {
        const Rate rate = trade_.rate(currency);
        trade_.ledger.adjustmentLine(receivableAccount(currency), -(amount * rate), -amount);
        trade_.ledger.line(writeOffs, amount * rate, amount);
        trade_.ledger.post({day, "GEN", 0, "EJ-" + day.iso(), "Small balances written off", currency, rate,
                            currency == cad ? noSegment : exportSales});
    };
    writeOff(cad, writtenOff);
    if (day.month() == 12) writeOff(usd, {writtenOff.n / 3});
    for (const auto& customer : trade_.customers) {
        if (customer.currency != usd || !random_.chance(60)) continue;
        const Cents amount{random_.between(-9500, 9500)};
        const Id key = trade_.newDocument();
        const std::string number = "AJ-" + std::to_string(++lastAdjustment_);
        homeAdjustments_.add(key, number, day, customer.id, amount, orNull(Id{customer.segment}));
        trade_.ledger.line(receivableUsd, amount);
        trade_.ledger.line(exchangeDifferences, -amount);
        trade_.ledger.post(
            {day, "GEN", key, number, "Exchange correction " + customer.name, usd, trade_.rate(usd), customer.segment});
    }
}

}  // namespace quillo::demo
