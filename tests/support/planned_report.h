#pragma once

#include <string>
#include <vector>

#include "framework/engine/engine.h"
#include "tests/support/fake_host.h"
#include "tests/support/report_plan.h"

namespace quillo::test {

// The events of a run, in their order: "F Detail 3" for the third Format of Detail, "A Detail 3" for the AfterPrint
// that follows its print.
struct EventLog {
    std::vector<std::string> body, page;  // of the body; of page header and footer and what stands in them
};

// A report that does what its plan says.
class PlannedReport final : public Report {
public:
    PlannedReport(HostContext& context, const ReportPlan& plan, float pageHeight, EventLog& log, bool inPage = false);
    void ActiveReport_ReportStart() override;

private:
    struct Live {
        const SectionPlan* plan;
        Section* section;
        int number = 0;  // of the last print
        bool inPage = false;
    };
    void bind(Live& live);
    void format(Live& live);
    static void apply(const Live& live, const ControlPlan& plan);
    static void makeRoom(const Live& live, const SubReport& filter);
    void fetch(bool& eof);
    bool isDropped() const;
    void note(const Live& live, const char* event);

    const ReportPlan& plan_;
    EventLog& log_;
    std::vector<Live> live_;
    int runs_ = 0;
    std::vector<Row> rows_;  // of a report that is fed by hand
    std::size_t nextRow_ = 0;
};

// What came of running a plan.
struct PlannedRun {
    float pageHeight = 0;
    KeptPages kept;
    EventLog log;
    std::vector<std::string> boxes;
    std::string error;                      // of the engine; empty: the run came to its end
    int mostHeldBack = 0;                   // pages that were finished and not yet given to the sink
    int measured = 0;                       // texts that were broken into lines
    std::vector<std::size_t> eventsAtPage;  // how many events of the body each page left behind
};

PlannedRun runPlan(const ReportPlan& plan, float pageHeight);

}  // namespace quillo::test
