#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "framework/services/services.h"

namespace quillo::bench {

// The formats and messages of a host; the journals of the bench need no company.
class BenchHost final : public HostContext, public Messages {
public:
    Company& company() override { throw std::logic_error("no company"); }
    std::string GetText(int id) const override { return std::to_string(id); }
    std::string GetMessage(int, std::string_view, const std::vector<std::string>&) const override { return {}; }
    const LocaleFormat& locale() const override { return format_; }
    const ReportUtils& utils() const override { throw std::logic_error("no utilities"); }
    ReportLocalizer& localizer() override { throw std::logic_error("no localizer"); }
    FilterInfoFiller& filterInfoFiller() override { throw std::logic_error("no filter"); }
    Messages& messages() override { return *this; }
    void Show(std::string_view text) override { throw std::runtime_error(std::string(text)); }

private:
    LocaleFormat format_;
};

}  // namespace quillo::bench
