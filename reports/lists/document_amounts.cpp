#include "reports/lists/document_amounts.h"

namespace quillo {

void DocumentAmounts::enterCurrency(int currencyId) {
    if (currencyId == m_lngCurrencyId) return;
    m_curCurrencyTotal = Money();
    m_lngCurrencyId = currencyId;
}

bool DocumentAmounts::show(Money amount, bool includeZero, Field& field, const LocaleFormat& locale) {
    if (amount > Money()) {
        field.Text = locale.currency(amount);
        m_curGrandTotal += amount;
        m_curCurrencyTotal += amount;
        return true;
    }
    if (includeZero) field.Text = locale.currency(Money());
    return includeZero;
}

}  // namespace quillo
