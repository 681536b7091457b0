#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "framework/engine/engine.h"
#include "framework/page_texts.h"
#include "framework/report_factory.h"
#include "host/comparable/comparable_tables.h"
#include "host/filter/filter_tool.h"
#include "host/session/host_session.h"

namespace quillo {

// What a user wishes of one report; what is left out takes the report's own way.
struct ReportWish {
    using NamedValues = std::vector<std::pair<std::string, std::string>>;

    Date from = noStartLimit, to = noEndLimit;
    bool foreign = false;      // amounts in foreign currency
    NamedValues properties{};  // public properties and factory arguments
    NamedValues options{};     // of the report's dialog, by the names of its controls
    std::string segments{};    // ids joined by commas
    bool noSegment = false;    // rows without segment
    std::string where{}, order{};
    bool cancelFilter = false;  // behaves as a user who cancels the filter
    bool reevaluate = false;
    std::string ratesDate{};
    NamedValues rates{};  // currency code and rate to home currency
};

// What the host's frame says around the pages of a title. They ask the session for its failures, which must outlive
// them.
PageFrameTexts frameTexts(HostSession& session, std::string title, std::string period = {});

// One report on its way from a wish to its pages: made by the factory, given its contract, properties, options,
// segments, rates and filter, and run. Belongs to one session, which must outlive it; runs once.
class ReportJob {
public:
    // Throws InputError that says what of the wish the report or the company cannot meet.
    ReportJob(HostSession& session, const clsReport::Member& member, const ReportWish& wish);
    ReportJob(const ReportJob&) = delete;
    ReportJob& operator=(const ReportJob&) = delete;

    // False when the factory gave no report; its box told why. Nothing else may be asked then.
    bool made() const { return contract_ != nullptr; }
    Report& report() const { return *report_; }
    IReport& contract() const { return *contract_; }

    // What the host's frame says around the pages, as frameTexts.
    PageFrameTexts pageTexts() const;

    // Has the report write its comparable tables too, while it runs. Throws InputError when it has none.
    void collectInto(ComparableCollector& collector);
    // The tables that were collected, with what is to be known beside them.
    ComparableTables comparableTables(const ComparableCollector& collector) const;

    // Runs the report; runWithNotes tells what stands behind its last page. Throws InputError when the filter was
    // refused, DatabaseError when the company lacks what it filters by: then no page has left. Throws what runReport
    // throws.
    RunEnd run(PageSink& sink, TextMeasure& measure, RunOptions options = {});

private:
    void giveContract(const ReportWish& wish);
    void giveProperties(const ReportWish& wish);
    void giveOptions(const ReportWish& wish);
    void giveSegments(const ReportWish& wish);
    void giveRates(const ReportWish& wish);
    void giveFilter(const ReportWish& wish);
    std::string segmentText(const ReportWish& wish) const;
    std::string period() const;
    [[noreturn]] void refuse(const std::string& what) const;

    HostSession& session_;
    const clsReport::Member& member_;
    std::unique_ptr<HeadlessFilterTool> filter_;  // outlives the report
    clsReport::Object report_;
    IReport* contract_ = nullptr;
    Date from_, to_;
};

}  // namespace quillo
