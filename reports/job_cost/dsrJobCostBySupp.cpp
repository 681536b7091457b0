#include "reports/job_cost/dsrJobCostBySupp.h"

namespace quillo {

dsrJobCostBySupp::dsrJobCostBySupp(HostContext& context)
    : JobCostByParty("dsrJobCostBySupp", context,
                     {.titleId = 6123,
                      .tables = "ProjInfo, GLDet, GLAcct, PurcHdr, Supp",
                      .postings = "SELECT ProjInfo.InProjId, ProjInfo.ProjId, ProjInfo.Descr, "
                                  "GLDet.SeqNo, GLDet.DetDate, GLDet.DetAmnt, "
                                  "PurcHdr.PurcType, "
                                  "GLDet.DetRef, GLDet.DetDesc, GLDet.ExProjId, GLDet.Source, GLDet.ExSrcKeyVal, "
                                  "GLAcct.GLAcctId,GLAcct.Descr As GLAcctDescr,Supp.InSuppId , Supp.SuppId, Supp.Name "
                                  "FROM (((ProjInfo INNER JOIN GLDet ON "
                                  "ProjInfo.InProjId = GLDet.ExProjId) "
                                  "INNER JOIN PurcHdr ON "
                                  "GLDet.ExSrcKeyVal = PurcHdr.InPurcId) "
                                  "INNER JOIN GLAcct ON "
                                  "GLDet.ExAcctId = GLAcct.InGLAcctId) "
                                  "INNER JOIN Supp ON "
                                  "PurcHdr.ExSuppId = Supp.InSuppId "
                                  "WHERE GLDet.ExProjId <> 0 AND (GLDet.Source = 'PUR' OR "
                                  "GLDet.Source = 'EXP') AND "
                                  "GLDet.DetDate <= ? "
                                  "AND GLDet.DetAmnt <> 0 "
                                  "AND InGLAcctId <> ? "
                                  "AND InGLAcctId <> ? ",
                      .groups = {"SuppId", "ProjId"},
                      .order = " ORDER BY Supp.SuppId, ProjInfo.ProjId, GLDet.DetDate",
                      .forward = "SELECT Sum(GLDet.DetAmnt) AS AmntSum "
                                 "FROM (((ProjInfo INNER JOIN GLDet ON "
                                 "ProjInfo.InProjId = GLDet.ExProjId) "
                                 "INNER JOIN PurcHdr ON "
                                 "GLDet.ExSrcKeyVal = PurcHdr.InPurcId) "
                                 "INNER JOIN GLAcct ON "
                                 "GLDet.ExAcctId = GLAcct.InGLAcctId) "
                                 "INNER JOIN Supp ON "
                                 "PurcHdr.ExSuppId = Supp.InSuppId "
                                 "WHERE GLDet.ExProjId <> 0 AND GLDet.Source IN('PUR', 'EXP') AND "
                                 "GLDet.DetDate < ? "
                                 " AND Supp.InSuppId = ? "
                                 " AND GLDet.ExProjId = ? "
                                 " AND GLDet.DetAmnt <> 0 ",
                      .projectHeader = "GrpHeaderPrj"}) {}

std::vector<Variant> dsrJobCostBySupp::forwardValues() const {
    return {m_dtDateFrom, rows.Collect("InSuppId"), rows.Collect("InProjId")};
}

}  // namespace quillo
