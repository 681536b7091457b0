#include <algorithm>

#include "apps/quillo/company_commands.h"
#include "apps/quillo/option_list.h"
#include "apps/quillo/run_command.h"
#include "apps/quillo/session_arguments.h"
#include "framework/report_factory.h"
#include "framework/run_frame.h"
#include "framework/values/errors.h"
#include "host/session/host_session.h"

namespace quillo::app {
namespace {

// Nothing prints: the report is only asked what it is.
class NoMessages final : public Messages {
public:
    void Show(std::string_view) override {}
};

struct Description {
    std::string title, dates, tables, abilities;
    std::vector<std::string> properties;
    std::vector<OptionList::Entry> options;
};

std::string datesOf(int option) {
    switch (option) {
        case DateDisplay::range:
            return "--from, --to";
        case DateDisplay::closingDate:
            return "--to";
        default:
            return "none";
    }
}

class Catalog {
public:
    explicit Catalog(const std::string& language)
        : session_(openSession(optionsFor(scratch_.path(), language), messages_)) {}

    Description describe(const clsReport::Member& member) {
        Description text;
        clsReport factory(*session_);
        const auto report = member.make(factory);
        auto* contract = dynamic_cast<IReport*>(report.get());
        if (contract == nullptr) return text;
        contract->IReport_Application(*session_);
        contract->IReport_Initialize();
        text.title = contract->IReport_ReportTitle();
        text.dates = datesOf(contract->IReport_DateDisplayOptions());
        text.properties = report->propertyNames();
        if (const auto* filterable = dynamic_cast<FilterableReport*>(report.get())) {
            text.tables = filterable->filterTables();
            text.abilities += " filter";
        }
        if (dynamic_cast<ISegmentFilter*>(report.get()) != nullptr) text.abilities += " segments";
        if (auto* config = dynamic_cast<IReportConfig*>(report.get())) {
            OptionList list;
            config->IReportConfig_ShowConfigurationScreen(list);
            text.options = list.entries();
            text.abilities += " options";
        }
        if (dynamic_cast<IExchangeRates*>(report.get()) != nullptr) text.abilities += " rates";
        if (dynamic_cast<IComparableReport*>(report.get()) != nullptr) text.abilities += " comparable";
        return text;
    }

private:
    static SessionOptions optionsFor(const std::string& path, const std::string& language) {
        SessionOptions options;
        options.company = path;
        options.language = language;
        return options;
    }
    ScratchCompany scratch_;
    NoMessages messages_;
    std::unique_ptr<HostSession> session_;
};

std::string padded(std::string name) {
    constexpr std::size_t width = 32;
    name.resize(std::max(name.size(), width), ' ');
    return name;
}

}  // namespace

void listMembers(const std::string& language, const Console& console) {
    Catalog catalog(language);
    for (const clsReport::Member& member : clsReport::members()) {
        if (interruptFlag()) throw RunStopped();
        const std::string name = padded(std::string(member.name));
        if (!member.written) {
            console.print(name + "(still to come)");
            continue;
        }
        const Description text = catalog.describe(member);
        console.print(name + text.title + "  [dates: " + text.dates + (text.abilities.empty() ? "" : ";") +
                      text.abilities + "]");
        for (const auto& option : text.options)
            console.print(padded("") + "--option " + option.name + "=" + option.now + "  " + option.caption);
    }
}

void describeMember(const std::string& name, const std::string& language, const Console& console) {
    const clsReport::Member& member = memberOf(name);
    const std::string head = std::string(member.name) + " (" + std::string(member.report) + "): ";
    if (!member.written) return console.print(head + "still to come");
    const Description text = Catalog(language).describe(member);
    console.print(head + text.title);
    console.print("  dates       " + text.dates);
    if (!text.tables.empty()) console.print("  filter over " + text.tables);
    if (!text.abilities.empty()) console.print("  takes      " + text.abilities);
    for (const auto& property : text.properties) console.print("  --set " + property + "=...");
    for (const auto& option : text.options)
        console.print("  --option " + option.name + "=" + option.values + "  " + option.caption + " (now " +
                      option.now + ")");
}

}  // namespace quillo::app
