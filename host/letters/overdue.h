#pragma once

#include <map>
#include <string>
#include <vector>

#include "framework/values/date.h"
#include "framework/values/money.h"
#include "host/company/company_file.h"

namespace quillo {

// What is open at a date: a document, or money on account.
struct OpenDocument {
    int customerId = 0;
    std::string number;
    std::string kind;  // as the company's data words it; empty: money on account
    Date date, dueDate;
    int currencyId = 0;
    Money balance;  // in its currency; negative: in the customer's favour
};

// A customer whose balance is past due.
struct OverdueCustomer {
    int id = 0;
    std::string code, name;
    std::vector<OpenDocument> documents;  // all that are open, by due date
    std::map<int, Money> balances;        // their sums by currency
    std::map<int, Money> overdue;         // those past due, less all that is in the customer's favour; above zero
    int oldestDays = 0;                   // how long the oldest of them is past due
};

// Days since a document was due; negative before.
int daysPastDue(const OpenDocument& document, Date at);

// All that is open at the end of a day, customer by customer. Later documents and payments do not count.
std::vector<OpenDocument> openDocuments(const CompanyFile& company, Date at);

// The customers, by name, with documents that are past due by at least minDays days (one at least), unless what is in
// their favour covers these.
std::vector<OverdueCustomer> overdueCustomers(const CompanyFile& company, Date at, int minDays);

}  // namespace quillo
