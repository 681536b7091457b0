#pragma once

#include "demo/amounts.h"
#include "demo/days.h"

#include <span>
#include <string>

// What the demo company trades in and with whom: plain data, all of it made up.
namespace quillo::demo {

// A text of the company's own in both of its languages.
struct Words {
    const char* english;
    const char* french;
};

// Ledger accounts; the value is the account's key, its row in accounts() the one of that number.
enum Account : Id {
    bankCad = 1,
    bankUsd,
    bankEur,
    undeposited,
    receivableCad,
    receivableUsd,
    receivableEur,
    inventory,
    timeBank,
    unrecordedService,
    gstPaid,
    qstPaid,
    payable,
    customerDeposits,
    gstCharged,
    qstCharged,
    hstCharged,
    deductions,
    capital,
    salesLumber,
    salesHardware,
    salesKitchen,
    salesPaint,
    salesService,
    salesKits,
    freightIncome,
    salesDiscounts,
    interestIncome,
    otherIncome,
    costOfGoods,
    stockAdjustments,
    subcontractors,
    wages,
    employerCosts,
    rent,
    utilities,
    advertising,
    vehicles,
    exchangeDifferences,
    writeOffs
};

struct AccountData {
    const char* code;
    Words description;
    bool cash;
};
std::span<const AccountData> accounts();

enum Method : Id { cash = 1, cheque, debitCard, creditCard, wire, preauthorized };
std::span<const Words> methods();

enum Country : Id { canada = 1, unitedStates, france, belgium, germany };
std::span<const Words> countries();

enum Category : Id { lumber = 1, hardware, kitchen, paint, services, kits };

inline constexpr Day never = Day::of(9999, 1, 1);

struct ItemData {
    const char* code;
    Words description;
    Category category;
    int subcategory;     // row of subcategories(), from 1
    std::int64_t price;  // cents
    std::int64_t cost;   // cents
    const char* made;    // components of a kit or an assembled item: "CODE*2 CODE*1"
    bool assembled = false;
    int kitOption = 0;  // of the kits that it is part of: 0 they print alone, 1 with their parts, 2 their parts alone
    Day stockedFrom = firstDay, lastDelivery = never;
    Day soldFrom = firstDay, soldUntil = never;
    bool soldAhead = false;  // still sold when there is none left after the last delivery
    bool inactive = false;
};
std::span<const ItemData> items();

struct SubcategoryData {
    Category category;
    Words description;
};
std::span<const SubcategoryData> subcategories();
std::span<const Words> categories();

struct PersonData {
    const char* first;
    const char* last;
    int commission;  // percent; -1 is none on file
    int hourly;      // cents
    bool sells;
    int formerCommission = -1;  // percent before the change
    Day changed = firstDay;
    Day left = never;
    bool onFile = true;

    std::string name() const { return std::string(first) + " " + last; }
};
std::span<const PersonData> employees();

struct ProjectData {
    const char* code;
    const char* description;
    int startMonth;  // months after 2023-01; negative before
    int months;
    std::int64_t sales, purchases;  // estimates in cents; 0 is none
    int hours;
    bool inactive = false;

    Day begins() const { return dayInMonth(Day::of(2023, 1, 1), startMonth, 15); }
    Day ends() const { return dayInMonth(begins(), months, 15); }
    bool runsOn(Day day) const { return day >= begins() && day <= ends(); }
};
std::span<const ProjectData> projects();

std::span<const char* const> suppliers();

enum class Tongue { french, english, german };  // of people's names

struct PlaceData {
    const char* city;
    const char* province;
    Country country;
    const char* postalCode;  // # a digit, @ a letter that postal codes use
    const char* telephone;   // # a digit
};
std::span<const PlaceData> quebecPlaces();
std::span<const PlaceData> ontarioPlaces();
std::span<const PlaceData> americanPlaces();
std::span<const PlaceData> frenchPlaces();  // of France and Belgium
std::span<const PlaceData> germanPlaces();

std::span<const char* const> surnames(Tongue tongue);
std::span<const char* const> firstNames();
std::span<const char* const> streets(const PlaceData& place);

}  // namespace quillo::demo
