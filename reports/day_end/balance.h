#pragma once

#include "framework/run_frame.h"
#include "reports/day_end/dsrDayEndBalanceSubRepVent.h"
#include "reports/day_end/method_totals.h"

namespace quillo {

// The closing of the day, till by till: sales by account, tax and total, receipts by method, what was charged to
// accounts, and the drawer. What the report by user and the one by register have in common; they differ in their
// queries, and in whose till a group is. Only documents of the till count.
class DayEndBalance : public FilterableReport, public IReportConfig {
public:
    void IReportConfig_ShowConfigurationScreen(DialogService& dialogs) override;

protected:
    DayEndBalance(std::string name, HostContext& context, const ContractRow& contract, std::string_view keyColumn);

    // The queries of one till. key: of the user or the register whose group begins.
    virtual Till::Query salesLines(const FilterParts& filter) = 0;
    virtual Till::Query receiptsByMethod(const std::string& key) = 0;
    virtual Till::Query drawerRows(const std::string& key) = 0;
    virtual Till::Query salesTotals(const std::string& key) = 0;
    virtual Till::Query receiptsTotal(const std::string& key) = 0;
    virtual Till::Query cashSales(const std::string& key) = 0;
    virtual std::shared_ptr<DayEndMethodTotals> makeMethodTotals() = 0;
    // The key of a row; of none at the end.
    virtual std::string keyOf(const Variant& value) const = 0;
    virtual void tellDrawer(dsrDayEndBalanceSubRepVent& drawer, const std::string& key) = 0;

    // A condition on the method that is cash, where the company has one.
    void addCash(Till::Query& query, const char* condition);
    std::string rounded(const char* expression) const;
    // The beginning of an event of a till's group.
    void enterTill();
    void printSales();

    Money m_ReportTotal;
    bool m_bForeignUsed = false;
    bool m_bIncludeReceipts = true;
    DataControl& rsDayEndBal = data("rsDayEndBal");

private:
    void ActiveReport_ReportStart() override;
    void ReportHeader_Format();
    void ghGLAcct_Format();
    void Detail_Format();
    void gfGLAcct_Format();
    void fillMethods(const std::string& key);
    void fillDrawer(const std::string& key);
    void fillTotals(const std::string& key);
    Money sumOf(std::unique_ptr<Command>& command, const Till::Query& query, std::string_view column);

    Field& txtGLAcctId = field("txtGLAcctId");
    Field& txtDescr = field("txtDescr");
    Field& txtPrice = field("txtPrice");
    Field& txtSum = field("txtSum");
    Field& txtSumTaxAmnt = field("txtSumTaxAmnt");
    Field& txtSumTotAmnt = field("txtSumTotAmnt");
    Field& txtDifference = field("txtDifference");
    SubReport& dsrSubreportPmt = subReport("dsrSubreportPmt");
    SubReport& dsrSubreportVentilation = subReport("dsrSubreportVentilation");

    std::string_view keyColumn_;
    Till::Parameters CashParams;
    std::shared_ptr<DayEndMethodTotals> m_methods;
    std::shared_ptr<dsrDayEndBalanceSubRepVent> m_drawer;
    std::unique_ptr<Command> m_methodCommand, m_drawerCommand, m_totalCommand, m_receiptCommand, m_cashCommand;
    Money m_AcctSum, m_UserSum, m_CashTotal;
};

}  // namespace quillo
