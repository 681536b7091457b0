#include "framework/report_factory.h"

#include <algorithm>

#include "framework/run_frame.h"
#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "reports/ageing/dsrCollectionLetters.h"
#include "reports/ageing/dsrCustAgingDetail.h"
#include "reports/ageing/dsrCustAgingGraphic.h"
#include "reports/ageing/dsrCustAgingSummary.h"
#include "reports/ageing/dsrCustTransHistoryRepNova.h"
#include "reports/ageing/dsrExpectAndExceedPmtByCust.h"
#include "reports/cash_receipts/dsrCashReceiptsDetail.h"
#include "reports/cash_receipts/dsrCashReceiptsSummary.h"
#include "reports/day_end/dsrDayEndBalanceByCash.h"
#include "reports/day_end/dsrDayEndBalanceByCashDepDetail.h"
#include "reports/day_end/dsrDayEndBalanceByCashInvDetail.h"
#include "reports/day_end/dsrDayEndBalanceByCashPmtDetail.h"
#include "reports/day_end/dsrDayEndBalanceByUsr.h"
#include "reports/day_end/dsrDayEndBalanceByUsrDepDetail.h"
#include "reports/day_end/dsrDayEndBalanceByUsrInvDetail.h"
#include "reports/day_end/dsrDayEndBalanceByUsrPmtDetail.h"
#include "reports/job_cost/dsrJobCostByCust.h"
#include "reports/job_cost/dsrJobCostByEmpl.h"
#include "reports/job_cost/dsrJobCostByProject.h"
#include "reports/job_cost/dsrJobCostBySupp.h"
#include "reports/lists/dsrCustCustomFieldList.h"
#include "reports/lists/dsrCustList.h"
#include "reports/lists/dsrCustListShipAddr.h"
#include "reports/lists/dsrCustPhoneList.h"
#include "reports/lists/dsrDocumentsToApprove.h"
#include "reports/lists/dsrOpenOrders.h"
#include "reports/lists/dsrProjectPriceList.h"
#include "reports/lists/dsrTermList.h"
#include "reports/sales_journal/dsrSalesJournalCompGraph.h"
#include "reports/sales_journal/dsrSalesJournalCompGraphMonth.h"
#include "reports/sales_journal/dsrSalesJournalDetail.h"
#include "reports/sales_journal/dsrSalesJournalSummary.h"
#include "reports/salespersons/dsrSalesBySalesPersProfDetail.h"
#include "reports/salespersons/dsrSalesBySalesPersProfSummary.h"
#include "reports/salespersons/dsrSalesBySalesPersonDetail.h"
#include "reports/salespersons/dsrSalesBySalesPersonGraph.h"
#include "reports/salespersons/dsrSalesBySalesPersonSummary.h"
#include "reports/statistics/dsrConsumedStatsByPeriod.h"
#include "reports/statistics/dsrInvStatByCust.h"
#include "reports/statistics/dsrInvStatByItem.h"
#include "reports/statistics/dsrItemConsumedList.h"
#include "reports/statistics/dsrSalesStatistic.h"

namespace quillo {

void clsReport::showFailure(std::string_view description, std::string_view procedure, int line) const {
    context_.messages().Show(std::string(description) + "\r\nin Quillo.clsReport." + std::string(procedure) +
                             " at line " + std::to_string(line));
}

template <class R>
clsReport::Object clsReport::create(const char* member) {
    Object report;
    QUILLO_STEP(member, report = std::make_shared<R>(context_));
    return report;
}

clsReport::Object clsReport::missing(const char* member, const char* report) {
    showFailure("The report " + std::string(report) + " is not written yet", member, __LINE__);
    return nullptr;
}

// The members in the order of the interface: what each makes, and whether that report is written yet. Those of a type
// give their report its ReportType; those by hand take arguments, and their rows tell the call with their defaults.
#define QUILLO_MEMBERS(WRITTEN, TYPED, TO_COME, BY_HAND)                                              \
    TYPED(ExpectedAndExceededPmtByCustSum, dsrExpectAndExceedPmtByCust, ExpectedPayments::summary)    \
    TYPED(ExpectedAndExceededPmtByCustDet, dsrExpectAndExceedPmtByCust, ExpectedPayments::detail)     \
    WRITTEN(SalesBySalesPersonGraph, dsrSalesBySalesPersonGraph)                                      \
    WRITTEN(SalesBySalesPersonSummary, dsrSalesBySalesPersonSummary)                                  \
    WRITTEN(CashReceiptsSummary, dsrCashReceiptsSummary)                                              \
    WRITTEN(CashReceiptsDetail, dsrCashReceiptsDetail)                                                \
    BY_HAND(OpenOrders, dsrOpenOrders, "lngInvType", OpenOrders(51), true)                            \
    WRITTEN(TermList, dsrTermList)                                                                    \
    WRITTEN(SalesBySalesPersonDetail, dsrSalesBySalesPersonDetail)                                    \
    WRITTEN(SalesBySalesPersProfDetail, dsrSalesBySalesPersProfDetail)                                \
    WRITTEN(SalesBySalesPersProfSummary, dsrSalesBySalesPersProfSummary)                              \
    WRITTEN(SalesJournalSummary, dsrSalesJournalSummary)                                              \
    WRITTEN(SalesJournalDetail, dsrSalesJournalDetail)                                                \
    WRITTEN(SalesJournalCompGraph, dsrSalesJournalCompGraph)                                          \
    WRITTEN(SalesJournalCompGraphMonths, dsrSalesJournalCompGraphMonth)                               \
    WRITTEN(CustPhoneList, dsrCustPhoneList)                                                          \
    WRITTEN(ProjectPriceList, dsrProjectPriceList)                                                    \
    WRITTEN(JobCustByProject, dsrJobCostByProject)                                                    \
    WRITTEN(JobCustByCust, dsrJobCostByCust)                                                          \
    WRITTEN(JobCustBySupp, dsrJobCostBySupp)                                                          \
    WRITTEN(JobCustByEmpl, dsrJobCostByEmpl)                                                          \
    WRITTEN(CustList, dsrCustList)                                                                    \
    WRITTEN(CustListShipAddr, dsrCustListShipAddr)                                                    \
    WRITTEN(CustCustomFieldList, dsrCustCustomFieldList)                                              \
    WRITTEN(InvStatByCust, dsrInvStatByCust)                                                          \
    WRITTEN(InvStatByItem, dsrInvStatByItem)                                                          \
    WRITTEN(SalesStatistic, dsrSalesStatistic)                                                        \
    WRITTEN(CustAgingDetail, dsrCustAgingDetail)                                                      \
    WRITTEN(CustAgingSummary, dsrCustAgingSummary)                                                    \
    WRITTEN(CustAgingGraphic, dsrCustAgingGraphic)                                                    \
    BY_HAND(CollectionLetter, dsrCollectionLetters, "TextLetter, oMainApp", CollectionLetter(), true) \
    WRITTEN(CustTransHistoryRepNova, dsrCustTransHistoryRepNova)                                      \
    WRITTEN(DayEndBalanceByCash, dsrDayEndBalanceByCash)                                              \
    WRITTEN(DayEndBalanceByCashInvDetail, dsrDayEndBalanceByCashInvDetail)                            \
    WRITTEN(DayEndBalanceByCashPmtDetail, dsrDayEndBalanceByCashPmtDetail)                            \
    WRITTEN(DayEndBalanceByCashDepDetail, dsrDayEndBalanceByCashDepDetail)                            \
    WRITTEN(DayEndBalanceByUsr, dsrDayEndBalanceByUsr)                                                \
    WRITTEN(DayEndBalanceByUsrInvDetail, dsrDayEndBalanceByUsrInvDetail)                              \
    WRITTEN(DayEndBalanceByUsrPmtDetail, dsrDayEndBalanceByUsrPmtDetail)                              \
    WRITTEN(DayEndBalanceByUsrDepDetail, dsrDayEndBalanceByUsrDepDetail)                              \
    WRITTEN(DocumentsToApprove, dsrDocumentsToApprove)                                                \
    WRITTEN(ConsumedStatisticsByItem, dsrItemConsumedList)                                            \
    WRITTEN(ConsumedStatisticsByPeriod, dsrConsumedStatsByPeriod)

#define WRITTEN(member, report)             \
    clsReport::Object clsReport::member() { \
        return create<report>(#member);     \
    }
#define TYPED(member, report, type)                            \
    clsReport::Object clsReport::member() {                    \
        auto made = create<report>(#member);                   \
        if (made) STEP(made->setProperty("ReportType", type)); \
        return made;                                           \
    }
#define TO_COME(member, report)             \
    clsReport::Object clsReport::member() { \
        return missing(#member, #report);   \
    }
#define BY_HAND(...)
QUILLO_MEMBERS(WRITTEN, TYPED, TO_COME, BY_HAND)
#undef WRITTEN
#undef TYPED
#undef TO_COME
#undef BY_HAND

clsReport::Object clsReport::OpenOrders(const int& lngInvType) {
    auto report = create<dsrOpenOrders>("OpenOrders");
    if (report) STEP(report->setProperty("InvoiceType", lngInvType));
    return report;
}

clsReport::Object clsReport::CollectionLetter(const std::optional<std::string>& TextLetter, Application* oMainApp) {
    auto report = create<dsrCollectionLetters>("CollectionLetter");
    if (!report) return report;
    if (TextLetter && !TextLetter->empty()) STEP(report->setProperty("TextLetter", *TextLetter));
    STEP(static_cast<dsrCollectionLetters&>(*report).MainApp(oMainApp));
    return report;
}

bool clsReport::ShowItemLine(int ExKitInvoiDetId, bool IsKit) {
    constexpr int componentsOnly = 2;  // a kit option: the kit's own line is left out, its components are printed
    if (ExKitInvoiDetId == 0) return true;
    std::unique_ptr<HostRecordset> kit;
    STEP(kit = context_.company().Database().OpenRecordset(" SELECT Item.* "
                                                           " FROM InvoiDet "
                                                           "   INNER JOIN Item ON InvoiDet.ExItemId = Item.InItemId "
                                                           " WHERE ExKitInvoiDetId = " +
                                                               std::to_string(ExKitInvoiDetId),
                                                           4, 0));
    if (!kit) return false;
    if (kit->atEnd()) return true;
    int option = 0;
    bool modifiable = false;
    STEP(option = kit->Value("ComputeKitOption", ValueType::integer).int32OrZero());
    STEP(modifiable = kit->Value("AllowKitModification", ValueType::boolean).boolOrFalse());
    kit->Close();
    return IsKit ? option == 0 || option == 1 : option == componentsOnly || modifiable;
}

namespace {

#define WRITTEN(member, report) {#member, #report, "", [](clsReport& factory) { return factory.member(); }, true},
#define TYPED(member, report, type) WRITTEN(member, report)
#define TO_COME(member, report) {#member, #report, "", [](clsReport& factory) { return factory.member(); }, false},
#define BY_HAND(member, report, arguments, call, written) \
    {#member, #report, arguments, [](clsReport& factory) { return factory.call; }, written},
constexpr clsReport::Member catalogue[] = {QUILLO_MEMBERS(WRITTEN, TYPED, TO_COME, BY_HAND)};
#undef WRITTEN
#undef TYPED
#undef TO_COME
#undef BY_HAND

}  // namespace

std::span<const clsReport::Member> clsReport::members() {
    return catalogue;
}

const clsReport::Member* clsReport::findMember(std::string_view name) {
    const auto found = std::find_if(std::begin(catalogue), std::end(catalogue),
                                    [&](const Member& member) { return equalNames(member.name, name); });
    return found == std::end(catalogue) ? nullptr : found;
}

}  // namespace quillo
