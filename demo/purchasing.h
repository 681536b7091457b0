#pragma once

#include "demo/trade.h"

#include <map>
#include <vector>

namespace quillo::demo {

// The stock's supply: the opening stock, purchases, assemblies, counts, and the cheques to suppliers.
class Purchasing {
public:
    explicit Purchasing(Trade& trade);

    void openBooks(Day day);
    // Orders what runs low in each warehouse.
    void restock(Day day);
    void assemble(Day day);
    // A few counts differ from the books.
    void count(Day day);
    // Laval's goods go to Montréal for good.
    void closeLaval(Day day);
    void paySuppliers(Day day);
    // Material that goes to a project's site at once.
    void buyForProject(Day day, Id supplier, Cents amount, Id project);

    // Purchase and sales taxes on an amount bought in Québec.
    void taxLines(Cents amount);
    static Cents withTaxes(Cents amount);
    // Writes a supplier's document and gives its key.
    Id document(Day day, int kind, Id supplier, Cents total);
    std::string lastNumber() const;

private:
    Qty lotOf(const Item& item) const;
    void owe(Day day, Id key, Id supplier, Cents amount);

    Trade& trade_;
    Random& random_;
    struct Bill {
        Id supplier;
        Cents amount;
    };
    std::map<Day, std::vector<Bill>> bills_;
    std::int64_t lastNumber_ = 50000;
    std::int64_t lastAssembly_ = 0;
    std::int64_t lastCheque_ = 900;
    Id lastComponent_ = 0;
    Table documents_, assemblies_, components_;
};

}  // namespace quillo::demo
