#pragma once

#include "demo/ledger.h"
#include "demo/random.h"
#include "demo/stock.h"
#include "demo/vocabulary.h"

#include <optional>
#include <string>
#include <vector>

namespace quillo::demo {

enum Currency : Id { cad = 1, usd, eur };
enum Warehouse : Id { montreal = 1, quebec, ottawa, laval };
enum Segment : Id { noSegment = 0, retail, contractors, exportSales };
enum class Tax { quebec, ontario, exempt };

struct Instalment {
    Percent share;
    std::optional<Day> date;  // or else days after the document
    int days = 0;
};

struct Term {
    Id id;
    const char* code;
    Words description;
    std::optional<int> mode{}, due{};
    std::optional<Percent> discount{};
    std::optional<int> discountDays{}, nextMonthAfter{};
    std::vector<Instalment> instalments{};
};

struct Customer {
    Id id;
    std::string code, name;
    bool french;
    Currency currency;
    bool currencyOnFile = true;
    Tax tax;
    const Term* term;
    const PersonData* salesperson = nullptr;
    Segment segment;
    Warehouse warehouse;
    Id project = 0;
    int delay = 0;  // days that this customer pays after the due date
    bool takesDiscounts = false;
    std::optional<Day> inactiveFrom{};

    bool walkIn() const { return id <= 2; }
    bool goneOn(Day day) const { return inactiveFrom && day >= *inactiveFrom; }
};

struct Component {
    Id item;
    Qty quantity;
};

struct Item {
    Id id;
    const ItemData* data;
    Account salesAccount;
    std::vector<Component> components;
    Cents price;  // follows the years

    bool service() const { return data->category == services; }
    bool kit() const { return data->category == kits; }
    bool stocked() const { return !service() && !kit(); }
    bool soldOn(Day day) const { return day >= data->soldFrom && day <= data->soldUntil; }
    bool deliveredOn(Day day) const { return day >= data->stockedFrom && day < data->lastDelivery; }
    // Invoiced beyond what there is, since its maker delivers no more.
    bool soldAhead(Day day) const { return data->soldAhead && day >= data->lastDelivery; }
};

// Money received but not yet brought to the bank.
struct Undeposited {
    Id key;
    Method method;
    Cents amount;
};

// What all trades of the company share while its years go by.
struct Trade {
    Trade(const sqlite::Database& database, std::uint64_t seed, int scaleFactor, bool french);

    Id newDocument() { return ++lastDocument; }
    Rate rate(Currency currency) const { return currency == cad ? Rate{} : currency == usd ? usdRate : eurRate; }
    const Item& item(Id id) const { return items[static_cast<std::size_t>(id - 1)]; }
    const Term& season(int year) const;
    // A count whose mean grows with the scale, the season and the years.
    std::int64_t count(Day day, std::int64_t hundredths);

    const sqlite::Database& database;
    Random random;
    int scale;
    Vocabulary words;
    Day today = firstDay;
    std::vector<Term> terms;
    std::vector<Customer> customers;
    std::vector<Item> items;
    Rate usdRate{13550}, eurRate{14720};
    Id lastDocument = 1000;
    std::vector<Undeposited> undepositedReceipts;
    Ledger ledger;
    Stock stock;
};

// Who sells to a customer on a day; nobody once that person has left.
const PersonData* salespersonOf(const Customer& customer, Day day);
// What the salesperson of a customer earns on a sale of a day.
Percent commissionOf(const Customer& customer, Day day);
Account receivableAccount(Currency currency);
Account bankAccount(Currency currency);
// Where money paid by a method lands: the drawer until it is deposited, or the bank at once.
Account cashAccount(Method method);

}  // namespace quillo::demo
