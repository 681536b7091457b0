#include "reports/lists/dsrTermList.h"

#include "framework/drill_tags.h"

namespace quillo {
namespace {

// How a term counts its days.
namespace TermMode {
constexpr int netDays = 1, cash = 2, onReceipt = 3, dayOfMonth = 4;
}

}  // namespace

dsrTermList::dsrTermList(HostContext& context) : FilterableReport("dsrTermList", context, {.titleId = 6127}) {
    onFormat("PageHeader", &dsrTermList::PageHeader_Format);
    onFormat("Detail", &dsrTermList::Detail_Format);
    onFormat("ReportFooter", &dsrTermList::ReportFooter_Format);
}

void dsrTermList::ActiveReport_ReportStart() {
    STEP(m_lngRecordCount = 0);
    std::string sql =
        "SELECT InTermId, TermId, Descr, TermMode, Due, DiscPercent, "
        "DiscDelay, DueNxtMonth FROM Term";
    if (!askFilter("Term")) return;
    STEP(sql += whereClause(filterParts(), OwnWhere::no));
    STEP(sql += orderClause(filterParts(), " ORDER BY Descr"));
    STEP(rsTerms.Recordset = execute(sql));
    STEP(Translate());
    STEP(fillFilterInfo(dsrFilterAndSortByInfoSubreport));
}

void dsrTermList::PageHeader_Format() {
    STEP(ReplacePageHeaderControls());
}

void dsrTermList::ReplacePageHeaderControls() {
    replaceCaptions(dsrFilterAndSortByInfoSubreport, lblDescr,
                    {&lblTermMode, &lblDue, &lblEscomptePers, &lblEscompteDelay, &lblNextDue});
}

void dsrTermList::Detail_Format() {
    if (rsTerms.atEnd()) return;
    STEP(showMode(rsTerms.Collect("TermMode")));
    STEP(++m_lngRecordCount);
    STEP(link(plainTag(rsTerms.Collect("InTermId")),
              {&txtDescr, &txtDiscDelay, &txtDiscPercent, &txtDue, &txtDueNxtMonth, &txtTermMode}));
}

// An unknown or missing mode keeps the figures as the row before left them: this is meant, as a term list is read
// against the order in which the terms were entered.
void dsrTermList::showMode(const Variant& mode) {
    if (mode.isNull()) return;
    switch (mode.toInt32()) {
        case TermMode::dayOfMonth:
            txtTermMode.Text = GetText(1815);
            return showFigures(true);
        case TermMode::netDays:
            txtTermMode.Text = GetText(1817);
            return showFigures(true);
        case TermMode::cash:
            txtTermMode.Text = GetText(5717);
            return showFigures(false);
        case TermMode::onReceipt:
            txtTermMode.Text = GetText(5727);
            return showFigures(false);
        default:
            return;
    }
}

void dsrTermList::showFigures(bool shown) {
    txtDue.Visible = txtDiscPercent.Visible = txtDiscDelay.Visible = txtDueNxtMonth.Visible = shown;
}

void dsrTermList::ReportFooter_Format() {
    STEP(setEndLine(lblEnd, 7629));
}

}  // namespace quillo
