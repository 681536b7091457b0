#pragma once

#include "framework/run_frame.h"

namespace quillo {

// The sales documents of a period, two lines each, with their totals and counts: in home currency with one footer, or
// in the documents' own currencies with a footer for each.
class dsrSalesJournalSummary final : public SegmentReport {
public:
    explicit dsrSalesJournalSummary(HostContext& context);

private:
    struct Totals {
        Money sales, freight, tax, discount;
        // Made of the four, so that it may differ by roundings from the sum of the documents' totals: meant.
        Money grand() const { return sales + tax + freight - discount; }
    };
    struct Counts {
        int invoices = 0, credits = 0, documents = 0;
    };

    struct TotalFields {
        Field &sales, &tax, &freight, &discount, &grand;
    };

    void ActiveReport_ReportStart() override;
    void ghCurrency_Format();
    void ghForCurr_Format();
    void Detail_Format();
    void gfCurrency_Format();
    void ReportFooter_Format();
    std::string query() const;
    int rowCurrency() const { return rsInvoiJournal.Collect("InvoiHdrExCurrencyId").int32OrZero(); }
    Money amount(const char* column) const { return rsInvoiJournal.Collect(column).moneyOrZero(); }
    // The sales amount is taken before discount.
    Money salesAmount() const { return amount("DetAmnt") + amount("DiscTotAmnt"); }
    Money rowRate() const;
    Money converted(Money value, Money rate) const;
    std::string amountOrBlank(Money value, Money rate) const;
    std::string countText(int count) const;
    void showTotals(const TotalFields& fields) const;
    void showCounts(Field& invoices, Field& credits, Field& documents) const;

    Section& ghCurrency = section("ghCurrency");
    Label& lblCurrencyName = label("lblCurrencyName");
    Field& txtSource = field("txtSource");
    Field& txtInvAmnt = field("txtInvAmnt");
    Field& txtShipAmnt = field("txtShipAmnt");
    Field& txtTaxAmnt = field("txtTaxAmnt");
    Field& txtDiscAmnt = field("txtDiscAmnt");
    Field& txtTotal = field("txtTotal");
    DataControl& rsInvoiJournal = data("rsInvoiJournal");
    Section& gfForCurr = section("gfForCurr");
    Label& lbl1USDestEgalA = label("lbl1USDestEgalA");
    Section& gfCurrency = section("gfCurrency");
    Label& lblForeignCurrency = label("lblForeignCurrency");
    Field& txtVenteForeign = field("txtVenteForeign");
    Field& txtFreightForeign = field("txtFreightForeign");
    Field& txtTaxForeign = field("txtTaxForeign");
    Field& txtDiscountForeignTotal = field("txtDiscountForeignTotal");
    Field& txtGrForeignTotal = field("txtGrForeignTotal");
    Field& txtInvoicesForeign = field("txtInvoicesForeign");
    Field& txtCreditsForeign = field("txtCreditsForeign");
    Field& txtTotalForeign = field("txtTotalForeign");
    Field& txtVente = field("txtVente");
    Field& txtFreign = field("txtFreign");
    Field& txtTax = field("txtTax");
    Field& txtDiscountTotal = field("txtDiscountTotal");
    Field& txtGrTotal = field("txtGrTotal");
    Field& txtInvoices = field("txtInvoices");
    Field& txtCredits = field("txtCredits");
    Field& txtTotal1 = field("txtTotal1");

    Totals m_totals;
    Counts m_counts;
    int m_lngHomeCurrencyId = 0;
    int m_lngCurrencyId = 0;
};

}  // namespace quillo
