#pragma once

#include "framework/services/services.h"
#include "host/database/sqlite_handle.h"

namespace quillo {

// Postal addresses as they stand on an envelope: street; city, province and postal code; country. Empty when there is
// none.
class SqliteAddressBook final : public AddressBook {
public:
    explicit SqliteAddressBook(const sqlite::Database& database);
    std::string AddressOf(int customerId) override;
    // The company's own, with its name above.
    std::string companyAddress();

private:
    const sqlite::Database& database_;
    sqlite::Statement address_;  // kept, since a list asks for each of its rows
};

}  // namespace quillo
