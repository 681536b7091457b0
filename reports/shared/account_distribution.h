#pragma once

#include "framework/engine/controls.h"
#include "framework/values/locale_format.h"
#include "reports/shared/debit_credit.h"

namespace quillo {

// How the journals distribute their postings by account: each account nets to one side, and the sides are totalled. It
// sums what is stored, unlike the journals' bodies, which sum rounded amounts: meant, an account shows its books. A
// part of the sub-report that owns it.
class AccountDistribution {
public:
    void start() {
        total_ = {};
        begun_ = true;
    }
    // Whether the distribution prints by now: the journal above it is at its end.
    bool begun() const { return begun_; }
    void openAccount() { account_ = {}; }
    // A posting of the account, debit positive.
    void add(Money amount) { account_.add(amount); }
    // The account's net side as text; one whose sides are equal keeps its line, with both blank. Adds to the total.
    void showAccount(Field& debit, Field& credit, const LocaleFormat& locale);
    void showTotal(Field& debit, Field& credit, const LocaleFormat& locale) const;

private:
    DebitCredit account_;
    DebitCredit total_;
    bool begun_ = false;
};

}  // namespace quillo
