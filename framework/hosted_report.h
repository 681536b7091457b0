#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "framework/engine/report.h"
#include "framework/step.h"

namespace quillo {

// What reports and sub-reports ask of their host alike: texts, formats, currencies, settings, rows.
class HostedReport : public Report {
protected:
    using Report::Report;

    // Throws when the host has not set it yet.
    Application& application() const;
    std::string GetText(int id) const { return application().GetText(id); }
    const LocaleFormat& locale() const { return context().locale(); }
    CurrencyInfo& currencies() const { return application().currencyInfo(); }
    bool Setting(int number) const { return context().company().settings().Item(number).toBool(); }
    void Translate() { context().localizer().Translate(*this); }

    // Connects, sets the text, binds the values to its "?" marks in order, and executes: the report's own
    // command without a time limit.
    std::shared_ptr<Recordset> execute(const std::string& sql, const std::vector<Variant>& values = {});
    std::shared_ptr<Recordset> execute(std::unique_ptr<Command>& command, const std::string& sql,
                                       const std::vector<Variant>& values);

    struct CodePlace {
        Control& code;
        Control& follower;
    };
    // Where the company does not use the codes of a setting (Setting::customerCodes): hides them, and what stands
    // beside or below each takes its place. A part of a report's making; false when it hid them.
    bool ActiveReport_Initialize(int setting, std::initializer_list<CodePlace> places);

    Application* m_objApplication = nullptr;

private:
    std::unique_ptr<Command> m_command;
};

// A report that runs inside another one, which gives it the host's application.
class SubReportFrame : public HostedReport {
public:
    void clsApplicationInitialise(Application& application) { m_objApplication = &application; }

protected:
    using HostedReport::HostedReport;
};

}  // namespace quillo
