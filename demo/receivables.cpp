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
    OpenDocument& kept = open_.at(document.key);
    kept.abandoned = document.kind == 1 && random_.chance(8);
    if (!kept.abandoned) plan(document, firstIntention(document));
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
    if (term.mode == 2 && random_.chance(150)) due = document.date + 10;  // paid ahead of all dates
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
    PaymentData payment{.date = day, .customer = document.customer, .currency = document.currency};
    Cents asked = amountAsked(document, day);
    if (asked <= Cents{} && document.term->mode == 2 && random_.chance(40)) asked = {document.open.n / 300 * 100};
    if (asked <= Cents{}) return plan(document, day + 15);
    if (random_.chance(55)) return plan(document, day + static_cast<int>(random_.between(60, 300)));  // in dispute
    if (random_.chance(90) && asked > Cents{20000}) asked = {asked.n * random_.between(30, 70) / 10000 * 100};
    const Cents discount = asked == document.open ? discountFor(document, day) : Cents{};
    if (asked == document.open && discount == Cents{}) asked += overpayment(asked);
    payment.settled.push_back({&document, asked - discount, discount});
    settleOthers(day, payment);
    payment.method = officeMethod(payment.currency);
    payment.number = paymentNumber(payment.method);
    if (random_.chance(150)) payment.user = random_.chance(500) ? "Chantal" : "Nadia";
    if (!payment.user.empty() && random_.chance(400)) payment.cashRegister = "MTL-01";
    record(payment, false);
}

// Paid twice, or a figure misread: what a customer sends beyond the document, most often nothing.
Cents Receivables::overpayment(Cents asked) {
    if (!random_.chance(10)) return {};
    return random_.chance(300) ? asked : Cents{random_.between(1, 9) * 1000};
}

// Takes along what else the customer owes by then, and credit notes while money remains to be paid.
void Receivables::settleOthers(Day day, PaymentData& payment) {
    const Id first = payment.settled.front().document->key;
    Cents sum = payment.settled.front().paid;
    for (const Id key : byCustomer_[payment.customer->id]) {
        OpenDocument& other = open_.at(key);
        if (key == first || payment.settled.size() > 12) continue;
        if (other.currency != payment.currency || other.abandoned) continue;
        const bool credit = other.kind == 3 && sum + other.open > Cents{} && random_.chance(600);
        const bool dueSoon =
            other.open > Cents{} && other.term->instalments.empty() && other.due <= day + 5 && random_.chance(700);
        if (!credit && !dueSoon) continue;
        const Cents taken = credit ? Cents{} : discountFor(other, day);
        payment.settled.push_back({&other, other.open - taken, taken});
        sum += other.open - taken;
    }
}

Method Receivables::officeMethod(Currency currency) {
    if (currency != cad) return wire;
    return random_.chance(480) ? cheque : random_.chance(800) ? wire : preauthorized;
}

void Receivables::applyCredit(Day day, OpenDocument& credit) {
    PaymentData payment{.date = day, .customer = credit.customer, .currency = credit.currency};
    Cents left = -credit.open;
    for (const Id key : byCustomer_[credit.customer->id]) {
        OpenDocument& other = open_.at(key);
        if (other.open <= Cents{} || left <= Cents{}) continue;
        if (other.currency != credit.currency || other.abandoned) continue;
        const Cents taken = std::min(left, other.open);
        payment.settled.push_back({&other, taken, {}});
        left -= taken;
    }
    if (payment.settled.empty()) return plan(credit, day + static_cast<int>(random_.between(20, 50)));
    payment.settled.push_back({&credit, credit.open + left, {}});
    payment.number = credit.number;
    record(payment, true);
}

void Receivables::payOnAccount(Day day) {
    if (!random_.chance(std::min(60 * trade_.scale, 1000))) return;
    const Customer& customer = random_.pick(trade_.customers);
    if (customer.walkIn() || customer.currency == eur || customer.goneOn(day)) return;
    PaymentData payment{.date = day, .customer = &customer, .currency = customer.currency};
    payment.method = officeMethod(payment.currency);
    payment.number = paymentNumber(payment.method);
    const Cents amount{random_.between(3, 40) * 10000};
    const Rate rate = trade_.rate(payment.currency);
    const Id key = trade_.newDocument();
    lines_.add(++lastLine_, key, nullptr, amount, Cents{}, false, nullptr, nullptr);
    writeHeader(payment, key, amount, {}, 0);
    const OpenDocument money{.key = key,
                             .number = payment.number,
                             .kind = onAccount,
                             .customer = &customer,
                             .currency = payment.currency,
                             .date = day,
                             .rate = rate,
                             .total = -amount,
                             .segment = customer.segment};
    payment.settled.push_back({&open_.emplace(key, money).first->second, amount, {}});
    byCustomer_[customer.id].push_back(key);
    post(payment, key, amount, rate);
    plan(money, day + static_cast<int>(random_.between(20, 120)));
}

Cents Receivables::payAtCounter(Day day, const std::string& user, const std::string& cashRegister) {
    const auto start = open_.lower_bound(random_.between(1000, trade_.lastDocument));
    for (auto document = start; document != open_.end(); ++document) {
        OpenDocument& chosen = document->second;
        if (chosen.currency != cad || chosen.abandoned) continue;
        if (chosen.open <= Cents{} || chosen.open > Cents{250000}) continue;
        PaymentData payment{.date = day, .customer = chosen.customer, .settled = {{&chosen, chosen.open, {}}}};
        const Cents paid = chosen.open;
        payment.method = random_.chance(400) ? cash : random_.chance(500) ? debitCard : cheque;
        payment.number = paymentNumber(payment.method);
        payment.user = user;
        payment.cashRegister = cashRegister;
        payment.atCounter = true;
        record(payment, false);
        return payment.method == cash ? paid : Cents{};
    }
    return {};
}

std::string Receivables::paymentNumber(Method method) {
    if (method == cheque) return std::to_string(++lastCheque_);
    if (method == wire) return "VIR-" + std::to_string(++lastCheque_);
    return {};
}

void Receivables::record(const PaymentData& payment, bool creditApplication) {
    const Id key = trade_.newDocument();
    Cents total, discounts;
    for (const auto& line : payment.settled) {
        total += line.paid;
        discounts += line.discount;
        lines_.add(++lastLine_, key, orNull(line.document->kind == onAccount ? 0 : line.document->key), line.paid,
                   line.discount, payment.atCounter, orNull(std::string_view(payment.user)),
                   orNull(std::string_view(payment.cashRegister)));
    }
    writeHeader(payment, key, total, discounts, creditApplication ? payment.settled.back().document->key : 0);
    post(payment, key, total, trade_.rate(payment.currency));
    std::vector<Id> keys;
    for (const auto& line : payment.settled) keys.push_back(line.document->key);
    for (const Id settled : keys) {
        const OpenDocument& document = open_.at(settled);
        if (document.open != Cents{}) plan(document, payment.date + static_cast<int>(random_.between(18, 45)));
        close(settled);
    }
}

void Receivables::writeHeader(const PaymentData& payment, Id key, Cents total, Cents discounts, Id applied) {
    const Id method = applied != 0 || random_.chance(6) ? 0 : Id{payment.method};
    const Segment segment =
        payment.settled.empty() ? payment.customer->segment : payment.settled.front().document->segment;
    payments_.add(key, payment.date, orNull(std::string_view(payment.number)), payment.customer->id, orNull(method),
                  Id{payment.currency}, trade_.rate(payment.currency), total, discounts, orNull(applied),
                  orNull(Id{segment}));
}

void Receivables::post(const PaymentData& payment, Id key, Cents total, Rate rate) {
    Ledger& ledger = trade_.ledger;
    const Currency currency = payment.currency;
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
        if (document.currency == cad && document.kind == 1 && day - document.due > 30)
            sums[document.customer->id] += document.open;
    return sums;
}

void Receivables::adjust(Day day) {
    const Cents writtenOff{random_.between(150, 4800)};
    writeOff(day, cad, writtenOff);
    if (day.month() == 12) writeOff(day, usd, {writtenOff.n / 3});
    if (day.month() == 12) writeOff(day, eur, {writtenOff.n / 4});
    for (const auto& customer : trade_.customers)
        if (customer.currency == usd && random_.chance(60)) correct(day, customer, {random_.between(-9500, 9500)});
}

void Receivables::writeOff(Day day, Currency currency, Cents amount) {
    const Rate rate = trade_.rate(currency);
    trade_.ledger.adjustmentLine(receivableAccount(currency), -(amount * rate), -amount);
    trade_.ledger.line(writeOffs, amount * rate, amount);
    trade_.ledger.post({day, "GEN", 0, "EJ-" + day.iso(),
                        trade_.words.say({"Small balances written off", "Petits soldes radiés"}), currency, rate,
                        currency == cad ? noSegment : exportSales});
}

void Receivables::correct(Day day, const Customer& customer, Cents amount) {
    const Id key = trade_.newDocument();
    const std::string number = "AJ-" + std::to_string(++lastAdjustment_);
    homeAdjustments_.add(key, number, day, customer.id, amount, orNull(Id{customer.segment}));
    trade_.ledger.line(receivableUsd, amount);
    trade_.ledger.line(exchangeDifferences, -amount);
    trade_.ledger.post({day, "GEN", key, number,
                        trade_.words.say({"Exchange correction ", "Correction de change "}) + customer.name, usd,
                        trade_.rate(usd), customer.segment});
}

}  // namespace quillo::demo
