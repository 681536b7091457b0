#pragma once

#include "demo/trade.h"

#include <map>
#include <vector>

namespace quillo::demo {

inline constexpr int onAccount = 99;  // a payment that settles no document yet

// A document that its customer has not settled; a credit note, or money paid on account, is negative.
struct OpenDocument {
    Id key = 0;
    std::string number{};
    int kind = 0;
    const Customer* customer = nullptr;
    Currency currency = cad;  // of the document, at times not the customer's
    Day date{}, due{};
    const Term* term = nullptr;
    Rate rate{};
    Cents total{}, open{};
    Segment segment = noSegment;
    bool abandoned = false;  // its customer will never pay it
};

// The receivables: open documents, when their customers mean to pay them, and the payments. The
// receivables accounts fall by the change of each document's balance at its own rate, so that they
// always equal the open balances to the cent.
class Receivables {
public:
    explicit Receivables(Trade& trade);

    void add(const OpenDocument& document);
    // The payments and credit applications that customers make on a day.
    void payDay(Day day);
    // Now and then a customer pays before there is a document.
    void payOnAccount(Day day);
    // A payment of one home-currency document at a register; gives the cash that came into the drawer.
    Cents payAtCounter(Day day, const std::string& user, const std::string& cashRegister);
    // Documents of home currency customers overdue by more than 30 days, by customer.
    std::map<Id, Cents> overdue(Day day) const;
    // Small balances written off on the account alone, those in foreign currency at a year's end, and
    // home-currency corrections of customers.
    void adjust(Day day);

private:
    struct Settlement {
        OpenDocument* document;
        Cents paid, discount;
    };
    struct PaymentData {
        Day date{};
        const Customer* customer = nullptr;
        Currency currency = cad;
        std::vector<Settlement> settled{};
        Method method = wire;
        std::string number{}, user{}, cashRegister{};
        bool atCounter = false;
    };

    void pay(Day day, OpenDocument& document);
    void applyCredit(Day day, OpenDocument& credit);
    void record(const PaymentData& payment, bool creditApplication);
    void writeHeader(const PaymentData& payment, Id key, Cents total, Cents discounts, Id applied);
    void settleOthers(Day day, PaymentData& payment);
    Cents overpayment(Cents asked);
    void writeOff(Day day, Currency currency, Cents amount);
    void correct(Day day, const Customer& customer, Cents amount);
    void post(const PaymentData& payment, Id key, Cents total, Rate rate);
    Method officeMethod(Currency currency);
    Cents amountAsked(const OpenDocument& document, Day day) const;
    Cents discountFor(const OpenDocument& document, Day day) const;
    void plan(const OpenDocument& document, Day day);
    Day firstIntention(const OpenDocument& document);
    std::string paymentNumber(Method method);
    void close(Id key);

    Trade& trade_;
    Random& random_;
    std::map<Id, OpenDocument> open_;
    std::map<Day, std::vector<Id>> plans_;
    std::map<Id, std::vector<Id>> byCustomer_;
    Id lastLine_ = 0;
    Id lastAdjustment_ = 0;
    std::int64_t lastCheque_ = 4100;
    Table payments_, lines_, homeAdjustments_;
};

// When a document is due under its terms, and what of its total is due up to a day.
Day dueDate(const Term& term, Day date);
Cents dueUpTo(const Term& term, Day date, Cents total, Day day);

}  // namespace quillo::demo
