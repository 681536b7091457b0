#pragma once

#include "framework/services/services.h"

namespace quillo {

// Prints the active filter above a report's captions: "Code from A to M; sorted by Name", and the
// chosen segments on a line of their own.
class FilterTextFiller final : public FilterInfoFiller {
public:
    // The context must outlive the reports that are filled.
    explicit FilterTextFiller(HostContext& context) : context_(context) {}
    void FillFilterInfo(SubReport& control, const FilterInfo& info, Application& application,
                        std::string_view segments) override;

private:
    HostContext& context_;
};

}  // namespace quillo
