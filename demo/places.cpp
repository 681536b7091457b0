#include "demo/catalogue.h"

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

constexpr const char* streetRows[] = {
    "rue des Ateliers", "boul. Industriel", "chemin du Moulin", "rue de la Gare", "avenue des Pins", "rang Saint-Joseph",
    "rue Principale Est", "montée Masson-Neuve", "Commerce Drive", "Mill Street", "Station Road", "Harbour Lane",
};

constexpr PlaceData quebecRows[] = {
    {"Montréal", "QC", "H2", "514"}, {"Laval", "QC", "H7", "450"}, {"Longueuil", "QC", "J4", "450"},
    {"Québec", "QC", "G1", "418"}, {"Lévis", "QC", "G6", "418"}, {"Gatineau", "QC", "J8", "819"},
    {"Sherbrooke", "QC", "J1", "819"}, {"Trois-Rivières", "QC", "G8", "819"}, {"Saint-Jérôme", "QC", "J7", "450"},
    {"Joliette", "QC", "J6", "450"}, {"Granby", "QC", "J2", "450"}, {"Rimouski", "QC", "G5", "418"},
};

constexpr PlaceData ontarioRows[] = {
    {"Ottawa", "ON", "K1", "613"}, {"Kingston", "ON", "K7", "613"}, {"Cornwall", "ON", "K6", "613"},
    {"Toronto", "ON", "M4", "416"}, {"Hawkesbury", "ON", "K6", "613"}, {"Sudbury", "ON", "P3", "705"},
};

constexpr PlaceData americanRows[] = {
    {"Burlington", "VT", "054", "802"}, {"Plattsburgh", "NY", "129", "518"}, {"Concord", "NH", "033", "603"},
    {"Portland", "ME", "041", "207"}, {"Albany", "NY", "122", "518"},
};

constexpr PlaceData europeanRows[] = {
    {"Nantes", "", "440", "33"}, {"Lyon", "", "690", "33"}, {"Liège", "", "40", "32"}, {"Freiburg", "", "791", "49"},
};
// clang-format on

}  // namespace

std::span<const char* const> surnames() {
    return surnameRows;
}
std::span<const char* const> firstNames() {
    return firstNameRows;
}
std::span<const char* const> streets() {
    return streetRows;
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
std::span<const PlaceData> europeanPlaces() {
    return europeanRows;
}

}  // namespace quillo::demo
