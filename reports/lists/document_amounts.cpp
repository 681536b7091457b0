#include "reports/lists/document_amounts.h"

namespace quillo {

std::optional<Money> documentAmount(const DataControl& row, CurrencyInfo& currencies, int homeCurrencyId,
                                    bool displayForeign) {
    const Variant total = row.Collect("TotAmnt");
    if (total.isNull()) return std::nullopt;
    const bool converts = currencies.CieIsForeignCurrencyUsed() &&
                          row.Collect("ExCurrencyId").int32OrZero() != homeCurrencyId && !displayForeign;
    const double factor = converts ? row.Collect("ExchangeRate").toDouble() : 1.0;
    return roundProduct(total.toMoney(), factor, 2);
}

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
