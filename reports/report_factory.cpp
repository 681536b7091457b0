#include "framework/report_factory.h"

#include <algorithm>

#include "framework/run_frame.h"
#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "reports/cash_receipts/dsrCashReceiptsDetail.h"
#include "reports/cash_receipts/dsrCashReceiptsSummary.h"
#include "reports/lists/dsrCustCustomFieldList.h"
#include "reports/lists/dsrCustList.h"
#include "reports/lists/dsrCustListShipAddr.h"
#include "reports/lists/dsrCustPhoneList.h"
#include "reports/lists/dsrDocumentsToApprove.h"
#include "reports/lists/dsrOpenOrders.h"
#include "reports/lists/dsrProjectPriceList.h"
#include "reports/lists/dsrTermList.h"
#include "reports/sales_journal/dsrSalesJournalDetail.h"
#include "reports/sales_journal/dsrSalesJournalSummary.h"

namespace quillo {

void clsReport::showFailure(std::string_view description, std::string_view procedure, int line) const {
    context_.messages().Show(std::string(description) + "\r\nin Quillo.clsReport." + std::string(procedure) +
                             " at line " + std::to_string(line));
}

template <class R>
clsReport::Object clsReport::create(const char* member) {
    try {
        return std::make_shared<R>(context_);
    } catch (const std::exception& failure) {
        showFailure(failure.what(), member, __LINE__);
        return nullptr;
    }
}

clsReport::Object clsReport::missing(const char* member, const char* report) {
    showFailure("The report " + std::string(report) + " is not written yet", member, __LINE__);
    return nullptr;
}

clsReport::Object clsReport::ExpectedAndExceededPmtByCustSum() {
    return missing("ExpectedAndExceededPmtByCustSum", "dsrExpectAndExceedPmtByCust");
}
clsReport::Object clsReport::ExpectedAndExceededPmtByCustDet() {
    return missing("ExpectedAndExceededPmtByCustDet", "dsrExpectAndExceedPmtByCust");
}
clsReport::Object clsReport::SalesBySalesPersonGraph() {
    return missing("SalesBySalesPersonGraph", "dsrSalesBySalesPersonGraph");
}
clsReport::Object clsReport::SalesBySalesPersonSummary() {
    return missing("SalesBySalesPersonSummary", "dsrSalesBySalesPersonSummary");
}
clsReport::Object clsReport::CashReceiptsSummary() {
    return create<dsrCashReceiptsSummary>("CashReceiptsSummary");
}
clsReport::Object clsReport::CashReceiptsDetail() {
    return create<dsrCashReceiptsDetail>("CashReceiptsDetail");
}
clsReport::Object clsReport::OpenOrders(const int& lngInvType) {
    auto report = create<dsrOpenOrders>("OpenOrders");
    if (report) report->setProperty("InvoiceType", lngInvType);
    return report;
}
clsReport::Object clsReport::TermList() {
    return create<dsrTermList>("TermList");
}
clsReport::Object clsReport::SalesBySalesPersonDetail() {
    return missing("SalesBySalesPersonDetail", "dsrSalesBySalesPersonDetail");
}
clsReport::Object clsReport::SalesBySalesPersProfDetail() {
    return missing("SalesBySalesPersProfDetail", "dsrSalesBySalesPersProfDetail");
}
clsReport::Object clsReport::SalesBySalesPersProfSummary() {
    return missing("SalesBySalesPersProfSummary", "dsrSalesBySalesPersProfSummary");
}
clsReport::Object clsReport::SalesJournalSummary() {
    return create<dsrSalesJournalSummary>("SalesJournalSummary");
}
clsReport::Object clsReport::SalesJournalDetail() {
    return create<dsrSalesJournalDetail>("SalesJournalDetail");
}
clsReport::Object clsReport::SalesJournalCompGraph() {
    return missing("SalesJournalCompGraph", "dsrSalesJournalCompGraph");
}
clsReport::Object clsReport::SalesJournalCompGraphMonths() {
    return missing("SalesJournalCompGraphMonths", "dsrSalesJournalCompGraphMonth");
}
clsReport::Object clsReport::CustPhoneList() {
    return create<dsrCustPhoneList>("CustPhoneList");
}
clsReport::Object clsReport::ProjectPriceList() {
    return create<dsrProjectPriceList>("ProjectPriceList");
}
clsReport::Object clsReport::JobCustByProject() {
    return missing("JobCustByProject", "dsrJobCostByProject");
}
clsReport::Object clsReport::JobCustByCust() {
    return missing("JobCustByCust", "dsrJobCostByCust");
}
clsReport::Object clsReport::JobCustBySupp() {
    return missing("JobCustBySupp", "dsrJobCostBySupp");
}
clsReport::Object clsReport::JobCustByEmpl() {
    return missing("JobCustByEmpl", "dsrJobCostByEmpl");
}
clsReport::Object clsReport::CustList() {
    return create<dsrCustList>("CustList");
}
clsReport::Object clsReport::CustListShipAddr() {
    return create<dsrCustListShipAddr>("CustListShipAddr");
}
clsReport::Object clsReport::CustCustomFieldList() {
    return create<dsrCustCustomFieldList>("CustCustomFieldList");
}
clsReport::Object clsReport::InvStatByCust() {
    return missing("InvStatByCust", "dsrInvStatByCust");
}
clsReport::Object clsReport::InvStatByItem() {
    return missing("InvStatByItem", "dsrInvStatByItem");
}
clsReport::Object clsReport::SalesStatistic() {
    return missing("SalesStatistic", "dsrSalesStatistic");
}
clsReport::Object clsReport::CustAgingDetail() {
    return missing("CustAgingDetail", "dsrCustAgingDetail");
}
clsReport::Object clsReport::CustAgingSummary() {
    return missing("CustAgingSummary", "dsrCustAgingSummary");
}
clsReport::Object clsReport::CustAgingGraphic() {
    return missing("CustAgingGraphic", "dsrCustAgingGraphic");
}
clsReport::Object clsReport::CollectionLetter(const std::optional<std::string>&, Application*) {
    return missing("CollectionLetter", "dsrCollectionLetters");
}
clsReport::Object clsReport::CustTransHistoryRepNova() {
    return missing("CustTransHistoryRepNova", "dsrCustTransHistoryRepNova");
}
clsReport::Object clsReport::DayEndBalanceByCash() {
    return missing("DayEndBalanceByCash", "dsrDayEndBalanceByCash");
}
clsReport::Object clsReport::DayEndBalanceByCashInvDetail() {
    return missing("DayEndBalanceByCashInvDetail", "dsrDayEndBalanceByCashInvDetail");
}
clsReport::Object clsReport::DayEndBalanceByCashPmtDetail() {
    return missing("DayEndBalanceByCashPmtDetail", "dsrDayEndBalanceByCashPmtDetail");
}
clsReport::Object clsReport::DayEndBalanceByCashDepDetail() {
    return missing("DayEndBalanceByCashDepDetail", "dsrDayEndBalanceByCashDepDetail");
}
clsReport::Object clsReport::DayEndBalanceByUsr() {
    return missing("DayEndBalanceByUsr", "dsrDayEndBalanceByUsr");
}
clsReport::Object clsReport::DayEndBalanceByUsrInvDetail() {
    return missing("DayEndBalanceByUsrInvDetail", "dsrDayEndBalanceByUsrInvDetail");
}
clsReport::Object clsReport::DayEndBalanceByUsrPmtDetail() {
    return missing("DayEndBalanceByUsrPmtDetail", "dsrDayEndBalanceByUsrPmtDetail");
}
clsReport::Object clsReport::DayEndBalanceByUsrDepDetail() {
    return missing("DayEndBalanceByUsrDepDetail", "dsrDayEndBalanceByUsrDepDetail");
}
clsReport::Object clsReport::DocumentsToApprove() {
    return create<dsrDocumentsToApprove>("DocumentsToApprove");
}
clsReport::Object clsReport::ConsumedStatisticsByItem() {
    return missing("ConsumedStatisticsByItem", "dsrItemConsumedList");
}
clsReport::Object clsReport::ConsumedStatisticsByPeriod() {
    return missing("ConsumedStatisticsByPeriod", "dsrConsumedStatsByPeriod");
}

bool clsReport::ShowItemLine(int ExKitInvoiDetId, bool IsKit) {
    constexpr int componentsOnly = 2;  // a kit option: the kit's own line is left out, its components are printed
    bool shown = false;
    try {
        if (ExKitInvoiDetId == 0) return true;
        const auto kit = context_.company().Database().OpenRecordset(
            " SELECT Item.* "
            " FROM InvoiDet "
            "   INNER JOIN Item ON InvoiDet.ExItemId = Item.InItemId "
            " WHERE ExKitInvoiDetId = " +
                std::to_string(ExKitInvoiDetId),
            4, 0);
        if (kit->atEnd()) return true;
        const int option = kit->Value("ComputeKitOption", ValueType::integer).int32OrZero();
        shown = IsKit
                    ? option == 0 || option == 1
                    : option == componentsOnly || kit->Value("AllowKitModification", ValueType::boolean).boolOrFalse();
        kit->Close();
    } catch (const std::exception& failure) {
        showFailure(failure.what(), "ShowItemLine", __LINE__);
    }
    return shown;
}

namespace {

constexpr bool written = true, toCome = false;

#define MEMBER(name, report, state)                                                   \
    clsReport::Member {                                                               \
#name, #report, "", [](clsReport & factory) { return factory.name(); }, state \
    }

constexpr clsReport::Member catalogue[] = {
    MEMBER(ExpectedAndExceededPmtByCustSum, dsrExpectAndExceedPmtByCust, toCome),
    MEMBER(ExpectedAndExceededPmtByCustDet, dsrExpectAndExceedPmtByCust, toCome),
    MEMBER(SalesBySalesPersonGraph, dsrSalesBySalesPersonGraph, toCome),
    MEMBER(SalesBySalesPersonSummary, dsrSalesBySalesPersonSummary, toCome),
    MEMBER(CashReceiptsSummary, dsrCashReceiptsSummary, written),
    MEMBER(CashReceiptsDetail, dsrCashReceiptsDetail, written),
    clsReport::Member{"OpenOrders", "dsrOpenOrders", "lngInvType",
                      [](clsReport& factory) { return factory.OpenOrders(51); }, written},
    MEMBER(TermList, dsrTermList, written),
    MEMBER(SalesBySalesPersonDetail, dsrSalesBySalesPersonDetail, toCome),
    MEMBER(SalesBySalesPersProfDetail, dsrSalesBySalesPersProfDetail, toCome),
    MEMBER(SalesBySalesPersProfSummary, dsrSalesBySalesPersProfSummary, toCome),
    MEMBER(SalesJournalSummary, dsrSalesJournalSummary, written),
    MEMBER(SalesJournalDetail, dsrSalesJournalDetail, written),
    MEMBER(SalesJournalCompGraph, dsrSalesJournalCompGraph, toCome),
    MEMBER(SalesJournalCompGraphMonths, dsrSalesJournalCompGraphMonth, toCome),
    MEMBER(CustPhoneList, dsrCustPhoneList, written),
    MEMBER(ProjectPriceList, dsrProjectPriceList, written),
    MEMBER(JobCustByProject, dsrJobCostByProject, toCome),
    MEMBER(JobCustByCust, dsrJobCostByCust, toCome),
    MEMBER(JobCustBySupp, dsrJobCostBySupp, toCome),
    MEMBER(JobCustByEmpl, dsrJobCostByEmpl, toCome),
    MEMBER(CustList, dsrCustList, written),
    MEMBER(CustListShipAddr, dsrCustListShipAddr, written),
    MEMBER(CustCustomFieldList, dsrCustCustomFieldList, written),
    MEMBER(InvStatByCust, dsrInvStatByCust, toCome),
    MEMBER(InvStatByItem, dsrInvStatByItem, toCome),
    MEMBER(SalesStatistic, dsrSalesStatistic, toCome),
    MEMBER(CustAgingDetail, dsrCustAgingDetail, toCome),
    MEMBER(CustAgingSummary, dsrCustAgingSummary, toCome),
    MEMBER(CustAgingGraphic, dsrCustAgingGraphic, toCome),
    clsReport::Member{"CollectionLetter", "dsrCollectionLetters", "TextLetter, oMainApp",
                      [](clsReport& factory) { return factory.CollectionLetter(); }, toCome},
    MEMBER(CustTransHistoryRepNova, dsrCustTransHistoryRepNova, toCome),
    MEMBER(DayEndBalanceByCash, dsrDayEndBalanceByCash, toCome),
    MEMBER(DayEndBalanceByCashInvDetail, dsrDayEndBalanceByCashInvDetail, toCome),
    MEMBER(DayEndBalanceByCashPmtDetail, dsrDayEndBalanceByCashPmtDetail, toCome),
    MEMBER(DayEndBalanceByCashDepDetail, dsrDayEndBalanceByCashDepDetail, toCome),
    MEMBER(DayEndBalanceByUsr, dsrDayEndBalanceByUsr, toCome),
    MEMBER(DayEndBalanceByUsrInvDetail, dsrDayEndBalanceByUsrInvDetail, toCome),
    MEMBER(DayEndBalanceByUsrPmtDetail, dsrDayEndBalanceByUsrPmtDetail, toCome),
    MEMBER(DayEndBalanceByUsrDepDetail, dsrDayEndBalanceByUsrDepDetail, toCome),
    MEMBER(DocumentsToApprove, dsrDocumentsToApprove, written),
    MEMBER(ConsumedStatisticsByItem, dsrItemConsumedList, toCome),
    MEMBER(ConsumedStatisticsByPeriod, dsrConsumedStatsByPeriod, toCome),
};

#undef MEMBER

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
