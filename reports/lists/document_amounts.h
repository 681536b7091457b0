#pragma once

#include <optional>

#include "framework/engine/controls.h"
#include "framework/host/services.h"
#include "framework/values/locale_format.h"

namespace quillo {

// A document's total in the currency that the list shows, rounded to cents: in home currency by the document's own rate
// unless foreign display is asked for. Nothing when the document has no total.
std::optional<Money> documentAmount(const DataControl& row, CurrencyInfo& currencies, int homeCurrencyId,
                                    bool displayForeign);

// The amounts of a list of documents that is grouped by currency: a total of the current currency and one of all.
// Only amounts above zero count; the others print as zero, or their row is given up.
class DocumentAmounts {
public:
    // The group of a currency begins; a group of the same currency goes on with its total.
    void enterCurrency(int currencyId);
    // Puts a document's amount into its field and the totals. False: the row is to be given up.
    bool show(Money amount, bool includeZero, Field& field, const LocaleFormat& locale);

    Money currencyTotal() const { return m_curCurrencyTotal; }
    Money grandTotal() const { return m_curGrandTotal; }

private:
    Money m_curGrandTotal;
    Money m_curCurrencyTotal;
    int m_lngCurrencyId = 0;
};

}  // namespace quillo
