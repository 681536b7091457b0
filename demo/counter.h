#pragma once

#include "demo/sales.h"

namespace quillo::demo {

// The cash registers: sales over the counter, payments of accounts, and the drawers' deposits.
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
    struct Post {
        const char* user;
        const char* cashRegister;
        Warehouse warehouse;
        Cents dollars, foreign;  // in the drawer since the morning
    };
    void sell(Day day, Post& post, int minute);
    void takeMoney(SaleDocument& document, Post& post);
    void payCash(SaleDocument& document, Post& post, Cents amount);
    void emptyDrawer(Day day, const Post& post);

    Trade& trade_;
    Random& random_;
    Sales& sales_;
    Receivables& receivables_;
    Id lastDeposit_ = 0;
    Table deposits_;
};

}  // namespace quillo::demo
