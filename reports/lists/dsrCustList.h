#pragma once

#include "framework/run_frame.h"

namespace quillo {

// The active customers, a block of lines each: code, name and address; contact, telephones and fax; web address,
// e-mail, language and salesperson; tax group, terms, credit limit and the date of the last sale.
class dsrCustList final : public FilterableReport {
public:
    explicit dsrCustList(HostContext& context);

private:
    void ActiveReport_ReportStart() override;
    void ActiveReport_ReportEnd() override;
    void PageHeader_Format();
    void Detail_Format();
    std::string terms() const;
    // The code or the description of a tax group, as the company shows them; empty when there is none.
    std::string GetTaxGroup(int InTaxGroupId);
    void CheckNameLang();

    Label& lblTel1 = label("lblTel1");
    Label& Label1 = label("Label1");
    Label& lblCode = label("lblCode");
    Label& lbCustName = label("lbCustName");
    Field& fldCustId = field("fldCustId");
    Field& fldName = field("fldName");
    Label& fldAdress = label("fldAdress");
    Field& fldWeb = field("fldWeb");
    Field& fldEmail = field("fldEmail");
    Field& fldNameLang = field("fldNameLang");
    Label& fldTaxGroupId = label("fldTaxGroupId");
    Label& fldTermes = label("fldTermes");
    Label& fldLastSale = label("fldLastSale");
    DataControl& rcsCustList = data("rcsCustList");

    CustomerStatistics* m_objCustStats = nullptr;  // the host's; only while the report runs
    bool m_bTaxGroupCodes = false;
    bool m_bTermCodes = false;
};

}  // namespace quillo
