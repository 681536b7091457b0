#pragma once

#include <memory>
#include <string>

#include "apps/quillo/console.h"
#include "host/session/host_session.h"

namespace quillo::app {

// The day that an option gives. Throws UsageError for any other text.
Date readDate(const std::string& option, const std::string& text);

// What the database says of a company's file as CompanyError that names it. To be called while that is being caught;
// throws anything else on.
[[noreturn]] void blameCompany(const std::string& path);

// Runs what reads a company, and gives its exit status.
template <class Work>
int onCompany(const std::string& path, Work work) {
    try {
        return work();
    } catch (...) {
        blameCompany(path);
    }
}

// Throws CompanyError when the company cannot be opened, or is not as every company is, UsageError for what else is
// wrong with the options.
std::unique_ptr<HostSession> openSession(const SessionOptions& options, Messages& messages);

}  // namespace quillo::app
