#pragma once

#include "framework/run_frame.h"

namespace quillo {

// What happened with each customer in a date range, in one column of signed amounts: documents, what was received with
// them, payments and discounts, with a total a customer. With foreign display a part a currency.
class dsrCustTransHistoryRepNova final : public ReportFrame {
public:
    explicit dsrCustTransHistoryRepNova(HostContext& context);

private:
    void ActiveReport_ReportStart() override;
    std::string query();
    void ghCurrency_Format();
    void ghCust_Format();
    void Detail_Format();
    std::string drillTagOfRow() const;

    Section& ghCurrency = section("ghCurrency");
    Section& ghCust = section("ghCust");
    Field& txtCurrencyDescr = field("txtCurrencyDescr");
    Label& lblCustInfo = label("lblCustInfo");
    Field& txtDocNumber = field("txtDocNumber");
    Field& txtDocDate = field("txtDocDate");
    Label& txtDocType = label("txtDocType");
    Field& txtAmount = field("txtAmount");
    DataControl& rcsCustHistory = data("rcsCustHistory");
    Label& lblCustTotal = label("lblCustTotal");

    bool m_bCustomerCodes = true;
};

}  // namespace quillo
