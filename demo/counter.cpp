#include "demo/counter.h"

#include <algorithm>
#include <cstdio>

namespace quillo::demo {
namespace {

std::string clock(int minute, int second) {
    char text[32];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", minute / 60, minute % 60, second);
    return text;
}

constexpr int opening = 8 * 60, noon = 12 * 60 + 45, closing = 17 * 60 + 30;

// The first Saturday of the warm months is a sale.
bool isSaleDay(Day day) {
    return day.weekday() == 6 && day.dayOfMonth() <= 7 && day.month() >= 4 && day.month() <= 10 && day.year() > 2022;
}

}  // namespace

// In Montréal three operators take turns, one of them at both registers; Québec has two of its own.
void Counter::openDay(Day day) {
    constexpr const char* operators[] = {"Chantal", "Kevin", "Nadia"};
    const auto onDuty = [&](int place) { return operators[(day.n + place) % 3]; };
    const char* const inQuebec = day.year() < 2024 ? "Lucie" : "Sylvie";
    Shift shifts[] = {
        {onDuty(0), "MTL-01", montreal, opening, noon, {}, {}}, {onDuty(1), "MTL-02", montreal, opening, noon, {}, {}},
        {"Olivier", "QC-01", quebec, opening, noon, {}, {}},    {onDuty(1), "MTL-01", montreal, noon, closing, {}, {}},
        {onDuty(2), "MTL-02", montreal, noon, closing, {}, {}}, {inQuebec, "QC-01", quebec, noon, closing, {}, {}}};
    for (auto& shift : shifts) work(day, shift);
}

void Counter::work(Day day, Shift& shift) {
    const auto count = salesOf(day);
    const int length = shift.ends - shift.begins;
    for (std::int64_t sale = 0; sale < count; ++sale)
        sell(day, shift, shift.begins + static_cast<int>(length * (2 * sale + 1) / (2 * count)));
    if (random_.chance(85)) shift.dollars += receivables_.payAtCounter(day, shift.user, shift.cashRegister);
    emptyDrawer(day, shift);
}

std::int64_t Counter::salesOf(Day day) {
    const auto usual = trade_.count(day, 62);
    return isSaleDay(day) ? std::max(usual, random_.between(6, 8)) : usual;
}

// A walk-in, or a customer with an account of the province.
const Customer& Counter::chooseCustomer(Day day, const Shift& shift) {
    const Customer& walkIn = trade_.customers[shift.warehouse == quebec ? 1 : 0];
    if (random_.chance(780)) return walkIn;
    const auto number = random_.between(2, static_cast<std::int64_t>(trade_.customers.size()) - 1);
    const Customer& customer = trade_.customers[static_cast<std::size_t>(number)];
    const bool ofTheProvince = customer.currency == cad && customer.tax == Tax::quebec;
    return ofTheProvince && !customer.goneOn(day) ? customer : walkIn;
}

void Counter::sell(Day day, Shift& shift, int minute) {
    SaleDocument document{.kind = cashSale,
                          .date = day,
                          .time = clock(minute, static_cast<int>(random_.below(60))),
                          .customer = &chooseCustomer(day, shift),
                          .warehouse = shift.warehouse,
                          .atCounter = true};
    if (!random_.chance(3)) document.user = shift.user;
    if (!random_.chance(3)) document.cashRegister = shift.cashRegister;
    const Customer& customer = *document.customer;
    document.lines = sales_.chooseLines(shift.warehouse, customer.french, static_cast<int>(random_.between(1, 4)), 8);
    if (document.lines.empty()) return;
    const auto way = random_.below(1000);
    const bool account = !customer.walkIn();
    if (way < 35)
        bringBack(document);
    else if (way < 45)
        document.kind = order;
    else if (account && way < 450)
        document.kind = invoice;
    else if (way > 970)
        document.lines.push_back({.text = customer.french ? "Article divers" : "Sundries",
                                  .quantity = units(1),
                                  .price = Cents{1295},
                                  .total = Cents{1295},
                                  .keyedIn = true});
    sales_.addUp(document);
    document.kind == order ? takeDeposit(document) : takeMoney(document, shift);
    sales_.record(document);
}

// Credited to an account, or paid back in cash. What no longer comes in is not taken back.
void Counter::bringBack(SaleDocument& document) {
    const auto ends = [&](const SaleLine& line) { return line.item->soldAhead(document.date); };
    if (std::ranges::any_of(document.lines, ends)) return;
    if (!document.customer->walkIn())
        document.kind = creditNote;
    else
        for (auto& line : document.lines) line = line.broughtBack();
}

// Goods to be fetched later: a quarter is paid, by the method of the header.
void Counter::takeDeposit(SaleDocument& document) {
    document.partReceived = {document.total.n / 4};
    document.method = random_.chance(400) ? cash : random_.chance(500) ? debitCard : cheque;
}

// A cash sale is paid in full; an invoice at the counter goes on account, part of it paid at times.
void Counter::takeMoney(SaleDocument& document, Shift& shift) {
    if (document.kind == creditNote || (document.kind == invoice && random_.chance(600))) return;
    const Cents total = document.kind == invoice ? Cents{document.total.n / 2} : document.total;
    if (total < Cents{}) {
        document.receipts.push_back({cash, cad, total, {}});
        shift.dollars += total;
        return;
    }
    const auto way = random_.below(100);
    if (way < 34)
        payCash(document, shift, total);
    else if (way < 60)
        document.receipts.push_back({debitCard, cad, total, {}});
    else if (way < 88)
        document.receipts.push_back({creditCard, cad, total, {}});
    else if (way < 94)
        document.receipts.push_back({cheque, cad, total, std::to_string(random_.between(100, 899))});
    else {
        const Cents onCard{total.n / 200 * 100};
        document.receipts.push_back({debitCard, cad, onCard, {}});
        payCash(document, shift, total - onCard);
    }
}

// Bank notes and the change given back, at times for American ones.
void Counter::payCash(SaleDocument& document, Shift& shift, Cents amount) {
    const bool american = random_.chance(70) && amount < Cents{40000};
    const Currency currency = american ? usd : cad;
    const Cents due = american ? Cents{amount.n * 10000 / trade_.usdRate.n} : amount;
    const Cents given{(due.n / 2000 + 1) * 2000};
    document.receipts.push_back({cash, currency, given, {}});
    (american ? shift.foreign : shift.dollars) += given;
    const Cents change = given * trade_.rate(currency) - amount;
    if (change == Cents{}) return;
    document.receipts.push_back({cash, cad, -change, {}});
    shift.dollars -= change;
}

// Notes go to the bank, coins stay. A count that is a note off shows in the drawer's balance.
void Counter::emptyDrawer(Day day, const Shift& shift) {
    const auto deposit = [&](Currency currency, Cents amount) {
        Cents notes{amount.n / 500 * 500};
        if (random_.chance(80)) notes += random_.chance(650) ? Cents{-500} : Cents{1000};
        if (notes <= Cents{}) return;
        deposits_.add(++lastDeposit_, shift.user, shift.cashRegister, day, clock(shift.ends + 10, 0), notes,
                      Id{currency}, trade_.rate(currency));
    };
    deposit(cad, shift.dollars);
    deposit(usd, shift.foreign);
}

}  // namespace quillo::demo
