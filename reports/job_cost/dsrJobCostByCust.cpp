#include "reports/job_cost/dsrJobCostByCust.h"

namespace quillo {

dsrJobCostByCust::dsrJobCostByCust(HostContext& context)
    : JobCostByParty(
          "dsrJobCostByCust", context,
          {.titleId = 6313,
           .tables = "ProjInfo, GLDet, GLAcct, InvoiHdr, Cust",
           .postings = "SELECT ProjInfo.InProjId, ProjInfo.ProjId, ProjInfo.Descr, "
                       "GLDet.SeqNo, GLDet.DetDate, GLDet.DetAmnt, "
                       "GLDet.DetRef, GLDet.DetDesc, GLDet.ExProjId, GLDet.Source, "
                       "GLDet.ExSrcKeyVal, GLAcct.GLAcctId, GLAcct.Descr As GLAcctDescr, InvoiHdr.InvoiType, "
                       "Cust.InCustId, Cust.CustId, "
                       "Cust.Name "
                       "FROM(((ProjInfo INNER JOIN GLDet ON "
                       "ProjInfo.InProjId = GLDet.ExProjId) "
                       "INNER JOIN InvoiHdr ON "
                       "GLDet.ExSrcKeyVal = InvoiHdr.InInvoiId) "
                       "INNER JOIN GLAcct ON "
                       "GLDet.ExAcctId = GLAcct.InGLAcctId) "
                       "INNER JOIN  Cust ON "
                       "InvoiHdr.ExCustId = Cust.InCustId "
                       "WHERE GLDet.Source = 'INV' AND GLDet.ExProjId <> 0 AND "
                       "GLDet.DetDate <= ? "
                       "AND GLDet.DetAmnt <> 0 "
                       "AND InGLAcctId <> ? "
                       "AND InGLAcctId <> ? ",
           .groups = {"Cust.CustId", "ProjInfo.ProjId"},
           .order = " ORDER BY Cust.CustId, ProjInfo.ProjId, GLDet.DetDate",
           .forward = "SELECT Sum(GLDet.DetAmnt) AS AmntSum "
                      "FROM(((ProjInfo INNER JOIN GLDet GLDet ON "
                      "ProjInfo.InProjId = GLDet.ExProjId) "
                      "INNER JOIN InvoiHdr ON "
                      "GLDet.ExSrcKeyVal = InvoiHdr.InInvoiId) "
                      "INNER JOIN GLAcct ON "
                      "GLDet.ExAcctId = GLAcct.InGLAcctId) "
                      "INNER JOIN  Cust ON "
                      "InvoiHdr.ExCustId = Cust.InCustId "
                      "WHERE GLDet.Source = 'INV' AND GLDet.ExProjId <> 0 AND "
                      "Cust.InCustId = ? "
                      "AND GLDet.ExProjId = ? "
                      "AND GLDet.DetDate < ? "
                      "AND GLDet.DetAmnt <> 0 ",
           .projectHeader = "GHeaderProj"}) {}

std::vector<Variant> dsrJobCostByCust::forwardValues() const {
    return {rows.Collect("InCustId"), rows.Collect("InProjId"), m_dtDateFrom};
}

}  // namespace quillo
