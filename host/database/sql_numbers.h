#pragma once

#include "host/database/sql_tree.h"

namespace quillo::sql {

// Has each column, call and CASE that is added, subtracted, multiplied or divided looked at by quillo_number(), which
// fails for what is no number: by itself SQLite counts a text or a blob as 0. To be called after rewriteChains, which
// tells sums from joined texts.
void guardNumbers(Nodes& nodes);

}  // namespace quillo::sql
