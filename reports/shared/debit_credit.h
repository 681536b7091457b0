#pragma once

#include "framework/values/money.h"

namespace quillo {

// A debit and a credit side that both grow positively, as a journal prints them.
struct DebitCredit {
    Money debit;
    Money credit;

    // A positive amount is a debit, a negative one a credit; zero is neither.
    void add(Money amount) { (amount > Money() ? debit : credit) += amount > Money() ? amount : -amount; }
    void add(const DebitCredit& other) {
        debit += other.debit;
        credit += other.credit;
    }
    // What is left on the heavier side; both are zero when the sides are equal.
    DebitCredit net() const {
        DebitCredit result;
        result.add(debit - credit);
        return result;
    }
};

}  // namespace quillo
