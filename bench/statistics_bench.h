#pragma once

namespace quillo::bench {

// The sales statistics of a company with 20,000 items and 500,000 invoice lines, without and with warehouses, and the
// consumption of a quarter of its items by month, on one core: how long the query takes, and the pages behind it.
void statisticsBenches();

}  // namespace quillo::bench
