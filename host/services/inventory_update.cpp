#include "host/services/inventory_update.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "host/services/stock_movements.h"

namespace quillo {
namespace {

// Whether it is the file that does not take any change now.
bool refusesToBeWritten(const sqlite::Error& failure) {
    const int codes[] = {SQLITE_BUSY, SQLITE_LOCKED, SQLITE_READONLY, SQLITE_CANTOPEN, SQLITE_PERM, SQLITE_FULL};
    return std::ranges::find(codes, failure.code & 0xFF) != std::end(codes);
}

struct Lacking {
    std::int64_t key;
    Quantity count;
    Money average, last;
};

// All is read before any of it is written, since a walk over rows that change is none.
std::vector<Lacking> lackingMovements(const sqlite::Database& database) {
    std::vector<Lacking> found;
    StockMovements movements(database, StockMovements::Of::itemsThatLack);
    while (movements.next())
        if (movements.lacks())
            found.push_back({movements.key(), movements.count(), movements.average(), movements.last()});
    return found;
}

void fillIn(const sqlite::Database& database) {
    const std::vector<Lacking> movements = lackingMovements(database);
    sqlite::Statement update(database,
                             "UPDATE InvenDet SET RunningQty = COALESCE(RunningQty, ?2), RunningAvgCost = "
                             "COALESCE(RunningAvgCost, ?3), RunningLastCost = COALESCE(RunningLastCost, ?4) "
                             "WHERE InTrxId = ?1");
    for (const Lacking& one : movements)
        update.bind(1, one.key)
            .bind(2, one.count.toDouble())
            .bind(3, one.average.toDouble())
            .bind(4, one.last.toDouble())
            .run();
    sqlite::Statement(database,
                      "INSERT INTO Parameter (Section, Name, Value) "
                      "SELECT '', 'StockUpToDate', MAX(DetDate) FROM InvenDet WHERE TRUE "
                      "ON CONFLICT DO UPDATE SET Value = MAX(COALESCE(Value, ''), excluded.Value)")
        .run();
}

std::optional<Date> dayOf(const sqlite::Database& database, std::string_view query) {
    sqlite::Statement row(database, query);
    return row.step() ? Date::parseIsoDay(row.text(0)) : std::nullopt;
}

}  // namespace

bool SqliteInventoryUpdate::Update(int, bool) {
    if (IsUpToDate()) return true;
    try {
        sqlite::Database database(file_.path(), sqlite::Open::readWrite, file_.stopFlag());
        database.execute("BEGIN IMMEDIATE");
        fillIn(database);
        database.execute("COMMIT");
        file_.database().reread();
        return true;
    } catch (const sqlite::Error& failure) {
        if (!refusesToBeWritten(failure)) throw;
        return false;
    }
}

bool SqliteInventoryUpdate::IsUpToDate() {
    sqlite::Statement row(file_.handle(),
                          std::string("SELECT 1 FROM InvenDet WHERE ").append(movementLacks).append(" LIMIT 1"));
    return !row.step();
}

Date SqliteInventoryUpdate::LastUpdateDate() {
    const auto told = Date::parseIsoDay(company_.GetParameter("StockUpToDate", ""));
    const auto lacking =
        dayOf(file_.handle(), std::string("SELECT MIN(DetDate) FROM InvenDet WHERE ").append(movementLacks));
    if (lacking) return std::min(told.value_or(noEndLimit), Date{lacking->days - 1});
    if (told) return *told;
    return dayOf(file_.handle(), "SELECT MAX(DetDate) FROM InvenDet").value_or(noDate);
}

}  // namespace quillo
