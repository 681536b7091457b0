#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "framework/engine/report.h"
#include "framework/host/services.h"
#include "framework/report_contract.h"

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
    Object ExpectedAndExceededPmtByCustSum();
    Object ExpectedAndExceededPmtByCustDet();
    Object SalesBySalesPersonGraph();
    Object SalesBySalesPersonSummary();
    Object CashReceiptsSummary();
    Object CashReceiptsDetail();
    // lngInvType: the document type to list; 51 are orders.
    Object OpenOrders(const int& lngInvType);
    Object TermList();
    Object SalesBySalesPersonDetail();
    Object SalesBySalesPersProfDetail();
    Object SalesBySalesPersProfSummary();
    Object SalesJournalSummary();
    Object SalesJournalDetail();
    Object SalesJournalCompGraph();
    Object SalesJournalCompGraphMonths();
    Object CustPhoneList();
    Object ProjectPriceList();
    Object JobCustByProject();
    Object JobCustByCust();
    Object JobCustBySupp();
    Object JobCustByEmpl();
    Object CustList();
    Object CustListShipAddr();
    Object CustCustomFieldList();
    Object InvStatByCust();
    Object InvStatByItem();
    Object SalesStatistic();
    Object CustAgingDetail();
    Object CustAgingSummary();
    Object CustAgingGraphic();
    // An empty TextLetter leaves the report's own; oMainApp is set also when it is left out.
    Object CollectionLetter(const std::optional<std::string>& TextLetter = std::nullopt,
                            Application* oMainApp = nullptr);
    Object CustTransHistoryRepNova();
    Object DayEndBalanceByCash();
    Object DayEndBalanceByCashInvDetail();
    Object DayEndBalanceByCashPmtDetail();
    Object DayEndBalanceByCashDepDetail();
    Object DayEndBalanceByUsr();
    Object DayEndBalanceByUsrInvDetail();
    Object DayEndBalanceByUsrPmtDetail();
    Object DayEndBalanceByUsrDepDetail();
    Object DocumentsToApprove();
    Object ConsumedStatisticsByItem();
    Object ConsumedStatisticsByPeriod();
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
