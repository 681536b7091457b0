#pragma once

#include "host/database/host_rows.h"
#include "host/database/row_set.h"

namespace quillo {

// A look-up whose rows are held in memory. Recordsets made from it share the rows and walk on their own.
class MemoryHostRecordset final : public HostRows {
public:
    explicit MemoryHostRecordset(RowSet rows);
};

}  // namespace quillo
