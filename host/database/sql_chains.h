#pragma once

#include "host/database/sql_tree.h"

namespace quillo::sql {

// Says chains of + and & that join texts, and the functions IsNull and LEFT, in SQLite's way, in the
// list and in all groups below it.
void rewriteChains(Nodes& nodes);

// A word that ends an expression, and is no name of a column or a function.
bool isKeyword(const Node& node);

}  // namespace quillo::sql
