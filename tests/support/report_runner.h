#pragma once

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "framework/dialog_form.h"
#include "framework/report_factory.h"
#include "host/filter/filter_tool.h"
#include "host/session/host_session.h"
#include "tests/host/test_company.h"
#include "tests/support/fake_host.h"

namespace quillo::test {

// What a user asks of a report of the factory.
struct ReportRun {
    std::string member;
    std::string company;  // path of the file
    std::string from{}, to{};
    bool foreign = false;
    std::string where{}, order{};
    std::string segments{};
    bool noSegment = false;
    std::map<std::string, std::string> properties{};
    std::string language = "en", locale = "en_CA";
    int dialect = 0;
    std::map<int, std::string> settings{};
    std::map<std::string, std::string> parameters{};
    bool cancelFilter = false;
    std::vector<std::pair<std::string, Variant>> options{};  // of the report's dialog, in the user's order
    float pageHeight = 0;                                    // twips; 0: as the design has it
};

// The user of a test: sets the options that it names, then clicks OK.
class OptionSetter final : public DialogService {
public:
    using Options = std::vector<std::pair<std::string, Variant>>;
    explicit OptionSetter(const Options& options) : options_(options) {}
    void ShowModal(DialogForm& form) override {
        form.Show();
        for (const auto& [name, value] : options_) form.setOption(name, value.toText());
        form.click(form.cmdOk.Name);
    }

private:
    const Options& options_;
};

// What the user sees of it: pages, failure boxes, and what the database was asked, a line a query.
struct ReportResult {
    KeptPages kept;
    std::vector<std::string> boxes;
    std::vector<std::string> sql;

    std::string text() const { return describe(kept); }
    // One page, a line a section.
    std::string page(std::size_t index) const {
        KeptPages one;
        one.pages = {kept.pages.at(index)};
        return describe(one);
    }
    std::size_t pageCount() const { return kept.pages.size(); }
    // What the control of that name printed, each time that it printed, sub-reports included.
    std::vector<std::string> texts(std::string_view control) const { return collect(control, &PlacedControl::text); }
    std::vector<std::string> links(std::string_view control) const { return collect(control, &PlacedControl::link); }
    // The same of a control that prints once in the report.
    std::string only(std::string_view control) const {
        const auto all = texts(control);
        EXPECT_EQ(all.size(), 1U) << control;
        return all.empty() ? std::string() : all.front();
    }

private:
    using Part = std::string_view PlacedControl::*;
    std::vector<std::string> collect(std::string_view control, Part part) const {
        std::vector<std::string> found;
        for (const auto& page : kept.pages)
            for (const auto& section : page->sections) collect(section, control, part, found);
        return found;
    }
    static void collect(const PlacedSection& section, std::string_view name, Part part,
                        std::vector<std::string>& found) {
        for (const PlacedControl& control : section.controls) {
            if (control.info->name == name) found.emplace_back(control.*part);
            for (const PlacedSection& inner : control.sections) collect(inner, name, part, found);
        }
    }
};

// Runs a report as the program does. Throws when the factory does not give it or the filter is refused.
inline ReportResult runReport(const ReportRun& run) {
    ListedMessages messages;
    SessionOptions options;
    options.company = run.company;
    options.language = run.language;
    options.locale = run.locale;
    options.dialect = run.dialect;
    options.settings = run.settings;
    options.parameters = run.parameters;
    HostSession session(options, messages);
    std::stringstream trace;
    session.file().database().setTrace(&trace);
    const auto* member = clsReport::findMember(run.member);
    clsReport factory(session);
    const auto report = member != nullptr ? member->make(factory) : nullptr;
    auto* contract = dynamic_cast<IReport*>(report.get());
    if (contract == nullptr) throw std::runtime_error("The factory gives no report " + run.member);
    contract->IReport_Application(session);
    contract->IReport_Initialize();
    contract->IReport_DateFrom(Date::parseIso(run.from).value_or(noStartLimit));
    contract->IReport_DateTo(Date::parseIso(run.to).value_or(noEndLimit));
    contract->IReport_DisplayForeignCurrency(run.foreign);
    for (const auto& [name, value] : run.properties) report->setProperty(name, value);
    if (auto* config = dynamic_cast<IReportConfig*>(report.get()); config != nullptr && !run.options.empty()) {
        OptionSetter user(run.options);
        config->IReportConfig_ShowConfigurationScreen(user);
    }
    if (auto* segments = dynamic_cast<ISegmentFilter*>(report.get())) {
        segments->ISegmentFilter_SegmentFilter(run.segments);
        segments->ISegmentFilter_SegmentNoneFilter(run.noSegment);
    }
    auto* filterable = dynamic_cast<IFilterableReport*>(report.get());
    FilterChoice choice;
    choice.where = run.where;
    choice.order = run.order;
    choice.cancel = run.cancelFilter;
    HeadlessFilterTool tool(choice, session.file().catalogue(), session,
                            [&](const std::string& filter) { filterable->IFilterableReport_Filter(filter); });
    if (filterable != nullptr) filterable->IFilterableReport_FilterTool(tool);
    if (run.pageHeight > 0) report->setup.height = run.pageHeight;
    ReportResult result;
    FixedMeasure measure;
    quillo::runReport(*report, result.kept, measure);
    session.file().database().setTrace(nullptr);
    if (!tool.failure().empty()) throw std::runtime_error("The filter is refused: " + tool.failure());
    result.boxes = messages.texts;
    for (std::string line; std::getline(trace, line);) result.sql.push_back(line);
    return result;
}

}  // namespace quillo::test
