#include "demo/purchasing.h"

#include <algorithm>

namespace quillo::demo {
namespace {

constexpr Percent gst{5000}, qst{9975};
constexpr int goodsSuppliers = 6;

Id supplierOf(const Item& item) {
    return 1 + (item.data->subcategory - 1) % goodsSuppliers;
}

}  // namespace

Purchasing::Purchasing(Trade& trade)
    : trade_(trade),
      random_(trade.random),
      documents_(trade.database, "PurcHdr"),
      assemblies_(trade.database, "AssemblyHdr"),
      components_(trade.database, "AssemblyDet") {}

Cents Purchasing::withTaxes(Cents amount) {
    return amount + amount * gst + amount * qst;
}

void Purchasing::taxLines(Cents amount) {
    trade_.ledger.line(gstPaid, amount * gst);
    trade_.ledger.line(qstPaid, amount * qst);
}

std::string Purchasing::lastNumber() const {
    return "A" + std::to_string(lastNumber_);
}

Id Purchasing::document(Day day, int kind, Id supplier, Cents total) {
    const Id key = trade_.newDocument();
    ++lastNumber_;
    documents_.add(key, lastNumber(), kind, day, supplier, total);
    return key;
}

// Cheap goods are bought by the pallet, dear ones by the piece.
Qty Purchasing::lotOf(const Item& item) const {
    const std::int64_t base = item.data->cost > 20000 ? 8 : item.data->cost > 3000 ? 30 : 160;
    return units(base * trade_.scale);
}

void Purchasing::openBooks(Day day) {
    Cents total;
    const Movement movement{day, "ADJ"};
    for (const auto& item : trade_.items) {
        if (!item.stocked() || item.data->assembled || !item.deliveredOn(day)) continue;
        for (const Warehouse warehouse : {montreal, quebec, ottawa, laval}) {
            const Qty quantity = lotOf(item);
            total += trade_.stock.receive(movement, item.id, warehouse, quantity, quantity * Cents{item.data->cost});
        }
    }
    const Cents bank{times(Cents{45000000}, trade_.scale)};
    trade_.ledger.line(inventory, total);
    trade_.ledger.line(bankCad, bank);
    trade_.ledger.line(capital, -(total + bank));
    trade_.ledger.post({day, "GEN", 0, "OUV-" + std::to_string(day.year()),
                        trade_.words.say({"Opening balances", "Soldes d'ouverture"})});
}

void Purchasing::restock(Day day) {
    for (const Warehouse warehouse : {montreal, quebec, ottawa}) {
        std::map<Id, std::vector<const Item*>> wanted;
        for (const auto& item : trade_.items) {
            const bool low = trade_.stock.onHand(item.id, warehouse) < Qty{lotOf(item).n / 2};
            if (item.stocked() && !item.data->assembled && item.deliveredOn(day) && low)
                wanted[supplierOf(item)].push_back(&item);
        }
        for (const auto& [supplier, goods] : wanted) {
            Cents total;
            const Id key = trade_.lastDocument + 1;
            for (const Item* item : goods) {
                const Cents price{item->data->cost * (100 + 2 * (day.year() - 2023)) * random_.between(970, 1040) /
                                  100000};
                const Qty quantity = lotOf(*item);
                total += trade_.stock.receive({day, "PUR", key}, item->id, warehouse, quantity, quantity * price);
            }
            document(day, 1, supplier, withTaxes(total));
            trade_.ledger.line(inventory, total);
            owe(day, key, supplier, total);
        }
    }
}

// The other side of a purchase: the taxes on it and the debt.
void Purchasing::owe(Day day, Id key, Id supplier, Cents amount) {
    taxLines(amount);
    trade_.ledger.line(payable, -withTaxes(amount));
    trade_.ledger.post({day, "PUR", key, lastNumber(), suppliers()[static_cast<std::size_t>(supplier - 1)]});
    bills_[day + 30].push_back({supplier, withTaxes(amount)});
}

void Purchasing::buyForProject(Day day, Id supplier, Cents amount, Id project) {
    const Id key = document(day, 1, supplier, withTaxes(amount));
    trade_.ledger.line(costOfGoods, amount, {}, project);
    owe(day, key, supplier, amount);
}

void Purchasing::paySuppliers(Day day) {
    while (!bills_.empty() && bills_.begin()->first <= day) {
        for (const auto& bill : bills_.begin()->second) {
            trade_.ledger.line(payable, bill.amount);
            trade_.ledger.line(bankCad, -bill.amount);
            trade_.ledger.post({day, "CHQ", 0, std::to_string(++lastCheque_),
                                suppliers()[static_cast<std::size_t>(bill.supplier - 1)]});
        }
        bills_.erase(bills_.begin());
    }
}

void Purchasing::assemble(Day day) {
    for (const auto& item : trade_.items) {
        if (!item.data->assembled) continue;
        const Warehouse warehouse = random_.chance(600) ? montreal : quebec;
        const Qty quantity = units(random_.between(3, 8) * trade_.scale);
        const bool enough = std::ranges::all_of(item.components, [&](const Component& part) {
            return trade_.stock.onHand(part.item, warehouse) >= times(quantity, part.quantity);
        });
        if (!enough || trade_.stock.onHand(item.id, warehouse) > units(12 * trade_.scale)) continue;
        const Movement movement{day, "ASB", trade_.newDocument(), retail};
        const std::string number = "ASM-" + std::to_string(1000 + ++lastAssembly_);
        assemblies_.add(movement.key, number, day, item.id, quantity, Id{warehouse});
        Cents total;
        for (const auto& part : item.components) {
            const Qty used = times(quantity, part.quantity);
            const Cents value = trade_.stock.issue(movement, part.item, warehouse, used);
            components_.add(++lastComponent_, movement.key, part.item, used, unitCost(value, used), Id{warehouse},
                            Id{retail});
            trade_.ledger.line(inventory, -value);
            total += value;
        }
        trade_.stock.receive(movement, item.id, warehouse, quantity, total);
        trade_.ledger.line(inventory, total);
        trade_.ledger.post(
            {day, "ASB", movement.key, number, trade_.words.say(item.data->description), cad, {}, retail});
    }
}

void Purchasing::count(Day day) {
    const Movement movement{day, "ADJ", trade_.newDocument()};
    Cents change;
    for (const auto& item : trade_.items) {
        if (!item.stocked() || !random_.chance(250)) continue;
        const Qty off = units(random_.between(1, 3));
        if (trade_.stock.onHand(item.id, montreal) <= off) continue;
        if (random_.chance(350))
            change += trade_.stock.putBack(movement, item.id, montreal, off);
        else
            change -= trade_.stock.issue(movement, item.id, montreal, off);
    }
    trade_.ledger.line(inventory, change);
    trade_.ledger.line(stockAdjustments, -change);
    trade_.ledger.post({day, "GEN", movement.key, "INV-" + std::to_string(day.year()),
                        trade_.words.say({"Yearly stock count", "Inventaire annuel"})});
}

void Purchasing::closeLaval(Day day) {
    const Movement movement{day, "ADJ", trade_.newDocument()};
    Cents change;
    for (const auto& item : trade_.items) {
        const Qty quantity = trade_.stock.onHand(item.id, laval);
        if (quantity == Qty{}) continue;
        change -= trade_.stock.issue(movement, item.id, laval, quantity);
        change += trade_.stock.putBack(movement, item.id, montreal, quantity);
    }
    trade_.ledger.line(inventory, change);
    trade_.ledger.line(stockAdjustments, -change);
    trade_.ledger.post({day, "GEN", movement.key, "TRF-LAVAL",
                        trade_.words.say({"Laval's stock brought to Montréal", "Stock de Laval ramené à Montréal"})});
}

}  // namespace quillo::demo
