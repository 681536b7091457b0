#pragma once

#include <optional>

#include "framework/run_frame.h"

namespace quillo {

// What the two lists of documents do alike: amounts in the currency that the list shows, totals by currency, and the
// option whether documents without an amount are listed. A part of the list that owns it.
class DocumentList {
public:
    // The home currency's id, which the amounts are converted to.
    void setHomeCurrency(int currencyId) { m_lngHomeCurrencyId = currencyId; }

    // The group of a currency begins; a group of the same currency goes on with its total.
    void enterCurrency(int currencyId);
    // What a document's amount counts in home currency: its own rate, and 1 where it is in home currency or foreign
    // display is asked for. Throws ConversionError for a document without a rate.
    double factor(const DataControl& row, CurrencyInfo& currencies, bool displayForeign) const;
    // Puts a document's total, rounded to cents, into its field and the totals. Only amounts above zero count; the
    // others print as zero. False: the option gives up their row. A document without a total prints none.
    bool show(const DataControl& row, double factor, Field& field, const LocaleFormat& locale);

    Money currencyTotal() const { return m_curCurrencyTotal; }
    Money grandTotal() const { return m_curGrandTotal; }

    // The option as the dialog's box shows it, and as it comes back.
    bool includesZero() const { return m_bIncludeZeroOrders; }
    void includeZero(bool value) { m_bIncludeZeroOrders = value; }

private:
    Money m_curGrandTotal;
    Money m_curCurrencyTotal;
    int m_lngCurrencyId = 0;
    int m_lngHomeCurrencyId = 0;
    bool m_bIncludeZeroOrders = true;
};

}  // namespace quillo
