#pragma once

#include "framework/values/money.h"

namespace quillo {

// An amount of money that came in by one payment method.
struct clsPmtMeth {
    Money Amount;
};

}  // namespace quillo
