#pragma once

#include <string>

#include "framework/engine/controls.h"
#include "framework/services/services.h"

// What the reports by salesperson write into their queries and on their pages alike.
namespace quillo {

// SQL text of a document's salesperson, empty for none.
std::string salesPersonExpression(bool jet);

// The document kinds that are sales; credit notes count against them.
inline constexpr const char* saleKinds =
    "1"
    ","
    "2"
    ","
    "3";

// SQL text of a document's sale in home currency. A rate of zero counts as 1 in the one dialect, one that is missing in
// the other: meant, each kind of database keeps its own.
const char* saleInHomeCurrency(bool jet);

// Whether a report's SalesPerson names one: it may be empty (all) or stand for the documents without one.
bool namesSalesPerson(const std::string& property);

// The salesperson of the row as it prints: one that is missing in words.
std::string salesPersonName(const DataControl& rows, const HostContext& context);

// What a figure of a salesperson leads to: the documents, those with another commission than agreed or all, in one
// currency or (0) all.
std::string salesPersonTag(const std::string& salesPerson, bool variances, int currency);

// How much more commission was paid on a sale than at the salesperson's own rate.
Money commissionVariance(double sale, double paidPercent, double ownPercent);

}  // namespace quillo
