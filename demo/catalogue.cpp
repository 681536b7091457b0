#include "demo/catalogue.h"

namespace quillo::demo {
namespace {

// clang-format off
constexpr AccountData accountRows[] = {
    {"1010", {"Bank - chequing CAD", "Banque - compte courant CAD"}, true},
    {"1015", {"Bank - chequing USD", "Banque - compte courant USD"}, true},
    {"1016", {"Bank - account EUR", "Banque - compte EUR"}, true},
    {"1020", {"Undeposited receipts", "Encaissements à déposer"}, true},
    {"1100", {"Accounts receivable - CAD", "Comptes clients - CAD"}, false},
    {"1110", {"Accounts receivable - USD", "Comptes clients - USD"}, false},
    {"1120", {"Accounts receivable - EUR", "Comptes clients - EUR"}, false},
    {"1200", {"Inventory", "Stocks"}, false},
    {"1250", {"Work in progress - time bank", "Travaux en cours - banque d'heures"}, false},
    {"1255", {"Work in progress - unrecorded services", "Travaux en cours - services non inscrits"}, false},
    {"1300", {"GST/HST paid on purchases", "TPS/TVH payée sur achats"}, false},
    {"1310", {"QST paid on purchases", "TVQ payée sur achats"}, false},
    {"2100", {"Accounts payable", "Comptes fournisseurs"}, false},
    {"2200", {"Customer deposits", "Dépôts de clients"}, false},
    {"2310", {"GST charged on sales", "TPS perçue sur ventes"}, false},
    {"2320", {"QST charged on sales", "TVQ perçue sur ventes"}, false},
    {"2330", {"HST charged on sales", "TVH perçue sur ventes"}, false},
    {"2400", {"Payroll deductions payable", "Retenues sur salaires à payer"}, false},
    {"3000", {"Share capital", "Capital-actions"}, false},
    {"4010", {"Sales - lumber and panels", "Ventes - bois et panneaux"}, false},
    {"4020", {"Sales - hardware and tools", "Ventes - quincaillerie et outils"}, false},
    {"4030", {"Sales - kitchen and bath", "Ventes - cuisine et salle de bain"}, false},
    {"4040", {"Sales - paint and finishes", "Ventes - peinture et finition"}, false},
    {"4050", {"Sales - services", "Ventes - services"}, false},
    {"4060", {"Sales - kits", "Ventes - ensembles"}, false},
    {"4100", {"Freight charged to customers", "Transport facturé aux clients"}, false},
    {"4200", {"Discounts granted on payments", "Escomptes accordés sur paiements"}, false},
    {"4300", {"Interest earned on overdue accounts", "Intérêts sur comptes en souffrance"}, false},
    {"4400", {"Rent and other income", "Loyers et autres revenus"}, false},
    {"5010", {"Cost of goods sold", "Coût des marchandises vendues"}, false},
    {"5020", {"Stock adjustments and scrap", "Écarts de stock et rebuts"}, false},
    {"5100", {"Subcontractors and equipment rental", "Sous-traitants et location d'équipement"}, false},
    {"5200", {"Wages", "Salaires"}, false},
    {"5210", {"Employer contributions", "Charges sociales"}, false},
    {"5300", {"Rent", "Loyer"}, false},
    {"5310", {"Electricity and telephone", "Électricité et téléphone"}, false},
    {"5320", {"Advertising", "Publicité"}, false},
    {"5330", {"Delivery vehicles", "Véhicules de livraison"}, false},
    {"5500", {"Exchange gains and losses", "Gains et pertes de change"}, false},
    {"5600", {"Receivables written off", "Créances radiées"}, false},
};

constexpr Words categoryRows[] = {
    {"Lumber and panels", "Bois et panneaux"}, {"Hardware and tools", "Quincaillerie et outils"},
    {"Kitchen and bath", "Cuisine et salle de bain"}, {"Paint and finishes", "Peinture et finition"},
    {"Services", "Services"}, {"Kits", "Ensembles"},
};

constexpr Words methodRows[] = {
    {"Cash", "Comptant"}, {"Cheque", "Chèque"}, {"Debit card", "Carte de débit"}, {"Credit card", "Carte de crédit"},
    {"Bank transfer", "Virement bancaire"}, {"Pre-authorized debit", "Débit préautorisé"},
};

constexpr Words countryRows[] = {
    {"Canada", "Canada"}, {"United States", "États-Unis"}, {"France", "France"}, {"Belgium", "Belgique"},
    {"Germany", "Allemagne"},
};

constexpr SubcategoryData subcategoryRows[] = {
    {lumber, {"Framing lumber", "Bois de charpente"}}, {lumber, {"Panels", "Panneaux"}}, {lumber, {"Insulation", "Isolants"}}, {hardware, {"Fasteners", "Attaches"}},
    {hardware, {"Hand tools", "Outils à main"}}, {hardware, {"Power tools", "Outils électriques"}}, {kitchen, {"Sinks and taps", "Éviers et robinets"}}, {kitchen, {"Cabinets", "Armoires"}},
    {kitchen, {"Cookware", "Articles de cuisson"}}, {paint, {"Interior paint", "Peinture intérieure"}}, {paint, {"Stains and varnish", "Teintures et vernis"}}, {services, {"Labour", "Main-d'œuvre"}},
};

// Goods of one season: bought from two weeks before it, sold in it alone. What is over stays in stock.
constexpr ItemData soldBetween(ItemData item, Day from, Day until) {
    item.stockedFrom = from - 14;
    item.lastDelivery = until - 30;
    item.soldFrom = from;
    item.soldUntil = until;
    item.inactive = until < Day::of(2024, 1, 1);
    return item;
}
constexpr ItemData neverSold(ItemData item, Day stockedFrom) {
    item.stockedFrom = stockedFrom;
    item.soldFrom = never;
    return item;
}
constexpr ItemData withdrawn(ItemData item) {
    item.inactive = true;
    return neverSold(item, firstDay);
}
// Its maker delivers no more since a day; the customers' orders are invoiced all the same.
constexpr ItemData soldAhead(ItemData item, Day lastDelivery) {
    item.lastDelivery = lastDelivery;
    item.soldAhead = true;
    return item;
}

constexpr ItemData itemRows[] = {
    {"2X4-8", {"Spruce stud 2x4 8 ft", "Colombage d'épinette 2x4 8 pi"}, lumber, 1, 489, 318, ""},
    {"2X6-10", {"Spruce joist 2x6 10 ft", "Solive d'épinette 2x6 10 pi"}, lumber, 1, 1129, 742, ""},
    {"2X8-12", {"Spruce joist 2x8 12 ft", "Solive d'épinette 2x8 12 pi"}, lumber, 1, 1849, 1210, ""},
    {"4X4-10", {"Treated post 4x4 10 ft", "Poteau traité 4x4 10 pi"}, lumber, 1, 2695, 1744, ""},
    {"54-DECK", {"Treated decking 5/4x6 12 ft", "Planche à terrasse traitée 5/4x6 12 pi"}, lumber, 1, 1599, 1020, ""},
    {"PLY-34", {"Plywood spruce 3/4 in 4x8", "Contreplaqué d'épinette 3/4 po 4x8"}, lumber, 2, 6249, 4390, ""},
    {"PLY-12", {"Plywood spruce 1/2 in 4x8", "Contreplaqué d'épinette 1/2 po 4x8"}, lumber, 2, 4419, 3050, ""},
    {"OSB-716", {"OSB panel 7/16 in 4x8", "Panneau OSB 7/16 po 4x8"}, lumber, 2, 2189, 1480, ""},
    {"GYP-12", {"Gypsum board 1/2 in 4x8", "Panneau de gypse 1/2 po 4x8"}, lumber, 2, 1749, 1175, ""},
    {"CEM-12", {"Cement board 1/2 in 3x5", "Panneau de béton 1/2 po 3x5"}, lumber, 2, 2399, 1590, ""},
    {"INS-R20", {"Glass wool batt R20, bag", "Laine isolante R20, sac"}, lumber, 3, 6899, 4710, ""},
    {"INS-R12", {"Glass wool batt R12, bag", "Laine isolante R12, sac"}, lumber, 3, 5499, 3720, ""},
    {"XPS-2", {"Rigid foam board 2 in", "Panneau isolant rigide 2 po"}, lumber, 3, 4299, 2915, ""},
    {"VAP-8", {"Vapour barrier 8.5x118 ft", "Pare-vapeur 8,5x118 pi"}, lumber, 3, 7499, 4860, ""},
    {"SCR-3", {"Deck screws 3 in, box of 500", "Vis à terrasse 3 po, boîte de 500"}, hardware, 4, 5299, 2980, ""},
    {"SCR-158", {"Drywall screws 1 5/8 in, box", "Vis à gypse 1 5/8 po, boîte"}, hardware, 4, 1199, 640, ""},
    {"NAIL-312", {"Framing nails 3 1/2 in, box", "Clous à charpente 3 1/2 po, boîte"}, hardware, 4, 6799, 4105, ""},
    {"HNG-26", {"Joist hanger 2x6", "Étrier à solive 2x6"}, hardware, 4, 249, 118, ""},
    {"ANC-12", {"Wedge anchor 1/2x4", "Ancrage à béton 1/2x4"}, hardware, 4, 329, 161, ""},
    {"ADH-PL", {"Construction adhesive 825 ml", "Adhésif de construction 825 ml"}, hardware, 4, 1049, 612, ""},
    {"HAM-20", {"Framing hammer 20 oz", "Marteau de charpentier 20 oz"}, hardware, 5, 4499, 2410, ""},
    {"TAPE-26", {"Tape measure 26 ft", "Ruban à mesurer 26 pi"}, hardware, 5, 2299, 1130, ""},
    {"LVL-48", {"Level 48 in", "Niveau 48 po"}, hardware, 5, 5999, 3240, ""},
    {"SAW-15", {"Hand saw 15 in", "Scie à main 15 po"}, hardware, 5, 2799, 1490, ""},
    {"GLV-L", {"Work gloves, large", "Gants de travail, grands"}, hardware, 5, 1499, 690, ""},
    {"DRL-18", {"Cordless drill 18 V", "Perceuse sans fil 18 V"}, hardware, 6, 18900, 12150, ""},
    {"CIRC-7", {"Circular saw 7 1/4 in", "Scie circulaire 7 1/4 po"}, hardware, 6, 22900, 14980, ""},
    {"MIT-12", {"Sliding mitre saw 12 in", "Scie à onglets coulissante 12 po"}, hardware, 6, 79900, 55300, ""},
    {"SND-5", {"Orbital sander 5 in", "Ponceuse orbitale 5 po"}, hardware, 6, 11900, 7430, ""},
    {"BAT-5", {"Battery 18 V 5 Ah", "Batterie 18 V 5 Ah"}, hardware, 6, 14900, 9620, ""},
    {"SNK-D30", {"Double sink stainless 30 in", "Évier double inox 30 po"}, kitchen, 7, 32900, 20850, "", false, 2},
    {"SNK-G24", {"Granite sink 24 in", "Évier en granit 24 po"}, kitchen, 7, 44900, 28300, ""},
    {"TAP-PULL", {"Kitchen tap with pull-out spray", "Robinet de cuisine à douchette"}, kitchen, 7, 25900, 15720, ""},
    {"TAP-BATH", {"Bathroom tap, chrome", "Robinet de lavabo, chrome"}, kitchen, 7, 13900, 8190, ""},
    {"CAB-B24", {"Base cabinet 24 in, white", "Armoire basse 24 po, blanche"}, kitchen, 8, 28900, 18460, ""},
    {"CAB-W30", {"Wall cabinet 30 in, white", "Armoire murale 30 po, blanche"}, kitchen, 8, 21900, 13870, ""},
    {"CAB-PAN", {"Pantry cabinet 84 in, oak", "Garde-manger 84 po, chêne"}, kitchen, 8, 84900, 56100, ""},
    {"CTR-8", {"Laminate countertop 8 ft", "Comptoir stratifié 8 pi"}, kitchen, 8, 27900, 17900, ""},
    {"HDL-BLK", {"Cabinet handle, black", "Poignée d'armoire, noire"}, kitchen, 8, 749, 312, ""},
    {"POT-6", {"Stock pot 6 l, stainless", "Marmite 6 l, inox"}, kitchen, 9, 8900, 4870, ""},
    {"PAN-28", {"Frying pan 28 cm, cast iron", "Poêle 28 cm, fonte"}, kitchen, 9, 6900, 3640, ""},
    {"KNF-5", {"Knife block, 5 pieces", "Bloc de 5 couteaux"}, kitchen, 9, 15900, 8850, ""},
    {"BRD-OAK", {"Cutting board, oak", "Planche à découper, chêne"}, kitchen, 9, 4900, 2510, ""},
    {"PNT-WH", {"Interior paint white 3.7 l", "Peinture intérieure blanche 3,7 l"}, paint, 10, 5499, 3180, "", false, 1},
    {"PNT-CLR", {"Interior paint tinted 3.7 l", "Peinture intérieure teintée 3,7 l"}, paint, 10, 5999, 3390, ""},
    {"PRM-37", {"Primer 3.7 l", "Apprêt 3,7 l"}, paint, 10, 3999, 2270, "", false, 1},
    {"ROL-KIT", {"Paint roller set", "Ensemble de rouleau à peinture"}, paint, 10, 1899, 870, "", false, 1},
    {"STN-CED", {"Exterior stain cedar 3.7 l", "Teinture extérieure cèdre 3,7 l"}, paint, 11, 6799, 4020, ""},
    {"VRN-1", {"Polyurethane varnish 946 ml", "Vernis polyuréthane 946 ml"}, paint, 11, 3399, 1850, ""},
    {"BRS-3", {"Brush 3 in", "Pinceau 3 po"}, paint, 11, 1599, 680, "", false, 1},
    {"KIT-HDL", {"Handle and screw pack", "Paquet de poignées et vis"}, kitchen, 8, 3999, 1720, "", false, 2},
    {"KIT-FAU", {"Tap with hoses", "Robinet avec boyaux"}, kitchen, 7, 16900, 10240, "", false, 2},
    {"KIT-BRK", {"Shelf bracket pair", "Paire de supports à tablette"}, hardware, 4, 1899, 830, "", false, 0},
    {"KIT-BRD", {"Shelf board 36 in", "Tablette 36 po"}, lumber, 2, 2499, 1370, "", false, 0},
    {"LAB-INST", {"Installation, per hour", "Installation, à l'heure"}, services, 12, 8500, 0, ""},
    {"LAB-CUT", {"Cutting to size", "Coupe sur mesure"}, services, 12, 350, 0, ""},
    {"LAB-DSGN", {"Kitchen design, per hour", "Conception de cuisine, à l'heure"}, services, 12, 9500, 0, ""},
    {"LAB-TINT", {"Colour matching", "Agencement de couleur"}, services, 12, 900, 0, ""},
    {"SET-SINK", {"Sink installation set", "Ensemble d'installation d'évier"}, kits, 7, 56900, 0, "SNK-D30*1 KIT-FAU*1 KIT-HDL*1", false, 2},
    {"SET-SHELF", {"Shelving set, three boards", "Ensemble de trois tablettes"}, kits, 4, 11900, 0, "KIT-BRK*3 KIT-BRD*3", false, 0},
    {"SET-PAINT", {"Room painting set", "Ensemble peinture d'une pièce"}, kits, 10, 15900, 0, "PNT-WH*2 PRM-37*1 ROL-KIT*1 BRS-3*1", false, 1},
    {"DOOR-ASM", {"Shed door, assembled", "Porte de remise, assemblée"}, lumber, 1, 16900, 0, "2X4-8*6 PLY-12*1 SCR-158*1", true},
    {"BENCH-ASM", {"Workbench, assembled", "Établi, assemblé"}, hardware, 5, 34900, 0, "4X4-10*4 PLY-34*1 SCR-3*1 ANC-12*8", true},
    {"PLANT-ASM", {"Cedar-stained planter", "Bac à plantes teint cèdre"}, lumber, 1, 11900, 0, "54-DECK*4 STN-CED*1", true},
    soldBetween({"HTR-PAT", {"Patio heater, propane", "Chauffe-terrasse au propane"}, hardware, 5, 24900, 15900, ""}, Day::of(2023, 5, 1), Day::of(2023, 11, 30)),
    soldBetween({"LNT-SOL", {"Solar lantern, set of four", "Lanterne solaire, jeu de quatre"}, hardware, 5, 5900, 3350, ""}, Day::of(2024, 5, 1), Day::of(2024, 11, 30)),
    soldBetween({"CHST-RL", {"Rolling tool chest", "Coffre à outils sur roues"}, hardware, 5, 32900, 21100, ""}, Day::of(2025, 5, 1), never),
    neverSold({"CLG-TIN", {"Pressed tin ceiling tile", "Tuile de plafond en fer-blanc"}, lumber, 2, 3899, 2240, ""}, firstDay),
    neverSold({"TAP-BRS", {"Bathroom tap, brushed brass", "Robinet de lavabo, laiton brossé"}, kitchen, 7, 21900, 13300, ""}, never),
    neverSold({"LAB-APPR", {"Appraisal on site", "Évaluation sur place"}, services, 12, 12000, 0, ""}, never),
    withdrawn({"ADH-SLV", {"Contact adhesive with solvent 946 ml", "Colle contact à solvant 946 ml"}, hardware, 4, 1899, 990, ""}),
    soldAhead({"HOOD-30", {"Range hood 30 in, stainless", "Hotte de cuisine 30 po, inox"}, kitchen, 8, 27900, 20400, ""}, Day::of(2025, 6, 1)),
};

constexpr PersonData employeeRows[] = {
    {"Josée", "Lamarche", 4, 2650, true}, {"Martin", "Desruisseaux", 5, 2710, true, 4, Day::of(2024, 7, 1)},
    {"Karine", "Ouimet", 3, 2480, true, 5, Day::of(2023, 10, 1)}, {"Trevor", "Haldane", 5, 2695, true},
    {"Sylvain", "Bellerose", -1, 2320, true}, {"Mélanie", "Fortin-Gagné", 2, 2540, true, 1, Day::of(2025, 4, 1)},
    {"Patrick", "Quesnel", -1, 2890, false}, {"Amélie", "Rochefort", -1, 2410, false},
    {"Ghislain", "Thivierge", -1, 3120, false}, {"Rosa", "Calderone", -1, 2275, false},
    {"Yves", "Laramée", -1, 2540, false, -1, firstDay, Day::of(2024, 6, 28)},
    {"Maude", "Tessier", 3, 2460, false, -1, firstDay, Day::of(2023, 9, 29), false},
};

constexpr ProjectData projectRows[] = {
    {"P-2301", "Cuisine communautaire de Saint-Ours", 0, 9, 8600000, 4900000, 620},
    {"P-2302", "Maple Court apartments - kitchens", 2, 14, 21500000, 13200000, 1450},
    {"P-2303", "Rénovation du centre de loisirs", 5, 12, 12400000, 7100000, 900},
    {"P-2401", "Chalets du Lac-à-l'Ours", 12, 16, 30500000, 18600000, 2200},
    {"P-2402", "Clinic fit-out, Kanata", 15, 8, 9750000, 5200000, 540},
    {"P-2403", "École primaire des Érables - armoires", 18, 10, 14800000, 8800000, 980},
    {"P-2501", "Riverside office tower, floors 3 to 5", 24, 12, 27500000, 16400000, 1900},
    {"P-2502", "Entretien annuel des bâtiments", 24, 12, 0, 0, 0},
    {"P-2201", "Réfection de l'aréna municipal", -8, 10, 6400000, 3900000, 480, true},
};

constexpr const char* supplierRows[] = {
    "Scierie Grande-Coulée inc.", "Panneaux Laurentides ltée", "Northern Fastener Supply", "Outillage Belvédère inc.",
    "Kitchen Line Manufacturing", "Peintures Arc-Boréal inc.", "Location d'équipement Dumoulin",
    "Menuiserie Larose & Fils", "Immeubles Place du Canal", "Énergie et Téléphonie Laval", "Publicité Contraste",
    "Transport Vaillancourt",
};
// clang-format on

}  // namespace

std::span<const AccountData> accounts() {
    return accountRows;
}
std::span<const Words> methods() {
    return methodRows;
}
std::span<const Words> countries() {
    return countryRows;
}
std::span<const Words> categories() {
    return categoryRows;
}
std::span<const SubcategoryData> subcategories() {
    return subcategoryRows;
}
std::span<const ItemData> items() {
    return itemRows;
}
std::span<const PersonData> employees() {
    return employeeRows;
}
std::span<const ProjectData> projects() {
    return projectRows;
}
std::span<const char* const> suppliers() {
    return supplierRows;
}

}  // namespace quillo::demo
