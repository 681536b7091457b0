#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "framework/hosted_report.h"
#include "framework/query_builder.h"
#include "framework/report_contract.h"

namespace quillo {

// What a report does with the wish for amounts in foreign currency. The last two show the sections of a currency's
// group where the company uses foreign currency; keptWhereUsed forgets the wish where it does not.
enum class Foreign { ignored, kept, keptGatesSections, keptWhereUsed };

// The fixed values of a report's contract and of its frame.
struct ContractRow {
    int dateOptions = DateDisplay::none;
    int titleId = 0;               // text of the title; 0: empty
    bool companyCurrency = false;  // UseCurrency tells whether the company uses foreign currency; else False
    Foreign foreign = Foreign::ignored;
    bool keepsDateFrom = true;    // false: DateFrom is an empty body, as with a closing date alone
    std::string_view tables{};    // over which the user may filter; a report may have others (filterTables)
    bool filterFlagA = true;      // the first flag of the filter tool
    bool filterOptional = false;  // without a filter tool the report prints everything; else that is a failure
    bool orderBehindComma =
        false;              // the query joins the user's order behind a comma, which the order part brings along
    bool ownOrder = false;  // its own order leads the user's, or stands alone: the filter text then tells of none
    int endTextId = 0;      // what lblEnd counts: "12 customers"; 0: the report's own affair
};

// The frame in which every report of the factory runs: the plain part of the contract, and what all reports do at their
// ends. Reports differ in their query, design and events.
//
// The page header keeps its distance to the filter text: what the design sets below the sub-report
// dsrFilterAndSortByInfoSubreport moves down by what the text has grown, before the report's own PageHeader_Format.
class ReportFrame : public HostedReport, public IReport {
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

    // "From ... to ...", with a closing date alone "As of ...", into lblDateFromDateTo, or the text for no limit when
    // one of these dates is at its limit; nothing in a design without it.
    void setDateCaption();
    // Takes the captions of the columns, and all else below the filter text, out of the page header; for use in
    // PageHeader_Format.
    void hideCaptions();
    // The line that tells a foreign transaction's rate: "1 USD equals 1.35 CAD".
    std::string rateLine(int currencyId, Money rate) const;

    Date m_dtDateFrom;
    Date m_dtDateTo;
    bool m_bDisplayForeignCurrency = false;
    int m_lngRecordCount = 0;

private:
    // Where something of the page header stands by its design.
    struct HeaderPlace {
        Control* control;
        float top, bottom;
    };
    void PageHeader_Format();
    void ReportFooter_Format();
    void noteHeaderPlaces(const Section& header);
    template <class T>
    T* find(std::string_view section, std::string_view name) const;

    ContractRow contract_;
    SubReport* filterText_ = nullptr;  // of the page header; null in designs without
    float filterHeight_ = 0;           // by the design
    float headerHeight_ = -1;          // by the design and the report's start; -1: not noted yet
    std::vector<HeaderPlace> headerPlaces_;
};

// The query of a plain list.
struct ListQuery {
    std::string text;                      // up to where the user's condition follows
    OwnWhere where = OwnWhere::yes;        // whether it has a WHERE of its own
    std::string order;                     // the report's own " ORDER BY ..."
    std::vector<Variant> values{};         // of its "?" marks
    std::string_view keeping{};            // a column that leads the user's order unless it names it
    std::vector<std::string_view> ties{};  // columns that stand behind any order, so that rows stay together
    std::vector<std::string> leading{};    // columns that always lead the user's order: those of the groups
};

// A report whose rows the user may filter and sort.
class FilterableReport : public ReportFrame, public IFilterableReport {
public:
    void IFilterableReport_Filter(const std::string& value) override { m_strFilter = value; }
    void IFilterableReport_FilterTool(FilterTool& tool) override { m_objFilterTool = &tool; }
    // The tables and columns over which the user may filter, as the filter tool takes them.
    virtual std::string filterTables() const { return std::string(contract().tables); }
    // Whether the order part that the report takes begins with ", ".
    bool joinsOrderBehindComma() const { return contract().orderBehindComma; }

protected:
    using ReportFrame::ReportFrame;

    // The start of a plain list: asks for the filter, merges it into the query, executes it for the data control, and
    // fills the page header. False when the user cancelled: the start then ends.
    bool ActiveReport_ReportStart(const ListQuery& query);
    using Report::ActiveReport_ReportStart;

    // Asks the filter tool, which leaves the choice in the filter string. False when the user cancelled. A step of
    // ActiveReport_ReportStart. Without a tool there is nothing to ask in a report whose filter is optional.
    bool askFilter(int line = __builtin_LINE());
    FilterParts filterParts() const { return splitFilter(m_strFilter); }
    // Puts the filter's text into the page header, if there is a filter.
    void fillFilterInfo();
    // What the page header says of the chosen segments.
    virtual std::string_view segmentText() const { return {}; }

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
    std::string_view segmentText() const override { return m_strSegmentFilterDisplay; }

    std::string m_strSegmentFilter;
    std::string m_strSegmentFilterDisplay;
    bool m_bSegmentNoneFilter = false;
};

}  // namespace quillo
