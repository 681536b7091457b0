#include "demo/demo_company.h"

#include "demo/counter.h"
#include "demo/masters.h"
#include "demo/treasury.h"
#include "framework/values/errors.h"
#include "host/company/new_company_file.h"
#include "host/database/company_schema.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace quillo {
namespace demo {
namespace {

// Rates of most working days, wandering inside a band; the other days have none of their own.
class RateBoard {
public:
    explicit RateBoard(Trade& trade) : trade_(trade), rows_(trade.database, "ExchangeRateByDay") {}

    void openDay(Day day) {
        step(usd, trade_.usdRate, 12900, 14400, day);
        step(eur, trade_.eurRate, 14100, 15900, day);
    }

private:
    void step(Currency currency, Rate& rate, std::int64_t low, std::int64_t high, Day day) {
        if (day != firstDay && trade_.random.chance(30)) return;
        rate.n = std::clamp(rate.n + trade_.random.between(-60, 60), low, high);
        rows_.add(Id{currency}, day, rate);
    }
    Trade& trade_;
    Table rows_;
};

// The company day by day.
class Years {
public:
    Years(Trade& trade, const sqlite::Watch& watch)
        : trade_(trade),
          watch_(watch),
          rates_(trade),
          receivables_(trade),
          sales_(trade, receivables_),
          counter_(trade, sales_, receivables_),
          purchasing_(trade),
          treasury_(trade, purchasing_) {}

    void run() {
        rates_.openDay(firstDay);
        purchasing_.openBooks(firstDay);
        for (Day day = firstDay + 1; day <= lastDay; day = day + 1) {
            if (watch_.stopped()) throw RunStopped();
            trade_.today = day;
            if (day.isWorkday()) workday(day);
            if (day.weekday() != 0) counter_.openDay(day);
            receivables_.payDay(day);
            if (day.isWorkday()) receivables_.payOnAccount(day);
            if (day.weekday() == 5) treasury_.deposit(day);
            if (day.isMonthEnd()) monthEnd(day);
        }
    }

private:
    void workday(Day day) {
        rates_.openDay(day);
        if (day.weekday() == 1 || trade_.scale > 1) purchasing_.restock(day);
        if (day.weekday() == 3) purchasing_.assemble(day);
        purchasing_.paySuppliers(day);
        sales_.officeDay(day);
        if (day.weekday() == 4 && day.n / 7 % 2 == 0) treasury_.payWages(day);
    }

    void monthEnd(Day day) {
        sales_.chargeInterest(day);
        treasury_.payCosts(day);
        treasury_.recordWorkInProgress(day);
        if (day.month() % 3 == 0) receivables_.adjust(day);
        if (day.month() % 3 == 1) treasury_.settleTaxes(day);
        if (day.month() == 12) yearEnd(day);
    }

    void yearEnd(Day day) {
        if (day.year() == 2023) purchasing_.closeLaval(day);
        purchasing_.count(day);
        for (auto& item : trade_.items) item.price = {item.price.n * 103 / 100};
    }

    Trade& trade_;
    const sqlite::Watch& watch_;
    RateBoard rates_;
    Receivables receivables_;
    Sales sales_;
    Counter counter_;
    Purchasing purchasing_;
    Treasury treasury_;
};

// Rows load several times faster into tables without indexes.
std::vector<std::string> dropIndexes(sqlite::Database& database) {
    std::vector<std::string> texts, names;
    sqlite::Statement all(
        database, "SELECT name, sql FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL ORDER BY rowid");
    while (all.step()) {
        names.emplace_back(all.text(0));
        texts.emplace_back(all.text(1));
    }
    for (const auto& name : names) database.execute("DROP INDEX " + name);
    return texts;
}

void fill(const std::string& path, const DemoOptions& options) {
    sqlite::Database database(path, sqlite::Open::readWrite, options.stop);
    database.execute(
        "PRAGMA page_size = 4096; PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA cache_size = -65536");
    database.execute("BEGIN");
    database.execute(std::string(companySchema()));
    const auto indexes = dropIndexes(database);
    {
        Trade trade(database, options.seed, options.scale, options.french);
        writeReferences(trade);
        writeGoods(trade);
        writeCustomers(trade);
        writePartners(trade);
        Years(trade, database.watch()).run();
    }
    for (const auto& text : indexes) database.execute(text);
    database.execute("COMMIT");
}

}  // namespace
}  // namespace demo

void writeDemoCompany(const std::string& path, const DemoOptions& options) {
    if (options.scale < 1) throw std::invalid_argument("the scale of the demo company must be 1 or more");
    if (std::filesystem::exists(path)) throw std::runtime_error(path + " is there already");
    NewCompanyFile file(path);
    demo::fill(file.name(), options);
    file.publish();
}

}  // namespace quillo
