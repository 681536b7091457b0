#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "framework/engine/band_run.h"
#include "framework/engine/row_chain.h"

namespace quillo {

// Puts sections on pages: page headers and footers, page breaks, what keeps together, sections that split. A page goes
// to the sink as soon as the next one begins.
//
// - A page break, and a section that asks for a new page, waits for something that shows.
// - What must stay together is placed where it comes; when the next piece does not fit, all of it moves to the next
// page
//   with that piece, as it was placed: no event runs again. A total moves with the row before it, and headers with the
//   row behind them.
// - A section that is higher than a page, or is not kept together, is split. A page on which nothing can be placed
//   ends the run with an EngineError that names report and section.
// - A sub-report below which nothing stands, and that is too long for the page, goes to the pages row by row.
class Paginator final : public SectionTarget {
public:
    Paginator(const Report& report, PageSink& sink, RunState& state);

    // After the last section: closes the last page.
    void finish();

    // SectionTarget
    Arena& arena() override { return current_->arena; }
    float width() const override { return setup_.printableWidth(); }
    bool takesFlow(const Section& section) const override;
    void begin(BandRun& run) override;
    void place(Section& section, const LaidOut& laid) override;
    void openGroup(Section& header) override;
    void closeGroup(Section& header) override;

private:
    friend class FlowTarget;

    // What goes along to the next page.
    struct Carry {
        struct Part {
            const Section* section;
            PlacedSection placed;
        };
        std::vector<Part> parts;
        std::size_t from;   // where it stood
        bool torn = false;  // the first part is the rest of what stays
        float cursor;       // behind it, on the page that it leaves

        // Where the sections that stood at a place begin among those that were carried to base.
        std::size_t placeOf(std::size_t at, std::size_t base) const { return base + (torn ? 1 : 0) + at - from; }
    };
    // From where on things stay with what comes.
    struct Keep {
        const Section* header;
        std::size_t from;
    };
    // A header with the first row of its group.
    struct FirstRow {
        std::size_t header, row;
    };
    // An open group whose header stands again on each page; its first print is kept.
    struct Repeated {
        const Section* header;
        std::unique_ptr<Arena> arena{};  // of print and marks
        std::optional<PlacedSection> print{};
        PlacedSection marks{};                 // the controls that it has only where it stands again
        std::optional<std::size_t> at{};       // where it printed, while that page is the current one
        std::optional<std::size_t> endedAt{};  // where its group ended on the current page
        bool torn = false;                     // a piece of it is still to be placed
    };
    // A header beside which its group prints.
    struct Underlay {
        const Section* header;
        float bottom;
        std::size_t at;
    };
    // While it lives, a piece that has no page yet moves along to the page that is current.
    class Waiting {
    public:
        Waiting(Paginator& pages, PlacedSection& piece) : pages_(pages) { pages_.waiting_.push_back(&piece); }
        ~Waiting() { pages_.waiting_.pop_back(); }
        Waiting(const Waiting&) = delete;
        Waiting& operator=(const Waiting&) = delete;

    private:
        Paginator& pages_;
    };

    std::unique_ptr<Page> sparePage();
    void openPage(std::unique_ptr<Page> page);
    void printPageHeader();
    void putPageHeader(const PlacedSection& placed);
    void turnToHeader(const PlacedSection& placed);
    void printHeadings(const Carry& carry);
    // Goes to the next page, taking along what stands from an index on, and what waits.
    void turnPage(std::size_t from);
    void closePage(Carry& carry, Arena& next);
    void printPageFooter(Carry& carry, Arena& next);
    void makeRoom(float bottom, Carry& carry, Arena& next);
    void takeLast(Carry& carry, Arena& next);
    void dropPage();
    void keepHeadings();
    void keepMarks(const Section& section, const LaidOut& laid);
    static PlacedSection asRepeat(const PlacedSection& print, Arena& arena);
    PlacedSection repeatOf(const Repeated& group);
    void keepTorn(const Section& section, const PlacedSection& piece);
    void mend(const Section& section);
    void forget(const Section& section);
    void openNext(std::unique_ptr<Page> next, Carry& carry);
    void follow(const Carry& carry);
    void putCarried(Carry& carry);
    void takeBreaks();
    void printDueHeader();

    void placePiece(const Section& section, PlacedSection piece);
    void placeSpace(const Section& section, PlacedSection piece);
    // whole: not a part of a section that is split.
    void put(const Section& section, const PlacedSection& piece, bool whole = true);
    void putAt(const Section* section, const PlacedSection& placed, float top);
    void noteHeader(const Section& section, const PlacedSection& piece);
    std::optional<std::size_t> keptWith(const PlacedSection& piece) const;
    bool movesWith(std::size_t from, float height) const;
    void endFirstRow();
    std::size_t withHeaders(std::size_t from) const;
    std::size_t loneHeaders(float height) const;
    bool hasBody(std::size_t end) const;
    bool fits(float height) const;
    float pageRoom() const;
    float nextRoom(std::size_t from) const;
    float bodyBottom(std::size_t from) const;
    std::size_t end() const { return current_->sections.size(); }
    [[noreturn]] void fail(const std::string& section, const std::string& what) const;

    const Report& report_;
    PageSink& sink_;
    RunState& state_;
    BandRun* run_ = nullptr;
    const PageSetup setup_;
    std::unique_ptr<Page> current_, spare_;
    std::vector<const Section*> owners_;  // of the page's sections; null for what every page has
    int pages_ = 0;                       // that have begun
    int breaks_ = 0;                      // page breaks that were asked for and wait for something to print
    float cursor_ = 0, bottom_ = 0;
    float bodyTop_ = 0;     // of the page: below what every page has
    float headHeight_ = 0;  // of the page header and the headings that stand again
    float pageHeaderHeight_ = 0;
    float footerHeight_ = 0;  // of the page footer, as it printed last
    bool headerPrinted_ = false;
    bool headerDue_ = false;  // the first page's header is still to come, below the report header
    // What was formatted for a page that then made way: it stands on the next one.
    std::optional<PlacedSection> readyHeader_, readyFooter_;
    Arena ready_;
    bool headerReady_ = false;  // the page header was formatted, whether it then shows or not
    bool headerWaits_ = false;  // the page header is still to be told that it printed
    bool replaces_ = false;     // what was carried is placed piece by piece
    int dropped_ = 0;           // pages in a row that made way for their footer
    std::vector<PlacedSection*> waiting_;
    std::vector<Keep> keeps_;  // outermost first
    std::vector<FirstRow> firstRows_;
    std::vector<Repeated> repeated_;
    std::vector<Underlay> underlays_;
    RowChain row_;
};

}  // namespace quillo
