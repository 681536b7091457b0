#include "reports/job_cost/job_cost.h"

#include <utility>

#include "framework/values/text.h"
#include "reports/shared/account_texts.h"

namespace quillo {
namespace {

// Heights of a project's head in twips, with a balance brought forward below the name and without.
constexpr float headWithForward = 630, headAlone = 270;

constexpr std::string_view comparableMode = "PurgeIncl";

// A side of a posting: blank for the one that it is not on.
std::string sideOf(Money amount, const LocaleFormat& locale) {
    return amount.isZero() ? std::string() : locale.number(amount);
}

}  // namespace

void showBalance(Money balance, Field& amount, Label& mark, const LocaleFormat& locale) {
    const bool credit = balance < Money();
    amount.Text = locale.number(credit ? -balance : balance);
    mark.Caption = balance.isZero() ? ".." : credit ? "CT" : "DT";
}

void JobCostLine::show(const JobCostTotals& totals, const LocaleFormat& locale) const {
    debit.Text = locale.number(totals.sides.debit);
    credit.Text = locale.number(totals.sides.credit);
    showBalance(totals.balance, balance, mark, locale);
}

JobCostReport::JobCostReport(std::string name, HostContext& context, const Kind& kind)
    : ComparableReport<SegmentReport>(std::move(name), context,
                                      {.dateOptions = DateDisplay::range,
                                       .titleId = kind.titleId,
                                       .tables = kind.tables,
                                       .filterFlagA = false,
                                       .endTextId = 5861}),
      kind_(kind),
      GrpHeaderPrj(section(kind.projectHeader)) {
    onFormat(kind.projectHeader, &JobCostReport::GrpHeaderPrj_Format);
    onFormat("Detail", &JobCostReport::Detail_Format);
    onFormat("ReportFooter", &JobCostReport::ReportFooter_Format);
    ActiveReport_Initialize();
}

void JobCostReport::ActiveReport_Initialize() {
    bool numbers = true;
    STEP(numbers = usesAccountNumbers(context()));
    if (!numbers) txtGLAcctId.DataField = "GLAcctDescr";
    STEP(m_bProjectCodes = Setting(Setting::projectCodes));
}

JobCostLine JobCostReport::lineOf(std::string_view debit, std::string_view credit, std::string_view balance,
                                  std::string_view mark) const {
    return {field(debit), field(credit), field(balance), label(mark)};
}

void JobCostReport::ActiveReport_ReportStart() {
    // The balance brought forward knows neither rows without a segment nor the clearing accounts: meant, it is the
    // project's whole balance in the books, and may differ from that of the rows which do not print.
    forwardQuery_ = kind_.forward;
    if (!m_strSegmentFilter.empty()) forwardQuery_ += "AND GLDet.ExSegmentId IN (" + m_strSegmentFilter + ") ";
    std::vector<Variant> values{m_dtDateTo, 0, 0};
    STEP(values[1] = clearingAccount("WIPGLBankAccount"));
    STEP(values[2] = clearingAccount("WIPGLUnrecordedServiceAccount"));
    FilterableReport::ActiveReport_ReportStart({.text = std::string(kind_.postings) + segments("GLDet.ExSegmentId"),
                                                .order = std::string(kind_.order),
                                                .values = std::move(values),
                                                .leading = kind_.groups});
}

Variant JobCostReport::clearingAccount(std::string_view parameter) const {
    return Variant(context().company().GetParameter(parameter, "0", "KorvaAcctParams")).toInt32();
}

void JobCostReport::GrpHeaderPrj_Format() {
    GrpHeaderPrj.Visible = !rows.atEnd();
    if (!GrpHeaderPrj.Visible) return;
    ++m_lngRecordCount;
    fldProject.Text.clear();
    STEP(fldProject.Text = projectName());
    Money forward;
    STEP(forward = ForwardBalance(forwardValues()));
    showForward(forward);
}

std::string JobCostReport::projectName() const {
    const std::string name(trimmed(rows.Collect("Descr").textOrEmpty()));
    return m_bProjectCodes ? rows.Collect("ProjId").textOrEmpty() + "-" + name : name;
}

// The text of the query is the same for all projects of a run, so that the database prepares it once.
Money JobCostReport::ForwardBalance(const std::vector<Variant>& values) {
    Money balance;
    std::unique_ptr<HostRecordset> sum;
    STEP(sum = context().company().Database().OpenRecordset(forwardQuery_, 4, 0, values));
    if (sum && !sum->atEnd()) STEP(balance = sum->Value("AmntSum", ValueType::currency).moneyOrZero());
    return balance;
}

void JobCostReport::showForward(Money forward) {
    const bool shown = !forward.isZero();
    lblBalForward.Visible = fldBalForward.Visible = lblCT.Visible = shown;
    GrpHeaderPrj.Height = shown ? headWithForward : headAlone;
    if (shown) showBalance(forward, fldBalForward, lblCT, locale());
}

bool JobCostReport::isBeforePeriod() const {
    const Variant date = rows.Collect("DetDate");
    return !date.isNull() && date.toDate() < m_dtDateFrom;
}

void JobCostReport::Detail_Format() {
    Detail.Visible = !rows.atEnd();
    if (!Detail.Visible) return;
    Money amount;
    STEP(Detail.Visible = !isBeforePeriod());
    STEP(amount = rows.Collect("DetAmnt").moneyOrZero());
    STEP(lblSourceCaption.Caption = context().utils().SourceText(rows.Collect("Source").textOrEmpty()));
    DebitCredit sides;
    sides.add(amount);
    row.debit.Text = sideOf(sides.debit, locale());
    row.credit.Text = sideOf(sides.credit, locale());
    if (Detail.Visible) STEP(m_project.sides.add(sides));
    STEP(m_project.balance += amount);
    showBalance(m_project.balance, row.balance, row.mark, locale());
}

// What a project costs, with its sign, so that a comparison can tell cost from revenue.
void JobCostReport::compareProject(const Label& caption) {
    if (!isComparing()) return;
    ComparableReportGen& generator = *m_objComparableReportGen;
    if (!m_objTable) m_objTable = generator.AddTable(context().GetMessage(12944, "Korva", {}), comparableMode);
    m_objRow = generator.AddRow(*m_objTable, fldProject.Text, "", comparableMode);
    generator.AddCell(*m_objRow, caption.Caption, locale().number(m_project.balance), comparableMode);
}

void JobCostReport::closeProject() {
    m_grand.add(std::exchange(m_project, {}));
}

void JobCostReport::ReportFooter_Format() {
    grandLine.show(m_grand, locale());
    if (isComparing()) STEP(m_objComparableReportGen->Close());
}

JobCostByParty::JobCostByParty(std::string name, HostContext& context, const Kind& kind)
    : JobCostReport(std::move(name), context, kind) {
    onFormat("GroupFooter2", &JobCostByParty::GroupFooter2_Format);
    onFormat("GroupFooter1", &JobCostByParty::GroupFooter1_Format);
}

void JobCostByParty::GroupFooter2_Format() {
    projectLine.show(m_project, locale());
    STEP(compareProject(Label6));
    STEP(m_party.add(m_project));
    STEP(closeProject());
}

void JobCostByParty::GroupFooter1_Format() {
    partyLine.show(m_party, locale());
    m_party = {};
}

}  // namespace quillo
