#pragma once

#include <deque>
#include <memory>
#include <vector>

#include "framework/engine/band_run.h"

namespace quillo {

// Puts sections on pages: page headers and footers, page breaks, groups that keep together, sections
// that split. Holds back what PageCollection may still remove and recycles the pages that are gone.
class PageBuilder final : public SectionTarget, public PageCollection {
public:
    PageBuilder(const Report& report, PageSink& sink, RunState& state);

    // After the report's end: hands the last pages to the sink.
    void finish();
    // After the last section: closes the last page, so that the report's end sees all of them.
    void endPages();

    // SectionTarget
    Arena& arena() override { return current_->page->arena; }
    float width() const override { return setup_.printableWidth(); }
    void begin(BandRun& run) override;
    void beforeFormat() override;
    void place(Section& section, const PlacedSection& placed) override;
    void openGroup(Section& header) override;
    void closeGroup(Section& header) override;
    void detailDone() override;

    // PageCollection
    int Count() const override { return emitted_ + static_cast<int>(held_.size()); }
    int PageNumber() const override { return lastStart_; }
    bool isEmpty(int index) const override;
    void Remove(int index) override;
    void Commit() override;

private:
    struct BuiltPage {
        std::unique_ptr<Page> page;
        bool empty = true;
        bool holds = false;  // an empty page that the report footer's breaks leave: kept to the end
        bool removed = false;
    };
    struct Waiting {
        Section* section;
        PlacedSection placed;
    };

    void openPage();
    void printPageHeader();
    void closePage();
    void newPage();
    void breakNow();
    void emit(bool all);
    void put(const PlacedSection& placed, bool body);
    void placeSlices(Section& section, const PlacedSection& placed);
    void placePiece(Section& section, PlacedSection piece);
    void placeNow(Section& section, const PlacedSection& placed);
    void flushWaiting();
    void stopWaiting();
    float bodyHeight() const { return bottom_ - bodyTop_; }
    [[noreturn]] void fail(const std::string& section, const std::string& what) const;

    const Report& report_;
    PageSink& sink_;
    RunState& state_;
    BandRun* run_ = nullptr;
    const PageSetup setup_;
    std::unique_ptr<BuiltPage> current_;
    std::deque<std::unique_ptr<BuiltPage>> held_;
    std::vector<std::unique_ptr<BuiltPage>> spare_;
    int emitted_ = 0;
    int lastStart_ = 1;
    int breaks_ = 0;  // page breaks that were asked for and wait for the next content
    float cursor_ = 0, bodyTop_ = 0, bottom_ = 0;
    float underlayBottom_ = 0;
    bool headerPrinted_ = false;
    bool inReportFooter_ = false;
    Section* keeper_ = nullptr;  // the header of the group that is kept together
    bool overlong_ = false;      // the kept group is longer than a page and no longer kept
    std::vector<Waiting> waiting_;
    float waitingHeight_ = 0;
    std::vector<const Section*> moving_;  // what goes to the next page with its group
};

}  // namespace quillo
