#include "demo/catalogue.h"

#include <string_view>

namespace quillo::demo {
namespace {

// clang-format off
constexpr const char* surnameRows[] = {
    "Allard", "Archambault", "Beaulieu", "Bélanger", "Boisvert", "Bouchard", "Brassard", "Carrière", "Charbonneau",
    "Chénier", "Côté", "Crawford", "Deslauriers", "Dionne", "Doucet", "Dubreuil", "Duquette", "Élie", "Farrell",
    "Gagnon", "Gauthier", "Girard", "Grenier", "Hamelin", "Hébert", "Hogan", "Jolicoeur", "Kowalski", "Labelle",
    "Lachance", "Lafleur", "Lapierre", "Lavigne", "Leclerc", "Legault", "MacNeil", "Marcotte", "Ménard", "Morin",
    "Nadeau", "O'Reilly", "Paquette", "Pelletier", "Plourde", "Poirier", "Quirion", "Racine", "Rivard", "Robidoux",
    "Simard", "St-Amour", "Sutherland", "Tessier", "Thibault", "Tremblay", "Turcotte", "Vachon", "Villeneuve",
    "Whitford", "Zanetti",
};

constexpr const char* firstNameRows[] = {
    "Alain", "Andrée", "Benoît", "Brenda", "Caroline", "Claude", "Daniel", "Denise", "Édith", "Éric", "Francine",
    "Gilles", "Heather", "Isabelle", "Jacques", "Julie", "Kevin", "Line", "Luc", "Manon", "Marc", "Nathalie",
    "Normand", "Olga", "Pierre", "Rachel", "Réjean", "Sandra", "Stephen", "Thérèse", "Vincent", "Yvan",
};

constexpr const char* germanSurnameRows[] = {
    "Bauer", "Brandt", "Fischer", "Hoffmann", "Keller", "Lehmann", "Schäfer", "Vogel", "Weber", "Winkler",
};

// The first of them are found in Europe too.
constexpr const char* frenchStreetRows[] = {
    "rue des Ateliers", "chemin du Moulin", "rue de la Gare", "avenue des Pins", "boul. Industriel",
    "rang Saint-Joseph", "rue Principale Est", "montée Masson-Neuve",
};
constexpr std::size_t europeanStreets = 4;
constexpr const char* englishStreetRows[] = {
    "Commerce Drive", "Mill Street", "Station Road", "Harbour Lane", "Foundry Avenue", "Orchard Crescent",
};
constexpr const char* germanStreetRows[] = {"Bahnhofstraße", "Gartenweg", "Mühlenstraße", "Industriestraße"};

constexpr PlaceData quebecRows[] = {
    {"Montréal", "QC", canada, "H2@ #@#", "514 555-####"}, {"Laval", "QC", canada, "H7@ #@#", "450 555-####"},
    {"Longueuil", "QC", canada, "J4@ #@#", "450 555-####"}, {"Québec", "QC", canada, "G1@ #@#", "418 555-####"},
    {"Lévis", "QC", canada, "G6@ #@#", "418 555-####"}, {"Gatineau", "QC", canada, "J8@ #@#", "819 555-####"},
    {"Sherbrooke", "QC", canada, "J1@ #@#", "819 555-####"}, {"Trois-Rivières", "QC", canada, "G8@ #@#", "819 555-####"},
    {"Saint-Jérôme", "QC", canada, "J7@ #@#", "450 555-####"}, {"Joliette", "QC", canada, "J6@ #@#", "450 555-####"},
    {"Granby", "QC", canada, "J2@ #@#", "450 555-####"}, {"Rimouski", "QC", canada, "G5@ #@#", "418 555-####"},
};

constexpr PlaceData ontarioRows[] = {
    {"Ottawa", "ON", canada, "K1@ #@#", "613 555-####"}, {"Kingston", "ON", canada, "K7@ #@#", "613 555-####"},
    {"Cornwall", "ON", canada, "K6@ #@#", "613 555-####"}, {"Toronto", "ON", canada, "M4@ #@#", "416 555-####"},
    {"Hawkesbury", "ON", canada, "K6@ #@#", "613 555-####"}, {"Sudbury", "ON", canada, "P3@ #@#", "705 555-####"},
};

constexpr PlaceData americanRows[] = {
    {"Burlington", "VT", unitedStates, "0540#", "802 555-####"}, {"Plattsburgh", "NY", unitedStates, "1290#", "518 555-####"},
    {"Concord", "NH", unitedStates, "0330#", "603 555-####"}, {"Portland", "ME", unitedStates, "0410#", "207 555-####"},
    {"Albany", "NY", unitedStates, "1220#", "518 555-####"},
};

constexpr PlaceData frenchRows[] = {
    {"Nantes", "", france, "44#00", "+33 2 40 ## ## ##"}, {"Lyon", "", france, "6900#", "+33 4 72 ## ## ##"},
    {"Liège", "", belgium, "40#0", "+32 4 2## ## ##"},
};

constexpr PlaceData germanRows[] = {
    {"Freiburg", "", germany, "7910#", "+49 761 55####"}, {"Aachen", "", germany, "5206#", "+49 241 55####"},
};
// clang-format on

}  // namespace

std::span<const char* const> surnames(Tongue tongue) {
    if (tongue == Tongue::german) return germanSurnameRows;
    return surnameRows;
}
std::span<const char* const> firstNames() {
    return firstNameRows;
}
std::span<const char* const> streets(const PlaceData& place) {
    const std::span<const char* const> french = frenchStreetRows;
    if (place.country == germany) return germanStreetRows;
    if (place.country > unitedStates) return french.first(europeanStreets);
    if (place.province == std::string_view("QC")) return french;
    return englishStreetRows;
}
std::span<const PlaceData> quebecPlaces() {
    return quebecRows;
}
std::span<const PlaceData> ontarioPlaces() {
    return ontarioRows;
}
std::span<const PlaceData> americanPlaces() {
    return americanRows;
}
std::span<const PlaceData> frenchPlaces() {
    return frenchRows;
}
std::span<const PlaceData> germanPlaces() {
    return germanRows;
}

}  // namespace quillo::demo
