#include "demo/masters.h"

#include <set>

namespace quillo::demo {
namespace {

constexpr const char* trades[] = {"Construction", "Rénovations", "Menuiserie", "Entreprises",
                                  "Habitations",  "Cuisines",    "Toitures",   "Gestion immobilière"};
constexpr const char* tradesEnglish[] = {"Contracting",         "Homes",    "Renovations",
                                         "Property Management", "Kitchens", "Builders"};
constexpr const char* tradesOfFrance[] = {"Frères SARL", "Habitat SARL", "Menuiserie SA"};
constexpr const char* tradesGerman[] = {"Küchen GmbH", "Holzbau GmbH", "Innenausbau GmbH", "Baustoffe GmbH"};
constexpr const char* longName =
    "Société coopérative d'habitation et de rénovation durable des Laurentides et de Lanaudière, section des "
    "constructeurs inc.";

// Plain capital letters of a name, for its code.
std::string lettersOf(const std::string& name) {
    std::string letters;
    for (const char c : name) {
        if (c >= 'a' && c <= 'z') letters += static_cast<char>(c - 'a' + 'A');
        if (c >= 'A' && c <= 'Z') letters += c;
        if (letters.size() == 5) break;
    }
    return letters;
}

class CustomerMaker {
public:
    explicit CustomerMaker(Trade& trade)
        : trade_(trade), random_(trade.random), rows_(trade.database, "Cust"), addresses_(trade.database, "Addr") {}

    void walkIn(const char* code, const char* name, Warehouse warehouse, bool french) {
        Customer customer = blank(french, cad, french ? Tax::quebec : Tax::ontario);
        customer.code = code;
        customer.name = name;
        customer.term = &trade_.terms[11];
        customer.segment = retail;
        customer.warehouse = warehouse;
        customer.delay = 0;
        rows_.add(customer.id, customer.code, customer.name, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                  nullptr, nullptr, french ? 2 : 1, nullptr, customer.term->id, french ? 1 : 2, Id{receivableCad}, 1,
                  Id{cad}, nullptr, false);
        trade_.customers.push_back(std::move(customer));
    }

    void account(std::int64_t index) {
        const auto kind = random_.below(100);
        const bool cooperative = index == 7;
        const Currency currency = cooperative ? cad : kind < 11 ? usd : kind < 17 ? eur : cad;
        const bool quebecker = cooperative || (currency == cad && random_.chance(680));
        const bool french = quebecker ? random_.chance(850) : random_.chance(currency == eur ? 600 : 120);
        Customer customer = blank(french, currency,
                                  currency != cad ? Tax::exempt
                                  : quebecker     ? Tax::quebec
                                                  : Tax::ontario);
        customer.name = cooperative ? longName : uniqueName(customer);
        customer.code = lettersOf(customer.name) + std::to_string(100 + customer.id);
        choose(customer, index);
        write(customer, index);
        trade_.customers.push_back(std::move(customer));
    }

private:
    Customer blank(bool french, Currency currency, Tax tax) {
        Customer customer{};
        customer.id = static_cast<Id>(trade_.customers.size() + 1);
        customer.french = french;
        customer.currency = currency;
        customer.tax = tax;
        customer.term = &trade_.terms[0];
        return customer;
    }

    std::string uniqueName(const Customer& customer) {
        std::string name = anyName(customer);
        while (!names_.insert(name).second) name = anyName(customer);
        return name;
    }

    std::string anyName(const Customer& customer) {
        const auto family = surnames(tongueOf(customer));
        const std::string surname = random_.pick(family);
        if (customer.currency == usd) return surname + " " + random_.pick(tradesEnglish) + " LLC";
        if (customer.currency == eur)
            return surname + " " + (customer.french ? random_.pick(tradesOfFrance) : random_.pick(tradesGerman));
        if (!customer.french)
            return surname +
                   (random_.chance(300) ? " & Sons Ltd." : std::string(" ") + random_.pick(tradesEnglish) + " Inc.");
        if (random_.chance(200)) {
            const auto given = firstNames();
            return std::string(random_.pick(given)) + " " + surname;
        }
        return std::string(random_.pick(trades)) + " " + surname + (random_.chance(300) ? " & Fils inc." : " inc.");
    }

    // How the customer trades: segment, terms, salesperson, habits of paying.
    void choose(Customer& customer, std::int64_t index) {
        customer.segment = customer.currency != cad ? exportSales
                           : random_.chance(550)    ? contractors
                           : random_.chance(700)    ? retail
                                                    : noSegment;
        customer.warehouse = customer.tax == Tax::ontario ? ottawa : random_.chance(350) ? quebec : montreal;
        constexpr int termOdds[] = {0, 0, 0, 0, 1, 1, 1, 2, 3, 3, 4, 8, 9, 10, 12};
        customer.term = &trade_.terms[static_cast<std::size_t>(random_.pick(termOdds))];
        customer.delay = static_cast<int>(random_.chance(500)   ? random_.between(-4, 8)
                                          : random_.chance(850) ? random_.between(5, 70)
                                                                : random_.between(60, 140));
        customer.takesDiscounts = random_.chance(600);
        if (customer.segment == contractors && random_.chance(400)) customer.project = random_.between(1, 7);
        const auto seller = random_.below(8);
        if (seller < 6) {
            customer.salesperson = &employees()[static_cast<std::size_t>(seller)];
        } else if (seller == 6 && index % 3 == 0) {
            customer.salesperson = &employees().back();  // her file is gone
        }
        if (index % 24 == 11)
            customer.inactiveFrom = dayInMonth(firstDay, static_cast<int>(random_.between(17, 29)), 1);
        if (index == 31 || index == 92) customer.currencyOnFile = customer.currency != cad;
    }

    static Tongue tongueOf(const Customer& customer) {
        if (customer.currency == eur && !customer.french) return Tongue::german;
        return customer.tax == Tax::quebec || customer.currency == eur ? Tongue::french : Tongue::english;
    }

    const PlaceData& placeOf(const Customer& customer) {
        const auto places = customer.currency == usd      ? americanPlaces()
                            : customer.currency == eur    ? (customer.french ? frenchPlaces() : germanPlaces())
                            : customer.tax == Tax::quebec ? quebecPlaces()
                                                          : ontarioPlaces();
        return random_.pick(places);
    }

    // Fills a pattern: # a digit, @ a letter; D, F, I, O, Q and U are in no postal code of Canada.
    std::string filled(std::string_view pattern) {
        constexpr std::string_view letters = "ABCEGHJKLMNPRSTVWXYZ";
        std::string text(pattern);
        for (char& c : text) {
            if (c == '#') c = static_cast<char>('0' + random_.below(10));
            if (c == '@') c = random_.pick(letters);
        }
        return text;
    }
    std::string phone(const PlaceData& place) { return filled(place.telephone); }

    std::optional<std::string> some(int perThousand, std::string text) {
        return random_.chance(perThousand) ? std::optional(std::move(text)) : std::nullopt;
    }

    // The site's address; a few were typed with their scheme.
    std::string siteOf(const Customer& customer, std::int64_t index) const {
        std::string site = "www." + customer.code + ".example";
        for (char& c : site) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        return (index % 40 == 5 ? "HTTP://" : index % 40 == 6 ? "http://" : "") + site;
    }

    // Files are never complete: any of these may be missing.
    void write(const Customer& customer, std::int64_t index) {
        const PlaceData& place = placeOf(customer);
        const auto given = firstNames();
        const auto family = surnames(tongueOf(customer));
        std::string person = random_.pick(given);
        person += std::string(" ") + random_.pick(family);
        const auto contact = some(930, person);
        const auto telephone = some(970, phone(place));
        const auto extension = some(350, std::to_string(random_.between(100, 499)));
        const auto otherTelephone = some(300, phone(place));
        const auto otherExtension = some(80, std::to_string(random_.between(10, 99)));
        const auto fax = some(450, phone(place));
        const std::string homePage = siteOf(customer, index);
        const auto web = some(600, homePage);
        const auto mail = some(780, "info@" + homePage.substr(homePage.find("www.") + 4));
        const Id language = index % 29 == 3 ? 0 : customer.french ? 2 : 1;
        const Id taxGroup = index % 50 == 21               ? 0
                            : customer.tax == Tax::quebec  ? 1
                            : customer.tax == Tax::ontario ? 2
                                                           : 3;
        const auto limit = index % 16 == 4       ? std::optional(Cents{random_.between(2, 8) * 25000})  // soon reached
                           : random_.chance(880) ? std::optional(Cents{random_.between(2, 60) * 250000})
                                                 : std::nullopt;
        const auto inactive = customer.inactiveFrom ? std::optional(true)
                              : random_.chance(900) ? std::optional(false)
                                                    : std::nullopt;
        const auto salesperson = customer.salesperson != nullptr ? std::optional(customer.salesperson->name())
                                 : index % 2 == 0                ? std::optional(std::string())
                                                                 : std::nullopt;
        rows_.add(customer.id, customer.code, customer.name, contact, telephone, extension, otherTelephone,
                  otherExtension, fax, web, mail, orNull(language), salesperson,
                  orNull(index % 45 == 17 ? 0 : customer.term->id), orNull(taxGroup),
                  Id{receivableAccount(customer.currency)}, customer.segment == contractors ? 2 : 1,
                  orNull(customer.currencyOnFile ? Id{customer.currency} : 0), limit, inactive);
        address(customer, 0, customer.name, place);
        const auto sites = random_.below(10) - 6;
        for (std::int64_t site = 1; site <= sites; ++site)
            address(customer, 1, (customer.french ? "Chantier " : "Site ") + std::to_string(site), placeOf(customer));
    }

    void address(const Customer& customer, int kind, const std::string& name, const PlaceData& place) {
        const auto roads = streets(place);
        const std::string number = std::to_string(random_.between(10, place.country <= unitedStates ? 9800 : 98));
        const std::string road = random_.pick(roads);
        const bool numberLast = place.country == germany;
        const bool comma = place.province == std::string_view("QC") || place.country > unitedStates;
        const std::string line = numberLast ? road + " " + number : number + (comma ? ", " : " ") + road;
        const auto suite =
            place.country <= unitedStates && random_.chance(200)
                ? std::optional((customer.french ? "Bureau " : "Suite ") + std::to_string(random_.between(100, 620)))
                : std::nullopt;
        addresses_.add(++lastAddress_, customer.id, kind, name, line, suite, place.city,
                       orNull(std::string_view(place.province)), filled(place.postalCode), Id{place.country});
    }

    Trade& trade_;
    Random& random_;
    std::set<std::string> names_;
    Id lastAddress_ = 1;
    Table rows_;
    Table addresses_;
};

void writeAddedFields(Trade& trade) {
    Table fields(trade.database, "CustomField");
    fields.add(1, "Cust", trade.words.name({"Delivery route", "Tournée de livraison"}), 1);
    fields.add(2, "Cust", trade.words.name({"Licence no.", "No de licence"}), 2);
    fields.add(3, "Cust", trade.words.name({"Account review", "Révision du compte"}), 3);
    Table values(trade.database, "CustomFieldValue");
    constexpr Words routes[] = {
        {"North", "Nord"}, {"South shore", "Rive-Sud"}, {"East", "Est"}, {"Pick-up", "Ramassage"}};
    for (const auto& customer : trade.customers) {
        if (trade.random.chance(700)) values.add(1, customer.id, trade.words.name(trade.random.pick(routes)));
        if (customer.segment == contractors)
            values.add(2, customer.id,
                       "8" + std::to_string(trade.random.between(100, 999)) + "-" +
                           std::to_string(trade.random.between(1000, 9999)));
        if (trade.random.chance(250))
            values.add(3, customer.id, dayInMonth(firstDay, static_cast<int>(trade.random.between(15, 44)), 1));
    }
}

}  // namespace

void writeCustomers(Trade& trade) {
    CustomerMaker maker(trade);
    maker.walkIn("COMPTOIR", "Ventes au comptoir - Montréal", montreal, true);
    maker.walkIn("COMPT-QC", "Ventes au comptoir - Québec", quebec, true);
    const std::int64_t count = 198 + 20 * (trade.scale < 40 ? trade.scale - 1 : 40);
    for (std::int64_t index = 0; index < count; ++index) maker.account(index);
    writeAddedFields(trade);
}

}  // namespace quillo::demo
