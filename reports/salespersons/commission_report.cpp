#include "reports/salespersons/commission_report.h"

#include "dialogs/frmAdvFilters.h"
#include "reports/salespersons/sales_texts.h"

namespace quillo {

CommissionReport::CommissionReport(std::string name, HostContext& context, int titleId, int varianceTitleId)
    : FilterableReport(std::move(name), context,
                       {.dateOptions = DateDisplay::range,
                        .titleId = titleId,
                        .companyCurrency = true,
                        .foreign = Foreign::kept,
                        .tables = "InvoiHdr, Cust, WorldCurrency",
                        .filterFlagA = false,
                        .ownOrder = true}),
      varianceTitleId_(varianceTitleId) {
    property("IsCommissionVariances", IsCommissionVariances);
}

// The title of variances keeps the marks of the host's menus: meant, no menu offers it.
std::string CommissionReport::IReport_ReportTitle() {
    if (!IsCommissionVariances) return FilterableReport::IReport_ReportTitle();
    std::string title;
    STEP(title = GetText(varianceTitleId_));
    return title;
}

void CommissionReport::IReportConfig_ShowConfigurationScreen(DialogService& dialogs) {
    frmAdvFilters form(context());
    form.Properties(Option::showZeroCommission, m_bShowZeroCommission);
    STEP(form.PrepareInvConfigDialog(application(), Option::showZeroCommission, 0));
    STEP(dialogs.ShowModal(form));
    m_bShowZeroCommission = form.Properties(Option::showZeroCommission);
}

// The employee is known by the words of the name alone: a document whose salesperson is none of them varies by nothing.
std::string CommissionReport::employeeJoin() const {
    if (!IsCommissionVariances) return {};
    return " LEFT JOIN (SELECT Empl.FirstName + ' ' + Empl.LastName AS EmplFullName,"
           " Empl.SalesComm, Empl.InEmplId FROM Empl) as EmplSalesPerson"
           " ON InvoiHdr.SalesPerson = EmplSalesPerson.EmplFullName";
}

std::string CommissionReport::varianceCondition(int databaseKind) const {
    if (!IsCommissionVariances) return {};
    if (databaseKind == 0)
        return " AND COALESCE(EmplSalesPerson.SalesComm, 0) <> InvoiHdr.CommissionPercent"
               " AND  NOT EmplSalesPerson.InEmplId IS NULL";
    if (databaseKind == 1)
        return " AND IIF(IsNull(EmplSalesPerson.SalesComm), 0, EmplSalesPerson.SalesComm) <> InvoiHdr.CommissionPercent"
               " AND  NOT ISNULL(EmplSalesPerson.InEmplId)";
    return {};
}

std::string CommissionReport::zeroCondition() const {
    return m_bShowZeroCommission ? "" : " AND InvoiHdr.CommissionAmount <> 0 ";
}

Money CommissionReport::rowVariance(std::string_view saleColumn) const {
    return commissionVariance(rsSales.Collect(saleColumn).doubleOrZero(),
                              rsSales.Collect("CommissionPercent").doubleOrZero(),
                              rsSales.Collect("SalesComm").doubleOrZero());
}

void CommissionReport::showVariance(Field& total, Money& variance) const {
    total.Text = locale().currency(variance);
    variance = Money();
}

void CommissionReport::showEnd() {
    lblEnd.Caption = std::to_string(m_lngSalesPersonCount) + " " + GetText(7627);
}

}  // namespace quillo
