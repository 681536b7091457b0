#pragma once

#include <vector>

#include "framework/engine/headings.h"
#include "framework/engine/paginator.h"

namespace quillo {

// Takes the sections of a sub-report that ends its section. While they fit on one page they wait, and are placed with
// their section as one piece; from the row on that no page holds they go to the pages one by one, so that a sub-report
// of any length takes no more memory than a page.
class FlowTarget final : public SectionTarget {
public:
    struct Flow {
        const SubReport* control;
        const ControlInfo* info;
        float top;   // of the sub-report in what is left of its section
        float room;  // that the design leaves below it
    };
    // upper: what is left of the section, without the sub-report.
    FlowTarget(Paginator& pages, const Section& section, const PlacedSection& upper, const Flow& flow);

    // Runs the sub-report to its end.
    void run();

    Arena& arena() override { return arena_; }
    float width() const override { return flow_.control->Width; }
    bool isNested() const override { return true; }
    void begin(BandRun& run) override { run.print(run.single(SectionKind::reportHeader)); }
    void place(Section& section, const LaidOut& laid) override;

private:
    void hold(const PlacedSection& section);
    void placeWhole();
    void startFlow();
    void append(PlacedSection section);
    void add(const PlacedSection& section, bool whole = true);
    bool holdsRows(std::size_t end) const;
    void turn(const std::vector<PlacedSection>& again);
    std::vector<PlacedSection> takeRow(std::size_t from);
    void endPiece();
    PlacedControl control(std::span<const PlacedSection> sections, float top, float height) const;

    Paginator& pages_;
    const Section& section_;
    PlacedSection upper_;
    const Flow flow_;
    Arena arena_;  // of what waits, and of the section that is on its way
    bool flows_ = false;
    bool printed_ = false;                // a piece of the section stands on a page
    std::vector<PlacedSection> waiting_;  // while nothing flows
    float height_ = 0;                    // of what waits
    std::vector<PlacedSection> piece_;    // what stands on the current page
    float pieceTop_ = 0;
    Headings headings_{Headings::Hold::copies};
    RowChain row_;
};

}  // namespace quillo
