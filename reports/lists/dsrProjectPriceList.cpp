#include "reports/lists/dsrProjectPriceList.h"

#include "framework/drill_tags.h"

namespace quillo {

dsrProjectPriceList::dsrProjectPriceList(HostContext& context)
    : FilterableReport("dsrProjectPriceList", context, {.titleId = 6312, .keepsDateFrom = false}) {
    onFormat("PageHeader", &dsrProjectPriceList::PageHeader_Format);
    onFormat("Detail", &dsrProjectPriceList::Detail_Format);
    onFormat("ReportFooter", &dsrProjectPriceList::ReportFooter_Format);
}

void dsrProjectPriceList::ActiveReport_ReportStart() {
    std::string sql =
        "SELECT ProjInfo.InProjId, ProjInfo.ProjId, ProjInfo.Descr, "
        "ProjInfo.BegDate, ProjInfo.EndDate, ProjInfo.EstSales, "
        "ProjInfo.EstPurch, ProjInfo.EstHours FROM ProjInfo "
        "WHERE (ProjInfo.Inactive = 0 OR ProjInfo.Inactive IS NULL) ";
    if (!askFilter("ProjInfo")) return;
    STEP(sql += whereClause(filterParts(), OwnWhere::yes));
    STEP(sql += orderClause(filterParts(), " ORDER BY ProjId "));
    STEP(rcsPrjPriceList.Recordset = execute(sql));
    STEP(Translate());
    STEP(fillFilterInfo(dsrFilterAndSortByInfoSubreport));
    STEP(m_strUseProjectCodes = Variant(Setting(Setting::projectCodes)).toText());
}

void dsrProjectPriceList::PageHeader_Format() {
    STEP(ReplacePageHeaderControls());
    STEP(ReplaceDetailControls());
}

void dsrProjectPriceList::ReplacePageHeaderControls() {
    constexpr float codeLeft = 1710, descriptionWidth = 3960;
    Line1.Y1 = Line1.Y2 = belowFilter(dsrFilterAndSortByInfoSubreport);
    lblCode.Top = Line1.Y1 + 90;
    lblDescription.Top = lblDateStart.Top = lblSaleBal.Top = lblCode.Top;
    lbDateEnd.Top = lblDateStart.Top + 270;
    lblPurcBal.Top = lblSaleBal.Top + 270;
    lblHourBal.Top = lblPurcBal.Top + 270;
    Line2.Y1 = Line2.Y2 = lblHourBal.Top + lblHourBal.Height;
    section("PageHeader").Height = Line2.Y1 + 90;
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
    STEP(++m_lngRecordCount);
    STEP(if (rcsPrjPriceList.Collect("EstSales").isNull()) txtEstSale.Text = locale().currency(Money()));
    STEP(if (rcsPrjPriceList.Collect("EstPurch").isNull()) txtEstPurch.Text = locale().currency(Money()));
    STEP(txtEstHours.Text = locale().number(rcsPrjPriceList.Collect("EstHours").doubleOrZero()));
    STEP(link(plainTag(rcsPrjPriceList.Collect("InProjId")),
              {&fldProjId, &fldDescr, &fldBegDate, &fldEndDate, &txtEstSale, &txtEstPurch, &txtEstHours}));
}

void dsrProjectPriceList::ReportFooter_Format() {
    STEP(txtProjCount.Text = std::to_string(m_lngRecordCount) + " " + GetText(4766) + "(s)");
}

}  // namespace quillo
