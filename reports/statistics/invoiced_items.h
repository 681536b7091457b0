#pragma once

#include <string>

#include "reports/statistics/item_list.h"
#include "reports/statistics/kit_lines.h"

namespace quillo {

// A line's amounts in its document's currency. Of a credit note the total is negative, quantity and discount are as the
// line holds them.
struct InvoicedLine {
    Money quantity, rowTotal, discount;

    // In the currency that the rate leads to. The price is that before the discount, 0 without a quantity.
    Money unitPrice(Money rate) const;
    Money extended(Money rate) const { return roundProduct(rowTotal, rate.toDouble(), 2); }
    Money discountAt(Money rate) const { return roundProduct(discount, rate.toDouble(), 2); }
};

// Every invoiced line of a period: what the lists by item and by customer have in common. Amounts are in home currency,
// or in the documents' own under a group for each currency of the customers. Of kits those lines are listed that
// documents show; the others count nowhere.
class InvoicedItems : public ItemListReport {
public:
    void IReport_Initialize() override;

protected:
    // What a list has of its own, by the names of its design.
    struct Own {
        const char *header, *footer;   // of its group
        const char *discount, *party;  // fields of a line: its discount, its customer or item
    };
    struct Sums {
        Money amount, quantity;
    };
    InvoicedItems(std::string name, HostContext& context, const ContractRow& contract, const Own& own);

    // The columns of the list's own; the conditions that stand before the dates; the order of the rows.
    virtual std::string columns() const = 0;
    virtual std::string_view condition() const = 0;
    virtual std::string orderBy() const = 0;
    // Whom or what a line is about.
    virtual std::string partyOfRow() const = 0;

    // SQL text that reads a column's Null as 0.
    std::string orZero(std::string_view column) const;
    // "B - Birch", or the name alone in a company without codes of customers.
    std::string customerOfRow() const;
    std::string plainText(Money quantity) const { return locale().plainNumber(Variant(quantity)); }

    DataControl& rsInvoiStat = data("rsInvoiStat");
    Sums m_group, m_currency, m_grand;

private:
    void ActiveReport_ReportStart() override;
    std::string query() const;
    void ghCurrency_Format();
    void header_Format() { m_group = {}; }
    void Detail_Format();
    bool isShown();
    Money rateOfRow() const;
    InvoicedLine readLine(Money quantity) const;
    void printLine(const InvoicedLine& line, Money rate);
    void addQuantity(Money quantity);
    void addAmount(Money amount);
    void footer_Format();
    void gfCurrency_Format();
    void ReportFooter_Format();

    Field& txtCurrencyDescr = field("txtCurrencyDescr");
    Field& fldQty = field("fldQty");
    Field& txtUnitPrice = field("txtUnitPrice");
    Field& txtExt = field("txtExt");
    Field& txtExtTotal = field("txtExtTotal");
    Field& txtCurrencyTotal = field("txtCurrencyTotal");
    Field& txtCurrencyTotalCode = field("txtCurrencyTotalCode");
    Field& txtExtGrandTotal = field("txtExtGrandTotal");
    Field &discount_, &party_;

    KitLines m_objReport;
    int m_lngCurrencyId = 0, m_lngHomeCurrencyId = 0;
};

}  // namespace quillo
