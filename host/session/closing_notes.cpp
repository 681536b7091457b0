#include "host/session/closing_notes.h"

#include <utility>
#include <vector>

#include "host/language/host_texts.h"
#include "host/language/placeholders.h"

namespace quillo {
namespace {

struct Note {
    std::string title, lead, text;
};

std::vector<Note> notesOf(HostSession& session, TextMeasure& measure) {
    std::vector<Note> notes;
    if (std::string filter = session.filterTexts().cutText(measure); !filter.empty())
        notes.push_back({session.GetText(HostText::wholeFilter), {}, std::move(filter)});
    const FailureLog& log = session.failures();
    const Note failure{session.GetText(HostText::failures), session.GetText(HostText::failuresLead), {}};
    const auto add = [&](std::string text) { notes.push_back({failure.title, failure.lead, std::move(text)}); };
    for (const auto& [text, times] : log.entries()) {
        add(times == 1 ? text
                       : text + " " + withArguments(session.GetText(HostText::failureTimes), {std::to_string(times)}));
    }
    if (log.others() > 0) add(withArguments(session.GetText(HostText::moreFailures), {std::to_string(log.others())}));
    return notes;
}

// A paragraph a note, on pages like those of the report.
class ClosingNotes final : public Report {
public:
    ClosingNotes(HostContext& context, const PageSetup& pages, std::vector<Note> told)
        : Report("dsrClosingNotes", context), notes_(std::move(told)) {
        setup = pages;
        for (const char* name : {"fldTitle", "fldLead", "fldNote"}) field(name).Width = setup.printableWidth();
        line("linTitle").X2 = setup.printableWidth();
        for (const char* name : {"Title", "Lead", "Note"}) Fields.Add(name);
        onFetchData(&ClosingNotes::fetch);
    }

private:
    void fetch(bool& eof) {
        eof = next_ == notes_.size();
        if (eof) return;
        const Note& note = notes_[next_++];
        Fields.Item("Title").Value = note.title;
        Fields.Item("Lead").Value = note.lead;
        Fields.Item("Note").Value = note.text;
    }

    std::vector<Note> notes_;
    std::size_t next_ = 0;
};

// Hands on the pages of several runs as those of one, which ends when the caller says so.
class JoinedPages final : public PageSink {
public:
    explicit JoinedPages(PageSink& inner) : inner_(inner) {}
    void page(const Page& page) override { take(page.clone()); }
    std::unique_ptr<Page> take(std::unique_ptr<Page> handed) override {
        handed->number = ++count_;
        return inner_.take(std::move(handed));
    }

private:
    PageSink& inner_;
    int count_ = 0;
};

}  // namespace

RunEnd runWithNotes(Report& report, HostSession& session, PageSink& sink, TextMeasure& measure,
                    const RunOptions& options) {
    JoinedPages pages(sink);
    if (runReport(report, pages, measure, options) == RunEnd::stopped) return RunEnd::stopped;
    if (std::vector<Note> notes = notesOf(session, measure); !notes.empty()) {
        ClosingNotes closing(session, report.setup, std::move(notes));
        if (runReport(closing, pages, measure, options) == RunEnd::stopped) return RunEnd::stopped;
    }
    sink.finish();
    return RunEnd::done;
}

}  // namespace quillo
