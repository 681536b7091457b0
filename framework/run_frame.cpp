#include "framework/run_frame.h"

#include <algorithm>

#include "framework/values/errors.h"

namespace quillo {

ReportFrame::ReportFrame(std::string name, HostContext& context, const ContractRow& contract)
    : Report(std::move(name), context), contract_(contract) {}

void ReportFrame::IReport_DateFrom(const Date& value) {
    if (contract_.keepsDateFrom && contract_.dateOptions != DateDisplay::closingDate) m_dtDateFrom = value;
}

std::string ReportFrame::withoutMarks(std::string text) {
    std::erase(text, '&');
    return text;
}

std::string ReportFrame::IReport_ReportTitle() {
    std::string title;
    if (titleId() != 0) STEP(title = withoutMarks(GetText(titleId())));
    return title;
}

void ReportFrame::IReport_DisplayForeignCurrency(const bool& value) {
    if (contract_.foreign == Foreign::ignored) return;
    // Kept whatever the company's setting, so that a grand total over currencies stays hidden.
    m_bDisplayForeignCurrency = value;
    if (contract_.foreign == Foreign::kept) return;
    bool shown = false;
    STEP(shown = value && currencies().CieIsForeignCurrencyUsed());
    STEP(section("ghCurrency").Visible = section("gfCurrency").Visible = shown);
    if (contract_.foreign == Foreign::keptWhereUsed) m_bDisplayForeignCurrency = shown;
}

bool ReportFrame::IReport_UseCurrency() {
    bool used = false;
    if (contract_.companyCurrency) STEP(used = currencies().CieIsForeignCurrencyUsed());
    return used;
}

Application& ReportFrame::application() const {
    if (m_objApplication == nullptr) throw NameError("The report has no application object");
    return *m_objApplication;
}

std::shared_ptr<Recordset> ReportFrame::execute(const std::string& sql, const std::vector<Variant>& values) {
    return execute(m_command, sql, values);
}

std::shared_ptr<Recordset> ReportFrame::execute(std::unique_ptr<Command>& command, const std::string& sql,
                                                const std::vector<Variant>& values) {
    HostDatabase& database = context().company().Database();
    if (!command) command = database.newCommand();
    command->CommandTimeout = 0;
    command->ActiveConnection = database.ConnectionString();
    command->CommandText = sql;
    command->Parameters.clear();
    context().utils().SetCommandParameters(*command, values);
    return command->Execute();
}

void ReportFrame::setDateCaption(Label& lblDateFromDateTo) {
    if (m_dtDateFrom != noStartLimit && m_dtDateTo != noEndLimit) {
        lblDateFromDateTo.Caption = GetText(3013) + " " + locale().shortDate(m_dtDateFrom) + " " + GetText(3012) + " " +
                                    locale().shortDate(m_dtDateTo);
    } else {
        lblDateFromDateTo.Caption = GetText(1376);
    }
}

void ReportFrame::replaceCaptions(const SubReport& filter, Label& first, std::initializer_list<Label*> others) {
    first.Top = belowFilter(filter);
    for (Label* other : others) other->Top = first.Top;
    section("PageHeader").Height = first.Top + first.Height;
}

std::string ReportFrame::rateLine(int currencyId, Money rate) const {
    const Currencies& known = currencies().currencies();
    const ReportUtils& utils = context().utils();
    const auto code = [&](int id) { return known.Item(std::to_string(id)).CurrencyCode; };
    return utils.NumberText(Variant("1")) + " " + code(currencyId) + " " + GetText(1849) + " " +
           utils.NumberText(Variant(rate)) + " " + code(currencies().CieHomeCurrencyId());
}

void ReportFrame::setEndLine(Label& lblEnd, int textId) {
    lblEnd.Caption = std::to_string(m_lngRecordCount) + " " + GetText(textId);
}

bool FilterableReport::hasFilterTool() const {
    if (m_objFilterTool == nullptr && !contract().filterOptional) throw NameError("The report has no filter tool");
    return m_objFilterTool != nullptr;
}

bool FilterableReport::askFilter(const std::string& tables, bool flagA, int line) {
    bool cancel = false;
    try {
        if (hasFilterTool()) m_objFilterTool->GetFilter(tables, flagA, true, cancel, true, true);
    } catch (const std::exception& failure) {
        showFailure(failure.what(), "ActiveReport_ReportStart", line);
    }
    return !cancel;
}

void FilterableReport::fillFilterInfo(SubReport& control, std::string_view segments) {
    if (!hasFilterTool()) return;
    const FilterInfo info = m_objFilterTool->GetFilterInfo();
    context().filterInfoFiller().FillFilterInfo(control, info, application(), segments);
}

}  // namespace quillo
