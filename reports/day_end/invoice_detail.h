#pragma once

#include "framework/run_frame.h"
#include "reports/day_end/till.h"

namespace quillo {

// The sales lines behind an account of a till: what the two reports have in common. Each tells its query.
class DayEndInvoiceDetail : public ReportFrame {
protected:
    DayEndInvoiceDetail(std::string name, HostContext& context);

    virtual Till::Query query() = 0;
    // The beginning of the query: 2 for a credit note, 1 for every other document. jetName: as that dialect's text has
    // the column.
    std::string codeColumn(std::string_view jetName) const;

    int GLAcctId = 0;  // the account's key

private:
    void ActiveReport_ReportStart() override;
    void ghGLAcct_Format();
    void Detail_Format();
    void gfGLAcct_Format();

    Field& txtGLAcctId = field("txtGLAcctId");
    Field& Field2 = field("Field2");
    Field& txtUnitPrice = field("txtUnitPrice");
    Field& txtDisc = field("txtDisc");
    Field& txtPriceInv = field("txtPriceInv");
    Field& txtPrice = field("txtPrice");
    DataControl& rsDayEndBal = data("rsDayEndBal");
    Money m_curAccountSum;
};

}  // namespace quillo
