#include "tests/support/planned_report.h"

namespace quillo::test {

PlannedReport::PlannedReport(HostContext& context, const ReportPlan& plan, float pageHeight, EventLog& log, bool inPage)
    : Report(plan.name, context, designOf(plan, pageHeight)), plan_(plan), log_(log) {
    for (const SectionPlan& section : plan.sections)
        live_.push_back({&section, &this->section(section.name), 0, inPage || section.isOfPage()});
    for (Live& live : live_) bind(live);
    RemovesEmptyPages = plan.removesEmptyPage;
    if (plan.feed != Feed::fetch) return;
    for (const std::string& column : planColumns()) Fields.Add(column);
    fetchData = [this](bool& eof) { fetch(eof); };
}

void PlannedReport::bind(Live& live) {
    live.section->Format = [this, &live] { format(live); };
    live.section->AfterPrint = [this, &live] { note(live, "A "); };
    for (const ControlPlan& control : live.plan->controls)
        if (control.inner)
            subReport(control.name).Object =
                std::make_shared<PlannedReport>(context(), *control.inner, setup.height, log_, live.inPage);
}

void PlannedReport::note(const Live& live, const char* event) {
    (live.inPage ? log_.page : log_.body).push_back(event + live.plan->name + " " + std::to_string(live.number));
}

void PlannedReport::ActiveReport_ReportStart() {
    ++runs_;
    std::vector<Row> rows = plan_.rows(runs_);
    if (plan_.feed == Feed::fetch) {
        rows_ = std::move(rows);
        nextRow_ = 0;
    } else if (plan_.feed == Feed::recordset) {
        std::vector<std::vector<Variant>> values;
        for (Row& row : rows) values.push_back(std::move(row.values));
        dataControl()->Recordset = std::make_shared<MemoryRecordset>(planColumns(), std::move(values));
    }
}

void PlannedReport::fetch(bool& eof) {
    eof = nextRow_ == rows_.size();
    if (eof) return;
    const Row& row = rows_[nextRow_++];
    for (std::size_t i = 0; i < row.values.size(); ++i) Fields.Item(planColumns()[i]).Value = row.values[i];
}

bool PlannedReport::isDropped() const {
    if (plan_.feed == Feed::none) return false;
    if (plan_.feed == Feed::fetch) return rows_[nextRow_ - 1].dropped;
    return dataControl()->Collect("Dropped").toBool();
}

void PlannedReport::format(Live& live) {
    ++live.number;
    note(live, "F ");
    live.section->Visible = live.plan->isPrintedAt(live.number);
    live.section->Height = live.plan->heightAt(live.number);
    for (const ControlPlan& control : live.plan->controls) apply(live, control);
    if (live.plan->kind == SectionKind::detail && isDropped()) LayoutAction = LayoutActions::dropRow;
    if (live.plan->kind == SectionKind::pageHeader && !live.plan->controls.empty() && live.plan->controls.front().inner)
        makeRoom(live, subReport(live.plan->controls.front().name));
}

void PlannedReport::apply(const Live& live, const ControlPlan& plan) {
    Control& control = *live.section->find(plan.name);
    const bool printed = plan.isPrintedAt(live.number);
    if (plan.kind == ControlKind::pageBreak)
        static_cast<PageBreak&>(control).Enabled = printed;
    else
        control.Visible = printed;
    if (plan.kind == ControlKind::field && plan.shows == Shows::written)
        static_cast<Field&>(control).Text = plan.writtenAt(live.number);
}

// Moves the captions of a page header below its filled sub-report.
void PlannedReport::makeRoom(const Live& live, const SubReport& filter) {
    const float moved = filter.Height - live.plan->controls.front().height;
    for (const ControlPlan& plan : live.plan->controls) {
        if (plan.inner) continue;
        Control& control = *live.section->find(plan.name);
        control.Top = plan.top + moved;
        if (plan.kind != ControlKind::line) continue;
        static_cast<Line&>(control).Y1 = plan.top + moved;
        static_cast<Line&>(control).Y2 = plan.top + plan.height + moved;
    }
    live.section->Height += moved;
}

namespace {

// Counts the texts that it breaks.
class CountingMeasure final : public TextMeasure {
public:
    float lineHeight(const TextStyle& style) override { return fixed_.lineHeight(style); }
    float width(std::string_view text, const TextStyle& style) override { return fixed_.width(text, style); }
    void breakLines(std::string_view text, const TextStyle& style, float width,
                    std::vector<std::uint32_t>& starts) override {
        ++count;
        fixed_.breakLines(text, style, width, starts);
    }
    int count = 0;

private:
    FixedMeasure fixed_;
};

// Keeps the pages, and what had happened when each of them came.
class NotingSink final : public PageSink {
public:
    explicit NotingSink(PlannedRun& run) : run_(run) {}
    void page(const Page& page) override {
        run_.kept.page(page);
        run_.eventsAtPage.push_back(run_.log.body.size());
    }
    void finish() override { run_.kept.finish(); }

private:
    PlannedRun& run_;
};

constexpr int mostPages = 20000;

}  // namespace

PlannedRun runPlan(const ReportPlan& plan, float pageHeight) {
    PlannedRun run;
    run.pageHeight = pageHeight;
    FakeHost host;
    CountingMeasure measure;
    NotingSink sink(run);
    RunOptions options;
    options.maxPages = mostPages;
    options.proceed = [&](const Progress& progress) {
        run.mostHeldBack = std::max(run.mostHeldBack, progress.pages - static_cast<int>(run.kept.pages.size()));
        return true;
    };
    const auto report = std::make_shared<PlannedReport>(host, plan, pageHeight, run.log);
    try {
        runReport(*report, sink, measure, options);
    } catch (const EngineError& error) {
        run.error = error.what();
    }
    run.boxes = host.boxes;
    run.measured = measure.count;
    return run;
}

}  // namespace quillo::test
