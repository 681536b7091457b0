#include "reports/lists/dsrCustList.h"

#include "framework/drill_tags.h"

namespace quillo {

dsrCustList::dsrCustList(HostContext& context)
    : FilterableReport("dsrCustList", context,
                       {.titleId = 6219, .keepsDateFrom = false, .tables = "Cust", .endTextId = 7622}) {
    onFormat("PageHeader", &dsrCustList::PageHeader_Format);
    onFormat("Detail", &dsrCustList::Detail_Format);
    ActiveReport_Initialize(Setting::customerCodes, {{lblCode, lbCustName}, {fldCustId, fldName}});
}

void dsrCustList::ActiveReport_ReportStart() {
    STEP(m_objCustStats = &context().company().customerStatistics());
    STEP(m_objCustStats->setCached(true));
    const bool asked = FilterableReport::ActiveReport_ReportStart(
        {.text = "SELECT Cust.*, KorvaLanguages.DisplayName, GLAcct.GLAcctId, Term.TermId, Term.Descr as TermDescr "
                 "FROM ((Cust LEFT JOIN Term ON Cust.ExTermId = Term.InTermId) "
                 "LEFT JOIN KorvaLanguages ON KorvaLanguages.ID = Cust.NameLang) "
                 "LEFT JOIN GLAcct ON Cust.ExGLAcctId = GLAcct.InGLAcctId "
                 "WHERE (Cust.CustInactive = 0 OR Cust.CustInactive IS NULL) ",
         .order = " ORDER BY CustId"});
    if (!asked) return;
    STEP(m_bTaxGroupCodes = Setting(Setting::taxGroupCodes));
    STEP(m_bTermCodes = Setting(Setting::termCodes));
}

void dsrCustList::ActiveReport_ReportEnd() {
    m_objCustStats = nullptr;
}

// Two telephones under the same text.
void dsrCustList::PageHeader_Format() {
    STEP(lblTel1.Caption = GetText(1898) + " 1");
    STEP(Label1.Caption = GetText(1898) + " 2");
}

void dsrCustList::Detail_Format() {
    if (rcsCustList.atEnd()) return;
    fldAdress.Caption.clear();  // what fails shows nothing, not the customer before
    STEP(fldAdress.Caption = context().company().addressBook().AddressOf(rcsCustList.Collect("InCustId").toInt32()));
    fldTermes.Caption.clear();
    STEP(fldTermes.Caption = terms());
    Date last = noDate;
    STEP(last = m_objCustStats->LastSaleDate(rcsCustList.Collect("InCustId").toInt32()));
    fldLastSale.Caption = locale().shortDate(last);
    fldLastSale.Visible = last != noDate;
    STEP(fldTaxGroupId.Caption = GetTaxGroup(rcsCustList.Collect("ExTaxGroupId").int32OrZero()));
    fldWeb.Hyperlink = webTag(fldWeb.Text);
    fldEmail.Hyperlink = mailTag(fldEmail.Text);
    CheckNameLang();
    ++m_lngRecordCount;
}

std::string dsrCustList::terms() const {
    const Variant code = rcsCustList.Collect("TermId");
    if (code.isNull()) return {};
    return m_bTermCodes ? code.toText() : rcsCustList.Collect("TermDescr").textOrEmpty();
}

std::string dsrCustList::GetTaxGroup(int InTaxGroupId) {
    std::string text;
    std::unique_ptr<HostRecordset> group;
    STEP(group = context().company().Database().OpenRecordset("SELECT TaxGroupId,TaxGroupDescr FROM TaxGroup "
                                                              "WHERE InTaxGroupId = ?",
                                                              2, 0, InTaxGroupId));
    if (!group || group->atEnd()) return text;
    STEP(text = group->Value(m_bTaxGroupCodes ? "TaxGroupId" : "TaxGroupDescr", ValueType::text).textOrEmpty());
    return text;
}

// The name of a language in the user's own.
void dsrCustList::CheckNameLang() {
    STEP(fldNameLang.Text =
             context().company().dictionary().Translate(rcsCustList.Collect("DisplayName").textOrEmpty()));
}

}  // namespace quillo
