#pragma once

#include <sqlite3.h>

#include "host/database/watch.h"

namespace quillo::sqlite {

// Gives a connection the functions that report texts rely on: CCur (four decimals, half to even),
// CStr, ROUND (half away from zero on the decimal value), SUM (exact on decimal amounts), LIKE without
// regard to case in every script; and quillo_isnull, quillo_left, quillo_join, which the rewriting puts
// in. Throws Error. NULL gives NULL unless said otherwise. The watch, which must outlive the connection, ends what
// takes long.
void registerFunctions(sqlite3* handle, const Watch& watch);

}  // namespace quillo::sqlite
