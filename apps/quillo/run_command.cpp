#include "apps/quillo/run_command.h"

#include <algorithm>
#include <chrono>
#include <ostream>

#include "apps/quillo/company_commands.h"
#include "apps/quillo/output_guard.h"
#include "apps/quillo/outputs.h"
#include "apps/quillo/session_arguments.h"
#include "framework/values/errors.h"
#include "framework/values/names.h"
#include "framework/values/nearest_name.h"
#include "host/session/report_job.h"
#include "output/font_measure.h"
#include "output/output_error.h"
#include "output/shaper.h"

namespace quillo::app {
namespace {

std::vector<std::string> memberNames() {
    std::vector<std::string> names;
    for (const auto& member : clsReport::members()) names.emplace_back(member.name);
    return names;
}

int readDialect(const std::string& text) {
    if (equalNames(text, "sqlserver")) return 0;
    if (equalNames(text, "jet")) return 1;
    throw UsageError("--dialect is sqlserver or jet, not \"" + text + "\"");
}

SessionOptions sessionOptions(const RunRequest& request) {
    SessionOptions options;
    options.company = request.company;
    options.stop = &interruptFlag();
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

// Where one report was asked for, a day that it does not look at is a mistake; common to all of them, it is not.
void refuseDates(IReport& report, const RunRequest& request) {
    const int takes = report.IReport_DateDisplayOptions();
    const auto refuse = [&](const char* option, const std::string& given, bool taken) {
        if (!given.empty() && !taken)
            throw UsageError(request.member + " takes no " + option + ": \"quillo run " + request.member +
                             " --help\" tells its dates");
    };
    refuse("--from", request.from, takes == DateDisplay::range);
    refuse("--to", request.to, takes != DateDisplay::none);
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
          session_(openSession(request, messages_)),
          outlet_(console) {}

    int go() {
        try {
            job_ = std::make_unique<ReportJob>(*session_, member_, wish());
            if (job_->made() && !request_.comparable.empty()) job_->collectInto(comparable_);
            if (job_->made() && !request_.datesAreCommon) refuseDates(job_->contract(), request_);
        } catch (const InputError& refusal) {
            throw UsageError(refusal.what());
        }
        if (!job_->made()) return ExitStatus::failures;
        openTrace();
        openComparable();
        return print();
    }

private:
    ReportWish wish() const {
        ReportWish wish;
        if (!request_.from.empty()) wish.from = readDate("--from", request_.from);
        if (!request_.to.empty()) wish.to = readDate("--to", request_.to);
        if (wish.from > wish.to) throw UsageError("--from is later than --to");
        wish.foreign = request_.foreign;
        wish.properties = request_.properties;
        wish.options = request_.options;
        wish.segments = request_.segments;
        wish.noSegment = request_.noSegment;
        wish.where = request_.where;
        wish.order = request_.order;
        wish.cancelFilter = request_.cancelFilter;
        wish.reevaluate = request_.reevaluate;
        wish.ratesDate = request_.ratesDate;
        wish.rates = request_.rates;
        return wish;
    }

    void openTrace() {
        if (request_.traceSql.empty()) return;
        trace_ = std::make_unique<OutletStream>(openFile(request_.traceSql));
        session_->file().database().setTrace(&trace_->stream());
    }

    OutputRequest outputRequest() {
        OutputRequest output;
        output.format = request_.format;
        output.path = request_.output;
        output.resolution = request_.resolution;
        output.report = member_.report;
        output.member = member_.name;
        output.frame = job_->pageTexts();
        output.title = output.frame.title;
        output.language = session_->language().code();
        output.sessionDate = session_->SessionDate();
        output.failures = [this] { return failures(); };
        output.strict = request_.strict;
        output.missing = [this](const std::string& failure) { missing_.push_back(failure); };
        return output;
    }

    int print() {
        const RunEnd end = printPages();
        // What the output's own thread could not show, since it has ended.
        for (const std::string& failure : missing_) messages_.Show(failure);
        if (end == RunEnd::stopped) {
            console_.complain("stopped; nothing was written");
            return ExitStatus::failures;
        }
        const bool kept = messages_.shown().empty() || !request_.strict;
        if (kept) writeComparable();
        closeTrace();
        const bool faulty = session_->file().database().faulty();
        letGo();
        if (!kept) console_.complain(nothingWritten);
        outlet_.deliver();
        if (faulty)
            throw CompanyError("The company file " + request_.company +
                               " is damaged or lacks what the report asks; \"quillo check\" tells more");
        return messages_.shown().empty() ? ExitStatus::done : ExitStatus::failures;
    }

    // Those of the output's own thread are known when it has ended.
    std::vector<std::string> failures() const {
        std::vector<std::string> all = messages_.shown();
        all.insert(all.end(), missing_.begin(), missing_.end());
        return all;
    }

    void closeTrace() {
        if (!trace_) return;
        session_->file().database().setTrace(nullptr);
        try {
            trace_->finish();
        } catch (const OutputError& failure) {
            messages_.Show(failure.what());
        }
    }

    // What waits for a reader must not keep others from the company.
    void letGo() {
        job_.reset();
        session_.reset();
        messages_.tell();
    }

    std::unique_ptr<Output> openFile(const std::string& path) {
        try {
            return outlet_.open(path);
        } catch (const OutputError& failure) {
            throw UsageError(failure.what());
        }
    }

    // Opened ahead of the run, which may be long.
    void openComparable() {
        if (!request_.comparable.empty()) comparableFile_ = openFile(request_.comparable);
    }

    void writeComparable() {
        if (!comparableFile_) return;
        comparableFile_->write(comparableXml(job_->comparableTables(comparable_)));
        comparableFile_->finish();
    }

    RunEnd printPages() {
        // A character that no font has prints as a box; what paints it tells of it.
        FontMeasure measure(makeTextShaper([](const std::string&) {}));
        const auto sink = openOutput(outputRequest(), outlet_, measure);
        ProgressLine line(console_);
        RunOptions options;
        options.maxPages = request_.maxPages;
        options.proceed = [&](const Progress& progress) {
            line.show(progress);
            return !interruptFlag();
        };
        try {
            return job_->run(*sink, measure, options);
        } catch (const InputError& refusal) {
            throw UsageError(refusal.what());
        } catch (const PageLimitError& limit) {
            throw PageLimitError(limit.what() + std::string("; --max-pages allows more"));
        }
    }

    const RunRequest& request_;
    const Console& console_;
    const clsReport::Member& member_;
    ConsoleMessages messages_;
    std::unique_ptr<HostSession> session_;
    Outlet outlet_;
    std::unique_ptr<OutletStream> trace_;
    ComparableCollector comparable_;  // the report writes to it
    std::unique_ptr<Output> comparableFile_;
    std::unique_ptr<ReportJob> job_;
    std::vector<std::string> missing_;  // characters that no font has: the output's thread adds them while it lives
};

}  // namespace

const clsReport::Member& memberOf(const std::string& name) {
    if (const auto* member = clsReport::findMember(name)) return *member;
    throw UsageError("there is no report \"" + name + "\"" + didYouMean(name, memberNames()) +
                     "; \"quillo list\" names them all");
}

std::unique_ptr<HostSession> openSession(const RunRequest& request, Messages& messages) {
    return openSession(sessionOptions(request), messages);
}

int runReportCommand(const RunRequest& request, const Console& console) {
    guardOutputs(inputsOf(request.company, request.language), {request.output, request.comparable, request.traceSql});
    guardPages(request.format, request.output, {request.company, request.comparable, request.traceSql});
    return onCompany(request.company, [&] { return Run(request, console).go(); });
}

}  // namespace quillo::app
