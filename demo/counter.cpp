#include "demo/counter.h"

#include "demo/masters.h"

#include <algorithm>
#include <cstdio>

namespace quillo::demo {
namespace {

std::string clock(int minute, int second) {
    char text[32];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", minute / 60, minute % 60, second);
    return text;
}

constexpr int opening = 8 * 60, closing = 17 * 60 + 30;

}  // namespace

void Counter::openDay(Day day) {
    // Three of the four operators work, in turns.
    Post posts[] = {{day.n % 2 == 0 ? "Chantal" : "Kevin", "MTL-01", montreal, {}, {}},
                    {day.n % 3 == 0 ? "Kevin" : "Nadia", "MTL-02", montreal, {}, {}},
                    {day.n % 4 == 0 ? "Nadia" : "Olivier", "QC-01", quebec, {}, {}}};
    for (auto& post : posts) {
        const auto count = trade_.count(day, 130);
        for (std::int64_t sale = 0; sale < count; ++sale)
            sell(day, post, opening + static_cast<int>((closing - opening) * (2 * sale + 1) / (2 * count)));
        if (random_.chance(170)) receivables_.payAtCounter(day, post.user, post.cashRegister);
        emptyDrawer(day, post);
    }
}

void Counter::sell(Day day, Post& post, int minute) {
    const bool walkIn = random_.chance(780);
    const auto number = walkIn ? (post.warehouse == quebec ? 1 : 0)
                               : random_.between(2, static_cast<std::int64_t>(trade_.customers.size()) - 1);
    const Customer* customer = &trade_.customers[static_cast<std::size_t>(number)];
    if (customer->currency != cad || customer->tax != Tax::quebec ||
        (customer->inactiveFrom && day >= *customer->inactiveFrom))
        customer = &trade_.customers[post.warehouse == quebec ? 1 : 0];
    SaleDocument document{.kind = cashSale,
                          .date = day,
                          .time = clock(minute, static_cast<int>(random_.below(60))),
                          .customer = customer,
                          .warehouse = post.warehouse,
                          .atCounter = true};
    if (!random_.chance(3)) document.user = post.user;
    if (!random_.chance(3)) document.cashRegister = post.cashRegister;
    document.lines = sales_.chooseLines(post.warehouse, customer->french, static_cast<int>(random_.between(1, 4)), 8);
    if (document.lines.empty()) return;
    if (random_.chance(35))
        for (auto& line : document.lines) line = line.broughtBack();
    if (customer->code != walkInCode && customer->id > 2 && random_.chance(450)) document.kind = invoice;
    sales_.addUp(document);
    takeMoney(document, post);
    sales_.record(document);
}

// A cash sale is paid in full; an invoice at the counter goes on account, part of it paid at times.
void Counter::takeMoney(SaleDocument& document, Post& post) {
    if (document.kind == invoice && random_.chance(600)) return;
    const Cents total = document.kind == invoice ? Cents{document.total.n / 2} : document.total;
    if (total < Cents{}) {
        document.receipts.push_back({cash, cad, total, {}});
        post.dollars += total;
        return;
    }
    const auto way = random_.below(100);
    if (way < 34)
        payCash(document, post, total);
    else if (way < 60)
        document.receipts.push_back({debitCard, cad, total, {}});
    else if (way < 88)
        document.receipts.push_back({creditCard, cad, total, {}});
    else if (way < 94)
        document.receipts.push_back({cheque, cad, total, std::to_string(random_.between(100, 899))});
    else {
        const Cents onCard{total.n / 200 * 100};
        document.receipts.push_back({debitCard, cad, onCard, {}});
        payCash(document, post, total - onCard);
    }
}

// Bank notes and the change given back, at times for American ones.
void Counter::payCash(SaleDocument& document, Post& post, Cents amount) {
    const bool american = random_.chance(70) && amount < Cents{40000};
    const Currency currency = american ? usd : cad;
    const Cents due = american ? Cents{amount.n * 10000 / trade_.usdRate.n} : amount;
    const Cents given{(due.n / 2000 + 1) * 2000};
    document.receipts.push_back({cash, currency, given, {}});
    (american ? post.foreign : post.dollars) += given;
    const Cents change = given * trade_.rate(currency) - amount;
    if (change == Cents{}) return;
    document.receipts.push_back({cash, cad, -change, {}});
    post.dollars -= change;
}

void Counter::emptyDrawer(Day day, const Post& post) {
    const auto deposit = [&](Currency currency, Cents amount) {
        const Cents notes{amount.n / 500 * 500};
        if (notes <= Cents{}) return;
        deposits_.add(++lastDeposit_, post.user, post.cashRegister, day, clock(closing + 10, 0), notes, Id{currency},
                      trade_.rate(currency));
    };
    deposit(cad, post.dollars);
    deposit(usd, post.foreign);
}

}  // namespace quillo::demo
