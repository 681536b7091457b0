#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/session/report_job.h"
#include "tests/host/test_company.h"
#include "tests/support/fake_host.h"
#include "tests/support/sample_letter.h"

namespace quillo::test {

// What a user asks of a report of the factory.
struct ReportRun {
    std::string member;
    std::string company;  // path of the file
    std::string from{}, to{};
    std::string sessionDate{};  // empty: today
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
    bool reevaluate = false;
    std::string ratesDate{};
    std::vector<std::pair<std::string, std::string>> rates{};  // currency code and rate
    float pageHeight = 0;                                      // twips; 0: as the design has it
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

// One of several texts; a text that says so where there are not that many, so that a test fails and does not crash.
inline std::string nth(const std::vector<std::string>& texts, std::size_t index) {
    return index < texts.size() ? texts[index] : "(there are " + std::to_string(texts.size()) + ")";
}
inline std::string first(const std::vector<std::string>& texts) {
    return nth(texts, 0);
}
inline std::string last(const std::vector<std::string>& texts) {
    return nth(texts, texts.empty() ? 0 : texts.size() - 1);
}

inline ReportWish wishOf(const ReportRun& run) {
    ReportWish wish;
    wish.from = Date::parseIso(run.from).value_or(noStartLimit);
    wish.to = Date::parseIso(run.to).value_or(noEndLimit);
    wish.foreign = run.foreign;
    wish.properties.assign(run.properties.begin(), run.properties.end());
    for (const auto& [name, value] : run.options) wish.options.emplace_back(name, value.toText());
    wish.segments = run.segments;
    wish.noSegment = run.noSegment;
    wish.where = run.where;
    wish.order = run.order;
    wish.cancelFilter = run.cancelFilter;
    // A letter has a body unless the test gives it another one.
    if (run.member == "CollectionLetter" && !run.properties.contains("TextLetter"))
        wish.properties.emplace_back("TextLetter", sampleLetter());
    wish.reevaluate = run.reevaluate;
    wish.ratesDate = run.ratesDate;
    wish.rates = run.rates;
    return wish;
}

// Runs a report as the program does. Throws when the factory does not give it or the filter is refused. prepare gets
// the report just before it runs.
inline ReportResult runReport(const ReportRun& run, const std::function<void(Report&)>& prepare = {}) {
    ListedMessages messages;
    SessionOptions options;
    options.company = run.company;
    options.language = run.language;
    options.locale = run.locale;
    options.dialect = run.dialect;
    options.sessionDate = Date::parseIso(run.sessionDate);
    options.settings = run.settings;
    options.parameters = run.parameters;
    HostSession session(options, messages);
    std::stringstream trace;
    session.file().database().setTrace(&trace);
    const auto* member = clsReport::findMember(run.member);
    if (member == nullptr) throw std::runtime_error("The factory has no member " + run.member);
    ReportJob job(session, *member, wishOf(run));
    if (!job.made()) throw std::runtime_error("The factory gives no report " + run.member);
    if (run.pageHeight > 0) job.report().setup.height = run.pageHeight;
    if (prepare) prepare(job.report());
    ReportResult result;
    FixedMeasure measure;
    job.run(result.kept, measure);
    session.file().database().setTrace(nullptr);
    result.boxes = messages.texts;
    for (std::string line; std::getline(trace, line);) result.sql.push_back(line);
    return result;
}

}  // namespace quillo::test
