#include "demo/sales.h"

#include <algorithm>
#include <cstdio>

namespace quillo::demo {

Sales::Sales(Trade& trade, Receivables& receivables)
    : trade_(trade),
      random_(trade.random),
      receivables_(receivables),
      headers_(trade.database, "InvoiHdr"),
      lines_(trade.database, "InvoiDet"),
      receipts_(trade.database, "InvoiRecDet") {}

void Sales::officeDay(Day day) {
    for (auto left = trade_.count(day, 320); left > 0; --left) writeInvoice(day);
    for (auto left = trade_.count(day, 18); left > 0; --left) writeCreditNote(day);
    // What became an invoice is no offer any more: of former times little is left.
    const bool recent = lastDay - day < 75;
    for (auto left = trade_.count(day, recent ? 190 : 6); left > 0; --left) writeOffer(day, quote);
    for (auto left = trade_.count(day, recent ? 190 : 3); left > 0; --left) writeOffer(day, order);
}

const Customer& Sales::chooseCustomer(Day day) {
    const auto count = static_cast<std::int64_t>(trade_.customers.size());
    for (;;) {
        // The lower of two draws: a few customers buy most.
        const auto index = 2 + std::min(random_.below(count - 2), random_.below(count - 2));
        const Customer& customer = trade_.customers[static_cast<std::size_t>(index)];
        if (!customer.goneOn(day)) return customer;
    }
}

const Term& Sales::termFor(const SaleDocument& document) const {
    // From May on the dates are those of the next season, so that all lie ahead of the document.
    const bool early = document.date.month() <= 4;
    const bool seasonal = document.customer->term->mode == 2 || (early && document.customer->id % 9 == 0);
    return seasonal ? trade_.season(document.date.year() + (early ? 0 : 1)) : *document.customer->term;
}

// A few documents are in another currency than their customer's.
std::optional<Currency> Sales::chooseCurrency(const Customer& customer) {
    if (!random_.chance(customer.currency == cad ? 12 : 60)) return {};
    return customer.currency == cad ? usd : customer.currency == usd ? cad : usd;
}

bool Sales::available(const Item& item, Warehouse warehouse, Qty quantity) const {
    if (item.soldAhead(trade_.today)) return trade_.stock.onHand(item.id, warehouse) > units(-3 * trade_.scale);
    if (item.stocked()) return trade_.stock.onHand(item.id, warehouse) >= quantity;
    return std::ranges::all_of(item.components, [&](const Component& part) {
        return trade_.stock.onHand(part.item, warehouse) >= times(quantity, part.quantity);
    });
}

void Sales::addLine(std::vector<SaleLine>& lines, const Item& item, Qty quantity, bool french) {
    const auto textOf = [&](const Item& of) {
        return french ? of.data->description.french : of.data->description.english;
    };
    SaleLine line{.item = &item, .text = textOf(item), .quantity = quantity, .price = item.price};
    if (random_.chance(160))
        line.discountPercent = Percent{random_.between(1, 4) * 5000};
    else if (random_.chance(120))
        line.discountPercent = Percent{0};
    const Cents gross = quantity * *line.price;
    if (line.discountPercent) line.discount = gross * *line.discountPercent;
    line.total = gross - line.discount;
    const int kitLine = static_cast<int>(lines.size());
    lines.push_back(line);
    for (const auto& part : item.kit() ? item.components : std::vector<Component>{}) {
        const Item& component = trade_.item(part.item);
        lines.push_back({.item = &component,
                         .text = textOf(component),
                         .quantity = times(quantity, part.quantity),
                         .price = Cents{},
                         .kitLine = kitLine});
    }
}

std::vector<SaleLine> Sales::chooseLines(Warehouse warehouse, bool french, int count, int largest) {
    std::vector<SaleLine> lines;
    std::vector<Id> taken;  // an item stands once on a document, as its components do
    for (int tries = 0; tries < count * 3 && count > 0; ++tries) {
        const Item& item = random_.pick(trade_.items);
        const std::int64_t fit = item.price > Cents{20000}  ? std::max(1, largest / 8)
                                 : item.price > Cents{4000} ? std::max(1, largest / 2)
                                                            : largest;
        const Qty quantity = item.service() ? Qty{random_.between(2, 16) * 50} : units(random_.between(1, fit));
        const auto clashes = [&](Id id) { return std::ranges::find(taken, id) != taken.end(); };
        if (clashes(item.id) || std::ranges::any_of(item.components, [&](const Component& part) {
                return item.kit() && clashes(part.item);
            }))
            continue;
        if (!item.soldOn(trade_.today)) continue;
        if (!item.service() && !available(item, warehouse, quantity)) continue;
        addLine(lines, item, quantity, french);
        taken.push_back(item.id);
        if (item.kit())
            for (const auto& part : item.components) taken.push_back(part.item);
        --count;
    }
    return lines;
}

void Sales::writeInvoice(Day day) {
    SaleDocument document{.kind = invoice, .date = day, .customer = &chooseCustomer(day)};
    const Customer& customer = *document.customer;
    document.agreed = chooseCurrency(customer);
    document.warehouse = day < Day::of(2023, 12, 15) && random_.chance(80) ? laval : customer.warehouse;
    const bool large = customer.segment == contractors || customer.segment == exportSales;
    document.lines = chooseLines(document.warehouse, customer.french,
                                 static_cast<int>(random_.between(1, large ? 9 : 4)), large ? 60 : 12);
    if (random_.chance(4) && large) {  // a whole building site at once
        document.lines.push_back(
            {.text = customer.french ? "Contrat de fourniture, phase 2" : "Supply contract, phase 2",
             .quantity = units(1),
             .price = Cents{random_.between(25, 160) * 100000 + 50}});
        document.lines.back().total = *document.lines.back().price;
    }
    if (document.lines.empty()) return;
    if (random_.chance(60))
        document.lines.push_back(
            {.text = customer.french ? "Livraison à l'arrière, appeler avant" : "Deliver at the rear, call ahead"});
    if (random_.chance(350)) document.freight = {random_.between(25, 280) * 100};
    if (document.currency() == cad && random_.chance(70)) {
        document.kind = random_.chance(600) ? cashSale : invoice;
        document.receivedInFull = document.kind == cashSale;
        if (document.kind == invoice) document.partReceived = {random_.between(2, 9) * 2500};
        document.method = random_.chance(500) ? cheque : creditCard;
    }
    if (random_.chance(15) && document.kind == invoice)
        document.toApprove = true;
    else if (random_.chance(500))
        document.toApprove = false;
    addUp(document);
    record(document);
}

void Sales::writeCreditNote(Day day) {
    if (recent_.empty()) return;
    const Sold& sold = random_.pick(recent_);
    SaleDocument document{.kind = creditNote,
                          .date = day,
                          .customer = sold.customer,
                          .agreed = sold.currency,
                          .warehouse = sold.warehouse == laval ? montreal : sold.warehouse};
    for (const auto& line : sold.lines) {
        const bool returnable = line.item != nullptr && !line.item->soldAhead(day) && !line.item->kit() &&
                                line.kitLine < 0 && line.quantity >= units(1);
        if (!returnable || (!document.lines.empty() && random_.chance(600))) continue;
        SaleLine back = line;
        back.quantity = line.item->service()
                            ? line.quantity
                            : units(random_.between(1, std::max<std::int64_t>(1, line.quantity.n / 300)));
        if (!line.item->service() && random_.chance(150)) back.scrap = units(1);
        const Cents gross = back.quantity * *back.price;
        back.discount = back.discountPercent ? gross * *back.discountPercent : Cents{};
        back.total = gross - back.discount;
        document.lines.push_back(back);
    }
    if (document.lines.empty()) return;
    addUp(document);
    record(document);
}

void Sales::writeOffer(Day day, Kind kind) {
    SaleDocument document{.kind = kind, .date = day, .customer = &chooseCustomer(day)};
    document.warehouse = document.customer->warehouse;
    document.lines =
        chooseLines(document.warehouse, document.customer->french, static_cast<int>(random_.between(1, 7)), 40);
    if (random_.chance(30)) document.lines.clear();  // opened and not yet filled
    if (random_.chance(80)) document.toApprove = true;
    addUp(document);
    if (kind == order && document.customer->currency == cad && document.total > Cents{50000} && random_.chance(250)) {
        document.partReceived = {document.total.n / 40000 * 10000};
        document.method = cheque;
    }
    record(document);
}

void Sales::chargeInterest(Day day) {
    for (const auto& [customer, sum] : receivables_.overdue(day)) {
        const Cents interest = sum * Percent{1500};
        if (interest < Cents{500} || !random_.chance(300)) continue;
        SaleDocument document{
            .kind = interestCharge, .date = day, .customer = &trade_.customers[static_cast<std::size_t>(customer - 1)]};
        document.lines.push_back(
            {.text = document.customer->french ? "Intérêts sur compte en souffrance" : "Interest on overdue account",
             .quantity = units(1),
             .price = interest,
             .total = interest});
        addUp(document);
        record(document);
    }
}

void Sales::addUp(SaleDocument& document) const {
    document.net = document.discount = {};
    for (const auto& line : document.lines) {
        document.net += line.total;
        document.discount += line.discount;
    }
    const Cents taxed = document.kind == interestCharge ? Cents{} : document.net + document.freight;
    const Tax tax = document.customer->tax;
    document.gst = tax == Tax::quebec ? taxed * Percent{5000} : Cents{};
    document.qst = tax == Tax::quebec ? taxed * Percent{9975} : Cents{};
    document.hst = tax == Tax::ontario ? taxed * Percent{13000} : Cents{};
    document.total = document.net + document.freight + document.gst + document.qst + document.hst;
}

std::string Sales::numberFor(Kind kind, bool atCounter) {
    const char* prefix = atCounter                ? "K"
                         : kind == creditNote     ? "NC"
                         : kind == interestCharge ? "FI"
                         : kind == quote          ? "S"
                         : kind == order          ? "C"
                                                  : "F";
    char text[24];
    std::snprintf(
        text, sizeof text, "%s%06lld", prefix,
        static_cast<long long>(++lastNumbers_[prefix[0] == 'F' && prefix[1] == 0 ? 0 : prefix[0] * 256 + prefix[1]]));
    return text;
}

void Sales::record(SaleDocument& document) {
    const Customer& customer = *document.customer;
    const Rate rate = trade_.rate(document.currency());
    const Term& term = termFor(document);
    document.key = trade_.newDocument();
    document.number = numberFor(document.kind, document.atCounter);
    document.received = document.receivedInFull           ? document.total
                        : document.partReceived > Cents{} ? std::min(document.partReceived, document.total)
                                                          : Cents{};
    for (const auto& receipt : document.receipts) document.received += receipt.amount * trade_.rate(receipt.currency);
    writeHeader(document, term, rate);
    writeLines(document);
    if (document.kind != quote) post(document, rate);
    if (document.kind == quote || document.kind == order) return;
    const int sign = document.kind == creditNote ? -1 : 1;
    const Cents owed = times(document.total, sign) - document.received;
    if (owed == Cents{}) return;
    receivables_.add({document.key, document.number, document.kind, &customer, document.currency(), document.date,
                      dueDate(term, document.date), &term, rate, times(document.total, sign), owed, customer.segment});
    if (document.kind != invoice) return;
    Sold sold{&customer, document.currency(), document.warehouse, document.lines};
    if (recent_.size() < 60)
        recent_.push_back(std::move(sold));
    else
        recent_[nextRecent_++ % recent_.size()] = std::move(sold);
}

}  // namespace quillo::demo
