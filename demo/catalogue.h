#pragma once

#include "demo/amounts.h"

#include <span>

// What the demo company trades in and with whom: plain data, all of it made up.
namespace quillo::demo {

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
    const char* description;
    bool cash;
};
std::span<const AccountData> accounts();

enum Method : Id { cash = 1, cheque, debitCard, creditCard, wire, preauthorized };

enum Category : Id { lumber = 1, hardware, kitchen, paint, services, kits };

struct ItemData {
    const char* code;
    const char* english;
    const char* french;
    Category category;
    int subcategory;     // row of subcategories(), from 1
    std::int64_t price;  // cents
    std::int64_t cost;   // cents
    const char* made;    // components of a kit or an assembled item: "CODE*2 CODE*1"
    bool assembled = false;
    int kitOption = 0;
};
std::span<const ItemData> items();

struct SubcategoryData {
    Category category;
    const char* description;
};
std::span<const SubcategoryData> subcategories();
std::span<const char* const> categories();

struct PersonData {
    const char* first;
    const char* last;
    int commission;  // percent; -1 is none on file
    int hourly;      // cents
    bool sells;
};
std::span<const PersonData> employees();

struct ProjectData {
    const char* code;
    const char* description;
    int startMonth;  // months after 2023-01
    int months;
    std::int64_t sales, purchases;  // estimates in cents; 0 is none
    int hours;
};
std::span<const ProjectData> projects();

std::span<const char* const> suppliers();
std::span<const char* const> surnames();
std::span<const char* const> firstNames();
std::span<const char* const> streets();

struct PlaceData {
    const char* city;
    const char* province;
    const char* postalStart;
    const char* area;  // telephone
};
std::span<const PlaceData> quebecPlaces();
std::span<const PlaceData> ontarioPlaces();
std::span<const PlaceData> americanPlaces();
std::span<const PlaceData> europeanPlaces();

}  // namespace quillo::demo
