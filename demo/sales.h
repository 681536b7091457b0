#pragma once

#include "demo/receivables.h"

namespace quillo::demo {

enum Kind : int { invoice = 1, cashSale = 2, creditNote = 3, interestCharge = 4, quote = 50, order = 51 };

struct SaleLine {
    const Item* item = nullptr;  // none for a line of text
    std::string text{};
    Qty quantity{}, scrap{};
    std::optional<Cents> price{};
    std::optional<Percent> discountPercent{};
    Cents total{}, discount{};
    int kitLine = -1;      // the line of the kit that this component belongs to
    bool keyedIn = false;  // at a register, without item and account

    // The same goods brought back over the counter.
    SaleLine broughtBack() const {
        SaleLine line = *this;
        line.quantity = -quantity;
        line.total = -total;
        line.discount = -discount;
        return line;
    }
};

// Money taken at a register; change given back is negative.
struct Receipt {
    Method method;
    Currency currency = cad;
    Cents amount{};
    std::string cheque{};
};

struct SaleDocument {
    Kind kind = invoice;
    Day date{};
    std::string time{};
    const Customer* customer = nullptr;
    std::optional<Currency> agreed{};  // or else the customer's currency
    Warehouse warehouse = montreal;
    std::vector<SaleLine> lines{};
    Cents freight{};
    bool receivedInFull = false;  // paid at once at the office, by the method of the header
    Cents partReceived{};         // a deposit or a first payment
    Method method = cheque;
    std::vector<Receipt> receipts{};  // at a register
    bool atCounter = false;
    std::string user{}, cashRegister{};
    std::optional<bool> toApprove{};
    // Settled when recorded.
    Id key = 0;
    std::string number{};
    Cents net{}, discount{}, gst{}, qst{}, hst{}, total{}, received{};

    Currency currency() const { return agreed.value_or(customer->currency); }
};

// Makes sales documents of all kinds, moves their goods and posts them.
class Sales {
public:
    Sales(Trade& trade, Receivables& receivables);

    // What the office writes on a workday.
    void officeDay(Day day);
    // Interest on accounts overdue at a month's end.
    void chargeInterest(Day day);
    // Lines of goods that the warehouse has, for a customer of the given language.
    std::vector<SaleLine> chooseLines(Warehouse warehouse, bool french, int count, int largest);
    void addLine(std::vector<SaleLine>& lines, const Item& item, Qty quantity, bool french);
    // Sums and taxes of the lines; the total is known from here on.
    void addUp(SaleDocument& document) const;
    // Numbers the document, writes it, moves its goods and posts it.
    void record(SaleDocument& document);

private:
    void writeInvoice(Day day);
    void writeCreditNote(Day day);
    void writeOffer(Day day, Kind kind);
    bool available(const Item& item, Warehouse warehouse, Qty quantity) const;
    const Customer& chooseCustomer(Day day);
    std::optional<Currency> chooseCurrency(const Customer& customer);
    const Term& termFor(const SaleDocument& document) const;
    std::string numberFor(Kind kind, bool atCounter);
    void writeHeader(const SaleDocument& document, const Term& term, Rate rate);
    void writeLines(const SaleDocument& document);
    void post(const SaleDocument& document, Rate rate);
    void postReceipts(const SaleDocument& document, Rate rate);
    void postRevenue(const SaleDocument& document, Rate rate, int sign);
    void moveGoods(const SaleDocument& document);
    Id projectOf(const SaleDocument& document);

    struct Sold {
        const Customer* customer;
        Currency currency;
        Warehouse warehouse;
        std::vector<SaleLine> lines;
    };
    Trade& trade_;
    Random& random_;
    Receivables& receivables_;
    std::vector<Sold> recent_;  // what may come back
    std::size_t nextRecent_ = 0;
    std::map<int, std::int64_t> lastNumbers_;
    Id lastLine_ = 0;
    Id lastReceipt_ = 0;
    Table headers_, lines_, receipts_;
};

}  // namespace quillo::demo
