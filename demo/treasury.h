#pragma once

#include "demo/purchasing.h"

namespace quillo::demo {

// The office's money: deposits at the bank, sales taxes, wages, and the costs of the house.
class Treasury {
public:
    Treasury(Trade& trade, Purchasing& purchasing);

    void deposit(Day day);
    // What is owed to the governments, or comes back from them, at a quarter's end.
    void settleTaxes(Day day);
    void payWages(Day day);
    void payCosts(Day day);
    // Hours on projects that are not billed yet: the two accounts that job cost leaves out.
    void recordWorkInProgress(Day day);

private:
    void depositForeign(Day day);
    void settle(Day day, const char* reference, const Words& text, std::initializer_list<Account> taxAccounts);
    void expense(Day day, Account account, Id supplier, Cents amount, Id project);
    void slip(Day day, Id employee, Id project);
    void payProject(Day day, Id project);
    std::vector<Id> activeProjects(Day day) const;

    Trade& trade_;
    Random& random_;
    Purchasing& purchasing_;
    std::int64_t lastDeposit_ = 0;
    std::int64_t lastTax_ = 0;
    std::int64_t lastSlip_ = 0;
    Id lastProjectSupplier_ = 0;
    Id lastDepositLine_ = 0;
    Id lastTaxLine_ = 0;
    Table deposits_, depositLines_, taxes_, taxLines_, slips_;
};

}  // namespace quillo::demo
