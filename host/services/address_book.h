#pragma once

#include "framework/services/services.h"
#include "host/database/sqlite_handle.h"

namespace quillo {

// Postal addresses of customers as they stand on an envelope: street; city, province and postal
// code; country. Empty when the customer has none.
class SqliteAddressBook final : public AddressBook {
public:
    explicit SqliteAddressBook(const sqlite::Database& database);
    std::string AddressOf(int customerId) override;

private:
    sqlite::Statement address_;  // kept, since a list asks for each of its rows
};

}  // namespace quillo
