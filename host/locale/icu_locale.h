#pragma once

#include <string_view>

#include "framework/values/locale_format.h"

namespace quillo {

// The formats of a locale ("fr_CA", "en-US") as ICU writes them, with the narrow sign of the currency
// (ISO code): Canadian dollars are "$" everywhere, also where the locale's own dollars are others. Digits are always 0
// to 9, years have four. Throws InputError for a locale that ICU does not know and for a code that is no currency.
LocaleFormat makeLocaleFormat(std::string_view locale, std::string_view currencyCode);

}  // namespace quillo
