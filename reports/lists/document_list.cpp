#include "reports/lists/document_list.h"

namespace quillo {

void DocumentList::enterCurrency(int currencyId) {
    if (currencyId == m_lngCurrencyId) return;
    m_curCurrencyTotal = Money();
    m_lngCurrencyId = currencyId;
}

double DocumentList::factor(const DataControl& row, CurrencyInfo& currencies, bool displayForeign) const {
    const bool converts = currencies.CieIsForeignCurrencyUsed() &&
                          row.Collect("ExCurrencyId").int32OrZero() != m_lngHomeCurrencyId && !displayForeign;
    return converts ? row.Collect("ExchangeRate").toDouble() : 1.0;
}

bool DocumentList::show(const DataControl& row, double factor, Field& field, const LocaleFormat& locale) {
    const Variant total = row.Collect("TotAmnt");
    if (total.isNull()) return true;
    const Money amount = roundProduct(total.toMoney(), factor, 2);
    if (amount > Money()) {
        field.Text = locale.currency(amount);
        m_curGrandTotal += amount;
        m_curCurrencyTotal += amount;
        return true;
    }
    if (m_bIncludeZeroOrders) field.Text = locale.currency(Money());
    return m_bIncludeZeroOrders;
}

}  // namespace quillo
