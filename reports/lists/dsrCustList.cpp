#include "reports/lists/dsrCustList.h"

#include "framework/drill_tags.h"

namespace quillo {
namespace {

constexpr float lineDistance = 270;  // twips between the captions of a column

// Hangs the captions of one column under its first one.
void stack(float top, std::initializer_list<Label*> captions) {
    for (Label* caption : captions) {
        caption->Top = top;
        top += lineDistance;
    }
}

}  // namespace

dsrCustList::dsrCustList(HostContext& context)
    : FilterableReport("dsrCustList", context, {.titleId = 6219, .keepsDateFrom = false}) {
    onFormat("PageHeader", &dsrCustList::PageHeader_Format);
    onFormat("Detail", &dsrCustList::Detail_Format);
    onFormat("ReportFooter", &dsrCustList::ReportFooter_Format);
    if (Setting(Setting::customerCodes)) return;
    lblCode.Visible = fldCustId.Visible = false;
    lbCustName.Top = lblCode.Top;
    fldName.Top = fldCustId.Top;
}

void dsrCustList::ActiveReport_ReportStart() {
    STEP(m_objCustStats = &context().company().customerStatistics());
    STEP(m_objCustStats->setCached(true));
    std::string sql =
        "SELECT Cust.*, KorvaLanguages.DisplayName, GLAcct.GLAcctId, Term.TermId, Term.Descr as TermDescr "
        "FROM ((Cust LEFT JOIN Term ON Cust.ExTermId = Term.InTermId) "
        "LEFT JOIN KorvaLanguages ON KorvaLanguages.ID = Cust.NameLang) "
        "LEFT JOIN GLAcct ON Cust.ExGLAcctId = GLAcct.InGLAcctId "
        "WHERE (Cust.CustInactive = 0 OR Cust.CustInactive IS NULL) ";
    if (!askFilter("Cust")) return;
    STEP(sql += whereClause(filterParts(), OwnWhere::yes));
    STEP(sql += orderClause(filterParts(), " ORDER BY CustId"));
    STEP(rcsCustList.Recordset = execute(sql));
    STEP(Translate());
    STEP(m_bTaxGroupCodes = Setting(Setting::taxGroupCodes));
    STEP(m_bTermCodes = Setting(Setting::termCodes));
    STEP(fillFilterInfo(dsrFilterAndSortByInfoSubreport));
}

void dsrCustList::ActiveReport_ReportEnd() {
    m_objCustStats = nullptr;
}

void dsrCustList::PageHeader_Format() {
    STEP(ReplacePageHeaderControls());
}

void dsrCustList::ReplacePageHeaderControls() {
    Line1.Y1 = Line1.Y2 = belowFilter(dsrFilterAndSortByInfoSubreport);
    const float top = Line1.Y1 + 90;
    stack(top, {&lblCode, &lbCustName, &lblAdress});
    // Without codes the name stands in the code's place.
    if (!lblCode.Visible) lbCustName.Top = lblCode.Top;
    stack(top, {&lblContact, &lblTel1, &Label1, &Label2});
    stack(top, {&lblWebSite, &lblEmail, &lblLang, &lblSalePerson});
    stack(top, {&lblTaxGroup, &lblExTermId, &lblCreditLimit, &lblLastPurch});
    Line2.Y1 = Line2.Y2 = lblLastPurch.Top + lblLastPurch.Height + 30;
    section("PageHeader").Height = Line2.Y1;
}

void dsrCustList::Detail_Format() {
    if (rcsCustList.atEnd()) return;
    int customerId = 0;
    STEP(customerId = rcsCustList.Collect("InCustId").toInt32());
    STEP(fldAdress.Caption = context().company().addressBook().AddressOf(customerId));
    STEP(showTerms());
    STEP(showLastSale(customerId));
    STEP(fldTaxGroupId.Caption = GetTaxGroup(rcsCustList.Collect("ExTaxGroupId").int32OrZero()));
    STEP(link(plainTag(rcsCustList.Collect("InCustId")), {&fldCustId, &fldContact, &fldName, &fldTaxGroupId}));
    STEP(fldWeb.Hyperlink = webTag(fldWeb.Text));
    STEP(fldEmail.Hyperlink = mailTag(fldEmail.Text));
    STEP(CheckNameLang());
    STEP(++m_lngRecordCount);
}

void dsrCustList::showTerms() {
    const Variant code = rcsCustList.Collect("TermId");
    fldTermes.Caption = code.isNull()  ? ""
                        : m_bTermCodes ? code.toText()
                                       : rcsCustList.Collect("TermDescr").textOrEmpty();
}

void dsrCustList::showLastSale(int customerId) {
    const Date last = m_objCustStats->LastSaleDate(customerId);
    fldLastSale.Caption = locale().shortDate(last);
    fldLastSale.Visible = last != noDate;
}

std::string dsrCustList::GetTaxGroup(int InTaxGroupId) {
    std::string text;
    std::unique_ptr<HostRecordset> group;
    STEP(group = context().company().Database().OpenRecordset("SELECT TaxGroupId,TaxGroupDescr FROM TaxGroup "
                                                              "WHERE InTaxGroupId = ?",
                                                              2, 0, InTaxGroupId));
    STEP(if (group && !group->atEnd()) text =
             group->Value(m_bTaxGroupCodes ? "TaxGroupId" : "TaxGroupDescr", ValueType::text).textOrEmpty());
    return text;
}

// The name of a language in the user's own.
void dsrCustList::CheckNameLang() {
    fldNameLang.Text = context().company().dictionary().Translate(rcsCustList.Collect("DisplayName").textOrEmpty());
}

void dsrCustList::ReportFooter_Format() {
    STEP(setEndLine(lblEnd, 7622));
}

}  // namespace quillo
