#include "framework/run_frame.h"

#include <algorithm>

#include "framework/values/errors.h"
#include "framework/values/names.h"

namespace quillo {

ReportFrame::ReportFrame(std::string name, HostContext& context, const ContractRow& contract)
    : HostedReport(std::move(name), context), contract_(contract) {
    filterText_ = find<SubReport>("PageHeader", "dsrFilterAndSortByInfoSubreport");
    if (filterText_ != nullptr) {
        filterHeight_ = filterText_->Height;
        onFormat("PageHeader", &ReportFrame::PageHeader_Format);
    }
    if (contract_.endTextId != 0) onFormat("ReportFooter", &ReportFrame::ReportFooter_Format);
}

template <class T>
T* ReportFrame::find(std::string_view sectionName, std::string_view controlName) const {
    for (const auto& candidate : sections()) {
        if (!equalNames(candidate->Name(), sectionName)) continue;
        Control* found = candidate->find(controlName);
        return found != nullptr && found->kind() == KindOf<T>::kind ? static_cast<T*>(found) : nullptr;
    }
    return nullptr;
}

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

void ReportFrame::setDateCaption() {
    Label* caption = find<Label>("PageHeader", "lblDateFromDateTo");
    if (caption == nullptr) return;
    const bool closing = contract_.dateOptions == DateDisplay::closingDate;
    if (m_dtDateTo == noEndLimit || (!closing && m_dtDateFrom == noStartLimit)) {
        caption->Caption = GetText(1376);
    } else if (closing) {
        caption->Caption = GetText(1776) + " " + locale().shortDate(m_dtDateTo);
    } else {
        caption->Caption = GetText(3013) + " " + locale().shortDate(m_dtDateFrom) + " " + GetText(3012) + " " +
                           locale().shortDate(m_dtDateTo);
    }
}

void ReportFrame::noteHeaderPlaces(const Section& header) {
    headerHeight_ = header.Height;
    for (const auto& control : header.controls) {
        const bool isLine = control->kind() == ControlKind::line;
        const auto& line = static_cast<const Line&>(*control);
        const float top = isLine ? line.Y1 : control->Top, bottom = isLine ? line.Y2 : control->Top;
        if (control.get() != filterText_ && top >= filterText_->Top + filterHeight_)
            headerPlaces_.push_back({control.get(), top, bottom});
    }
}

void ReportFrame::PageHeader_Format() {
    Section& header = section("PageHeader");
    if (headerHeight_ < 0) noteHeaderPlaces(header);
    const float grown = filterText_->Height - filterHeight_;
    for (const auto& [control, top, bottom] : headerPlaces_) {
        control->Top = top + grown;
        if (control->kind() != ControlKind::line) continue;
        static_cast<Line&>(*control).Y1 = top + grown;
        static_cast<Line&>(*control).Y2 = bottom + grown;
    }
    header.Height = headerHeight_ + grown;
}

void ReportFrame::hideCaptions() {
    for (const HeaderPlace& place : headerPlaces_) place.control->Visible = false;
    section("PageHeader").Height = filterText_->Height;
}

void ReportFrame::ReportFooter_Format() {
    STEP(label("lblEnd").Caption = std::to_string(m_lngRecordCount) + " " + GetText(contract_.endTextId));
}

std::string ReportFrame::rateLine(int currencyId, Money rate) const {
    const Currencies& known = currencies().currencies();
    const ReportUtils& utils = context().utils();
    const auto code = [&](int id) { return known.Item(std::to_string(id)).CurrencyCode; };
    return utils.NumberText(Variant("1")) + " " + code(currencyId) + " " + GetText(1849) + " " +
           utils.NumberText(Variant(rate)) + " " + code(currencies().CieHomeCurrencyId());
}

bool FilterableReport::hasFilterTool() const {
    if (m_objFilterTool == nullptr && !contract().filterOptional) throw NameError("The report has no filter tool");
    return m_objFilterTool != nullptr;
}

bool FilterableReport::askFilter(int line) {
    bool cancel = false;
    try {
        if (hasFilterTool())
            m_objFilterTool->GetFilter(filterTables(), contract().filterFlagA, true, cancel, true, true);
    } catch (const std::exception& failure) {
        showFailure(failure.what(), "ActiveReport_ReportStart", line);
    }
    return !cancel;
}

namespace {

std::string orderOf(const ListQuery& query, const FilterParts& filter) {
    if (!query.leading.empty())
        return orderClauseBehindAll(filter, {query.leading.begin(), query.leading.end()}, query.order);
    if (!query.keeping.empty()) return orderClauseKeeping(filter, query.keeping, query.order);
    return orderClause(filter, query.order);
}

}  // namespace

bool FilterableReport::ActiveReport_ReportStart(const ListQuery& query) {
    m_lngRecordCount = 0;
    if (!askFilter()) return false;
    const FilterParts filter = filterParts();
    const std::string sql =
        query.text + whereClause(filter, query.where) + orderWithTies(orderOf(query, filter), query.ties);
    STEP(dataControl()->Recordset = execute(sql, query.values));
    STEP(Translate());
    STEP(setDateCaption());
    STEP(fillFilterInfo());
    return true;
}

void FilterableReport::fillFilterInfo() {
    if (!hasFilterTool()) return;
    FilterInfo info = m_objFilterTool->GetFilterInfo();
    if (contract().ownOrder) info.order.clear();
    context().filterInfoFiller().FillFilterInfo(subReport("dsrFilterAndSortByInfoSubreport"), info, application(),
                                                segmentText());
}

}  // namespace quillo
