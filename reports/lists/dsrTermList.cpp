#include "reports/lists/dsrTermList.h"

namespace quillo {
namespace {

// How a term counts its days: what it is called, and whether its figures mean anything.
struct TermMode {
    int id;
    int textId;
    bool hasFigures;
};
constexpr TermMode dayOfMonth{4, 1815, true}, netDays{1, 1817, true}, instalmentsByDates{2, 5717, false},
    instalmentsByDays{3, 5727, false};

const TermMode* modeOf(const Variant& id) {
    if (id.isNull()) return nullptr;
    for (const TermMode* mode : {&dayOfMonth, &netDays, &instalmentsByDates, &instalmentsByDays})
        if (mode->id == id.toInt32()) return mode;
    return nullptr;
}

}  // namespace

dsrTermList::dsrTermList(HostContext& context)
    : FilterableReport("dsrTermList", context, {.titleId = 6127, .tables = "Term", .endTextId = 7629}) {
    onFormat("Detail", &dsrTermList::Detail_Format);
}

void dsrTermList::ActiveReport_ReportStart() {
    FilterableReport::ActiveReport_ReportStart({.text = "SELECT InTermId, TermId, Descr, TermMode, Due, DiscPercent, "
                                                        "DiscDelay, DueNxtMonth FROM Term",
                                                .where = OwnWhere::no,
                                                .order = " ORDER BY Descr"});
}

void dsrTermList::Detail_Format() {
    if (rsTerms.atEnd()) return;
    ++m_lngRecordCount;
    const TermMode* mode = nullptr;
    STEP(mode = modeOf(rsTerms.Collect("TermMode")));
    // An unknown or missing mode keeps the figures as the row before left them: this is meant, as a term list is read
    // against the order in which the terms were entered.
    if (mode == nullptr) return;
    STEP(txtTermMode.Text = GetText(mode->textId));
    txtDue.Visible = txtDiscPercent.Visible = txtDiscDelay.Visible = txtDueNxtMonth.Visible = mode->hasFigures;
}

}  // namespace quillo
