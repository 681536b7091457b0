#include "reports/shared/account_distribution.h"

#include "reports/shared/account_texts.h"

namespace quillo {

void AccountDistribution::showAccount(Field& debit, Field& credit, const LocaleFormat& locale) {
    const DebitCredit net = account_.net();
    debit.Text = sideText(locale, net.debit);
    credit.Text = sideText(locale, net.credit);
    total_.add(net);
}

void AccountDistribution::showTotal(Field& debit, Field& credit, const LocaleFormat& locale) const {
    debit.Text = locale.currency(total_.debit);
    credit.Text = locale.currency(total_.credit);
}

}  // namespace quillo
