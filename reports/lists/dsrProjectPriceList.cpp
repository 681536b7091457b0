#include "reports/lists/dsrProjectPriceList.h"

namespace quillo {

dsrProjectPriceList::dsrProjectPriceList(HostContext& context)
    : FilterableReport("dsrProjectPriceList", context,
                       {.titleId = 6312, .keepsDateFrom = false, .tables = "ProjInfo"}) {
    onFormat("PageHeader", &dsrProjectPriceList::PageHeader_Format);
    onFormat("Detail", &dsrProjectPriceList::Detail_Format);
    onFormat("ReportFooter", &dsrProjectPriceList::ReportFooter_Format);
}

void dsrProjectPriceList::ActiveReport_ReportStart() {
    const bool asked = FilterableReport::ActiveReport_ReportStart(
        {.text = "SELECT ProjInfo.InProjId, ProjInfo.ProjId, ProjInfo.Descr, "
                 "ProjInfo.BegDate, ProjInfo.EndDate, ProjInfo.EstSales, "
                 "ProjInfo.EstPurch, ProjInfo.EstHours FROM ProjInfo "
                 "WHERE (ProjInfo.Inactive = 0 OR ProjInfo.Inactive IS NULL) ",
         .order = " ORDER BY ProjId "});
    if (asked) STEP(m_strUseProjectCodes = Variant(Setting(Setting::projectCodes)).toText());
}

void dsrProjectPriceList::PageHeader_Format() {
    ReplacePageHeaderControls();
    ReplaceDetailControls();
}

// Without project codes the description takes the code's room.
void dsrProjectPriceList::ReplacePageHeaderControls() {
    constexpr float codeLeft = 1710, descriptionWidth = 3960;
    lblCode.Visible = usesCodes();
    lblDescription.Left = usesCodes() ? codeLeft : lblCode.Left;
    lblDescription.Width = usesCodes() ? descriptionWidth : lblDateStart.Left - 60 - lblDescription.Left;
}

void dsrProjectPriceList::ReplaceDetailControls() {
    fldProjId.Visible = usesCodes();
    fldDescr.Left = lblDescription.Left;
    fldDescr.Width = lblDescription.Width;
}

void dsrProjectPriceList::Detail_Format() {
    if (rcsPrjPriceList.atEnd()) return;
    ++m_lngRecordCount;
    if (rcsPrjPriceList.Collect("EstSales").isNull()) txtEstSale.Text = locale().currency(Money());
    if (rcsPrjPriceList.Collect("EstPurch").isNull()) txtEstPurch.Text = locale().currency(Money());
    STEP(txtEstHours.Text = locale().number(rcsPrjPriceList.Collect("EstHours").doubleOrZero()));
}

void dsrProjectPriceList::ReportFooter_Format() {
    STEP(txtProjCount.Text = std::to_string(m_lngRecordCount) + " " + GetText(4766) + "(s)");
}

}  // namespace quillo
