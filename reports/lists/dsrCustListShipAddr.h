#pragma once

#include <unordered_set>

#include "framework/run_frame.h"

namespace quillo {

// The active customers, and under each its shipping addresses.
class dsrCustListShipAddr final : public FilterableReport {
public:
    explicit dsrCustListShipAddr(HostContext& context);

private:
    void ActiveReport_ReportStart() override;
    void PageHeader_Format();
    void ghCustId_Format();
    void Detail_Format();
    void ReportFooter_Format();
    void ReplacePageHeaderControls();
    std::string addressText() const;

    SubReport& dsrFilterAndSortByInfoSubreport = subReport("dsrFilterAndSortByInfoSubreport");
    Line& Line1 = line("Line1");
    Line& Line2 = line("Line2");
    Label& lblCode = label("lblCode");
    Label& lblName = label("lblName");
    Label& lblContact = label("lblContact");
    Label& lblTel1 = label("lblTel1");
    Label& lblFax = label("lblFax");
    Label& lblWebSite = label("lblWebSite");
    Label& lblEmail = label("lblEmail");
    Label& lblLang = label("lblLang");
    Label& lblShipAddr = label("lblShipAddr");
    Field& fldCustId = field("fldCustId");
    Field& fldName = field("fldName");
    Field& fldContact = field("fldContact");
    Field& fldWeb = field("fldWeb");
    Field& fldEmail = field("fldEmail");
    Field& fldNameLang = field("fldNameLang");
    Field& fldAddrName = field("fldAddrName");
    Label& fldShipAddr = label("fldShipAddr");
    DataControl& rcsCustListShipAddr = data("rcsCustListShipAddr");
    Label& lblEnd = label("lblEnd");
    std::unordered_set<int> m_customers;  // those that printed
};

}  // namespace quillo
