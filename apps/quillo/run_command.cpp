#include "apps/quillo/run_command.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <ostream>

#include "apps/quillo/company_commands.h"
#include "apps/quillo/option_dialog.h"
#include "apps/quillo/outputs.h"
#include "apps/quillo/rates.h"
#include "apps/quillo/segments.h"
#include "framework/engine/engine.h"
#include "framework/report_factory.h"
#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "host/filter/filter_tool.h"
#include "host/session/host_session.h"
#include "output/shaper.h"
#include "output/text_measure.h"

namespace quillo::app {
namespace {

// Reports whose texts take the user's order behind a comma of its own.
constexpr std::string_view ordersBehindComma[] = {"dsrDayEndBalanceByUsr", "dsrInvStatByItem", "dsrItemConsumedList",
                                                  "dsrConsumedStatsByPeriod"};

Date readDate(const std::string& option, const std::string& text) {
    const auto date = Date::parseIsoDay(text);
    if (!date) throw UsageError(option + " is a date such as 2024-12-31, not \"" + text + "\"");
    return *date;
}

int readDialect(const std::string& text) {
    if (equalNames(text, "sqlserver")) return 0;
    if (equalNames(text, "jet")) return 1;
    throw UsageError("--dialect is sqlserver or jet, not \"" + text + "\"");
}

SessionOptions sessionOptions(const RunRequest& request) {
    SessionOptions options;
    options.company = request.company;
    options.language = request.language;
    options.locale = request.locale;
    if (!request.dialect.empty()) options.dialect = readDialect(request.dialect);
    if (!request.sessionDate.empty()) options.sessionDate = readDate("--session-date", request.sessionDate);
    for (const auto& [number, value] : request.settings) {
        const bool digits =
            !number.empty() && number.size() < 7 && number.find_first_not_of("0123456789") == std::string::npos;
        if (!digits) throw UsageError("--setting takes the number of a setting, not \"" + number + "\"");
        options.settings[std::stoi(number)] = value;
    }
    for (const auto& [name, value] : request.parameters) options.parameters[name] = value;
    return options;
}

// A company that cannot be opened is not the fault of the other arguments.
void requireCompany(const std::string& path) {
    try {
        CompanyFile company(path);
    } catch (const std::exception& failure) {
        throw CompanyError(failure.what());
    }
}

std::unique_ptr<HostSession> openSession(const SessionOptions& options, Messages& messages) {
    requireCompany(options.company);
    try {
        return std::make_unique<HostSession>(options, messages);
    } catch (const std::exception& failure) {
        throw UsageError(failure.what());
    }
}

const clsReport::Member& memberOf(const std::string& name) {
    if (const auto* member = clsReport::findMember(name)) return *member;
    throw UsageError("there is no report \"" + name + "\"; \"quillo list\" names them all");
}

// One line that follows a long run on a terminal.
class ProgressLine {
public:
    explicit ProgressLine(const Console& console) : console_(console) {}
    ~ProgressLine() {
        if (shown_) console_.err << "\r\033[K" << std::flush;
    }
    void show(const Progress& progress) {
        using namespace std::chrono_literals;
        const auto now = std::chrono::steady_clock::now();
        if (!console_.terminal || now < next_) return;
        next_ = now + 200ms;
        shown_ = true;
        console_.err << "\r" << progress.rows << " rows, " << progress.pages << " pages" << std::flush;
    }

private:
    const Console& console_;
    bool shown_ = false;
    std::chrono::steady_clock::time_point next_ = std::chrono::steady_clock::now() + std::chrono::seconds(1);
};

// One run of one report, from the wish on the command line to the last page.
class Run {
public:
    Run(const RunRequest& request, const Console& console)
        : request_(request),
          console_(console),
          member_(memberOf(request.member)),
          messages_(console),
          session_(openSession(sessionOptions(request), messages_)) {}

    int go() {
        if (!makeReport()) return ExitStatus::failures;
        giveContract();
        giveProperties();
        giveOptions();
        giveSegments();
        giveRates();
        openTrace();
        giveFilter();
        return print();
    }

private:
    bool makeReport() {
        clsReport factory(*session_);
        report_ = member_.make(factory);
        contract_ = dynamic_cast<IReport*>(report_.get());
        return contract_ != nullptr;
    }

    void giveContract() {
        contract_->IReport_Application(*session_);
        contract_->IReport_Initialize();
        const Date from = request_.from.empty() ? noStartLimit : readDate("--from", request_.from);
        const Date to = request_.to.empty() ? noEndLimit : readDate("--to", request_.to);
        if (from > to) throw UsageError("--from is later than --to");
        from_ = from, to_ = to;
        contract_->IReport_DateFrom(from);
        contract_->IReport_DateTo(to);
        contract_->IReport_DisplayForeignCurrency(request_.foreign);
    }

    void giveProperties() {
        for (const auto& [name, value] : request_.properties) {
            try {
                // A factory argument carries the name of the property that it sets.
                report_->setProperty(equalNames(name, "lngInvType") ? "InvoiceType" : name, value);
            } catch (const std::exception& failure) {
                throw UsageError("--set " + name + "=" + value + ": " + failure.what());
            }
        }
    }

    void giveOptions() {
        if (request_.options.empty()) return;
        auto* config = dynamic_cast<IReportConfig*>(report_.get());
        if (config == nullptr) throw UsageError(std::string(member_.name) + " has no options");
        OptionDialog dialog(request_.options);
        config->IReportConfig_ShowConfigurationScreen(dialog);
        if (!dialog.refusal().empty()) throw UsageError(dialog.refusal());
    }

    void giveSegments() {
        if (request_.segments.empty() && !request_.noSegment) return;
        auto* segments = dynamic_cast<ISegmentFilter*>(report_.get());
        if (segments == nullptr) throw UsageError(std::string(member_.name) + " does not select segments");
        if (request_.segments.find_first_not_of("0123456789, ") != std::string::npos)
            throw UsageError("--segments takes ids joined by commas, not \"" + request_.segments + "\"");
        segments->ISegmentFilter_SegmentFilter(request_.segments);
        segments->ISegmentFilter_SegmentNoneFilter(request_.noSegment);
        segments->ISegmentFilter_SegmentFilterDisplay(segmentText(*session_, request_.segments, request_.noSegment));
    }

    void giveRates() {
        if (!request_.comparable.empty() && dynamic_cast<IComparableReport*>(report_.get()) == nullptr)
            throw UsageError(std::string(member_.name) + " has no comparable tables");
        if (!request_.reevaluate && request_.rates.empty() && request_.ratesDate.empty()) return;
        auto* rates = dynamic_cast<IExchangeRates*>(report_.get());
        if (rates == nullptr) throw UsageError(std::string(member_.name) + " does not re-evaluate balances");
        rates->IExchangeRates_Reevaluate(request_.reevaluate);
        rates->IExchangeRates_ExchangeRatesDate(request_.ratesDate);
        rates->IExchangeRates_ExchangeRates(readRates(request_.rates, session_->currencyInfo().currencies()));
    }

    void openTrace() {
        if (request_.traceSql.empty()) return;
        trace_.open(request_.traceSql, std::ios::binary);
        if (!trace_) throw UsageError(request_.traceSql + " cannot be written");
        session_->file().database().setTrace(&trace_);
    }

    void giveFilter() {
        auto* filterable = dynamic_cast<IFilterableReport*>(report_.get());
        const bool asked = !request_.where.empty() || !request_.order.empty() || request_.cancelFilter;
        if (filterable == nullptr) {
            if (asked) throw UsageError(std::string(member_.name) + " takes no filter");
            return;
        }
        FilterChoice choice;
        choice.where = request_.where;
        choice.order = request_.order;
        choice.cancel = request_.cancelFilter;
        choice.leadingSeparator = std::find(std::begin(ordersBehindComma), std::end(ordersBehindComma),
                                            member_.report) != std::end(ordersBehindComma);
        tool_ = std::make_unique<HeadlessFilterTool>(
            choice, session_->file().catalogue(), *session_,
            [filterable](const std::string& filter) { filterable->IFilterableReport_Filter(filter); });
        filterable->IFilterableReport_FilterTool(*tool_);
    }

    // Why the user's filter was not taken: the run then ends before anything is written.
    std::string filterRefusal() const { return tool_ ? tool_->failure() : std::string(); }

    OutputRequest outputRequest() {
        OutputRequest output;
        output.format = request_.format;
        output.path = request_.output;
        output.resolution = request_.resolution;
        output.report = member_.report;
        output.member = member_.name;
        output.title = contract_->IReport_ReportTitle();
        output.language = session_->language().code();
        output.sessionDate = session_->SessionDate();
        output.failures = [this] { return messages_.shown(); };
        output.missing = [this](const std::string& failure) { missing_.push_back(failure); };
        output.frame = {session_->companyName(), output.title,
                        session_->GetText(20211) + " " + session_->locale().shortDate(output.sessionDate),
                        session_->GetText(20212), period()};
        return output;
    }

    // The dates that the run covers, where the report does not print them itself.
    std::string period() const {
        const auto date = [this](Date day) { return session_->locale().shortDate(day); };
        const int option = contract_->IReport_DateDisplayOptions();
        const auto* own =
            option == DateDisplay::none ? nullptr : report_->section("PageHeader").find("lblDateFromDateTo");
        if (option == DateDisplay::none || (own != nullptr && own->Visible)) return {};
        if (option == DateDisplay::closingDate)
            return to_ == noEndLimit ? session_->GetText(1376) : session_->GetText(1776) + " " + date(to_);
        if (from_ == noStartLimit && to_ == noEndLimit) return session_->GetText(1376);
        std::string text;
        if (from_ != noStartLimit) text = session_->GetText(3013) + " " + date(from_) + " ";
        return to_ == noEndLimit ? text : text + session_->GetText(3012) + " " + date(to_);
    }

    int print() {
        const RunEnd end = printPages();
        // What the output's own thread could not show, since it has ended.
        for (const std::string& failure : missing_) messages_.Show(failure);
        if (!filterRefusal().empty()) throw UsageError(filterRefusal());
        if (end == RunEnd::stopped) {
            console_.complain("stopped; nothing was written");
            return ExitStatus::failures;
        }
        return messages_.shown().empty() ? ExitStatus::done : ExitStatus::failures;
    }

    RunEnd printPages() {
        const auto sink = openOutput(outputRequest(), console_);
        // A character that no font has prints as a box; what paints it tells of it.
        FontMeasure measure(makeTextShaper([](const std::string&) {}));
        ProgressLine line(console_);
        RunOptions options;
        options.maxPages = request_.maxPages;
        options.proceed = [&](const Progress& progress) {
            line.show(progress);
            return !interruptFlag() && filterRefusal().empty();
        };
        session_->file().database().setStopFlag(&interruptFlag());
        return runReport(*report_, *sink, measure, options);
    }

    const RunRequest& request_;
    const Console& console_;
    const clsReport::Member& member_;
    ConsoleMessages messages_;
    std::unique_ptr<HostSession> session_;
    std::ofstream trace_;
    std::unique_ptr<HeadlessFilterTool> tool_;
    clsReport::Object report_;  // ends before what it refers to
    IReport* contract_ = nullptr;
    Date from_, to_;
    std::vector<std::string> missing_;  // characters that no font has: the output's thread adds them while it lives
};

}  // namespace

int runReportCommand(const RunRequest& request, const Console& console) {
    return Run(request, console).go();
}

}  // namespace quillo::app
