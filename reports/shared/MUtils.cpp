#include "reports/shared/MUtils.h"

#include "framework/query_builder.h"
#include "framework/values/errors.h"

namespace quillo::MUtils {
namespace {

std::string listOf(const std::vector<int>& ids) {
    std::string list;
    for (const int id : ids) list += (list.empty() ? "" : ",") + std::to_string(id);
    return list;
}

}  // namespace

Money GetARAdjustments(HostContext& context, Date DateTo, const std::string& SegmentFilter, bool SegmentNoneFilter,
                       bool ByCurrency, std::string& SqlText, int CurrencyId) {
    try {
        Company& company = context.company();
        const bool inHomeCurrency = !ByCurrency || CurrencyId == company.HomeCurrencyId();
        AccountGroups& groups = company.accountGroups();
        const std::string accounts =
            listOf(ByCurrency ? groups.Accounts("CustGLAR", CurrencyId) : groups.Accounts("CustGLAR"));
        SqlText = "SELECT SUM(" + std::string(inHomeCurrency ? "DetAmnt" : "ForeignAmnt") +
                  ") As Total FROM GLDet WHERE "
                  "ExAcctId IN(" +
                  accounts +
                  ") AND ARAPAdjustmentEntry<>0 AND ARAPAdjustmentEntry IS NOT NULL"
                  " AND DetDate<=?";
        SqlText += segmentClause("ExSegmentId", SegmentFilter, SegmentNoneFilter, true);
        const auto total = company.Database().OpenRecordset(SqlText, 4, 0, DateTo);
        return total->atEnd() ? Money() : total->Value("Total", ValueType::currency).moneyOrZero();
    } catch (const std::exception& failure) {
        throw DatabaseError(std::string(failure.what()) +
                            " (Quillo.MUtils.GetARAdjustments component failure at line:" + std::to_string(__LINE__) +
                            ")");
    }
}

bool HasUnknownProject(HostContext& context) {
    constexpr std::string_view unassignedLines = "~Inconnu~";
    return context.company().projects().Exists(unassignedLines);
}

}  // namespace quillo::MUtils
