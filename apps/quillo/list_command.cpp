#include <iomanip>
#include <ostream>

#include "apps/quillo/company_commands.h"
#include "apps/quillo/option_list.h"
#include "apps/quillo/run_command.h"
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
    explicit Catalog(const std::string& language) : session_(optionsFor(scratch_.path(), language), messages_) {}

    Description describe(const clsReport::Member& member) {
        Description text;
        clsReport factory(session_);
        const auto report = member.make(factory);
        auto* contract = dynamic_cast<IReport*>(report.get());
        if (contract == nullptr) return text;
        contract->IReport_Application(session_);
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
    HostSession session_;
};

}  // namespace

void listMembers(const std::string& language, const Console& console) {
    Catalog catalog(language);
    for (const clsReport::Member& member : clsReport::members()) {
        if (interruptFlag()) throw RunStopped();
        console.out << std::left << std::setw(32) << member.name;
        if (!member.written) {
            console.out << "(still to come)\n";
            continue;
        }
        const Description text = catalog.describe(member);
        console.out << text.title << "  [dates: " << text.dates << (text.abilities.empty() ? "" : ";") << text.abilities
                    << "]\n";
        for (const auto& option : text.options)
            console.out << std::setw(32) << ""
                        << "--option " << option.name << "=" << option.now << "  " << option.caption << '\n';
    }
}

void describeMember(const std::string& name, const std::string& language, const Console& console) {
    const clsReport::Member* member = clsReport::findMember(name);
    if (member == nullptr) throw UsageError("there is no report \"" + name + "\"; \"quillo list\" names them all");
    console.out << member->name << " (" << member->report << ")";
    if (!member->written) {
        console.out << ": still to come\n";
        return;
    }
    const Description text = Catalog(language).describe(*member);
    console.out << ": " << text.title << "\n  dates       " << text.dates << '\n';
    if (!text.tables.empty()) console.out << "  filter over " << text.tables << '\n';
    if (!text.abilities.empty()) console.out << "  takes      " << text.abilities << '\n';
    for (const auto& property : text.properties) console.out << "  --set " << property << "=...\n";
    for (const auto& option : text.options)
        console.out << "  --option " << option.name << "=" << option.values << "  " << option.caption << " (now "
                    << option.now << ")\n";
}

}  // namespace quillo::app
