#include "demo/masters.h"

namespace quillo::demo {
namespace {

std::vector<Term> makeTerms() {
    const auto season = [](int year) {
        return std::vector<Instalment>{{Percent{50000}, Day::of(year, 6, 15)},
                                       {Percent{30000}, Day::of(year, 8, 15)},
                                       {Percent{20000}, Day::of(year, 10, 15)}};
    };
    return {
        {1, "NET30", "Net 30 days", 1, 30, Percent{0}, 0, 0},
        {2, "2-10N30", "2 % 10 days, net 30 days", 1, 30, Percent{2000}, 10, 0},
        {3, "NET60", "Net 60 days", 1, 60, Percent{0}, 0, 0},
        {4, "15TH", "On the 15th of the following month", 4, 15, Percent{0}, 0, 25},
        {5, "EOM1", "End of the following month, 1 % 10 days", 4, 31, Percent{1000}, 10, 31},
        {6, "SEAS23", "Season 2023, three fixed dates", 2, {}, {}, {}, {}, season(2023)},
        {7, "SEAS24", "Season 2024, three fixed dates", 2, {}, {}, {}, {}, season(2024)},
        {8, "SEAS25", "Season 2025, three fixed dates", 2, {}, {}, {}, {}, season(2025)},
        {9,
         "3X30",
         "Three instalments: 30, 60 and 90 days",
         3,
         {},
         {},
         {},
         {},
         {{Percent{33340}, {}, 30}, {Percent{33330}, {}, 60}, {Percent{33330}, {}, 90}}},
        {10,
         "50-50",
         "Half in 15 days, half in 45 days",
         3,
         {},
         {},
         {},
         {},
         {{Percent{50000}, {}, 15}, {Percent{50000}, {}, 45}}},
        {11, "COD", "Cash on delivery", 1, 0, Percent{0}, 0, 0},
        {12, "AGREED", "By agreement", {}, {}, {}, {}, {}},
    };
}

void writeTerms(Trade& trade) {
    trade.terms = makeTerms();
    Table terms(trade.database, "Term");
    Table schedule(trade.database, "PaymentSchedule");
    for (const auto& term : trade.terms) {
        terms.add(term.id, term.code, term.description, term.mode, term.due, term.discount, term.discountDays,
                  term.nextMonthAfter);
        int position = 0;
        for (const auto& part : term.instalments)
            schedule.add(term.id, ++position, part.share, part.date,
                         part.date ? std::nullopt : std::optional(part.days));
    }
}

void writeCodes(const sqlite::Database& database) {
    Table currencies(database, "WorldCurrency");
    currencies.add(Id{usd}, "USD", "US dollar");
    currencies.add(Id{eur}, "EUR", "Euro");
    Table countries(database, "Country");
    countries.add(1, "CA", "Canada");
    countries.add(2, "US", "United States");
    countries.add(3, "FR", "France");
    Table taxes(database, "TaxGroup");
    taxes.add(1, "TPS-TVQ", "GST 5 % and QST 9.975 %");
    taxes.add(2, "HST-ON", "HST Ontario 13 %");
    taxes.add(3, "EXPORT", "Zero-rated exports");
    Table levels(database, "PriceLevel");
    levels.add(1, "LIST", "List price");
    levels.add(2, "CONTR", "Contractor price");
    Table methods(database, "PmtMeth");
    const char* const names[] = {"Cash",        "Cheque",        "Debit card",
                                 "Credit card", "Bank transfer", "Pre-authorized debit"};
    Id method = 0;
    for (const char* name : names) methods.add(++method, name);
    Table segments(database, "Segment");
    segments.add(Id{retail}, "RET", "Retail / Détail");
    segments.add(Id{contractors}, "CON", "Contractors / Entrepreneurs");
    segments.add(Id{exportSales}, "EXP", "Export");
}

void writeLedgerAccounts(const sqlite::Database& database) {
    Table rows(database, "GLAcct");
    Id key = 0;
    for (const auto& account : accounts()) rows.add(++key, account.code, account.description, account.cash);
    Table groups(database, "AccountGroup");
    for (const auto currency : {cad, usd, eur}) groups.add("CustGLAR", Id{currency}, Id{receivableAccount(currency)});
    groups.add("StockGL", Id{cad}, Id{inventory});
}

// The fiscal year starts in April, so that fiscal periods and calendar months do not agree by chance.
void writeCalendar(const sqlite::Database& database) {
    Table years(database, "FiscalYear");
    Table periods(database, "FiscalPeriod");
    Id key = 0;
    for (int year = 2021; year <= 2026; ++year) {
        const Day start = Day::of(year, 4, 1);
        years.add(++key, std::to_string(year) + "-" + std::to_string(year + 1), start, dayInMonth(start, 11, 31));
        for (int period = 0; period < 12; ++period)
            periods.add(key, period + 1, dayInMonth(start, period, 1), dayInMonth(start, period, 31));
    }
}

void writeCashier(const sqlite::Database& database) {
    Table users(database, "CashierUser");
    for (const char* user : {"Chantal", "Kevin", "Nadia", "Olivier"}) users.add(user, user, false);
    Table registers(database, "CashRegister");
    registers.add("MTL-01", "Montréal, main counter", Id{montreal});
    registers.add("MTL-02", "Montréal, contractors' counter", Id{montreal});
    registers.add("QC-01", "Québec", Id{quebec});
    Table parameters(database, "CashierParameter");
    parameters.add(3, "CashPmtMethId", "1");
    parameters.add(3, "OpeningAmount", "200.00");
    parameters.add(3, "OpeningAmount.USD", "50.00");
}

void writeFacts(const sqlite::Database& database) {
    const auto fact = [&](const char* name, std::string_view value) {
        sqlite::Statement(database, "UPDATE CompanyFact SET Value = ?2 WHERE Name = ?1")
            .bind(1, name)
            .bind(2, value)
            .run();
    };
    fact("Name", "Matériaux et cuisines Vert-Coteau inc.");
    fact("UsesForeignCurrency", "1");
    fact("DefaultWarehouseId", "1");
    Table addresses(database, "Addr");
    addresses.add(1, nullptr, 0, "Matériaux et cuisines Vert-Coteau inc.", "2480, boul. du Vert-Coteau", "Bureau 300",
                  "Montréal", "QC", "H2P 1A4", 1);
    Table parameters(database, "Parameter");
    parameters.add("", "CustPriod1", "30");
    parameters.add("", "CustPriod2", "60");
    parameters.add("", "CustPriod3", "90");
    parameters.add("", "CustIncPaidInv", "0");
    parameters.add("", "UseAccountNumbers", "1");
    parameters.add("", "CostCalculMeth", "0");
    parameters.add("", "StockUpToDate", lastDay);
    parameters.add("KorvaAcctParams", "WIPGLBankAccount", std::to_string(timeBank));
    parameters.add("KorvaAcctParams", "WIPGLUnrecordedServiceAccount", std::to_string(unrecordedService));
}

}  // namespace

void writeReferences(Trade& trade) {
    writeFacts(trade.database);
    writeCodes(trade.database);
    writeLedgerAccounts(trade.database);
    writeTerms(trade);
    writeCalendar(trade.database);
    writeCashier(trade.database);
}

void writePartners(Trade& trade) {
    Table people(trade.database, "Empl");
    Id key = 0;
    for (const auto& person : employees()) {
        const auto commission = person.commission < 0 ? std::nullopt : std::optional(Percent{person.commission * 1000});
        people.add(key + 1, "E" + std::to_string(101 + key), person.first, person.last, commission, false);
        ++key;
    }
    Table partners(trade.database, "Supp");
    const auto names = firstNames();
    const auto family = surnames();
    key = 0;
    for (const char* name : suppliers()) {
        ++key;
        const std::string contact = std::string(trade.random.pick(names)) + " " + trade.random.pick(family);
        partners.add(key, "F" + std::to_string(1000 + key * 10), name, contact,
                     "514 555-" + std::to_string(trade.random.between(1000, 9999)), false);
    }
    Table rows(trade.database, "ProjInfo");
    key = 0;
    const auto estimate = [](std::int64_t amount) { return amount == 0 ? std::nullopt : std::optional(Cents{amount}); };
    for (const auto& project : projects()) {
        const Day start = dayInMonth(firstDay, project.startMonth, 15);
        const auto hours = project.hours == 0 ? std::nullopt : std::optional(units(project.hours));
        rows.add(++key, project.code, project.description, start, dayInMonth(start, project.months, 15),
                 estimate(project.sales), estimate(project.purchases), hours, false);
    }
    rows.add(++key, "~Inconnu~", "Projet inconnu", nullptr, nullptr, nullptr, nullptr, nullptr, true);
}

}  // namespace quillo::demo
