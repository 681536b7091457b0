#include "reports/shared/account_texts.h"

namespace quillo {

bool usesAccountNumbers(HostContext& context) {
    return Variant(context.company().GetParameter("UseAccountNumbers", "True")).toBool();
}

void takePlaceOf(Control& number, Control& description) {
    number.Visible = false;
    description.Width += description.Left - number.Left;
    description.Left = number.Left;
}

std::string sideText(const LocaleFormat& locale, Money amount) {
    return amount.isZero() ? std::string() : locale.currency(amount);
}

}  // namespace quillo
