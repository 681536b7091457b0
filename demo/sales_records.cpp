#include "demo/sales.h"

namespace quillo::demo {

void Sales::writeHeader(const SaleDocument& document, const Term& term, Rate rate) {
    const Customer& customer = *document.customer;
    const int sign = document.kind == creditNote ? -1 : 1;
    const auto signedAmount = [&](Cents amount) { return times(amount, sign); };
    std::optional<std::string> salesperson;
    if (const PersonData* const person = salespersonOf(customer, document.date))
        salesperson = person->name();
    else if (customer.id % 2 == 0)
        salesperson = "";
    Percent commission = document.kind == interestCharge ? Percent{} : commissionOf(customer, document.date);
    if (commission.n > 0 && random_.chance(100)) commission.n += 1000;  // agreed for this sale alone
    // Some offers without lines have no total yet.
    const bool empty = document.lines.empty() && random_.chance(300);
    const auto total = empty ? std::nullopt : std::optional(signedAmount(document.total));
    const int daysToShip = static_cast<int>(random_.below(document.kind == order ? 40 : 4));
    const auto shipDate = document.kind == quote ? std::nullopt : std::optional(document.date + daysToShip);
    const bool paidAtOffice = document.receipts.empty() && document.received != Cents{};
    const std::string chequeNumber =
        paidAtOffice && document.method == cheque ? std::to_string(random_.between(100, 999)) : std::string();
    headers_.add(document.key, document.number, int{document.kind}, document.date,
                 orNull(std::string_view(document.time)), shipDate, document.date, dueDate(term, document.date),
                 customer.id, term.id, Id{document.currency()}, rate, signedAmount(document.net),
                 signedAmount(document.discount), signedAmount(document.freight),
                 signedAmount(document.gst + document.qst + document.hst), total, document.received,
                 orNull(std::string_view(chequeNumber)), paidAtOffice ? orNull(Id{document.method}) : std::nullopt,
                 salesperson, commission, signedAmount(document.net * commission), document.atCounter,
                 orNull(std::string_view(document.user)), orNull(std::string_view(document.cashRegister)),
                 document.toApprove, orNull(Id{customer.segment}));
    for (const auto& receipt : document.receipts)
        receipts_.add(++lastReceipt_, document.key, Id{receipt.method}, Id{receipt.currency},
                      trade_.rate(receipt.currency), receipt.amount, orNull(std::string_view(receipt.cheque)));
}

void Sales::writeLines(const SaleDocument& document) {
    const Customer& customer = *document.customer;
    const Id taxGroup = customer.tax == Tax::quebec ? 1 : customer.tax == Tax::ontario ? 2 : 3;
    const Id first = lastLine_ + 1;
    for (const auto& line : document.lines) {
        const bool goods = line.item != nullptr && !line.item->service();
        const Id account = line.keyedIn                      ? 0
                           : line.item != nullptr            ? Id{line.item->salesAccount}
                           : document.kind == interestCharge ? Id{interestIncome}
                                                             : Id{salesService};
        const auto scrap = line.scrap > Qty{} ? std::optional(line.scrap) : std::nullopt;
        const auto quantity = line.price ? std::optional(line.quantity) : std::nullopt;
        lines_.add(++lastLine_, document.key, orNull(line.item == nullptr ? 0 : line.item->id), line.text, quantity,
                   scrap, line.price, line.discountPercent, line.price ? std::optional(line.total) : std::nullopt,
                   line.item != nullptr && line.item->service(), line.item != nullptr && line.item->kit(),
                   orNull(line.kitLine < 0 ? 0 : first + line.kitLine), false, taxGroup, orNull(account),
                   orNull(goods ? Id{document.warehouse} : 0), orNull(Id{customer.segment}));
    }
}

Id Sales::projectOf(const SaleDocument& document) {
    const Id project = document.customer->project;
    if (project == 0 || document.kind == interestCharge) return 0;
    if (!projects()[static_cast<std::size_t>(project - 1)].runsOn(document.date)) return 0;
    return random_.chance(30) ? static_cast<Id>(projects().size() + 1) : project;
}

void Sales::post(const SaleDocument& document, Rate rate) {
    Ledger& ledger = trade_.ledger;
    const int sign = document.kind == creditNote ? -1 : 1;
    postReceipts(document, rate);
    if (document.kind == order) {
        if (document.received == Cents{}) return;
        ledger.line(customerDeposits, -(document.received * rate), -document.received);
    } else {
        const Currency currency = document.currency();
        const Cents owed = times(document.total, sign) - document.received;
        ledger.line(receivableAccount(currency), owed * rate, owed);
        postRevenue(document, rate, sign);
        moveGoods(document);
    }
    ledger.post({document.date, document.kind == interestCharge ? "ADM" : "INV", document.key, document.number,
                 document.customer->name, document.currency(), rate, document.customer->segment});
}

// Money taken with the document itself.
void Sales::postReceipts(const SaleDocument& document, Rate rate) {
    const auto take = [&](Method method, Cents home) {
        trade_.ledger.line(cashAccount(method), home, home);
        if (cashAccount(method) == undeposited) trade_.undepositedReceipts.push_back({document.key, method, home});
    };
    for (const auto& receipt : document.receipts) take(receipt.method, receipt.amount * trade_.rate(receipt.currency));
    if (document.receipts.empty() && document.received != Cents{}) take(document.method, document.received * rate);
}

// Taxes, freight, and sales by account; the cents that the rate loses go to the last account.
void Sales::postRevenue(const SaleDocument& document, Rate rate, int sign) {
    Ledger& ledger = trade_.ledger;
    const Id project = projectOf(document);
    const auto credit = [&](Account account, Cents amount, Id onProject) {
        const Cents foreign = times(amount, -sign);
        ledger.line(account, foreign * rate, foreign, onProject);
    };
    credit(gstCharged, document.gst, 0);
    credit(qstCharged, document.qst, 0);
    credit(hstCharged, document.hst, 0);
    credit(freightIncome, document.freight, 0);
    std::map<Account, Cents> sales;
    for (const auto& line : document.lines)
        sales[line.item != nullptr              ? line.item->salesAccount
              : document.kind == interestCharge ? interestIncome
                                                : salesService] += line.total;
    for (auto account = sales.begin(); account != sales.end(); ++account) {
        if (std::next(account) == sales.end())
            ledger.line(account->first, ledger.remainder(), times(account->second, -sign), project);
        else
            credit(account->first, account->second, project);
    }
}

void Sales::moveGoods(const SaleDocument& document) {
    const Movement movement{document.date, "INV", document.key, document.customer->segment};
    Cents cost;
    for (const auto& line : document.lines) {
        if (line.item == nullptr || !line.item->stocked()) continue;
        const Qty quantity = line.quantity - line.scrap;
        if (quantity == Qty{}) continue;
        const bool comesBack = document.kind == creditNote || quantity < Qty{};
        if (comesBack)
            cost -= trade_.stock.putBack(movement, line.item->id, document.warehouse,
                                         quantity < Qty{} ? -quantity : quantity);
        else if (line.item->soldAhead(document.date))
            cost += trade_.stock.issueAhead(movement, line.item->id, document.warehouse, quantity);
        else
            cost += trade_.stock.issue(movement, line.item->id, document.warehouse, quantity);
    }
    const Id project = cost == Cents{} ? 0 : projectOf(document);
    trade_.ledger.line(costOfGoods, cost, {}, project);
    trade_.ledger.line(inventory, -cost);
}

}  // namespace quillo::demo
