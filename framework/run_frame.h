#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "framework/engine/report.h"
#include "framework/query_builder.h"
#include "framework/report_contract.h"

// One step of a report's procedure: the smallest piece that may fail by itself and leave the rest meaningful. A
// failure shows its box, naming report, procedure and line, and the run goes on behind the step.
#define STEP(...)                                                  \
    do {                                                           \
        try {                                                      \
            __VA_ARGS__;                                           \
        } catch (const std::exception& failure) {                  \
            this->showFailure(failure.what(), __func__, __LINE__); \
        }                                                          \
    } while (false)

namespace quillo {

// What a report does with the wish for amounts in foreign currency. The last two show the sections of a currency's
// group where the company uses foreign currency; keptWhereUsed forgets the wish where it does not.
enum class Foreign { ignored, kept, keptGatesSections, keptWhereUsed };

// The fixed values of a report's contract.
struct ContractRow {
    int dateOptions = DateDisplay::none;
    int titleId = 0;               // text of the title; 0: empty
    bool companyCurrency = false;  // UseCurrency tells whether the company uses foreign currency; else False
    Foreign foreign = Foreign::ignored;
    bool keepsDateFrom = true;    // false: DateFrom is an empty body, as with a closing date alone
    bool filterOptional = false;  // without a filter tool the report prints everything; else that is a failure
};

// The frame in which every report of the factory runs: the plain part of the contract, and the common steps of
// a run. Reports differ in their query, design and events.
class ReportFrame : public Report, public IReport {
public:
    int IReport_DateDisplayOptions() override { return contract_.dateOptions; }
    Date IReport_DateFrom() override { return m_dtDateFrom; }
    void IReport_DateFrom(const Date& value) override;
    Date IReport_DateTo() override { return m_dtDateTo; }
    void IReport_DateTo(const Date& value) override { m_dtDateTo = value; }
    void IReport_Application(Application& application) override { m_objApplication = &application; }
    std::string IReport_ReportTitle() override;
    Report* IReport_ReportDesigner() override { return this; }
    bool IReport_NoHeaders() override { return false; }
    void IReport_ReportDesigner(Report*) override {}
    void IReport_Initialize() override {}
    void IReport_DisplayForeignCurrency(const bool& value) override;
    bool IReport_UseCurrency() override;

protected:
    ReportFrame(std::string name, HostContext& context, const ContractRow& contract);

    const ContractRow& contract() const { return contract_; }

    // The text id of the title, for reports that hold two.
    virtual int titleId() const { return contract_.titleId; }
    // The title of a text: without the accelerator marks of the host's menus.
    static std::string withoutMarks(std::string text);

    // Throws when the host has not set it yet.
    Application& application() const;
    std::string GetText(int id) const { return application().GetText(id); }
    const LocaleFormat& locale() const { return context().locale(); }
    CurrencyInfo& currencies() const { return application().currencyInfo(); }
    bool Setting(int number) const { return context().company().settings().Item(number).toBool(); }

    // Connects, sets the text, binds the values to its "?" marks in order, and executes: the report's own
    // command without a time limit.
    std::shared_ptr<Recordset> execute(const std::string& sql, const std::vector<Variant>& values = {});
    std::shared_ptr<Recordset> execute(std::unique_ptr<Command>& command, const std::string& sql,
                                       const std::vector<Variant>& values);

    void Translate() { context().localizer().Translate(*this); }
    // "From ... to ...", or the text for no limit when either date is at its limit.
    void setDateCaption(Label& lblDateFromDateTo);
    // Where the captions start: below the filled filter text.
    static float belowFilter(const SubReport& filter) { return filter.Top + filter.Height + 90; }
    // One line of captions under the filter text, the page header ending with it.
    void replaceCaptions(const SubReport& filter, Label& first, std::initializer_list<Label*> others);
    // The line that tells a foreign transaction's rate: "1 USD equals 1.35 CAD".
    std::string rateLine(int currencyId, Money rate) const;
    // The last line of a report: the count, a blank, and what was counted.
    void setEndLine(Label& lblEnd, int textId);

    Application* m_objApplication = nullptr;
    Date m_dtDateFrom;
    Date m_dtDateTo;
    bool m_bDisplayForeignCurrency = false;
    int m_lngRecordCount = 0;

private:
    ContractRow contract_;
    std::unique_ptr<Command> m_command;
};

// A report whose rows the user may filter and sort.
class FilterableReport : public ReportFrame, public IFilterableReport {
public:
    void IFilterableReport_Filter(const std::string& value) override { m_strFilter = value; }
    void IFilterableReport_FilterTool(FilterTool& tool) override { m_objFilterTool = &tool; }

protected:
    using ReportFrame::ReportFrame;
    // Asks the filter tool, which leaves the choice in the filter string. False when the user cancelled. A step of
    // ActiveReport_ReportStart. Without a tool there is nothing to ask in a report whose filter is optional.
    bool askFilter(const std::string& tables, bool flagA = true, int line = __builtin_LINE());
    FilterParts filterParts() const { return splitFilter(m_strFilter); }
    // Puts the filter's text into the page header, if there is a filter.
    void fillFilterInfo(SubReport& control, std::string_view segments = "");

    std::string m_strFilter;
    FilterTool* m_objFilterTool = nullptr;

private:
    // Whether there is a filter tool; throws where the report cannot do without.
    bool hasFilterTool() const;
};

// A filterable report that can be narrowed to segments.
class SegmentReport : public FilterableReport, public ISegmentFilter {
public:
    void ISegmentFilter_SegmentFilter(const std::string& value) override { m_strSegmentFilter = value; }
    void ISegmentFilter_SegmentFilterDisplay(const std::string& value) override { m_strSegmentFilterDisplay = value; }
    void ISegmentFilter_SegmentNoneFilter(const bool& value) override { m_bSegmentNoneFilter = value; }

protected:
    using FilterableReport::FilterableReport;
    // The clause of the chosen segments behind a condition of the query's own: " AND (column IN (1,2))".
    std::string segments(std::string_view column) const {
        return segmentClause(column, m_strSegmentFilter, m_bSegmentNoneFilter, true);
    }
    // The same as the first condition, without AND.
    std::string firstSegments(std::string_view column) const {
        return segmentClause(column, m_strSegmentFilter, m_bSegmentNoneFilter, false);
    }

    std::string m_strSegmentFilter;
    std::string m_strSegmentFilterDisplay;
    bool m_bSegmentNoneFilter = false;
};

}  // namespace quillo
