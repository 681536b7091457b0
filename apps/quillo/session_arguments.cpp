#include "apps/quillo/session_arguments.h"

namespace quillo::app {
namespace {

// A company that cannot be opened is not the fault of the other arguments.
void requireCompany(const SessionOptions& options) {
    try {
        CompanyFile company(options.company, options.stop);
    } catch (const std::exception& failure) {
        throw CompanyError(failure.what());
    }
}

}  // namespace

Date readDate(const std::string& option, const std::string& text) {
    const auto date = Date::parseIsoDay(text);
    if (!date) throw UsageError(option + " is a date such as 2024-12-31, not \"" + text + "\"");
    return *date;
}

std::unique_ptr<HostSession> openSession(const SessionOptions& options, Messages& messages) {
    requireCompany(options);
    try {
        return std::make_unique<HostSession>(options, messages);
    } catch (const std::exception& failure) {
        throw UsageError(failure.what());
    }
}

}  // namespace quillo::app
