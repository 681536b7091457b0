#include "host/services/address_book.h"

namespace quillo {
namespace {

void appendPart(std::string& text, std::string_view part, std::string_view separator) {
    if (part.empty()) return;
    if (!text.empty()) text += separator;
    text += part;
}

}  // namespace

SqliteAddressBook::SqliteAddressBook(const sqlite::Database& database)
    : address_(database,
               "SELECT Addr.AddrLine1, Addr.AddrLine2, Addr.City, Addr.Province, Addr.PostalCode, Country.CountryName "
               "FROM Addr LEFT JOIN Country ON Country.InCountryId = Addr.ExCountryId "
               "WHERE Addr.ExCustId = ? AND COALESCE(Addr.AddrKind, 0) = 0 ORDER BY Addr.InAddrId LIMIT 1") {}

std::string SqliteAddressBook::AddressOf(int customerId) {
    address_.reset();
    address_.bind(1, customerId);
    std::string lines;
    if (address_.step()) {
        std::string place(address_.text(2));
        appendPart(place, address_.text(3), ", ");
        appendPart(place, address_.text(4), "  ");
        for (const std::string_view line :
             {address_.text(0), address_.text(1), std::string_view(place), address_.text(5)})
            appendPart(lines, line, "\n");
    }
    address_.reset();
    return lines;
}

}  // namespace quillo
