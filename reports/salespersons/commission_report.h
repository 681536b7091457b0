#pragma once

#include "framework/run_frame.h"

namespace quillo {

// What the two reports of sales and commissions by salesperson have in common. They have two faces: the commission
// as it stands on the documents, or, with IsCommissionVariances, the documents whose percent is not the employee's own
// and the difference in money.
class CommissionReport : public FilterableReport, public IReportConfig {
public:
    std::string IReport_ReportTitle() override;
    void IReportConfig_ShowConfigurationScreen(DialogService& dialogs) override;

protected:
    CommissionReport(std::string name, HostContext& context, int titleId, int varianceTitleId);

    // Parts of the query: the employee of the documents' salesperson and the test on his percent, both empty without
    // variances; the test on a commission of zero, where the user wants none.
    std::string employeeJoin() const;
    std::string varianceCondition(int databaseKind) const;
    std::string zeroCondition() const;

    // The difference in money of a row whose sale stands in that column.
    Money rowVariance(std::string_view saleColumn) const;
    // Writes a total of variances in the place of the commissions' own, and begins it anew.
    void showVariance(Field& total, Money& variance) const;
    void showEnd();

    bool IsCommissionVariances = false;
    bool m_bShowZeroCommission = true;
    int m_lngSalesPersonCount = 0;

    DataControl& rsSales = data("rsSales");
    Label& lblComm = label("lblComm");
    Label& lblEnd = label("lblEnd");

private:
    int varianceTitleId_;
};

}  // namespace quillo
