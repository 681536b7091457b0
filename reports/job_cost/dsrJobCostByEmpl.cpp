#include "reports/job_cost/dsrJobCostByEmpl.h"

namespace quillo {

// A pay slip that nobody marked as cancelled or not counts as a posting and not in what is brought forward: meant, the
// running balance of a project may therefore end elsewhere than the next period begins.
dsrJobCostByEmpl::dsrJobCostByEmpl(HostContext& context)
    : JobCostByParty("dsrJobCostByEmpl", context,
                     {.titleId = 6124,
                      .tables = "ProjInfo, GLDet, GLAcct, TrxPay, Empl",
                      .postings = "SELECT ProjInfo.InProjId, ProjInfo.ProjId, ProjInfo.Descr, "
                                  "GLDet.SeqNo, GLDet.DetDate, GLDet.DetAmnt, "
                                  "GLDet.DetRef, GLDet.DetDesc, GLDet.ExProjId, GLDet.Source, "
                                  "GLDet.ExSrcKeyVal,GLAcct.GLAcctId,GLAcct.Descr As GLAcctDescr,TrxPay.Canceled, "
                                  "Empl.InEmplId , Empl.EmplId, Empl.FirstName, Empl.LastName "
                                  "FROM "
                                  "(((ProjInfo INNER JOIN GLDet ON "
                                  "ProjInfo.InProjId = GLDet.ExProjId) "
                                  "INNER JOIN TrxPay ON "
                                  "GLDet.ExSrcKeyVal = TrxPay.InTrxPayId) "
                                  "INNER JOIN GLAcct ON "
                                  "GLDet.ExAcctId = GLAcct.InGLAcctId) "
                                  "LEFT OUTER JOIN Empl ON "
                                  "TrxPay.ExEmplId = Empl.InEmplId "
                                  "WHERE "
                                  "GLDet.ExProjId <> 0 AND (TrxPay.Canceled = 0 OR TrxPay.Canceled IS NULL) AND "
                                  "GLDet.Source = 'PAY' AND "
                                  "GLDet.DetDate "
                                  "<= ? "
                                  "AND GLDet.DetAmnt <> 0 "
                                  "AND InGLAcctId <> ? "
                                  "AND InGLAcctId <> ? ",
                      .groups = {"EmplId", "ProjId"},
                      .order = " ORDER BY Empl.EmplId, ProjInfo.ProjId, GLDet.DetDate, GLAcct.GLAcctId",
                      .forward = "SELECT Sum(GLDet.DetAmnt) AS AmntSum "
                                 "FROM "
                                 "(((ProjInfo INNER JOIN GLDet ON "
                                 "ProjInfo.InProjId = GLDet.ExProjId) "
                                 "INNER JOIN TrxPay ON "
                                 "GLDet.ExSrcKeyVal = TrxPay.InTrxPayId) "
                                 "INNER JOIN GLAcct ON "
                                 "GLDet.ExAcctId = GLAcct.InGLAcctId) "
                                 "LEFT OUTER JOIN Empl ON "
                                 "TrxPay.ExEmplId = Empl.InEmplId "
                                 "WHERE "
                                 "GLDet.ExProjId <> 0 AND TrxPay.Canceled = 0 AND "
                                 "GLDet.Source = 'PAY' AND "
                                 "Empl.InEmplId = ? "
                                 "AND GLDet.ExProjId = ? "
                                 "AND GLDet.DetDate "
                                 "< ? "
                                 "AND GLDet.DetAmnt <> 0 ",
                      .projectHeader = "GrpHeaderPrj"}) {}

std::vector<Variant> dsrJobCostByEmpl::forwardValues() const {
    return {rows.Collect("InEmplId"), rows.Collect("InProjId"), m_dtDateFrom};
}

}  // namespace quillo
