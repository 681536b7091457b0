#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "framework/engine/report.h"
#include "framework/report_contract.h"
#include "framework/services/services.h"

namespace quillo {

// The library's outward face: one member for each report. Each call makes a fresh report, which belongs to the
// caller; nothing is run and nothing reads the database. The class holds no state but the context that it was
// made with, which must outlive it and its reports. A member that fails shows the failure's box and gives null.
//
// What a caller does next: IReport_Application, IReport_Initialize; read title, date options and use of currency;
// set dates, foreign display, filter tool, segments, rates, options; run the report (framework/engine/engine.h).
class clsReport {
public:
    using Object = std::shared_ptr<Report>;

    explicit clsReport(HostContext& context) : context_(context) {}

    // The order of the members is part of the interface, and so are their names where they differ from the report's.
    Object ExpectedAndExceededPmtByCustSum();  // payments expected against received, a line a customer
    Object ExpectedAndExceededPmtByCustDet();  // the same, a line a document
    Object SalesBySalesPersonGraph();          // sales by salesperson as bars
    Object SalesBySalesPersonSummary();        // sales and commissions, a line a salesperson
    Object CashReceiptsSummary();              // receipts with totals by payment method
    Object CashReceiptsDetail();               // the ledger's postings of receipts
    Object OpenOrders(const int& lngInvType);  // documents of one type by currency; 51 are orders
    Object TermList();                         // payment terms
    Object SalesBySalesPersonDetail();         // sales and commissions, a line a document
    Object SalesBySalesPersProfDetail();       // profit of each line sold, by salesperson
    Object SalesBySalesPersProfSummary();      // profit, a line a salesperson
    Object SalesJournalSummary();              // sales documents with totals
    Object SalesJournalDetail();               // the ledger's postings of sales
    Object SalesJournalCompGraph();            // this year's sales beside last year's
    Object SalesJournalCompGraphMonths();      // sales of twelve months beside those a year before
    Object CustPhoneList();                    // telephones of the customers
    Object ProjectPriceList();                 // projects with their estimates
    Object JobCustByProject();                 // job cost by project
    Object JobCustByCust();                    // job cost by customer
    Object JobCustBySupp();                    // job cost by supplier
    Object JobCustByEmpl();                    // job cost by employee
    Object CustList();                         // customers with address, terms, credit limit
    Object CustListShipAddr();                 // customers with their shipping addresses
    Object CustCustomFieldList();              // customers with the company's own fields
    Object InvStatByCust();                    // invoiced items by customer
    Object InvStatByItem();                    // invoiced items by item
    Object SalesStatistic();                   // sales year over year by item and warehouse
    Object CustAgingDetail();                  // receivables by age, a line a document
    Object CustAgingSummary();                 // receivables by age, a line a customer
    Object CustAgingGraphic();                 // receivables by age as pies
    // Collection letters. An empty TextLetter leaves the report's own; oMainApp is set also when it is left out.
    Object CollectionLetter(const std::optional<std::string>& TextLetter = std::nullopt,
                            Application* oMainApp = nullptr);
    Object CustTransHistoryRepNova();       // the history of a customer
    Object DayEndBalanceByCash();           // day-end balance by cash register
    Object DayEndBalanceByCashInvDetail();  // the documents behind it
    Object DayEndBalanceByCashPmtDetail();  // the payments behind it
    Object DayEndBalanceByCashDepDetail();  // the deposits behind it
    Object DayEndBalanceByUsr();            // day-end balance by user
    Object DayEndBalanceByUsrInvDetail();   // the documents behind it
    Object DayEndBalanceByUsrPmtDetail();   // the payments behind it
    Object DayEndBalanceByUsrDepDetail();   // the deposits behind it
    Object DocumentsToApprove();            // documents that wait for approval
    Object ConsumedStatisticsByItem();      // consumption by item
    Object ConsumedStatisticsByPeriod();    // consumption by fiscal period
    // Whether a line of a kit is printed on a document. ExKitInvoiDetId: the kit's line, 0 for a line outside of kits;
    // IsKit: the line is the kit's own.
    bool ShowItemLine(int ExKitInvoiDetId, bool IsKit);

    // The catalogue of the members that make reports, in the order above.
    struct Member {
        std::string_view name;
        std::string_view report;
        std::string_view arguments;  // names of the factory arguments, empty for none
        Object (*make)(clsReport&);  // with the arguments' defaults
        bool written;                // false: the report is still to come
    };
    static std::span<const Member> members();
    // Null when there is no member of that name (names compare without case).
    static const Member* findMember(std::string_view name);

private:
    template <class R>
    Object create(const char* member);
    Object missing(const char* member, const char* report);
    void showFailure(std::string_view description, std::string_view procedure, int line) const;

    HostContext& context_;
};

}  // namespace quillo
