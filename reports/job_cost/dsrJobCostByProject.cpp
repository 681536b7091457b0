#include "reports/job_cost/dsrJobCostByProject.h"

namespace quillo {

dsrJobCostByProject::dsrJobCostByProject(HostContext& context)
    : JobCostReport("dsrJobCostByProject", context,
                    {.titleId = 6125,
                     .tables = "GLDet, GLAcct, ProjInfo",
                     .postings = "SELECT "
                                 "GLDet.SeqNo, GLDet.DetDate, GLDet.DetAmnt, "
                                 "GLDet.DetRef, GLDet.DetDesc, GLDet.ExProjId, GLDet.Source, "
                                 "GLDet.ExSrcKeyVal,GLAcct.GLAcctId,GLAcct.Descr As GLAcctDescr, "
                                 "ProjInfo.InProjId , ProjInfo.ProjId, ProjInfo.Descr "
                                 "FROM "
                                 "(GLDet INNER JOIN GLAcct GLAcct ON "
                                 "GLDet.ExAcctId = GLAcct.InGLAcctId) "
                                 "INNER JOIN ProjInfo ProjInfo ON "
                                 "GLDet.ExProjId = ProjInfo.InProjId "
                                 "WHERE GLDet.ExProjId <> 0 "
                                 "AND GLDet.DetDate <= ? AND"
                                 " GLDet.DetAmnt <> 0 "
                                 "AND InGLAcctId <> ? "
                                 "AND InGLAcctId <> ? ",
                     .groups = {"ProjInfo.ProjId"},
                     .order = " ORDER BY ProjInfo.ProjId, GLDet.DetDate, GLAcct.GLAcctId",
                     .forward = "SELECT Sum(GLDet.DetAmnt) AS AmntSum "
                                "FROM "
                                "(ProjInfo ProjInfo INNER JOIN GLDet GLDet ON "
                                "ProjInfo.InProjId = GLDet.ExProjId) "
                                "INNER JOIN GLAcct GLAcct ON "
                                "GLDet.ExAcctId = GLAcct.InGLAcctId "
                                "WHERE "
                                "GLDet.ExProjId <> 0 AND "
                                " GLDet.ExProjId = ? "
                                "AND GLDet.DetDate "
                                "< ? "
                                "AND GLDet.DetAmnt <> 0 ",
                     .projectHeader = "GrpHeaderPrj"}) {
    onFormat("GroupFooter1", &dsrJobCostByProject::GroupFooter1_Format);
}

std::vector<Variant> dsrJobCostByProject::forwardValues() const {
    return {rows.Collect("InProjId"), m_dtDateFrom};
}

void dsrJobCostByProject::GroupFooter1_Format() {
    projectLine.show(m_project, locale());
    STEP(compareProject(Label23));
    STEP(closeProject());
}

}  // namespace quillo
