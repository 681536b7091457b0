#include "library/quillo.h"

#include <filesystem>
#include <functional>
#include <new>
#include <optional>

#include "framework/values/errors.h"
#include "host/session/report_job.h"
#include "output/font_measure.h"
#include "output/output_file.h"
#include "output/page_frame.h"
#include "output/pdf/pdf_sink.h"
#include "output/shaper.h"

using namespace quillo;

namespace {

// Hands the failure boxes of a session to its caller.
struct CalledBack final : Messages {
    void Show(std::string_view text) override {
        last = text;
        if (show != nullptr) show(caller, last.c_str());
    }
    quillo_messages show = nullptr;
    void* caller = nullptr;
    std::string last;  // of the current run; empty: none was shown
};

}  // namespace

struct quillo_session {
    SessionOptions options;
    CalledBack messages;
    std::string error;
    std::unique_ptr<HostSession> host;  // of the factory; null in a session that did not open
    std::optional<clsReport> factory;
};

namespace {

// Calls take(name, value) for each "name=value" of a list that ends in null.
template <class Take>
void forEach(const char* const* list, Take take) {
    for (; list != nullptr && *list != nullptr; ++list) {
        const std::string entry = *list;
        const auto sign = entry.find('=');
        if (sign == std::string::npos) throw InputError("\"" + entry + "\" is not name=value");
        take(entry.substr(0, sign), entry.substr(sign + 1));
    }
}

Date dayOf(const std::string& name, const std::string& text) {
    const auto day = Date::parseIsoDay(text);
    if (!day) throw InputError(name + " is a day such as 2025-12-31, not \"" + text + "\"");
    return *day;
}

bool truthOf(const std::string& name, const std::string& text) {
    if (text != "true" && text != "false") throw InputError(name + " is true or false, not \"" + text + "\"");
    return text == "true";
}

void takeOption(SessionOptions& options, const std::string& name, const std::string& value) {
    if (name == "language") {
        options.language = value;
    } else if (name == "locale") {
        options.locale = value;
    } else if (name == "session-date") {
        options.sessionDate = dayOf(name, value);
    } else {
        throw InputError("there is no option \"" + name + "\"; there are language, locale and session-date");
    }
}

void takeWish(ReportWish& wish, const std::string& name, const std::string& value) {
    if (name == "from") {
        wish.from = dayOf(name, value);
    } else if (name == "to") {
        wish.to = dayOf(name, value);
    } else if (name == "foreign") {
        wish.foreign = truthOf(name, value);
    } else if (name == "where") {
        wish.where = value;
    } else if (name == "order") {
        wish.order = value;
    } else if (name == "segments") {
        wish.segments = value;
    } else if (name == "no-segment") {
        wish.noSegment = truthOf(name, value);
    } else {
        wish.properties.emplace_back(name, value);
    }
}

const clsReport::Member& memberOf(const char* name) {
    if (const auto* member = name != nullptr ? clsReport::findMember(name) : nullptr) return *member;
    throw InputError("there is no report \"" + std::string(name != nullptr ? name : "") + "\"");
}

RunEnd print(ReportJob& job, const HostSession& host, Messages& messages, const char* path) {
    const auto shaper = makeTextShaper([&](const std::string& failure) { messages.Show(failure); });
    FontMeasure measure(shaper);
    const PageFrameTexts texts = job.pageTexts();
    const PdfOptions pdf{texts.title, host.language().code(), texts.company, host.SessionDate()};
    PageFrame pages(std::make_unique<PdfSink>(std::make_unique<OutputFile>(path), pdf, shaper), texts, measure);
    return job.run(pages, measure);
}

void checkPath(const char* path, const std::string& company) {
    if (path == nullptr) throw InputError("there is no path for the PDF");
    std::error_code none;
    for (const char* beside : {"", "-wal", "-shm", "-journal"})
        if (std::filesystem::equivalent(path, company + beside, none) ||
            writtenPath(path) == writtenPath(company) + beside)
            throw InputError(std::string(path) + " is the company's own file");
}

quillo_status run(quillo_session& session, const char* member, const char* const* wishes, const char* path) {
    checkPath(path, session.options.company);
    ReportWish wish;
    forEach(wishes, [&](const std::string& name, const std::string& value) { takeWish(wish, name, value); });
    // A host session keeps what it has read; one of its own lets each run see the company as it is now.
    HostSession host(session.options, session.messages);
    ReportJob job(host, memberOf(member), wish);
    if (job.made() && print(job, host, session.messages, path) == RunEnd::stopped)
        throw std::runtime_error("stopped; nothing was written");
    session.error = session.messages.last;
    return session.error.empty() ? QUILLO_DONE : QUILLO_FAILURES;
}

// What a call throws, as the status and the error text of its session.
quillo_status guarded(quillo_session& session, const std::function<quillo_status()>& call) {
    session.error.clear();
    session.messages.last.clear();
    try {
        return call();
    } catch (const InputError& refusal) {
        session.error = refusal.what();
        return QUILLO_REFUSED;
    } catch (const std::exception& failure) {
        session.error = failure.what();
        return QUILLO_FAILURES;
    }
}

quillo_status openHost(quillo_session& session, const char* const* options) {
    forEach(options,
            [&](const std::string& name, const std::string& value) { takeOption(session.options, name, value); });
    session.host = std::make_unique<HostSession>(session.options, session.messages);
    session.factory.emplace(*session.host);
    return QUILLO_DONE;
}

quillo_status openCompany(quillo_session& session) {
    try {
        CompanyFile company(session.options.company);
        return QUILLO_DONE;
    } catch (const std::exception& failure) {
        session.error = failure.what();
        return QUILLO_NO_COMPANY;
    }
}

}  // namespace

quillo_status quillo_open(quillo_session** session, const char* company, const char* const* options,
                          quillo_messages messages, void* caller) {
    *session = new (std::nothrow) quillo_session;
    if (*session == nullptr) return QUILLO_FAILURES;
    quillo_session& made = **session;
    made.messages.show = messages;
    made.messages.caller = caller;
    return guarded(made, [&] {
        made.options.company = company != nullptr ? company : "";
        const quillo_status opened = openCompany(made);
        return opened == QUILLO_DONE ? openHost(made, options) : opened;
    });
}

quillo_status quillo_run(quillo_session* session, const char* member, const char* const* wishes, const char* pdf) {
    if (session == nullptr || session->host == nullptr) return QUILLO_NO_COMPANY;
    return guarded(*session, [&] { return run(*session, member, wishes, pdf); });
}

void* quillo_clsReport(quillo_session* session) {
    return session != nullptr && session->factory ? &*session->factory : nullptr;
}

const char* quillo_last_error(const quillo_session* session) {
    return session != nullptr ? session->error.c_str() : "there is no session";
}

void quillo_close(quillo_session* session) {
    delete session;
}
