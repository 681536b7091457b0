#include "host/services/address_book.h"

namespace quillo {
namespace {

void appendPart(std::string& text, std::string_view part, std::string_view separator) {
    if (part.empty()) return;
    if (!text.empty()) text += separator;
    text += part;
}

sqlite::Statement addresses(const sqlite::Database& database, std::string_view whose) {
    return {database,
            "SELECT Addr.AddrLine1, Addr.AddrLine2, Addr.City, Addr.Province, Addr.PostalCode, Country.CountryName, "
            "Addr.AddrName FROM Addr LEFT JOIN Country ON Country.InCountryId = Addr.ExCountryId WHERE " +
                std::string(whose) + " AND COALESCE(Addr.AddrKind, 0) = 0 ORDER BY Addr.InAddrId LIMIT 1"};
}

std::string linesOf(const sqlite::Statement& row) {
    std::string place(row.text(2)), lines;
    appendPart(place, row.text(3), ", ");
    appendPart(place, row.text(4), "  ");
    for (const std::string_view line : {row.text(0), row.text(1), std::string_view(place), row.text(5)})
        appendPart(lines, line, "\n");
    return lines;
}

}  // namespace

SqliteAddressBook::SqliteAddressBook(const sqlite::Database& database)
    : database_(database), address_(addresses(database, "Addr.ExCustId = ?")) {}

std::string SqliteAddressBook::AddressOf(int customerId) {
    address_.reset();
    address_.bind(1, customerId);
    const std::string lines = address_.step() ? linesOf(address_) : "";
    address_.reset();
    return lines;
}

std::string SqliteAddressBook::companyAddress() {
    sqlite::Statement row = addresses(database_, "Addr.ExCustId IS NULL");
    if (!row.step()) return {};
    std::string lines(row.text(6));
    appendPart(lines, linesOf(row), "\n");
    return lines;
}

}  // namespace quillo
