#include "reports/salespersons/sales_texts.h"

#include "framework/drill_tags.h"

namespace quillo {

std::string salesPersonExpression(bool jet) {
    return jet ? "IIF(IsNull(InvoiHdr.SalesPerson), '', InvoiHdr.SalesPerson)" : "COALESCE(InvoiHdr.SalesPerson, '')";
}

const char* saleInHomeCurrency(bool jet) {
    return jet ? "(InvoiHdr.DetAmnt * IIF(InvoiHdr.ExchangeRate <> 0, InvoiHdr.ExchangeRate, 1))"
               : "(InvoiHdr.DetAmnt * COALESCE(InvoiHdr.ExchangeRate, 1))";
}

bool namesSalesPerson(const std::string& property) {
    return !property.empty() && property != Drill::blankSalesPerson;
}

std::string salesPersonName(const DataControl& rows, const HostContext& context) {
    const std::string name = rows.Collect("SalesPerson").textOrEmpty();
    return name.empty() ? context.GetText(2595) : name;
}

// The tag of a missing salesperson has no mark of variances: meant, its reader tells it by its words.
std::string salesPersonTag(const std::string& salesPerson, bool variances, int currency) {
    const std::string ending = "|" + std::to_string(currency);
    if (salesPerson.empty()) return std::string(Drill::blankSalesPerson) + ending;
    return salesPerson + "|" + (variances ? "-1" : "0") + ending;
}

Money commissionVariance(double sale, double paidPercent, double ownPercent) {
    return Money::fromDouble(sale * paidPercent / 100 - sale * ownPercent / 100);
}

}  // namespace quillo
