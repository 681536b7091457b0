#pragma once

#include <string>

#include "framework/values/money.h"

namespace quillo {

// What the receipts summary tells the sub-reports of a row.
struct ReceiptRow {
    Money ExchangeRate;
    bool DisplayWithForeignCurrency = false;
    std::string SeqNo;  // the drill tag of every line
};

}  // namespace quillo
