#pragma once

#include <memory>

#include "framework/engine/report.h"
#include "framework/engine/text_measure.h"
#include "framework/services/services.h"

namespace quillo {

// Prints the active filter above a report's captions: "Code from A to M; sorted by Name", and the
// chosen segments on a line of their own. A text that takes more lines than its design allows is cut there.
class FilterTextFiller final : public FilterInfoFiller {
public:
    // The context must outlive the reports that are filled.
    explicit FilterTextFiller(HostContext& context) : context_(context) {}
    void FillFilterInfo(SubReport& control, const FilterInfo& info, Application& application,
                        std::string_view segments) override;
    // The whole text of the report that lives, where its pages cut it; else empty.
    std::string cutText(TextMeasure& measure) const;

private:
    HostContext& context_;
    std::weak_ptr<Report> filled_;  // the last one
};

}  // namespace quillo
