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
    int line = 0;  // of the statement that is under way
    try {
        Company& company = context.company();
        const bool inHomeCurrency = !ByCurrency || CurrencyId == company.HomeCurrencyId();
        line = __LINE__ + 1;
        const std::string accounts = listOf(ByCurrency ? company.accountGroups().Accounts("CustGLAR", CurrencyId)
                                                       : company.accountGroups().Accounts("CustGLAR"));
        SqlText = "SELECT SUM(" + std::string(inHomeCurrency ? "DetAmnt" : "ForeignAmnt") +
                  ") As Total FROM GLDet WHERE "
                  "ExAcctId IN(" +
                  accounts +
                  ") AND ARAPAdjustmentEntry<>0 AND ARAPAdjustmentEntry IS NOT NULL"
                  " AND DetDate<=?";
        SqlText += segmentClause("ExSegmentId", SegmentFilter, SegmentNoneFilter, true);
        line = __LINE__ + 1;
        const auto total = company.Database().OpenRecordset(SqlText, 4, 0, DateTo);
        line = __LINE__ + 1;
        return total->atEnd() ? Money() : total->Value("Total", ValueType::currency).moneyOrZero();
    } catch (const std::exception& failure) {
        throw DatabaseError(std::string(failure.what()) +
                            " (Quillo.MUtils.GetARAdjustments component failure at line:" + std::to_string(line) + ")");
    }
}

bool HasUnknownProject(HostContext& context) {
    constexpr std::string_view unassignedLines = "~Inconnu~";
    return context.company().projects().Exists(unassignedLines);
}

}  // namespace quillo::MUtils
