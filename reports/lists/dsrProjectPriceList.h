#pragma once

#include "framework/run_frame.h"

namespace quillo {

// The active projects with their dates and their estimates of sales, purchases and hours, totalled at the end.
class dsrProjectPriceList final : public FilterableReport {
public:
    explicit dsrProjectPriceList(HostContext& context);

private:
    void ActiveReport_ReportStart() override;
    void PageHeader_Format();
    void Detail_Format();
    void ReportFooter_Format();
    void ReplacePageHeaderControls();
    void ReplaceDetailControls();
    bool usesCodes() const { return Variant(m_strUseProjectCodes).toBool(); }

    Label& lblCode = label("lblCode");
    Label& lblDescription = label("lblDescription");
    Label& lblDateStart = label("lblDateStart");
    Field& fldProjId = field("fldProjId");
    Field& fldDescr = field("fldDescr");
    Field& txtEstSale = field("txtEstSale");
    Field& txtEstPurch = field("txtEstPurch");
    Field& txtEstHours = field("txtEstHours");
    DataControl& rcsPrjPriceList = data("rcsPrjPriceList");
    Field& txtProjCount = field("txtProjCount");

    std::string m_strUseProjectCodes = "False";
};

}  // namespace quillo
