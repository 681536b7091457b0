#include "demo/masters.h"

namespace quillo::demo {
namespace {

// clang-format off
std::vector<Term> makeTerms() {
    const auto season = [](int year) {
        return std::vector<Instalment>{{Percent{50000}, Day::of(year, 6, 15)},
                                       {Percent{30000}, Day::of(year, 8, 15)},
                                       {Percent{20000}, Day::of(year, 10, 15)}};
    };
    std::vector<Term> terms{
        {1, "NET30", {"Net 30 days", "Net 30 jours"}, 1, 30, Percent{0}, 0, 0},
        {2, "2-10N30", {"2 % 10 days, net 30 days", "2 % 10 jours, net 30 jours"}, 1, 30, Percent{2000}, 10, 0},
        {3, "NET60", {"Net 60 days", "Net 60 jours"}, 1, 60, Percent{0}, 0, 0},
        {4, "15TH", {"On the 15th of the following month", "Le 15 du mois suivant"}, 4, 15, Percent{0}, 0, 25},
        {5, "EOM1", {"End of the following month, 1 % 10 days", "Fin du mois suivant, 1 % 10 jours"}, 4, 31, Percent{1000}, 10, 31},
        {6, "SEAS23", {"Season 2023, three fixed dates", "Saison 2023, trois dates fixes"}, 2, {}, {}, {}, {}, season(2023)},
        {7, "SEAS24", {"Season 2024, three fixed dates", "Saison 2024, trois dates fixes"}, 2, {}, {}, {}, {}, season(2024)},
        {8, "SEAS25", {"Season 2025, three fixed dates", "Saison 2025, trois dates fixes"}, 2, {}, {}, {}, {}, season(2025)},
        {9, "SEAS26", {"Season 2026, three fixed dates", "Saison 2026, trois dates fixes"}, 2, {}, {}, {}, {}, season(2026)},
        {10, "3X30", {"Three instalments: 30, 60 and 90 days", "Trois versements : 30, 60 et 90 jours"}, 3},
        {11, "50-50", {"Half in 15 days, half in 45 days", "Moitié à 15 jours, moitié à 45 jours"}, 3},
        {12, "COD", {"Cash on delivery", "Payable à la livraison"}, 1, 0, Percent{0}, 0, 0},
        {13, "AGREED", {"By agreement", "Selon entente"}},
    };
    terms[9].instalments = {{Percent{33340}, {}, 30}, {Percent{33330}, {}, 60}, {Percent{33330}, {}, 90}};
    terms[10].instalments = {{Percent{50000}, {}, 15}, {Percent{50000}, {}, 45}};
    return terms;
}
// clang-format on

void writeTerms(Trade& trade) {
    trade.terms = makeTerms();
    Table terms(trade.database, "Term");
    Table schedule(trade.database, "PaymentSchedule");
    for (const auto& term : trade.terms) {
        terms.add(term.id, term.code, trade.words.name(term.description), term.mode, term.due, term.discount,
                  term.discountDays, term.nextMonthAfter);
        int position = 0;
        for (const auto& part : term.instalments)
            schedule.add(term.id, ++position, part.share, part.date,
                         part.date ? std::nullopt : std::optional(part.days));
    }
}

void rename(Trade& trade, const char* statement, Id key, const Words& words) {
    sqlite::Statement(trade.database, statement).bind(1, trade.words.name(words)).bind(2, key).run();
}

// What a new company starts with is in English.
void renameStartingWords(Trade& trade) {
    if (!trade.words.french()) return;
    constexpr const char* kind = "UPDATE InvoiType SET Description = ?1 WHERE ID = ?2";
    rename(trade, kind, 1, {"Invoice", "Facture"});
    rename(trade, kind, 2, {"Cash sale", "Vente au comptant"});
    rename(trade, kind, 3, {"Credit note", "Note de crédit"});
    rename(trade, kind, 4, {"Interest charge", "Frais d'intérêt"});
    rename(trade, kind, 50, {"Quote", "Soumission"});
    rename(trade, kind, 51, {"Order", "Commande"});
    constexpr const char* language = "UPDATE KorvaLanguages SET DisplayName = ?1 WHERE ID = ?2";
    rename(trade, language, 1, {"English", "Anglais"});
    rename(trade, language, 2, {"French", "Français"});
}

void writeCurrencies(Trade& trade) {
    rename(trade, "UPDATE WorldCurrency SET Descr = ?1 WHERE InCurrencyId = ?2", cad,
           {"Canadian dollar", "Dollar canadien"});
    Table currencies(trade.database, "WorldCurrency");
    currencies.add(Id{usd}, "USD", trade.words.name({"US dollar", "Dollar américain"}));
    currencies.add(Id{eur}, "EUR", trade.words.name({"Euro", "Euro"}));
}

void writeCodes(Trade& trade) {
    Table countryRows(trade.database, "Country");
    const char* const codes[] = {"CA", "US", "FR", "BE", "DE"};
    Id key = 0;
    for (const auto& country : countries()) {
        countryRows.add(key + 1, codes[key], trade.words.name(country));
        ++key;
    }
    Table methodRows(trade.database, "PmtMeth");
    key = 0;
    for (const auto& method : methods()) methodRows.add(++key, trade.words.name(method));
    Table taxes(trade.database, "TaxGroup");
    taxes.add(1, "TPS-TVQ", trade.words.name({"GST 5 % and QST 9.975 %", "TPS 5 % et TVQ 9,975 %"}));
    taxes.add(2, "HST-ON", trade.words.name({"HST Ontario 13 %", "TVH Ontario 13 %"}));
    taxes.add(3, "EXPORT", trade.words.name({"Zero-rated exports", "Exportations détaxées"}));
    Table levels(trade.database, "PriceLevel");
    levels.add(1, "LIST", trade.words.name({"List price", "Prix courant"}));
    levels.add(2, "CONTR", trade.words.name({"Contractor price", "Prix d'entrepreneur"}));
    Table segments(trade.database, "Segment");
    segments.add(Id{retail}, "RET", trade.words.name({"Retail", "Détail"}));
    segments.add(Id{contractors}, "CON", trade.words.name({"Contractors", "Entrepreneurs"}));
    segments.add(Id{exportSales}, "EXP", trade.words.name({"Export", "Exportation"}));
}

void writeLedgerAccounts(Trade& trade) {
    Table rows(trade.database, "GLAcct");
    Id key = 0;
    for (const auto& account : accounts())
        rows.add(++key, account.code, trade.words.name(account.description), account.cash);
    Table groups(trade.database, "AccountGroup");
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

void writeCashier(Trade& trade) {
    Table users(trade.database, "CashierUser");
    for (const char* user : {"Chantal", "Kevin", "Nadia", "Olivier", "Sylvie"}) users.add(user, user, false);
    users.add("Lucie", "Lucie", true);
    Table registers(trade.database, "CashRegister");
    registers.add("MTL-01", trade.words.say({"Montréal, main counter", "Montréal, comptoir principal"}), Id{montreal});
    registers.add("MTL-02", trade.words.say({"Montréal, contractors' counter", "Montréal, comptoir des entrepreneurs"}),
                  Id{montreal});
    registers.add("QC-01", "Québec", Id{quebec});
    Table parameters(trade.database, "CashierParameter");
    parameters.add(3, "CashPmtMethId", "1");
    parameters.add(3, "OpeningAmount", "200.00");
    parameters.add(3, "OpeningAmount.USD", "50.00");
}

void writeFacts(const Trade& trade) {
    const sqlite::Database& database = trade.database;
    const auto fact = [&](const char* name, std::string_view value) {
        sqlite::Statement(database, "UPDATE CompanyFact SET Value = ?2 WHERE Name = ?1")
            .bind(1, name)
            .bind(2, value)
            .run();
    };
    fact("Name", "Matériaux et cuisines Vert-Coteau inc.");
    fact("UsesForeignCurrency", "1");
    fact("DefaultWarehouseId", "1");
    if (trade.words.french()) {
        fact("Language", "fr");
        fact("Locale", "fr_CA");
    }
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
    writeFacts(trade);
    renameStartingWords(trade);
    writeCurrencies(trade);
    writeCodes(trade);
    writeLedgerAccounts(trade);
    writeTerms(trade);
    writeCalendar(trade.database);
    writeCashier(trade);
}

namespace {

void writeEmployees(const sqlite::Database& database) {
    Table people(database, "Empl");
    Id key = 0;
    for (const auto& person : employees()) {
        ++key;
        if (!person.onFile) continue;
        const auto commission = person.commission < 0 ? std::nullopt : std::optional(Percent{person.commission * 1000});
        people.add(key, "E" + std::to_string(100 + key), person.first, person.last, commission, person.left <= lastDay);
    }
}

void writeSuppliers(Trade& trade) {
    Table partners(trade.database, "Supp");
    const auto names = firstNames();
    const auto family = surnames(Tongue::french);
    Id key = 0;
    for (const char* name : suppliers()) {
        ++key;
        const std::string contact = std::string(trade.random.pick(names)) + " " + trade.random.pick(family);
        partners.add(key, "F" + std::to_string(1000 + key * 10), name, contact,
                     "514 555-" + std::to_string(trade.random.between(1000, 9999)), false);
    }
}

void writeProjects(const sqlite::Database& database) {
    Table rows(database, "ProjInfo");
    Id key = 0;
    const auto estimate = [](std::int64_t amount) { return amount == 0 ? std::nullopt : std::optional(Cents{amount}); };
    for (const auto& project : projects()) {
        const auto hours = project.hours == 0 ? std::nullopt : std::optional(units(project.hours));
        rows.add(++key, project.code, project.description, project.begins(), project.ends(), estimate(project.sales),
                 estimate(project.purchases), hours, project.inactive);
    }
    rows.add(++key, "~Inconnu~", "Projet inconnu", nullptr, nullptr, nullptr, nullptr, nullptr, true);
}

}  // namespace

void writePartners(Trade& trade) {
    writeEmployees(trade.database);
    writeSuppliers(trade);
    writeProjects(trade.database);
}

}  // namespace quillo::demo
