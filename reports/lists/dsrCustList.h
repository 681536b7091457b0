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
    void ReportFooter_Format();
    void ReplacePageHeaderControls();
    void showTerms();
    void showLastSale(int customerId);
    void CheckNameLang();
    std::string GetTaxGroup(int InTaxGroupId);

    SubReport& dsrFilterAndSortByInfoSubreport = subReport("dsrFilterAndSortByInfoSubreport");
    Line& Line1 = line("Line1");
    Line& Line2 = line("Line2");
    Label& lblCode = label("lblCode");
    Label& lbCustName = label("lbCustName");
    Label& lblAdress = label("lblAdress");
    Label& lblContact = label("lblContact");
    Label& lblTel1 = label("lblTel1");
    Label& Label1 = label("Label1");
    Label& Label2 = label("Label2");
    Label& lblWebSite = label("lblWebSite");
    Label& lblEmail = label("lblEmail");
    Label& lblLang = label("lblLang");
    Label& lblSalePerson = label("lblSalePerson");
    Label& lblTaxGroup = label("lblTaxGroup");
    Label& lblExTermId = label("lblExTermId");
    Label& lblCreditLimit = label("lblCreditLimit");
    Label& lblLastPurch = label("lblLastPurch");
    Field& fldCustId = field("fldCustId");
    Field& fldName = field("fldName");
    Label& fldAdress = label("fldAdress");
    Field& fldContact = field("fldContact");
    Field& fldWeb = field("fldWeb");
    Field& fldEmail = field("fldEmail");
    Field& fldNameLang = field("fldNameLang");
    Label& fldTaxGroupId = label("fldTaxGroupId");
    Label& fldTermes = label("fldTermes");
    Label& fldLastSale = label("fldLastSale");
    DataControl& rcsCustList = data("rcsCustList");
    Label& lblEnd = label("lblEnd");

    CustomerStatistics* m_objCustStats = nullptr;
    bool m_bTaxGroupCodes = false;
    bool m_bTermCodes = false;
};

}  // namespace quillo
