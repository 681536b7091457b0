#pragma once

#include "demo/catalogue.h"
#include "demo/table.h"

#include <array>
#include <string>
#include <vector>

namespace quillo::demo {

// What the lines of one transaction share.
struct Posting {
    Day date;
    const char* source;
    Id key;
    std::string reference;
    std::string description;
    Id currency = 1;
    Rate rate{};
    Id segment = 0;
};

// The general ledger: lines are gathered and posted as one transaction, which must balance.
class Ledger {
public:
    explicit Ledger(const sqlite::Database& database) : rows_(database, "GLDet") {}

    // A debit is positive. foreign is the same amount in the transaction's currency, when it is not home.
    void line(Account account, Cents home, Cents foreign = {}, Id project = 0) {
        lines_.push_back({account, home, foreign, project, false});
    }
    // A line on a receivables account that belongs to no document.
    void adjustmentLine(Account account, Cents home, Cents foreign = {}) {
        lines_.push_back({account, home, foreign, 0, true});
    }
    // What the lines gathered so far lack to balance.
    Cents remainder() const;
    // Writes the lines under the next sequence number; throws std::logic_error when they do not balance.
    void post(const Posting& posting);
    Cents balance(Account account) const { return balances_[static_cast<std::size_t>(account)]; }

private:
    struct Line {
        Account account;
        Cents home, foreign;
        Id project;
        bool adjustment;
    };
    std::vector<Line> lines_;
    std::array<Cents, 64> balances_{};
    Id lastLine_ = 0;
    Id lastSequence_ = 0;
    Table rows_;
};

}  // namespace quillo::demo
