#include "reports/shared/journal_columns.h"

namespace quillo {

void JournalColumns::place(const Place& debit, const Place& credit) const {
    const auto put = [](const std::vector<Control*>& column, const Place& place) {
        for (Control* control : column) control->Left = place.left, control->Width = place.width;
    };
    put(debits, debit);
    put(credits, credit);
    for (Line* rule : rules) {
        rule->X1 = debit.left;
        rule->X2 = credit.left + credit.width;
    }
}

}  // namespace quillo
