#include "apps/quillo/drill_command.h"

#include <algorithm>

#include "apps/quillo/output_guard.h"
#include "apps/quillo/outputs.h"
#include "apps/quillo/session_arguments.h"
#include "framework/drill_tags.h"
#include "framework/values/errors.h"
#include "host/drill/drill_target.h"
#include "host/drill/record_card.h"
#include "host/session/closing_notes.h"
#include "host/session/report_job.h"
#include "output/font_measure.h"
#include "output/shaper.h"

namespace quillo::app {
namespace {

bool isThere(HostSession& session, const char* query, std::string_view key) {
    sqlite::Statement row(session.file().handle(), query);
    return row.bind(1, key).step();
}

TillKey askCompany(HostSession& session, std::string_view key) {
    if (isThere(session, "SELECT 1 FROM CashierUser WHERE UsrKey = ?", key)) return TillKey::user;
    if (isThere(session, "SELECT 1 FROM CashRegister WHERE TrxSerNo = ?", key)) return TillKey::register_;
    throw InputError("The company has no user and no cash register \"" + std::string(key) +
                     "\"; --by tells whose it is");
}

DrillTarget targetOf(const std::string& tag, const std::string& by, HostSession& session) {
    return readDrillTag(tag, [&](std::string_view key) {
        if (by.empty()) return askCompany(session, key);
        return by == "user" ? TillKey::user : TillKey::register_;
    });
}

// A name without any document would give pages that tell nothing.
void checkSalesPerson(const ReportTarget& report, HostSession& session) {
    for (const auto& [property, name] : report.properties)
        if (property == "SalesPerson" && name != Drill::blankSalesPerson &&
            !isThere(session, "SELECT 1 FROM InvoiHdr WHERE SalesPerson = ?", name))
            throw InputError("The company has no documents of a salesperson \"" + name + "\"");
}

OutputRequest outputRequest(const RunRequest& request, HostSession& session, const std::string& title,
                            const ConsoleMessages& messages) {
    OutputRequest output;
    output.format = request.format;
    output.path = request.output;
    output.resolution = request.resolution;
    output.report = output.member = "RecordCard";
    output.title = title;
    output.language = session.language().code();
    output.frame = frameTexts(session, title);
    output.sessionDate = session.SessionDate();
    output.failures = [&messages] { return messages.shown(); };
    output.strict = request.strict;
    output.missing = [](const std::string&) {};  // a box stands for it, and can be seen
    return output;
}

void printCards(const RecordTarget& target, const RunRequest& request, HostSession& session,
                const ConsoleMessages& messages, Outlet& outlet) {
    auto cards = readRecordCards(target, session.file(), session);
    const OutputRequest output = outputRequest(request, session, cards.front().title, messages);
    const auto report = makeCardReport(session, std::move(cards));
    FontMeasure measure(makeTextShaper([](const std::string&) {}));
    const auto sink = openOutput(output, outlet, measure);
    RunOptions options;
    options.maxPages = request.maxPages;
    options.proceed = [](const Progress&) { return !interruptFlag(); };
    if (runWithNotes(*report, session, *sink, measure, options) == RunEnd::stopped) throw RunStopped();
}

int follow(const std::string& tag, const std::string& by, RunRequest& request, const Console& console) {
    ConsoleMessages messages(console);
    auto session = openSession(request, messages);
    try {
        const DrillTarget target = targetOf(tag, by, *session);
        if (!target.leadsToReport()) {
            Outlet outlet(console);
            printCards(target.records, request, *session, messages, outlet);
            session.reset();
            messages.tell();
            if (request.strict && !messages.shown().empty()) console.complain(nothingWritten);
            outlet.deliver();
            return messages.shown().empty() ? ExitStatus::done : ExitStatus::failures;
        }
        checkSalesPerson(target.report, *session);
        request.member = target.report.member;
        request.datesAreCommon = true;
        request.foreign |= target.report.foreign;
        request.properties.insert(request.properties.end(), target.report.properties.begin(),
                                  target.report.properties.end());
        if (!target.report.from.empty()) request.from = target.report.from;
        if (!target.report.to.empty()) request.to = target.report.to;
    } catch (const InputError& failure) {
        throw UsageError(failure.what());
    }
    session.reset();
    return runReportCommand(request, console);
}

}  // namespace

int drillCommand(const std::string& tag, const std::string& by, RunRequest request, const Console& console) {
    guardOutputs(inputsOf(request.company, request.language), {request.output});
    guardPages(request.format, request.output, {request.company});
    return onCompany(request.company, [&] { return follow(tag, by, request, console); });
}

}  // namespace quillo::app
