#pragma once

#include "demo/sales.h"

namespace quillo::demo {

// The cash registers: sales over the counter, payments of accounts, and the drawers' deposits, two shifts a day.
class Counter {
public:
    Counter(Trade& trade, Sales& sales, Receivables& receivables)
        : trade_(trade),
          random_(trade.random),
          sales_(sales),
          receivables_(receivables),
          deposits_(trade.database, "InvoiCashDeposit") {}

    void openDay(Day day);

private:
    struct Shift {
        const char* user;
        const char* cashRegister;
        Warehouse warehouse;
        int begins, ends;        // minutes of the day
        Cents dollars, foreign;  // what came into the drawer
    };
    void work(Day day, Shift& shift);
    std::int64_t salesOf(Day day);
    void sell(Day day, Shift& shift, int minute);
    const Customer& chooseCustomer(Day day, const Shift& shift);
    void bringBack(SaleDocument& document);
    void takeDeposit(SaleDocument& document);
    void takeMoney(SaleDocument& document, Shift& shift);
    void payCash(SaleDocument& document, Shift& shift, Cents amount);
    void emptyDrawer(Day day, const Shift& shift);

    Trade& trade_;
    Random& random_;
    Sales& sales_;
    Receivables& receivables_;
    Id lastDeposit_ = 0;
    Table deposits_;
};

}  // namespace quillo::demo
