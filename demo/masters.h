#pragma once

#include "demo/trade.h"

namespace quillo::demo {

// Write what the documents refer to, and keep in the trade what its days need of it.
void writeReferences(Trade& trade);  // facts, currencies, accounts, terms, calendar, users
void writeGoods(Trade& trade);       // warehouses, categories, items and what they are made of
void writeCustomers(Trade& trade);   // customers, their addresses and added fields
void writePartners(Trade& trade);    // employees, suppliers, projects

}  // namespace quillo::demo
