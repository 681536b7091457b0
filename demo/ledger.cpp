#include "demo/ledger.h"

#include <stdexcept>

namespace quillo::demo {

Cents Ledger::remainder() const {
    Cents sum;
    for (const auto& line : lines_) sum -= line.home;
    return sum;
}

void Ledger::post(const Posting& posting) {
    if (remainder() != Cents{}) throw std::logic_error("the transaction " + posting.description + " does not balance");
    ++lastSequence_;
    for (const auto& line : lines_) {
        if (line.home == Cents{} && line.foreign == Cents{}) continue;
        balances_[static_cast<std::size_t>(line.account)] += line.home;
        rows_.add(++lastLine_, lastSequence_, posting.date, posting.source, orNull(posting.key),
                  orNull(posting.reference), posting.description, Id{line.account}, line.home,
                  posting.currency == 1 ? Cents{} : line.foreign, posting.currency, posting.rate, orNull(line.project),
                  orNull(posting.segment), line.adjustment);
    }
    lines_.clear();
}

}  // namespace quillo::demo
